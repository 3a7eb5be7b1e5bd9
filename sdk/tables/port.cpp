#include "sdk/tables/port.h"

#include "ldsdk/status.h"
#include "sdk/access/portid.h"
#include "sdk/access/regtable.h"
#include "sdk/frame/registry.h"
#include "sdk/frame/service.h"
#include "sdk/frame/trace.h"
#include "sdk/record/describe.h"

namespace {

// Port types are stored as two nibbles: the high one as it is up to 14; from 15 on it stays 15 and
// the low one counts on.
inline constexpr uint32_t NP_PCT_WIDE_TYPE = 15;

uint32_t Np_PctTypeEncode(uint32_t, const void *pvField, uint32_t *pulStored)
{
    uint32_t ulType;
    __builtin_memcpy(&ulType, pvField, sizeof(ulType));
    *pulStored = ulType < NP_PCT_WIDE_TYPE ? ulType << 4
                                           : NP_PCT_WIDE_TYPE << 4 | (ulType - NP_PCT_WIDE_TYPE);
    return NP_OK;
}

uint32_t Np_PctTypeDecode(uint32_t, uint32_t ulStored, void *pvField)
{
    const uint32_t ulHigh = ulStored >> 4;
    const uint32_t ulType = ulHigh < NP_PCT_WIDE_TYPE ? ulHigh : (ulStored & 0xf) + ulHigh;
    __builtin_memcpy(pvField, &ulType, sizeof(ulType));
    return NP_OK;
}

constexpr NpCoding g_stPctTypeCoding = {Np_PctTypeEncode, Np_PctTypeDecode, "", "", false};

namespace port_key {
using R = NpPortID;
struct Key {
    NpPortID stPort;
};
constexpr NpField g_astField[] = {
    Np_FieldMake<NpPortID>("stPort", 0, sizeof(NpPortID), 0, {.pszKey = "port"})};
constexpr NpCheck g_astCheck[] = {
    Np_CheckMake<NpPortID>("stPort", 0, sizeof(NpPortID), 0, Np_Port(), {})};
}  // namespace port_key

namespace pct_row {
using R = NpPortPct;
constexpr NpSmdKeyEnum g_astTypeWords[] = {
    {0, "ether", 0}, {0, "ptm", 1},   {0, "gpon", 2}, {0, "epon", 3}, {0, "ch", 4},
    {0, "dsa", 6},   {0, "higig", 7}, {0, "ppp", 8},  {0, "atm", 9},  {0, "cesop", 15},
    {0, "voip", 16}, {0, "prbs", 17}, {0, "wap", 18}, {0, "cpu", 19}};
constexpr auto g_astModeWords = Np_Words("hybrid", "trunk", "access");
constexpr NpSmdKeyEnum g_astRoleWords[] = {{0, "uni", 1}, {0, "nni", 2}};
constexpr NpSmdKeyEnum g_astClassWords[] = {{0, "low", 1}, {0, "high", 2}};
constexpr auto g_astPvtWords = Np_Words("diable", "port", "port_vlan", "flow");
constexpr auto g_astCarWords = Np_Words("flow", "port_pri");
constexpr NpField g_astField[] = {
    NP_F(ulValid, .stAt = {15, 7, 7}),
    NP_F(ulBlockEnable, .stAt = {13, 5, 5}),
    NP_F(ulPctPortType, .stAt = {14, 7, 0}, .stWords = g_astTypeWords,
         .pstCoding = &g_stPctTypeCoding),
    NP_F(ulUserID, .stAt = {0, 8, 0}),
    NP_F(ulMacFilter, .stAt = {1, 2, 1}),
    NP_F(ulRole, .stAt = {1, 4, 3}, .stWords = g_astRoleWords),
    NP_F(ulProtocolTempletId, .stAt = {2, 7, 0}, .bCut = true),
    NP_F(ul1xEnable, .stAt = {13, 6, 6}),
    NP_F(ul3ahLoopEnable, .stAt = {13, 7, 7}),
    NP_F(ul3AhEnable, .stAt = {15, 6, 6}),
    NP_F(ul3AhCnID, .stAt = {11, 7, 4}),
    NP_F(ulMode, .stAt = {13, 3, 2}, .stWords = g_astModeWords),
    NP_F(ulVlanSenseEnable, .stAt = {13, 4, 4}),
    NP_F(ulVlanCheckID, .stAt = {3, 2, 0}),
    NP_F(ulL2encIdx, .stAt = {3, 7, 3}, .bCut = true),
    NP_F(ulL2c, .stAt = {12, 0, 0}, .pszKey = "l2c"),
    NP_F(ulHS, .stAt = {7, 7, 0}, .bCut = true),
    NP_F(ulD2W, .stAt = {6, 7, 7}),
    NP_F(ullrn, .stAt = {6, 6, 6}),
    NP_F(ulMacLimitFwd, .stAt = {6, 5, 5}, .bCut = true),
    NP_F(ulMacLimitToCpu, .stAt = {6, 4, 4}, .bCut = true),
    NP_F(ulMpls, .stAt = {12, 2, 2}),
    NP_F(ulLmEnable, .stAt = {15, 1, 1}),
    NP_F(ulCarMode, .stAt = {13, 0, 0}, .stWords = g_astCarWords),
    NP_F(ulCarEnable, .stAt = {13, 1, 1}),
    NP_F(ulCarID, .stAt = {9, 7, 0}),
    NP_F(ulCarProfile, .stAt = {8, 7, 0}),
    NP_F(ulLagID, .stAt = {11, 3, 0}),
    NP_F(ulDfxEnable, .stAt = {12, 1, 1}),
    NP_F(ulGmtMode, .stAt = {10, 3, 0}),
    NP_F(ulPvtMode, .stAt = {15, 3, 2}, .stWords = g_astPvtWords),
    NP_F(ulMirrorEnable, .stAt = {15, 5, 5}),
    NP_F(ulMirrorID, .stAt = {10, 7, 4}),
    NP_F(ulTlsEnable, .stAt = {15, 0, 0}),
    NP_F(ulPfeEnable, .stAt = {12, 7, 7}),
    NP_F(ulL3Enable, .stAt = {12, 3, 3}),
    NP_F(ulPtpID, .pszKey = "ptpid", .bLost = true),
    NP_F(stNativeVlan.ulPri, .stAt = {5, 7, 5}),
    NP_F(stNativeVlan.ulCfi, .stAt = {5, 4, 4}),
    NP_F(stNativeVlan.ulVlanID, .stAt = {4, 11, 0}),
    NP_F(ulCas, .stAt = {12, 4, 4}),
    NP_F(stBondingPort, .pszKey = "bondingport", .bLost = true),
    NP_F(ulChid, .pszKey = "chid", .bLost = true),
    NP_F(ulClass, .stAt = {12, 6, 5}, .stWords = g_astClassWords),
    NP_F(ulSlotID, .bLost = true),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ul3AhCnID, Np_MostCap(NP_CAP_EFM_CN_MAX), .pszText = "ul3ahCnID"),
    NP_C(ulLagID, Np_BelowCap(NP_CAP_LAG_ROWS)),
    NP_C(ulMirrorID, Np_BelowCap(NP_CAP_MIRROR_GROUP_NUM)),
    NP_C(ulCarID, Np_MostCap(NP_CAP_CAR_ID_MAX)),
    NP_C(ulCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
    NP_C(ulUserID, Np_MostCap(NP_CAP_USER_ID_MAX)),
    NP_C(stNativeVlan.ulCfi, Np_Most(1)),
    NP_C(stNativeVlan.ulPri, Np_Most(7)),
    NP_C(stNativeVlan.ulVlanID, Np_Below(4096)),
    NP_C(ulVlanCheckID, Np_MostCap(NP_CAP_VLAN_CHECK_MAX)),
    NP_C(ulGmtMode, Np_MostCap(NP_CAP_GEMPORT_INDEX_MAX)),
    NP_C(ulSlotID, Np_MostCap(NP_CAP_SLOT_ID_MAX)),
    NP_C(ulPvtMode, Np_Most(3)),
    NP_C(ulPctPortType, Np_Most(19)),
    NP_C(ulMode, Np_Most(3)),
    NP_C(ulRole, Np_Most(3)),
    NP_C(ulCarMode, Np_Most(1)),
    NP_C(ulClass, Np_Most(3)),
    NP_C(ulMacFilter, Np_Most(3)),
    NP_C(ulValid, Np_Flag(NP_SAY_VALID)),
    NP_C(ulBlockEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ul3ahLoopEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ul1xEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ul3AhEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMirrorEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulVlanSenseEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulTlsEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulLmEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCarEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulL3Enable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulPfeEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulL2c, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDfxEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulD2W, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ullrn, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCas, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulMpls, Np_Flag(NP_SAY_BOOL)),
};
}  // namespace pct_row

namespace vmac_key {
struct R {
    uint32_t ulVmacInfoID;
};
constexpr NpField g_astField[] = {NP_F(ulVmacInfoID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulVmacInfoID, Np_BelowCap(NP_CAP_VMAC_ROWS))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_PORT}, g_astField, g_astCheck);
}  // namespace vmac_key

namespace vmac_row {
using R = NpPortVmacInfo;
constexpr NpField g_astField[] = {
    NP_F(ulVmacBase, .stAt = {0, 11, 0}),
    NP_F(ulVmacNumber, .stAt = {0, 21, 16}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulVmacBase, Np_MostCap(NP_CAP_VMAC_BASE_MAX)),
    NP_C(ulVmacNumber, Np_MostCap(NP_CAP_VMAC_NUMBER_MAX)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_PORT, .pszArg = "pstVmacInfo", .usImageSize = 4}, g_astField, g_astCheck);
}  // namespace vmac_row

inline constexpr uint32_t NP_PCT_TABLE = 20;
inline constexpr uint32_t NP_PCT_WORDS = 4;

// Row of a port's configuration.
uint32_t Np_PctRowGet(uint32_t ulChipID, const NpPortID *pstPortID, uint32_t *pulRow)
{
    const uint32_t ulReturn = Np_PortID2PhyID(ulChipID, pstPortID, pulRow);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_PORT, NP_PRINT_ERROR, "phy ID calculate failed! ulReturn=0x%08x\r\n",
                 ulReturn);
    }
    return ulReturn;
}

}  // namespace

constexpr NpRow g_stPortKey =
    Np_RowMake<NpPortID>({.ucModule = NP_M_PORT}, port_key::g_astField, port_key::g_astCheck);
constexpr NpRow g_stPctRow =
    Np_RowMake<NpPortPct>({.ucModule = NP_M_PORT, .pszArg = "pstPort", .usImageSize = 16},
                          pct_row::g_astField, pct_row::g_astCheck);
constexpr NpTable g_stVmacInfoTable = Np_TableMake(vmac_key::g_stRow, vmac_row::g_stRow, 23);

extern "C" {

void Np_Tarn_PORT_PortIDTrace(const NpPortID *pstPortID)
{
    Np_Row_Trace(&g_stPortKey, pstPortID);
}

void Np_Tarn_PORT_PctTblParaTrace(const NpPortPct *pstPct)
{
    Np_Row_Trace(&g_stPctRow, pstPct);
}

uint32_t Np_Tarn_PORT_PctTblParaCheck(uint32_t ulChipID, const NpPortPct *pstPct)
{
    return Np_Row_Check(&g_stPctRow, ulChipID, pstPct);
}

uint32_t Np_Tarn_PORT_PctTblBuild(uint32_t ulChipID, const NpPortPct *pstPct, void *pvImage)
{
    return Np_Row_Build(&g_stPctRow, ulChipID, pstPct, pvImage);
}

uint32_t Np_Tarn_PORT_PctTblParse(uint32_t ulChipID, const void *pvImage, NpPortPct *pstPct)
{
    return Np_Row_Parse(&g_stPctRow, ulChipID, pvImage, pstPct);
}

uint32_t Np_Tarn_PctTbl_Set(uint32_t ulChipID, const NpPortID *pstPortID, const NpPortPct *pstPct)
{
    if (pstPortID == nullptr || pstPct == nullptr) {
        NP_TRACE(NP_M_PORT, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    NP_TRACE(NP_M_PORT, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    Np_Tarn_PORT_PortIDTrace(pstPortID);
    Np_Tarn_PORT_PctTblParaTrace(pstPct);
    uint32_t ulReturn = Np_Row_Check(&g_stPortKey, ulChipID, pstPortID);
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_PORT_PctTblParaCheck(ulChipID, pstPct);
    }
    uint32_t ulRow;
    if (ulReturn == NP_OK) {
        ulReturn = Np_PctRowGet(ulChipID, pstPortID, &ulRow);
    }
    uint32_t aulImage[NP_PCT_WORDS];
    if (ulReturn == NP_OK) {
        ulReturn = Np_Tarn_PORT_PctTblBuild(ulChipID, pstPct, aulImage);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_RegTableWrite(ulChipID, NP_PCT_TABLE, ulRow, aulImage);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_PORT, NP_PRINT_ERROR, "Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n",
                 ulReturn, NP_PCT_TABLE, ulRow);
    }
    return ulReturn;
}

uint32_t Np_Tarn_PctTbl_Get(uint32_t ulChipID, const NpPortID *pstPortID, NpPortPct *pstPct)
{
    if (pstPortID == nullptr || pstPct == nullptr) {
        NP_TRACE(NP_M_PORT, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    NP_TRACE(NP_M_PORT, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    Np_Tarn_PORT_PortIDTrace(pstPortID);
    uint32_t ulReturn = Np_Row_Check(&g_stPortKey, ulChipID, pstPortID);
    uint32_t ulRow;
    if (ulReturn == NP_OK) {
        ulReturn = Np_PctRowGet(ulChipID, pstPortID, &ulRow);
    }
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    uint32_t aulImage[NP_PCT_WORDS];
    ulReturn = Np_RegTableRead(ulChipID, NP_PCT_TABLE, ulRow, aulImage);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_PORT, NP_PRINT_ERROR, "Read error return:0x%08x  ID:0x%08x Offset:0x%08x\r\n",
                 ulReturn, NP_PCT_TABLE, ulRow);
        return ulReturn;
    }
    ulReturn = Np_Tarn_PORT_PctTblParse(ulChipID, aulImage, pstPct);
    if (ulReturn == NP_OK) {
        Np_Tarn_PORT_PctTblParaTrace(pstPct);
    }
    return ulReturn;
}

NP_ROW_FUNCTIONS(Np_Tarn_PORT_VmacInfoTbl, NpPortVmacInfo, g_stVmacInfoTable)
NP_TABLE_FUNCTIONS(Np_Tarn_VmacInfoTbl, NpPortVmacInfo, g_stVmacInfoTable)

}  // extern "C"
