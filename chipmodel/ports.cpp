#include "chipmodel/ports.h"

#include "chipmodel/model.h"

namespace ldsdk::model {

namespace {

// Ports with neighbouring ingress numbers. Bits 9..0 of a number are
//     base + (pri * ids + (id - first)) * subs + sub
// and bits 10 and up are 0; where the sub-port is wide, it stands in bits 10 and up instead, so
// that the low bits alone, all that a packet header has, still name its port.
struct Row {
    uint8_t type;
    uint8_t first;
    uint8_t ids;
    uint16_t subs;
    uint8_t pris;
    bool wide;
    uint16_t base;
};

constexpr Row kRows[] = {
    {1, 0, 2, 1, 1, false, 0},      // gpon
    {2, 0, 2, 1, 1, false, 2},      // epon
    {12, 0, 2, 1, 1, false, 4},     // cpu
    {10, 0, 1, 1, 1, false, 6},     // prbs
    {11, 0, 1, 1, 1, false, 7},     // loopback
    {6, 0, 18, 128, 1, true, 8},    // ge
    {8, 0, 12, 256, 1, true, 26},   // gint
    {9, 0, 1, 128, 2, true, 38},    // xaui
    {7, 0, 24, 1, 1, false, 40},    // fe
    {13, 0, 64, 1, 1, false, 128},  // bonding
    {7, 24, 43, 1, 1, false, 192},  // fe
    {5, 0, 4, 64, 1, false, 256},   // adsl, vdsl
    {14, 0, 4, 64, 2, false, 512},  // xdsl
};

constexpr uint32_t kLowBits = 10;
constexpr uint32_t kLowMask = (1u << kLowBits) - 1;
// The host numbers these itself.
constexpr uint32_t kReservedFirst = 64;
constexpr uint32_t kReservedEnd = 128;

constexpr uint32_t low_subs(const Row &row)
{
    return row.wide ? 1 : row.subs;
}

constexpr uint32_t low_span(const Row &row)
{
    return row.pris * row.ids * low_subs(row);
}

constexpr bool overlap(uint32_t first, uint32_t end, uint32_t other, uint32_t other_end)
{
    return first < other_end && other < end;
}

constexpr bool rows_are_sane()
{
    for (const Row &row : kRows) {
        const uint32_t end = row.base + low_span(row);
        if (end > kLowMask + 1 || overlap(row.base, end, kReservedFirst, kReservedEnd)) {
            return false;
        }
        for (const Row &other : kRows) {
            if (&other != &row &&
                overlap(row.base, end, other.base, other.base + low_span(other))) {
                return false;
            }
        }
    }
    return true;
}
static_assert(rows_are_sane(), "two ports have one number");

const Row *row_of(const Port &port)
{
    for (const Row &row : kRows) {
        if (port.type == row.type && port.id - row.first < row.ids && port.sub < row.subs &&
            port.pri < row.pris) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

bool port_valid(const Port &port)
{
    return row_of(port) != nullptr;
}

uint32_t port_to_ingress(const Port &port, uint32_t *phy)
{
    const Row *row = row_of(port);
    if (phy == nullptr || row == nullptr) {
        return phy == nullptr ? kErrNull : kErrParam;
    }
    const uint32_t place = port.pri * row->ids + (port.id - row->first);
    *phy = row->wide ? row->base + place + (port.sub << kLowBits)
                     : row->base + place * row->subs + port.sub;
    return kOk;
}

uint32_t port_from_ingress(uint32_t phy, Port *port)
{
    if (port == nullptr) {
        return kErrNull;
    }
    const uint32_t low = phy & kLowMask;
    const uint32_t high = phy >> kLowBits;
    for (const Row &row : kRows) {
        const uint32_t offset = low - row.base;
        if (offset >= low_span(row) || high >= (row.wide ? row.subs : 1u)) {
            continue;
        }
        const uint32_t place = offset / low_subs(row);
        *port = {row.type, row.first + place % row.ids, high + offset % low_subs(row),
                 place / row.ids};
        return kOk;
    }
    return kErrParam;
}

// On egress the ports count down: the low bits are the ingress number's, inverted.
uint32_t port_to_egress(const Port &port, uint32_t *phy)
{
    const uint32_t result = port_to_ingress(port, phy);
    if (result == kOk) {
        *phy ^= kLowMask;
    }
    return result;
}

uint32_t port_from_egress(uint32_t phy, Port *port)
{
    return port_from_ingress(phy ^ kLowMask, port);
}

}  // namespace ldsdk::model
