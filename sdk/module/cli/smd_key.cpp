// Lookups in a command's parameter table.
#include "platform/os.h"
#include "sdk/frame/base/text.h"
#include "sdk/module/cli/smd.h"

namespace {

struct NpEnumMatch {
    const NpSmdKeyEnum *pstRow;  // the first that fits
    uint32_t ulCount;
};

template <typename Fits>
NpEnumMatch Np_EnumFind(uint32_t ulKeyID, const NpSmdKeyTable *pstTable, Fits pfnFits)
{
    NpEnumMatch stMatch = {nullptr, 0};
    for (uint32_t i = 0; i < pstTable->ulEnumNum; i++) {
        const NpSmdKeyEnum *pstRow = &pstTable->pstEnum[i];
        if (pstRow->ulKeyID != ulKeyID || !pfnFits(*pstRow)) {
            continue;
        }
        if (stMatch.pstRow == nullptr) {
            stMatch.pstRow = pstRow;
        }
        stMatch.ulCount++;
    }
    return stMatch;
}

}  // namespace

uint32_t Np_PUB_SMD_KeyIndexMap(uint32_t *pulKey, const NpSmdKeyTable *pstTable)
{
    for (uint32_t i = 0; i < pstTable->ulItemNum; i++) {
        if (pstTable->pstItem[i].ulKeyID == *pulKey) {
            *pulKey = i;
            return 0;
        }
    }
    return 1;
}

uint32_t Np_PUB_SMD_KeyStrCmp(const char *pszWord, uint32_t ulKeyID, const NpSmdKeyTable *pstTable)
{
    uint32_t ulIndex = ulKeyID;
    if (Np_PUB_SMD_KeyIndexMap(&ulIndex, pstTable) != 0) {
        return 1;
    }
    return Np_StrCmp(pszWord, pstTable->pstItem[ulIndex].szName) == 0 ? 0 : 1;
}

uint32_t Np_PUB_SMD_ValidKey(const char *pszWord, const NpSmdKeyTable *pstTable)
{
    uint32_t ulNumber = 0;
    const bool bNumber = Np_PUB_SMD_atoi(pszWord, &ulNumber) == 0;
    uint32_t ulCount = 0;
    for (uint32_t i = 0; i < pstTable->ulItemNum; i++) {
        const NpSmdKeyItem *pstItem = &pstTable->pstItem[i];
        if (pstItem->ulPromptNo == 0) {
            continue;
        }
        if ((bNumber && pstItem->ulPromptNo == ulNumber) ||
            Np_StrCmp(pszWord, pstItem->szName) == 0) {
            ulCount++;
        }
    }
    return ulCount == 1 ? 0 : 1;
}

uint32_t Np_PUB_SMD_atoi(const char *pszWord, uint32_t *pulValue)
{
    if (*pszWord == 0) {
        return 1;
    }
    uint32_t ulValue = 0;
    for (; *pszWord != 0; pszWord++) {
        if (*pszWord < '0' || *pszWord > '9') {
            return 1;
        }
        ulValue = ulValue * 10 + static_cast<uint32_t>(*pszWord - '0');
    }
    *pulValue = ulValue;
    return 0;
}

uint32_t Np_PUB_SMD_GetKeyValue(uint32_t ulKeyID, const char *pszWord, uint32_t *pulValue,
                                const NpSmdKeyTable *pstTable)
{
    uint32_t ulNumber = 0;
    const bool bNumber = Np_PUB_SMD_atoi(pszWord, &ulNumber) == 0;
    const NpEnumMatch stMatch = Np_EnumFind(ulKeyID, pstTable, [&](const NpSmdKeyEnum &stRow) {
        return (bNumber && stRow.ulValue == ulNumber) || Np_StrCmp(stRow.pszText, pszWord) == 0;
    });
    if (stMatch.ulCount > 1 || (stMatch.ulCount == 0 && !bNumber)) {
        return 1;
    }
    *pulValue = stMatch.ulCount == 1 ? stMatch.pstRow->ulValue : ulNumber;
    return 0;
}

uint32_t Np_PUB_SMD_GetKeyString(uint32_t ulKeyID, uint32_t ulValue, char *pszText, uint32_t ulLen,
                                 const NpSmdKeyTable *pstTable)
{
    const NpEnumMatch stMatch = Np_EnumFind(
        ulKeyID, pstTable, [&](const NpSmdKeyEnum &stRow) { return stRow.ulValue == ulValue; });
    if (stMatch.ulCount > 1) {
        return 1;
    }
    if (stMatch.ulCount == 1) {
        Os_Format(pszText, ulLen, "%s", stMatch.pstRow->pszText);
        return 0;
    }
    Os_Format(pszText, ulLen, "%d", static_cast<int32_t>(ulValue));
    return 0;
}

uint32_t Np_PUB_SMD_GetKeyStringCom(uint32_t ulKeyID, char *pszList, uint32_t ulLen,
                                    const NpSmdKeyTable *pstTable)
{
    if (ulLen == 0) {
        return 1;
    }
    pszList[0] = 0;
    uint32_t ulUsed = 0;
    for (uint32_t i = 0; i < pstTable->ulEnumNum; i++) {
        const NpSmdKeyEnum *pstRow = &pstTable->pstEnum[i];
        if (pstRow->ulKeyID != ulKeyID) {
            continue;
        }
        const int lWhole = Os_Format(pszList + ulUsed, ulLen - ulUsed, "%d:%s | ",
                                     static_cast<int32_t>(pstRow->ulValue), pstRow->pszText);
        if (static_cast<uint32_t>(lWhole) >= ulLen - ulUsed) {
            return 1;
        }
        ulUsed += static_cast<uint32_t>(lWhole);
    }
    if (ulUsed == 0) {
        return 1;
    }
    pszList[ulUsed - 1] = 0;
    return 0;
}

void Np_PUB_SMD_SetCfg(uint32_t ulIndex, const char *pszName, int32_t lMin, int32_t lMax,
                       NpSmdKeyItem *pstItem)
{
    Os_Format(pstItem[ulIndex].szName, sizeof(pstItem[ulIndex].szName), "%s", pszName);
    pstItem[ulIndex].lMin = lMin;
    pstItem[ulIndex].lMax = lMax;
}
