#include "sdk/record/table.h"

#include "ldsdk/status.h"
#include "sdk/access/regtable.h"
#include "sdk/frame/text.h"
#include "sdk/frame/trace.h"

namespace {

// An image as the register tables take it: whole words.
struct NpImage {
    uint32_t aulWord[NP_ROW_IMAGE_MAX / 4];
};

uint8_t *Np_Part(const NpTable *pstTable, uint32_t ulPart, NpImage *pstImage)
{
    return reinterpret_cast<uint8_t *>(pstImage->aulWord) + pstTable->astPart[ulPart].usByte;
}

uint32_t Np_RowNumber(const NpTable *pstTable, const uint32_t *pulKey)
{
    return pstTable->pfnRowNumber != nullptr ? pstTable->pfnRowNumber(pulKey) : pulKey[0];
}

inline void Np_EntryTrace(const NpTable *pstTable, uint32_t ulChipID, const uint32_t *pulKey,
                          NpWhere stWhere)
{
    const uint32_t ulModule = pstTable->pstRow->ucModule;
    if (g_stNpSdkModuleSwitch[ulModule][NP_PRINT_TRACE] != 0) [[unlikely]] {
        NP_TRACE_AT(stWhere, ulModule, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
        Np_Row_Trace(pstTable->pstKey, pulKey, stWhere);
    }
}

uint32_t Np_NullRecord(const NpTable *pstTable, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, pstTable->pstRow->ucModule, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

}  // namespace

uint32_t Np_Table_Check(const NpTable *pstTable, uint32_t ulChipID, const uint32_t *pulKey,
                        const void *pvRecord, NpWhere stWhere)
{
    const uint32_t ulReturn = Np_Row_Check(pstTable->pstKey, ulChipID, pulKey, stWhere);
    return ulReturn != NP_OK ? ulReturn
                             : Np_Row_Check(pstTable->pstRow, ulChipID, pvRecord, stWhere);
}

uint32_t Np_Table_BuildPart(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            const void *pvRecord, void *pvImage, NpWhere stWhere)
{
    NpImage stImage;
    const uint32_t ulReturn =
        Np_Row_Build(pstTable->pstRow, ulChipID, pvRecord, stImage.aulWord, stWhere);
    memcpy(pvImage, Np_Part(pstTable, ulPart, &stImage), Np_PartSize(*pstTable, ulPart));
    return ulReturn;
}

// The fields of the other parts keep what the record has.
uint32_t Np_Table_ParsePart(const NpTable *pstTable, uint32_t ulPart, uint32_t ulChipID,
                            const void *pvImage, void *pvRecord, NpWhere stWhere)
{
    NpImage stImage;
    const uint32_t ulReturn =
        Np_Row_Build(pstTable->pstRow, ulChipID, pvRecord, stImage.aulWord, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    memcpy(Np_Part(pstTable, ulPart, &stImage), pvImage, Np_PartSize(*pstTable, ulPart));
    return Np_Row_Parse(pstTable->pstRow, ulChipID, stImage.aulWord, pvRecord, stWhere);
}

uint32_t Np_Table_Set(const NpTable *pstTable, uint32_t ulChipID, const uint32_t *pulKey,
                      const void *pvRecord, NpWhere stWhere)
{
    const uint32_t ulModule = pstTable->pstRow->ucModule;
    Np_EntryTrace(pstTable, ulChipID, pulKey, stWhere);
    if (pvRecord == nullptr) {
        return Np_NullRecord(pstTable, stWhere);
    }
    Np_Row_Trace(pstTable->pstRow, pvRecord, stWhere);
    uint32_t ulReturn = Np_Table_Check(pstTable, ulChipID, pulKey, pvRecord, stWhere);
    if (ulReturn != NP_OK) {
        if (pstTable->bTellsCheck) {
            NP_TRACE_AT(stWhere, ulModule, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n",
                        ulReturn);
        }
        return ulReturn;
    }
    NpImage stImage;
    ulReturn = Np_Row_Build(pstTable->pstRow, ulChipID, pvRecord, stImage.aulWord, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint32_t ulRow = Np_RowNumber(pstTable, pulKey);
    for (uint32_t i = 0; i < pstTable->ucPartNum; i++) {
        const uint32_t ulTableID = pstTable->astPart[i].usTableID;
        ulReturn = Np_RegTableWrite(ulChipID, ulTableID, ulRow, Np_Part(pstTable, i, &stImage));
        if (ulReturn != NP_OK) {
            NP_TRACE_AT(stWhere, ulModule, NP_PRINT_ERROR,
                        "Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n", ulReturn,
                        ulTableID, ulRow);
            return ulReturn;
        }
    }
    return NP_OK;
}

uint32_t Np_Table_Get(const NpTable *pstTable, uint32_t ulChipID, const uint32_t *pulKey,
                      void *pvRecord, NpWhere stWhere)
{
    const uint32_t ulModule = pstTable->pstRow->ucModule;
    Np_EntryTrace(pstTable, ulChipID, pulKey, stWhere);
    if (pvRecord == nullptr) {
        return Np_NullRecord(pstTable, stWhere);
    }
    uint32_t ulReturn = Np_Row_Check(pstTable->pstKey, ulChipID, pulKey, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpImage stImage;
    for (uint32_t i = 0; i < pstTable->pstRow->usImageSize; i += 4) {
        stImage.aulWord[i / 4] = 0;
    }
    const uint32_t ulRow = Np_RowNumber(pstTable, pulKey);
    for (uint32_t i = 0; i < pstTable->ucPartNum; i++) {
        const uint32_t ulTableID = pstTable->astPart[i].usTableID;
        ulReturn = Np_RegTableRead(ulChipID, ulTableID, ulRow, Np_Part(pstTable, i, &stImage));
        if (ulReturn != NP_OK) {
            NP_TRACE_AT(stWhere, ulModule, NP_PRINT_ERROR,
                        "Read error return:0x%08x  ID:0x%08x Offset:0x%08x\r\n", ulReturn,
                        ulTableID, ulRow);
            return ulReturn;
        }
    }
    ulReturn = Np_Row_Parse(pstTable->pstRow, ulChipID, stImage.aulWord, pvRecord, stWhere);
    if (ulReturn == NP_OK) {
        Np_Row_Trace(pstTable->pstRow, pvRecord, stWhere);
    }
    return ulReturn;
}
