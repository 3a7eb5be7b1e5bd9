#include "sdk/record/pritable.h"

#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/lcam.h"

bool Np_PriTable_IsReady(const NpPriTable *pstTable, uint32_t ulChipID)
{
    return pstTable->ppstKeyInfo[ulChipID] != nullptr &&
           pstTable->ppulEntryKey[ulChipID] != nullptr &&
           pstTable->ppstPriPoint[ulChipID] != nullptr;
}

namespace {

struct NpRuleImage {
    uint32_t aulWord[NP_ROW_IMAGE_MAX / 4];
};

uint8_t *Np_Bytes(NpRuleImage *pstImage)
{
    return reinterpret_cast<uint8_t *>(pstImage->aulWord);
}

uint32_t Np_RuleNum(const NpPriTable *pstTable)
{
    return Np_GLB_CapGet(pstTable->enRows);
}

uint32_t Np_WordAt(const void *pvRecord, uint32_t ulOffset)
{
    uint32_t ulWord;
    __builtin_memcpy(&ulWord, static_cast<const uint8_t *>(pvRecord) + ulOffset, sizeof(ulWord));
    return ulWord;
}

void Np_WordPut(void *pvRecord, uint32_t ulOffset, uint32_t ulWord)
{
    __builtin_memcpy(static_cast<uint8_t *>(pvRecord) + ulOffset, &ulWord, sizeof(ulWord));
}

[[gnu::cold]] uint32_t Np_Fails(const NpPriTable *pstTable, NpWhere stWhere, uint32_t ulReturn,
                                const char *pszFormat, uint32_t ulValue = 0, uint32_t ulOther = 0)
{
    if (pszFormat != nullptr) {
        NP_TRACE_AT(stWhere, pstTable->pstRow->ucModule, NP_PRINT_ERROR, pszFormat, ulValue,
                    ulOther);
    }
    return ulReturn;
}

// Traces that something below failed.
uint32_t Np_Passed(const NpPriTable *pstTable, NpWhere stWhere, uint32_t ulReturn)
{
    return ulReturn == NP_OK
               ? NP_OK
               : Np_Fails(pstTable, stWhere, ulReturn, "Func error return: 0x%08x \r\n", ulReturn);
}

NpPriCamSoftInfo Np_Soft(const NpPriTable *pstTable, uint32_t ulChipID)
{
    return {pstTable->ppstKeyInfo[ulChipID], pstTable->ppulEntryKey[ulChipID],
            pstTable->ppstPriPoint[ulChipID], &pstTable->pulUsedNum[ulChipID]};
}

NpPriCamEntryInfo Np_Entry(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                           uint32_t ulPri)
{
    return {pstTable->ucLcamTable, ulKeyID, pstTable->pulPriMax[ulChipID], Np_RuleNum(pstTable) - 1,
            ulPri};
}

// The key number is legal, and its rule is there if it has to be.
uint32_t Np_KeyCheck(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                     NpWhere stWhere)
{
    const uint32_t ulReturn = Np_Row_Check(pstTable->pstKey, ulChipID, &ulKeyID, stWhere);
    if (ulReturn == NP_OK && !Np_PriTable_IsReady(pstTable, ulChipID)) {
        return Np_Fails(pstTable, stWhere, NP_ERR_NULL_PTR, "Para null ptr\r\n");
    }
    return ulReturn;
}

uint32_t Np_RuleFind(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                     uint32_t *pulEntry, NpWhere stWhere)
{
    const uint32_t ulReturn = Np_KeyCheck(pstTable, ulChipID, ulKeyID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    *pulEntry = pstTable->ppstKeyInfo[ulChipID][ulKeyID].ulCamEntry;
    return *pulEntry != NP_PRICAM_NONE
               ? NP_OK
               : Np_Fails(pstTable, stWhere, NP_ERR_NOT_EXIST, pstTable->pszNoRule, ulKeyID);
}

uint32_t Np_PriCheck(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulPri, NpWhere stWhere)
{
    return ulPri <= pstTable->pulPriMax[ulChipID]
               ? NP_OK
               : Np_Fails(pstTable, stWhere, NP_ERR_PARAM, pstTable->pszPri, ulPri);
}

// A rule keeps its priority as long as it stands.
uint32_t Np_OtherPriCheck(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                          uint32_t ulPri, NpWhere stWhere)
{
    const NpPriCamKeyInfo &stKey = pstTable->ppstKeyInfo[ulChipID][ulKeyID];
    return stKey.ulCamEntry == NP_PRICAM_NONE || stKey.ulPri == ulPri
               ? NP_OK
               : Np_Fails(pstTable, stWhere, NP_ERR_PRIORITY, pstTable->pszOther, ulPri,
                          stKey.ulPri);
}

uint32_t *Np_WordsAlloc(uint32_t **ppulWords, uint32_t ulNum)
{
    if (*ppulWords == nullptr) {
        *ppulWords = static_cast<uint32_t *>(Os_Alloc(ulNum * sizeof(uint32_t)));
    }
    return *ppulWords;
}

void Np_WordsFill(uint32_t *pulWords, uint32_t ulNum, uint32_t ulValue)
{
    for (uint32_t i = 0; i < ulNum; i++) {
        pulWords[i] = ulValue;
    }
}

// Empties the soft tables, making those that are missing. false: no memory.
bool Np_SoftReset(const NpPriTable *pstTable, uint32_t ulChipID)
{
    const uint32_t ulNum = Np_RuleNum(pstTable);
    NpPriCamKeyInfo *&pstKeyInfo = pstTable->ppstKeyInfo[ulChipID];
    if (pstKeyInfo == nullptr) {
        pstKeyInfo = static_cast<NpPriCamKeyInfo *>(Os_Alloc(ulNum * sizeof(NpPriCamKeyInfo)));
        pstTable->pulUsedNum[ulChipID] = 0;
    }
    if (pstKeyInfo == nullptr) {
        return false;
    }
    for (uint32_t i = 0; i < ulNum; i++) {
        pstKeyInfo[i] = {NP_PRICAM_NONE, 0};
    }
    if (pstTable->ppulKept != nullptr) {
        if (Np_WordsAlloc(&pstTable->ppulKept[ulChipID], ulNum) == nullptr) {
            return false;
        }
        Np_WordsFill(pstTable->ppulKept[ulChipID], ulNum, 0);
    }
    if (Np_WordsAlloc(&pstTable->ppulEntryKey[ulChipID], ulNum) == nullptr) {
        return false;
    }
    Np_WordsFill(pstTable->ppulEntryKey[ulChipID], ulNum, NP_PRICAM_NONE);
    return true;
}

}  // namespace

uint32_t Np_PriTable_Entry(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID)
{
    return Np_PriTable_IsReady(pstTable, ulChipID) && ulKeyID < Np_RuleNum(pstTable)
               ? pstTable->ppstKeyInfo[ulChipID][ulKeyID].ulCamEntry
               : NP_PRICAM_NONE;
}

uint32_t Np_PriTable_Assign(const NpPriTable *pstTable, uint32_t ulChipID,
                            const NpPriBlock *pstPriBlockInfo, NpWhere stWhere)
{
    if (ulChipID >= NP_CHIP_NUM) {
        return Np_Fails(pstTable, stWhere, NP_ERR_PARAM, "param error! (ulChipID)=0x%08x\r\n",
                        ulChipID);
    }
    if (pstPriBlockInfo == nullptr) {
        return Np_Fails(pstTable, stWhere, NP_ERR_NULL_PTR, "Para null ptr\r\n");
    }
    const uint32_t ulPriNum = pstPriBlockInfo->ulMaxPriNum;
    if (ulPriNum > pstTable->ulPriLimit) {
        return Np_Fails(pstTable, stWhere, NP_ERR_PARAM, pstTable->pszLimit, ulPriNum);
    }
    // The new blocks are laid out beside the old ones, which a bad request leaves in force.
    NpPriBlockPoint stNone = {};
    NpPriBlockPoint *pstPoint = &stNone;
    const bool bLegal = ulPriNum >= 1 && ulPriNum <= NP_PRICAM_PRI_MAX;
    if (bLegal) {
        pstPoint = static_cast<NpPriBlockPoint *>(Os_Alloc(ulPriNum * sizeof(NpPriBlockPoint)));
        if (pstPoint == nullptr) {
            return Np_Fails(pstTable, stWhere, NP_ERR_NO_MEMORY, pstTable->pszNoMemory);
        }
    }
    const uint32_t ulReturn =
        Np_Tarn_PriCam_BlockAssign(ulChipID, Np_RuleNum(pstTable) - 1, pstPriBlockInfo, pstPoint);
    if (ulReturn != NP_OK || !Np_SoftReset(pstTable, ulChipID)) {
        if (bLegal) {
            Os_Free(pstPoint);
        }
        return ulReturn != NP_OK
                   ? Np_Passed(pstTable, stWhere, ulReturn)
                   : Np_Fails(pstTable, stWhere, NP_ERR_NO_MEMORY, pstTable->pszNoMemory);
    }
    Os_Free(pstTable->ppstPriPoint[ulChipID]);
    pstTable->ppstPriPoint[ulChipID] = pstPoint;
    pstTable->pulPriMax[ulChipID] = ulPriNum - 1;
    if (pstTable->ulAssignUsed != 0) {
        pstTable->pulUsedNum[ulChipID] = 0;
    }
    return NP_OK;
}

void Np_PriTable_Free(const NpPriTable *pstTable, uint32_t ulChipID)
{
    const auto Drop = [](auto *&pstMemory) {
        auto *pstGone = pstMemory;
        pstMemory = nullptr;
        Os_Free(pstGone);
    };
    Drop(pstTable->ppstKeyInfo[ulChipID]);
    Drop(pstTable->ppulEntryKey[ulChipID]);
    Drop(pstTable->ppstPriPoint[ulChipID]);
    if (pstTable->ppulKept != nullptr) {
        Drop(pstTable->ppulKept[ulChipID]);
    }
}

uint32_t Np_PriTable_Check(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                           const void *pvRecord, NpWhere stWhere)
{
    uint32_t ulReturn = Np_KeyCheck(pstTable, ulChipID, ulKeyID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pvRecord == nullptr) {
        return Np_Fails(pstTable, stWhere, NP_ERR_NULL_PTR, "Para null ptr\r\n");
    }
    const uint32_t ulPri = Np_WordAt(pvRecord, pstTable->usPri);
    if (pstTable->bPriFirst) {
        ulReturn = Np_PriCheck(pstTable, ulChipID, ulPri, stWhere);
        if (ulReturn == NP_OK) {
            ulReturn = Np_OtherPriCheck(pstTable, ulChipID, ulKeyID, ulPri, stWhere);
        }
        return ulReturn != NP_OK ? ulReturn
                                 : Np_Row_Check(pstTable->pstRow, ulChipID, pvRecord, stWhere);
    }
    ulReturn = Np_Row_Check(pstTable->pstRow, ulChipID, pvRecord, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_PriCheck(pstTable, ulChipID, ulPri, stWhere);
    }
    return ulReturn != NP_OK ? ulReturn
                             : Np_OtherPriCheck(pstTable, ulChipID, ulKeyID, ulPri, stWhere);
}

uint32_t Np_PriTable_Set(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                         const void *pvRecord, NpWhere stWhere)
{
    if (pvRecord == nullptr) {
        return Np_Fails(pstTable, stWhere, NP_ERR_NULL_PTR, "Para null ptr\r\n");
    }
    if (g_stNpSdkModuleSwitch[pstTable->pstRow->ucModule][NP_PRINT_TRACE] != 0) [[unlikely]] {
        Np_Row_Trace(pstTable->pstKey, &ulKeyID, stWhere);
        Np_Row_Trace(pstTable->pstRow, pvRecord, stWhere);
    }
    uint32_t ulReturn = Np_PriTable_Check(pstTable, ulChipID, ulKeyID, pvRecord, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpRuleImage stImage;
    ulReturn = Np_Row_Build(pstTable->pstRow, ulChipID, pvRecord, stImage.aulWord, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint8_t *pucImage = Np_Bytes(&stImage);
    const NpPriCamEntryInfo stEntry =
        Np_Entry(pstTable, ulChipID, ulKeyID, Np_WordAt(pvRecord, pstTable->usPri));
    const NpPriCamSoftInfo stSoft = Np_Soft(pstTable, ulChipID);
    const NpKeyMaskAdInfo stRule = {pucImage, pucImage + pstTable->usMask,
                                    pucImage + pstTable->usAd};
    ulReturn = Np_Tarn_PriCam_KeyAdInfo_Set(ulChipID, &stEntry, &stSoft, &stRule);
    if (ulReturn == NP_OK && pstTable->ppulKept != nullptr) {
        pstTable->ppulKept[ulChipID][ulKeyID] = Np_WordAt(pvRecord, pstTable->usKept);
    }
    return Np_Passed(pstTable, stWhere, ulReturn);
}

uint32_t Np_PriTable_Get(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                         void *pvRecord, NpWhere stWhere)
{
    if (pvRecord == nullptr) {
        return Np_Fails(pstTable, stWhere, NP_ERR_NULL_PTR, "Para null ptr\r\n");
    }
    uint32_t ulEntry = 0;
    uint32_t ulReturn = Np_RuleFind(pstTable, ulChipID, ulKeyID, &ulEntry, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpRuleImage stImage = {};
    uint8_t *pucImage = Np_Bytes(&stImage);
    ulReturn = Np_Tarn_LCAM_TcamRead(ulChipID, pstTable->ucLcamTable, ulEntry, pucImage,
                                     pucImage + pstTable->usMask, pucImage + pstTable->usAd);
    if (ulReturn != NP_OK) {
        return Np_Passed(pstTable, stWhere, ulReturn);
    }
    if (pstTable->ppulKept != nullptr) {
        Np_WordPut(pvRecord, pstTable->usKept, pstTable->ppulKept[ulChipID][ulKeyID]);
    }
    ulReturn = Np_Row_Parse(pstTable->pstRow, ulChipID, stImage.aulWord, pvRecord, stWhere);
    if (ulReturn == NP_OK) {
        Np_WordPut(pvRecord, pstTable->usPri, pstTable->ppstKeyInfo[ulChipID][ulKeyID].ulPri);
        Np_Row_Trace(pstTable->pstRow, pvRecord, stWhere);
    }
    return ulReturn;
}

uint32_t Np_PriTable_Del(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                         NpWhere stWhere)
{
    const uint32_t ulReturn = Np_KeyCheck(pstTable, ulChipID, ulKeyID, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const NpPriCamEntryInfo stEntry = Np_Entry(pstTable, ulChipID, ulKeyID, 0);
    const NpPriCamSoftInfo stSoft = Np_Soft(pstTable, ulChipID);
    return Np_Passed(pstTable, stWhere, Np_Tarn_PriCam_Entry_Del(ulChipID, &stEntry, &stSoft));
}

uint32_t Np_PriTable_StateSet(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                              uint32_t ulState, NpWhere stWhere)
{
    if (ulState > 1) {
        return Np_Fails(pstTable, stWhere, NP_ERR_PARAM, "enable Para error: 0x%08x \r\n", ulState);
    }
    uint32_t ulEntry = 0;
    const uint32_t ulReturn = Np_RuleFind(pstTable, ulChipID, ulKeyID, &ulEntry, stWhere);
    return ulReturn != NP_OK ? ulReturn
                             : Np_Passed(pstTable, stWhere,
                                         Np_Tarn_LCAM_TcamEnableSet(ulChipID, pstTable->ucLcamTable,
                                                                    ulEntry, ulState));
}

uint32_t Np_PriTable_StateGet(const NpPriTable *pstTable, uint32_t ulChipID, uint32_t ulKeyID,
                              uint32_t *pulState, NpWhere stWhere)
{
    if (pulState == nullptr) {
        return Np_Fails(pstTable, stWhere, NP_ERR_NULL_PTR, "Para null ptr\r\n");
    }
    uint32_t ulEntry = 0;
    const uint32_t ulReturn = Np_RuleFind(pstTable, ulChipID, ulKeyID, &ulEntry, stWhere);
    return ulReturn != NP_OK ? ulReturn
                             : Np_Passed(pstTable, stWhere,
                                         Np_Tarn_LCAM_TcamEnableGet(ulChipID, pstTable->ucLcamTable,
                                                                    ulEntry, pulState));
}
