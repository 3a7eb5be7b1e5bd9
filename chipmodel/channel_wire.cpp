#include "chipmodel/channel_wire.h"

#include "chipmodel/bytes.h"
#include "chipmodel/model.h"
#include "platform/os.h"

namespace ldsdk::model {

namespace {

// clang-format off
#define LDSDK_PACKET_FIELDS {"payload_offset", 0, 16, 8, 0}
#define LDSDK_WALK_FIELDS \
    {"ack", 0, 23, 1, 0}, {"interval", 0, 0, 8, 0}, \
    {"start", 1, 16, 16, 0}, {"end", 1, 0, 16, 0}

constexpr WireKind kKinds[] = {
    {"queue", 0, 0, 0, 0, 0, false,
     {LDSDK_PACKET_FIELDS, {"oft", 0, 4, 12, 0}, {"queue", 0, 0, 4, 8}, {"queue", 1, 24, 8, 0},
      {"frame_info", 1, 0, 24, 0}}},
    {"fwd", 0, 1, 2, 0, 0, false,
     {LDSDK_PACKET_FIELDS, {"icos", 0, 13, 3, 0}, {"ift", 0, 0, 13, 0}, {"vsi", 1, 28, 4, 0},
      {"vlan", 1, 16, 12, 0}, {"hs", 1, 8, 8, 0}, {"role", 1, 6, 2, 0}, {"class", 1, 4, 2, 0},
      {"learn", 1, 3, 1, 0}, {"pfe", 1, 2, 1, 0}, {"bundled", 1, 1, 1, 0}}},
    {"fwd", 0, 1, 2, 2, 0, false,
     {LDSDK_PACKET_FIELDS, {"icos", 0, 13, 3, 0}, {"pri", 0, 10, 3, 0}, {"bundle", 0, 0, 10, 0},
      {"vsi", 1, 28, 4, 0}, {"vlan", 1, 16, 12, 0}, {"hs", 1, 8, 8, 0}, {"role", 1, 6, 2, 0},
      {"class", 1, 4, 2, 0}, {"learn", 1, 3, 1, 0}, {"pfe", 1, 2, 1, 0}, {"bundled", 1, 1, 1, 0}}},
    {"ift", 0, 2, 0, 0, 0, false,
     {LDSDK_PACKET_FIELDS, {"icos", 0, 13, 3, 0}, {"pfe", 0, 12, 1, 0}, {"class", 0, 10, 2, 0},
      {"user", 0, 0, 9, 0}, {"phy", 1, 16, 10, 0}, {"role", 1, 14, 2, 0}}},
    {"oft", 0, 3, 0, 0, 0, false,
     {LDSDK_PACKET_FIELDS, {"icos", 0, 13, 3, 0}, {"oft", 0, 0, 13, 0}}},
    {"cm", 0, 5, 0, 0, 0, false,
     {LDSDK_PACKET_FIELDS, {"cm_group", 0, 0, 9, 0}}},
    {"eport", 0, 7, 0, 0, 0, false,
     {LDSDK_PACKET_FIELDS, {"icos", 0, 13, 3, 0}, {"l2_encap", 0, 0, 13, 0}}},

    {"force age", 0, 4, 0, 0, 2, true,
     {LDSDK_WALK_FIELDS, {"class", 0, 8, 2, 0}, {"mask", 2, 16, 16, 0}, {"flow", 2, 0, 16, 0},
      {"vsi", 3, 28, 4, 0}, {"vlan", 3, 16, 12, 0}, {"number", 3, 0, 16, 0}}},
    {"dynamic learn", 0, 8, 0, 0, 4, true,
     {LDSDK_WALK_FIELDS, {"item3", 2, 0, 32, 0}, {"item2", 3, 0, 32, 0}, {"item1", 4, 0, 32, 0},
      {"item0", 5, 0, 32, 0}}},
    {"ptp", 1, 0, 0, 0, 1, true, {LDSDK_WALK_FIELDS}},
    {"normal age", 1, 1, 0, 0, 3, true,
     {LDSDK_WALK_FIELDS, {"number", 3, 0, 16, 0}, {"threshold", 4, 0, 32, 0}}},
    {"anti-dos", 1, 2, 0, 0, 2, true, {LDSDK_WALK_FIELDS}},
    {"oam age", 1, 3, 0, 0, 1, true, {LDSDK_WALK_FIELDS, {"period", 2, 24, 8, 0}}},
    {"oam transmit", 1, 4, 0, 0, 1, true, {LDSDK_WALK_FIELDS, {"period", 2, 24, 8, 0}}},
    {"car refresh", 1, 5, 0, 0, 1, true, {LDSDK_WALK_FIELDS}},
    {"ip-qam transmit", 1, 6, 0, 0, 1, true, {LDSDK_WALK_FIELDS, {"period", 2, 24, 8, 0}}},
    {"heartbeat", 1, 7, 0, 0, 11, true,
     {{"ack", 0, 23, 1, 0}, {"interval", 0, 0, 8, 0}, {"meth", 1, 31, 1, 0},
      {"pie_ch", 1, 24, 3, 0}, {"queue_id", 1, 8, 16, 0}, {"wred_id", 1, 0, 8, 0},
      {"tail", 3, 31, 1, 0}, {"pac", 3, 30, 1, 0}, {"io", 3, 28, 2, 0}, {"check", 3, 26, 2, 0},
      {"rsp_status", 3, 20, 4, 0}, {"rsp_len", 3, 16, 2, 0}, {"req_ctrl", 3, 0, 16, 0},
      {"req_addr", 4, 0, 32, 0}, {"req0", 5, 0, 32, 0}, {"req1", 6, 0, 32, 0},
      {"req2", 7, 0, 32, 0}, {"req3", 8, 0, 32, 0}, {"rsp0", 9, 0, 32, 0}, {"rsp1", 10, 0, 32, 0},
      {"rsp2", 11, 0, 32, 0}, {"rsp3", 12, 0, 32, 0}}},
};
// clang-format on
#undef LDSDK_PACKET_FIELDS
#undef LDSDK_WALK_FIELDS

constexpr uint32_t mask_of(const WireField &field)
{
    return (field.width == 32 ? 0xffffffff : (1u << field.width) - 1) << field.low;
}

constexpr uint32_t kKindNum = sizeof kKinds / sizeof kKinds[0];
constexpr uint32_t kWordNum = 2 + 11;  // of the longest kind

// Bits that mean something, by kind and word.
struct Known {
    uint32_t mask[kKindNum][kWordNum];
    bool sane;  // no bit has two meanings, and no field lies past the body
};

constexpr Known kKnown = [] {
    Known known = {};
    known.sane = true;
    for (uint32_t row = 0; row < kKindNum; row++) {
        known.mask[row][0] = 0xff000000;
        for (const WireField &field : kKinds[row].field) {
            if (field.name == nullptr) {
                break;
            }
            uint32_t &mask = known.mask[row][field.word];
            known.sane = known.sane && field.word < 2 + kKinds[row].body_words &&
                         field.low + field.width <= 32 && (mask & mask_of(field)) == 0;
            mask |= mask_of(field);
        }
    }
    return known;
}();
static_assert(kKnown.sane, "two fields share a bit, or one lies past the body");

// One word of header and body; one that the body hasn't got is 0.
uint32_t word_of(const uint32_t head[2], const uint8_t *data, uint32_t length, uint32_t word)
{
    if (word < 2) {
        return head[word];
    }
    const uint32_t at = (word - 2) * 4;
    return at + 4 <= length ? load_be32(data + at) : 0;
}

bool same_name(const char *one, const char *other)
{
    while (*one != '\0' && *one == *other) {
        one++;
        other++;
    }
    return *one == *other;
}

// The value of all parts of a field from row `at` on.
uint32_t field_value(const WireKind &kind, uint32_t at, const uint32_t head[2], const uint8_t *data,
                     uint32_t length)
{
    uint32_t value = 0;
    for (uint32_t row = at; row < kWireFieldNum && kind.field[row].name != nullptr; row++) {
        const WireField &field = kind.field[row];
        if (same_name(field.name, kind.field[at].name)) {
            const uint32_t word = word_of(head, data, length, field.word);
            value |= (word & mask_of(field)) >> field.low << field.shift;
        }
    }
    return value;
}

}  // namespace

const WireKind *wire_kind(const uint32_t head[2])
{
    for (const WireKind &kind : kKinds) {
        if (head[0] >> 29 == kind.type && (head[0] >> 24 & 0x1f) == kind.subtype &&
            (head[1] & kind.test_mask) == kind.test_value) {
            return &kind;
        }
    }
    return nullptr;
}

// ---- traffic.h ----------------------------------------------------------------------------------

bool packet_field(const uint32_t head[2], const uint8_t *data, uint32_t length, const char *name,
                  uint32_t *value)
{
    const WireKind *kind = wire_kind(head);
    if (kind == nullptr) {
        return false;
    }
    for (uint32_t at = 0; at < kWireFieldNum && kind->field[at].name != nullptr; at++) {
        if (same_name(kind->field[at].name, name)) {
            *value = field_value(*kind, at, head, data, length);
            return true;
        }
    }
    return false;
}

const char *packet_name(const uint32_t head[2])
{
    const WireKind *kind = wire_kind(head);
    return kind == nullptr ? nullptr : kind->name;
}

bool packet_is_message(const uint32_t head[2])
{
    const WireKind *kind = wire_kind(head);
    return kind == nullptr || kind->message;
}

bool packet_clean(const uint32_t head[2], const uint8_t *data, uint32_t length)
{
    const WireKind *kind = wire_kind(head);
    if (kind == nullptr || (kind->message && length != 4 * kind->body_words)) {
        return false;
    }
    for (uint32_t word = 0; word < 2 + kind->body_words; word++) {
        if ((word_of(head, data, length, word) & ~kKnown.mask[kind - kKinds][word]) != 0) {
            return false;
        }
    }
    return true;
}

size_t packet_format(const uint32_t head[2], const uint8_t *data, uint32_t length, char *buffer,
                     size_t size)
{
    const WireKind *kind = wire_kind(head);
    if (kind == nullptr) {
        return static_cast<size_t>(Os_Format(buffer, size, "unknown head=0x%08x,0x%08x",
                                             static_cast<unsigned>(head[0]),
                                             static_cast<unsigned>(head[1])));
    }
    auto total = static_cast<size_t>(Os_Format(buffer, size, "%s", kind->name));
    for (uint32_t at = 0; at < kWireFieldNum && kind->field[at].name != nullptr; at++) {
        if (at != 0 && same_name(kind->field[at].name, kind->field[at - 1].name)) {
            continue;
        }
        const uint32_t value = field_value(*kind, at, head, data, length);
        const bool wide = kind->field[at].width >= 16 && kind->field[at].word > 1;
        char none[1];
        const bool room = total < size;
        total += static_cast<size_t>(Os_Format(
            room ? buffer + total : none, room ? size - total : 0, wide ? " %s=0x%x" : " %s=%u",
            kind->field[at].name, static_cast<unsigned>(value)));
    }
    return total;
}

}  // namespace ldsdk::model
