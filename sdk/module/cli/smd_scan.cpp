// Readers: one value of the command line by its type.
#include "platform/os.h"
#include "sdk/frame/base/text.h"
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"

namespace {

inline constexpr uint32_t NP_SMD_LIST_SIZE = 512;
inline constexpr uint32_t NP_SMD_IPV6_SIZE = 40;

// What is to be read.
struct NpSmdWant {
    uint32_t ulType;
    const char *pszName;
    int32_t lMin;
    int32_t lMax;
    uint32_t ulKeyID;
    const NpSmdKeyTable *pstTable;  // of the named values
};

template <typename T>
void Np_Store(void *pDst, T Value)
{
    __builtin_memcpy(pDst, &Value, sizeof(Value));
}

void Np_RangePrompt(const char *pszName, int32_t lMin, int32_t lMax)
{
    Os_Print("%s[%d, %d]: \n", pszName, lMin, lMax);
}

// Out of line, so that the list stands on the stack only while it is printed.
[[gnu::noinline]] void Np_EnumPrompt(uint32_t ulKeyID, const NpSmdKeyTable *pstTable)
{
    char acList[NP_SMD_LIST_SIZE];
    Np_PUB_SMD_GetKeyStringCom(ulKeyID, acList, sizeof(acList), pstTable);
    Os_Print("%s<sz>\n", acList);
}

// The form of a word, behind the parameter's name in its prompt.
const char *Np_WordForm(uint32_t ulType)
{
    switch (ulType) {
        case NP_SMD_MAC:
            return "[xx-xx-xx-xx-xx-xx]<sz>:";
        case NP_SMD_IPV4:
            return "[xx.xx.xx.xx]<sz>:";
        case NP_SMD_IPV6:
            return "[xx:xx:xx:xx:xx:xx:xx:xx]<sz>:";
        case NP_SMD_SIGNED:
            return "[plus|minus]<sz>:";
        default:
            return "[please input valid cmd]<sz>:";
    }
}

void Np_WantPrompt(const NpSmdWant *pstWant)
{
    switch (pstWant->ulType) {
        case NP_SMD_NUMBER:
        case NP_SMD_NUMBER16:
        case NP_SMD_CHAR:
            Np_RangePrompt(pstWant->pszName, pstWant->lMin, pstWant->lMax);
            return;
        case NP_SMD_ENUM:
            Np_EnumPrompt(pstWant->ulKeyID, pstWant->pstTable);
            return;
        default:
            Os_Print("%s%s\n", pstWant->pszName, Np_WordForm(pstWant->ulType));
            return;
    }
}

bool Np_ScanIpv6(const char *pszWord, void *pDst)
{
    char acText[NP_SMD_IPV6_SIZE];  // a copy: the conversion cuts its text
    if (NP_StrLen(pszWord) >= sizeof(acText)) {
        return false;
    }
    Np_StrCpy(acText, pszWord);
    uint32_t aulIp[4];
    if (Np_StringIPv6ToULongIP(acText, aulIp) != 0) {
        return false;
    }
    __builtin_memcpy(pDst, aulIp, sizeof(aulIp));
    return true;
}

void Np_StoreText(const char *pszWord, void *pDst)
{
    char *pcText = static_cast<char *>(pDst);
    uint32_t i = 0;
    for (; i < NP_SMD_STRING_SIZE - 1 && pszWord[i] != 0; i++) {
        pcText[i] = pszWord[i];
    }
    pcText[i] = 0;
}

// Reads a value of one word. False, with the word still there, when it is none of the type.
bool Np_ScanWord(const NpSmdWant *pstWant, void *pDst)
{
    uint32_t ulValue = 0;
    if (pstWant->ulType == NP_SMD_NUMBER || pstWant->ulType == NP_SMD_NUMBER16) {
        if (!CLI_CamPeekNumber(&ulValue, 0, UINT32_MAX)) {
            return false;
        }
        if (pstWant->ulType == NP_SMD_NUMBER) {
            Np_Store(pDst, ulValue);
        }
        else {
            Np_Store(pDst, static_cast<uint16_t>(ulValue));
        }
        return true;
    }
    const bool bText = pstWant->ulType == NP_SMD_STRING;
    const bool bAny = bText || pstWant->ulType == NP_SMD_CHAR;
    const char *pszWord =
        CLI_CamPeekString(bText ? 0 : 1, bAny ? NP_SMD_STRING_WORD_MAX : NP_SMD_WORD_MAX);
    if (pszWord == nullptr) {
        return false;
    }
    switch (pstWant->ulType) {
        case NP_SMD_CHAR:
            Np_Store(pDst, static_cast<uint8_t>(pszWord[0]));
            return true;
        case NP_SMD_STRING:
            Np_StoreText(pszWord, pDst);
            return true;
        case NP_SMD_MAC:
            return Np_StringMacToUCharMac(pszWord, static_cast<uint8_t *>(pDst)) == 0;
        case NP_SMD_IPV6:
            return Np_ScanIpv6(pszWord, pDst);
        case NP_SMD_IPV4:
            if (Np_StringIPToULongIP(pszWord, &ulValue) != 0) {
                return false;
            }
            break;
        default:
            if (Np_PUB_SMD_GetKeyValue(pstWant->ulKeyID, pszWord, &ulValue, pstWant->pstTable) !=
                0) {
                return false;
            }
            break;
    }
    Np_Store(pDst, ulValue);
    return true;
}

uint32_t Np_ScanSigned(const NpSmdWant *pstWant, void *pDst)
{
    const char *pszSign = CLI_CamPeekString(1, NP_SMD_WORD_MAX);
    const bool bMinus = pszSign != nullptr && Np_StrCmp(pszSign, "minus") == 0;
    if (pszSign == nullptr || (!bMinus && Np_StrCmp(pszSign, "plus") != 0)) {
        Os_Print("sign%s\n", Np_WordForm(NP_SMD_SIGNED));
        return 1;
    }
    CLI_CamTakeWord();
    uint32_t ulValue = 0;
    if (!CLI_CamPeekNumber(&ulValue, 0, UINT32_MAX)) {
        Np_RangePrompt(pstWant->pszName, pstWant->lMin, pstWant->lMax);
        return 1;
    }
    CLI_CamTakeWord();
    Np_Store(pDst, bMinus ? 0u - ulValue : ulValue);
    return 0;
}

uint32_t Np_ScanWant(const NpSmdWant *pstWant, void *pDst)
{
    switch (pstWant->ulType) {
        case NP_SMD_SIGNED:
            return Np_ScanSigned(pstWant, pDst);
        case NP_SMD_PORT:
            return Np_PUB_SMD_PortGet(g_ulNpCurrentChipID, static_cast<NpPortID *>(pDst));
        case NP_SMD_DATA:
            return Np_PUB_SMD_DataScanf(pstWant->pszName, pDst,
                                        static_cast<uint32_t>(pstWant->lMax));
        default:
            break;
    }
    if (pstWant->ulType < NP_SMD_NUMBER || pstWant->ulType > NP_SMD_DATA) {
        return 1;
    }
    if (!Np_ScanWord(pstWant, pDst)) {
        Np_WantPrompt(pstWant);
        return 1;
    }
    CLI_CamTakeWord();
    return 0;
}

bool Np_IsSkipped(char c)
{
    return c == ' ' || c == '\r' || c == '\n';
}

bool Np_IsEntryEnd(char c)
{
    return c == '|' || c == ':' || c == 0;
}

// The digit's value, or 16 for any other character.
uint32_t Np_HexValue(char c)
{
    if (c >= '0' && c <= '9') {
        return static_cast<uint32_t>(c - '0');
    }
    const char cLower = static_cast<char>(c | 0x20);
    if (cLower >= 'a' && cLower <= 'f') {
        return static_cast<uint32_t>(cLower - 'a') + 10;
    }
    return 16;
}

// Two digits a byte; a last lone digit is the byte's high half. False for any other character, the
// bytes before it stored.
bool Np_ScanBytes(const char *pszWord, uint8_t *pucDst)
{
    for (; *pszWord != 0; pszWord += 2) {
        const uint32_t ulHigh = Np_HexValue(pszWord[0]);
        const uint32_t ulLow = pszWord[1] == 0 ? 0 : Np_HexValue(pszWord[1]);
        if (ulHigh > 15 || ulLow > 15) {
            return false;
        }
        *pucDst++ = static_cast<uint8_t>(ulHigh << 4 | ulLow);
        if (pszWord[1] == 0) {
            break;
        }
    }
    return true;
}

}  // namespace

uint32_t Np_SMD_Com_StringParamGet(const char *pszDefault, const char *pszAllowed, char *pszWord)
{
    if (pszDefault == nullptr || pszAllowed == nullptr || pszWord == nullptr) {
        Np_PUB_SMD_ReturnValue(NP_SMD_ERROR);
        return 1;
    }
    Np_StrCpy(pszWord, pszDefault);
    const char *pszRead = CLI_CamPeekString(1, NP_SMD_WORD_MAX);
    if (pszRead == nullptr) {
        Os_Print("%s<sz>\n", pszAllowed);
        Np_PUB_SMD_ReturnValue(NP_SMD_ERROR);
        return 1;
    }
    Np_StrCpy(pszWord, pszRead);
    CLI_CamTakeWord();
    if (Np_SMD_Com_StringParamCheck(pszWord, pszAllowed) != 0) {
        Np_PUB_SMD_ReturnValue(NP_SMD_ERROR);
        return 1;
    }
    return 0;
}

uint32_t Np_SMD_Com_StringParamCheck(const char *pszWord, const char *pszAllowed)
{
    while (true) {
        const char *psz = pszWord;
        bool bSame = true;
        for (; !Np_IsEntryEnd(*pszAllowed); pszAllowed++) {
            if (Np_IsSkipped(*pszAllowed)) {
                continue;
            }
            bSame = bSame && *psz == *pszAllowed;
            if (bSame) {
                psz++;
            }
        }
        if (bSame && *psz == 0) {
            return 0;
        }
        if (*pszAllowed == 0) {
            return 1;
        }
        pszAllowed++;
    }
}

uint32_t Np_SMD_Com_ValueParamGet(const char *pszName, int32_t lMin, int32_t lMax,
                                  uint32_t *pulValue)
{
    if (pulValue == nullptr) {
        Np_PUB_SMD_ReturnValue(NP_SMD_ERROR);
        return 1;
    }
    uint32_t ulValue = 0;
    if (!CLI_CamPeekNumber(&ulValue, static_cast<uint32_t>(lMin), static_cast<uint32_t>(lMax))) {
        Np_RangePrompt(pszName, lMin, lMax);
        Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_PARAM);
        return 1;
    }
    CLI_CamTakeWord();
    *pulValue = ulValue;
    return 0;
}

uint32_t Np_SMD_Com_SignedValueParamGet(const char *pszName, int32_t lMin, int32_t lMax,
                                        int32_t *plValue)
{
    if (plValue == nullptr) {
        Np_PUB_SMD_ReturnValue(NP_SMD_ERROR);
        return 1;
    }
    if (CLI_NpGetParamLONG(pszName, pszName, NP_SMD_SIGNED, plValue, lMin, lMax) != 0) {
        Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_PARAM);
        return 1;
    }
    return 0;
}

uint32_t Np_PUB_SMD_Scanf(uint32_t ulIndex, void *pDst, const NpSmdKeyTable *pstTable,
                          uint32_t ulKeyID)
{
    const NpSmdKeyItem *pstItem = &pstTable->pstItem[ulIndex];
    const NpSmdWant stWant = {pstItem->ulType, pstItem->szName, pstItem->lMin,
                              pstItem->lMax,   ulKeyID,         pstTable};
    return Np_ScanWant(&stWant, pDst);
}

uint32_t Np_PUB_SMD_Scanf_ex(uint32_t ulType, const char *pszName, int32_t lMin, int32_t lMax,
                             void *pDst)
{
    static constexpr NpSmdKeyTable g_stNoNames = {};
    const NpSmdWant stWant = {ulType, pszName, lMin, lMax, 0, &g_stNoNames};
    return Np_ScanWant(&stWant, pDst);
}

uint32_t Np_PUB_SMD_DataScanf(const char *pszName, void *pDst, uint32_t ulMaxBytes)
{
    if (ulMaxBytes >= NP_SMD_DATA_LIMIT) {
        return 1;
    }
    uint8_t *pucDst = static_cast<uint8_t *>(pDst);
    memset(pucDst, 0, ulMaxBytes);
    const char *pszWord = CLI_CamPeekString(0, 2 * ulMaxBytes);
    if (pszWord == nullptr || !Np_ScanBytes(pszWord, pucDst)) {
        Os_Print("%s\n", pszName);
        return 1;
    }
    CLI_CamTakeWord();
    return 0;
}
