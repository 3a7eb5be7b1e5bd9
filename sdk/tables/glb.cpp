#include "sdk/tables/glb.h"

#include "ldsdk/status.h"
#include "sdk/cpuchan/formats.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

constinit uint32_t *g_pastNpGlbDyingGaspInfo[NP_CHIP_NUM] = {};

namespace {

// The global row, the row of its ports, and three registers that each of the four units has.
namespace global_row {
using R = NpGlobal;
inline constexpr uint32_t NP_PORTS = 16;  // bytes of the image where they begin
inline constexpr uint32_t NP_UNITS = 32;
constexpr auto g_astFwdWords = Np_Words("fwd", "discard");
constexpr NpField g_astField[] = {
    NP_F(ulVoipUdpPortMin, .stAt = {NP_PORTS + 14, 15, 0}),
    NP_F(ulVoipUdpPortMax, .stAt = {NP_PORTS + 12, 15, 0}),
    NP_F(ulVoipFlowID, .stAt = {NP_PORTS + 10, 15, 0}),
    NP_F(ulDeviceID, .stAt = {11, 7, 4}),
    NP_F(ulTlsVlan, .stAt = {10, 11, 0}),
    NP_F(ulUmEnable, .stAt = {8, 0, 0}, .pszKey = "UM"),
    NP_F(ulOuterTpid, .stAt = {NP_UNITS + 0, 31, 16}),
    NP_F(ulInnerTpid, .stAt = {NP_UNITS + 4, 31, 16}),
    NP_F(ulMacLimitFwd, .stAt = {0, 1, 1}, .stWords = g_astFwdWords),
    NP_F(ulMacLimitToCpu, .stAt = {0, 0, 0}),
    NP_F(ulFtHashCollisionEnable, .stAt = {0, 5, 5}),
    NP_F(ulFtSemCollisionEnable, .stAt = {0, 4, 4}),
    NP_F(ulPrbsOverLenEnable, .stAt = {0, 6, 6}),
    NP_F(ulMirrorEnable, .stAt = {0, 7, 7}),
    NP_F(ulMirrorID, .stAt = {3, 3, 0}, .pstWhen = NP_WHEN(ulMirrorEnable, 1u << 1)),
    NP_F(ulDfxFlowEnable, .stAt = {0, 3, 3}),
    NP_F(ulDfxFlowID, .stAt = {14, 15, 0}, .pstWhen = NP_WHEN(ulDfxFlowEnable, 1u << 1)),
    NP_F(ulPPPlenRectifyEnable, .stAt = {0, 2, 2}),
    NP_F(ulPriFlowCntEnable, .stAt = {9, 7, 7}),
    NP_F(ulPriCntFlowID, .stAt = {12, 15, 0}, .pstWhen = NP_WHEN(ulPriFlowCntEnable, 1u << 1)),
    NP_F(ulGlobalMacLimitEnable, .stAt = {NP_UNITS + 0, 0, 0}, .pszKey = "gml"),
    NP_F(ulAoeEtherType, .stAt = {NP_PORTS + 8, 15, 0}),
    NP_F(ulMirrorCtrl, .stAt = {NP_UNITS + 0, 1, 1}),
    NP_F(ulToCpuMtu, .stAt = {6, 15, 0}),
    NP_F(ulMinmVlan, .bLost = true),
    NP_F(ulCesopUdpPortMin, .stAt = {NP_PORTS + 6, 15, 0}),
    NP_F(ulCesopUdpPortMax, .stAt = {NP_PORTS + 4, 15, 0}),
    NP_F(ulEfbFlag, .stAt = {NP_UNITS + 0, 3, 3}, .bCut = true),
    NP_F(ulPtypeMir, .stAt = {NP_UNITS + 0, 2, 2}, .pszKey = "ptype_mir", .bCut = true),
    NP_F(ulOftId, .stAt = {NP_UNITS + 8, 31, 22}, .bCut = true),
    Np_Const({3, 7, 4}, 5),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulDeviceID, Np_MostCap(NP_CAP_DEVICE_ID_MAX)),
    NP_C(ulInnerTpid, Np_Most(0xffff)),
    NP_C(ulOuterTpid, Np_Most(0xffff)),
    NP_C(ulTlsVlan, Np_Below(4096)),
    NP_C(ulVoipFlowID, Np_BelowCap(NP_CAP_FLOW_NUM)),
    NP_C(ulVoipUdpPortMax, Np_Most(0xffff)),
    NP_C(ulVoipUdpPortMin, Np_Most(0xffff)),
    NP_C(ulAoeEtherType, Np_Most(0xffff)),
    NP_C(ulToCpuMtu, Np_Most(0xfff)),
    NP_C(ulCesopUdpPortMin, Np_Most(0xffff)),
    NP_C(ulCesopUdpPortMax, Np_Most(0xffff)),
    NP_C(ulFtHashCollisionEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulFtSemCollisionEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulPrbsOverLenEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMirrorEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDfxFlowEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulPPPlenRectifyEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMacLimitToCpu, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulPriFlowCntEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulGlobalMacLimitEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUmEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMirrorID, Np_BelowCap(NP_CAP_MIRROR_GROUP_NUM),
         .pstWhen = NP_WHEN(ulMirrorEnable, 1u << 1)),
    NP_C(ulDfxFlowID, Np_BelowCap(NP_CAP_FLOW_NUM), .pstWhen = NP_WHEN(ulDfxFlowEnable, 1u << 1)),
    NP_C(ulPriCntFlowID, Np_BelowCap(NP_CAP_FLOW_NUM),
         .pstWhen = NP_WHEN(ulPriFlowCntEnable, 1u << 1)),
    NP_C(ulMacLimitFwd, Np_Below(2)),
    NP_C(ulMirrorCtrl, Np_Flag(NP_SAY_VALID)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_GLB, .pszArg = "pstGlobal", .usImageSize = 44, .bParseClears = true},
    g_astField, g_astCheck);
constexpr NpRegisterAt g_astAt[] = {
    {0x7a101a40, 0}, {0x7a111a40, 0}, {0x7a121a40, 0}, {0x7a131a40, 0},
    {0x7a101a44, 1}, {0x7a111a44, 1}, {0x7a121a44, 1}, {0x7a131a44, 1},
    {0x7a101a48, 2}, {0x7a111a48, 2}, {0x7a121a48, 2}, {0x7a131a48, 2},
};
constexpr NpRegisterList g_stUnits = {g_astAt, sizeof(g_astAt) / sizeof(g_astAt[0])};
}  // namespace global_row

namespace gasp_row {
using R = NpDyingGasp;
constexpr NpField g_astFront[] = {
    NP_F(ulValid, .stAt = {7, 7, 7}),
    NP_F(ulQueueID, .stAt = {4, 23, 8}),
    NP_F(ulFrameInfoType, .stWords = frame_info::g_astTypeWords, .bHanded = true),
};
constexpr auto g_astField = Np_JoinFields(
    g_astFront, Np_FrameInfoFields<offsetof(R, ulFrameInfoType), offsetof(R, unFrameInfo)>());
constexpr NpCheck g_astFrontCheck[] = {NP_C(ulValid, Np_Flag(NP_SAY_VALID)),
                                       NP_C(ulQueueID, Np_MostCap(NP_CAP_DYING_GASP_PARAM))};
constexpr auto g_astCheck = Np_JoinFields(
    g_astFrontCheck, Np_FrameInfoChecks<offsetof(R, ulFrameInfoType), offsetof(R, unFrameInfo)>());
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_GLB, .pszArg = "pstDyingGasp", .usImageSize = 8, .bParseClears = true},
    g_astField, g_astCheck);

void Np_TypeHandIn(uint32_t ulChipID, uint32_t ulRow, void *pvRecord)
{
    const uint32_t *pulType = g_pastNpGlbDyingGaspInfo[ulChipID];
    static_cast<R *>(pvRecord)->ulFrameInfoType = pulType != nullptr ? pulType[ulRow] : 0;
}

void Np_TypeKeep(uint32_t ulChipID, uint32_t ulRow, const void *pvRecord)
{
    uint32_t *pulType = g_pastNpGlbDyingGaspInfo[ulChipID];
    if (pulType != nullptr) {
        pulType[ulRow] = static_cast<const R *>(pvRecord)->ulFrameInfoType;
    }
}
}  // namespace gasp_row

namespace smac_row {
using R = NpDyingGaspSmac;
constexpr NpField g_astField[] = {
    NP_F(aucMac, .stAt = {7, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC)};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_GLB, .pszArg = "pstDyingGaspSmac", .usImageSize = 8}, g_astField, {});
}  // namespace smac_row

// Stored as what it is longer than the shortest.
namespace pad_row {
struct R {
    uint32_t ulPadLen;
};

uint32_t Np_PadEncode(uint32_t, const void *pvField, uint32_t *pulStored)
{
    uint32_t ulPadLen;
    __builtin_memcpy(&ulPadLen, pvField, sizeof(ulPadLen));
    *pulStored = ulPadLen - Np_GLB_CapGet(NP_CAP_XD_PAD_MIN);
    return NP_OK;
}

uint32_t Np_PadDecode(uint32_t, uint32_t ulStored, void *pvField)
{
    const uint32_t ulPadLen = ulStored + Np_GLB_CapGet(NP_CAP_XD_PAD_MIN);
    __builtin_memcpy(pvField, &ulPadLen, sizeof(ulPadLen));
    return NP_OK;
}

constexpr NpCoding g_stCoding = {Np_PadEncode, Np_PadDecode, "", "", false};
constexpr NpField g_astField[] = {NP_F(ulPadLen, .stAt = {0, 7, 0}, .pstCoding = &g_stCoding)};
constexpr NpCheck g_astCheck[] = {NP_C(ulPadLen, Np_FromCap(NP_CAP_XD_PAD_MIN, NP_CAP_XD_PAD_MAX))};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_GLB, .usImageSize = 4}, g_astField, g_astCheck);
}  // namespace pad_row

}  // namespace

constexpr NpTable g_stGlobalTable =
    Np_TableOf(NpIndexKey<NP_M_GLB, NP_CAP_GLOBAL_ROWS>::g_stRow, global_row::g_stRow, {},
               Np_RegPart(1), Np_RegPart(76, global_row::NP_PORTS),
               Np_RegisterPart(&global_row::g_stUnits, global_row::NP_UNITS));
constexpr NpTable g_stDyingGaspTable = Np_TableOf(
    NpIndexKey<NP_M_GLB, NP_CAP_DYING_GASP_ROWS>::g_stRow, gasp_row::g_stRow,
    {.pfnHandIn = gasp_row::Np_TypeHandIn, .pfnKeep = gasp_row::Np_TypeKeep}, Np_RegPart(52));
constexpr NpTable g_stDyingGaspSmacTable =
    Np_TableMake(NpIndexKey<NP_M_GLB, NP_CAP_DYING_GASP_SMAC_ROWS>::g_stRow, smac_row::g_stRow, 53);
constexpr NpTable g_stXdTxEthPadTable =
    Np_TableMake(NpNoKey<NP_M_GLB>::g_stRow, pad_row::g_stRow, 58);

extern "C" {

NP_TABLE_SET(Np_Tarn_GlobalTbl_Set, NpGlobal, g_stGlobalTable)
NP_TABLE_GET(Np_Tarn_GlobalTbl_Get, NpGlobal, g_stGlobalTable)
NP_TABLE_SET(Np_Tarn_DyingGaspTbl_Set, NpDyingGasp, g_stDyingGaspTable)
NP_TABLE_GET(Np_Tarn_DyingGaspTbl_Get, NpDyingGasp, g_stDyingGaspTable)
NP_TABLE_SET(Np_Tarn_DyingGaspSmacTbl_Set, NpDyingGaspSmac, g_stDyingGaspSmacTable)
NP_TABLE_GET(Np_Tarn_DyingGaspSmacTbl_Get, NpDyingGaspSmac, g_stDyingGaspSmacTable)

uint32_t Np_Tarn_XdTxEthPadLen_Set(uint32_t ulChipID, uint32_t ulPadLen)
{
    return Np_Table_Set(&g_stXdTxEthPadTable, ulChipID, &g_ulNpRowOfNoKey, &ulPadLen);
}

uint32_t Np_Tarn_XdTxEthPadLen_Get(uint32_t ulChipID, uint32_t *pulPadLen)
{
    return Np_Table_Get(&g_stXdTxEthPadTable, ulChipID, &g_ulNpRowOfNoKey, pulPadLen);
}

uint32_t Np_Tarn_GLB_Init(uint32_t ulChipID)
{
    const uint32_t ulSize = Np_GLB_CapGet(NP_CAP_DYING_GASP_ROWS) * sizeof(uint32_t);
    uint32_t *&pulType = g_pastNpGlbDyingGaspInfo[ulChipID];
    if (pulType == nullptr) {
        pulType = static_cast<uint32_t *>(Os_Alloc(ulSize));
    }
    if (pulType == nullptr) {
        NP_TRACE(NP_M_GLB, NP_PRINT_ERROR, "memory alloc failed!\r\n");
        return NP_ERR_NO_MEMORY;
    }
    memset(pulType, 0, ulSize);
    memset(&g_stNpMicroVersion[ulChipID], 0, sizeof(g_stNpMicroVersion[ulChipID]));
    NpGlobal stGlobal = {};
    stGlobal.ulEfbFlag = 1;
    return Np_Tarn_GlobalTbl_Set(ulChipID, 0, &stGlobal);
}

uint32_t Np_Tarn_GLB_Destruct(uint32_t ulChipID)
{
    Np_FreeAndForget(&g_pastNpGlbDyingGaspInfo[ulChipID]);
    return NP_OK;
}

}  // extern "C"
