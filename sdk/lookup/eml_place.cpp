#include "sdk/lookup/eml_place.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/trace.h"

namespace {

inline constexpr uint32_t NP_EML_ENTRY_VALID = 1;

uint32_t *Np_HalfEntries(NpEmlBucketInfo *pstBucket, uint32_t ulBucketFlag)
{
    return pstBucket->aulItem + (ulBucketFlag == NP_EML_HALF_HASH1 ? 0 : NP_EML_HALF_ITEMS);
}

const uint32_t *Np_HalfEntries(const NpEmlBucketInfo *pstBucket, uint32_t ulBucketFlag)
{
    return pstBucket->aulItem + (ulBucketFlag == NP_EML_HALF_HASH1 ? 0 : NP_EML_HALF_ITEMS);
}

uint32_t Np_HalfRoom(const NpEmlBucketInfo &stBucket, uint32_t ulBucketFlag)
{
    return NP_EML_HALF_ITEMS - stBucket.ausValidNum[ulBucketFlag];
}

uint32_t Np_EntryOf(uint32_t ulOtherBucket)
{
    return ulOtherBucket << 1 | NP_EML_ENTRY_VALID;
}

uint32_t Np_BucketOf(const NpEmlPlace *pstPlace, uint32_t ulBucketFlag)
{
    return ulBucketFlag == NP_EML_HALF_HASH1 ? pstPlace->ulHash1Bucket : pstPlace->ulHash2Bucket;
}

uint32_t Np_OtherHalf(uint32_t ulBucketFlag)
{
    return ulBucketFlag ^ 1;
}

}  // namespace

uint32_t Np_EmlPlaceFind(const NpEmlBucketInfo *pastBucket, NpEmlPlace *pstPlace)
{
    // A later candidate wins only with strictly more room in the half that is written.
    uint32_t ulBest = 0;
    for (uint32_t ulFlag = NP_EML_HALF_HASH1; ulFlag <= NP_EML_HALF_HASH2; ulFlag++) {
        const uint32_t ulBucket = Np_BucketOf(pstPlace, ulFlag);
        const uint32_t ulRoom = Np_HalfRoom(pastBucket[ulBucket], ulFlag);
        if (ulRoom > ulBest) {
            ulBest = ulRoom;
            pstPlace->ulMove = 0;
            pstPlace->ulBucketFlag = ulFlag;
            pstPlace->ulInsertBucket = ulBucket;
            pstPlace->ulMoveSlot = 0;
        }
    }
    for (uint32_t ulFlag = NP_EML_HALF_HASH1; ulFlag <= NP_EML_HALF_HASH2; ulFlag++) {
        const uint32_t *pulEntry =
            Np_HalfEntries(&pastBucket[Np_BucketOf(pstPlace, ulFlag)], ulFlag);
        for (uint32_t ulSlot = 0; ulSlot < NP_EML_HALF_ITEMS; ulSlot++) {
            if ((pulEntry[ulSlot] & NP_EML_ENTRY_VALID) == 0) {
                continue;
            }
            const uint32_t ulTarget = pulEntry[ulSlot] >> 1;
            const uint32_t ulRoom = Np_HalfRoom(pastBucket[ulTarget], Np_OtherHalf(ulFlag));
            if (ulRoom > ulBest) {
                ulBest = ulRoom;
                pstPlace->ulMove = 1;
                pstPlace->ulBucketFlag = ulFlag;
                pstPlace->ulInsertBucket = ulTarget;
                pstPlace->ulMoveSlot = ulSlot;
            }
        }
    }
    return ulBest == 0 ? NP_ERR_HASH_CONFLICT : NP_OK;
}

uint32_t Np_EmlPlaceIdle(const NpEmlStore *pstStore, uint32_t ulBucketNo, uint32_t ulBucketFlag,
                         uint32_t *pulSlot)
{
    const uint32_t *pulEntry = Np_HalfEntries(&pstStore->pastBucket[ulBucketNo], ulBucketFlag);
    for (uint32_t ulSlot = NP_EML_HALF_ITEMS; ulSlot > 0; ulSlot--) {
        if ((pulEntry[ulSlot - 1] & NP_EML_ENTRY_VALID) == 0) {
            *pulSlot = ulSlot - 1;
            return NP_OK;
        }
    }
    // Counter and entries of the shadow disagree.
    NP_TRACE_AT(
        Np_Here("Np_Tarn_EML_IdleItemIndexFind"), NP_M_EML, NP_PRINT_ERROR,
        "Np_Tarn_EML_IdleItemIndexFind ERROR ulChipID=0x%08x ulTable=0x%08x ulBucketNo=0x%08x "
        "ulBucketFlag=0x%08x \r\n",
        pstStore->ulChipID, pstStore->ulTableID, ulBucketNo, ulBucketFlag);
    return NP_ERR_FAIL;
}

uint32_t Np_EmlPlaceDirect(const NpEmlStore *pstStore, const NpEmlPlace *pstPlace,
                           const uint8_t *pucItem)
{
    const uint32_t ulFlag = pstPlace->ulBucketFlag;
    uint32_t ulSlot;
    uint32_t ulReturn = Np_EmlPlaceIdle(pstStore, pstPlace->ulInsertBucket, ulFlag, &ulSlot);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = pstStore->pfnWrite(pstStore, pstPlace->ulInsertBucket, ulSlot, ulFlag, pucItem);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpEmlBucketInfo *pstBucket = &pstStore->pastBucket[pstPlace->ulInsertBucket];
    pstBucket->ausValidNum[ulFlag]++;
    Np_HalfEntries(pstBucket, ulFlag)[ulSlot] =
        Np_EntryOf(Np_BucketOf(pstPlace, Np_OtherHalf(ulFlag)));
    return NP_OK;
}

uint32_t Np_EmlPlaceMove(const NpEmlStore *pstStore, const NpEmlPlace *pstPlace,
                         const uint8_t *pucItem)
{
    const uint32_t ulFlag = pstPlace->ulBucketFlag;
    const uint32_t ulOther = Np_OtherHalf(ulFlag);
    const uint32_t ulOwn = Np_BucketOf(pstPlace, ulFlag);
    const uint32_t ulTarget = pstPlace->ulInsertBucket;
    uint8_t aucMoved[NP_EML_ITEM_MAX];
    uint32_t ulReturn = pstStore->pfnRead(pstStore, ulOwn, pstPlace->ulMoveSlot, ulFlag, aucMoved);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulSlot;
    ulReturn = Np_EmlPlaceIdle(pstStore, ulTarget, ulOther, &ulSlot);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = pstStore->pfnWrite(pstStore, ulTarget, ulSlot, ulOther, aucMoved);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpEmlBucketInfo *pstTarget = &pstStore->pastBucket[ulTarget];
    pstTarget->ausValidNum[ulOther]++;
    Np_HalfEntries(pstTarget, ulOther)[ulSlot] = Np_EntryOf(ulOwn);
    ulReturn = pstStore->pfnWrite(pstStore, ulOwn, pstPlace->ulMoveSlot, ulFlag, pucItem);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    Np_HalfEntries(&pstStore->pastBucket[ulOwn], ulFlag)[pstPlace->ulMoveSlot] =
        Np_EntryOf(Np_BucketOf(pstPlace, ulOther));
    return NP_OK;
}

uint32_t *Np_EmlPlaceEntry(NpEmlBucketInfo *pastBucket, uint32_t ulIndex)
{
    // Items 4 to 7 are the hash-1 half, which comes first in the shadow.
    return &pastBucket[ulIndex / NP_EML_BUCKET_ITEMS]
                .aulItem[(ulIndex % NP_EML_BUCKET_ITEMS) ^ NP_EML_HALF_ITEMS];
}

bool Np_EmlPlaceDrop(NpEmlBucketInfo *pastBucket, uint32_t ulIndex)
{
    uint32_t *pulEntry = Np_EmlPlaceEntry(pastBucket, ulIndex);
    if ((*pulEntry & NP_EML_ENTRY_VALID) == 0) {
        return false;
    }
    *pulEntry = 0;
    const uint32_t ulFlag =
        ulIndex % NP_EML_BUCKET_ITEMS >= NP_EML_HALF_ITEMS ? NP_EML_HALF_HASH1 : NP_EML_HALF_HASH2;
    pastBucket[ulIndex / NP_EML_BUCKET_ITEMS].ausValidNum[ulFlag]--;
    return true;
}
