// Commands on the entries of exact-match tables.
#include "ldsdk/status.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/tree.h"

namespace {

inline constexpr uint32_t NP_PLACE_WORDS = 4;  // more than a place or an info has

struct NpExactEntry {
    uint32_t aulPlace[NP_PLACE_WORDS];  // or the kind of entries that a delete is for
    NpKeyRecord stKey;
    NpDataRecord stData;
    uint32_t aulInfo[NP_PLACE_WORDS];
};

// What a call of the table takes behind the words of a place.
struct NpExactArgs {
    void *apvArg[NP_PLACE_WORDS + 3];
};

void Np_EntryPrint(const NpExactTable *pstTable, const NpExactEntry &stEntry, bool bWithKey,
                   bool bWithInfo)
{
    Np_SMD_SeparatorPrint();
    if (bWithInfo && pstTable->pstInfo != nullptr) {
        Np_SMD_RowPrint(pstTable->pstInfo, stEntry.aulInfo);
    }
    if (bWithKey) {
        Np_SMD_RowPrint(pstTable->pstKey, stEntry.stKey.aulWord);
    }
    Np_SMD_RowPrint(pstTable->pstData, stEntry.stData.aulWord);
    Np_SMD_SeparatorPrint();
}

// What no pair names keeps the value that the entry has now, if there is one.
uint32_t Np_EntryAdd(const NpRowCommand *pstCommand, NpExactEntry &stEntry)
{
    void *const apvRead[] = {&stEntry.stKey, &stEntry.stData, &stEntry.aulInfo};
    const uint32_t ulReturn = pstCommand->stRead.pfnCall(g_ulNpCurrentChipID, apvRead);
    if (ulReturn != NP_OK && ulReturn != NP_ERR_NOT_EXIST) {
        return Np_SMD_Report(ulReturn);
    }
    if (Np_SMD_RowScan(pstCommand->pstExact->pstData, stEntry.stData.aulWord, false) != 0 ||
        Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(pstCommand->stCall.pfnCall(g_ulNpCurrentChipID, apvRead));
}

uint32_t Np_EntryGet(const NpRowCommand *pstCommand, NpExactEntry &stEntry, NpExactArgs &stArgs,
                     uint32_t ulPlaceNum)
{
    const uint32_t ulReturn = pstCommand->stCall.pfnCall(g_ulNpCurrentChipID, stArgs.apvArg);
    if (ulReturn == NP_OK) {
        NpSmdParam stParam;  // an entry without data is its key
        const bool bNoData = Np_SMD_RowParam(pstCommand->pstExact->pstData, 0, &stParam) != 0;
        Np_EntryPrint(pstCommand->pstExact, stEntry, ulPlaceNum != 0 || bNoData,
                      pstCommand->stCall.ulArgNum == ulPlaceNum + 3);
    }
    return Np_SMD_Report(ulReturn);
}

}  // namespace

const NpRow *Np_ExactCommandKey(const NpRowCommand *pstCommand)
{
    const NpExactTable *pstTable = pstCommand->pstExact;
    switch (pstCommand->enOp) {
        case NP_EXACT_GET_BY_INDEX:
            return pstTable->pstPlace;
        case NP_EXACT_DEL:
            return pstTable->pstDel;
        case NP_EXACT_DEL_BY_INDEX:
            return nullptr;
        default:
            return pstTable->pstKey;
    }
}

const NpRow *Np_ExactCommandData(const NpRowCommand *pstCommand)
{
    const NpExactTable *pstTable = pstCommand->pstExact;
    switch (pstCommand->enOp) {
        case NP_EXACT_ADD:
            return pstTable->pstData;
        case NP_EXACT_DEL:
            return pstTable->pstKey;
        case NP_EXACT_DEL_BY_INDEX:
            return pstTable->pstPlace;
        default:
            return nullptr;
    }
}

uint32_t Np_SMD_Exact(const NpRowCommand *pstCommand)
{
    const NpExactTable *pstTable = pstCommand->pstExact;
    const NpExactOp enOp = pstCommand->enOp;
    NpExactEntry stEntry = {};
    NpExactArgs stArgs = {};
    uint32_t ulPlaceNum = 0;
    const bool bPlace = enOp == NP_EXACT_GET_BY_INDEX || enOp == NP_EXACT_DEL_BY_INDEX;
    const NpRow *pstFirst = bPlace                 ? pstTable->pstPlace
                            : enOp == NP_EXACT_DEL ? pstTable->pstDel
                                                   : nullptr;
    if (pstFirst != nullptr) {
        ulPlaceNum = pstFirst->usRecordSize / static_cast<uint32_t>(sizeof(uint32_t));
        if (Np_SMD_RowScan(pstFirst, stEntry.aulPlace, true) != 0) {
            return 1;
        }
    }
    if (!bPlace && Np_SMD_RowScan(pstTable->pstKey, stEntry.stKey.aulWord, true) != 0) {
        return 1;
    }
    if (enOp == NP_EXACT_ADD) {
        return Np_EntryAdd(pstCommand, stEntry);
    }
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    void **ppvArg = static_cast<void **>(stArgs.apvArg);
    for (uint32_t i = 0; i < ulPlaceNum; i++) {
        *ppvArg++ = &stEntry.aulPlace[i];
    }
    *ppvArg++ = &stEntry.stKey;
    *ppvArg++ = &stEntry.stData;
    *ppvArg = &stEntry.aulInfo;
    if (enOp == NP_EXACT_GET || enOp == NP_EXACT_GET_BY_INDEX) {
        return Np_EntryGet(pstCommand, stEntry, stArgs, ulPlaceNum);
    }
    return Np_SMD_Report(pstCommand->stCall.pfnCall(g_ulNpCurrentChipID, stArgs.apvArg));
}
