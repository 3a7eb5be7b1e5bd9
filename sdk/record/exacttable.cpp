#include "sdk/record/exacttable.h"

#include "ldsdk/status.h"
#include "sdk/lookup/eml.h"

namespace {

uint32_t Np_NullRecord(const NpExactTable &stTable, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, stTable.pstKey->ucModule, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

uint32_t Np_Failed(const NpExactTable &stTable, uint32_t ulReturn, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, stTable.pstKey->ucModule, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n",
                ulReturn);
    return ulReturn;
}

inline void Np_EntryTrace(const NpExactTable &stTable, uint32_t ulChipID, NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, stTable.pstKey->ucModule, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n",
                ulChipID);
}

// All words of an item have room here, also those that a short one has not.
inline void Np_DataClear(const NpExactTable &stTable, NpExactItem &stItem)
{
    for (uint32_t i = 0; i < NP_EXACT_WORDS; i++) {
        stItem.aulWord[i] &= ~stTable.aulDataBits[i];
    }
}

inline uint32_t Np_Built(const NpExactTable &stTable, uint32_t ulReturn, NpWhere stWhere)
{
    return ulReturn != NP_OK && stTable.bTellsBuild ? Np_Failed(stTable, ulReturn, stWhere)
                                                    : ulReturn;
}

// The key of a new item.
inline uint32_t Np_KeyPut(const NpExactTable &stTable, uint32_t ulChipID, const void *pvKey,
                          NpExactItem *pstItem, NpWhere stWhere)
{
    *pstItem = {};
    Np_Exact_StatusSet(&stTable, pstItem->aulWord, NP_EML_STATUS_STATIC);
    return Np_Built(
        stTable, Np_Row_Fill(stTable.pstKey, ulChipID, pvKey, pstItem->aulWord, stWhere), stWhere);
}

// Reads what the table has for a key, if it has to know. What is not there leaves the item as it
// is.
inline uint32_t Np_Look(const NpExactTable &stTable, uint32_t ulChipID, NpExactItem *pstItem)
{
    if (stTable.enLook == NP_LOOK_NONE) {
        return NP_OK;
    }
    const uint32_t ulReturn =
        Np_Tarn_EML_ItemGet(ulChipID, stTable.ulEmlTable, nullptr, nullptr, pstItem->aulWord);
    return ulReturn == NP_ERR_NOT_EXIST || stTable.enLook == NP_LOOK_TRY ? NP_OK : ulReturn;
}

// Tells what an entry that was there has become.
uint32_t Np_Settle(const NpExactTable &stTable, uint32_t ulChipID, const NpExactItem &stOld,
                   bool bGone, NpWhere stWhere)
{
    if (stTable.pfnReplaced == nullptr) {
        return NP_OK;
    }
    const uint32_t ulStatus = Np_Exact_Status(&stTable, stOld.aulWord);
    if (ulStatus == NP_EML_STATUS_EMPTY || ulStatus == NP_EML_STATUS_STATIC) {
        return NP_OK;
    }
    const uint32_t ulReturn = stTable.pfnReplaced(ulChipID, stOld.aulWord, bGone, stWhere);
    return ulReturn == NP_OK ? NP_OK : Np_Failed(stTable, ulReturn, stWhere);
}

// Tests a place and splits it.
uint32_t Np_PlaceTake(const NpExactTable &stTable, uint32_t ulChipID, const uint32_t *pulPlace,
                      NpExactMet *pstMet, NpWhere stWhere)
{
    const bool bLocated = stTable.pstPlace->usRecordSize > sizeof(uint32_t);
    pstMet->ulLocation = bLocated ? pulPlace[0] : static_cast<uint32_t>(NP_EML_IN_TABLE);
    pstMet->ulIndex = pulPlace[bLocated ? 1 : 0];
    return Np_Row_Check(stTable.pstPlace, ulChipID, pulPlace, stWhere);
}

uint32_t Np_PlaceRead(const NpExactTable &stTable, uint32_t ulChipID, const NpExactMet &stMet,
                      NpExactItem *pstItem, NpWhere stWhere)
{
    const uint32_t ulReturn = Np_Tarn_EML_ItemGetByIndex(
        ulChipID, stTable.ulEmlTable, stMet.ulLocation, stMet.ulIndex, pstItem->aulWord);
    return ulReturn == NP_OK ? NP_OK : Np_Failed(stTable, ulReturn, stWhere);
}

}  // namespace

uint32_t Np_Exact_KeyBuild(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvKey,
                           void *pvItem, NpWhere stWhere)
{
    uint32_t *pulItem = static_cast<uint32_t *>(pvItem);
    for (uint32_t i = 0; i < pstTable->ucWords; i++) {
        pulItem[i] &= pstTable->aulDataBits[i];
    }
    Np_Exact_StatusSet(pstTable, pulItem, NP_EML_STATUS_STATIC);
    return Np_Row_Fill(pstTable->pstKey, ulChipID, pvKey, pvItem, stWhere);
}

uint32_t Np_Exact_DataBuild(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvData,
                            void *pvItem, NpWhere stWhere)
{
    uint32_t *pulItem = static_cast<uint32_t *>(pvItem);
    for (uint32_t i = 0; i < pstTable->ucWords; i++) {
        pulItem[i] &= ~pstTable->aulDataBits[i];
    }
    return Np_Row_Fill(pstTable->pstData, ulChipID, pvData, pvItem, stWhere);
}

uint32_t Np_Exact_Add(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvKey,
                      const void *pvData, NpExactMet *pstMet, NpWhere stWhere)
{
    const NpExactTable &stTable = *pstTable;
    Np_EntryTrace(stTable, ulChipID, stWhere);
    if (pvKey == nullptr || pvData == nullptr) {
        return Np_NullRecord(stTable, stWhere);
    }
    Np_Row_Trace(stTable.pstKey, pvKey, stWhere);
    Np_Row_Trace(stTable.pstData, pvData, stWhere);
    uint32_t ulReturn = Np_Row_Check(stTable.pstKey, ulChipID, pvKey, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Check(stTable.pstData, ulChipID, pvData, stWhere);
    }
    NpExactItem stItem;
    if (ulReturn == NP_OK) {
        ulReturn = Np_KeyPut(stTable, ulChipID, pvKey, &stItem, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Look(stTable, ulChipID, &stItem);
    if (ulReturn != NP_OK) {
        return Np_Failed(stTable, ulReturn, stWhere);
    }
    const NpExactItem stOld = stItem;
    Np_Exact_StatusSet(&stTable, stItem.aulWord, NP_EML_STATUS_STATIC);
    Np_DataClear(stTable, stItem);
    ulReturn = Np_Built(
        stTable, Np_Row_Fill(stTable.pstData, ulChipID, pvData, stItem.aulWord, stWhere), stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpExactMet stMet = {};
    ulReturn = Np_Tarn_EML_ItemAdd(ulChipID, stTable.ulEmlTable, &stMet.ulLocation,
                                   pstMet != nullptr ? &stMet.ulIndex : nullptr, stItem.aulWord);
    if (ulReturn != NP_OK) {
        return Np_Failed(stTable, ulReturn, stWhere);
    }
    if (pstMet != nullptr) {
        stMet.ulStatus = NP_EML_STATUS_STATIC;
        *pstMet = stMet;
    }
    return Np_Settle(stTable, ulChipID, stOld, false, stWhere);
}

uint32_t Np_Exact_Get(const NpExactTable *pstTable, uint32_t ulChipID, const void *pvKey,
                      void *pvData, NpExactMet *pstMet, NpWhere stWhere)
{
    const NpExactTable &stTable = *pstTable;
    Np_EntryTrace(stTable, ulChipID, stWhere);
    if (pvKey == nullptr || pvData == nullptr) {
        return Np_NullRecord(stTable, stWhere);
    }
    Np_Row_Trace(stTable.pstKey, pvKey, stWhere);
    uint32_t ulReturn = Np_Row_Check(stTable.pstKey, ulChipID, pvKey, stWhere);
    NpExactItem stItem;
    if (ulReturn == NP_OK) {
        ulReturn = Np_KeyPut(stTable, ulChipID, pvKey, &stItem, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpExactMet stMet = {};
    ulReturn = Np_Tarn_EML_ItemGet(ulChipID, stTable.ulEmlTable, &stMet.ulLocation, &stMet.ulIndex,
                                   stItem.aulWord);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Parse(stTable.pstData, ulChipID, stItem.aulWord, pvData, stWhere);
    }
    if (ulReturn != NP_OK) {
        return Np_Failed(stTable, ulReturn, stWhere);
    }
    stMet.ulStatus = Np_Exact_Status(&stTable, stItem.aulWord);
    *pstMet = stMet;
    Np_Row_Trace(stTable.pstData, pvData, stWhere);
    return NP_OK;
}

uint32_t Np_Exact_Del(const NpExactTable *pstTable, uint32_t ulChipID, uint32_t ulDelType,
                      const void *pvKey, NpWhere stWhere)
{
    const NpExactTable &stTable = *pstTable;
    Np_EntryTrace(stTable, ulChipID, stWhere);
    uint32_t ulReturn = stTable.pstDel == nullptr
                            ? NP_OK
                            : Np_Row_Check(stTable.pstDel, ulChipID, &ulDelType, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pvKey == nullptr) {
        return Np_NullRecord(stTable, stWhere);
    }
    Np_Row_Trace(stTable.pstKey, pvKey, stWhere);
    ulReturn = Np_Row_Check(stTable.pstKey, ulChipID, pvKey, stWhere);
    NpExactItem stItem;
    if (ulReturn == NP_OK) {
        ulReturn = Np_KeyPut(stTable, ulChipID, pvKey, &stItem, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Look(stTable, ulChipID, &stItem);
    if (ulReturn != NP_OK) {
        return Np_Failed(stTable, ulReturn, stWhere);
    }
    const NpExactItem stOld = stItem;
    ulReturn = Np_Tarn_EML_ItemDel(ulChipID, stTable.ulEmlTable, ulDelType, stItem.aulWord);
    if (ulReturn != NP_OK) {
        return Np_Failed(stTable, ulReturn, stWhere);
    }
    // A delete of static entries leaves a learned one, and what it holds, where they are.
    return ulDelType == NP_EML_DEL_STATIC ? NP_OK
                                          : Np_Settle(stTable, ulChipID, stOld, true, stWhere);
}

uint32_t Np_Exact_GetByIndex(const NpExactTable *pstTable, uint32_t ulChipID,
                             const uint32_t *pulPlace, void *pvKey, void *pvData,
                             NpExactMet *pstMet, NpWhere stWhere)
{
    const NpExactTable &stTable = *pstTable;
    Np_EntryTrace(stTable, ulChipID, stWhere);
    if (pvKey == nullptr || pvData == nullptr) {
        return Np_NullRecord(stTable, stWhere);
    }
    NpExactMet stMet;
    NpExactItem stItem = {};
    uint32_t ulReturn = Np_PlaceTake(stTable, ulChipID, pulPlace, &stMet, stWhere);
    if (ulReturn == NP_OK) {
        ulReturn = Np_PlaceRead(stTable, ulChipID, stMet, &stItem, stWhere);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Parse(stTable.pstKey, ulChipID, stItem.aulWord, pvKey, stWhere);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Parse(stTable.pstData, ulChipID, stItem.aulWord, pvData, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    stMet.ulStatus = Np_Exact_Status(&stTable, stItem.aulWord);
    *pstMet = stMet;
    Np_Row_Trace(stTable.pstKey, pvKey, stWhere);
    Np_Row_Trace(stTable.pstData, pvData, stWhere);
    return NP_OK;
}

uint32_t Np_Exact_DelByIndex(const NpExactTable *pstTable, uint32_t ulChipID,
                             const uint32_t *pulPlace, NpWhere stWhere)
{
    const NpExactTable &stTable = *pstTable;
    Np_EntryTrace(stTable, ulChipID, stWhere);
    NpExactMet stMet;
    NpExactItem stOld = {};
    uint32_t ulReturn = Np_PlaceTake(stTable, ulChipID, pulPlace, &stMet, stWhere);
    if (ulReturn == NP_OK && stTable.enLook == NP_LOOK_MUST) {
        ulReturn = Np_PlaceRead(stTable, ulChipID, stMet, &stOld, stWhere);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn =
        Np_Tarn_EML_ItemDelByIndex(ulChipID, stTable.ulEmlTable, stMet.ulLocation, stMet.ulIndex);
    if (ulReturn != NP_OK) {
        return Np_Failed(stTable, ulReturn, stWhere);
    }
    return Np_Settle(stTable, ulChipID, stOld, true, stWhere);
}
