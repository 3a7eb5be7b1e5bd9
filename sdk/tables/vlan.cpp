#include "sdk/tables/vlan.h"

#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/straight.h"

namespace {

constexpr auto g_astActionWords = Np_Words("fwd", "snooping", "drop", "cpu");
constexpr auto g_astStatusWords = Np_Words("forwarding", "blocking", "learning", "disable");

// Four tables have a row for each VLAN.
namespace vlan_key {
struct R {
    uint32_t ulVlanID;
};
constexpr NpField g_astField[] = {NP_F(ulVlanID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulVlanID, Np_BelowCap(NP_CAP_VLAN_ROWS))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_VLAN}, g_astField, g_astCheck);
}  // namespace vlan_key

namespace vlan_row {
using R = NpVlan;
constexpr auto g_astFwdWords = Np_Words("fwd", "snooping", "drop", "tocpu");
constexpr auto g_astVmacWords = Np_Words("none", "1_1", "n_1", "both");
constexpr auto g_astLearnWords =
    Np_Words("svlan_mac", "svlan_cvlan_stat", "svlan", "svlan_pri", "svlan_cvlan_dynamic",
             "svlan_session_brasmac", "mac", "svlan_ipv4");
constexpr auto g_astSearchWords =
    Np_Words("dmac_vlan", "vlan_sip_dip", "dip", "sip_dip", "vlan_dip", "svlan_cvlan");

// Bytes 0 to 7 are the VLAN row, 8 to 11 its extension.
constexpr NpField g_astField[] = {
    NP_F(ulFwd, .stAt = {7, 7, 6}, .stWords = g_astFwdWords),
    NP_F(ulUpUnUcFiterEnable, .stAt = {8, 28, 28}),
    NP_F(ulUpUnMcFiterEnable, .stAt = {8, 27, 27}),
    NP_F(ulUpBcFilterEnable, .stAt = {8, 26, 26}),
    NP_F(ulUpUnUcNoDropEnable, .stAt = {8, 31, 31}),
    NP_F(ulUpUnMcNoDropEnable, .stAt = {8, 30, 30}),
    NP_F(ulUpBcNoDropEnable, .stAt = {8, 29, 29}),
    NP_F(ulDownUnUcFiterEnable, .stAt = {8, 20, 20}),
    NP_F(ulDownUnMcFiterEnable, .stAt = {8, 19, 19}),
    NP_F(ulDownBcFilterEnable, .stAt = {8, 18, 18}),
    NP_F(ulDownUnUcNoDropEnable, .stAt = {8, 23, 23}),
    NP_F(ulDownUnMcNoDropEnable, .stAt = {8, 22, 22}),
    NP_F(ulDownBcNoDropEnable, .stAt = {8, 21, 21}),
    NP_F(ulVrfID, .stAt = {3, 7, 4}),
    NP_F(ulPppoeVmacMask, .stAt = {6, 7, 6}, .stWords = g_astVmacWords),
    NP_F(ulNonPppoeVmacMask, .stAt = {6, 5, 4}, .stWords = g_astVmacWords),
    NP_F(ulMstpID, .stAt = {7, 4, 3}),
    NP_F(ulUrpfMode, .stAt = {3, 3, 2}),
    NP_F(ulULrnMode, .stAt = {6, 3, 1}, .stWords = g_astLearnWords),
    NP_F(ulNLrnMode, .stAt = {4, 16, 14}, .stWords = g_astLearnWords),
    NP_F(ulMccLeafID, .stAt = {8, 12, 0}),
    NP_F(ulVlanIf, .stAt = {4, 4, 0}),
    NP_F(ulMcSearchMode, .stAt = {5, 5, 3}, .stWords = g_astSearchWords),
    NP_F(ulPortBitMap, .stAt = {0, 25, 0}),
    NP_F(ulQinQ, .stAt = {7, 2, 2}),
    NP_F(ulBrasMacEnable, .stAt = {7, 1, 1}),
    NP_F(ulVlanIfEnable, .stAt = {7, 0, 0}),
    NP_F(ulMcModeEnable, .stAt = {7, 5, 5}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulMccLeafID, Np_BelowCap(NP_CAP_MET_ROWS)),
    NP_C(ulMstpID, Np_MostCap(NP_CAP_MSTP_MAX)),
    NP_C(ulVlanIf, Np_MostCap(NP_CAP_VLAN_IF_MAX)),
    NP_C(ulVrfID, Np_MostCap(NP_CAP_VRF_MAX)),
    NP_C(ulPortBitMap, Np_MostCap(NP_CAP_PORT_BITMAP_MAX)),
    NP_C(ulUrpfMode, Np_Below(4)),
    NP_C(ulMcSearchMode, Np_Below(8)),
    NP_C(ulNLrnMode, Np_Below(8)),
    NP_C(ulULrnMode, Np_Below(8)),
    NP_C(ulPppoeVmacMask, Np_Below(4)),
    NP_C(ulNonPppoeVmacMask, Np_Below(4)),
    NP_C(ulFwd, Np_Below(4)),
    NP_C(ulUpBcFilterEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUpBcNoDropEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUpUnMcFiterEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUpUnMcNoDropEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUpUnUcFiterEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUpUnUcNoDropEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulBrasMacEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulVlanIfEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMcModeEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDownBcFilterEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDownBcNoDropEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDownUnMcFiterEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDownUnMcNoDropEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDownUnUcFiterEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDownUnUcNoDropEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulQinQ, Np_Flag(NP_SAY_ENABLE)),
};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_VLAN,
                                         .pszArg = "pstVlan",
                                         .usImageSize = 12,
                                         .pstStraight = NP_STRAIGHT(g_astField, g_astCheck)},
                                        g_astField, g_astCheck);
}  // namespace vlan_row

namespace option_row {
using R = NpVlanOption;
constexpr NpField g_astField[] = {
    NP_F(aulUpAction, .stAt = {0, 1, 0}, .sStep = 2, .pszKey = "upoption",
         .stWords = g_astActionWords),
    NP_F(aulDownAction, .stAt = {8, 1, 0}, .sStep = 2, .pszKey = "downoption",
         .stWords = g_astActionWords),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(aulDownAction, Np_Most(3), .pszText = "aulDownAction[ulIndex]", .bWithNext = true),
    NP_C(aulUpAction, Np_Most(3), .pszText = "aulUpAction[ulIndex]"),
};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_VLAN,
                                         .pszArg = "pstVlanOption",
                                         .usImageSize = 16,
                                         .pstStraight = NP_STRAIGHT(g_astField, g_astCheck)},
                                        g_astField, g_astCheck);
}  // namespace option_row

namespace ptt_row {
using R = NpVlanPtt;
constexpr NpField g_astField[] = {
    NP_F(ulUpProtocolTempletID, .stAt = {0, 7, 0}),
    NP_F(ulDownProtocolTempletID, .stAt = {1, 7, 0}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulDownProtocolTempletID, Np_BelowCap(NP_CAP_PTT1_ROWS)),
    NP_C(ulUpProtocolTempletID, Np_BelowCap(NP_CAP_PTT1_ROWS)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_VLAN, .pszArg = "pstVlanPtt", .usImageSize = 4}, g_astField, g_astCheck);
}  // namespace ptt_row

namespace lan_row {
using R = NpLanVlan;
constexpr NpField g_astField[] = {
    NP_F(ulWan, .stAt = {0, 31, 31}),   NP_F(ulUniPortBitMap, .stAt = {0, 24, 0}, .bCut = true),
    NP_F(ulNDUUC, .stAt = {0, 30, 30}), NP_F(ulNDUMC, .stAt = {0, 29, 29}),
    NP_F(ulNDBC, .stAt = {0, 28, 28}),  NP_F(ulUUF, .stAt = {0, 27, 27}),
    NP_F(ulUMF, .stAt = {0, 26, 26}),   NP_F(ulBF, .stAt = {0, 25, 25}),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulBF, Np_Flag(NP_SAY_ENABLE)),    NP_C(ulNDBC, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulNDUMC, Np_Flag(NP_SAY_ENABLE)), NP_C(ulNDUUC, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUMF, Np_Flag(NP_SAY_ENABLE)),   NP_C(ulUUF, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulWan, Np_Flag(NP_SAY_ENABLE)),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_VLAN, .pszArg = "pstLanVlanBc", .usImageSize = 4}, g_astField, g_astCheck);
}  // namespace lan_row

namespace istp_key {
struct R {
    uint32_t ulIstpID;
};
constexpr NpField g_astField[] = {NP_F(ulIstpID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulIstpID, Np_BelowCap(NP_CAP_ISTP_SLOTS))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_VLAN}, g_astField, g_astCheck);
}  // namespace istp_key

namespace istp_row {
using R = NpIstp;
constexpr NpField g_astField[] = {
    NP_F_EACH(astStatus, ulStatus, .stAt = {0, 1, 0}, .sStep = 2, .stWords = g_astStatusWords),
};
constexpr NpCheck g_astCheck[] = {
    NP_C_EACH(astStatus, ulStatus, Np_Most(3),
              .pszText = "astStatus[ulIstpPvtArrayIndex].ulStatus"),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_VLAN, .pszArg = "pstIstp", .usImageSize = 4}, g_astField, g_astCheck);
}  // namespace istp_row

namespace estp_key {
struct R {
    uint32_t ulEstpID;
};
constexpr NpField g_astField[] = {NP_F(ulEstpID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulEstpID, Np_BelowCap(NP_CAP_ESTP_SLOTS))};
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_VLAN}, g_astField, g_astCheck);
}  // namespace estp_key

namespace estp_row {
using R = NpEstp;
constexpr NpField g_astField[] = {
    NP_F_EACH(astStatus, ulStatus, .stAt = {0, 1, 0}, .sStep = 2, .stWords = g_astStatusWords),
};
constexpr NpCheck g_astCheck[] = {
    NP_C_EACH(astStatus, ulStatus, Np_Most(3),
              .pszText = "astStatus[ulEstpPvtArrayIndex].ulStatus"),
};
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_VLAN, .pszArg = "pstEstp", .usImageSize = 4}, g_astField, g_astCheck);
}  // namespace estp_row

}  // namespace

constexpr NpTable g_stVlanTable =
    Np_TableOf(vlan_key::g_stRow, vlan_row::g_stRow, {}, Np_RegPart(25), Np_RegPart(49, 8));
constexpr NpTable g_stVlanOptionTable = Np_TableMake(vlan_key::g_stRow, option_row::g_stRow, 82);
constexpr NpTable g_stVlanPttTable = Np_TableMake(vlan_key::g_stRow, ptt_row::g_stRow, 81);
constexpr NpTable g_stLanVlanTable = Np_TableMake(vlan_key::g_stRow, lan_row::g_stRow, 141);
constexpr NpTable g_stIstpTable = Np_TableMake(istp_key::g_stRow, istp_row::g_stRow, 26);
constexpr NpTable g_stEstpTable = Np_TableMake(estp_key::g_stRow, estp_row::g_stRow, 27);

extern "C" {

NP_TABLE_SET(Np_Tarn_VlanTbl_Set, NpVlan, g_stVlanTable)
NP_TABLE_GET(Np_Tarn_VlanTbl_Get, NpVlan, g_stVlanTable)
NP_TABLE_SET(Np_Tarn_VlanOptionTbl_Set, NpVlanOption, g_stVlanOptionTable)
NP_TABLE_GET(Np_Tarn_VlanOptionTbl_Get, NpVlanOption, g_stVlanOptionTable)
NP_TABLE_SET(Np_Tarn_VlanPttTbl_Set, NpVlanPtt, g_stVlanPttTable)
NP_TABLE_GET(Np_Tarn_VlanPttTbl_Get, NpVlanPtt, g_stVlanPttTable)
NP_TABLE_SET(Np_Tarn_LanVlanTbl_Set, NpLanVlan, g_stLanVlanTable)
NP_TABLE_GET(Np_Tarn_LanVlanTbl_Get, NpLanVlan, g_stLanVlanTable)
NP_TABLE_SET(Np_Tarn_IstpTbl_Set, NpIstp, g_stIstpTable)
NP_TABLE_GET(Np_Tarn_IstpTbl_Get, NpIstp, g_stIstpTable)
NP_TABLE_SET(Np_Tarn_EstpTbl_Set, NpEstp, g_stEstpTable)
NP_TABLE_GET(Np_Tarn_EstpTbl_Get, NpEstp, g_stEstpTable)

}  // extern "C"
