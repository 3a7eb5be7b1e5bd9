// The hash engine: the tables that the driver declares, and the four hash commands on items in the
// store. The engine keeps nothing about the items; the bytes of the store say which are in use.
#pragma once

#include "chipmodel/hash_cache.h"
#include "chipmodel/lookup.h"
#include "chipmodel/rba.h"

namespace ldsdk::model {

class Chip;

// A declared table.
struct HashTable {
    bool set;
    bool exclude;
    uint8_t item_bytes;  // 8, 16, 32 or 48
    uint8_t item_lead;   // bytes in front of an item within its stride
    uint8_t item_shift;  // log2 of the stride in bytes
    uint32_t base;       // address of item 0, 16-bit units, 20 bits
    uint32_t bucket_mask;
    uint32_t offset;  // of item 0 in the store
    uint32_t held;    // build updates that find the semaphore taken
};

struct HashEngine {
    HashTable table[2][kHashTableNum];  // by search memory and identifier
    HashCaches cache;
};

// Declares a table. Units and codes are those of Qd_SMEM_EmlTableSet.
uint32_t hash_table_set(Chip &chip, uint32_t smem, uint32_t tid, uint32_t base,
                        uint32_t bucket_width, uint32_t width);

// An offset of the store lies in a declared table.
bool hash_table_covers(const Chip &chip, uint32_t offset);

// Commands of a request frame in the hash forms. Results and status as rba.h tells.
uint32_t hash_search(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t hash_search_update(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t hash_search_build(Chip &chip, const RbaRequest &request, RbaResponse &response);
uint32_t hash_search_update_build(Chip &chip, const RbaRequest &request, RbaResponse &response);

}  // namespace ldsdk::model
