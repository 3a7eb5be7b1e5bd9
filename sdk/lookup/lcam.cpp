// Logical tables and entries of the LCAM.
#include "sdk/lookup/lcam.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

namespace {

uint32_t Np_Low32(const void *pvAddress)
{
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(pvAddress));
}

uint32_t Np_TableCheck(uint32_t ulChipID, uint32_t ulTableID, NpWhere stWhere = Np_Here())
{
    if (ulTableID >= g_aulNpLcamTableNum[ulChipID]) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR, "param error! (ulTableID)=0x%08x\r\n",
                    ulTableID);
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

// The stretch that holds entry *pulOffset of a table, which becomes the entry's number there; null
// when the stretches are shorter than the table.
const NpLcamAddrBlock *Np_StretchFind(const NpLcamAddrConfig *pstAddr, uint32_t *pulOffset)
{
    for (uint32_t i = 0; i < pstAddr->ulBlockNum; i++) {
        if (*pulOffset < pstAddr->pstBlock[i].ulEntryNum) {
            return &pstAddr->pstBlock[i];
        }
        *pulOffset -= pstAddr->pstBlock[i].ulEntryNum;
    }
    return nullptr;
}

uint32_t Np_CamModeGet(uint32_t ulChipID, uint32_t *pulMode, NpWhere stWhere = Np_Here())
{
    *pulMode = 0;
    const uint32_t ulReturn = Qd_LCAM_CamIdModeGet(ulChipID, pulMode);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR,
                    "[ERROR] Qd_LCAM_CamIdModeGet ERROR ulChipID=0x%08x, ulMode=0x%08x , "
                    "ulReturn=0x%08x\r\n",
                    ulChipID, *pulMode, ulReturn);
        return NP_ERR_CAM_MODE_READ;
    }
    return NP_OK;
}

// Copies that a write has to keep in step: 1 or 2.
uint32_t Np_CopiesGet(uint32_t ulChipID, uint32_t ulCid, uint32_t *pulCopies,
                      NpWhere stWhere = Np_Here())
{
    uint32_t ulEnable = 0;
    const uint32_t ulReturn = Qd_LCAM_MirrorEnableGet(ulChipID, ulCid, &ulEnable);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
        return ulReturn;
    }
    *pulCopies = ulEnable == 1 ? 2 : 1;
    return NP_OK;
}

// The entry's other copy.
NpLcamAccessInfo Np_Mirror(const NpLcamAccessInfo *pstLcamAccessInfo)
{
    NpLcamAccessInfo stMirror = *pstLcamAccessInfo;
    stMirror.ulBlock ^= NP_LCAM_MIRROR_XOR;
    return stMirror;
}

// What every entry access begins with.
struct NpLcamAccessMode {
    uint32_t ulCamMode;
    uint32_t ulCopies;
};

uint32_t Np_AccessModeGet(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                          NpLcamAccessMode *pstMode, NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoCheck(pstLcamAccessInfo, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_CamModeGet(ulChipID, &pstMode->ulCamMode, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return Np_CopiesGet(ulChipID, pstLcamAccessInfo->ulCid, &pstMode->ulCopies, stWhere);
}

// Takes a value of ulBits bits out of the ulBytes bytes that the chip gave, in place.
void Np_RoomTake(uint32_t ulBits, uint32_t ulBytes, uint8_t *pucData)
{
    if (ulBits % 8 == 0) {
        // Whole bytes stand at the end.
        const uint32_t ulValue = ulBits / 8;
        memmove(pucData, pucData + ulBytes - ulValue, ulValue);
        memset(pucData + ulValue, 0, ulBytes - ulValue);
        return;
    }
    for (uint32_t i = 0; i + 1 < ulBytes; i++) {
        pucData[i] = static_cast<uint8_t>(pucData[i] >> 4 | pucData[i + 1] << 4);
    }
    pucData[ulBytes - 1] = static_cast<uint8_t>(pucData[ulBytes - 1] >> 4);
}

void Np_AccessTrace(const NpLcamAccessInfo *pstLcamAccessInfo, NpWhere stWhere = Np_Here())
{
    NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR,
                "ulType=0x%08x ulBlock=0x%08x ulTcam=0x%08xulDepth=0x%08x ulCid=0x%08x \r\n",
                pstLcamAccessInfo->ulType, pstLcamAccessInfo->ulBlock, pstLcamAccessInfo->ulTcam,
                pstLcamAccessInfo->ulDepth, pstLcamAccessInfo->ulCid);
}

bool Np_IsZero(const uint8_t *pucData, uint32_t ulBytes)
{
    uint32_t ulBits = 0;
    for (uint32_t i = 0; i < ulBytes; i++) {
        ulBits |= pucData[i];
    }
    return ulBits == 0;
}

// Writes an entry that has to stay out of matching. An empty one is all that a deleted entry is; a
// rule matches for the one command between its mask and its valid bit.
uint32_t Np_DisabledWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                          const uint8_t *pucKey, const uint8_t *pucMask, const uint8_t *pucAd)
{
    const uint32_t ulBytes = Np_LcamKeyBytes(g_stNpLcamConfig[ulChipID][ulTableID].ulType);
    if (Np_IsZero(pucMask, ulBytes)) {
        const uint32_t ulReturn = Np_Tarn_LCAM_TcamDelete(ulChipID, ulTableID, ulOffset);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        return Np_Tarn_LCAM_TcamWrite(ulChipID, ulTableID, ulOffset, nullptr, nullptr, pucAd);
    }
    const uint32_t ulReturn =
        Np_Tarn_LCAM_TcamWrite(ulChipID, ulTableID, ulOffset, pucKey, pucMask, pucAd);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return Np_Tarn_LCAM_TcamEnableSet(ulChipID, ulTableID, ulOffset, 0);
}

// Writes an entry that takes part in matching, or one that doesn't.
uint32_t Np_EntryWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset, uint32_t ulEnable,
                       const uint8_t *pucKey, const uint8_t *pucMask, const uint8_t *pucAd)
{
    if (ulEnable == 0) {
        return Np_DisabledWrite(ulChipID, ulTableID, ulOffset, pucKey, pucMask, pucAd);
    }
    return Np_Tarn_LCAM_TcamWrite(ulChipID, ulTableID, ulOffset, pucKey, pucMask, pucAd);
}

// Source and destination have been checked. A source that cannot be deleted is put back whole, and
// the copy taken away again, as far as the chip lets: what is left is as if nothing had moved.
uint32_t Np_EntryMove(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulSrc, uint32_t ulDst)
{
    if (ulSrc == ulDst) {
        return NP_OK;
    }
    uint32_t ulEnable = 0;
    uint32_t ulReturn = Np_Tarn_LCAM_TcamEnableGet(ulChipID, ulTableID, ulSrc, &ulEnable);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint8_t aucKey[NP_LCAM_KEY_MAX];
    uint8_t aucMask[NP_LCAM_KEY_MAX];
    uint8_t aucAd[NP_LCAM_AD_MAX];
    ulReturn = Np_Tarn_LCAM_TcamRead(ulChipID, ulTableID, ulSrc, aucKey, aucMask, aucAd);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_EntryWrite(ulChipID, ulTableID, ulDst, ulEnable, aucKey, aucMask, aucAd);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Tarn_LCAM_TcamDelete(ulChipID, ulTableID, ulSrc);
    if (ulReturn != NP_OK &&
        Np_EntryWrite(ulChipID, ulTableID, ulSrc, ulEnable, aucKey, aucMask, aucAd) == NP_OK) {
        Np_Tarn_LCAM_TcamDelete(ulChipID, ulTableID, ulDst);
    }
    return ulReturn;
}

// Moves ulBlockNum entries one after the other, each by ulDelta; the first one is ulFirst, the next
// ones lie ulStride further. Both may be negative, in 32 bits.
uint32_t Np_BlockMove(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulFirst, uint32_t ulBlockNum,
                      uint32_t ulStride, uint32_t ulDelta)
{
    for (uint32_t i = 0; i < ulBlockNum; i++) {
        if (i % NP_LCAM_WATCHDOG_STEP == 0) {
            Np_ClearWatchDog();
        }
        const uint32_t ulSrc = ulFirst + i * ulStride;
        const uint32_t ulReturn = Np_EntryMove(ulChipID, ulTableID, ulSrc, ulSrc + ulDelta);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

}  // namespace

uint32_t Np_Tarn_LCAM_Init(uint32_t ulChipID)
{
    NP_TRACE(NP_M_LCAM, NP_PRINT_TRACE, "in ulChipID=0x%08x\r\n", ulChipID);
    const uint32_t ulReturn = Qd_LCAM_CamIdModeSet(ulChipID, 1);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
        return NP_ERR_CAM_ID_MODE;
    }
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_Destruct(uint32_t ulChipID)
{
    NP_TRACE(NP_M_LCAM, NP_PRINT_TRACE, "in ulChipID=0x%08x\r\n", ulChipID);
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_AccessInfoBulid(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                      NpLcamAccessInfo *pstLcamAccessInfo)
{
    const uint32_t ulReturn = Np_TableCheck(ulChipID, ulTableID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpLcamConfig *pstConfig = &g_stNpLcamConfig[ulChipID][ulTableID];
    const NpLcamAddrConfig *pstAddr = &g_pstNpLcamAddrConfig[ulChipID][ulTableID];
    const NpLcamAddrBlock stWhole = {pstConfig->ulBlock, pstConfig->ulTcam, pstConfig->ulDepth,
                                     pstConfig->ulDepthNum, pstConfig->ulEntryNum};
    const NpLcamAddrBlock *pstStretch = &stWhole;
    uint32_t ulPlace = ulOffset;
    if (pstAddr->ulBlockNum >= 2) {
        pstStretch = Np_StretchFind(pstAddr, &ulPlace);
    }
    if (ulOffset >= pstConfig->ulEntryNum || pstStretch == nullptr) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "param error! ulOffset=0x%08x\r\n", ulOffset);
        return NP_ERR_PARAM;
    }
    pstLcamAccessInfo->ulType = pstConfig->ulType;
    pstLcamAccessInfo->ulBlock = pstStretch->ulBlock;
    pstLcamAccessInfo->ulTcam =
        pstStretch->ulTcam + ((ulPlace / pstStretch->ulDepthNum) << pstConfig->ulType);
    pstLcamAccessInfo->ulDepth = pstStretch->ulDepth + ulPlace % pstStretch->ulDepthNum;
    pstLcamAccessInfo->ulCid = pstConfig->ulCid;
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_AccessInfoCheck(const NpLcamAccessInfo *pstLcamAccessInfo, NpWhere stWhere)
{
    const uint32_t ulType = pstLcamAccessInfo->ulType;
    if (ulType >= NP_LCAM_TYPE_NUM) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR, "Para error, type = 0x%x \r\n", ulType);
        return NP_ERR_PARAM;
    }
    if (pstLcamAccessInfo->ulBlock >= NP_LCAM_BLOCK_NUM) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR, "Para error, block = 0x%x \r\n",
                    pstLcamAccessInfo->ulBlock);
        return NP_ERR_PARAM;
    }
    if (pstLcamAccessInfo->ulTcam >= NP_LCAM_TCAM_NUM) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR, "Para error, tcam = 0x%x \r\n",
                    pstLcamAccessInfo->ulTcam);
        return NP_ERR_PARAM;
    }
    if (pstLcamAccessInfo->ulDepth >= NP_LCAM_DEPTH_NUM) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR, "Para error, depth = 0x%x \r\n",
                    pstLcamAccessInfo->ulDepth);
        return NP_ERR_PARAM;
    }
    if (pstLcamAccessInfo->ulTcam % (1u << ulType) != 0) {
        NP_TRACE_AT(stWhere, NP_M_LCAM, NP_PRINT_ERROR,
                    "Para error, ulType = 0x%x. ulTcam = 0x%x \r\n", ulType,
                    pstLcamAccessInfo->ulTcam);
        return NP_ERR_PARAM;
    }
    return NP_OK;
}

void Np_Tarn_LCAM_UserToTcamValue(uint32_t ulBytes, const uint8_t *pucKey, const uint8_t *pucMask,
                                  uint8_t *pucX, uint8_t *pucY)
{
    for (uint32_t i = 0; i < ulBytes; i++) {
        const uint32_t ulKey = pucKey[i];
        const uint32_t ulMask = pucMask[i];
        pucX[i] = static_cast<uint8_t>(ulMask & ulKey);
        pucY[i] = static_cast<uint8_t>(ulMask & ~ulKey);
    }
}

void Np_Tarn_LCAM_TcamToUserValue(uint32_t ulBytes, const uint8_t *pucX, const uint8_t *pucY,
                                  uint8_t *pucKey, uint8_t *pucMask)
{
    for (uint32_t i = 0; i < ulBytes; i++) {
        const uint32_t ulX = pucX[i];
        const uint32_t ulY = pucY[i];
        pucKey[i] = static_cast<uint8_t>(ulX);
        pucMask[i] = static_cast<uint8_t>(ulX ^ ulY);
    }
}

uint32_t Np_Tarn_LCAM_TcamRbaRead(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                  uint8_t *pucX, uint8_t *pucY)
{
    constexpr decltype(&Np_Tarn_LCAM_ReadTcam40) apfnRead[NP_LCAM_TYPE_NUM] = {
        Np_Tarn_LCAM_ReadTcam40, Np_Tarn_LCAM_ReadTcam80, Np_Tarn_LCAM_ReadTcam160,
        Np_Tarn_LCAM_ReadTcam320};
    uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoCheck(pstLcamAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulCamMode;
    ulReturn = Np_CamModeGet(ulChipID, &ulCamMode);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulType = pstLcamAccessInfo->ulType;
    const NpLcamTcamAttr stAttr = Np_LcamTcamAttr(pstLcamAccessInfo);
    ulReturn = apfnRead[ulType](ulChipID, &stAttr, pucX, pucY);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulBits = ulCamMode == 0 ? g_aulEngrossKeyLen[ulType] : g_aulShareKeyLen[ulType];
    Np_RoomTake(ulBits, Np_LcamKeyBytes(ulType), pucX);
    Np_RoomTake(ulBits, Np_LcamKeyBytes(ulType), pucY);
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_WriteTcam(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                uint32_t ulCamMode, const uint8_t *pucX, const uint8_t *pucY)
{
    const uint32_t ulReturn = Np_Tarn_LCAM_WriteTcamVbit(ulChipID, pstLcamAccessInfo, 0);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                 "[ERROR] Np_Tarn_LCAM_WriteTcamVbit ERROR, ulReturn=0x%08x", ulReturn);
        return NP_ERR_TCAM_ENABLE_SET;
    }
    const NpLcamTcamAttr stAttr = Np_LcamTcamAttr(pstLcamAccessInfo);
    return Np_Tarn_LCAM_WriteTcamOriginal(ulChipID, pstLcamAccessInfo->ulType, ulCamMode, &stAttr,
                                          pucX, pucY);
}

uint32_t Np_Tarn_LCAM_TcamRbaWrite(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                   const uint8_t *pucX, const uint8_t *pucY)
{
    NpLcamAccessMode stMode;
    uint32_t ulReturn = Np_AccessModeGet(ulChipID, pstLcamAccessInfo, &stMode);
    NpLcamAccessInfo stCopy = *pstLcamAccessInfo;
    for (uint32_t i = 0; ulReturn == NP_OK && i < stMode.ulCopies; i++) {
        ulReturn = Np_Tarn_LCAM_WriteTcam(ulChipID, &stCopy, stMode.ulCamMode, pucX, pucY);
        stCopy = Np_Mirror(&stCopy);
    }
    return ulReturn;
}

uint32_t Np_Tarn_LCAM_TcamRbaClear(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo)
{
    NpLcamAccessMode stMode;
    uint32_t ulReturn = Np_AccessModeGet(ulChipID, pstLcamAccessInfo, &stMode);
    NpLcamAccessInfo stCopy = *pstLcamAccessInfo;
    for (uint32_t i = 0; ulReturn == NP_OK && i < stMode.ulCopies; i++) {
        const NpLcamTcamAttr stAttr = Np_LcamTcamAttr(&stCopy);
        ulReturn = Np_Tarn_LCAM_ClearTcam(ulChipID, stCopy.ulType, &stAttr);
        stCopy = Np_Mirror(&stCopy);
    }
    return ulReturn;
}

uint32_t Np_Tarn_LCAM_AdRbaRead(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                void *pvAd)
{
    const uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoCheck(pstLcamAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpLcamTcamAttr stAttr = Np_LcamTcamAttr(pstLcamAccessInfo);
    return Np_Tarn_LCAM_ReadAd(ulChipID, pstLcamAccessInfo->ulType, &stAttr, pvAd);
}

uint32_t Np_Tarn_LCAM_AdRbaWrite(uint32_t ulChipID, const NpLcamAccessInfo *pstLcamAccessInfo,
                                 const void *pvAd)
{
    uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoCheck(pstLcamAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulCopies = 0;
    ulReturn = Np_CopiesGet(ulChipID, pstLcamAccessInfo->ulCid, &ulCopies);
    NpLcamAccessInfo stCopy = *pstLcamAccessInfo;
    for (uint32_t i = 0; ulReturn == NP_OK && i < ulCopies; i++) {
        const NpLcamTcamAttr stAttr = Np_LcamTcamAttr(&stCopy);
        ulReturn = Np_Tarn_LCAM_WriteAd(ulChipID, stCopy.ulType, &stAttr, pvAd);
        stCopy = Np_Mirror(&stCopy);
    }
    return ulReturn;
}

uint32_t Np_Tarn_LCAM_TcamWrite(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                const void *pvKey, const void *pvMask, const void *pvAd)
{
    NP_TRACE(NP_M_LCAM, NP_PRINT_TRACE, "in ulChipID=0x%08x ulTableID=0x%08x ulOffset=0x%08x\r\n",
             ulChipID, ulTableID, ulOffset);
    NpLcamAccessInfo stAccessInfo;
    uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoBulid(ulChipID, ulTableID, ulOffset, &stAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if ((pvKey == nullptr) != (pvMask == nullptr) || (pvKey == nullptr && pvAd == nullptr)) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                 "[ERROR] null ptr error pvKey=0x%08x pvMask=0x%08x pvAd=0x%08x\r\n",
                 Np_Low32(pvKey), Np_Low32(pvMask), Np_Low32(pvAd));
        return NP_ERR_NULL_PTR;
    }
    if (pvAd != nullptr) {
        ulReturn = Np_Tarn_LCAM_AdRbaWrite(ulChipID, &stAccessInfo, pvAd);
        if (ulReturn != NP_OK) {
            NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                     "[ERROR] Np_Tarn_LCAM_AdRbaWrite ERROR , ulReturn=0x%08x\r\n", ulReturn);
            Np_AccessTrace(&stAccessInfo);
            return NP_ERR_LCAM_AD_WRITE;
        }
    }
    if (pvKey == nullptr) {
        return NP_OK;
    }
    uint8_t aucX[NP_LCAM_KEY_MAX];
    uint8_t aucY[NP_LCAM_KEY_MAX];
    Np_Tarn_LCAM_UserToTcamValue(Np_LcamKeyBytes(stAccessInfo.ulType),
                                 static_cast<const uint8_t *>(pvKey),
                                 static_cast<const uint8_t *>(pvMask), aucX, aucY);
    ulReturn = Np_Tarn_LCAM_TcamRbaWrite(ulChipID, &stAccessInfo, aucX, aucY);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                 "[ERROR] Np_Tarn_LCAM_TcamRbaWrite ERROR , ulReturn=0x%08x\r\n", ulReturn);
        Np_AccessTrace(&stAccessInfo);
        return NP_ERR_TCAM_WRITE;
    }
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_TcamRead(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                               void *pvKey, void *pvMask, void *pvAd)
{
    NP_TRACE(NP_M_LCAM, NP_PRINT_TRACE, "in ulChipID=0x%08x ulTableID=0x%08x ulOffset=0x%08x\r\n",
             ulChipID, ulTableID, ulOffset);
    NpLcamAccessInfo stAccessInfo;
    uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoBulid(ulChipID, ulTableID, ulOffset, &stAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pvKey == nullptr && pvMask == nullptr && pvAd == nullptr) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                 "[ERROR] null ptr error! pvKey=0x%08x pvMask=0x%08x  pvAd=0x%08x\r\n", 0u, 0u, 0u);
        return NP_ERR_NULL_PTR;
    }
    uint8_t aucKey[NP_LCAM_KEY_MAX];
    uint8_t aucMask[NP_LCAM_KEY_MAX];
    ulReturn = Np_Tarn_LCAM_TcamRbaRead(ulChipID, &stAccessInfo, aucKey, aucMask);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                 "[ERROR] Np_Tarn_LCAM_TcamRbaRead ERROR, ulReturn=0x%08x\r\n", ulReturn);
        return NP_ERR_TCAM_READ;
    }
    if (pvAd != nullptr) {
        ulReturn = Np_Tarn_LCAM_AdRbaRead(ulChipID, &stAccessInfo, pvAd);
        if (ulReturn != NP_OK) {
            Np_RecordErrInfo(ulChipID, ulReturn, 0);
            NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                     "[ERROR] Qd_LCAM_AdRead ERROR , ulReturn=0x%08x\r\n", ulReturn);
            return NP_ERR_LCAM_AD_READ;
        }
    }
    const uint32_t ulBytes = Np_LcamKeyBytes(stAccessInfo.ulType);
    Np_Tarn_LCAM_TcamToUserValue(ulBytes, aucKey, aucMask, aucKey, aucMask);
    if (pvKey != nullptr) {
        memcpy(pvKey, aucKey, ulBytes);
    }
    if (pvMask != nullptr) {
        memcpy(pvMask, aucMask, ulBytes);
    }
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_TcamDelete(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset)
{
    NpLcamAccessInfo stAccessInfo;
    uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoBulid(ulChipID, ulTableID, ulOffset, &stAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Tarn_LCAM_TcamRbaClear(ulChipID, &stAccessInfo);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                 "[ERROR] Np_Tarn_LCAM_TcamRbaClear ERROR , ulReturn=0x%08x\r\n", ulReturn);
        return NP_ERR_TCAM_CLEAR;
    }
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_TcamDeleteAll(uint32_t ulChipID)
{
    NP_TRACE(NP_M_LCAM, NP_PRINT_TRACE, "in ulChipID=0x%08x\r\n", ulChipID);
    for (uint32_t ulTableID = 0; ulTableID < g_aulNpLcamTableNum[ulChipID]; ulTableID++) {
        const uint32_t ulEntryNum = g_stNpLcamConfig[ulChipID][ulTableID].ulEntryNum;
        for (uint32_t ulOffset = 0; ulOffset < ulEntryNum; ulOffset++) {
            if (ulOffset % NP_LCAM_WATCHDOG_STEP == 0) {
                Np_ClearWatchDog();
            }
            const uint32_t ulReturn = Np_Tarn_LCAM_TcamDelete(ulChipID, ulTableID, ulOffset);
            if (ulReturn != NP_OK) {
                return ulReturn;
            }
        }
    }
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_TcamEnableGet(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                    uint32_t *pulEnable)
{
    NpLcamAccessInfo stAccessInfo;
    uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoBulid(ulChipID, ulTableID, ulOffset, &stAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pulEnable == nullptr) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    ulReturn = Qd_LCAM_TcamEnableGet(ulChipID, &stAccessInfo, pulEnable);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
        return NP_ERR_TCAM_ENABLE_GET;
    }
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_TcamEnableSet(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                    uint32_t ulEnable)
{
    NpLcamAccessInfo stAccessInfo;
    uint32_t ulReturn = Np_Tarn_LCAM_AccessInfoBulid(ulChipID, ulTableID, ulOffset, &stAccessInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (ulEnable > 1) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "enable Para error: 0x%08x \r\n", ulEnable);
        return NP_ERR_PARAM;
    }
    ulReturn = Np_Tarn_LCAM_WriteTcamVbit(ulChipID, &stAccessInfo, ulEnable);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                 "[ERROR] Np_Tarn_LCAM_WriteTcamVbit ERROR, ulReturn=0x%08x", ulReturn);
        return NP_ERR_TCAM_ENABLE_SET;
    }
    return NP_OK;
}

uint32_t Np_Tarn_LCAM_TcamMove(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulSrcOffsetID,
                               uint32_t ulDstOffsetID)
{
    const uint32_t ulReturn = Np_TableCheck(ulChipID, ulTableID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulEntryNum = g_stNpLcamConfig[ulChipID][ulTableID].ulEntryNum;
    if (ulSrcOffsetID >= ulEntryNum) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "param error! ulSrcOffsetID=0x%08x\r\n", ulSrcOffsetID);
        return NP_ERR_PARAM;
    }
    if (ulDstOffsetID >= ulEntryNum) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "param error! ulDstOffsetID=0x%08x\r\n", ulDstOffsetID);
        return NP_ERR_PARAM;
    }
    return Np_EntryMove(ulChipID, ulTableID, ulSrcOffsetID, ulDstOffsetID);
}

// A step that leaves 32 bits ends beyond any table, where the move refuses it.
uint32_t Np_Tarn_LCAM_TcamMoveUp(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                 uint32_t ulMoveStep)
{
    const uint32_t ulDst = ulMoveStep > ulOffset ? UINT32_MAX : ulOffset - ulMoveStep;
    return Np_Tarn_LCAM_TcamMove(ulChipID, ulTableID, ulOffset, ulDst);
}

uint32_t Np_Tarn_LCAM_TcamMoveDown(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                   uint32_t ulMoveStep)
{
    const uint32_t ulDst = ulMoveStep > UINT32_MAX - ulOffset ? UINT32_MAX : ulOffset + ulMoveStep;
    return Np_Tarn_LCAM_TcamMove(ulChipID, ulTableID, ulOffset, ulDst);
}

uint32_t Np_Tarn_LCAM_TcamBlockMoveUp(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                      uint32_t ulBlockNum, uint32_t ulMoveStep)
{
    const uint32_t ulReturn = Np_TableCheck(ulChipID, ulTableID);
    if (ulReturn != NP_OK || ulBlockNum == 0) {
        return ulReturn;
    }
    const uint32_t ulEntryNum = g_stNpLcamConfig[ulChipID][ulTableID].ulEntryNum;
    if (static_cast<uint64_t>(ulOffset) + ulBlockNum > ulEntryNum) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "param error! (ulOffset + ulBlockNum - 1)=0x%08x\r\n",
                 ulOffset + ulBlockNum - 1);
        return NP_ERR_PARAM;
    }
    if (ulMoveStep > ulOffset) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR, "[ERROR] ulOffset=0x%08x ulMoveStep=0x%08x\r\n",
                 ulOffset, ulMoveStep);
        return NP_ERR_PARAM;
    }
    return Np_BlockMove(ulChipID, ulTableID, ulOffset, ulBlockNum, 1, 0 - ulMoveStep);
}

uint32_t Np_Tarn_LCAM_TcamBlockMoveDown(uint32_t ulChipID, uint32_t ulTableID, uint32_t ulOffset,
                                        uint32_t ulBlockNum, uint32_t ulMoveStep)
{
    const uint32_t ulReturn = Np_TableCheck(ulChipID, ulTableID);
    if (ulReturn != NP_OK || ulBlockNum == 0) {
        return ulReturn;
    }
    const uint32_t ulEntryNum = g_stNpLcamConfig[ulChipID][ulTableID].ulEntryNum;
    if (static_cast<uint64_t>(ulOffset) + ulBlockNum + ulMoveStep > ulEntryNum) {
        NP_TRACE(NP_M_LCAM, NP_PRINT_ERROR,
                 "param error! (ulOffset + ulBlockNum + ulMoveStep - 1)=0x%08x\r\n",
                 ulOffset + ulBlockNum + ulMoveStep - 1);
        return NP_ERR_PARAM;
    }
    return Np_BlockMove(ulChipID, ulTableID, ulOffset + ulBlockNum - 1, ulBlockNum, 0u - 1,
                        ulMoveStep);
}
