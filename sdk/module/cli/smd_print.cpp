// Printers: one value by its type, the menu, the closing lines.
#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/frame/base/error_table.h"
#include "sdk/frame/base/text.h"
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"

// The name column of a field, and the columns of a value that something stands behind.
#define NP_FIELD "\r\n    %-25s:   "
#define NP_VALUE_PAD "%-25"

namespace {

constexpr const char *g_apszClosing[] = {
    "\n\r Command execute success!",  "\n\r Command execute error!",
    "\n\r Invalid command!",          "\n\r Invalid parameter!",
    "\n\r Parameter missed!",         "\n\r Parameter number too many!",
    "\n\r Extend max buffer length!", "\n\r Chip not exist!",
};

// Port type names by ulPortType.
constexpr const char *g_apszPortType[] = {
    "bigport", "gpon", "epon", "tcont",    "llid", "pos",     "ge",   "fe",
    "gint",    "xaui", "prbs", "loopback", "cpu",  "bonding", "xdsl", "trunk",
};

inline constexpr uint32_t NP_DATA_CHUNK = 32;  // bytes of byte data in one print
inline constexpr uint32_t NP_MENU_PER_LINE = 3;

template <typename T>
T Np_Load(const void *pData)
{
    T Value;
    __builtin_memcpy(&Value, pData, sizeof(Value));
    return Value;
}

void Np_NumberPrint(const char *pszName, uint32_t ulValue)
{
    Os_Print(NP_FIELD NP_VALUE_PAD "u(0x%x)", pszName, ulValue, ulValue);
}

void Np_EnumPrint(const char *pszName, uint32_t ulValue, uint32_t ulKeyID,
                  const NpSmdKeyTable *pstTable)
{
    char acText[NP_SMD_WORD_SIZE];
    if (Np_PUB_SMD_GetKeyString(ulKeyID, ulValue, acText, sizeof(acText), pstTable) != 0) {
        // A value with two names: its number says more than either.
        Os_Format(acText, sizeof(acText), "%d", static_cast<int32_t>(ulValue));
    }
    Os_Print(NP_FIELD NP_VALUE_PAD "s(0x%x)", pszName, acText, ulValue);
}

void Np_Ipv6Print(const char *pszName, const void *pData)
{
    uint32_t aulIp[4];
    __builtin_memcpy(aulIp, pData, sizeof(aulIp));
    Os_Print(NP_FIELD "%04x:%04x:%04x:%04x:%04x:%04x:%04x:%04x", pszName, aulIp[0] >> 16,
             aulIp[0] & 0xffff, aulIp[1] >> 16, aulIp[1] & 0xffff, aulIp[2] >> 16,
             aulIp[2] & 0xffff, aulIp[3] >> 16, aulIp[3] & 0xffff);
}

void Np_PortPrint(const NpPortID *pstPort)
{
    if (pstPort->ulPortType < sizeof(g_apszPortType) / sizeof(g_apszPortType[0])) {
        Os_Print("\r\n    porttype                 :   %s", g_apszPortType[pstPort->ulPortType]);
    }
    else {
        Os_Print("\r\n    porttype(%u)             :   unknow", pstPort->ulPortType);
    }
    Os_Print("\r\n    portid                   :   %u", pstPort->ulPortID);
    Os_Print("\r\n    subportid                :   %u", pstPort->ulSubPortID);
    Os_Print("\r\n    pri                      :   %u", pstPort->ulPri);
}

// All types but byte data, whose length the value does not tell.
uint32_t Np_ValuePrint(uint32_t ulType, const char *pszName, const void *pData, uint32_t ulKeyID,
                       const NpSmdKeyTable *pstTable)
{
    const uint8_t *pucData = static_cast<const uint8_t *>(pData);
    uint32_t ulValue = 0;
    switch (ulType) {
        case NP_SMD_NUMBER:
            Np_NumberPrint(pszName, Np_Load<uint32_t>(pData));
            return 0;
        case NP_SMD_NUMBER16:
            Np_NumberPrint(pszName, Np_Load<uint16_t>(pData));
            return 0;
        case NP_SMD_CHAR:
            Np_NumberPrint(pszName, pucData[0]);
            return 0;
        case NP_SMD_SIGNED:
            Os_Print(NP_FIELD NP_VALUE_PAD "d", pszName, Np_Load<int32_t>(pData));
            return 0;
        case NP_SMD_ENUM:
            Np_EnumPrint(pszName, Np_Load<uint32_t>(pData), ulKeyID, pstTable);
            return 0;
        case NP_SMD_MAC:
            Os_Print(NP_FIELD "%02x-%02x-%02x-%02x-%02x-%02x", pszName, pucData[0], pucData[1],
                     pucData[2], pucData[3], pucData[4], pucData[5]);
            return 0;
        case NP_SMD_IPV4:
            ulValue = Np_Load<uint32_t>(pData);
            Os_Print(NP_FIELD "%d.%d.%d.%d", pszName, ulValue >> 24, ulValue >> 16 & 0xff,
                     ulValue >> 8 & 0xff, ulValue & 0xff);
            return 0;
        case NP_SMD_STRING:
            Os_Print(NP_FIELD "%s", pszName, static_cast<const char *>(pData));
            return 0;
        case NP_SMD_IPV6:
            Np_Ipv6Print(pszName, pData);
            return 0;
        case NP_SMD_PORT:
            Np_PortPrint(static_cast<const NpPortID *>(pData));
            return 0;
        default:
            return 1;
    }
}

// Tabs that bring an entry of the menu to the next column, by its length behind the bar.
const char *Np_MenuPad(uint32_t ulLength)
{
    if (ulLength < 6) {
        return "\t\t\t";
    }
    if (ulLength < 14) {
        return "\t\t";
    }
    return ulLength < 22 ? "\t" : "";
}

}  // namespace

uint32_t Np_PUB_SMD_Print(uint32_t ulIndex, const void *pData, const NpSmdKeyTable *pstTable,
                          uint32_t ulKeyID)
{
    const NpSmdKeyItem *pstItem = &pstTable->pstItem[ulIndex];
    if (pstItem->ulType == NP_SMD_DATA) {
        Np_PUB_SMD_DataPrint(pstItem->szName, pData, static_cast<uint32_t>(pstItem->lMax));
        return 0;
    }
    return Np_ValuePrint(pstItem->ulType, pstItem->szName, pData, ulKeyID, pstTable);
}

uint32_t Np_PUB_SMD_Print_ex(uint32_t ulType, const char *pszName, const void *pData)
{
    static constexpr NpSmdKeyTable g_stNoNames = {};
    return Np_ValuePrint(ulType, pszName, pData, 0, &g_stNoNames);
}

void Np_PUB_SMD_DataPrint(const char *pszName, const void *pData, uint32_t ulLen)
{
    const uint8_t *pucData = static_cast<const uint8_t *>(pData);
    Os_Print(NP_FIELD "0x", pszName);
    char acDigits[2 * NP_DATA_CHUNK + 1];
    while (ulLen != 0) {
        uint32_t ulChunk = 0;
        for (; ulChunk < NP_DATA_CHUNK && ulChunk < ulLen; ulChunk++) {
            Os_Format(acDigits + 2 * ulChunk, 3, "%02x", pucData[ulChunk]);
        }
        Os_Print("%s", acDigits);
        pucData += ulChunk;
        ulLen -= ulChunk;
    }
}

uint32_t Np_SMD_MenuEntry(char *pszBuffer, uint32_t ulLen, uint32_t ulBefore,
                          const NpSmdKeyItem *pstItem)
{
    const int lLength = Os_Format(pszBuffer, ulLen, "%02d:%s",
                                  static_cast<int32_t>(pstItem->ulPromptNo), pstItem->szName);
    if (static_cast<uint32_t>(lLength) >= ulLen) {
        Np_PUB_SMD_ReturnValue(NP_SMD_MAX_BUFFER);
        return 1;
    }
    Os_Print("%s| %s%s", ulBefore % NP_MENU_PER_LINE == 0 ? "\r\n" : "", pszBuffer,
             Np_MenuPad(static_cast<uint32_t>(lLength)));
    return 0;
}

void Np_SMD_MenuEnd(uint32_t ulEntries)
{
    Os_Print("%s| end\r\n", ulEntries % NP_MENU_PER_LINE == 0 ? "\r\n" : "");
}

uint32_t Np_PUB_SMD_Prompt(char *pszBuffer, uint32_t ulLen, const NpSmdKeyTable *pstTable)
{
    if (g_ulNpPubPrompt == 0) {
        return 0;
    }
    uint32_t ulEntries = 0;
    for (uint32_t i = 0; i < pstTable->ulItemNum; i++) {
        const NpSmdKeyItem *pstItem = &pstTable->pstItem[i];
        if (pstItem->ulPromptNo == 0) {
            continue;
        }
        if (Np_SMD_MenuEntry(pszBuffer, ulLen, ulEntries, pstItem) != 0) {
            return 1;
        }
        ulEntries++;
    }
    Np_SMD_MenuEnd(ulEntries);
    return 0;
}

void Np_PUB_SMD_ReturnValue(uint32_t ulCode)
{
    if (ulCode < sizeof(g_apszClosing) / sizeof(g_apszClosing[0])) {
        Os_Print("%s", g_apszClosing[ulCode]);
    }
}

void Np_PUB_SMD_PrintReturnValue(uint32_t ulReturn)
{
    const char *pszText = "unknow reason, please check more.";
    for (const NpErrNoDes &stRow : g_astErrNoDes) {
        if (stRow.ulCode == ulReturn) {
            pszText = stRow.pszText;
            break;
        }
    }
    Os_Print("\n\r ulReturn = 0x%08x(%s)", ulReturn, pszText);
}

void Np_SMD_SeparatorPrint(void)
{
    Os_Print("\n\r ----------------------------------------------------------------------");
}

uint32_t Np_SMD_EndCheck(void)
{
    if (CLI_CamIsNoParam() == 0) {
        return 0;
    }
    Np_PUB_SMD_ReturnValue(NP_SMD_ERROR);
    return 1;
}

uint32_t Np_SMD_Report(uint32_t ulReturn)
{
    if (ulReturn != NP_OK) {
        Np_PUB_SMD_PrintReturnValue(ulReturn);
        return 1;
    }
    Np_PUB_SMD_ReturnValue(NP_SMD_SUCCESS);
    return 0;
}
