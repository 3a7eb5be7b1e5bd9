#include "sdk/tables/port_other.h"

#include "ldsdk/status.h"
#include "sdk/access/portid.h"
#include "sdk/access/smem.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/eml.h"
#include "sdk/record/describe.h"
#include "sdk/tables/port.h"

namespace {

inline constexpr uint32_t NP_ATM_TABLE = 22;
inline constexpr uint32_t NP_ATM_BASE = 0x60266000;  // rows of 16 bytes, the last PVC's item first
inline constexpr uint32_t NP_ATM_PITCH = 16;
inline constexpr uint32_t NP_ATM_FIRST = 14;
inline constexpr uint32_t NP_ATM_PORT_MASK = 0x1ff;
inline constexpr uint32_t NP_IP_UDP_TABLE = 94;

constexpr NpSmdKeyEnum g_astPvcWords[] = {
    {0, "eth", 0},         {0, "ch_eth", 1},       {0, "ppp", 2},         {0, "ch_ppp", 3},
    {0, "eth_dsa", 4},     {0, "eth_higi", 5},     {0, "atm_cell", 6},    {0, "rsvd", 7},
    {0, "ipoa_llc", 8},    {0, "1483b_llc", 9},    {0, "pppoa_llc", 10},  {0, "aoe", 11},
    {0, "ipoa_vcmax", 12}, {0, "1483b_vcmax", 13}, {0, "pppoa_vcmax", 14}};

namespace atm_row {
using R = NpPortAtmEncap;
constexpr NpField g_astField[] = {
    NP_F_EACH(astPvcEnc, ulPvcEnc, .stAt = {14, 3, 0}, .sStep = -16, .stWords = g_astPvcWords)};
constexpr NpCheck g_astCheck[] = {
    NP_C_EACH(astPvcEnc, ulPvcEnc, Np_Most(15), .pszText = "astPvcEnc[ulPvcEncIndex].ulPvcEnc")};
}  // namespace atm_row

namespace pvc_key {
using R = NpPvcKey;
constexpr NpField g_astField[] = {NP_F(stPort, .pszKey = "port"), NP_F(ulPvcIndex)};
constexpr NpCheck g_astCheck[] = {NP_C(ulPvcIndex, Np_Below(8))};
}  // namespace pvc_key

namespace pvc_row {
using R = NpPortPvcEnc;
constexpr NpField g_astField[] = {NP_F(ulPvcEnc, .stAt = {0, 3, 0}, .stWords = g_astPvcWords)};
constexpr NpCheck g_astCheck[] = {NP_C(ulPvcEnc, Np_Below(16))};
}  // namespace pvc_row

namespace ip_udp_key {
struct R {
    uint32_t ulCesTunnelId;
};
constexpr NpField g_astField[] = {NP_F(ulCesTunnelId, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulCesTunnelId, Np_BelowCap(NP_CAP_IP_UDP_ROWS))};
}  // namespace ip_udp_key

namespace ip_udp_row {
using R = NpPortIpUdpEncapInfo;
constexpr NpField g_astField[] = {
    NP_F(ulTos, .stAt = {15, 7, 0}),
    NP_F(ulTtl, .stAt = {14, 7, 0}),
    NP_F(ulSip, .stAt = {8, 31, 0}, .ucType = NP_SMD_IPV4),
    NP_F(ulDip, .stAt = {4, 31, 0}, .ucType = NP_SMD_IPV4),
    NP_F(ulSport, .stAt = {2, 15, 0}),
    NP_F(ulDport, .stAt = {0, 15, 0}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulTos, Np_Below(256)),
    NP_C(ulTtl, Np_Below(256)),
    NP_C(ulSport, Np_Below(0x10000)),
    NP_C(ulDport, Np_Below(0x10000)),
};
}  // namespace ip_udp_row

// Modes that have a key and data of their own.
inline constexpr uint32_t NP_PW = 1u << 0;
inline constexpr uint32_t NP_LSP = 1u << 1;
inline constexpr uint32_t NP_CONNECT = 1u << 2;
inline constexpr uint32_t NP_DPORT = 1u << 3;
inline constexpr uint32_t NP_MODE_LAST = 3;
constexpr auto g_astModeWords = Np_Words("pw", "lsp", "ctid", "dport");

namespace cesop_key {
using R = NpPortCesopKey;
constexpr auto g_astDirectionWords = Np_Words("up", "down");
constexpr NpField g_astField[] = {
    Np_Const({15, 7, 4}, 0xf),
    NP_F(ulDirection, .stAt = {15, 0, 0}, .stWords = g_astDirectionWords),
    NP_F(ulEncapMode, .stAt = {14, 7, 4}, .stWords = g_astModeWords),
    NP_F(unCesopEnacpKey.stCesopEncapKeyPw.ulPwID, .stAt = {12, 19, 0},
         .pstWhen = NP_WHEN(ulEncapMode, NP_PW)),
    NP_F(unCesopEnacpKey.stCesopEncapKeyLsp.ulPwID, .stAt = {12, 19, 0},
         .pstWhen = NP_WHEN(ulEncapMode, NP_LSP)),
    NP_F(unCesopEnacpKey.stCesopEncapKeyConnectID.ulConnectID, .stAt = {12, 11, 0},
         .pstWhen = NP_WHEN(ulEncapMode, NP_CONNECT)),
    NP_F(unCesopEnacpKey.stCesopEncapKeyDport.ulUdpDport, .stAt = {12, 15, 0},
         .pstWhen = NP_WHEN(ulEncapMode, NP_DPORT)),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulDirection, Np_Below(2)),
    NP_C(ulEncapMode, Np_Below(16)),
    NP_C(unCesopEnacpKey.stCesopEncapKeyPw.ulPwID, Np_MostCap(NP_CAP_CESOP_KEY_MAX),
         .pstWhen = NP_WHEN(ulEncapMode, NP_PW)),
    NP_C(unCesopEnacpKey.stCesopEncapKeyLsp.ulPwID, Np_MostCap(NP_CAP_CESOP_KEY_MAX),
         .pstWhen = NP_WHEN(ulEncapMode, NP_LSP)),
    NP_C(unCesopEnacpKey.stCesopEncapKeyConnectID.ulConnectID, Np_Below(4096),
         .pstWhen = NP_WHEN(ulEncapMode, NP_CONNECT)),
    NP_C(unCesopEnacpKey.stCesopEncapKeyDport.ulUdpDport, Np_Below(0x10000),
         .pstWhen = NP_WHEN(ulEncapMode, NP_DPORT)),
};
}  // namespace cesop_key

namespace cesop_data {
using R = NpPortCesopData;
// A label's four fields, from bit 4 of a byte up: TTL, bottom of stack, 3 bits and the label. Modes
// 0 and 1 have the pseudo wire's at byte 7, mode 1 another around it at byte 3.
#define NP_LABEL(Member, Label, Prefix, ucByte, ulModes)                                        \
    NP_F(unCesopEnacpData.Member.Label, .stAt = {ucByte, 35, 16}, .pszKey = Prefix #Label,      \
         .pstWhen = NP_WHEN(ulEncapMode, ulModes)),                                             \
        NP_F(unCesopEnacpData.Member.ulExp, .stAt = {ucByte, 15, 13}, .pszKey = Prefix "ulExp", \
             .pstWhen = NP_WHEN(ulEncapMode, ulModes)),                                         \
        NP_F(unCesopEnacpData.Member.ulIsStackBottom, .stAt = {ucByte, 12, 12},                 \
             .pszKey = Prefix "ulIsStackBottom", .pstWhen = NP_WHEN(ulEncapMode, ulModes)),     \
        NP_F(unCesopEnacpData.Member.ulTtl, .stAt = {ucByte, 11, 4}, .pszKey = Prefix "ulTtl",  \
             .pstWhen = NP_WHEN(ulEncapMode, ulModes))
#define NP_LABEL_CHECK(Member, Label, enMax, ulModes)                         \
    NP_C(unCesopEnacpData.Member.Label, Np_MostCap(enMax),                    \
         .pstWhen = NP_WHEN(ulEncapMode, ulModes)),                           \
        NP_C(unCesopEnacpData.Member.ulExp, Np_MostCap(NP_CAP_CESOP_EXP_MAX), \
             .pstWhen = NP_WHEN(ulEncapMode, ulModes)),                       \
        NP_C(unCesopEnacpData.Member.ulTtl, Np_MostCap(NP_CAP_CESOP_TTL_MAX), \
             .pstWhen = NP_WHEN(ulEncapMode, ulModes)),                       \
        NP_C(unCesopEnacpData.Member.ulIsStackBottom, Np_Flag(NP_SAY_BOOL),   \
             .pstWhen = NP_WHEN(ulEncapMode, ulModes))
constexpr NpField g_astField[] = {
    NP_F(ulEncapMode, .stAt = {1, 3, 0}, .stWords = g_astModeWords),
    NP_F(ulFlowID, .stAt = {0, 27, 12}),
    NP_LABEL(pstCesopEnacpDataPw, ulPwID, "", 7, NP_PW),
    NP_LABEL(pstCesopEnacpDataLsp, ulLabelID, "", 3, NP_LSP),
    NP_LABEL(pstCesopEnacpDataLsp.stPw, ulPwID, "pw_", 7, NP_LSP),
    NP_F(unCesopEnacpData.pstCesopEnacpDataConnectID.ulTpID, .stAt = {9, 19, 4},
         .pstWhen = NP_WHEN(ulEncapMode, NP_CONNECT)),
    NP_F(unCesopEnacpData.pstCesopEnacpDataConnectID.stInnerVlan.ulPri, .stAt = {9, 3, 1},
         .pstWhen = NP_WHEN(ulEncapMode, NP_CONNECT), .bCut = true),
    NP_F(unCesopEnacpData.pstCesopEnacpDataConnectID.stInnerVlan.ulCfi, .stAt = {9, 0, 0},
         .pstWhen = NP_WHEN(ulEncapMode, NP_CONNECT), .bCut = true),
    NP_F(unCesopEnacpData.pstCesopEnacpDataConnectID.stInnerVlan.ulVlanID, .stAt = {7, 15, 4},
         .pstWhen = NP_WHEN(ulEncapMode, NP_CONNECT), .bCut = true),
    NP_F(unCesopEnacpData.pstCesopEnacpDataDport.ulCesTunnelId, .stAt = {7, 11, 4},
         .pstWhen = NP_WHEN(ulEncapMode, NP_DPORT)),
    NP_F(unCesopEnacpData.pstCesopEnacpDataDport.ulCwLen, .stAt = {9, 19, 4},
         .pstWhen = NP_WHEN(ulEncapMode, NP_DPORT)),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulEncapMode, Np_Below(16)),
    NP_C(ulFlowID, Np_BelowCap(NP_CAP_FLOW_NUM)),
    NP_LABEL_CHECK(pstCesopEnacpDataPw, ulPwID, NP_CAP_CESOP_KEY_MAX, NP_PW),
    NP_LABEL_CHECK(pstCesopEnacpDataLsp, ulLabelID, NP_CAP_CESOP_LABEL_MAX, NP_LSP),
    NP_LABEL_CHECK(pstCesopEnacpDataLsp.stPw, ulPwID, NP_CAP_CESOP_KEY_MAX, NP_LSP),
    NP_C(unCesopEnacpData.pstCesopEnacpDataConnectID.ulTpID, Np_Below(0x10000),
         .pstWhen = NP_WHEN(ulEncapMode, NP_CONNECT)),
    NP_C(unCesopEnacpData.pstCesopEnacpDataDport.ulCesTunnelId, Np_BelowCap(NP_CAP_IP_UDP_ROWS),
         .pstWhen = NP_WHEN(ulEncapMode, NP_DPORT)),
    NP_C(unCesopEnacpData.pstCesopEnacpDataDport.ulCwLen, Np_MostCap(NP_CAP_CESOP_CW_MAX),
         .pstWhen = NP_WHEN(ulEncapMode, NP_DPORT)),
};
}  // namespace cesop_data

namespace cesop_index {
using R = NpIndexArg;
constexpr NpField g_astField[] = {NP_F(ulIndex, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulIndex, Np_BelowCap(NP_CAP_CESOP_ROWS))};
constexpr NpRow g_stRow = Np_RowMake<NpIndexArg>({.ucModule = NP_M_PORT}, g_astField, g_astCheck);
}  // namespace cesop_index

// An entry of the map: data, key and status.
struct NpCesopItem {
    uint32_t aulWord[4];
};

uint32_t Np_NullRecord(NpWhere stWhere)
{
    NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_ERROR, "Para null ptr\r\n");
    return NP_ERR_NULL_PTR;
}

uint32_t Np_Told(uint32_t ulReturn, NpWhere stWhere)
{
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

// Traces, tests and builds a key.
uint32_t Np_CesopKey(uint32_t ulChipID, const NpPortCesopKey *pstKey, NpCesopItem *pstItem,
                     NpWhere stWhere)
{
    Np_Row_Trace(&g_stCesopKeyRow, pstKey, stWhere);
    const uint32_t ulReturn = Np_Row_Check(&g_stCesopKeyRow, ulChipID, pstKey, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstKey->ulEncapMode > NP_MODE_LAST) {  // told and let through
        NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_ERROR,
                    "[ERROR]Encap Mode Error!!! ulEncapMode = 0x%08x\r\n", pstKey->ulEncapMode);
    }
    return Np_Row_Build(&g_stCesopKeyRow, ulChipID, pstKey, pstItem->aulWord, stWhere);
}

// A port's number, after its check.
uint32_t Np_AtmPort(uint32_t ulChipID, const void *pvPort, uint32_t *pulRow, NpWhere stWhere)
{
    NpPortID stPort;
    __builtin_memcpy(&stPort, pvPort, sizeof(stPort));
    const uint32_t ulReturn = Np_PortID2PhyID(ulChipID, &stPort, pulRow);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_ERROR,
                    "phy ID calculate failed! ulReturn=0x%08x\r\n", ulReturn);
        return ulReturn;
    }
    *pulRow &= NP_ATM_PORT_MASK;
    return NP_OK;
}

// Tests port and PVC and gives the address of the PVC's item, in 16-bit units.
uint32_t Np_PvcAddr(uint32_t ulChipID, const NpPortID *pstPortID, uint32_t ulPvcIndex,
                    uint32_t *pulAddr, NpWhere stWhere)
{
    const NpPvcKey stKey = {*pstPortID, ulPvcIndex};
    uint32_t ulReturn = Np_Row_Check(&g_stPvcKeyArgs, ulChipID, &stKey, stWhere);
    uint32_t ulRow = 0;
    if (ulReturn == NP_OK) {
        ulReturn = Np_AtmPort(ulChipID, pstPortID, &ulRow, stWhere);
    }
    *pulAddr = (NP_ATM_BASE + NP_ATM_PITCH * ulRow + NP_ATM_FIRST - 2 * ulPvcIndex) >> 1 &
               NP_SMEM_ADDR_MASK;
    return ulReturn;
}

}  // namespace

constexpr NpRow g_stAtmEncapRow =
    Np_RowMake<NpPortAtmEncap>({.ucModule = NP_M_PORT, .pszArg = "pstAtmEncap", .usImageSize = 16},
                               atm_row::g_astField, atm_row::g_astCheck);
constexpr NpRow g_stPvcKeyArgs =
    Np_RowMake<NpPvcKey>({.ucModule = NP_M_PORT}, pvc_key::g_astField, pvc_key::g_astCheck);
constexpr NpRow g_stPvcEncRow =
    Np_RowMake<NpPortPvcEnc>({.ucModule = NP_M_PORT, .pszArg = "pstPvcEnc", .usImageSize = 2},
                             pvc_row::g_astField, pvc_row::g_astCheck);
constexpr NpRow g_stIpUdpKeyRow = Np_RowMake<ip_udp_key::R>(
    {.ucModule = NP_M_PORT}, ip_udp_key::g_astField, ip_udp_key::g_astCheck);
constexpr NpRow g_stIpUdpRow = Np_RowMake<NpPortIpUdpEncapInfo>(
    {.ucModule = NP_M_PORT, .pszArg = "pstIpUdpEnacpInfo", .usImageSize = 16},
    ip_udp_row::g_astField, ip_udp_row::g_astCheck);
constexpr NpRow g_stCesopKeyRow = Np_RowMake<NpPortCesopKey>(
    {.ucModule = NP_M_PORT, .pszArg = "pstCesopMapKey", .usImageSize = 16}, cesop_key::g_astField,
    cesop_key::g_astCheck);
constexpr NpRow g_stCesopDataRow = Np_RowMake<NpPortCesopData>(
    {.ucModule = NP_M_PORT, .pszArg = "pstCesopMapData", .usImageSize = 16}, cesop_data::g_astField,
    cesop_data::g_astCheck);
constexpr NpTable g_stAtmEncapTable =
    Np_TableOf(g_stPortKey, g_stAtmEncapRow, {.pfnPlace = Np_AtmPort}, Np_RegPart(NP_ATM_TABLE));
constexpr NpTable g_stIpUdpTable = Np_TableMake(g_stIpUdpKeyRow, g_stIpUdpRow, NP_IP_UDP_TABLE);

extern "C" {

NP_KEYED_SET(Np_Tarn_AtmEncapTbl_Set, NpPortID, NpPortAtmEncap, g_stAtmEncapTable)
NP_KEYED_GET(Np_Tarn_AtmEncapTbl_Get, NpPortID, NpPortAtmEncap, g_stAtmEncapTable)
NP_TABLE_SET(Np_Tarn_IpUdpEncapInfoTbl_Set, NpPortIpUdpEncapInfo, g_stIpUdpTable)
NP_TABLE_GET(Np_Tarn_IpUdpEncapInfoTbl_Get, NpPortIpUdpEncapInfo, g_stIpUdpTable)

uint32_t Np_Tarn_AtmEncapTblPvcItem_Set(uint32_t ulChipID, const NpPortID *pstPortID,
                                        uint32_t ulPvcIndex, const NpPortPvcEnc *pstPvcEnc)
{
    if (pstPortID == nullptr || pstPvcEnc == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    Np_Row_Trace(&g_stPvcEncRow, pstPvcEnc);
    uint32_t ulReturn = Np_Row_Check(&g_stPortKey, ulChipID, pstPortID);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Check(&g_stPvcEncRow, ulChipID, pstPvcEnc);
    }
    uint32_t ulAddr;
    if (ulReturn == NP_OK) {
        ulReturn = Np_PvcAddr(ulChipID, pstPortID, ulPvcIndex, &ulAddr, Np_Here());
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    const uint8_t aucItem[2] = {static_cast<uint8_t>(pstPvcEnc->ulPvcEnc), 0};
    return Np_Told(Np_Tarn_SmemWrite(ulChipID, 0, NP_SMEM_LEN_16, ulAddr, aucItem), Np_Here());
}

uint32_t Np_Tarn_AtmEncapTblPvcItem_Get(uint32_t ulChipID, const NpPortID *pstPortID,
                                        uint32_t ulPvcIndex, NpPortPvcEnc *pstPvcEnc)
{
    if (pstPortID == nullptr || pstPvcEnc == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    uint32_t ulReturn = Np_Row_Check(&g_stPortKey, ulChipID, pstPortID);
    uint32_t ulAddr;
    if (ulReturn == NP_OK) {
        ulReturn = Np_PvcAddr(ulChipID, pstPortID, ulPvcIndex, &ulAddr, Np_Here());
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulItem = 0;
    ulReturn = Np_Tarn_SmemRead(ulChipID, 0, NP_SMEM_LEN_16, ulAddr, &ulItem);
    return ulReturn != NP_OK ? Np_Told(ulReturn, Np_Here())
                             : Np_Row_Parse(&g_stPvcEncRow, ulChipID, &ulItem, pstPvcEnc);
}

uint32_t Np_Tarn_CesopMapTbl_Set(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                 const NpPortCesopData *pstCesopMapData)
{
    if (pstCesopMapKey == nullptr || pstCesopMapData == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    NpCesopItem stItem;
    uint32_t ulReturn = Np_CesopKey(ulChipID, pstCesopMapKey, &stItem, Np_Here());
    if (ulReturn == NP_OK) {
        Np_Row_Trace(&g_stCesopDataRow, pstCesopMapData);
        ulReturn = Np_Row_Check(&g_stCesopDataRow, ulChipID, pstCesopMapData);
    }
    if (ulReturn == NP_OK) {
        ulReturn = Np_Row_Fill(&g_stCesopDataRow, ulChipID, pstCesopMapData, stItem.aulWord);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t ulLocation;
    return Np_Told(
        Np_Tarn_EML_ItemAdd(ulChipID, NP_EML_CESOP_MAP, &ulLocation, nullptr, stItem.aulWord),
        Np_Here());
}

uint32_t Np_Tarn_CesopMapTbl_Get(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                 NpPortCesopData *pstCesopMapData)
{
    if (pstCesopMapKey == nullptr || pstCesopMapData == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    NpCesopItem stItem;
    uint32_t ulReturn = Np_CesopKey(ulChipID, pstCesopMapKey, &stItem, Np_Here());
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Tarn_EML_ItemGet(ulChipID, NP_EML_CESOP_MAP, nullptr, nullptr, stItem.aulWord);
    return ulReturn != NP_OK
               ? Np_Told(ulReturn, Np_Here())
               : Np_Row_Parse(&g_stCesopDataRow, ulChipID, stItem.aulWord, pstCesopMapData);
}

uint32_t Np_Tarn_CesopMapTbl_Del(uint32_t ulChipID, const NpPortCesopKey *pstCesopMapKey,
                                 const NpPortCesopData *)
{
    if (pstCesopMapKey == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    NpCesopItem stItem;
    const uint32_t ulReturn = Np_CesopKey(ulChipID, pstCesopMapKey, &stItem, Np_Here());
    return ulReturn != NP_OK ? ulReturn
                             : Np_Told(Np_Tarn_EML_ItemDel(ulChipID, NP_EML_CESOP_MAP,
                                                           NP_EML_DEL_ANY, stItem.aulWord),
                                       Np_Here());
}

uint32_t Np_Tarn_CesopMapTbl_GetByIndex(uint32_t ulChipID, uint32_t ulIndex,
                                        NpPortCesopKey *pstCesopMapKey,
                                        NpPortCesopData *pstCesopMapData, uint32_t *pulStatus)
{
    if (pstCesopMapKey == nullptr || pstCesopMapData == nullptr) {
        return Np_NullRecord(Np_Here());
    }
    uint32_t ulReturn = Np_Row_Check(&cesop_index::g_stRow, ulChipID, &ulIndex);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpCesopItem stItem = {};
    ulReturn = Np_Tarn_EML_ItemGetByIndex(ulChipID, NP_EML_CESOP_MAP, NP_EML_IN_TABLE, ulIndex,
                                          stItem.aulWord);
    if (ulReturn != NP_OK) {
        return Np_Told(ulReturn, Np_Here());
    }
    if (pulStatus != nullptr) {
        *pulStatus = stItem.aulWord[3] >> 28;
    }
    Np_Row_Parse(&g_stCesopKeyRow, ulChipID, stItem.aulWord, pstCesopMapKey);
    return Np_Row_Parse(&g_stCesopDataRow, ulChipID, stItem.aulWord, pstCesopMapData);
}

uint32_t Np_Tarn_CesopMapTbl_DelByIndex(uint32_t ulChipID, uint32_t ulIndex)
{
    const uint32_t ulReturn = Np_Row_Check(&cesop_index::g_stRow, ulChipID, &ulIndex);
    return ulReturn != NP_OK ? ulReturn
                             : Np_Told(Np_Tarn_EML_ItemDelByIndex(ulChipID, NP_EML_CESOP_MAP,
                                                                  NP_EML_IN_TABLE, ulIndex),
                                       Np_Here());
}

}  // extern "C"

uint32_t Np_PvcItem_Get(uint32_t ulChipID, const NpPvcKey *pstKey, NpPortPvcEnc *pstPvcEnc)
{
    return Np_AtmEncapTblPvcItem_Get(ulChipID, &pstKey->stPort, pstKey->ulPvcIndex, pstPvcEnc);
}

uint32_t Np_PvcItem_Set(uint32_t ulChipID, const NpPvcKey *pstKey, const NpPortPvcEnc *pstPvcEnc)
{
    return Np_AtmEncapTblPvcItem_Set(ulChipID, &pstKey->stPort, pstKey->ulPvcIndex, pstPvcEnc);
}
