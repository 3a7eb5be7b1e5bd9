// The lookup engines as a host sees them: what a packet would find, and what stands where. Part of
// chipmodel/model.h.
#pragma once

#include "chipmodel/traffic.h"

#include <cstdint>

struct QdHaMatchRule;  // platform/driver.h

namespace ldsdk::model {

// ---- ternary match ------------------------------------------------------------------------------

inline constexpr uint32_t kTcamBlockNum = 4;
inline constexpr uint32_t kTcamNum = 8;        // TCAMs of a block
inline constexpr uint32_t kTcamRowNum = 512;   // rows of a TCAM
inline constexpr uint32_t kTcamTypeNum = 4;    // width codes
inline constexpr uint32_t kTcamKeyBytes = 40;  // of the widest entry
inline constexpr uint32_t kTcamAdBytes = 16;

// Where an entry stands. Of two entries that match, the one with the lower TCAM wins, in the same
// TCAMs the one with the lower row.
struct TcamPlace {
    uint32_t type;   // width code: 40 (0), 80 (1), 160 (2) or 320 (3) bits
    uint32_t block;  // 0 to 3
    uint32_t tcam;   // the first of its 1 << type TCAMs, a multiple of that number
    uint32_t row;    // 0 to 511
};

// What an entry holds, in bytes of 5 << type, byte 0 in the entry's first TCAM. Bits 3..0 of byte 0
// stand for the CAM identifier. A bit with (data, mask) of (0, 0) matches both values, (1, 0)
// matches 1, (0, 1) matches 0, (1, 1) nothing.
struct TcamEntry {
    bool valid;  // takes part in searches
    uint8_t data[kTcamKeyBytes];
    uint8_t mask[kTcamKeyBytes];
    uint8_t ad[kTcamAdBytes];  // its first 4 << type bytes, at most 16
};

// kErrParam when there is no such place.
uint32_t tcam_entry_get(uint32_t chip, const TcamPlace &place, TcamEntry *entry);

// A search: all entries of one block and width against a key with its CAM identifier.
struct LcamQuery {
    uint32_t type;
    uint32_t block;
    uint32_t cid;        // 0 to 15
    const uint8_t *key;  // 5 << type bytes, as the SDK takes a key: the top four bits don't count
};

struct LcamResult {
    bool hit;
    TcamPlace place;  // of the winner
    uint8_t ad[kTcamAdBytes];
    uint32_t ad_bytes;
};

// The winner for a key. kErrParam, kErrNull, kErrNotModelled while the CAM identifiers are not in
// their shared layout.
uint32_t lookup_lcam(uint32_t chip, const LcamQuery &query, LcamResult *result);

// Gives the table of a CAM identifier (0 to 15) a copy in the other block of its pair (0 with 2, 1
// with 3) or takes it; off at power on. The chip only tells: the copy is the host's to write.
uint32_t lcam_mirror_set(uint32_t chip, uint32_t cid, bool on);

// ---- exact match --------------------------------------------------------------------------------

inline constexpr uint32_t kHashTableNum = 16;   // identifiers per search memory
inline constexpr uint32_t kHashItemBytes = 48;  // of the widest item

// A hash table as the driver was told.
struct EmlTable {
    uint32_t base;         // address of item 0, 16-bit units, 20 bits
    uint32_t bucket_num;   // of eight items: items 4 to 7 for the first hash, 0 to 3 for the second
    uint32_t item_bytes;   // 8, 16, 32 or 48
    uint32_t item_stride;  // 16-bit units
    bool exclude;          // mutual exclusion between search and update
};

// kErrEmpty when the table was never declared.
uint32_t eml_table_get(uint32_t chip, uint32_t smem, uint32_t tid, EmlTable *table);
// Copies item_bytes bytes of an item as they stand in memory, past any cache.
uint32_t eml_item_get(uint32_t chip, uint32_t smem, uint32_t tid, uint32_t item, uint8_t *bytes);

// The first (0) or the second (1) hash of a 16-byte hash key.
uint32_t eml_hash(uint32_t which, const uint8_t *hash_key);
// The two buckets of a key of 1 to 47 bytes: of the first hash, of the second.
uint32_t eml_buckets(uint32_t chip, uint32_t smem, uint32_t tid, const uint8_t *key,
                     uint32_t key_bytes, uint32_t *buckets);

// Where the microcode looks for a key that the hash table doesn't have: a table of the local CAM
// whose keys are the hash key, left-aligned, with the owner's number in the last nibble.
struct FleeStore {
    uint32_t type;  // 1 or 2
    uint32_t block;
    uint32_t cid;
    uint32_t owner;  // 0 to 15
};

struct EmlQuery {
    uint32_t smem;
    uint32_t tid;
    const uint8_t *key;
    uint32_t key_bytes;     // 1 to 47, less than item_bytes
    const FleeStore *flee;  // null for none
};

struct EmlResult {
    bool hit;
    bool in_flee;                // else in the hash table
    uint32_t item;               // hash table: the item's number
    uint8_t status;              // hash table: the item's status nibble; a flee entry has none
    TcamPlace place;             // flee entry: where it stands
    uint8_t ad[kHashItemBytes];  // the item's associated data, 8 * ad_bytes - 4 bits
    uint32_t ad_bytes;
};

// What the microcode finds for a key: the item of the hash table or else the flee entry. Bits that
// a flee entry has no room for are 0. kErrEmpty when the table was never declared, kErrParam,
// kErrNull.
uint32_t lookup_eml(uint32_t chip, const EmlQuery &query, EmlResult *result);

// The microcode holds a table's semaphore during the next `commands` build updates of the host,
// which get status 5 when the table's mutual exclusion is on. 0 lets it go.
uint32_t eml_semaphore_hold(uint32_t chip, uint32_t smem, uint32_t tid, uint32_t commands);

// Puts the two caches of the search memory in or out of the way; out at power on. With them, the
// hash engine and the plain commands each read hash tables through 16 lines of 16 bytes that the
// other's writes don't reach: what a line holds is served until 16 accesses over all lines, by the
// same side, have replaced it.
uint32_t eml_cache_strict_set(uint32_t chip, bool on);

// ---- pre-classifier -----------------------------------------------------------------------------

inline constexpr uint32_t kHaRuleNum = 64;
inline constexpr uint32_t kHaFixedFirst = 2;   // types of fixed rules: from this one
inline constexpr uint32_t kHaFixedNum = 5;     // to below this one
inline constexpr uint32_t kHaTpidNum = 9;      // 1 to 4 outer tags, 5 to 8 inner ones
inline constexpr uint32_t kHaNoChannel = ~0u;  // the packet came in no GEM port or logical link
inline constexpr uint32_t kHaLinkNum = 4;      // comparisons of a rule

// Always there; with info 0 until it is set.
struct HaFixedRule {
    bool set;
    uint32_t queue_pri;
    uint32_t info;
};

// The record of a rule, as the driver's door has it: docs/chip-model.md tells how it is read.
// kErrEmpty when the number is free, kErrParam, kErrNull.
uint32_t ha_rule_get(uint32_t chip, uint32_t number, QdHaMatchRule *rule);
uint32_t ha_fixed_get(uint32_t chip, uint32_t type, HaFixedRule *rule);
uint32_t ha_tpid_get(uint32_t chip, uint32_t type, uint32_t *tpid);

struct HaQuery {
    const uint8_t *frame;  // from the destination MAC address on
    uint32_t length;
    Port port;
    uint32_t channel;  // GEM port of a gpon port, logical link of an epon port
};

struct HaResult {
    bool hit;
    bool fixed;  // by fixed rule `number`, else by the numbered rule
    uint32_t number;
    uint32_t info;  // ulHaInfo, 0 to 127
    uint32_t queue_pri;
    bool filter;  // ucFilterEnable of the rule
};

// What a packet meets. kErrParam when the chip has no such port, kErrNull.
uint32_t lookup_ha(uint32_t chip, const HaQuery &query, HaResult *result);

}  // namespace ldsdk::model
