// Walks over the MAC table and the LAN MAC table: count, show and delete what they hold.
#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/registry.h"
#include "sdk/lookup/eml.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/tree.h"
#include "sdk/tables/arl.h"

namespace {

inline constexpr uint32_t NP_CLASS_LOW = 1;
inline constexpr uint32_t NP_CLASS_HIGH = 2;

// ---- how an entry is shown ----------------------------------------------------------------------

// Parts of a key line, by letter: mac, svlan, cvlan, unmode, 1p, sip, dip, session, vsi, port.
struct NpKeyLine {
    const char *pszName;
    const char *pszCast;
    const char *pszParts;
};
constexpr NpKeyLine g_astKeyLine[] = {
    {"dmac+svlan", "MC", "ms"},   {"sip+dip+svlan", "MC", "iDs"}, {"dip", "MC", "D"},
    {"sip+dip", "MC", "iD"},      {"svlan+dip", "MC", "sD"},      {"svlan+cvlan", "UC", "sc"},
    {"dmac", "UC", "m"},          {"svlan+dip", "UC", "sD"},      {"dmac+svlan", "UC", "ms"},
    {"svlan+cvlan", "MC", "sc"},  {"svlan", "UC", "s"},           {"svlan+1p", "UC", "sp"},
    {"svlan+cvlan", "UC", "scu"}, {"svlan+session", "UC", "mse"}, {"dmac+vsi", "UC", "mv"},
    {"umac+sport", "UC", "m"},
};

void Np_AddressPrint(const char *pszName, uint32_t ulAddress)
{
    Os_Print(", %s=%u.%u.%u.%u", pszName, ulAddress >> 24, ulAddress >> 16 & 0xff,
             ulAddress >> 8 & 0xff, ulAddress & 0xff);
}

void Np_MacPartPrint(const uint8_t *pucMac)
{
    Os_Print(", mac=%02x-%02x-%02x-%02x-%02x-%02x", pucMac[0], pucMac[1], pucMac[2], pucMac[3],
             pucMac[4], pucMac[5]);
}

void Np_KeyPartPrint(char cPart, const NpArlKey *pstKey)
{
    switch (cPart) {
        case 'm':
            Np_MacPartPrint(pstKey->aucMacAddr);
            break;
        case 's':
            Os_Print(", svlan=%u", pstKey->ulSvlanID);
            break;
        case 'c':
            Os_Print(", cvlan=%u", pstKey->ulCvlanID);
            break;
        case 'u':
            Os_Print(" unmode=%u", pstKey->ulScUnMode);
            break;
        case 'p':
            Os_Print(", 1p=%u", pstKey->ulSvlan1p);
            break;
        case 'i':
            Np_AddressPrint("sip", pstKey->ulSip);
            break;
        case 'D':
            Np_AddressPrint("dip", pstKey->ulDip);
            break;
        case 'e':
            Os_Print(", session=%u", pstKey->ulSessionID);
            break;
        default:
            Os_Print(", vsi=%u", pstKey->ulVsi);
            break;
    }
}

constexpr const char *g_apszPortType[] = {"bigport", "gpon",    "epon", "tcont", "llid", "pos",
                                          "ge",      "fe",      "gint", "xaui",  "prbs", "loopback",
                                          "cpu",     "bonding", "xdsl", "trunk"};

void Np_PortPrint(const NpPortID &stPort)
{
    const uint32_t ulTypes = sizeof(g_apszPortType) / sizeof(g_apszPortType[0]);
    Os_Print("\r\n porttype=%s, portid=%u, subportid=%u pri=%u",
             stPort.ulPortType < ulTypes ? g_apszPortType[stPort.ulPortType] : "unknow",
             stPort.ulPortID, stPort.ulSubPortID, stPort.ulPri);
}

void Np_KeyPrint(const NpArlKey *pstKey)
{
    const NpKeyLine &stLine = g_astKeyLine[pstKey->ulType & 0xf];
    Os_Print("\r\n type=%s(%s)", stLine.pszName, stLine.pszCast);
    for (const char *pcPart = stLine.pszParts; *pcPart != 0; pcPart++) {
        Np_KeyPartPrint(*pcPart, pstKey);
    }
    if (pstKey->ulType == NP_ARL_TYPE_PORT) {
        Np_PortPrint(pstKey->stPort);
    }
}

const char *Np_OnOff(uint32_t ulFlag)
{
    return ulFlag != 0 ? "enable" : "disable";
}

void Np_InfoPrint(const NpArlInfo *pstInfo)
{
    if (pstInfo->ulMacType > NP_MAC_DYNAMIC) {
        Os_Print("\r\n mac_type=%s(%u), vas=%u, index=%u", "unknow", pstInfo->ulMacType,
                 pstInfo->ulVas, pstInfo->ulKeyIndex);
        return;
    }
    Os_Print("\r\n mac_type=%s, vas=%u, index=%u",
             pstInfo->ulMacType == NP_MAC_STATIC ? "static" : "dynamic", pstInfo->ulVas,
             pstInfo->ulKeyIndex);
}

void Np_SMD_DFX_Mac_Print(const NpArlKey *pstKey, const NpArlData *pstData,
                          const NpArlInfo *pstInfo)
{
    Np_InfoPrint(pstInfo);
    Np_KeyPrint(pstKey);
    Os_Print("\r\n opcode=%u, intfid=%u, class=%u, iftid=%u", pstData->stLearnData.ulOpCode,
             pstData->stLearnData.ulIntfID, pstData->ulClass, pstData->ulIftID);
    Os_Print("\r\n ");
    if (pstData->ulVmac == 1) {
        Os_Print("vmac=%s, vmacid=%u, ", Np_OnOff(pstData->ulVmac), pstData->ulVmacID);
    }
    Os_Print("l3_fwd=%s", Np_OnOff(pstData->ulL3));
}

void Np_SMD_DFX_LanMac_Print(const NpLanMacKey *pstKey, const NpLanMacData *pstData,
                             const NpLanMacInfo *pstInfo)
{
    const NpArlInfo stInfo = {pstInfo->ulMacType, pstInfo->ulVas, pstInfo->ulKeyIndex};
    Np_InfoPrint(&stInfo);
    const NpKeyLine &stLine = g_astKeyLine[0];
    Os_Print("\r\n type=%s(%s)", stLine.pszName, stLine.pszCast);
    Np_MacPartPrint(pstKey->aucMacAddr);
    Os_Print(", svlan=%u", pstKey->ulSvlanID);
    Os_Print("\r\n L2encId=%u ", pstData->ulL2encId);
}

// ---- the walks ----------------------------------------------------------------------------------

struct NpMacCount {
    uint32_t ulStatic, ulDynamic;
    uint32_t ulLow, ulHigh, ulOther;
    uint32_t ulVmac, ulUmacPort, ulUmac, ulDynamicUmacPort;
};

void Np_Count(const NpArlKey &stKey, const NpArlData &stData, const NpArlInfo &stInfo,
              NpMacCount *pstCount)
{
    (stInfo.ulVas == NP_EML_STATUS_STATIC ? pstCount->ulStatic : pstCount->ulDynamic)++;
    (stData.ulClass == NP_CLASS_LOW    ? pstCount->ulLow
     : stData.ulClass == NP_CLASS_HIGH ? pstCount->ulHigh
                                       : pstCount->ulOther)++;
    if (stKey.ulType == NP_ARL_TYPE_PORT) {
        (stData.ulVmac == 1 ? pstCount->ulUmacPort : pstCount->ulDynamicUmacPort)++;
        return;
    }
    (stData.ulVmac == 1 ? pstCount->ulVmac : pstCount->ulUmac)++;
}

void Np_TotalPrint(const NpMacCount &stCount)
{
    Os_Print("\r\n %10s : %5u", "total", stCount.ulStatic + stCount.ulDynamic);
}

void Np_KindsPrint(const NpMacCount &stCount)
{
    Os_Print("\r\n %10s : %5u, %10s : %5u", "static", stCount.ulStatic, "dynamic",
             stCount.ulDynamic);
}

void Np_MacSummary(const NpMacCount &stCount)
{
    Np_KindsPrint(stCount);
    Os_Print("\r\n %10s : %5u, %10s : %5u, %10s : %5u", "lowclass", stCount.ulLow, "highclass",
             stCount.ulHigh, "unknow", stCount.ulOther);
    Os_Print("\r\n %10s : %5u, %10s : %5u, %10s : %5u", "vmac", stCount.ulVmac, "umac+sport",
             stCount.ulUmacPort, "umac", stCount.ulUmac);
    if (stCount.ulDynamicUmacPort != 0) {
        Os_Print("\r\n %30s : %5u", "dynamic umac+sport mac", stCount.ulDynamicUmacPort);
    }
    Np_TotalPrint(stCount);
}

void Np_LanMacSummary(const NpMacCount &stCount)
{
    Np_KindsPrint(stCount);
    Np_TotalPrint(stCount);
}

// The MAC table and the LAN table as a walk sees them: by place, and then by the key found there.
struct NpArlWalk {
    NpArlKey stKey;
    NpArlData stData;
    NpArlInfo stInfo;

    static uint32_t Places()
    {
        return Np_GLB_CapGet(NP_CAP_ARL_TABLE_SIZE);
    }
    uint32_t Read(uint32_t ulIndex)
    {
        return Np_Tarn_Arl_ArlTbl_GetByIndex(g_ulNpCurrentChipID, ulIndex, &stKey, &stData,
                                             &stInfo);
    }
    uint32_t Find()
    {
        return Np_Tarn_Arl_ArlTbl_Get(g_ulNpCurrentChipID, &stKey, &stData, &stInfo);
    }
    uint32_t Delete()
    {
        return Np_Tarn_Arl_ArlTbl_Del(g_ulNpCurrentChipID, NP_EML_DEL_ANY, &stKey);
    }
    void Count(NpMacCount *pstCount) const
    {
        Np_Count(stKey, stData, stInfo, pstCount);
    }
    void Print() const
    {
        Np_SMD_DFX_Mac_Print(&stKey, &stData, &stInfo);
    }
    static void Summary(const NpMacCount &stCount)
    {
        Np_MacSummary(stCount);
    }
};

struct NpLanMacWalk {
    NpLanMacKey stKey;
    NpLanMacData stData;
    NpLanMacInfo stInfo;

    static uint32_t Places()
    {
        return Np_GLB_CapGet(NP_CAP_LAN_MAC_TABLE_SIZE);
    }
    uint32_t Read(uint32_t ulIndex)
    {
        return Np_Tarn_Arl_LanMacTbl_GetByIndex(g_ulNpCurrentChipID, ulIndex, &stKey, &stData,
                                                &stInfo);
    }
    uint32_t Find()
    {
        return Np_Tarn_Arl_LanMacTbl_Get(g_ulNpCurrentChipID, &stKey, &stData, &stInfo);
    }
    uint32_t Delete()
    {
        return Np_Tarn_Arl_LanMacTbl_Del(g_ulNpCurrentChipID, NP_EML_DEL_ANY, &stKey);
    }
    void Count(NpMacCount *pstCount) const
    {
        (stInfo.ulVas == NP_EML_STATUS_STATIC ? pstCount->ulStatic : pstCount->ulDynamic)++;
    }
    void Print() const
    {
        Np_SMD_DFX_LanMac_Print(&stKey, &stData, &stInfo);
    }
    static void Summary(const NpMacCount &stCount)
    {
        Np_LanMacSummary(stCount);
    }
};

// What a walk needs before it begins: no word left, and a chip. 0, or 1 after the message.
uint32_t Np_WalkBegin()
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    const uint32_t ulReturn = Np_GLB_ChipIDIsValid(g_ulNpCurrentChipID);
    return ulReturn == NP_OK ? 0 : Np_SMD_Report(ulReturn);
}

template <typename Walk>
uint32_t Np_WalkShow(bool bEntries)
{
    if (Np_WalkBegin() != 0) {
        return 1;
    }
    Np_SMD_SeparatorPrint();
    NpMacCount stCount = {};
    for (uint32_t ulIndex = 0; ulIndex < Walk::Places(); ulIndex++) {
        Walk stWalk = {};
        const uint32_t ulReturn = stWalk.Read(ulIndex);
        if (ulReturn != NP_OK) {
            return Np_SMD_Report(ulReturn);
        }
        if (stWalk.stInfo.ulVas == NP_EML_STATUS_EMPTY || stWalk.Find() != NP_OK ||
            stWalk.stInfo.ulVas == NP_EML_STATUS_EMPTY) {
            continue;
        }
        stWalk.Count(&stCount);
        if (bEntries) {
            stWalk.Print();
            Np_SMD_SeparatorPrint();
        }
    }
    Walk::Summary(stCount);
    return Np_SMD_Report(NP_OK);
}

template <typename Walk>
uint32_t Np_WalkDelete()
{
    if (Np_WalkBegin() != 0) {
        return 1;
    }
    for (uint32_t ulIndex = 0; ulIndex < Walk::Places(); ulIndex++) {
        Walk stWalk = {};
        uint32_t ulReturn = stWalk.Read(ulIndex);
        if (ulReturn == NP_OK && stWalk.stInfo.ulVas != NP_EML_STATUS_EMPTY) {
            ulReturn = stWalk.Delete();
        }
        if (ulReturn != NP_OK) {
            return Np_SMD_Report(ulReturn);
        }
    }
    return Np_SMD_Report(NP_OK);
}

}  // namespace

uint32_t Np_SMD_DFX_Mac_DelAll(void)
{
    return Np_WalkDelete<NpArlWalk>();
}

uint32_t Np_SMD_DFX_Mac_DisplayValid(void)
{
    return Np_WalkShow<NpArlWalk>(true);
}

uint32_t Np_SMD_DFX_Mac_Num(void)
{
    return Np_WalkShow<NpArlWalk>(false);
}

uint32_t Np_SMD_DFX_LanMac_DelAll(void)
{
    return Np_WalkDelete<NpLanMacWalk>();
}

uint32_t Np_SMD_DFX_LanMac_DisplayValid(void)
{
    return Np_WalkShow<NpLanMacWalk>(true);
}

uint32_t Np_SMD_DFX_LanMac_Num(void)
{
    return Np_WalkShow<NpLanMacWalk>(false);
}
