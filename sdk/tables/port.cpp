#include "sdk/tables/port.h"

#include "ldsdk/status.h"
#include "sdk/access/portid.h"
#include "sdk/access/regtable.h"
#include "sdk/access/smem.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
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

namespace lag_key {
struct R {
    uint32_t ulTrunkGroupID;
};
constexpr NpField g_astField[] = {NP_F(ulTrunkGroupID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulTrunkGroupID, Np_BelowCap(NP_CAP_LAG_ROWS), .pszText = "ulGroupID")};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_PORT}, g_astField, g_astCheck);
}  // namespace lag_key

namespace lag_row {
using R = NpPortTrunk;
constexpr NpField g_astField[] = {
    NP_F(ulLbType, .stAt = {11, 7, 4}),
    NP_F_EACH(astL2Encp, ulL2Encp, .stAt = {14, 11, 0}, .sStep = -16),
};
constexpr NpCheck g_astCheck[] = {
    NP_C_EACH(astL2Encp, ulL2Encp, Np_MostCap(NP_CAP_L2_ENCAP_MAX),
              .pszText = "astL2Encp[ulL2EncpIndex].ulL2Encp"),
    NP_C(ulLbType, Np_Below(16)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_PORT, .pszArg = "pstLag", .usImageSize = 16}, g_astField, g_astCheck);
}  // namespace lag_row

namespace voip_key {
struct R {
    uint32_t ulChannelID;
};
constexpr NpField g_astField[] = {NP_F(ulChannelID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulChannelID, Np_BelowCap(NP_CAP_VOIP_CHANNEL_NUM))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_PORT}, g_astField, g_astCheck);
}  // namespace voip_key

namespace voip_row {
using R = NpPortVoipChannel;
constexpr NpField g_astField[] = {
    NP_F(ulIP, .stAt = {4, 31, 0}, .ucType = NP_SMD_IPV4),
    NP_F(ulVoipFlowID, .stAt = {2, 15, 0}),
};
constexpr NpCheck g_astCheck[] = {NP_C(ulVoipFlowID, Np_BelowCap(NP_CAP_FLOW_NUM))};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_PORT, .pszArg = "pstVoipChannel", .usImageSize = 8}, g_astField, g_astCheck);
}  // namespace voip_row

namespace car_row {
using R = NpPortCarProfile;
constexpr NpField g_astField[] = {NP_F(aulCarProfile, .stAt = {7, 7, 0}, .sStep = -8)};
constexpr NpCheck g_astCheck[] = {
    NP_C(aulCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX), .pszText = "aulCarProfile[ulI]")};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_PORT, .pszArg = "pstCarProfile", .usImageSize = 8}, g_astField, g_astCheck);
using Key = NpIndexKey<NP_M_PORT, NP_CAP_CAR_PROFILE_ROWS>;
}  // namespace car_row

namespace to_cpu_key {
struct R {
    uint32_t ulUserID;
};
constexpr NpField g_astField[] = {NP_F(ulUserID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulUserID, Np_BelowCap(NP_CAP_TO_CPU_CAR_ROWS))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_PORT}, g_astField, g_astCheck);
}  // namespace to_cpu_key

namespace to_cpu_row {
using R = NpPortToCpuPtypeCarInfo;
constexpr NpField g_astField[] = {
    NP_F_EACH(astPtypeCarInfo, ulValid, .stAt = {7, 7, 7}, .sStep = -16),
    NP_F_EACH(astPtypeCarInfo, ulThreshold, .stAt = {6, 7, 0}, .sStep = -16),
};
constexpr NpCheck g_astCheck[] = {
    NP_C_EACH(astPtypeCarInfo, ulValid, Np_Flag(NP_SAY_VALID), .bWithNext = true),
    NP_C_EACH(astPtypeCarInfo, ulThreshold, Np_MostCap(NP_CAP_PTYPE_CAR_MAX),
              .pszText = "astPtypeCarInfo[ulI].ulThreshold"),
};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PORT, .pszArg = "pstToCpuPtypeCarInfo", .usImageSize = 8},
                  g_astField, g_astCheck);
// The counters of a user stand behind the row, in the second half of its 16 bytes, the last entry's
// lowest.
inline constexpr uint32_t NP_PITCH = 16;
inline constexpr uint32_t NP_FIRST_COUNTER = 14;
}  // namespace to_cpu_row

namespace loop_row {
using R = NpPortGemportLoopQid;
constexpr NpField g_astField[] = {
    NP_F(ulValid, .stAt = {0, 15, 15}, .bCut = true),
    NP_F(ulQid, .stAt = {0, 14, 0}, .bCut = true),
};
constexpr NpCheck g_astCheck[] = {NP_C(ulQid, Np_MostCap(NP_CAP_QID_MAX))};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PORT, .pszArg = "pstGemportLoopQid", .usImageSize = 2},
                  g_astField, g_astCheck);
using Key = NpIndexKey<NP_M_PORT, NP_CAP_GEMPORT_LOOP_ROWS>;
constexpr NpSmemArray g_stArray = {NP_CAP_GEMPORT_LOOP_BASE, 2, 0, 2};
}  // namespace loop_row

// Row of a port's configuration.
uint32_t Np_PctPlace(uint32_t ulChipID, const void *pvKey, uint32_t *pulRow, NpWhere stWhere)
{
    NpPortID stPort;
    __builtin_memcpy(&stPort, pvKey, sizeof(stPort));
    const uint32_t ulReturn = Np_PortID2PhyID(ulChipID, &stPort, pulRow);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_PORT, NP_PRINT_ERROR,
                    "phy ID calculate failed! ulReturn=0x%08x\r\n", ulReturn);
    }
    return ulReturn;
}

}  // namespace

constexpr NpRow g_stPortKey =
    Np_RowMake<NpPortID>({.ucModule = NP_M_PORT}, port_key::g_astField, port_key::g_astCheck);
static constexpr NpRow g_stPctRow =
    Np_RowMake<NpPortPct>({.ucModule = NP_M_PORT, .pszArg = "pstPort", .usImageSize = 16},
                          pct_row::g_astField, pct_row::g_astCheck);
constexpr NpTable g_stPctTable =
    Np_TableOf(g_stPortKey, g_stPctRow, {.pfnPlace = Np_PctPlace}, Np_RegPart(20));
constexpr NpTable g_stVmacInfoTable = Np_TableMake(vmac_key::g_stRow, vmac_row::g_stRow, 23);
constexpr NpTable g_stLagTable = Np_TableMake(lag_key::g_stRow, lag_row::g_stRow, 28);
constexpr NpTable g_stVoipChannelTable = Np_TableMake(voip_key::g_stRow, voip_row::g_stRow, 24);
constexpr NpTable g_stUpCarProfileTable = Np_TableMake(car_row::Key::g_stRow, car_row::g_stRow, 78);
constexpr NpTable g_stDownCarProfileTable =
    Np_TableMake(car_row::Key::g_stRow, car_row::g_stRow, 79);
constexpr NpTable g_stToCpuCarTable = Np_TableMake(to_cpu_key::g_stRow, to_cpu_row::g_stRow, 71);
constexpr NpTable g_stGemportLoopTable =
    Np_TableOf(loop_row::Key::g_stRow, loop_row::g_stRow, {}, Np_SmemPart(&loop_row::g_stArray, 0));

extern "C" {

void Np_Tarn_PORT_PortIDTrace(const NpPortID *pstPortID)
{
    Np_Row_Trace(&g_stPortKey, pstPortID);
}

NP_KEYED_SET(Np_Tarn_PctTbl_Set, NpPortID, NpPortPct, g_stPctTable)
NP_KEYED_GET(Np_Tarn_PctTbl_Get, NpPortID, NpPortPct, g_stPctTable)
NP_TABLE_SET(Np_Tarn_VmacInfoTbl_Set, NpPortVmacInfo, g_stVmacInfoTable)
NP_TABLE_GET(Np_Tarn_VmacInfoTbl_Get, NpPortVmacInfo, g_stVmacInfoTable)
NP_TABLE_SET(Np_Tarn_LagTbl_Set, NpPortTrunk, g_stLagTable)
NP_TABLE_GET(Np_Tarn_LagTbl_Get, NpPortTrunk, g_stLagTable)
NP_TABLE_SET(Np_Tarn_VoipChannelTbl_Set, NpPortVoipChannel, g_stVoipChannelTable)
NP_TABLE_GET(Np_Tarn_VoipChannelTbl_Get, NpPortVoipChannel, g_stVoipChannelTable)
NP_TABLE_SET(Np_Tarn_UpCarProfileTbl_Set, NpPortCarProfile, g_stUpCarProfileTable)
NP_TABLE_GET(Np_Tarn_UpCarProfileTbl_Get, NpPortCarProfile, g_stUpCarProfileTable)
NP_TABLE_SET(Np_Tarn_DownCarProfileTbl_Set, NpPortCarProfile, g_stDownCarProfileTable)
NP_TABLE_GET(Np_Tarn_DownCarProfileTbl_Get, NpPortCarProfile, g_stDownCarProfileTable)
NP_TABLE_SET(Np_Tarn_GemportLoopQidTbl_Set, NpPortGemportLoopQid, g_stGemportLoopTable)
NP_TABLE_GET(Np_Tarn_GemportLoopQidTbl_Get, NpPortGemportLoopQid, g_stGemportLoopTable)
NP_TABLE_GET(Np_Tarn_PortToCpuPtypeCarTbl_Get, NpPortToCpuPtypeCarInfo, g_stToCpuCarTable)

uint32_t Np_Tarn_PortToCpuPtypeCarCnt_Init(uint32_t ulChipID, uint32_t ulUserID, uint32_t ulEntry)
{
    const uint32_t ulAddr = Np_GLB_CapGet(NP_CAP_TO_CPU_CAR_BASE) +
                            to_cpu_row::NP_PITCH * ulUserID + to_cpu_row::NP_FIRST_COUNTER -
                            2 * ulEntry;
    const uint8_t aucZero[2] = {};
    return Np_Tarn_SmemWrite(ulChipID, 0, NP_SMEM_LEN_16, ulAddr >> 1 & NP_SMEM_ADDR_MASK, aucZero);
}

uint32_t Np_Tarn_PortToCpuPtypeCarTbl_Set(uint32_t ulChipID, uint32_t ulUserID,
                                          const NpPortToCpuPtypeCarInfo *pstToCpuPtypeCarInfo)
{
    uint32_t ulReturn = Np_Table_Set(&g_stToCpuCarTable, ulChipID, &ulUserID, pstToCpuPtypeCarInfo);
    for (uint32_t i = 0; ulReturn == NP_OK && i < 4; i++) {
        if (pstToCpuPtypeCarInfo->astPtypeCarInfo[i].ulValid != 0) {
            continue;
        }
        ulReturn = Np_Tarn_PortToCpuPtypeCarCnt_Init(ulChipID, ulUserID, i);
        if (ulReturn != NP_OK) {
            NP_TRACE(NP_M_PORT, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
        }
    }
    return ulReturn;
}

}  // extern "C"
