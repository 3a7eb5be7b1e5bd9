// The rows of the MAC family. Items are four words, the lowest first: the AD takes words 0 and 1 up
// to bit 19, the key the rest but the uppermost four bits, the status.
#include "ldsdk/status.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/straight.h"
#include "sdk/tables/arl.h"

namespace {

// The mask of some key types.
template <typename... Types>
constexpr uint32_t Np_Types(Types... ulType)
{
    return ((1u << ulType) | ...);
}

namespace arl_key {
using R = NpArlKey;
// Key types by what they have, and where.
constexpr uint32_t NP_HAS_VLAN = Np_Types(0, 1, 5, 8, 9, 10, 11, 12, 13);
constexpr uint32_t NP_HAS_VLAN_HIGH = Np_Types(4, 7);
constexpr uint32_t NP_HAS_CVLAN = Np_Types(5, 9, 12);
constexpr uint32_t NP_HAS_VSI = Np_Types(0, 1, 5, 8, 9, 10, 11, 12, 13, 14, 15);
constexpr uint32_t NP_HAS_MAC = Np_Types(0, 6, 8, 14, 15);
constexpr uint32_t NP_HAS_SESSION = Np_Types(13);
constexpr uint32_t NP_HAS_PORT = Np_Types(NP_ARL_TYPE_PORT);
constexpr NpField g_astField[] = {
    NP_F(ulType, .stAt = {12, 27, 24}),
    NP_F(ulSvlanID, .stAt = {4, 39, 28}, .pstWhen = NP_WHEN(ulType, NP_HAS_VLAN)),
    NP_F(ulSvlanID, .stAt = {12, 23, 12}, .pstWhen = NP_WHEN(ulType, NP_HAS_VLAN_HIGH)),
    NP_F(ulCvlanID, .stAt = {8, 19, 8}, .pstWhen = NP_WHEN(ulType, NP_HAS_CVLAN)),
    NP_F(ulSvlan1p, .stAt = {8, 11, 9}, .pstWhen = NP_WHEN(ulType, Np_Types(11))),
    NP_F(ulCvlan1p, .bLost = true, .bHidden = true),
    NP_F(ulSip, .stAt = {8, 27, 8}, .ucType = NP_SMD_IPV4, .pstWhen = NP_WHEN(ulType, Np_Types(1)),
         .bCut = true),
    NP_F(ulSip, .stAt = {4, 55, 24}, .ucType = NP_SMD_IPV4,
         .pstWhen = NP_WHEN(ulType, Np_Types(3))),
    NP_F(ulDip, .stAt = {8, 55, 28}, .ucType = NP_SMD_IPV4, .pstWhen = NP_WHEN(ulType, Np_Types(1)),
         .bCut = true),
    NP_F(ulDip, .stAt = {8, 55, 24}, .ucType = NP_SMD_IPV4,
         .pstWhen = NP_WHEN(ulType, Np_Types(2, 3))),
    NP_F(ulDip, .stAt = {8, 43, 12}, .ucType = NP_SMD_IPV4,
         .pstWhen = NP_WHEN(ulType, NP_HAS_VLAN_HIGH)),
    NP_F(ulSessionID, .stAt = {8, 23, 8}, .pstWhen = NP_WHEN(ulType, NP_HAS_SESSION)),
    NP_F(stPort, .stAt = {4, 37, 28}, .pstWhen = NP_WHEN(ulType, NP_HAS_PORT),
         .pstCoding = &g_stNpPortCoding),
    NP_F(ulVsi, .stAt = {4, 27, 24}, .pstWhen = NP_WHEN(ulType, NP_HAS_VSI)),
    NP_F(ulScUnMode, .stAt = {4, 21, 20}, .pstWhen = NP_WHEN(ulType, Np_Types(12))),
    NP_F(ulAoeCtrlWord, .bLost = true, .bHidden = true),
    NP_F(aucMacAddr, .stAt = {14, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC,
         .pstWhen = NP_WHEN(ulType, NP_HAS_MAC)),
    // A session has the MAC's last four bytes; the command line still takes all six.
    NP_F(aucMacAddr, .ucType = NP_SMD_MAC, .pstWhen = NP_WHEN(ulType, NP_HAS_SESSION),
         .bLost = true),
    NP_F(aucMacAddr, .stAt = {14, 7, 0}, .sStep = -8, .pstWhen = NP_WHEN(ulType, NP_HAS_SESSION),
         .bHidden = true, .usFirst = 2),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulType, Np_Below(16)),
    NP_C(ulSvlanID, Np_Below(4096)),
    NP_C(ulCvlanID, Np_Below(4096)),
    NP_C(ulSvlan1p, Np_Below(8)),
    NP_C(ulCvlan1p, Np_Below(8)),
    NP_C(ulSessionID, Np_Below(0x10000)),
    NP_C(ulVsi, Np_MostCap(NP_CAP_VSI_MAX)),
    NP_C(ulAoeCtrlWord, Np_MostCap(NP_CAP_ARL_PARAM_MAX)),
    NP_C(ulScUnMode, Np_Below(4)),
    NP_C(stPort, Np_Port(), .pstWhen = NP_WHEN(ulType, NP_HAS_PORT)),
};
}  // namespace arl_key

namespace arl_data {
using R = NpArlData;
constexpr NpSmdKeyEnum g_astClassWords[] = {{0, "low", 1}, {0, "high", 2}};
constexpr uint32_t NP_REAL_MAC = 1u << 0;
constexpr uint32_t NP_VIRTUAL_MAC = 1u << 1;
constexpr NpField g_astField[] = {
    NP_F(stLearnData.ulOpCode, .stAt = {4, 19, 17}),
    NP_F(stLearnData.ulIntfID, .stAt = {4, 16, 4}),
    NP_F(ulPfEnable, .stAt = {4, 3, 3}),
    NP_F(ulClass, .stAt = {4, 2, 1}, .stWords = g_astClassWords),
    NP_F(ulVmac, .stAt = {0, 1, 1}),
    NP_F(ulVmacID, .stAt = {0, 15, 4}, .pstWhen = NP_WHEN(ulVmac, NP_VIRTUAL_MAC)),
    NP_F(ulMdiEnable, .stAt = {0, 15, 15}, .pstWhen = NP_WHEN(ulVmac, NP_REAL_MAC)),
    NP_F(ulMdiID, .stAt = {0, 14, 13}, .pstWhen = NP_WHEN(ulVmac, NP_REAL_MAC)),
    NP_F(ulMcnID, .stAt = {0, 12, 11}, .pstWhen = NP_WHEN(ulVmac, NP_REAL_MAC)),
    NP_F(ulL3, .stAt = {0, 3, 3}),
    NP_F(ulIftID, .stAt = {0, 32, 20}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(stLearnData.ulOpCode, Np_Below(8)),
    NP_C(stLearnData.ulIntfID, Np_MostCap(NP_CAP_UV_KEY_MAX)),
    NP_C(ulIftID, Np_BelowCap(NP_CAP_FLOW_NUM)),
    NP_C(ulClass, Np_Below(4)),
    NP_C(ulVmacID, Np_MostCap(NP_CAP_VLAN_ID_MAX), .pstWhen = NP_WHEN(ulVmac, NP_VIRTUAL_MAC)),
    NP_C(ulMdiID, Np_MostCap(NP_CAP_MDI_ID_MAX), .pstWhen = NP_WHEN(ulVmac, NP_REAL_MAC)),
    NP_C(ulMcnID, Np_MostCap(NP_CAP_MC_STAT_MAX), .pstWhen = NP_WHEN(ulVmac, NP_REAL_MAC)),
    NP_C(ulPfEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulVmac, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMdiEnable, Np_Flag(NP_SAY_ENABLE), .pstWhen = NP_WHEN(ulVmac, NP_REAL_MAC)),
    NP_C(ulL3, Np_Flag(NP_SAY_ENABLE)),
};
}  // namespace arl_data

namespace lan_key {
using R = NpLanMacKey;
constexpr NpField g_astField[] = {
    NP_F(ulSvlanID, .stAt = {4, 39, 28}),
    NP_F(aucMacAddr, .stAt = {14, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC),
};
constexpr NpCheck g_astCheck[] = {NP_C(ulSvlanID, Np_Below(4096))};
}  // namespace lan_key

namespace lan_data {
using R = NpLanMacData;
constexpr NpField g_astField[] = {NP_F(ulL2encId, .stAt = {4, 19, 12})};
constexpr NpCheck g_astCheck[] = {NP_C(ulL2encId, Np_MostCap(NP_CAP_L2_ENCAP_ID_MAX))};
}  // namespace lan_data

namespace age_mode_key {
using R = NpArlAgeModeKey;
constexpr NpField g_astField[] = {
    NP_F(stPort),
    NP_F(aucUmacAddr, .ucType = NP_SMD_MAC),
    NP_F(aucVmacAddr, .ucType = NP_SMD_MAC),
    NP_F(ulVsi),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(stPort, Np_Port()),
    NP_C(ulVsi, Np_MostCap(NP_CAP_VSI_MAX)),
};
}  // namespace age_mode_key

namespace uvmac_key {
using R = NpUvmacInfoKey;
constexpr NpField g_astField[] = {
    NP_F(ulType),
    NP_F(stPort),
    NP_F(stLearnData.ulOpCode, .pstWhen = NP_WHEN(ulType, 1u << 1)),
    NP_F(stLearnData.ulIntfID, .pstWhen = NP_WHEN(ulType, 1u << 1)),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulType, Np_Below(2)),
    NP_C(stPort, Np_Port()),
    NP_C(stLearnData.ulOpCode, Np_Below(8)),
    NP_C(stLearnData.ulIntfID, Np_MostCap(NP_CAP_UV_KEY_MAX)),
};
}  // namespace uvmac_key

namespace normal_age {
using R = NpNormalAge;
constexpr NpField g_astField[] = {NP_F(ulAgeEnable), NP_F(ulAgeTime)};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulAgeEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulAgeTime, Np_MostCap(NP_CAP_AGE_TIME_MAX)),
};
}  // namespace normal_age

namespace force_age {
using R = NpForceAge;
// What each bit of the map lets the identifier be: at most the word of a slot less a number, or at
// most a number. Those of one group stand for one another, and the first that is set is tested.
struct NpAgeSelector {
    uint32_t ulBit;
    bool bGroup;
    NpLimit stLimit;
};
constexpr NpAgeSelector g_astSelector[] = {
    {1u << 6, false, Np_Most(3)},
    {1u << 4, false, Np_MostCap(NP_CAP_VSI_MAX)},
    {1u << 2, false, Np_Most(4095)},
    {1u << 0, true, Np_BelowCap(NP_CAP_FLOW_NUM)},
    {1u << 1, true, Np_BelowCap(NP_CAP_BUNDLE_NUM)},
    {1u << 3, true, Np_MostCap(NP_CAP_CM_GROUP_MAX)},
    {1u << 5, true, Np_BelowCap(NP_CAP_FLOW_NUM)},
};

uint32_t Np_ForceAgeIDCheck(const NpRow *, uint32_t, const void *pvRecord)
{
    const NpForceAge *pstForceAge = static_cast<const NpForceAge *>(pvRecord);
    bool bGroupDone = false;
    for (const NpAgeSelector &stSelector : g_astSelector) {
        if ((pstForceAge->ulForceAgeIDBitmap & stSelector.ulBit) == 0 ||
            (stSelector.bGroup && bGroupDone)) {
            continue;
        }
        bGroupDone = bGroupDone || stSelector.bGroup;
        if (pstForceAge->ulForceAgeID > Np_Row_LimitMax(&stSelector.stLimit)) {
            NP_TRACE_AT((NpWhere{"Np_Tarn_Arl_ForceAgeInfoCheck", __LINE__}), NP_M_ARL,
                        NP_PRINT_ERROR, "param error! (pstForceAge->ulForceAgeID)=0x%08x\r\n",
                        pstForceAge->ulForceAgeID);
            return NP_ERR_PARAM;
        }
    }
    return NP_OK;
}

constexpr NpField g_astField[] = {NP_F(ulForceAgeIDBitmap), NP_F(ulForceAgeID)};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulForceAgeIDBitmap, Np_MostCap(NP_CAP_FORCE_AGE_ID_MAX)),
    NP_C(ulForceAgeID, Np_Custom(), .pfnCustom = Np_ForceAgeIDCheck),
};
}  // namespace force_age

namespace del_type {
struct R {
    uint32_t ulMacDelType;
};
constexpr auto g_astWords = Np_Words("static", "dynamic", "all");
constexpr NpField g_astField[] = {NP_F(ulMacDelType, .stWords = g_astWords)};
constexpr NpCheck g_astCheck[] = {NP_C(ulMacDelType, Np_Most(2))};
}  // namespace del_type

namespace info {
using R = NpArlInfo;
constexpr auto g_astTypeWords = Np_Words("static", "dynamic", "none");
constexpr NpField g_astField[] = {
    NP_F(ulMacType, .stWords = g_astTypeWords),
    NP_F(ulVas),
    NP_F(ulKeyIndex),
};
static_assert(sizeof(NpLanMacInfo) == sizeof(R));
}  // namespace info

namespace age_mode {
struct R {
    uint32_t ulAgeMode;
};
constexpr auto g_astWords = Np_Words("static", "age", "delete");
constexpr NpField g_astField[] = {NP_F(ulAgeMode, .stWords = g_astWords)};
constexpr NpCheck g_astCheck[] = {NP_C(ulAgeMode, Np_Below(3))};
}  // namespace age_mode

// The limit counters that rows 0 to ulRows - 1 hold. They count down to the base value.
inline constexpr uint32_t NP_LIMIT_BASE = 0x80000000;
inline constexpr uint32_t NP_LIMIT_MASK = 0xffff;
inline constexpr uint32_t NP_LIMIT_MAX = 1024;
inline constexpr uint32_t NP_LIMIT_SHOWN = 2047;  // what the prompt shows
inline constexpr uint32_t NP_LIMIT_PORTS = 64;

uint32_t Np_LimitEncode(uint32_t, const void *pvField, uint32_t *pulStored)
{
    uint16_t usLimitNum;
    __builtin_memcpy(&usLimitNum, pvField, sizeof(usLimitNum));
    *pulStored = NP_LIMIT_BASE | usLimitNum;
    return NP_OK;
}

uint32_t Np_LimitDecode(uint32_t, uint32_t ulStored, void *pvField)
{
    const auto usLimitNum = static_cast<uint16_t>(ulStored & NP_LIMIT_MASK);
    __builtin_memcpy(pvField, &usLimitNum, sizeof(usLimitNum));
    return NP_OK;
}

constexpr NpCoding g_stLimitCoding = {Np_LimitEncode, Np_LimitDecode, "", "", false};

template <typename Record, uint32_t ulRows>
struct NpLimitRow {
    using R = NpIndexArg;
    static constexpr NpField g_astKeyField[] = {NP_F(ulIndex, .pszKey = "index")};
    static constexpr NpCheck g_astKeyCheck[] = {NP_C(ulIndex, Np_Below(ulRows))};
    static constexpr NpRow g_stKey =
        Np_RowMake<R>({.ucModule = NP_M_ARL}, g_astKeyField, g_astKeyCheck);
    static constexpr NpField g_astField[] = {
        Np_FieldMake<uint16_t>("usLimitNum", 0, sizeof(uint16_t), 0,
                               {.stAt = {0, 31, 0},
                                .pszKey = "limitnum",
                                .pstCoding = &g_stLimitCoding,
                                .usShownMax = NP_LIMIT_SHOWN})};
    static constexpr NpCheck g_astCheck[] = {
        Np_CheckMake<uint16_t>("usLimitNum", 0, sizeof(uint16_t), 0, Np_Most(NP_LIMIT_MAX), {})};
};

using PortLimit = NpLimitRow<NpPortLimitNum, NP_LIMIT_PORTS>;
using GlbLimit = NpLimitRow<NpGlbLimitNum, 1>;
constexpr NpRow g_stPortLimitRow = Np_RowMake<NpPortLimitNum>(
    {.ucModule = NP_M_ARL, .pszArg = "pstPortLimitNum", .usImageSize = 4}, PortLimit::g_astField,
    PortLimit::g_astCheck);
constexpr NpRow g_stGlbLimitRow =
    Np_RowMake<NpGlbLimitNum>({.ucModule = NP_M_ARL, .pszArg = "pstGlbLimitNum", .usImageSize = 4},
                              GlbLimit::g_astField, GlbLimit::g_astCheck);

namespace offset_key {
struct R {
    uint32_t ulIndex;
};
constexpr NpField g_astField[] = {NP_F(ulIndex, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulIndex, Np_Below(32))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_ARL}, g_astField, g_astCheck);
}  // namespace offset_key

namespace offset_row {
using R = NpVmacOffset;
// The first value stands in the uppermost byte of the last word, the others below it.
constexpr NpField g_astField[] = {NP_F(ulVmacOffset, .stAt = {31, 7, 0}, .sStep = -8)};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_ARL, .pszArg = "pstVmacOffset", .usImageSize = 32}, g_astField, {});
}  // namespace offset_row

namespace state_row {
using R = NpDynamicLrnState;
constexpr NpField g_astField[] = {
    NP_F(ulDone, .stAt = {0, 31, 31}, .bCut = true),
    NP_F(ulLrnResult, .stAt = {0, 30, 28}, .bCut = true),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_ARL, .pszArg = "pstDynamicLrnState", .usImageSize = 4}, g_astField, {});
}  // namespace state_row

}  // namespace

constexpr NpThere g_stArlKeyThere = Np_FieldsThere(arl_key::g_astField);
constexpr NpRow g_stArlKeyRow = Np_RowMake<NpArlKey>({.ucModule = NP_M_ARL,
                                                      .pszArg = "pstArlKey",
                                                      .usImageSize = 16,
                                                      .pstThere = &g_stArlKeyThere,
                                                      .bParseClears = true},
                                                     arl_key::g_astField, arl_key::g_astCheck);
constexpr NpRow g_stArlDataRow =
    Np_RowMake<NpArlData>({.ucModule = NP_M_ARL,
                           .pszArg = "pstArlData",
                           .usImageSize = 16,
                           .pstStraight = NP_STRAIGHT(arl_data::g_astField, arl_data::g_astCheck),
                           .bParseClears = true},
                          arl_data::g_astField, arl_data::g_astCheck);
constexpr NpRow g_stLanMacKeyRow =
    Np_RowMake<NpLanMacKey>({.ucModule = NP_M_ARL,
                             .pszArg = "pstLanMacKey",
                             .usImageSize = 16,
                             .pstStraight = NP_STRAIGHT(lan_key::g_astField, lan_key::g_astCheck)},
                            lan_key::g_astField, lan_key::g_astCheck);
constexpr NpRow g_stLanMacDataRow = Np_RowMake<NpLanMacData>(
    {.ucModule = NP_M_ARL,
     .pszArg = "pstLanMacData",
     .usImageSize = 16,
     .pstStraight = NP_STRAIGHT(lan_data::g_astField, lan_data::g_astCheck)},
    lan_data::g_astField, lan_data::g_astCheck);
constexpr NpRow g_stArlInfoRow =
    Np_RowMake<NpArlInfo>({.ucModule = NP_M_ARL}, info::g_astField, {});
constexpr NpRow g_stArlAgeModeKeyRow =
    Np_RowMake<NpArlAgeModeKey>({.ucModule = NP_M_ARL, .pszArg = "pstArlAgeModeKey"},
                                age_mode_key::g_astField, age_mode_key::g_astCheck);
constexpr NpRow g_stUvmacInfoKeyRow =
    Np_RowMake<NpUvmacInfoKey>({.ucModule = NP_M_ARL, .pszArg = "pstUvmacInfoKey"},
                               uvmac_key::g_astField, uvmac_key::g_astCheck);
constexpr NpRow g_stNormalAgeRow =
    Np_RowMake<NpNormalAge>({.ucModule = NP_M_ARL, .pszArg = "pstNormalAge"},
                            normal_age::g_astField, normal_age::g_astCheck);
constexpr NpRow g_stForceAgeRow = Np_RowMake<NpForceAge>(
    {.ucModule = NP_M_ARL, .pszArg = "pstForceAge"}, force_age::g_astField, force_age::g_astCheck);
constexpr NpRow g_stArlIndexArgs = NpIndexKey<NP_M_ARL, NP_CAP_ARL_TABLE_SIZE>::g_stRow;
constexpr NpRow g_stLanMacIndexArgs = NpIndexKey<NP_M_ARL, NP_CAP_LAN_MAC_TABLE_SIZE>::g_stRow;
constexpr NpRow g_stMacDelTypeArgs =
    Np_RowMake<del_type::R>({.ucModule = NP_M_ARL}, del_type::g_astField, del_type::g_astCheck);
constexpr NpRow g_stAgeModeArgs =
    Np_RowMake<age_mode::R>({.ucModule = NP_M_ARL}, age_mode::g_astField, age_mode::g_astCheck);

constexpr NpTable g_stVmacOffsetTable = Np_TableMake(offset_key::g_stRow, offset_row::g_stRow, 136);
constexpr NpTable g_stPortMacLimitTable = Np_TableMake(PortLimit::g_stKey, g_stPortLimitRow, 145);
constexpr NpTable g_stGlbLanMacLimitTable = Np_TableMake(GlbLimit::g_stKey, g_stGlbLimitRow, 146);
constexpr NpRow g_stLearnStateArgs = NpIndexKey<NP_M_ARL, NP_CAP_ARL_STATE_ROWS>::g_stRow;
constexpr NpTable g_stLearnStateTable = Np_TableMake(g_stLearnStateArgs, state_row::g_stRow, 96);

extern "C" {

NP_TABLE_SET(Np_Tarn_VmacOffsetTbl_Set, NpVmacOffset, g_stVmacOffsetTable)
NP_TABLE_GET(Np_Tarn_VmacOffsetTbl_Get, NpVmacOffset, g_stVmacOffsetTable)
NP_TABLE_SET(Np_Tarn_Arl_PortMacLimitTbl_Set, NpPortLimitNum, g_stPortMacLimitTable)
NP_TABLE_GET(Np_Tarn_Arl_PortMacLimitTbl_Get, NpPortLimitNum, g_stPortMacLimitTable)
NP_TABLE_SET(Np_Tarn_Arl_GlbLanMacLimitTbl_Set, NpGlbLimitNum, g_stGlbLanMacLimitTable)
NP_TABLE_GET(Np_Tarn_Arl_GlbLanMacLimitTbl_Get, NpGlbLimitNum, g_stGlbLanMacLimitTable)

}  // extern "C"
