// Where an item of a hash table goes when the host places it: two candidate half buckets, and at
// most one displacement. Works on the shadow of the buckets and two callbacks alone.
#pragma once

#include <cstdint>

inline constexpr uint32_t NP_EML_BUCKET_ITEMS = 8;
inline constexpr uint32_t NP_EML_HALF_ITEMS = 4;
inline constexpr uint32_t NP_EML_ITEM_MAX = 48;  // bytes of the widest item

// The halves of a bucket, the ulBucketFlag of the functions.
enum NpEmlHalf : uint32_t {
    NP_EML_HALF_HASH1 = 0,  // items 4 to 7
    NP_EML_HALF_HASH2 = 1,  // items 0 to 3
};

// Shadow of one bucket.
struct NpEmlBucketInfo {
    uint16_t ausValidNum[2];  // used items by half, 0 to 4
    // Bit 0 valid, bits 31..1 the item's other bucket. Entries 0 to 3 are the hash-1 half, 4 to 7
    // the hash-2 half.
    uint32_t aulItem[NP_EML_BUCKET_ITEMS];
};

// A decision.
struct NpEmlPlace {
    uint32_t ulHash1Bucket;
    uint32_t ulHash2Bucket;
    uint32_t ulMove;          // 0 direct insert, 1 displace one item first
    uint32_t ulBucketFlag;    // NpEmlHalf, the half concerned
    uint32_t ulInsertBucket;  // receives the new item, or the displaced one
    uint32_t ulMoveSlot;      // which item of the half is displaced, 0 to 3
};

// A table as the placement sees it.
struct NpEmlStore {
    uint32_t ulChipID;  // for the callbacks and the trace
    uint32_t ulTableID;
    NpEmlBucketInfo *pastBucket;  // shadow
    // Read or write the item in slot ulSlot, 0 to 3, of a half bucket.
    uint32_t (*pfnRead)(const NpEmlStore *pstStore, uint32_t ulBucketNo, uint32_t ulSlot,
                        uint32_t ulBucketFlag, uint8_t *pucItem);
    uint32_t (*pfnWrite)(const NpEmlStore *pstStore, uint32_t ulBucketNo, uint32_t ulSlot,
                         uint32_t ulBucketFlag, const uint8_t *pucItem);
};

// Chooses the half that has most room after the hash functions' own order; the two buckets are
// given in *pstPlace, the rest is filled in. NP_ERR_HASH_CONFLICT when nothing has room.
uint32_t Np_EmlPlaceFind(const NpEmlBucketInfo *pastBucket, NpEmlPlace *pstPlace);

// Highest free slot of a half bucket. NP_ERR_FAIL when it is full.
uint32_t Np_EmlPlaceIdle(const NpEmlStore *pstStore, uint32_t ulBucketNo, uint32_t ulBucketFlag,
                         uint32_t *pulSlot);

// Carry a decision out, without and with a displacement, and keep the shadow. The displaced item
// stands twice before it stands once. A callback's failure ends it with its code; what was done
// stays.
uint32_t Np_EmlPlaceDirect(const NpEmlStore *pstStore, const NpEmlPlace *pstPlace,
                           const uint8_t *pucItem);
uint32_t Np_EmlPlaceMove(const NpEmlStore *pstStore, const NpEmlPlace *pstPlace,
                         const uint8_t *pucItem);

// Shadow entry of the item ulIndex of a table.
uint32_t *Np_EmlPlaceEntry(NpEmlBucketInfo *pastBucket, uint32_t ulIndex);
// Marks the item ulIndex empty. False, with nothing changed, when it is empty already.
bool Np_EmlPlaceDrop(NpEmlBucketInfo *pastBucket, uint32_t ulIndex);
