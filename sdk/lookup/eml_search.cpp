// Hash commands, search and reading of the exact match tables, and the refresh of their caches.
#include "sdk/access/smem.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/eml_check.h"
#include "sdk/lookup/eml_item.h"
#include "sdk/lookup/flee.h"

namespace {

// Words of a hash response, counted in its data block: the address word of the matched item, then a
// byte whose high nibble is the status; the AD ends with the block.
inline constexpr uint32_t NP_EML_RSP_STATUS = 4;
inline constexpr uint32_t NP_EML_RSP_ADDR_MASK = 0xfffff;

inline constexpr uint32_t NP_EML_RAW_TYPE_NUM = 4;

bool Np_TableExists(uint32_t ulChipID, uint32_t ulTableID)
{
    return ulTableID < NP_EML_TABLE_NUM &&
           Np_EmlConfigOf(ulChipID, ulTableID)->ulTID != NP_EML_TID_NONE;
}

NpSmemHashReq Np_HashReq(const NpEmlConfig *pstConfig, uint32_t ulPayloadLen)
{
    return {.ulKeyLen = pstConfig->ulKeyLen,
            .ulPayloadLen = ulPayloadLen,
            .ulTID = pstConfig->ulTID,
            .ulUpdateFlag = 0,
            .ulBuildField = 0};
}

// Number of the item that a response names.
void Np_IndexFromResponse(const NpEmlConfig *pstConfig, const NpSmemRsp *pstRsp, uint32_t *pulIndex)
{
    if (pulIndex == nullptr) {
        return;
    }
    uint32_t ulAddress;
    __builtin_memcpy(&ulAddress, pstRsp->aucData, sizeof(ulAddress));
    *pulIndex =
        ((ulAddress & NP_EML_RSP_ADDR_MASK) - (pstConfig->ulBaseAddr & NP_EML_RSP_ADDR_MASK)) >>
        Np_EmlStrideShift(pstConfig->ulTblWidth);
}

// Address and size of the SMEM accesses that make up an item.
struct NpRawShape {
    uint32_t ulLength;  // NpSmemLength of each access
    uint32_t ulFirst;   // of the first access, from the item's address, 16-bit units
    uint32_t ulNum;
};
constexpr NpRawShape g_astRawShape[NP_EML_RAW_TYPE_NUM] = {{NP_SMEM_LEN_64, 0, 1},
                                                           {NP_SMEM_LEN_128, 0, 1},
                                                           {NP_SMEM_LEN_128, 0, 2},
                                                           {NP_SMEM_LEN_128, 8, 3}};
inline constexpr uint32_t NP_RAW_STEP = 8;  // 16-bit units of a 128-bit access
inline constexpr uint32_t NP_RAW_WORDS = 4;

uint32_t Np_HalfItem(uint32_t ulBucketNo, uint32_t ulSlot, uint32_t ulBucketFlag)
{
    return ulSlot + NP_EML_BUCKET_ITEMS * ulBucketNo +
           (ulBucketFlag == NP_EML_HALF_HASH1 ? NP_EML_HALF_ITEMS : 0);
}

uint32_t Np_ItemAddr(const NpEmlConfig *pstConfig, uint32_t ulIndex)
{
    return pstConfig->ulBaseAddr + (ulIndex << Np_EmlStrideShift(pstConfig->ulTblWidth));
}

uint32_t Np_CacheTable(uint32_t ulSmemID)
{
    return ulSmemID == 0 ? NP_EML_CACHE_REFRESH_0 : NP_EML_CACHE_REFRESH_1;
}

// Bytes 12 and 13 of the items that refresh the engine's cache; byte 15 is 0xf0, the rest 0.
inline constexpr uint32_t NP_CACHE_ACCESSES = 16;
constexpr uint8_t g_aaucCacheItem[NP_CACHE_ACCESSES][2] = {
    {0x51, 0}, {0x71, 0}, {0xd1, 0}, {0xf1, 0}, {0x01, 1}, {0x21, 1}, {0x81, 1}, {0xa1, 1},
    {0x11, 0}, {0x31, 0}, {0x91, 0}, {0xb1, 0}, {0x41, 1}, {0x61, 1}, {0xc1, 1}, {0xe1, 1}};

}  // namespace

uint32_t Np_Tarn_EML_Search(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulIndex,
                            uint8_t *pucItem)
{
    NP_EML_REFUSE_TABLE(!Np_TableExists(ulChipID, ulTableID), ulTableID);
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    uint8_t aucKey[NP_EML_ITEM_MAX];
    Np_EmlKeyGet(pstConfig, pucItem, aucKey);
    const NpSmemHashReq stReq = Np_HashReq(pstConfig, pstConfig->ulKeyLen);
    NpSmemRsp stRsp;
    const uint32_t ulReturn =
        Np_Tarn_SMEM_ReqEmlSearch(ulChipID, pstConfig->ulSmemID, &stReq, aucKey, &stRsp);
    NP_EML_REFUSE(ulReturn != NP_OK, ulReturn, "Func error return: 0x%08x \r\n", ulReturn);
    NP_EML_REFUSE(stRsp.ulStatus != NP_SMEM_STATUS_OK,
                  stRsp.ulStatus == NP_SMEM_STATUS_MISS ? NP_ERR_EML_MISS : NP_ERR_SMEM_OP,
                  "[ERROR] eml search failed! ulStatus=0x%08x\r\n", stRsp.ulStatus);
    Np_EmlShiftedAdGet(pstConfig, pucItem, stRsp.aucData, NP_SMEM_BLOCK_SIZE);
    Np_EmlStatusSet(pstConfig, pucItem, stRsp.aucData[NP_EML_RSP_STATUS] >> 4);
    Np_IndexFromResponse(pstConfig, &stRsp, pulIndex);
    return NP_OK;
}

uint32_t Np_Tarn_EML_SearchUpdate(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulIndex,
                                  const uint8_t *pucItem)
{
    NP_EML_REFUSE_TABLE(!Np_TableExists(ulChipID, ulTableID), ulTableID);
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    const NpSmemHashReq stReq = Np_HashReq(pstConfig, Np_EmlItemSize(pstConfig->ulTblWidth));
    NpSmemRsp stRsp;
    const uint32_t ulReturn =
        Np_Tarn_SMEM_ReqEmlSearchUpdata(ulChipID, pstConfig->ulSmemID, &stReq, pucItem, 0, &stRsp);
    NP_EML_REFUSE(ulReturn != NP_OK, ulReturn, "Func error return: 0x%08x \r\n", ulReturn);
    NP_EML_REFUSE(stRsp.ulStatus != NP_SMEM_STATUS_OK, NP_ERR_SMEM_OP,
                  "\r\n eml build failed! ulStatus=0x%x", stRsp.ulStatus);
    NP_TRACE(NP_M_EML, NP_PRINT_DEBUG, "\r\n update a old eml item!");
    Np_IndexFromResponse(pstConfig, &stRsp, pulIndex);
    return NP_OK;
}

uint32_t Np_Tarn_EML_SearchUpdateBuild(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulIndex,
                                       const uint8_t *pucItem)
{
    NP_EML_REFUSE_TABLE(!Np_TableExists(ulChipID, ulTableID), ulTableID);
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    const NpSmemHashReq stReq = Np_HashReq(pstConfig, Np_EmlItemSize(pstConfig->ulTblWidth));
    NpSmemRsp stRsp;
    const uint32_t ulReturn = Np_Tarn_SMEM_ReqEmlSearchUpdataBuild(ulChipID, pstConfig->ulSmemID,
                                                                   &stReq, pucItem, 0, &stRsp);
    NP_EML_REFUSE(ulReturn != NP_OK, ulReturn, "Func error return: 0x%08x \r\n", ulReturn);
    switch (stRsp.ulStatus) {
        case NP_SMEM_STATUS_OK:
            NP_TRACE(NP_M_EML, NP_PRINT_DEBUG, "\r\n [DEBUG] update an old eml item!");
            break;
        case NP_SMEM_STATUS_BUILT:
            NP_TRACE(NP_M_EML, NP_PRINT_DEBUG, "\r\n [DEBUG] build a new eml item!");
            break;
        case NP_SMEM_STATUS_SEMAPHORE:
            NP_TRACE(NP_M_EML, NP_PRINT_ERROR,
                     "\r\n [ERROR] eml build failed! NO SEM! ulStatus=0x%x", stRsp.ulStatus);
            return NP_ERR_EML_SEMAPHORE;
        case NP_SMEM_STATUS_COLLISION:
            NP_TRACE(NP_M_EML, NP_PRINT_ERROR,
                     "\r\n [ERROR] eml build failed! HASH COLLISION ulStatus=0x%x", stRsp.ulStatus);
            return NP_ERR_HASH_CONFLICT;
        default:
            NP_TRACE(NP_M_EML, NP_PRINT_ERROR, "\r\n [ERROR] eml build failed! ulStatus=0x%x",
                     stRsp.ulStatus);
            return NP_ERR_SMEM_OP;
    }
    Np_IndexFromResponse(pstConfig, &stRsp, pulIndex);
    return NP_OK;
}

uint32_t Np_Tarn_EML_SmemRawDataRead(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulEmlType,
                                     uint32_t ulOffAddr, uint32_t *pulData)
{
    NP_EML_REFUSE(ulEmlType >= NP_EML_RAW_TYPE_NUM, NP_ERR_PARAM,
                  "EML TYPE ERROR ulEmlType=0x%08x ", ulEmlType);
    const NpRawShape &stShape = g_astRawShape[ulEmlType];
    const uint32_t ulSmemID = Np_EmlConfigOf(ulChipID, ulTableID)->ulSmemID;
    for (uint32_t i = 0; i < stShape.ulNum; i++) {
        const uint32_t ulReturn = Np_Tarn_SmemRead(ulChipID, ulSmemID, stShape.ulLength,
                                                   ulOffAddr + stShape.ulFirst + i * NP_RAW_STEP,
                                                   pulData + size_t{i} * NP_RAW_WORDS);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_EML_SmemRawDataWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulEmlType,
                                      uint32_t ulOffAddr, const uint32_t *pulData)
{
    NP_EML_REFUSE(ulEmlType >= NP_EML_RAW_TYPE_NUM, NP_ERR_PARAM,
                  "EML TYPE ERROR ulEmlType=0x%08x ", ulEmlType);
    const NpRawShape &stShape = g_astRawShape[ulEmlType];
    const uint32_t ulSmemID = Np_EmlConfigOf(ulChipID, ulTableID)->ulSmemID;
    for (uint32_t i = 0; i < stShape.ulNum; i++) {
        const uint32_t ulReturn = Np_Tarn_SmemWrite(
            ulChipID, ulSmemID, stShape.ulLength, ulOffAddr + stShape.ulFirst + i * NP_RAW_STEP,
            reinterpret_cast<const uint8_t *>(pulData + size_t{i} * NP_RAW_WORDS));
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_EML_SmemRead(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulIndex,
                              uint32_t *pulData)
{
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    return Np_Tarn_EML_SmemRawDataRead(ulChipID, ulTableID, pstConfig->ulTblWidth,
                                       Np_ItemAddr(pstConfig, ulIndex), pulData);
}

uint32_t Np_Tarn_EML_TableReadByCpu(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulBucketNo,
                                    uint32_t ulSlot, uint32_t ulBucketFlag, uint32_t *pulData)
{
    return Np_Tarn_EML_SmemRead(ulChipID, ulTableID, Np_HalfItem(ulBucketNo, ulSlot, ulBucketFlag),
                                pulData);
}

uint32_t Np_Tarn_EML_TableWriteByCpu(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulBucketNo,
                                     uint32_t ulSlot, uint32_t ulBucketFlag, const uint8_t *pucData)
{
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    uint32_t aulData[NP_EML_ITEM_MAX / sizeof(uint32_t)];
    memcpy(aulData, pucData, Np_EmlItemSize(pstConfig->ulTblWidth));
    const uint32_t ulIndex = Np_HalfItem(ulBucketNo, ulSlot, ulBucketFlag);
    return Np_Tarn_EML_SmemRawDataWrite(ulChipID, ulTableID, pstConfig->ulTblWidth,
                                        Np_ItemAddr(pstConfig, ulIndex), aulData);
}

uint32_t Np_Tarn_EML_ItemGet(uint32_t ulChipID, uint32_t ulTableID, uint32_t *pulLocationType,
                             uint32_t *pulIndex, void *pvData)
{
    NP_EML_REFUSE_TABLE(ulTableID >= NP_EML_TABLE_NUM, ulTableID);
    NP_EML_REFUSE_NULL(pvData == nullptr);
    if (pulLocationType != nullptr) {
        *pulLocationType = NP_EML_IN_TABLE;
    }
    uint8_t *pucItem = static_cast<uint8_t *>(pvData);
    uint32_t ulReturn = Np_Tarn_EML_Search(ulChipID, ulTableID, pulIndex, pucItem);
    if (ulReturn != NP_ERR_EML_MISS) {
        if (ulReturn == NP_OK) {
            Np_Tarn_EML_DataTrace(ulChipID, ulTableID, pvData);
        }
        return ulReturn;
    }
    const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
    NP_EML_REFUSE(pstConfig->ulFleeEnable != 1 || pstConfig->ulMoveEnable != 1, NP_ERR_NOT_EXIST,
                  "[ERROR] (have no flee bucket) hash item is not exist!");
    if (ulTableID == NP_EML_OAM_LM_DATAPKT) {
        ulReturn =
            Np_Tarn_LmData_FleeBucketSearch(ulChipID, ulTableID, pulLocationType, pulIndex, pvData);
    }
    else {
        NP_EML_REFUSE(pstConfig->ulKeyLen > NP_FLEE_KEY_LEN, NP_ERR_NOT_EXIST,
                      "[ERROR] hash key length is more than flee bucket key length!");
        ulReturn = Np_Tarn_FleeBucketSearch(ulChipID, ulTableID, pulLocationType, pulIndex, pvData);
    }
    NP_EML_REFUSE(ulReturn == NP_ERR_FLEE_MISS, NP_ERR_NOT_EXIST,
                  "[ERROR] flee bucket item is not exist");
    if (ulReturn == NP_OK) {
        Np_Tarn_EML_DataTrace(ulChipID, ulTableID, pvData);
    }
    return ulReturn;
}

uint32_t Np_Tarn_EML_ItemGetByIndex(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulLocationType,
                                    uint32_t ulOffset, void *pvData)
{
    NP_EML_REFUSE_TABLE(ulTableID >= NP_EML_TABLE_NUM, ulTableID);
    NP_EML_REFUSE_NULL(pvData == nullptr);
    if (ulLocationType == NP_EML_IN_TABLE) {
        const NpEmlConfig *pstConfig = Np_EmlConfigOf(ulChipID, ulTableID);
        NP_EML_REFUSE(ulOffset >= pstConfig->ulItemNum, NP_ERR_PARAM,
                      "[ERROR] param error! ulOffset=0x%08x\r\n", ulOffset);
        uint32_t aulData[NP_EML_ITEM_MAX / sizeof(uint32_t)];
        const uint32_t ulReturn = Np_Tarn_EML_SmemRead(ulChipID, ulTableID, ulOffset, aulData);
        if (ulReturn == NP_OK) {
            memcpy(pvData, aulData, Np_EmlItemSize(pstConfig->ulTblWidth));
        }
        return ulReturn;
    }
    uint32_t ulExternal;
    uint32_t ulReturn = Np_FleeExternal(ulTableID, &ulExternal);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulItemType;
    if (ulTableID == NP_EML_OAM_LM_DATAPKT) {
        return Np_Tarn_LmData_FleeBucketTbl_Get(ulChipID, ulOffset, &ulItemType, pvData);
    }
    NP_EML_REFUSE(ulOffset >= Np_GLB_CapGet(NP_CAP_FLEE_KEY_NUM), NP_ERR_PARAM,
                  "[ERROR] param error! ulOffset=0x%08x\r\n", ulOffset);
    NP_EML_REFUSE(Np_FleeOwner(ulChipID, ulOffset) != ulExternal, NP_ERR_PARAM,
                  "[ERROR] error parameter! ulLocationType=0x%08x ulOffset=0x%08x\r\n",
                  ulLocationType, ulOffset);
    return Np_Tarn_FleeBucketTbl_Get(ulChipID, ulOffset, &ulItemType, pvData);
}

uint32_t Np_Tarn_EML_SmemEmlCacheRefresh(uint32_t ulChipID, uint32_t ulSmemID)
{
    const uint32_t ulTableID = Np_CacheTable(ulSmemID);
    for (uint32_t i = 0; i < NP_CACHE_ACCESSES; i++) {
        uint8_t aucItem[16] = {};
        aucItem[12] = g_aaucCacheItem[i][0];
        aucItem[13] = g_aaucCacheItem[i][1];
        aucItem[15] = 0xf0;
        const uint32_t ulReturn =
            Np_Tarn_EML_SearchUpdateBuild(ulChipID, ulTableID, nullptr, aucItem);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_EML_SmemWriteReadCacheRefresh(uint32_t ulChipID, uint32_t ulSmemID)
{
    const uint32_t ulBase = Np_EmlConfigOf(ulChipID, Np_CacheTable(ulSmemID))->ulBaseAddr;
    for (uint32_t i = 1; i <= NP_CACHE_ACCESSES; i++) {
        const uint32_t ulValue = i + 1;
        const uint32_t ulReturn =
            Np_Tarn_SmemWrite(ulChipID, ulSmemID, NP_SMEM_LEN_32, ulBase + i * NP_RAW_STEP,
                              reinterpret_cast<const uint8_t *>(&ulValue));
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}
