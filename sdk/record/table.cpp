#include "sdk/record/table.h"

#include "ldsdk/status.h"
#include "sdk/access/regtable.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

namespace {

// An image as the register tables take it: whole words.
struct NpImage {
    uint32_t aulWord[NP_ROW_IMAGE_MAX / 4];
};

uint8_t *Np_Part(const NpTable *pstTable, uint32_t ulPart, NpImage *pstImage)
{
    return reinterpret_cast<uint8_t *>(pstImage->aulWord) + pstTable->astPart[ulPart].usByte;
}

inline void Np_EntryTrace(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey,
                          NpWhere stWhere)
{
    const uint32_t ulModule = pstTable->pstRow->ucModule;
    if (g_stNpSdkModuleSwitch[ulModule][NP_PRINT_TRACE] != 0) [[unlikely]] {
        NP_TRACE_AT(stWhere, ulModule, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
        Np_Row_Trace(pstTable->pstKey, pvKey, stWhere);
    }
}

uint32_t Np_NullRecord(const NpTable *pstTable, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, pstTable->pstRow->ucModule, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

// A failed access of a part, with its store's message.
[[gnu::cold]] uint32_t Np_PartFailed(const NpTable *pstTable, const char *pszFormat,
                                     uint32_t ulPart, uint32_t ulRow, uint32_t ulReturn,
                                     NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, pstTable->pstRow->ucModule, NP_PRINT_ERROR, pszFormat, ulReturn,
                static_cast<uint32_t>(pstTable->astPart[ulPart].usID), ulRow);
    return ulReturn;
}

[[gnu::cold]] uint32_t Np_CheckFailed(const NpTable *pstTable, uint32_t ulReturn, NpWhere stWhere)
{
    if (pstTable->bTellsCheck) {
        NP_TRACE_AT(stWhere, pstTable->pstRow->ucModule, NP_PRINT_ERROR,
                    "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

inline uint32_t Np_PlaceOf(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey,
                           uint32_t *pulRow, NpWhere stWhere)
{
    if (pstTable->pfnPlace != nullptr) {
        return pstTable->pfnPlace(ulChipID, pvKey, pulRow, stWhere);
    }
    __builtin_memcpy(pulRow, pvKey, sizeof(*pulRow));
    return NP_OK;
}

// Most rows stand in register tables, which need no call through the store.
inline uint32_t Np_PartRead(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            uint32_t ulRow, uint32_t *pulImage)
{
    const NpTablePart *pstPart = &pstTable->astPart[ulPart];
    uint32_t *pulAt = &pulImage[pstPart->usByte / 4];
    if (pstPart->pstStore == &g_stNpRegTableStore) [[likely]] {
        return Np_RegTableRead(ulChipID, pstPart->usID, ulRow, pulAt);
    }
    return pstPart->pstStore->pfnRead(ulChipID, pstPart, ulRow, Np_PartSize(*pstTable, ulPart),
                                      pulAt);
}

inline uint32_t Np_PartWrite(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                             uint32_t ulRow, const uint32_t *pulImage)
{
    const NpTablePart *pstPart = &pstTable->astPart[ulPart];
    const uint32_t *pulAt = &pulImage[pstPart->usByte / 4];
    if (pstPart->pstStore == &g_stNpRegTableStore) [[likely]] {
        return Np_RegTableWrite(ulChipID, pstPart->usID, ulRow, pulAt);
    }
    return pstPart->pstStore->pfnWrite(ulChipID, pstPart, ulRow, Np_PartSize(*pstTable, ulPart),
                                       pulAt);
}

inline uint32_t Np_PartsRead(const NpTable *pstTable, uint32_t ulChipID, uint32_t ulRow,
                             uint32_t *pulImage, NpWhere stWhere)
{
    for (uint32_t i = 0; i < pstTable->pstRow->usImageSize; i += 4) {
        pulImage[i / 4] = 0;
    }
    for (uint32_t i = 0; i < pstTable->ucPartNum; i++) {
        const uint32_t ulReturn = Np_PartRead(pstTable, i, ulChipID, ulRow, pulImage);
        if (ulReturn != NP_OK) [[unlikely]] {
            return Np_PartFailed(pstTable, pstTable->astPart[i].pstStore->pszReadError, i, ulRow,
                                 ulReturn, stWhere);
        }
    }
    return NP_OK;
}

}  // namespace

uint32_t Np_Table_Place(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey,
                        uint32_t *pulRow, NpWhere stWhere)
{
    return Np_PlaceOf(pstTable, ulChipID, pvKey, pulRow, stWhere);
}

uint32_t Np_Table_Check(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey,
                        const void *pvRecord, NpWhere stWhere)
{
    const uint32_t ulReturn = Np_Row_Check(pstTable->pstKey, ulChipID, pvKey, stWhere);
    return ulReturn != NP_OK ? ulReturn
                             : Np_Row_Check(pstTable->pstRow, ulChipID, pvRecord, stWhere);
}

uint32_t Np_Table_BuildPart(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            const void *pvRecord, void *pvImage, NpWhere stWhere)
{
    if (pvRecord == nullptr || pvImage == nullptr) {
        return Np_NullRecord(pstTable, stWhere);
    }
    NpImage stImage;
    const uint32_t ulReturn =
        Np_Row_Build(pstTable->pstRow, ulChipID, pvRecord, stImage.aulWord, stWhere);
    memcpy(pvImage, Np_Part(pstTable, ulPart, &stImage), Np_PartSize(*pstTable, ulPart));
    return ulReturn;
}

// The fields of the other parts keep what the record has; this part's may hold anything.
uint32_t Np_Table_ParsePart(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            const void *pvImage, void *pvRecord, NpWhere stWhere)
{
    if (pvRecord == nullptr || pvImage == nullptr) {
        return Np_NullRecord(pstTable, stWhere);
    }
    NpImage stImage = {};
    const uint32_t ulBegin = pstTable->astPart[ulPart].usByte;
    const uint32_t ulSize = Np_PartSize(*pstTable, ulPart);
    NpRow stOne = *pstTable->pstRow;
    stOne.usFieldNum = 1;
    stOne.usStoredNum = 1;
    stOne.pstThere = nullptr;
    stOne.pstStraight = nullptr;
    for (uint32_t i = 0; i < pstTable->pstRow->usFieldNum; i++) {
        stOne.pstField = &pstTable->pstRow->pstField[i];
        const uint32_t ulByte = stOne.pstField->usBit / 8u;
        if (ulByte >= ulBegin && ulByte < ulBegin + ulSize) {
            continue;
        }
        const uint32_t ulReturn = Np_Row_Fill(&stOne, ulChipID, pvRecord, stImage.aulWord, stWhere);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    memcpy(Np_Part(pstTable, ulPart, &stImage), pvImage, ulSize);
    return Np_Row_Parse(pstTable->pstRow, ulChipID, stImage.aulWord, pvRecord, stWhere);
}

uint32_t Np_Table_Set(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey,
                      const void *pvRecord, NpWhere stWhere)
{
    Np_EntryTrace(pstTable, ulChipID, pvKey, stWhere);
    if (pvRecord == nullptr || pvKey == nullptr) {
        return Np_NullRecord(pstTable, stWhere);
    }
    Np_Row_Trace(pstTable->pstRow, pvRecord, stWhere);
    uint32_t ulReturn = Np_Table_Check(pstTable, ulChipID, pvKey, pvRecord, stWhere);
    if (ulReturn != NP_OK) {
        return Np_CheckFailed(pstTable, ulReturn, stWhere);
    }
    uint32_t ulRow;
    ulReturn = Np_PlaceOf(pstTable, ulChipID, pvKey, &ulRow, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpImage stImage;
    ulReturn = Np_Row_Build(pstTable->pstRow, ulChipID, pvRecord, stImage.aulWord, stWhere);
    if (ulReturn == NP_OK && pstTable->pfnBuild != nullptr) {
        ulReturn = pstTable->pfnBuild(ulChipID, pvRecord, stImage.aulWord);
    }
    if (ulReturn != NP_OK) {
        return Np_CheckFailed(pstTable, ulReturn, stWhere);
    }
    for (uint32_t i = 0; i < pstTable->ucPartNum; i++) {
        ulReturn = Np_PartWrite(pstTable, i, ulChipID, ulRow, stImage.aulWord);
        if (ulReturn != NP_OK) [[unlikely]] {
            return Np_PartFailed(pstTable, pstTable->astPart[i].pstStore->pszWriteError, i, ulRow,
                                 ulReturn, stWhere);
        }
    }
    if (pstTable->pfnKeep != nullptr) {
        pstTable->pfnKeep(ulChipID, ulRow, pvRecord);
    }
    return NP_OK;
}

uint32_t Np_Table_Read(const NpTable *pstTable, uint32_t ulChipID, uint32_t ulRow, void *pvImage,
                       NpWhere stWhere)
{
    return Np_PartsRead(pstTable, ulChipID, ulRow, static_cast<uint32_t *>(pvImage), stWhere);
}

uint32_t Np_Table_Get(const NpTable *pstTable, uint32_t ulChipID, const void *pvKey, void *pvRecord,
                      NpWhere stWhere)
{
    Np_EntryTrace(pstTable, ulChipID, pvKey, stWhere);
    if (pvRecord == nullptr || pvKey == nullptr) {
        return Np_NullRecord(pstTable, stWhere);
    }
    uint32_t ulReturn = Np_Row_Check(pstTable->pstKey, ulChipID, pvKey, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulRow;
    NpImage stImage;
    ulReturn = Np_PlaceOf(pstTable, ulChipID, pvKey, &ulRow, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_PartsRead(pstTable, ulChipID, ulRow, stImage.aulWord, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstTable->pfnHandIn != nullptr) {
        pstTable->pfnHandIn(ulChipID, ulRow, pvRecord);
    }
    ulReturn = Np_Row_Parse(pstTable->pstRow, ulChipID, stImage.aulWord, pvRecord, stWhere);
    if (ulReturn == NP_OK && pstTable->pfnParse != nullptr) {
        ulReturn = pstTable->pfnParse(ulChipID, stImage.aulWord, pvRecord);
    }
    if (ulReturn == NP_OK) {
        Np_Row_Trace(pstTable->pstRow, pvRecord, stWhere);
    }
    return ulReturn;
}
