#include "chipmodel/hash.h"

#include "chipmodel/bytes.h"
#include "chipmodel/chip.h"
#include "chipmodel/payload.h"

#include <array>

namespace ldsdk::model {

namespace {

constexpr uint32_t kNoItem = 0xffffffff;
constexpr uint32_t kHalfItems = 4;
constexpr uint32_t kBucketItems = 8;
// The engine's 20 address bits reach the on-chip memory of a search memory, which starts here.
constexpr uint32_t kEngineBase = 0x200000;  // bytes
// The one row that takes the item that found no place.
constexpr uint32_t kCollisionRecord = 0x60222294;
constexpr uint32_t kCollisionBytes = 16;
// Status nibble of an item that is built from its key alone.
constexpr uint8_t kBuiltStatus = 15;

// ---- hashes -------------------------------------------------------------------------------------

// Four bytes at a step: table n is for a byte that has n others behind it in the step.
using CrcTables = std::array<std::array<uint32_t, 256>, 4>;

constexpr CrcTables crc_tables(uint32_t polynomial)
{
    CrcTables tables = {};
    for (uint32_t byte = 0; byte < 256; byte++) {
        uint32_t crc = byte << 24;
        for (uint32_t behind = 0; behind < 4; behind++) {
            for (uint32_t bit = 0; bit < 8; bit++) {
                crc = crc << 1 ^ ((crc & 0x80000000) != 0 ? polynomial : 0);
            }
            tables[behind][byte] = crc;
        }
    }
    return tables;
}

constexpr CrcTables kCrc[2] = {crc_tables(0x04c11db7), crc_tables(0x45a5c125)};

uint32_t crc_step(const CrcTables &tables, uint32_t crc, uint32_t word)
{
    const uint32_t in = crc ^ word;
    return tables[3][in >> 24] ^ tables[2][in >> 16 & 0xff] ^ tables[1][in >> 8 & 0xff] ^
           tables[0][in & 0xff];
}

// Both hashes of a 16-byte hash key, which goes in from its last byte to its first.
void hash_both(const uint8_t *key, uint32_t *hash)
{
    hash[0] = 0xffffffff;
    hash[1] = 0xffffffff;
    for (uint32_t at = 16; at > 0; at -= 4) {
        const uint32_t word = load_le32(key + at - 4);
        hash[0] = crc_step(kCrc[0], hash[0], word);
        hash[1] = crc_step(kCrc[1], hash[1], word);
    }
}

// A hash key is the key, right-aligned in as many 16-byte groups as it takes, groups XORed.
void hash_key_fold(const uint8_t *key, uint32_t key_bytes, uint8_t *hash_key)
{
    uint8_t groups[kHashItemBytes] = {};
    __builtin_memcpy(groups + kHashItemBytes - key_bytes, key, key_bytes);
    for (uint32_t at = 0; at < 16; at += 4) {
        store_le32(hash_key + at, load_le32(groups + at) ^ load_le32(groups + 16 + at) ^
                                      load_le32(groups + 32 + at));
    }
}

// ---- items --------------------------------------------------------------------------------------
//
// An item, from its lowest bit: 8 * A - 4 bits of associated data, 8 * K bits of key, the status
// nibble. K + A is the item's size in bytes.

// A key on its way through a table.
struct Probe {
    uint32_t bucket[2];
    uint32_t words;  // of an item, 32 bits each
    uint32_t ad_bytes;
    // The key where an item has it, and which bits are the key's.
    uint32_t want[kHashItemBytes / 4];
    uint32_t care[kHashItemBytes / 4];
};

Probe probe_of(const HashTable &table, const uint8_t *key, uint32_t key_bytes)
{
    Probe probe;
    uint8_t hash_key[16];
    hash_key_fold(key, key_bytes, hash_key);
    hash_both(hash_key, probe.bucket);
    probe.bucket[0] &= table.bucket_mask;
    probe.bucket[1] &= table.bucket_mask;

    const uint32_t size = table.item_bytes;
    probe.words = size / 4;
    probe.ad_bytes = size - key_bytes;
    uint8_t want[kHashItemBytes] = {};
    uint8_t care[kHashItemBytes] = {};
    uint32_t carry = 0;
    uint8_t *at = want + probe.ad_bytes - 1;
    for (uint32_t byte = 0; byte < key_bytes; byte++) {
        at[byte] = static_cast<uint8_t>(key[byte] << 4 | carry);
        carry = key[byte] >> 4;
    }
    at[key_bytes] = static_cast<uint8_t>(carry);
    __builtin_memset(care + probe.ad_bytes, 0xff, key_bytes);
    care[probe.ad_bytes - 1] = 0xf0;
    care[size - 1] = 0x0f;
    for (uint32_t word = 0; word < probe.words; word++) {
        probe.want[word] = load_le32(want + 4 * word);
        probe.care[word] = load_le32(care + 4 * word);
    }
    return probe;
}

// The key of a whole item.
void item_key(const uint8_t *item, uint32_t ad_bytes, uint8_t *key, uint32_t key_bytes)
{
    const uint8_t *at = item + ad_bytes - 1;
    for (uint32_t byte = 0; byte < key_bytes; byte++) {
        key[byte] = static_cast<uint8_t>(at[byte] >> 4 | at[byte + 1] << 4);
    }
}

uint32_t item_offset(const HashTable &table, uint32_t item)
{
    return table.offset + (item << table.item_shift) + table.item_lead;
}

// An item as the engine sees it, in the store or, with the caches in the way, copied to buffer.
const uint8_t *item_at(Chip &chip, const HashTable &table, uint32_t item, uint8_t *buffer)
{
    const uint32_t offset = item_offset(table, item);
    if (!chip.hash.cache.strict) {
        return chip.memory.at(offset);
    }
    chip.hash.cache.engine.read(chip.memory, offset, buffer, table.item_bytes);
    return buffer;
}

void item_write(Chip &chip, const HashTable &table, uint32_t item, const uint8_t *bytes)
{
    const uint32_t offset = item_offset(table, item);
    __builtin_memcpy(chip.memory.touch(offset, table.item_bytes), bytes, table.item_bytes);
    if (chip.hash.cache.strict) {
        chip.hash.cache.engine.written(chip.memory, offset, table.item_bytes);
    }
}

bool item_matches(const uint8_t *item, const Probe &probe)
{
    uint32_t word = probe.words - 1;
    const uint32_t top = load_le32(item + 4 * word);
    if (((top ^ probe.want[word]) & probe.care[word]) != 0 || top >> 28 == 0) {
        return false;
    }
    while (word-- > 0) {
        if (((load_le32(item + 4 * word) ^ probe.want[word]) & probe.care[word]) != 0) {
            return false;
        }
    }
    return true;
}

// First item of a key's half of a bucket: the upper four for the first hash.
uint32_t half_begin(const Probe &probe, uint32_t half)
{
    return probe.bucket[half] * kBucketItems + (half == 0 ? kHalfItems : 0);
}

// The item of a key, kNoItem when the table hasn't got it.
uint32_t item_find(Chip &chip, const HashTable &table, const Probe &probe)
{
    uint8_t buffer[kHashItemBytes];
    for (uint32_t half = 0; half < 2; half++) {
        const uint32_t begin = half_begin(probe, half);
        for (uint32_t item = begin; item < begin + kHalfItems; item++) {
            if (item_matches(item_at(chip, table, item, buffer), probe)) {
                return item;
            }
        }
    }
    return kNoItem;
}

// Where the engine builds an item: in the emptier of the key's halves, the first hash's when both
// are alike; kNoItem when both are full.
uint32_t item_place(Chip &chip, const HashTable &table, const Probe &probe)
{
    uint8_t buffer[kHashItemBytes];
    uint32_t place = kNoItem;
    uint32_t most = 0;
    for (uint32_t half = 0; half < 2; half++) {
        const uint32_t begin = half_begin(probe, half);
        uint32_t room = 0;
        uint32_t first = kNoItem;
        for (uint32_t item = begin + kHalfItems; item-- > begin;) {
            if (item_at(chip, table, item, buffer)[table.item_bytes - 1] >> 4 == 0) {
                room++;
                first = item;
            }
        }
        if (room > most) {
            most = room;
            place = first;
        }
    }
    return place;
}

// ---- commands -----------------------------------------------------------------------------------

// A hash request taken apart.
struct HashRequest {
    HashTable *table;
    uint32_t key_bytes;
    uint8_t item[kHashItemBytes];  // update forms
    uint8_t key[kHashItemBytes];
    Probe probe;
};

// Takes a request apart. False when it is not to be carried out: the response, or `result`, tells.
bool hash_decode(Chip &chip, const RbaRequest &request, bool whole_item, HashRequest &hash,
                 RbaResponse &response, uint32_t &result)
{
    result = kOk;
    // Fields of which only the value 0 is known.
    if ((request.address & 0xbfff) != 0 || (request.control & 0xf000) != 0) {
        result = kErrNotModelled;
        return false;
    }
    const uint32_t smem = static_cast<uint32_t>(request.target);
    hash.table = &chip.hash.table[smem][request.address >> 24 & 0xf];
    if (!hash.table->set) {
        response.status = kStatusNoTable;
        return false;
    }
    const uint32_t size = hash.table->item_bytes;
    hash.key_bytes = (request.address >> 16 & 0x3f) + 1;
    if (hash.key_bytes >= size) {
        response.status = kStatusMalformed;
        return false;
    }
    const uint32_t payload = whole_item ? size : hash.key_bytes;
    uint8_t *value = whole_item ? hash.item : hash.key;
    if (request.width_class != (payload - 1) / 16 ||
        !payload_take(request.payload, payload, value)) {
        response.status = kStatusMalformed;
        return false;
    }
    if (whole_item) {
        item_key(hash.item, size - hash.key_bytes, hash.key, hash.key_bytes);
    }
    hash.probe = probe_of(*hash.table, hash.key, hash.key_bytes);
    return true;
}

// Bytes 0..3 of the data block: the item's address below the request's target and table. Byte 4,
// high nibble: its status. Then, right-aligned, the associated data times 16, as much as fits.
void hash_answer(Chip &chip, const RbaRequest &request, const HashRequest &hash, uint32_t item,
                 RbaResponse &response)
{
    const HashTable &table = *hash.table;
    uint8_t buffer[kHashItemBytes];
    const uint8_t *bytes = item_at(chip, table, item, buffer);
    const uint32_t address = table.base + (item << (table.item_shift - 1));
    store_le32(response.data, (request.address & 0xff000000) | (address & 0xfffff));
    const uint32_t ad_bytes = hash.probe.ad_bytes;
    for (uint32_t from_end = 0; from_end < ad_bytes && from_end < 11; from_end++) {
        const uint32_t byte = ad_bytes - 1 - from_end;
        const uint32_t below = byte == 0 ? 0 : bytes[byte - 1] >> 4;
        response.data[15 - from_end] = static_cast<uint8_t>(bytes[byte] << 4 | below);
    }
    response.data[4] = bytes[table.item_bytes - 1] & 0xf0;
}

void collision_record(Chip &chip, const HashTable &table, const uint8_t *item)
{
    if (table.item_bytes == kCollisionBytes) {
        const uint32_t offset = Memory::locate(kCollisionRecord, kCollisionBytes);
        __builtin_memcpy(chip.memory.touch(offset, kCollisionBytes), item, kCollisionBytes);
    }
}

// A new item, when there is room.
void hash_build(Chip &chip, const RbaRequest &request, const HashRequest &hash,
                RbaResponse &response)
{
    const uint32_t place = item_place(chip, *hash.table, hash.probe);
    if (place == kNoItem) {
        collision_record(chip, *hash.table, hash.item);
        response.status = kStatusHashCollision;
        return;
    }
    item_write(chip, *hash.table, place, hash.item);
    response.status = kStatusHashBuilt;
    hash_answer(chip, request, hash, place, response);
}

}  // namespace

uint32_t hash_table_set(Chip &chip, uint32_t smem, uint32_t tid, uint32_t base,
                        uint32_t bucket_width, uint32_t width)
{
    constexpr uint8_t kBytes[] = {8, 16, 32, 48};
    constexpr uint8_t kShifts[] = {3, 4, 5, 6};
    if (smem >= kSmemNum || tid >= kHashTableNum || base > 0xfffff || bucket_width > 20 ||
        width >= sizeof kBytes) {
        return kErrParam;
    }
    HashTable &table = chip.hash.table[smem][tid];
    const uint32_t first = (smem == 0 ? 0x60000000u : 0x68000000u) + kEngineBase + (base << 1);
    const uint32_t offset = Memory::locate(first, kBucketItems << (bucket_width + kShifts[width]));
    if (offset == kNoOffset) {
        return kErrAddress;
    }
    table.set = true;
    table.item_bytes = kBytes[width];
    table.item_lead = width == 3 ? 16 : 0;
    table.item_shift = kShifts[width];
    table.base = base;
    table.bucket_mask = (1u << bucket_width) - 1;
    table.offset = offset;
    return kOk;
}

bool hash_table_covers(const Chip &chip, uint32_t offset)
{
    for (const auto &tables : chip.hash.table) {
        for (const HashTable &table : tables) {
            const uint32_t size = (table.bucket_mask + 1) * kBucketItems << table.item_shift;
            if (table.set && offset - table.offset < size) {
                return true;
            }
        }
    }
    return false;
}

uint32_t hash_search(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    HashRequest hash;
    uint32_t result = kOk;
    if (!hash_decode(chip, request, false, hash, response, result)) {
        return result;
    }
    const uint32_t item = item_find(chip, *hash.table, hash.probe);
    if (item == kNoItem) {
        response.status = kStatusHashAbsent;
        return kOk;
    }
    hash_answer(chip, request, hash, item, response);
    return kOk;
}

uint32_t hash_search_update(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    HashRequest hash;
    uint32_t result = kOk;
    if (!hash_decode(chip, request, true, hash, response, result)) {
        return result;
    }
    const uint32_t item = item_find(chip, *hash.table, hash.probe);
    if (item == kNoItem) {
        response.status = kStatusHashAbsent;
        return kOk;
    }
    item_write(chip, *hash.table, item, hash.item);
    hash_answer(chip, request, hash, item, response);
    return kOk;
}

uint32_t hash_search_build(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    HashRequest hash;
    uint32_t result = kOk;
    if (!hash_decode(chip, request, false, hash, response, result)) {
        return result;
    }
    const uint32_t item = item_find(chip, *hash.table, hash.probe);
    if (item != kNoItem) {
        hash_answer(chip, request, hash, item, response);
        return kOk;
    }
    for (uint32_t word = 0; word < hash.probe.words; word++) {
        store_le32(hash.item + 4 * word, hash.probe.want[word]);
    }
    uint8_t &top = hash.item[hash.table->item_bytes - 1];
    top = static_cast<uint8_t>(top | kBuiltStatus << 4);
    hash_build(chip, request, hash, response);
    return kOk;
}

uint32_t hash_search_update_build(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    HashRequest hash;
    uint32_t result = kOk;
    if (!hash_decode(chip, request, true, hash, response, result)) {
        return result;
    }
    if (hash.table->held > 0) {
        hash.table->held--;
        if (hash.table->exclude) {
            response.status = kStatusHashSemaphore;
            return kOk;
        }
    }
    const uint32_t item = item_find(chip, *hash.table, hash.probe);
    if (item == kNoItem) {
        hash_build(chip, request, hash, response);
        return kOk;
    }
    item_write(chip, *hash.table, item, hash.item);
    hash_answer(chip, request, hash, item, response);
    return kOk;
}

// ---- lookup.h -----------------------------------------------------------------------------------

namespace {

HashTable *table_find(Chip &chip, uint32_t smem, uint32_t tid)
{
    HashTable *table =
        smem < kSmemNum && tid < kHashTableNum ? &chip.hash.table[smem][tid] : nullptr;
    return table != nullptr && table->set ? table : nullptr;
}

// Looks a key up where the table's overflow goes, with the associated data in item form.
uint32_t flee_lookup(uint32_t chip, const EmlQuery &query, EmlResult &result)
{
    const FleeStore &flee = *query.flee;
    uint8_t key[kTcamKeyBytes] = {};
    if (flee.type < 1 || flee.type > 2 || flee.owner > 15) {
        return kErrParam;
    }
    const uint32_t key_bytes = 5u << flee.type;
    if (query.key_bytes >= key_bytes) {
        return kOk;  // too long to have an entry
    }
    __builtin_memcpy(key, query.key, query.key_bytes);
    key[key_bytes - 1] = static_cast<uint8_t>(flee.owner);
    LcamResult entry = {};
    const uint32_t code = lookup_lcam(chip, {flee.type, flee.block, flee.cid, key}, &entry);
    if (code != kOk || !entry.hit) {
        return code;
    }
    result.hit = true;
    result.in_flee = true;
    result.place = entry.place;
    // The entry holds the associated data times 16, cut at its lower end.
    uint8_t shifted[kHashItemBytes + 1] = {};
    for (uint32_t top = 0; top < result.ad_bytes && top < entry.ad_bytes; top++) {
        shifted[result.ad_bytes - 1 - top] = entry.ad[entry.ad_bytes - 1 - top];
    }
    for (uint32_t byte = 0; byte < result.ad_bytes; byte++) {
        result.ad[byte] = static_cast<uint8_t>(shifted[byte] >> 4 | shifted[byte + 1] << 4);
    }
    return kOk;
}

}  // namespace

uint32_t eml_table_get(uint32_t chip, uint32_t smem, uint32_t tid, EmlTable *table)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    const HashTable *row = table_find(*found, smem, tid);
    if (table == nullptr || row == nullptr) {
        return table == nullptr ? kErrNull : kErrEmpty;
    }
    *table = {row->base, row->bucket_mask + 1, row->item_bytes, 1u << (row->item_shift - 1),
              row->exclude};
    return kOk;
}

uint32_t eml_item_get(uint32_t chip, uint32_t smem, uint32_t tid, uint32_t item, uint8_t *bytes)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    const HashTable *row = table_find(*found, smem, tid);
    if (bytes == nullptr || row == nullptr) {
        return bytes == nullptr ? kErrNull : kErrEmpty;
    }
    if (item >= (row->bucket_mask + 1) * kBucketItems) {
        return kErrParam;
    }
    __builtin_memcpy(bytes, found->memory.at(item_offset(*row, item)), row->item_bytes);
    return kOk;
}

uint32_t eml_hash(uint32_t which, const uint8_t *hash_key)
{
    uint32_t hash[2] = {};
    hash_both(hash_key, hash);
    return hash[which & 1];
}

uint32_t eml_buckets(uint32_t chip, uint32_t smem, uint32_t tid, const uint8_t *key,
                     uint32_t key_bytes, uint32_t *buckets)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    if (key == nullptr || buckets == nullptr) {
        return kErrNull;
    }
    const HashTable *row = table_find(*found, smem, tid);
    if (row == nullptr) {
        return kErrEmpty;
    }
    if (key_bytes == 0 || key_bytes >= row->item_bytes) {
        return kErrParam;
    }
    const Probe probe = probe_of(*row, key, key_bytes);
    buckets[0] = probe.bucket[0];
    buckets[1] = probe.bucket[1];
    return kOk;
}

uint32_t lookup_eml(uint32_t chip, const EmlQuery &query, EmlResult *result)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    if (query.key == nullptr || result == nullptr) {
        return kErrNull;
    }
    const HashTable *table = table_find(*found, query.smem, query.tid);
    if (table == nullptr) {
        return kErrEmpty;
    }
    if (query.key_bytes == 0 || query.key_bytes >= table->item_bytes) {
        return kErrParam;
    }
    *result = {};
    const Probe probe = probe_of(*table, query.key, query.key_bytes);
    result->ad_bytes = probe.ad_bytes;
    const uint32_t item = item_find(*found, *table, probe);
    if (item == kNoItem) {
        return query.flee == nullptr ? kOk : flee_lookup(chip, query, *result);
    }
    uint8_t buffer[kHashItemBytes];
    const uint8_t *bytes = item_at(*found, *table, item, buffer);
    result->hit = true;
    result->item = item;
    result->status = bytes[table->item_bytes - 1] >> 4;
    __builtin_memcpy(result->ad, bytes, probe.ad_bytes);
    result->ad[probe.ad_bytes - 1] &= 0x0f;
    return kOk;
}

uint32_t eml_semaphore_hold(uint32_t chip, uint32_t smem, uint32_t tid, uint32_t commands)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    HashTable *table = table_find(*found, smem, tid);
    if (table == nullptr) {
        return kErrEmpty;
    }
    table->held = commands;
    return kOk;
}

uint32_t eml_cache_strict_set(uint32_t chip, bool on)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    found->hash.cache.strict = on;
    found->hash.cache.engine.drop();
    found->hash.cache.plain.drop();
    return kOk;
}

}  // namespace ldsdk::model
