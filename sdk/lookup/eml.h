// Exact match tables: hash tables in search memory that the microcode searches at line rate. A
// table is an array of eight-item buckets; a key may stand in the hash-1 half of one bucket or in
// the hash-2 half of another. On tables that the microcode learns into, the engine chooses the
// place (hardware regime); on all others the host does, and keeps a shadow (CPU regime).
//
// An item is a byte image: associated data (AD), then the key four bits off byte alignment, then a
// status nibble at the very end; status 0 is an empty item. Buffers of items hold the whole item.
//
// Calls on one table must not overlap. Results common to all functions with a table number:
// NP_ERR_PARAM for one without a table, NP_ERR_NULL_PTR, the driver's code, NP_ERR_SMEM_OP.
#pragma once

#include "ldsdk/status.h"
#include "ldsdk/types.h"
#include "sdk/lookup/eml_hash.h"
#include "sdk/lookup/eml_place.h"
#include "sdk/lookup/map.h"

#include <cstdint>

// Table numbers.
enum NpEmlTable : uint32_t {
    NP_EML_GMT = 0,
    NP_EML_MAC = 2,
    NP_EML_OAM_PORT_VLAN = 3,
    NP_EML_OAM_LOOK_UP = 4,
    NP_EML_IPV4FILTER = 5,
    NP_EML_SMAC_BONDING = 6,
    NP_EML_OAM_DM_OAMPKT = 7,   // this and the rows below up to 10: no storage in this family
    NP_EML_OAM_LM_DATAPKT = 8,  // has a flee store of its own
    NP_EML_OAM_LM_OAMPKT = 9,
    NP_EML_CESOP_MAP = 10,
    NP_EML_CACHE_REFRESH_0 = 11,  // of search memory 0
    NP_EML_CACHE_REFRESH_1 = 12,  // of a second search memory
    NP_EML_OAM_SL = 16,
    NP_EML_MAC_FILTER = 17,
    NP_EML_LAN_MAC = 18,
    NP_EML_TABLE_NUM = 19,
};

inline constexpr uint32_t NP_EML_TID_NONE = 16;  // ulTID of a row without a table
inline constexpr uint32_t NP_EML_STATUS_EMPTY = 0;
inline constexpr uint32_t NP_EML_STATUS_STATIC = 15;
inline constexpr uint32_t NP_EML_MASK_NUM = 33;

// Where an item stands.
enum NpEmlLocation : uint32_t {
    NP_EML_IN_TABLE = 0,
    NP_EML_IN_FLEE = 1,
};

// What a delete by key spares.
enum NpEmlDelType : uint32_t {
    NP_EML_DEL_STATIC = 0,   // only an item with status 15
    NP_EML_DEL_DYNAMIC = 1,  // only an item with another status
    NP_EML_DEL_ANY = 2,
};

// Descriptor of a table.
struct NpEmlConfig {
    uint32_t ulTblWidth;     // item width: 8 (0), 16 (1), 32 (2) or 48 (3) bytes
    uint32_t ulBaseAddr;     // search memory address of item 0, 16-bit units
    uint32_t ulBucketWidth;  // log2 of the number of buckets
    uint32_t ulItemNum;      // items, eight for each bucket
    uint32_t ulKeyLen;       // bytes
    uint32_t ulAdLen;        // bytes; with the key's the whole item
    uint32_t ulMoveEnable;   // 1 CPU regime, 0 hardware regime
    uint32_t ulTID;          // number at the hash engine, NP_EML_TID_NONE for no table
    uint32_t ulSmemID;
    uint32_t ulIndirect;  // this and the next three: 0
    uint32_t ulIndirectBase;
    uint32_t ulIndirectPara1;
    uint32_t ulIndirectPara2;
    uint32_t ulFleeEnable;  // 1: a key without a place may go to the flee store
};
static_assert(sizeof(NpEmlConfig) == 56);

// Bytes of an item.
constexpr uint32_t Np_EmlItemSize(uint32_t ulTblWidth)
{
    return ulTblWidth == 3 ? 48 : 8u << ulTblWidth;
}

// Distance of two items is 1 << this, in 16-bit units: 4, 8, 16 or 32.
constexpr uint32_t Np_EmlStrideShift(uint32_t ulTblWidth)
{
    return ulTblWidth + 2;
}

extern "C" {

extern const NpEmlConfig g_stNpEmlConfig_TarnB[NP_EML_TABLE_NUM];
extern const NpEmlConfig *g_stNpEmlConfig[NP_CHIP_NUM];
// Shadow of each table's buckets, and items in it, flee entries included: chip * 19 + table.
extern NpEmlBucketInfo *g_pastEmlBucketInfo[NP_CHIP_NUM * NP_EML_TABLE_NUM];
extern uint32_t g_aulEmlValidItem[NP_CHIP_NUM * NP_EML_TABLE_NUM];
// Tables, bit by bit, in which a displacement stopped halfway since bring-up: a key may stand
// twice.
extern uint32_t g_aulEmlTwice[NP_CHIP_NUM];
// Entry n is 2 to the n, less 1.
extern const uint32_t g_aulBucketMask[NP_EML_MASK_NUM];
// Where the last get of the 1x source MAC bonding table found its entry.
extern uint32_t g_ulHashIndex[NP_CHIP_NUM];
extern uint32_t g_ulMemType[NP_CHIP_NUM];

// Declares the tables to the engine, allocates the shadows (or clears those that stand), and
// refreshes both caches. The driver's code, NP_ERR_NO_MEMORY.
uint32_t Np_Tarn_EML_Init(uint32_t ulChipID);
uint32_t Np_Tarn_EML_Destruct(uint32_t ulChipID);
uint32_t Np_Tarn_EML_TblInit(uint32_t ulChipID, uint32_t ulTableID);

// Searches the hash table for the item's key and fills in its AD and status. *pulIndex, which may
// be null, takes the item number. NP_ERR_EML_MISS.
uint32_t Np_Tarn_EML_Search(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulIndex,
                            uint8_t *pucItem);
// The same, and then the flee store. *pulLocationType takes an NpEmlLocation, *pulIndex the item
// number or the flee key number; either may be null. NP_ERR_NOT_EXIST.
uint32_t Np_Tarn_EML_ItemGet(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulLocationType,
                             uint32_t *pulIndex, void *pvData);
// Reads a place, whether it holds a valid item or not. ulOffset: below the table's items, or a flee
// key number. NP_ERR_MAP_NP: the table can have no flee entries.
uint32_t Np_Tarn_EML_ItemGetByIndex(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulLocationType,
                                    uint32_t ulOffset, void *pvData);

// Adds an item, or rewrites the one with its key. *pulLocationType takes an NpEmlLocation in the
// CPU regime, and may not be null in either; *pulIndex, which may, the item number in the hardware
// regime. NP_ERR_TABLE_FULL, NP_ERR_HASH_CONFLICT, NP_ERR_EML_SEMAPHORE: no place.
uint32_t Np_Tarn_EML_ItemAdd(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulLocationType,
                             uint32_t *pulIndex, void *pvData);
// Deletes by key; an absent key is a success. ulDelType: NpEmlDelType. Changes the caller's item.
uint32_t Np_Tarn_EML_ItemDel(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulDelType,
                             void *pvData);
// Deletes by place; an empty place is a success that changes nothing. ulLocationType:
// NpEmlLocation.
uint32_t Np_Tarn_EML_ItemDelByIndex(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulLocationType,
                                    uint32_t ulOffset);

// Hash commands with a whole item: rewrite the item of this key in place, atomically, or build one
// where there is none. *pulIndex, which may be null, takes the item number.
uint32_t Np_Tarn_EML_SearchUpdate(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulIndex,
                                  const uint8_t *pucItem);
uint32_t Np_Tarn_EML_SearchUpdateBuild(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulIndex,
                                       const uint8_t *pucItem);

// Item access by number, and by search memory address with an item width code of 0 to 3.
uint32_t Np_Tarn_EML_SmemRead(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex,
                              uint32_t *pulData);
uint32_t Np_Tarn_EML_SmemRawDataRead(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulEmlType,
                                     uint32_t ulOffAddr, uint32_t *pulData);
uint32_t Np_Tarn_EML_SmemRawDataWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulEmlType,
                                      uint32_t ulOffAddr, const uint32_t *pulData);
// Item access by bucket, slot 0 to 3 and half (NpEmlHalf).
uint32_t Np_Tarn_EML_TableReadByCpu(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulBucketNo,
                                    uint32_t ulSlot, uint32_t ulBucketFlag, uint32_t *pulData);
uint32_t Np_Tarn_EML_TableWriteByCpu(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulBucketNo,
                                     uint32_t ulSlot, uint32_t ulBucketFlag,
                                     const uint8_t *pucData);

// Takes an item apart; each output may be null. pucKey: ulKeyLen bytes; pucAd: ulAdLen bytes.
void Np_Tarn_EML_UserDataSeparate(uint32_t ulChipID, uint32_t ulTableID, const uint8_t *pucItem,
                                  uint8_t *pucStatus, uint8_t *pucKey, uint8_t *pucAd);
// Puts one together from what a flee entry holds; each input may be null and then leaves its part.
// pucAd: 8 bytes (table 8: 16), the AD shifted left by four bits in the top ones.
void Np_Tarn_EML_UserDataCombine(uint32_t ulChipID, uint32_t ulTableID, uint8_t *pucItem,
                                 const uint8_t *pucStatus, const uint8_t *pucKey,
                                 const uint8_t *pucAd);
// Hash key of an item, 16 bytes; the caller has zeroed them.
void Np_Tarn_EML_HashKeyBuild(uint32_t ulChipID, uint32_t ulTableID, const uint8_t *pucItem,
                              uint8_t *pucHashKey);

// Refresh a cache as a whole: the hash engine's after plain writes of items, the memory's after
// hash commands.
uint32_t Np_Tarn_EML_SmemEmlCacheRefresh(uint32_t ulChipID, uint32_t ulSmemID);
uint32_t Np_Tarn_EML_SmemWriteReadCacheRefresh(uint32_t ulChipID, uint32_t ulSmemID);

// Prints an item's words while entry tracing is on.
void Np_Tarn_EML_DataTrace(uint32_t ulChipID, uint32_t ulTableID, const void *pvData);

// Steps of add and delete.
uint32_t Np_Tarn_EML_ItemAdd_NoMoveProcess(uint32_t ulChipID, uint32_t ulTableID,
                                           uint32_t *pulIndex, const uint8_t *pucItem);
uint32_t Np_Tarn_EML_ItemAdd_MoveProcess(uint32_t ulChipID, uint32_t ulTableID,
                                         uint32_t *pulLocationType, const uint8_t *pucItem);
uint32_t Np_Tarn_EML_ItemAdd_MoveUpdateProcess(uint32_t ulChipID, uint32_t ulTableID,
                                               uint32_t ulLocationType, uint32_t ulIndex,
                                               const uint8_t *pucItem);
uint32_t Np_Tarn_EML_ItemAdd_MoveInsertProcess(uint32_t ulChipID, uint32_t ulTableID,
                                               uint32_t *pulLocationType, const uint8_t *pucItem);
// Places an item whose key is absent. NP_ERR_HASH_CONFLICT when there is no place.
uint32_t Np_Tarn_EML_CpuWrite(uint32_t ulChipID, uint32_t ulTableID, const uint8_t *pucHashKey,
                              const uint8_t *pucItem);
uint32_t Np_Tarn_EML_CpuWrite_BestInsertBucketFind(uint32_t ulChipID, uint32_t ulTableID,
                                                   const uint8_t *pucHashKey, NpEmlPlace *pstPlace);
uint32_t Np_Tarn_EML_CpuWrite_NoMoveProcess(uint32_t ulChipID, uint32_t ulTableID,
                                            const NpEmlPlace *pstPlace, const uint8_t *pucItem);
uint32_t Np_Tarn_EML_CpuWrite_MoveProcess(uint32_t ulChipID, uint32_t ulTableID,
                                          const NpEmlPlace *pstPlace, const uint8_t *pucItem);
uint32_t Np_Tarn_EML_IdleItemIndexFind(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulBucketNo,
                                       uint32_t ulBucketFlag, uint32_t *pulSlot);
uint32_t Np_tarn_EML_ItemDel_SmemProcess(uint32_t ulChipID, uint32_t ulTableID, uint8_t *pucItem);
uint32_t Np_tarn_EML_ItemDel_FleeBucketProcess(uint32_t ulChipID, uint32_t ulTableID,
                                               uint8_t *pucItem);

}  // extern "C"

inline const NpEmlConfig *Np_EmlConfigOf(uint32_t ulChipID, uint32_t ulTableID)
{
    return &g_stNpEmlConfig[ulChipID][ulTableID];
}

// Per-chip, per-table arrays.
inline uint32_t Np_EmlSlotOf(uint32_t ulChipID, uint32_t ulTableID)
{
    return ulChipID * NP_EML_TABLE_NUM + ulTableID;
}
