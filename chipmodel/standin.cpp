#include "chipmodel/standin.h"

#include "chipmodel/bytes.h"
#include "chipmodel/channel_wire.h"
#include "chipmodel/chip.h"

namespace ldsdk::model {

namespace {

// Message types and their work, bits 31..29 and 28..24 of header word 0.
enum : uint32_t { kOnce = 0, kTimed = 1 };
enum : uint32_t { kForceAge = 4, kDynamicLearn = 8 };  // once
enum : uint32_t { kNormalAge = 1, kHeartbeat = 7 };    // timed
enum : uint32_t { kFwd = 1, kIft = 2 };                // inserted packets

constexpr uint32_t kCpuPhy = 4;  // ingress number of the processor's own port

// ---- counters -----------------------------------------------------------------------------------

// Learning takes a credit from a counter, and an entry that goes gives it back. Counters stand at
// this value when all credit is used up.
constexpr uint32_t kNoCredit = 0x80000000;
constexpr uint32_t kFlowLimit = 0x60245000;    // 1024 words
constexpr uint32_t kBundleLimit = 0x6024b400;  // 32
constexpr uint32_t kGlobalLimit = 0x60222288;
constexpr uint32_t kPortLimit = 0x6024b000;  // 64, of the LAN table
constexpr uint32_t kLanLimit = 0x6024b100;
constexpr uint32_t kControl = 0x7a101a40;  // bit 0: the global limit counts
constexpr uint32_t kLearnState = 0x60227b40;

// User MACs and the virtual MACs that stand for them: 512 rows of 16 bytes. The last word tells
// whether either has an entry.
constexpr uint32_t kUserMacs = 0x6020e000;
constexpr uint32_t kUserMacRows = 512;
constexpr uint32_t kUserMacLast = 12;
constexpr uint32_t kUserUsed = 1u << 31;
constexpr uint32_t kVirtualUsed = 1u << 30;

uint32_t word_get(const Chip &chip, uint32_t address)
{
    return chip.memory.read32(Memory::locate(address, 4));
}

void word_add(Chip &chip, uint32_t address, uint32_t amount)
{
    const uint32_t offset = Memory::locate(address, 4);
    chip.memory.write32(offset, chip.memory.read32(offset) + amount);
}

// ---- entries ------------------------------------------------------------------------------------

constexpr uint32_t kMacTable = 2;
constexpr uint32_t kLanTable = 7;
constexpr uint32_t kWalkOrder[] = {kMacTable, kLanTable};
constexpr uint32_t kItemBytes = 16;
constexpr uint32_t kKeyBytes = 9;
constexpr uint32_t kBucketItems = 8;
constexpr uint32_t kStaticStatus = 15;

// An entry of the two tables. Words are those of the item, the lowest first.
struct Entry {
    uint8_t bytes[kItemBytes];

    uint32_t bits(uint32_t word, uint32_t high, uint32_t low) const
    {
        return load_le32(bytes + 4 * word) << (31 - high) >> (31 - high + low);
    }
    uint32_t status() const
    {
        return bytes[15] >> 4;
    }
    void status_set(uint32_t status)
    {
        bytes[15] = static_cast<uint8_t>((bytes[15] & 0xf) | status << 4);
    }
    bool dynamic() const
    {
        return status() != 0 && status() != kStaticStatus;
    }
    uint32_t type() const
    {
        return bits(3, 27, 24);
    }
    // An entry of a virtual MAC names a row of the user MACs.
    bool is_virtual() const
    {
        return bits(0, 1, 1) != 0;
    }
    uint32_t user_row() const
    {
        return bits(0, 15, 4);
    }
    // Operation and interface: what it leads to.
    uint32_t target() const
    {
        return bits(1, 19, 4);
    }
};

constexpr uint32_t kUserMacType = 15;       // key type of entries that take no credit
constexpr uint32_t kWithVlan = 0x3f23;      // key types with a VLAN where most have it
constexpr uint32_t kWithVlanHigh = 0x0090;  // key types with it in the last word
constexpr uint32_t kWithVsi = 0xff23;

// The limit counters of an entry of the MAC table, by number; kLimitNum for none.
struct Limits {
    uint32_t own;
    uint32_t global;
};

Limits limits_of(const Chip &chip, const Entry &entry)
{
    const uint32_t operation = entry.bits(1, 19, 17);
    const uint32_t interface = entry.bits(1, 16, 4);
    Limits limits = {kLimitNum, kLimitNum};
    if (entry.type() == kUserMacType) {
        return limits;
    }
    if (operation == 0 && interface < 1024) {
        limits.own = interface;
    }
    if (operation == 2 && interface < 32) {
        limits.own = 1024 + interface;
    }
    if ((word_get(chip, kControl) & 1) != 0) {
        limits.global = kLimitNum - 1;
    }
    return limits;
}

uint32_t limit_address(uint32_t limit)
{
    if (limit == kLimitNum - 1) {
        return kGlobalLimit;
    }
    return limit < 1024 ? kFlowLimit + 4 * limit : kBundleLimit + 4 * (limit - 1024);
}

// A counter that never stood above its base has no limit yet, and learning goes below the base.
bool has_credit(Chip &chip, uint32_t limit)
{
    if (limit == kLimitNum) {
        return true;
    }
    const bool credit = word_get(chip, limit_address(limit)) > kNoCredit;
    chip.standin.limited[limit] |= credit;
    return credit || !chip.standin.limited[limit];
}

void credit_add(Chip &chip, const Limits &limits, uint32_t amount)
{
    if (limits.own != kLimitNum) {
        word_add(chip, limit_address(limits.own), amount);
    }
    if (limits.global != kLimitNum) {
        word_add(chip, limit_address(limits.global), amount);
    }
}

// A row of the user MACs has, or no longer has, an entry of the MAC table.
void user_mac_mark(Chip &chip, const Entry &entry, bool used)
{
    if (!entry.is_virtual() || entry.user_row() >= kUserMacRows) {
        return;
    }
    const uint32_t last = Memory::locate(kUserMacs + 16 * entry.user_row() + kUserMacLast, 4);
    const uint32_t flag = entry.type() == kUserMacType ? kUserUsed : kVirtualUsed;
    const uint32_t word = chip.memory.read32(last);
    chip.memory.write32(last, used ? word | flag : word & ~flag);
}

// An entry that went gives its credit back, and frees its row of the user MACs.
void credit_back(Chip &chip, uint32_t table, const Entry &entry)
{
    if (table == kMacTable) {
        credit_add(chip, limits_of(chip, entry), 1);
        user_mac_mark(chip, entry, false);
        return;
    }
    word_add(chip, kLanLimit, 1);
    const uint32_t port = entry.bits(1, 19, 12);
    if (port < 64) {
        word_add(chip, kPortLimit + 4 * port, 1);
    }
}

// A command of the hash engine on one whole entry.
uint32_t hash_command(Chip &chip, uint32_t table, const Entry &entry, uint32_t op,
                      RbaResponse &response)
{
    NpRbaReqCmd frame = {};
    store_le32(frame.aucByte, table << 24 | (kKeyBytes - 1) << 16);
    store_le16(frame.aucByte + 4, op << 4);
    frame.aucByte[6] = 3;
    __builtin_memcpy(frame.aucByte + 12, entry.bytes, kItemBytes);
    response = {};
    return rba_execute(chip, rba_decode(frame), response);
}
constexpr uint32_t kSearchUpdate = 9;
constexpr uint32_t kSearchUpdateBuild = 11;

// ---- learning -----------------------------------------------------------------------------------

LearnResult learn(Chip &chip, const Entry &entry)
{
    uint8_t key[kKeyBytes];
    for (uint32_t at = 0; at < kKeyBytes; at++) {
        key[at] = static_cast<uint8_t>(entry.bytes[6 + at] >> 4 | entry.bytes[7 + at] << 4);
    }
    EmlResult old = {};
    const EmlQuery query = {0, kMacTable, key, kKeyBytes, nullptr};
    if (lookup_eml(chip.id(), query, &old) != kOk) {
        return LearnResult::kNoRoom;
    }
    if (old.hit && old.status == kStaticStatus) {
        return LearnResult::kStatic;
    }
    Limits before = {kLimitNum, kLimitNum};
    if (old.hit) {
        Entry was = entry;
        __builtin_memcpy(was.bytes, old.ad, kItemBytes - kKeyBytes - 1);
        was.bytes[6] = static_cast<uint8_t>((entry.bytes[6] & 0xf0) | (old.ad[6] & 0xf));
        before = limits_of(chip, was);
    }
    const Limits limits = limits_of(chip, entry);
    credit_add(chip, before, 1);
    LearnResult result = LearnResult::kLearned;
    RbaResponse response;
    if (!has_credit(chip, limits.own) || !has_credit(chip, limits.global)) {
        result = LearnResult::kNoCredit;
    }
    else if (hash_command(chip, kMacTable, entry, kSearchUpdateBuild, response) != kOk) {
        result = LearnResult::kNoRoom;
    }
    else if (response.status == 5) {
        result = LearnResult::kBusy;
    }
    else if (response.status != 0 && response.status != 4) {
        result = LearnResult::kNoRoom;
    }
    credit_add(chip, result == LearnResult::kLearned ? limits : before, 0xffffffff);
    if (result == LearnResult::kLearned) {
        user_mac_mark(chip, entry, true);
    }
    return result;
}

void dynamic_learn(Chip &chip, const Packet &packet)
{
    Entry entry;
    for (uint32_t at = 0; at < kItemBytes; at++) {
        entry.bytes[at] = packet.data[kItemBytes - 1 - at];
    }
    const LearnResult result = learn(chip, entry);
    StandinCounts &counts = chip.standin.counts;
    (result == LearnResult::kLearned ? counts.learned : counts.learn_refused)++;
    chip.memory.write32(Memory::locate(kLearnState, 4), 1u << 31 | static_cast<uint32_t>(result)
                                                                       << 28);
}

// ---- ageing -------------------------------------------------------------------------------------

// Walks the dynamic entries of the buckets from first to last: first those of the MAC table, behind
// them those of the LAN table. visit(table, entry) gives an entry's new status. Visits at most
// `number` entries, and returns how many went.
template <typename Visit>
uint32_t walk(Chip &chip, uint32_t first, uint32_t last, uint32_t number, Visit visit)
{
    uint32_t gone = 0;
    uint32_t begin = 0;
    for (const uint32_t table : kWalkOrder) {
        const HashTable &place = chip.hash.table[0][table];
        const uint32_t buckets =
            place.set && place.item_bytes == kItemBytes ? place.bucket_mask + 1 : 0;
        const uint32_t from = first > begin ? first - begin : 0;
        const uint32_t end = last + 1 > begin ? last + 1 - begin : 0;
        for (uint32_t item = from * kBucketItems;
             item < (end < buckets ? end : buckets) * kBucketItems; item++) {
            Entry entry;
            __builtin_memcpy(entry.bytes, chip.memory.at(place.offset + item * kItemBytes),
                             kItemBytes);
            if (!entry.dynamic()) {
                continue;
            }
            if (number-- == 0) {
                return gone;
            }
            const uint32_t status = visit(table, entry);
            if (status == entry.status()) {
                continue;
            }
            entry.status_set(status);
            RbaResponse response;
            hash_command(chip, table, entry, kSearchUpdate, response);
            if (status == 0) {
                gone++;
                credit_back(chip, table, entry);
            }
        }
        begin += buckets;
    }
    return gone;
}

void normal_age(Chip &chip, const Packet &packet)
{
    const uint32_t number = load_be32(packet.data + 4) & 0xffff;
    const uint32_t threshold = load_be32(packet.data + 8);
    chip.standin.age_ticks++;
    if (chip.standin.age_ticks < threshold) {
        return;
    }
    chip.standin.age_ticks = 0;
    chip.standin.counts.age_walks++;
    chip.standin.counts.aged +=
        walk(chip, packet.head[1] >> 16, packet.head[1] & 0xffff, number,
             [](uint32_t, const Entry &entry) { return entry.status() - 1; });
}

// What a force age selects by.
struct Selection {
    uint32_t mask;
    uint32_t flow;
    uint32_t vsi;
    uint32_t vlan;
    uint32_t class_id;
};
enum : uint32_t {
    kByTarget = 1,
    kByVlan = 4,
    kByVsi = 0x10,
    kByClass = 0x40,
    kByIngress = 0x100,
};

bool has_type(uint32_t types, const Entry &entry)
{
    return (types >> entry.type() & 1) != 0;
}

bool vlan_matches(const Entry &entry, uint32_t vlan)
{
    if (has_type(kWithVlanHigh, entry)) {
        return entry.bits(3, 23, 12) == vlan;
    }
    return has_type(kWithVlan, entry) && (entry.bits(2, 7, 0) << 4 | entry.bits(1, 31, 28)) == vlan;
}

// An entry that has not got what a selection asks for is not meant by it.
bool selected(const Selection &by, uint32_t table, const Entry &entry)
{
    const bool mac = table == kMacTable;
    const uint32_t ingress = entry.bits(1, 0, 0) << 12 | entry.bits(0, 31, 20);
    return ((by.mask & kByTarget) == 0 || (mac && entry.target() == by.flow)) &&
           ((by.mask & kByIngress) == 0 || (mac && ingress == by.flow)) &&
           ((by.mask & kByClass) == 0 || (mac && entry.bits(1, 2, 1) == by.class_id)) &&
           ((by.mask & kByVsi) == 0 ||
            (has_type(kWithVsi, entry) && entry.bits(1, 27, 24) == by.vsi)) &&
           ((by.mask & kByVlan) == 0 || vlan_matches(entry, by.vlan));
}

void force_age(Chip &chip, const Packet &packet)
{
    const uint32_t first = load_be32(packet.data);
    const uint32_t second = load_be32(packet.data + 4);
    const Selection by = {first >> 16, first & 0xffff, second >> 28, second >> 16 & 0xfff,
                          packet.head[0] >> 8 & 3};
    chip.standin.counts.force_aged +=
        walk(chip, packet.head[1] >> 16, packet.head[1] & 0xffff, second & 0xffff,
             [&](uint32_t table, const Entry &entry) {
                 return selected(by, table, entry) ? 0 : entry.status();
             });
}

// ---- heartbeat ----------------------------------------------------------------------------------

constexpr uint32_t kHeartbeatWords = 11;
constexpr uint32_t kHeartbeatHead = 16;
constexpr uint32_t kHeartbeatQueue = 4;  // answers that may wait

// Carries the request in a heartbeat out, and marks what differs from the answer that it expects.
void heartbeat_answer(Chip &chip, uint32_t *body)
{
    NpRbaReqCmd frame = {};
    store_le32(frame.aucByte, body[2]);
    store_le16(frame.aucByte + 4, body[1] & 0xffff);
    frame.aucByte[6] = static_cast<uint8_t>(body[1] >> 28 & 3);
    for (uint32_t word = 0; word < 4; word++) {
        store_le32(frame.aucByte + 12 + 4 * word, body[3 + word]);
    }
    RbaResponse response = {};
    const bool done = rba_execute(chip, rba_decode(frame), response) == kOk;
    const bool check_status = (body[1] >> 27 & 1) != 0;
    const bool check_data = (body[1] >> 26 & 1) != 0;
    bool same = done;
    for (uint32_t word = 0; word < 4; word++) {
        const uint32_t value = load_le32(response.data + 12 - 4 * word);
        same = same && body[7 + word] == value;
        body[7 + word] = value;
    }
    const uint32_t status = done ? response.status : 0xf;
    if (check_status && status != (body[1] >> 20 & 0xf)) {
        body[1] |= 1u << 25;
    }
    if (check_data && !same) {
        body[1] |= 1u << 24;
    }
    body[1] = (body[1] & ~(0xfu << 20)) | (status < 0xf ? status : 0xf) << 20;
}

void heartbeat(Chip &chip, const Packet &packet)
{
    uint32_t body[kHeartbeatWords];
    for (uint32_t word = 0; word < kHeartbeatWords; word++) {
        body[word] = load_be32(packet.data + 4 * word);
    }
    heartbeat_answer(chip, body);

    uint8_t answer[kHeartbeatHead + 4 * kHeartbeatWords] = {};
    store_be32(answer, packet.head[0]);
    store_be32(answer + 4, packet.head[1]);
    for (uint32_t word = 0; word < kHeartbeatWords; word++) {
        store_le32(answer + kHeartbeatHead + 4 * word, body[word]);
    }
    uint32_t head[2];
    channel_receive_head({.ptype = kHeartbeatPtype,
                          .tag_info = 0,
                          .phy = kCpuPhy,
                          .encap = 0,
                          .vlan = 0,
                          .flow = 0,
                          .extra = 0},
                         2, head);
    StandinCounts &counts = chip.standin.counts;
    if (chip.standin.heartbeats_waiting >= kHeartbeatQueue ||
        channel_deliver(chip, head, nullptr, 0, answer, sizeof answer, true) != kOk) {
        counts.heartbeats_lost++;
        return;
    }
    chip.standin.heartbeats_waiting++;
    counts.heartbeats++;
}

// ---- packets ------------------------------------------------------------------------------------

void send_back(Chip &chip, const Packet &packet)
{
    const uint32_t insert = packet.head[0] >> 24 & 0x1f;
    const uint32_t phy = insert == kIft ? packet.head[1] >> 16 & 0x3ff : kCpuPhy;
    FrameSource info = frame_source(packet.data, packet.length, phy);
    if (insert == kFwd) {
        info.vlan = packet.head[1] >> 16 & 0xfff;
        info.flow = packet.head[0] & 0xfff;
    }
    if (insert == kIft) {
        info.flow = packet.head[0] & 0x1ff;
    }
    info.extra = insert;
    if (channel_deliver_frame(chip, info, packet.data, packet.length) == kOk) {
        chip.standin.counts.looped++;
    }
}

}  // namespace

void standin_take(Chip &chip, const Packet &packet)
{
    Standin &standin = chip.standin;
    const WireKind *kind = wire_kind(packet.head);
    if (kind == nullptr || !packet_clean(packet.head, packet.data, packet.length)) {
        standin.counts.unknown++;
        return;
    }
    if (!kind->message) {
        standin.counts.packets++;
        if (standin.loop) {
            send_back(chip, packet);
        }
        return;
    }
    standin.counts.messages++;
    switch (kind->type << 8 | kind->subtype) {
        case kOnce << 8 | kForceAge:
            force_age(chip, packet);
            break;
        case kOnce << 8 | kDynamicLearn:
            dynamic_learn(chip, packet);
            break;
        case kTimed << 8 | kNormalAge:
            normal_age(chip, packet);
            break;
        case kTimed << 8 | kHeartbeat:
            heartbeat(chip, packet);
            break;
        default:
            break;
    }
}

void standin_fetched(Chip &chip, const Packet &packet)
{
    if ((packet.head[0] >> 13 & 0x7ff) == kHeartbeatPtype && chip.standin.heartbeats_waiting != 0) {
        chip.standin.heartbeats_waiting--;
    }
}

// ---- traffic.h ----------------------------------------------------------------------------------

uint32_t standin_loop_set(uint32_t chip, bool on)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    found->standin.loop = on;
    return kOk;
}

uint32_t standin_counts_get(uint32_t chip, StandinCounts *counts)
{
    const Chip *found = chip_find(chip);
    if (found == nullptr || counts == nullptr) {
        return found == nullptr ? kErrNoChip : kErrNull;
    }
    *counts = found->standin.counts;
    return kOk;
}

}  // namespace ldsdk::model
