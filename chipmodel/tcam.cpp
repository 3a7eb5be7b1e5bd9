#include "chipmodel/tcam.h"

#include "chipmodel/bytes.h"
#include "chipmodel/chip.h"
#include "chipmodel/payload.h"

namespace ldsdk::model {

namespace {

constexpr uint32_t kCellBytes = 5;  // of one TCAM in a row
constexpr uint32_t kAdCellBytes = 4;
constexpr uint32_t kBit23 = 1u << 23;  // always 1 in an address word for the local CAM

uint32_t entry_bytes(uint32_t type)
{
    return kCellBytes << type;
}

uint32_t ad_bytes(uint32_t type)
{
    const uint32_t bytes = kAdCellBytes << type;
    return bytes < kTcamAdBytes ? bytes : kTcamAdBytes;
}

// The bits of TcamRow::valid for an entry's TCAMs.
uint8_t cell_bits(const TcamPlace &place)
{
    return static_cast<uint8_t>(((1u << (1u << place.type)) - 1) << place.tcam);
}

// The entry that a request is about.
struct Access {
    TcamPlace place;
    uint32_t cid;
    TcamRow *row;
};

// Takes address word and command half-word apart. False when there is no such entry; the response
// tells. The select field in bits 12..8 counts TCAMs from 0, pairs from 8, fours from 12; 14 is
// all eight.
bool access_decode(Chip &chip, const RbaRequest &request, Access &access, RbaResponse &response)
{
    const uint32_t select = request.control >> 8 & 0x1fu;
    TcamPlace &place = access.place;
    place.block = request.control >> 13 & 7u;
    place.row = request.address & 0x1ff;
    access.cid = request.address >> 24 & 0xf;
    place.type = select < 8 ? 0 : select < 12 ? 1 : select < 14 ? 2 : 3;
    place.tcam = place.type == 0   ? select
                 : place.type == 1 ? (select - 8) * 2
                 : place.type == 2 ? (select - 12) * 4
                                   : 0;
    if ((request.address & kBit23) == 0) {
        response.status = kStatusMalformed;
        return false;
    }
    if (select > 14 || place.block >= kTcamBlockNum) {
        response.status = kStatusUnknown;
        return false;
    }
    access.row = &chip.tcam.row[place.block][place.row];
    return true;
}

// A request's width code (bits 2..0) for a key or a mask: 1, 2, 4 or 8 TCAMs as 0, 1, 2, 4.
bool width_fits(const RbaRequest &request, const TcamPlace &place)
{
    constexpr uint8_t kCodes[kTcamTypeNum] = {0, 1, 2, 4};
    return (request.control & 7u) == kCodes[place.type];
}

// The TCAMs of an entry become parts of an entry of its width; a wider or narrower one that stood
// there is torn.
void entry_take(Chip &chip, const Access &access)
{
    __builtin_memset(access.row->width + access.place.tcam, static_cast<int>(access.place.type),
                     1u << access.place.type);
    chip.tcam.used[access.place.block] = true;
}

void valid_set(const Access &access, bool on)
{
    const uint8_t bits = cell_bits(access.place);
    uint8_t &valid = access.row->valid;
    valid = static_cast<uint8_t>(on ? valid | bits : valid & ~bits);
}

// A key or mask command. Where an identifier stands in the row, its shared layout is the only one
// known; a clear needs none.
enum class Identifier { kStands, kNone };
bool bits_decode(Chip &chip, const RbaRequest &request, Identifier identifier, Access &access,
                 RbaResponse &response, uint32_t &result)
{
    result = kOk;
    if (!access_decode(chip, request, access, response)) {
        return false;
    }
    if (!width_fits(request, access.place)) {
        response.status = kStatusUnknown;
        return false;
    }
    if (identifier == Identifier::kStands && chip.tcam.mode != kTcamModeShared) {
        result = kErrNotModelled;
        return false;
    }
    return true;
}

// Reads answer one or two TCAMs at a time.
uint32_t bits_read(Chip &chip, const RbaRequest &request, RbaResponse &response,
                   uint8_t (TcamRow::*side)[kTcamKeyBytes])
{
    Access access;
    uint32_t result = kOk;
    if (!bits_decode(chip, request, Identifier::kStands, access, response, result)) {
        return result;
    }
    if (access.place.type > 1) {
        response.status = kStatusUnknown;
        return kOk;
    }
    const uint32_t size = entry_bytes(access.place.type);
    __builtin_memcpy(response.data + sizeof response.data - size,
                     (access.row->*side) + kCellBytes * access.place.tcam, size);
    return kOk;
}

// The chip puts its own nibble in front: the CAM identifier as data, its complement as mask.
bool bits_write(Chip &chip, const RbaRequest &request, RbaResponse &response,
                uint8_t (TcamRow::*side)[kTcamKeyBytes], uint32_t flip, uint32_t &result)
{
    Access access;
    if (!bits_decode(chip, request, Identifier::kStands, access, response, result)) {
        return false;
    }
    const uint32_t size = entry_bytes(access.place.type);
    uint8_t bits[kTcamKeyBytes];
    if (request.width_class != (size - 1) / 16 || !payload_take(request.payload, size, bits)) {
        response.status = kStatusMalformed;
        return false;
    }
    bits[0] = static_cast<uint8_t>((bits[0] & 0xf0) | ((access.cid ^ flip) & 0xf));
    entry_take(chip, access);
    __builtin_memcpy((access.row->*side) + kCellBytes * access.place.tcam, bits, size);
    return true;
}

// A cleared side matches anything, so the entry leaves the search with the first of the two.
uint32_t bits_clear(Chip &chip, const RbaRequest &request, RbaResponse &response,
                    uint8_t (TcamRow::*side)[kTcamKeyBytes])
{
    Access access;
    uint32_t result = kOk;
    if (!bits_decode(chip, request, Identifier::kNone, access, response, result)) {
        return result;
    }
    const uint32_t size = entry_bytes(access.place.type);
    uint8_t bits[kTcamKeyBytes];
    uint8_t stray = 0;
    const bool alone = payload_take(request.payload, size, bits);
    for (uint32_t byte = 0; byte < size; byte++) {
        stray = static_cast<uint8_t>(stray | bits[byte]);
    }
    if (request.width_class != (size - 1) / 16 || !alone || stray != 0) {
        response.status = kStatusMalformed;
        return kOk;
    }
    valid_set(access, false);
    entry_take(chip, access);
    __builtin_memset((access.row->*side) + kCellBytes * access.place.tcam, 0, size);
    return kOk;
}

// Where a request's associated data stands; null when the response tells.
uint8_t *ad_at(Chip &chip, const RbaRequest &request, RbaResponse &response, Access &access)
{
    if (!access_decode(chip, request, access, response)) {
        return nullptr;
    }
    // Width code 1 for 128 bits, 0 for less.
    if ((request.control & 7u) != (access.place.type > 1 ? 1u : 0u)) {
        response.status = kStatusUnknown;
        return nullptr;
    }
    return access.row->ad + kAdCellBytes * access.place.tcam;
}

// 40 bits of a key or of a side of an entry.
uint64_t load_cell(const uint8_t *at)
{
    return load_le32(at) | static_cast<uint64_t>(at[4]) << 32;
}

}  // namespace

void tcam_power_on(Tcam &tcam)
{
    for (uint32_t block = 0; block < kTcamBlockNum; block++) {
        if (tcam.used[block]) {
            __builtin_memset(tcam.row[block], 0, sizeof tcam.row[block]);
            tcam.used[block] = false;
        }
    }
    tcam.mode = 0;
    __builtin_memset(tcam.mirror, 0, sizeof tcam.mirror);
}

bool tcam_place_ok(const TcamPlace &place)
{
    return place.type < kTcamTypeNum && place.block < kTcamBlockNum && place.tcam < kTcamNum &&
           place.tcam % (1u << place.type) == 0 && place.row < kTcamRowNum;
}

bool tcam_valid(const Tcam &tcam, const TcamPlace &place)
{
    const TcamRow &row = tcam.row[place.block][place.row];
    const uint8_t bits = cell_bits(place);
    return (row.valid & bits) == bits;
}

// ---- commands -----------------------------------------------------------------------------------

uint32_t tcam_read_mask(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    return bits_read(chip, request, response, &TcamRow::mask);
}

uint32_t tcam_read_data(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    return bits_read(chip, request, response, &TcamRow::data);
}

// The second half of a write: the entry takes part in searches from here on.
uint32_t tcam_write_mask(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    uint32_t result = kOk;
    if (bits_write(chip, request, response, &TcamRow::mask, 0xf, result)) {
        Access access;
        access_decode(chip, request, access, response);
        valid_set(access, true);
    }
    return result;
}

// The first half. The valid bit stays as it is: the host has to take it down before.
uint32_t tcam_write_data(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    uint32_t result = kOk;
    bits_write(chip, request, response, &TcamRow::data, 0, result);
    return result;
}

uint32_t tcam_clear_mask(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    return bits_clear(chip, request, response, &TcamRow::mask);
}

uint32_t tcam_clear_data(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    return bits_clear(chip, request, response, &TcamRow::data);
}

uint32_t tcam_valid_clear(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    Access access;
    if (access_decode(chip, request, access, response)) {
        valid_set(access, false);
    }
    return kOk;
}

uint32_t tcam_valid_set(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    Access access;
    if (access_decode(chip, request, access, response)) {
        entry_take(chip, access);
        valid_set(access, true);
    }
    return kOk;
}

uint32_t tcam_ad_read(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    Access access;
    const uint8_t *ad = ad_at(chip, request, response, access);
    if (ad != nullptr) {
        const uint32_t size = ad_bytes(access.place.type);
        __builtin_memcpy(response.data + sizeof response.data - size, ad, size);
    }
    return kOk;
}

uint32_t tcam_ad_write(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    Access access;
    uint8_t *ad = ad_at(chip, request, response, access);
    if (ad == nullptr) {
        return kOk;
    }
    uint8_t value[kTcamAdBytes];
    const uint32_t size = ad_bytes(access.place.type);
    if (request.width_class != 0 || !payload_take(request.payload, size, value)) {
        response.status = kStatusMalformed;
        return kOk;
    }
    __builtin_memcpy(ad, value, size);
    chip.tcam.used[access.place.block] = true;
    return kOk;
}

// ---- lookup.h -----------------------------------------------------------------------------------

namespace {

// An entry of this width stands here and takes part in searches.
bool entry_live(const TcamRow &row, const TcamPlace &place)
{
    const uint8_t bits = cell_bits(place);
    if ((row.valid & bits) != bits) {
        return false;
    }
    for (uint32_t cell = place.tcam; cell < place.tcam + (1u << place.type); cell++) {
        if (row.width[cell] != place.type) {
            return false;
        }
    }
    return true;
}

// A bit with data 1 asks for 1, one with mask 1 asks for 0.
bool entry_matches(const TcamRow &row, const TcamPlace &place, const uint64_t *key)
{
    for (uint32_t cell = 0; cell < 1u << place.type; cell++) {
        const uint32_t at = kCellBytes * (place.tcam + cell);
        if ((load_cell(row.data + at) & ~key[cell]) != 0 ||
            (load_cell(row.mask + at) & key[cell]) != 0) {
            return false;
        }
    }
    return true;
}

}  // namespace

uint32_t tcam_entry_get(uint32_t chip, const TcamPlace &place, TcamEntry *entry)
{
    const Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    if (entry == nullptr || !tcam_place_ok(place)) {
        return entry == nullptr ? kErrNull : kErrParam;
    }
    const TcamRow &row = found->tcam.row[place.block][place.row];
    *entry = {};
    entry->valid = entry_live(row, place);
    __builtin_memcpy(entry->data, row.data + kCellBytes * place.tcam, entry_bytes(place.type));
    __builtin_memcpy(entry->mask, row.mask + kCellBytes * place.tcam, entry_bytes(place.type));
    __builtin_memcpy(entry->ad, row.ad + kAdCellBytes * place.tcam, ad_bytes(place.type));
    return kOk;
}

uint32_t lookup_lcam(uint32_t chip, const LcamQuery &query, LcamResult *result)
{
    const Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    if (query.key == nullptr || result == nullptr) {
        return kErrNull;
    }
    if (query.type >= kTcamTypeNum || query.block >= kTcamBlockNum || query.cid >= kCamIdNum) {
        return kErrParam;
    }
    if (found->tcam.mode != kTcamModeShared) {
        return kErrNotModelled;
    }
    // The key moves up by the identifier's four bits.
    uint8_t bytes[kTcamKeyBytes] = {};
    uint32_t carry = query.cid;
    for (uint32_t byte = 0; byte < entry_bytes(query.type); byte++) {
        bytes[byte] = static_cast<uint8_t>(query.key[byte] << 4 | carry);
        carry = query.key[byte] >> 4;
    }
    const uint32_t cells = 1u << query.type;
    uint64_t key[kTcamNum];
    for (uint32_t cell = 0; cell < cells; cell++) {
        key[cell] = load_cell(bytes + kCellBytes * cell);
    }
    *result = {};
    for (uint32_t tcam = 0; tcam < kTcamNum; tcam += cells) {
        TcamPlace place = {query.type, query.block, tcam, 0};
        for (; place.row < kTcamRowNum; place.row++) {
            const TcamRow &row = found->tcam.row[place.block][place.row];
            if (!entry_live(row, place) || !entry_matches(row, place, key)) {
                continue;
            }
            result->hit = true;
            result->place = place;
            result->ad_bytes = ad_bytes(place.type);
            __builtin_memcpy(result->ad, row.ad + kAdCellBytes * tcam, result->ad_bytes);
            return kOk;
        }
    }
    return kOk;
}

uint32_t lcam_mirror_set(uint32_t chip, uint32_t cid, bool on)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    if (cid >= kCamIdNum) {
        return kErrParam;
    }
    found->tcam.mirror[cid] = on;
    return kOk;
}

}  // namespace ldsdk::model
