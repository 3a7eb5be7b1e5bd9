#include "sdk/frame/base/text.h"

#include "ldsdk/status.h"

namespace {

inline constexpr uint32_t NP_MAC_TEXT_MAX = 31;
inline constexpr uint32_t NP_IPV6_TEXT_MAX = 39;
inline constexpr uint32_t NP_IPV6_GROUPS = 8;

bool Np_IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The digit's value, or 16 for any other character.
uint32_t Np_DigitValue(char c)
{
    if (c >= '0' && c <= '9') {
        return static_cast<uint32_t>(c - '0');
    }
    if (c >= 'a' && c <= 'f') {
        return static_cast<uint32_t>(c - 'a') + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return static_cast<uint32_t>(c - 'A') + 10;
    }
    return 16;
}

bool Np_OnlyDigitsAnd(const char *pszText, uint32_t ulBase, char cSeparator)
{
    for (; *pszText != 0; pszText++) {
        if (*pszText != ' ' && *pszText != cSeparator && Np_DigitValue(*pszText) >= ulBase) {
            return false;
        }
    }
    return true;
}

// Reads up to ulMax numbers with cSeparator between them, as a scan with that format would.
uint32_t Np_ScanGroups(const char *pszText, uint32_t ulBase, char cSeparator, uint32_t *aulGroup,
                       uint32_t ulMax)
{
    uint32_t ulCount = 0;
    while (ulCount < ulMax && Np_ScanNumber(&pszText, ulBase, &aulGroup[ulCount])) {
        ulCount++;
        if (*pszText != cSeparator) {
            break;
        }
        pszText++;
    }
    return ulCount;
}

bool Np_AllAtMost(const uint32_t *aulGroup, uint32_t ulCount, uint32_t ulLimit)
{
    for (uint32_t i = 0; i < ulCount; i++) {
        if (aulGroup[i] > ulLimit) {
            return false;
        }
    }
    return true;
}

// Checks a text of groups and reads exactly ulCount of them, each at most 255.
bool Np_ScanBytes(const char *pszText, uint32_t ulBase, char cSeparator, uint32_t *aulGroup,
                  uint32_t ulCount)
{
    return NP_StrLen(pszText) <= NP_MAC_TEXT_MAX && Np_OnlyDigitsAnd(pszText, ulBase, cSeparator) &&
           Np_ScanGroups(pszText, ulBase, cSeparator, aulGroup, ulCount) == ulCount &&
           Np_AllAtMost(aulGroup, ulCount, 255);
}

char *Np_FindDoubleColon(char *pszText)
{
    for (; *pszText != 0; pszText++) {
        if (pszText[0] == ':' && pszText[1] == ':') {
            return pszText;
        }
    }
    return nullptr;
}

// Head and tail of a text that had "::" at its cut. False when they do not make an address.
bool Np_ScanAroundCut(const char *pszHead, const char *pszTail, uint32_t *aulGroup)
{
    uint32_t aulTail[NP_IPV6_GROUPS] = {};
    const uint32_t ulHead = Np_ScanGroups(pszHead, 16, ':', aulGroup, NP_IPV6_GROUPS);
    const uint32_t ulTail = Np_ScanGroups(pszTail, 16, ':', aulTail, NP_IPV6_GROUPS);
    if ((*pszHead != 0 && ulHead == 0) || (*pszTail != 0 && ulTail == 0) ||
        ulHead + ulTail > NP_IPV6_GROUPS - 1) {
        return false;
    }
    for (uint32_t i = 0; i < ulTail; i++) {
        aulGroup[NP_IPV6_GROUPS - ulTail + i] = aulTail[i];
    }
    return true;
}

}  // namespace

uint32_t NP_StrLen(const char *pszText)
{
    uint32_t ulLength = 0;
    while (pszText[ulLength] != 0) {
        ulLength++;
    }
    return ulLength;
}

void Np_StrCpy(char *pszTo, const char *pszFrom)
{
    while ((*pszTo++ = *pszFrom++) != 0) {
    }
}

void Np_StrNCpy(char *pszTo, const char *pszFrom, uint32_t ulCount)
{
    Np_MemCpy(pszTo, pszFrom, ulCount);
}

int32_t Np_UcharStrCmp(const uint8_t *pucA, const uint8_t *pucB)
{
    while (*pucA == *pucB) {
        if (*pucA == 0) {
            return 0;
        }
        pucA++;
        pucB++;
    }
    return *pucA < *pucB ? -1 : 1;
}

int32_t Np_StrCmp(const char *pszA, const char *pszB)
{
    return Np_UcharStrCmp(reinterpret_cast<const uint8_t *>(pszA),
                          reinterpret_cast<const uint8_t *>(pszB));
}

void Np_MemCpy(void *pvTo, const void *pvFrom, uint32_t ulSize)
{
    memcpy(pvTo, pvFrom, ulSize);
}

void Np_MemSet(void *pvTo, uint32_t ulValue, uint32_t ulSize)
{
    memset(pvTo, static_cast<int>(ulValue & 0xff), ulSize);
}

int32_t Np_MemCmp(const void *pvA, const void *pvB, uint32_t ulSize)
{
    const int lOrder = memcmp(pvA, pvB, ulSize);
    return lOrder == 0 ? 0 : (lOrder < 0 ? -1 : 1);
}

const char *Np_GetShortFileName(const char *pszPath)
{
    if (pszPath == nullptr) {
        return pszPath;
    }
    const char *pszName = pszPath;
    for (const char *psz = pszPath; *psz != 0; psz++) {
        if (*psz == '/' || *psz == '\\') {
            pszName = psz + 1;
        }
    }
    return pszName;
}

bool Np_ScanNumber(const char **ppszText, uint32_t ulBase, uint32_t *pulValue)
{
    const char *psz = *ppszText;
    while (Np_IsBlank(*psz)) {
        psz++;
    }
    if (ulBase == 16 && psz[0] == '0' && (psz[1] == 'x' || psz[1] == 'X') &&
        Np_DigitValue(psz[2]) < 16) {
        psz += 2;
    }
    if (Np_DigitValue(*psz) >= ulBase) {
        return false;
    }
    uint32_t ulValue = 0;
    for (; Np_DigitValue(*psz) < ulBase; psz++) {
        ulValue = ulValue * ulBase + Np_DigitValue(*psz);
    }
    *pulValue = ulValue;
    *ppszText = psz;
    return true;
}

uint32_t Np_StringMacToUCharMac(const char *pszMac, uint8_t *aucMac)
{
    if (pszMac == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    uint32_t aulGroup[6];
    if (!Np_ScanBytes(pszMac, 16, '-', aulGroup, 6)) {
        return NP_ERR_FAIL;
    }
    for (uint32_t i = 0; i < 6; i++) {
        aucMac[i] = static_cast<uint8_t>(aulGroup[i]);
    }
    return NP_OK;
}

uint32_t Np_StringIPToULongIP(const char *pszIp, uint32_t *pulIp)
{
    if (pszIp == nullptr || pulIp == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    uint32_t aulGroup[4];
    if (!Np_ScanBytes(pszIp, 10, '.', aulGroup, 4)) {
        return NP_ERR_FAIL;
    }
    *pulIp = aulGroup[0] << 24 | aulGroup[1] << 16 | aulGroup[2] << 8 | aulGroup[3];
    return NP_OK;
}

uint32_t Np_StringIPv6ToULongIP(char *pszIp, uint32_t *pulIp)
{
    if (pszIp == nullptr || pulIp == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    const uint32_t ulLength = NP_StrLen(pszIp);
    if (ulLength > NP_IPV6_TEXT_MAX || !Np_OnlyDigitsAnd(pszIp, 16, ':')) {
        return NP_ERR_FAIL;
    }
    if (ulLength != 0 &&
        ((pszIp[0] == ':' && pszIp[1] != ':') ||
         (pszIp[ulLength - 1] == ':' && (ulLength < 2 || pszIp[ulLength - 2] != ':')))) {
        return NP_IPV6_EDGE_COLON;
    }
    uint32_t aulGroup[NP_IPV6_GROUPS] = {};
    char *pszCut = Np_FindDoubleColon(pszIp);
    if (pszCut == nullptr) {
        if (Np_ScanGroups(pszIp, 16, ':', aulGroup, NP_IPV6_GROUPS) != NP_IPV6_GROUPS) {
            return NP_ERR_FAIL;
        }
    }
    else {
        // Looked for one character on, so that ":::" counts as a second one.
        if (Np_FindDoubleColon(pszCut + 1) != nullptr) {
            return NP_ERR_FAIL;
        }
        *pszCut = 0;
        if (!Np_ScanAroundCut(pszIp, pszCut + 2, aulGroup)) {
            return NP_ERR_FAIL;
        }
    }
    if (!Np_AllAtMost(aulGroup, NP_IPV6_GROUPS, 0xffff)) {
        return NP_ERR_FAIL;
    }
    for (uint32_t i = 0; i < 4; i++) {
        pulIp[i] = aulGroup[2 * i] << 16 | aulGroup[2 * i + 1];
    }
    return NP_OK;
}
