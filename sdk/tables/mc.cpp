#include "sdk/tables/mc.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/straight.h"

namespace {

// What a leaf does with its copy; 2 to 6 have no destination.
inline constexpr uint32_t NP_MET_FLOW = 0;
inline constexpr uint32_t NP_MET_BUNDLE = 1;
inline constexpr uint32_t NP_MET_DISCARD = 7;
inline constexpr uint32_t NP_MET_DISCARD_BASE = 6144;  // the microcode's destinations to drop at

// The sum is cut to the row's 13 bits, and nothing is taken off again.
uint32_t Np_DiscardEncode(uint32_t, const void *pvField, uint32_t *pulStored)
{
    uint32_t ulDiscardID;
    __builtin_memcpy(&ulDiscardID, pvField, sizeof(ulDiscardID));
    *pulStored = ulDiscardID + NP_MET_DISCARD_BASE;
    return NP_OK;
}

uint32_t Np_DiscardDecode(uint32_t, uint32_t ulStored, void *pvField)
{
    __builtin_memcpy(pvField, &ulStored, sizeof(ulStored));
    return NP_OK;
}

constexpr NpCoding g_stDiscardCoding = {Np_DiscardEncode, Np_DiscardDecode, "", "", true};

namespace met_row {
using R = NpMet;
constexpr NpSmdKeyEnum g_astOpWords[] = {
    {0, "flow", NP_MET_FLOW}, {0, "flow_bundle", NP_MET_BUNDLE}, {0, "discard", NP_MET_DISCARD}};
constexpr NpField g_astField[] = {
    NP_F(ulValid, .stAt = {0, 31, 31}, .pszKey = "valid"),
    NP_F(ulOpCode, .stAt = {0, 15, 13}, .pszKey = "op_code", .stWords = g_astOpWords),
    NP_F(unDstintf.ulOftID, .stAt = {0, 12, 0}, .pszKey = "oft_id",
         .pstWhen = NP_WHEN(ulOpCode, 1u << NP_MET_FLOW)),
    NP_F(unDstintf.ulBundleID, .stAt = {0, 12, 0}, .pszKey = "bundle_id",
         .pstWhen = NP_WHEN(ulOpCode, 1u << NP_MET_BUNDLE)),
    NP_F(unDstintf.ulDiscardID, .stAt = {0, 12, 0}, .pszKey = "discard_id",
         .pstWhen = NP_WHEN(ulOpCode, 1u << NP_MET_DISCARD), .pstCoding = &g_stDiscardCoding),
    NP_F(ulNextMetID, .stAt = {0, 30, 16}, .pszKey = "nextmetid"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulOpCode, Np_Below(8)),
    NP_C(unDstintf.ulOftID, Np_MostCap(NP_CAP_MET_DEST_MAX)),
    NP_C(ulValid, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulNextMetID, Np_MostCap(NP_CAP_MC_ID_MAX)),
};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_MC,
                                         .pszArg = "pstMet",
                                         .usImageSize = 4,
                                         .pstStraight = NP_STRAIGHT(g_astField, g_astCheck)},
                                        g_astField, g_astCheck);
}  // namespace met_row

namespace brlt_row {
using R = NpBrl;
constexpr NpField g_astField[] = {
    NP_F(ulBcLimitCarProfile, .stAt = {4, 7, 0}, .pszKey = "car_1_profile"),
    NP_F(ulUnUcLimitCarProfile, .stAt = {5, 7, 0}, .pszKey = "car_2_profile"),
    NP_F(ulUnMcLimitCarProfile, .stAt = {6, 7, 0}, .pszKey = "car_3_profile"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulBcLimitCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
    NP_C(ulUnMcLimitCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
    NP_C(ulUnUcLimitCarProfile, Np_MostCap(NP_CAP_CAR_PROFILE_MAX)),
};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_MC, .pszArg = "pstBrl", .usImageSize = 8},
                                        g_astField, g_astCheck);
}  // namespace brlt_row

namespace mdi_key {
struct R {
    uint32_t ulMdiID;
    uint32_t ulOffset;
};
constexpr NpField g_astField[] = {
    NP_F(ulMdiID, .pszKey = "mdi_id"),
    NP_F(ulOffset, .pszKey = "offset"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulMdiID, Np_MostCap(NP_CAP_MDI_ID_MAX)),
    NP_C(ulOffset, Np_MostCap(NP_CAP_MDI_OFFSET_MAX)),
};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_MC}, g_astField, g_astCheck);
}  // namespace mdi_key

namespace mdi_row {
using R = NpMdiInfo;
constexpr NpField g_astField[] = {
    NP_F(ulArriveTimeH32, .stAt = {4, 31, 0}, .pszKey = "arrivetime_h32"),
    NP_F(ulArriveTimeL16, .stAt = {0, 15, 0}, .pszKey = "arrivetime_l16"),
    NP_F(ulPktLen, .stAt = {2, 15, 0}, .pszKey = "length"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulArriveTimeL16, Np_Below(0x10000)),
    NP_C(ulPktLen, Np_MostCap(NP_CAP_MDI_PKT_LEN_MAX)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_MC, .pszArg = "pstMdiInfo", .usImageSize = 8}, g_astField, g_astCheck);
}  // namespace mdi_row

// Each MDI identifier has a run of records.
uint32_t Np_MdiPlace(uint32_t, const void *pvKey, uint32_t *pulRow, NpWhere)
{
    mdi_key::R stKey;
    __builtin_memcpy(&stKey, pvKey, sizeof(stKey));
    *pulRow = stKey.ulMdiID * (Np_GLB_CapGet(NP_CAP_MDI_OFFSET_MAX) + 1) + stKey.ulOffset;
    return NP_OK;
}

// This family of tables also traces that a check failed.
consteval NpTable Np_McTable(const NpRow &stKey, const NpRow &stRow, uint16_t usTableID)
{
    return Np_TableOf(stKey, stRow, {.bTellsCheck = true}, Np_RegPart(usTableID));
}

}  // namespace

constexpr NpTable g_stMetTable =
    Np_McTable(NpIndexKey<NP_M_MC, NP_CAP_MET_ROWS>::g_stRow, met_row::g_stRow, 40);
constexpr NpTable g_stBrltTable =
    Np_McTable(NpIndexKey<NP_M_MC, NP_CAP_BRLT_ROWS>::g_stRow, brlt_row::g_stRow, 41);
constexpr NpTable g_stMdiInfoTable =
    Np_TableOf(mdi_key::g_stRow, mdi_row::g_stRow, {.pfnPlace = Np_MdiPlace, .bTellsCheck = true},
               Np_RegPart(55));

extern "C" {

NP_TABLE_SET(Np_Tarn_MetTbl_Set, NpMet, g_stMetTable)
NP_TABLE_GET(Np_Tarn_MetTbl_Get, NpMet, g_stMetTable)
NP_TABLE_SET(Np_Tarn_BrltTbl_Set, NpBrl, g_stBrltTable)
NP_TABLE_GET(Np_Tarn_BrltTbl_Get, NpBrl, g_stBrltTable)

uint32_t Np_Tarn_MdiInfoTbl_Set(uint32_t ulChipID, uint32_t ulMdiID, uint32_t ulOffset,
                                const NpMdiInfo *pstMdiInfo)
{
    const uint32_t aulKey[] = {ulMdiID, ulOffset};
    return Np_Table_Set(&g_stMdiInfoTable, ulChipID, aulKey, pstMdiInfo);
}

uint32_t Np_Tarn_MdiInfoTbl_Get(uint32_t ulChipID, uint32_t ulMdiID, uint32_t ulOffset,
                                NpMdiInfo *pstMdiInfo)
{
    const uint32_t aulKey[] = {ulMdiID, ulOffset};
    return Np_Table_Get(&g_stMdiInfoTable, ulChipID, aulKey, pstMdiInfo);
}

}  // extern "C"
