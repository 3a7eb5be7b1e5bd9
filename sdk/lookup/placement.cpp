#include "sdk/lookup/placement.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/trace.h"

namespace {

bool Np_AnyNull(const NpPriCamEntryInfo *pstPriCamEntryInfo,
                const NpPriCamSoftInfo *pstPriCamSoftInfo)
{
    return pstPriCamEntryInfo == nullptr || pstPriCamSoftInfo == nullptr ||
           pstPriCamSoftInfo->pstKeyInfo == nullptr || pstPriCamSoftInfo->pulTcamInfo == nullptr ||
           pstPriCamSoftInfo->pstPriPoint == nullptr || pstPriCamSoftInfo->pulUsedNum == nullptr;
}

bool Np_HasGap(const NpPriCamEntryInfo *pstPriCamEntryInfo,
               const NpPriCamSoftInfo *pstPriCamSoftInfo, uint32_t ulPri)
{
    const NpPriBlockPoint *pstPoint = &pstPriCamSoftInfo->pstPriPoint[ulPri];
    if (pstPoint->ulTopPoint == NP_PRICAM_BELOW) {
        return false;
    }
    if (ulPri == pstPriCamEntryInfo->ulMaxPri) {
        return true;
    }
    const uint32_t ulNextBot = pstPoint[1].ulBotPoint;
    return ulNextBot == NP_PRICAM_BELOW || pstPoint->ulTopPoint > ulNextBot;
}

// Tells whether the priority's next offset is free and only empty blocks sit on it. A block with
// rules that begins there has a hole at its start, which a failed delete left.
bool Np_IsUnderEmptyBlocks(const NpPriCamEntryInfo *pstPriCamEntryInfo,
                           const NpPriCamSoftInfo *pstPriCamSoftInfo)
{
    const NpPriBlockPoint *pstPoint = pstPriCamSoftInfo->pstPriPoint;
    uint32_t ulPri = pstPriCamEntryInfo->ulPri;
    const uint32_t ulFree = pstPoint[ulPri].ulTopPoint;
    if (ulFree == NP_PRICAM_BELOW || pstPriCamSoftInfo->pulTcamInfo[ulFree] != NP_PRICAM_NONE) {
        return false;
    }
    do {
        ulPri++;
    } while (ulPri <= pstPriCamEntryInfo->ulMaxPri && pstPoint[ulPri].ulTopPoint == ulFree &&
             pstPoint[ulPri].ulBotPoint == ulFree);
    return ulPri > pstPriCamEntryInfo->ulMaxPri || pstPoint[ulPri].ulBotPoint != ulFree;
}

// Moves the rule at an offset to a free one; the soft tables follow. A hole that a failed delete
// left has no rule to move.
uint32_t Np_RuleMove(const NpPriCamStore *pstStore, const NpPriCamSoftInfo *pstPriCamSoftInfo,
                     uint32_t ulSrc, uint32_t ulDst, NpWhere stWhere = Np_Here())
{
    const uint32_t ulKeyID = pstPriCamSoftInfo->pulTcamInfo[ulSrc];
    if (ulKeyID == NP_PRICAM_NONE) {
        return NP_OK;
    }
    const uint32_t ulReturn = pstStore->pfnMove(pstStore, ulSrc, ulDst);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n",
                    ulReturn);
        return ulReturn;
    }
    pstPriCamSoftInfo->pstKeyInfo[ulKeyID].ulCamEntry = ulDst;
    pstPriCamSoftInfo->pulTcamInfo[ulSrc] = NP_PRICAM_NONE;
    pstPriCamSoftInfo->pulTcamInfo[ulDst] = ulKeyID;
    return NP_OK;
}

// Rotates a block by one row towards the higher offsets: its lowest rule goes in front of it.
uint32_t Np_BlockRaise(const NpPriCamStore *pstStore, const NpPriCamEntryInfo *pstPriCamEntryInfo,
                       const NpPriCamSoftInfo *pstPriCamSoftInfo, uint32_t ulPri,
                       NpWhere stWhere = Np_Here())
{
    NpPriBlockPoint *pstPoint = &pstPriCamSoftInfo->pstPriPoint[ulPri];
    const uint32_t ulTop = pstPoint->ulTopPoint + 1;
    const uint32_t ulBot = pstPoint->ulBotPoint + 1;
    if (ulTop != ulBot) {
        const uint32_t ulReturn = Np_RuleMove(pstStore, pstPriCamSoftInfo, ulTop, ulBot, stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    const uint32_t ulMax = pstPriCamEntryInfo->ulTcamMaxEntry;
    pstPoint->ulTopPoint = ulTop > ulMax ? ulMax : ulTop;
    pstPoint->ulBotPoint = ulBot > ulMax ? ulMax : ulBot;
    return NP_OK;
}

// And towards offset 0: its highest rule goes behind it.
uint32_t Np_BlockLower(const NpPriCamStore *pstStore, const NpPriCamSoftInfo *pstPriCamSoftInfo,
                       uint32_t ulPri, NpWhere stWhere = Np_Here())
{
    NpPriBlockPoint *pstPoint = &pstPriCamSoftInfo->pstPriPoint[ulPri];
    if (pstPoint->ulTopPoint != pstPoint->ulBotPoint) {
        const uint32_t ulReturn = Np_RuleMove(pstStore, pstPriCamSoftInfo, pstPoint->ulBotPoint,
                                              pstPoint->ulTopPoint, stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    if (pstPoint->ulTopPoint != NP_PRICAM_BELOW) {
        pstPoint->ulTopPoint--;
    }
    if (pstPoint->ulBotPoint != NP_PRICAM_BELOW) {
        pstPoint->ulBotPoint--;
    }
    return NP_OK;
}

}  // namespace

uint32_t Np_Placement_Layout(uint32_t ulChipID, uint32_t ulTcamMaxEntry,
                             const NpPriBlock *pstPriBlockInfo, NpPriBlockPoint *pstPriBlockPoint,
                             NpWhere stWhere)
{
    if (pstPriBlockInfo == nullptr || pstPriBlockPoint == nullptr) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    const uint32_t ulMaxPriNum = pstPriBlockInfo->ulMaxPriNum;
    if (ulMaxPriNum == 0 || ulMaxPriNum > NP_PRICAM_PRI_MAX) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR,
                    "ulChipID=0x%08x, ulMaxPriNum=0x%08x \r\n", ulChipID, ulMaxPriNum);
        return NP_ERR_PARAM;
    }
    uint64_t ullTotal = 0;  // 32 bits could wrap to 100
    for (uint32_t ulPri = 0; ulPri < ulMaxPriNum; ulPri++) {
        ullTotal += pstPriBlockInfo->ulPriPercent[ulPri];
    }
    if (ullTotal != 100) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR,
                    "ulChipID=0x%08x, ulTotalPriPercent=0x%08x \r\n", ulChipID,
                    static_cast<uint32_t>(ullTotal));
        return NP_ERR_PARAM;
    }
    uint32_t ulPoint = ulTcamMaxEntry;
    for (uint32_t ulPri = 0; ulPri < ulMaxPriNum; ulPri++) {
        const uint32_t ulPercent = pstPriBlockInfo->ulPriPercent[ulPri];
        pstPriBlockPoint[ulPri] = {ulPercent, ulPoint, ulPoint};
        const uint32_t ulEntries = ulPercent * (ulTcamMaxEntry + 1) / 100;
        ulPoint = ulEntries > ulPoint ? 0 : ulPoint - ulEntries;
    }
    return NP_OK;
}

void Np_Tarn_PriCam_FreeEntry_PointChange(const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                          const NpPriCamSoftInfo *pstPriCamSoftInfo)
{
    NpPriBlockPoint *pstPoint = pstPriCamSoftInfo->pstPriPoint;
    const uint32_t ulFree = pstPoint[pstPriCamEntryInfo->ulPri].ulTopPoint;
    if (ulFree == NP_PRICAM_BELOW) {
        return;
    }
    for (uint32_t ulPri = pstPriCamEntryInfo->ulPri + 1; ulPri <= pstPriCamEntryInfo->ulMaxPri;
         ulPri++) {
        if (pstPoint[ulPri].ulTopPoint != ulFree || pstPoint[ulPri].ulBotPoint != ulFree) {
            return;
        }
        pstPoint[ulPri].ulTopPoint = ulFree - 1;
        pstPoint[ulPri].ulBotPoint = ulFree - 1;
    }
}

uint32_t Np_Tarn_PriCam_FreeEntry_SearchDirect(const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                               const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                               uint32_t *pulFreeTcamEntry)
{
    const uint32_t ulPri = pstPriCamEntryInfo->ulPri;
    const uint32_t ulFree = pstPriCamSoftInfo->pstPriPoint[ulPri].ulTopPoint;
    if (!Np_HasGap(pstPriCamEntryInfo, pstPriCamSoftInfo, ulPri)) {
        if (!Np_IsUnderEmptyBlocks(pstPriCamEntryInfo, pstPriCamSoftInfo)) {
            NP_TRACE(NP_M_PRICAM, NP_PRINT_ERROR, "direct search fail!\r\n");
            return NP_ERR_FAIL;
        }
        Np_Tarn_PriCam_FreeEntry_PointChange(pstPriCamEntryInfo, pstPriCamSoftInfo);
    }
    *pulFreeTcamEntry = ulFree;
    NP_TRACE(NP_M_PRICAM, NP_PRINT_TRACE, "Get freeTcamEntry directly *pulFreeTcamEntry=0x%08x\r\n",
             ulFree);
    return NP_OK;
}

uint32_t Np_Tarn_PriCam_FreeEntry_SearchFwd(const NpPriCamStore *pstStore,
                                            const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                            const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                            uint32_t *pulFreeTcamEntry)
{
    const uint32_t ulPri = pstPriCamEntryInfo->ulPri;
    uint32_t ulLast = ulPri;  // the nearest block that shifts, next to the one with room
    while (ulLast > 0 && !Np_HasGap(pstPriCamEntryInfo, pstPriCamSoftInfo, ulLast - 1)) {
        ulLast--;
    }
    if (ulLast == 0) {
        NP_TRACE(NP_M_PRICAM, NP_PRINT_ERROR, "fwd search fail!\r\n");
        return NP_ERR_FAIL;
    }
    for (uint32_t i = ulLast; i <= ulPri; i++) {
        const uint32_t ulReturn = Np_BlockRaise(pstStore, pstPriCamEntryInfo, pstPriCamSoftInfo, i);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    *pulFreeTcamEntry = pstPriCamSoftInfo->pstPriPoint[ulPri].ulTopPoint;
    NP_TRACE(NP_M_PRICAM, NP_PRINT_TRACE,
             "Get freeTcamEntry through move from high pri to low pri*pulFreeTcamEntry=0x%08x\r\n",
             *pulFreeTcamEntry);
    return NP_OK;
}

uint32_t Np_Tarn_PriCam_FreeEntry_SearchBack(const NpPriCamStore *pstStore,
                                             const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                             const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                             uint32_t *pulFreeTcamEntry)
{
    const uint32_t ulPri = pstPriCamEntryInfo->ulPri;
    uint32_t ulLast = ulPri;
    while (ulLast <= pstPriCamEntryInfo->ulMaxPri &&
           !Np_HasGap(pstPriCamEntryInfo, pstPriCamSoftInfo, ulLast)) {
        ulLast++;
    }
    if (ulLast > pstPriCamEntryInfo->ulMaxPri) {
        NP_TRACE(NP_M_PRICAM, NP_PRINT_ERROR, "backward search fail!\r\n");
        return NP_ERR_FAIL;
    }
    for (uint32_t i = ulLast; i > ulPri; i--) {
        const uint32_t ulReturn = Np_BlockLower(pstStore, pstPriCamSoftInfo, i);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    *pulFreeTcamEntry = pstPriCamSoftInfo->pstPriPoint[ulPri].ulTopPoint;
    NP_TRACE(NP_M_PRICAM, NP_PRINT_TRACE,
             "Get freeTcamEntry through move from low pri to high pri*pulFreeTcamEntry=0x%08x\r\n",
             *pulFreeTcamEntry);
    return NP_OK;
}

uint32_t Np_Placement_Assign(const NpPriCamStore *pstStore,
                             const NpPriCamEntryInfo *pstPriCamEntryInfo,
                             const NpPriCamSoftInfo *pstPriCamSoftInfo, uint32_t *pulFreeTcamEntry,
                             NpWhere stWhere)
{
    if (Np_AnyNull(pstPriCamEntryInfo, pstPriCamSoftInfo) || pulFreeTcamEntry == nullptr) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    uint32_t ulReturn = NP_ERR_FAIL;
    if (*pstPriCamSoftInfo->pulUsedNum <= pstPriCamEntryInfo->ulTcamMaxEntry) {
        ulReturn = Np_Tarn_PriCam_FreeEntry_SearchDirect(pstPriCamEntryInfo, pstPriCamSoftInfo,
                                                         pulFreeTcamEntry);
        if (ulReturn == NP_ERR_FAIL) {
            ulReturn = Np_Tarn_PriCam_FreeEntry_SearchFwd(pstStore, pstPriCamEntryInfo,
                                                          pstPriCamSoftInfo, pulFreeTcamEntry);
        }
        if (ulReturn == NP_ERR_FAIL) {
            ulReturn = Np_Tarn_PriCam_FreeEntry_SearchBack(pstStore, pstPriCamEntryInfo,
                                                           pstPriCamSoftInfo, pulFreeTcamEntry);
        }
    }
    if (ulReturn == NP_ERR_FAIL) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR, "KEY tbl has been use out!\r\n");
        return NP_ERR_TABLE_FULL;
    }
    return ulReturn;
}

void Np_Tarn_PriCam_NewKeySoftInfo_Save(const NpPriCamEntryInfo *pstPriCamEntryInfo,
                                        const NpPriCamSoftInfo *pstPriCamSoftInfo,
                                        uint32_t ulOffset, uint32_t ulNew)
{
    const uint32_t ulPri = pstPriCamEntryInfo->ulPri;
    if (ulNew != 0) {
        NpPriBlockPoint *pstPoint = &pstPriCamSoftInfo->pstPriPoint[ulPri];
        if (pstPoint->ulTopPoint != NP_PRICAM_BELOW) {
            pstPoint->ulTopPoint--;
        }
        if (*pstPriCamSoftInfo->pulUsedNum <= pstPriCamEntryInfo->ulTcamMaxEntry) {
            (*pstPriCamSoftInfo->pulUsedNum)++;
        }
    }
    pstPriCamSoftInfo->pstKeyInfo[pstPriCamEntryInfo->ulKeyID] = {ulOffset, ulPri};
    pstPriCamSoftInfo->pulTcamInfo[ulOffset] = pstPriCamEntryInfo->ulKeyID;
}

uint32_t Np_Placement_Set(const NpPriCamStore *pstStore,
                          const NpPriCamEntryInfo *pstPriCamEntryInfo,
                          const NpPriCamSoftInfo *pstPriCamSoftInfo,
                          const NpKeyMaskAdInfo *pstKeyMaskAdInfo, NpWhere stWhere)
{
    if (Np_AnyNull(pstPriCamEntryInfo, pstPriCamSoftInfo) || pstKeyMaskAdInfo == nullptr ||
        pstKeyMaskAdInfo->pvKey == nullptr || pstKeyMaskAdInfo->pvMask == nullptr ||
        pstKeyMaskAdInfo->pvAd == nullptr) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    uint32_t ulOffset = pstPriCamSoftInfo->pstKeyInfo[pstPriCamEntryInfo->ulKeyID].ulCamEntry;
    const uint32_t ulNew = ulOffset == NP_PRICAM_NONE ? 1 : 0;
    uint32_t ulReturn = NP_OK;
    if (ulNew != 0) {
        ulReturn = Np_Placement_Assign(pstStore, pstPriCamEntryInfo, pstPriCamSoftInfo, &ulOffset,
                                       stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    ulReturn = pstStore->pfnWrite(pstStore, ulOffset, pstKeyMaskAdInfo);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n",
                    ulReturn);
        return ulReturn;
    }
    Np_Tarn_PriCam_NewKeySoftInfo_Save(pstPriCamEntryInfo, pstPriCamSoftInfo, ulOffset, ulNew);
    return NP_OK;
}

uint32_t Np_Placement_Del(const NpPriCamStore *pstStore,
                          const NpPriCamEntryInfo *pstPriCamEntryInfo,
                          const NpPriCamSoftInfo *pstPriCamSoftInfo, NpWhere stWhere)
{
    if (Np_AnyNull(pstPriCamEntryInfo, pstPriCamSoftInfo)) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    NpPriCamKeyInfo *pstKey = &pstPriCamSoftInfo->pstKeyInfo[pstPriCamEntryInfo->ulKeyID];
    const uint32_t ulOffset = pstKey->ulCamEntry;
    if (ulOffset == NP_PRICAM_NONE) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR,
                    "Delete invalid Key entry! ulKeyID=0x%08x\r\n", pstPriCamEntryInfo->ulKeyID);
        return NP_OK;
    }
    uint32_t ulReturn = pstStore->pfnDelete(pstStore, ulOffset);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_PRICAM, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n",
                    ulReturn);
        return ulReturn;
    }
    pstKey->ulCamEntry = NP_PRICAM_NONE;
    pstPriCamSoftInfo->pulTcamInfo[ulOffset] = NP_PRICAM_NONE;

    NpPriBlockPoint *pstPoint = &pstPriCamSoftInfo->pstPriPoint[pstKey->ulPri];
    const uint32_t ulLowest = pstPoint->ulTopPoint + 1;
    if (ulLowest != ulOffset) {
        ulReturn = Np_RuleMove(pstStore, pstPriCamSoftInfo, ulLowest, ulOffset, stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    const uint32_t ulMax = pstPriCamEntryInfo->ulTcamMaxEntry;
    pstPoint->ulTopPoint = ulLowest > ulMax ? ulMax : ulLowest;
    if (*pstPriCamSoftInfo->pulUsedNum > 0) {
        (*pstPriCamSoftInfo->pulUsedNum)--;
    }
    return NP_OK;
}
