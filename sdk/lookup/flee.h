// Flee store of the exact match tables (逃生桶): one TCAM table for keys that find no place in
// their hash table. The table's number is part of the TCAM key, so that the microcode finds an
// entry with one lookup. Table 8 has a wider store of its own, the LM data store, empty in this
// family.
//
// A flee entry has a key number, which is its offset in the TCAM table and comes from a stack. It
// has no status nibble: items read back with status 0.
#pragma once

#include "ldsdk/types.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/map.h"

#include <cstdint>

inline constexpr uint32_t NP_FLEE_KEY_LEN = 9;      // longest key of an item in a flee entry
inline constexpr uint32_t NP_FLEE_ENTRY_NUM = 128;  // bookkeeping entries of a chip
inline constexpr uint32_t NP_FLEE_MAP_NUM = 11;

// Bookkeeping of a flee entry.
struct NpFleeKeyInfo {
    uint32_t ulItemType;  // external table value that owns it
    uint32_t ulValid;     // 1 in use
};

extern "C" {

// Tables that can have flee entries: external value and table number.
extern const NpMapPair g_astEmlFleeBucketMap[NP_FLEE_MAP_NUM];
// chip * 128 + key number.
extern NpFleeKeyInfo g_astEmlFleeBucketTcamKeyInfo[NP_CHIP_NUM * NP_FLEE_ENTRY_NUM];
extern uint32_t g_aulEMLLmDatataFleeBucketValid[NP_CHIP_NUM * NP_FLEE_ENTRY_NUM];

// Takes a key number for an entry of a table. NP_ERR_TABLE_FULL, NP_ERR_STACK_OP.
uint32_t Np_Tarn_FleeBucketTblKeyIDAssign(uint32_t ulChipID, uint32_t ulTableID,
                                          uint32_t *pulKeyID);

// Write an entry from an item of the table whose external value is ulItemType, or read one back
// into item form. NP_ERR_PARAM, NP_ERR_NULL_PTR, NP_ERR_MAP_NP, and the codes of the TCAM. The bits
// of an AD that an entry has no room for stay as pvData has them.
uint32_t Np_Tarn_FleeBucketTbl_Set(uint32_t ulChipID, uint32_t ulKeyID, uint32_t ulItemType,
                                   const void *pvData);
uint32_t Np_Tarn_FleeBucketTbl_Get(uint32_t ulChipID, uint32_t ulKeyID, uint32_t *pulItemType,
                                   void *pvData);
uint32_t Np_Tarn_LmData_FleeBucketTbl_Set(uint32_t ulChipID, uint32_t ulKeyID, uint32_t ulItemType,
                                          const void *pvData);
uint32_t Np_Tarn_LmData_FleeBucketTbl_Get(uint32_t ulChipID, uint32_t ulKeyID,
                                          uint32_t *pulItemType, void *pvData);

// Delete an entry and give its number back, which is the next one taken. NP_ERR_PARAM,
// NP_ERR_STACK_OP, and the codes of the TCAM.
uint32_t Np_Tarn_FleeBucketTbl_Del(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID);
uint32_t Np_Tarn_LmData_FleeBucketTbl_Del(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID);

// Search for the key of an item and fill in its AD. *pulIndex takes the key number,
// *pulLocationType 1; either may be null. NP_ERR_FLEE_MISS.
uint32_t Np_Tarn_FleeBucketSearch(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulLocationType,
                                  uint32_t *pulIndex, void *pvData);
uint32_t Np_Tarn_LmData_FleeBucketSearch(uint32_t ulChipID, uint32_t ulTableID,
                                         uint32_t *pulLocationType, uint32_t *pulIndex,
                                         void *pvData);

}  // extern "C"

// External value of a table. NP_ERR_MAP_NP for one that can have no flee entries.
uint32_t Np_FleeExternal(uint32_t ulTableID, uint32_t *pulExternal, NpWhere stWhere = Np_Here());
// Recorded owner of an entry, and whether the entry is in use; ulKeyID below NP_FLEE_ENTRY_NUM.
uint32_t Np_FleeOwner(uint32_t ulChipID, uint32_t ulKeyID);
bool Np_FleeInUse(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID);
// Gives a key number back. NP_ERR_STACK_OP.
uint32_t Np_FleeKeyRelease(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID,
                           NpWhere stWhere = Np_Here());
// Clears the bookkeeping of a chip.
void Np_FleeForget(uint32_t ulChipID);
