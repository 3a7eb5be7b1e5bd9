// Adding, rewriting and deleting items of the exact match tables.
#include "sdk/access/smem.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/eml_check.h"
#include "sdk/lookup/eml_item.h"
#include "sdk/lookup/flee.h"

namespace {

uint32_t Np_StoreRead(const NpEmlStore *pstStore, uint32_t ulBucketNo, uint32_t ulSlot,
                      uint32_t ulBucketFlag, uint8_t *pucItem)
{
    uint32_t aulData[NP_EML_ITEM_MAX / sizeof(uint32_t)];
    const uint32_t ulReturn = Np_Tarn_EML_TableReadByCpu(pstStore->ulChipID, pstStore->ulTableID,
                                                         ulBucketNo, ulSlot, ulBucketFlag, aulData);
    if (ulReturn == NP_OK) {
        const NpEmlConfig *pstConfig = Np_EmlConfigOf(pstStore->ulChipID, pstStore->ulTableID);
        memcpy(pucItem, aulData, Np_EmlItemSize(pstConfig->ulTblWidth));
    }
    return ulReturn;
}

uint32_t Np_StoreWrite(const NpEmlStore *pstStore, uint32_t ulBucketNo, uint32_t ulSlot,
                       uint32_t ulBucketFlag, const uint8_t *pucItem)
{
    return Np_Tarn_EML_TableWriteByCpu(pstStore->ulChipID, pstStore->ulTableID, ulBucketNo, ulSlot,
                                       ulBucketFlag, pucItem);
}

NpEmlStore Np_StoreOf(uint32_t ulChipID, uint32_t ulTableID)
{
    return {.ulChipID = ulChipID,
            .ulTableID = ulTableID,
            .pastBucket = g_pastEmlBucketInfo[Np_EmlSlotOf(ulChipID, ulTableID)],
            .pfnRead = Np_StoreRead,
            .pfnWrite = Np_StoreWrite};
}

void Np_CountDown(uint32_t ulChipID, uint32_t ulTableID)
{
    uint32_t &ulCount = g_aulEmlValidItem[Np_EmlSlotOf(ulChipID, ulTableID)];
    if (ulCount > 0) {
        ulCount--;
    }
}

// An item of the hash table has gone: shadow, where the table has one, and count follow. Of a key
// that stands twice the count is one.
void Np_ItemGone(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex, bool bCounted = true)
{
    NpEmlBucketInfo *pastBucket = g_pastEmlBucketInfo[Np_EmlSlotOf(ulChipID, ulTableID)];
    if (Np_EmlConfigOf(ulChipID, ulTableID)->ulMoveEnable == 1 && pastBucket != nullptr) {
        Np_EmlPlaceDrop(pastBucket, ulIndex);
    }
    if (bCounted) {
        Np_CountDown(ulChipID, ulTableID);
    }
}

uint32_t Np_FleeWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID, uint32_t ulExternal,
                      const uint8_t *pucItem)
{
    if (ulTableID == NP_EML_OAM_LM_DATAPKT) {
        return Np_Tarn_LmData_FleeBucketTbl_Set(ulChipID, ulKeyID, ulExternal, pucItem);
    }
    return Np_Tarn_FleeBucketTbl_Set(ulChipID, ulKeyID, ulExternal, pucItem);
}

uint32_t Np_FleeDelete(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulKeyID)
{
    const uint32_t ulReturn = ulTableID == NP_EML_OAM_LM_DATAPKT
                                  ? Np_Tarn_LmData_FleeBucketTbl_Del(ulChipID, ulTableID, ulKeyID)
                                  : Np_Tarn_FleeBucketTbl_Del(ulChipID, ulTableID, ulKeyID);
    if (ulReturn == NP_OK) {
        Np_CountDown(ulChipID, ulTableID);
    }
    return ulReturn;
}

// A new key that has no place in its hash table.
uint32_t Np_FleeInsert(uint32_t ulChipID, uint32_t ulTableID, const uint8_t *pucItem,
                       NpWhere stWhere = Np_Here())
{
    uint32_t ulExternal;
    uint32_t ulReturn = Np_FleeExternal(ulTableID, &ulExternal, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulKeyID;
    ulReturn = Np_Tarn_FleeBucketTblKeyIDAssign(ulChipID, ulTableID, &ulKeyID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_FleeWrite(ulChipID, ulTableID, ulKeyID, ulExternal, pucItem);
    if (ulReturn != NP_OK) {
        Np_FleeKeyRelease(ulChipID, ulTableID, ulKeyID, stWhere);  // the write's code is the result
    }
    return ulReturn;
}

// Empties the item that the engine finds for a key.
uint32_t Np_ItemEmpty(uint32_t ulChipID, uint32_t ulTableID, uint8_t *pucItem, bool bCounted,
                      NpWhere stWhere = Np_Here())
{
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    Np_EmlStatusSet(pstConfig, pucItem, NP_EML_STATUS_EMPTY);
    uint32_t ulIndex;
    uint32_t ulReturn = Np_Tarn_EML_SearchUpdate(ulChipID, ulTableID, &ulIndex, pucItem);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    // The item is gone, whatever becomes of the cache.
    ulReturn = Np_Tarn_EML_SmemWriteReadCacheRefresh(ulChipID, pstConfig->ulSmemID);
    NP_EML_REFUSE_AT(stWhere, ulIndex >= pstConfig->ulItemNum, NP_ERR_SMEM_OP,
                     "[ERROR] the engine names a place outside the table! ulIndex=0x%08x\r\n",
                     ulIndex);
    Np_ItemGone(ulChipID, ulTableID, ulIndex, bCounted);
    return ulReturn;
}

// Top of an item: the 32 bits with the status nibble.
uint32_t Np_StatusWordAddr(const NpEmlConfig *pstConfig, uint32_t ulIndex)
{
    return pstConfig->ulBaseAddr - 2 + ((1 + ulIndex) << Np_EmlStrideShift(pstConfig->ulTblWidth));
}

// Whether the host knows a place of the hash table to be empty. It doesn't where the engine places.
bool Np_PlaceIsEmpty(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex)
{
    NpEmlBucketInfo *pastBucket = g_pastEmlBucketInfo[Np_EmlSlotOf(ulChipID, ulTableID)];
    return Np_EmlConfigOf(ulChipID, ulTableID)->ulMoveEnable == 1 &&
           (pastBucket == nullptr || *Np_EmlPlaceEntry(pastBucket, ulIndex) == 0);
}

uint32_t Np_DelByIndexTable(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset)
{
    if (Np_PlaceIsEmpty(ulChipID, ulTableID, ulOffset)) {
        return NP_OK;
    }
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    constexpr uint8_t aucZero[4] = {};
    uint32_t ulReturn = Np_Tarn_SmemWrite(ulChipID, pstConfig->ulSmemID, NP_SMEM_LEN_32,
                                          Np_StatusWordAddr(pstConfig, ulOffset), aucZero);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    // The item is gone, whatever becomes of the cache.
    ulReturn = Np_Tarn_EML_SmemEmlCacheRefresh(ulChipID, pstConfig->ulSmemID);
    Np_ItemGone(ulChipID, ulTableID, ulOffset);
    return ulReturn;
}

}  // namespace

uint32_t Np_Tarn_EML_ItemAdd(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulLocationType,
                             uint32_t *pulIndex, void *pvData)
{
    NP_EML_REFUSE_TABLE(ulTableID >= NP_EML_TABLE_NUM, ulTableID);
    NP_EML_REFUSE_NULL(pulLocationType == nullptr || pvData == nullptr);
    Np_Tarn_EML_DataTrace(ulChipID, ulTableID, pvData);
    const uint8_t *pucItem = static_cast<const uint8_t *>(pvData);
    if (Np_EmlConfigOf(ulChipID, ulTableID)->ulMoveEnable != 0) {
        return Np_Tarn_EML_ItemAdd_MoveProcess(ulChipID, ulTableID, pulLocationType, pucItem);
    }
    return Np_Tarn_EML_ItemAdd_NoMoveProcess(ulChipID, ulTableID, pulIndex, pucItem);
}

uint32_t Np_Tarn_EML_ItemAdd_NoMoveProcess(uint32_t ulChipID, uint32_t ulTableID,
                                           uint32_t *pulIndex, const uint8_t *pucItem)
{
    return Np_Tarn_EML_SearchUpdateBuild(ulChipID, ulTableID, pulIndex, pucItem);
}

uint32_t Np_Tarn_EML_ItemAdd_MoveProcess(uint32_t ulChipID, uint32_t ulTableID,
                                         uint32_t *pulLocationType, const uint8_t *pucItem)
{
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    uint8_t aucScratch[NP_EML_ITEM_MAX];  // the search would overwrite the caller's AD
    memcpy(aucScratch, pucItem, pstConfig->ulKeyLen + pstConfig->ulAdLen);
    uint32_t ulLocationType;
    uint32_t ulIndex;
    const uint32_t ulReturn =
        Np_Tarn_EML_ItemGet(ulChipID, ulTableID, &ulLocationType, &ulIndex, aucScratch);
    if (ulReturn == NP_OK) {
        *pulLocationType = ulLocationType;
        return Np_Tarn_EML_ItemAdd_MoveUpdateProcess(ulChipID, ulTableID, ulLocationType, ulIndex,
                                                     pucItem);
    }
    if (ulReturn != NP_ERR_NOT_EXIST) {
        return ulReturn;
    }
    NP_EML_REFUSE(g_aulEmlValidItem[Np_EmlSlotOf(ulChipID, ulTableID)] >= pstConfig->ulItemNum,
                  NP_ERR_TABLE_FULL, "[ERROR] eml rule is full");
    return Np_Tarn_EML_ItemAdd_MoveInsertProcess(ulChipID, ulTableID, pulLocationType, pucItem);
}

uint32_t Np_Tarn_EML_ItemAdd_MoveUpdateProcess(uint32_t ulChipID, uint32_t ulTableID,
                                               uint32_t ulLocationType, uint32_t ulIndex,
                                               const uint8_t *pucItem)
{
    uint32_t ulReturn;
    if (ulLocationType == NP_EML_IN_TABLE) {
        ulReturn = Np_Tarn_EML_SearchUpdate(ulChipID, ulTableID, nullptr, pucItem);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        return Np_Tarn_EML_SmemWriteReadCacheRefresh(ulChipID,
                                                     Np_EmlConfigOf(ulChipID, ulTableID)->ulSmemID);
    }
    uint32_t ulExternal;
    ulReturn = Np_FleeExternal(ulTableID, &ulExternal);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return Np_FleeWrite(ulChipID, ulTableID, ulIndex, ulExternal, pucItem);
}

uint32_t Np_Tarn_EML_ItemAdd_MoveInsertProcess(uint32_t ulChipID, uint32_t ulTableID,
                                               uint32_t *pulLocationType, const uint8_t *pucItem)
{
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    uint32_t &ulCount = g_aulEmlValidItem[Np_EmlSlotOf(ulChipID, ulTableID)];
    uint8_t aucHashKey[NP_EML_HASH_KEY_SIZE] = {};
    Np_Tarn_EML_HashKeyBuild(ulChipID, ulTableID, pucItem, aucHashKey);
    uint32_t ulReturn = Np_Tarn_EML_CpuWrite(ulChipID, ulTableID, aucHashKey, pucItem);
    *pulLocationType = NP_EML_IN_TABLE;
    if (ulReturn == NP_OK) {
        ulCount++;
        return Np_Tarn_EML_SmemEmlCacheRefresh(ulChipID, pstConfig->ulSmemID);
    }
    if (ulReturn != NP_ERR_HASH_CONFLICT) {
        return ulReturn;
    }
    NP_EML_REFUSE(pstConfig->ulFleeEnable != 1, NP_ERR_HASH_CONFLICT,
                  "[ERROR] (flee bucket is disable)hash collision, hash item add failed!");
    ulReturn = Np_FleeInsert(ulChipID, ulTableID, pucItem);
    if (ulReturn == NP_OK) {
        *pulLocationType = NP_EML_IN_FLEE;
        ulCount++;
    }
    return ulReturn;
}

uint32_t Np_Tarn_EML_CpuWrite(uint32_t ulChipID, uint32_t ulTableID, const uint8_t *pucHashKey,
                              const uint8_t *pucItem)
{
    // A chip that is registered but not brought up has no shadow.
    NP_EML_REFUSE_NULL(g_pastEmlBucketInfo[Np_EmlSlotOf(ulChipID, ulTableID)] == nullptr);
    NpEmlPlace stPlace;
    const uint32_t ulReturn =
        Np_Tarn_EML_CpuWrite_BestInsertBucketFind(ulChipID, ulTableID, pucHashKey, &stPlace);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (stPlace.ulMove == 0) {
        return Np_Tarn_EML_CpuWrite_NoMoveProcess(ulChipID, ulTableID, &stPlace, pucItem);
    }
    return Np_Tarn_EML_CpuWrite_MoveProcess(ulChipID, ulTableID, &stPlace, pucItem);
}

uint32_t Np_Tarn_EML_CpuWrite_BestInsertBucketFind(uint32_t ulChipID, uint32_t ulTableID,
                                                   const uint8_t *pucHashKey, NpEmlPlace *pstPlace)
{
    const uint32_t ulMask = g_aulBucketMask[Np_EmlConfigOf(ulChipID, ulTableID)->ulBucketWidth];
    pstPlace->ulHash1Bucket =
        Np_tarn_HASH_Hash1Crc32Calc(pucHashKey, NP_EML_HASH_KEY_SIZE) & ulMask;
    pstPlace->ulHash2Bucket =
        Np_tarn_HASH_Hash2Crc32Calc(pucHashKey, NP_EML_HASH_KEY_SIZE) & ulMask;
    const uint32_t ulReturn =
        Np_EmlPlaceFind(g_pastEmlBucketInfo[Np_EmlSlotOf(ulChipID, ulTableID)], pstPlace);
    if (ulReturn == NP_ERR_HASH_CONFLICT) {
        NP_TRACE(NP_M_EML, NP_PRINT_DEBUG, "[DEBUG] hash collision!");
    }
    return ulReturn;
}

uint32_t Np_Tarn_EML_CpuWrite_NoMoveProcess(uint32_t ulChipID, uint32_t ulTableID,
                                            const NpEmlPlace *pstPlace, const uint8_t *pucItem)
{
    const NpEmlStore stStore = Np_StoreOf(ulChipID, ulTableID);
    return Np_EmlPlaceDirect(&stStore, pstPlace, pucItem);
}

uint32_t Np_Tarn_EML_CpuWrite_MoveProcess(uint32_t ulChipID, uint32_t ulTableID,
                                          const NpEmlPlace *pstPlace, const uint8_t *pucItem)
{
    const NpEmlStore stStore = Np_StoreOf(ulChipID, ulTableID);
    const uint32_t ulReturn = Np_EmlPlaceMove(&stStore, pstPlace, pucItem);
    if (ulReturn != NP_OK) {
        g_aulEmlTwice[ulChipID] |= 1u << ulTableID;
    }
    return ulReturn;
}

uint32_t Np_Tarn_EML_IdleItemIndexFind(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulBucketNo,
                                       uint32_t ulBucketFlag, uint32_t *pulSlot)
{
    const NpEmlStore stStore = Np_StoreOf(ulChipID, ulTableID);
    return Np_EmlPlaceIdle(&stStore, ulBucketNo, ulBucketFlag, pulSlot);
}

uint32_t Np_Tarn_EML_ItemDel(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulDelType,
                             void *pvData)
{
    NP_EML_REFUSE_TABLE(ulTableID >= NP_EML_TABLE_NUM, ulTableID);
    NP_EML_REFUSE(ulDelType > NP_EML_DEL_ANY, NP_ERR_PARAM, "param error! (ulDelType)=0x%08x\r\n",
                  ulDelType);
    NP_EML_REFUSE_NULL(pvData == nullptr);
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    uint8_t *pucItem = static_cast<uint8_t *>(pvData);
    const uint32_t ulReturn = Np_Tarn_EML_Search(ulChipID, ulTableID, nullptr, pucItem);
    if (ulReturn == NP_OK) {
        const bool bStatic = Np_EmlStatusGet(pstConfig, pucItem) == NP_EML_STATUS_STATIC;
        const bool bSpared = (ulDelType == NP_EML_DEL_STATIC && !bStatic) ||
                             (ulDelType == NP_EML_DEL_DYNAMIC && bStatic);
        if (!bSpared) {
            return Np_tarn_EML_ItemDel_SmemProcess(ulChipID, ulTableID, pucItem);
        }
        if (pstConfig->ulFleeEnable != 1) {
            return NP_OK;
        }
        return Np_tarn_EML_ItemDel_FleeBucketProcess(ulChipID, ulTableID, pucItem);
    }
    if (ulReturn != NP_ERR_EML_MISS) {
        return ulReturn;
    }
    if (pstConfig->ulFleeEnable != 1 || pstConfig->ulKeyLen > NP_FLEE_KEY_LEN) {
        return NP_OK;
    }
    return Np_tarn_EML_ItemDel_FleeBucketProcess(ulChipID, ulTableID, pucItem);
}

uint32_t Np_tarn_EML_ItemDel_SmemProcess(uint32_t ulChipID, uint32_t ulTableID, uint8_t *pucItem)
{
    uint32_t ulReturn = Np_ItemEmpty(ulChipID, ulTableID, pucItem, true);
    // A second copy would answer now, with what the key stood for at the time of the displacement.
    const uint32_t ulCopies =
        (g_aulEmlTwice[ulChipID] >> ulTableID & 1) != 0 ? NP_EML_BUCKET_ITEMS : 1;
    for (uint32_t i = 1; i < ulCopies && ulReturn == NP_OK; i++) {
        ulReturn = Np_Tarn_EML_Search(ulChipID, ulTableID, nullptr, pucItem);
        if (ulReturn == NP_ERR_EML_MISS) {
            return NP_OK;
        }
        if (ulReturn == NP_OK) {
            ulReturn = Np_ItemEmpty(ulChipID, ulTableID, pucItem, false);
        }
    }
    return ulReturn;
}

uint32_t Np_tarn_EML_ItemDel_FleeBucketProcess(uint32_t ulChipID, uint32_t ulTableID,
                                               uint8_t *pucItem)
{
    if (Np_EmlConfigOf(ulChipID, ulTableID)->ulMoveEnable != 1) {
        NP_TRACE(NP_M_EML, NP_PRINT_DEBUG, "[DEBUG] (have no flee bucket)hash item is not exist");
        return NP_OK;
    }
    uint32_t ulKeyID;
    uint32_t ulReturn =
        ulTableID == NP_EML_OAM_LM_DATAPKT
            ? Np_Tarn_LmData_FleeBucketSearch(ulChipID, ulTableID, nullptr, &ulKeyID, pucItem)
            : Np_Tarn_FleeBucketSearch(ulChipID, ulTableID, nullptr, &ulKeyID, pucItem);
    if (ulReturn == NP_ERR_FLEE_MISS) {
        NP_TRACE(NP_M_EML, NP_PRINT_DEBUG, "[DEBUG] flee bucket item is not exist");
        return NP_OK;
    }
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_EML, NP_PRINT_DEBUG, "[DEBUG] flee bucket search error");
        return ulReturn;
    }
    ulReturn = Np_FleeDelete(ulChipID, ulTableID, ulKeyID);
    uint32_t ulExternal;
    if (ulReturn == NP_ERR_TCAM_CLEAR && Np_FleeExternal(ulTableID, &ulExternal) == NP_OK) {
        // Half cleared it would be lost to both sides with its number taken: it is put back.
        Np_FleeWrite(ulChipID, ulTableID, ulKeyID, ulExternal, pucItem);
    }
    return ulReturn;
}

uint32_t Np_Tarn_EML_ItemDelByIndex(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulLocationType,
                                    uint32_t ulOffset)
{
    NP_EML_REFUSE_TABLE(ulTableID >= NP_EML_TABLE_NUM, ulTableID);
    NP_EML_REFUSE(ulLocationType > NP_EML_IN_FLEE, NP_ERR_PARAM,
                  "param error! (ulLocationType)=0x%08x\r\n", ulLocationType);
    if (ulLocationType == NP_EML_IN_TABLE) {
        NP_EML_REFUSE(ulOffset >= Np_EmlConfigOf(ulChipID, ulTableID)->ulItemNum, NP_ERR_PARAM,
                      "[ERROR] param error! ulOffset=0x%08x\r\n", ulOffset);
        return Np_DelByIndexTable(ulChipID, ulTableID, ulOffset);
    }
    uint32_t ulExternal;
    const uint32_t ulReturn = Np_FleeExternal(ulTableID, &ulExternal);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const bool bLmData = ulTableID == NP_EML_OAM_LM_DATAPKT;
    NP_EML_REFUSE(ulOffset >= Np_GLB_CapGet(bLmData ? NP_CAP_LM_FLEE_KEY_NUM : NP_CAP_FLEE_KEY_NUM),
                  NP_ERR_PARAM, "[ERROR] param error! ulOffset=0x%08x\r\n", ulOffset);
    NP_EML_REFUSE(!bLmData && Np_FleeOwner(ulChipID, ulOffset) != ulExternal, NP_ERR_PARAM,
                  "[ERROR] error parameter! ulLocationType=0x%08x ulOffset=0x%08x \r\n",
                  ulLocationType, ulOffset);
    if (!Np_FleeInUse(ulChipID, ulTableID, ulOffset)) {
        return NP_OK;  // table 0 is the recorded owner of an entry that is not in use
    }
    return Np_FleeDelete(ulChipID, ulTableID, ulOffset);
}
