#include "sdk/tables/pa.h"

#include "ldsdk/status.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/lookup/lcam.h"
#include "sdk/record/straight.h"

constinit NpPriCamKeyInfo *g_pastL2paKeyID2EntryPri[NP_CHIP_NUM] = {};
constinit uint32_t *g_pastL2paEntry2KeyID[NP_CHIP_NUM] = {};
constinit NpPriBlockPoint *g_pastL2paBlockInfo[NP_CHIP_NUM] = {};
constinit uint32_t g_aulL2paItemNum[NP_CHIP_NUM] = {};
constinit uint32_t g_aulL2paPriMax[NP_CHIP_NUM] = {};
constinit NpPriCamKeyInfo *g_pastL3paKeyID2EntryPri[NP_CHIP_NUM] = {};
constinit uint32_t *g_pastL3paEntry2KeyID[NP_CHIP_NUM] = {};
constinit uint32_t *g_pastL3paKeyID2Type[NP_CHIP_NUM] = {};
constinit NpPriBlockPoint *g_pastL3paBlockInfo[NP_CHIP_NUM] = {};
constinit uint32_t g_aulL3paItemNum[NP_CHIP_NUM] = {};
constinit uint32_t g_aulL3paPriMax[NP_CHIP_NUM] = {};

namespace {

// Images of the two CAMs: key, mask and AD, one behind the other.
inline constexpr uint16_t NP_KEY_SIZE = 12;
inline constexpr uint16_t NP_AD_AT = 2 * NP_KEY_SIZE;
inline constexpr uint16_t NP_RULE_SIZE = NP_AD_AT + 8;

inline constexpr uint32_t NP_ETH_TYPE_OTHERS = 8;  // of ulEthTypeMask

// ---- the action ---------------------------------------------------------------------------------

// In all three tables, by two words.
namespace ad {
using R = NpPaAd;
constexpr auto g_astActionWords = Np_Words("forward", "snooping", "drop", "cpu");
constexpr auto g_astBoolWords = Np_Words("false", "true");
constexpr auto g_astEnableWords = Np_Words("disable", "enable");
constexpr auto g_astPttWords = Np_Words("ptt1", "ptt2");
constexpr auto g_astExcpWords = Np_Words("invalid", "ptype");
constexpr NpSmdKeyEnum g_astEthTypeWords[] = {
    {0, "ip4", 1}, {0, "ip6", 2}, {0, "pppoe", 4}, {0, "others", 8}};
constexpr NpSmdKeyEnum g_astAnalyseWords[] = {
    {0, "none", 0}, {0, "ipv4", 1}, {0, "ipv6", 2}, {0, "pppoe", 3}, {0, "others", 7}};
constexpr NpSmdKeyEnum g_astL2Words[] = {
    {0, "unknow", 0},      {0, "ppp", 16},    {0, "eth_uc", 32}, {0, "eth_ucdevice", 40},
    {0, "eth_ucport", 44}, {0, "eth_mc", 48}, {0, "eth_bc", 56}};
constexpr NpSmdKeyEnum g_astL3Words[] = {{0, "unknow", 0},   {0, "mpls_u", 6},   {0, "mpls_m", 7},
                                         {0, "ipv4_uc", 9},  {0, "ipv4_mc", 10}, {0, "ipv4_bc", 11},
                                         {0, "ipv6_uc", 12}, {0, "ipv6_mc", 13}};

constexpr NpField g_astField[] = {
    NP_F(ulUniAction, .stAt = {4, 31, 30}, .pszKey = "uniaction", .stWords = g_astActionWords),
    NP_F(ulNniAction, .stAt = {4, 29, 28}, .pszKey = "nniaction", .stWords = g_astActionWords),
    NP_F(ulBlockSensitive, .stAt = {4, 22, 22}, .pszKey = "block", .stWords = g_astBoolWords),
    NP_F(ulSuppressCtrlEnable, .stAt = {4, 25, 25}, .pszKey = "suppress",
         .stWords = g_astEnableWords),
    NP_F(ulQinQSensitive, .stAt = {4, 24, 24}, .pszKey = "qinq", .stWords = g_astBoolWords),
    NP_F(ulEthTypeMask, .stAt = {4, 15, 8}, .pszKey = "ethtype_mask", .stWords = g_astEthTypeWords),
    NP_F(ulPttSensitive, .stAt = {4, 27, 27}, .pszKey = "ptt", .stWords = g_astBoolWords),
    NP_F(ulPttType, .stAt = {4, 23, 23}, .pszKey = "ptt_type", .stWords = g_astPttWords),
    NP_F(ulPttOffset, .stAt = {4, 7, 0}, .pszKey = "ptt_offset"),
    NP_F(ulPppLcpEnable, .stAt = {0, 24, 24}, .pszKey = "ppp_lcp", .stWords = g_astEnableWords),
    NP_F(ulVmacNTo1Enable, .stAt = {0, 25, 25}, .pszKey = "vmac_nto1", .stWords = g_astEnableWords),
    NP_F(ulAnalyseCtrl, .stAt = {0, 31, 29}, .pszKey = "analyse_ctrl",
         .stWords = g_astAnalyseWords),
    NP_F(ulAccelerateL2Type, .stAt = {0, 21, 16}, .pszKey = "l2type", .stWords = g_astL2Words),
    NP_F(ulAccelerateL3Type, .stAt = {0, 15, 12}, .pszKey = "l3type", .stWords = g_astL3Words),
    NP_F(ulExcpInfoType, .stAt = {0, 11, 11}, .pszKey = "excp_type", .stWords = g_astExcpWords),
    NP_F(ulExcpInfo, .stAt = {0, 10, 0}, .pszKey = "excp_info"),
    NP_F(ulOam, .stAt = {0, 26, 26}, .pszKey = "oam", .stWords = g_astBoolWords),
    NP_F(ulCasSensitive, .stAt = {4, 26, 26}, .pszKey = "cas", .stWords = g_astBoolWords),
    NP_F(ulForceTrans, .stAt = {0, 28, 28}, .pszKey = "ft", .stWords = g_astEnableWords),
    NP_F(ulMacSpf, .stAt = {0, 27, 27}, .pszKey = "spf", .stWords = g_astEnableWords),
    NP_F(ulDosEnable, .stAt = {0, 23, 23}, .pszKey = "dos", .stWords = g_astEnableWords),
};

// Messages name the action alone, whatever record it stands in.
#define NP_C_AD(Member, stLimit) NP_C(Member, stLimit, .pszText = "pstAD->" #Member, .bAlone = true)
constexpr NpCheck g_astInfoCheck[] = {
    NP_C_AD(ulPttOffset, Np_Most(255)),
    NP_C_AD(ulExcpInfo, Np_MostCap(NP_CAP_EXCP_INFO_MAX)),
};
constexpr NpCheck g_astCheck[] = {
    NP_C_AD(ulUniAction, Np_Most(3)),
    NP_C_AD(ulNniAction, Np_Most(3)),
    NP_C_AD(ulAccelerateL2Type, Np_Most(56)),
    NP_C_AD(ulAccelerateL3Type, Np_Most(13)),
    NP_C_AD(ulAnalyseCtrl, Np_Most(7)),
    NP_C_AD(ulEthTypeMask, Np_Most(15)),
    NP_C_AD(ulPttType, Np_Most(1)),
    NP_C_AD(ulExcpInfoType, Np_Most(1)),
    NP_C(ulBlockSensitive, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulPttSensitive, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulCasSensitive, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulQinQSensitive, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulOam, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulPppLcpEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulSuppressCtrlEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulVmacNTo1Enable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulForceTrans, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulMacSpf, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulDosEnable, Np_Flag(NP_SAY_ENABLE)),
};
#undef NP_C_AD

constexpr auto g_astAllCheck = Np_JoinFields(g_astInfoCheck, g_astCheck);
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PA, .pszArg = "pstPaAd", .usImageSize = 8, .bBare = true},
                  g_astField, g_astAllCheck);
}  // namespace ad

namespace ext_key {
struct R {
    uint32_t ulIndex;
};
constexpr NpField g_astField[] = {NP_F(ulIndex, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulIndex, Np_Below(64))};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PA, .bBare = true}, g_astField, g_astCheck);
}  // namespace ext_key

// ---- L2 analysis --------------------------------------------------------------------------------

namespace l2_key {
struct R {
    uint32_t ulL2paID;
};
constexpr NpField g_astField[] = {NP_F(ulL2paID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulL2paID, Np_BelowCap(NP_CAP_L2PA_ROWS))};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PA, .bBare = true}, g_astField, g_astCheck);
}  // namespace l2_key

namespace l2_row {
using R = NpL2pa;
constexpr NpTwin g_astTwin[] = {
    NP_TWIN(NP_TWIN_BITS, stKey.ulHaInfo, stKeyMask.ulHaInfo, "mask_hainfo", .stAt = {8, 11, 5},
            .pszKey = "key_hainfo"),
    NP_TWIN(NP_TWIN_BITS, stKey.ulEthType, stKeyMask.ulEthType, "mask_ethtype", .stAt = {0, 15, 0},
            .pszKey = "key_ethtype"),
    NP_TWIN(NP_TWIN_BITS, stKey.ulTagInfo, stKeyMask.ulTagInfo, "mask_taginfo", .stAt = {8, 1, 0},
            .pszKey = "key_taginfo"),
    // Its first byte on top.
    NP_TWIN(NP_TWIN_BITS, stKey.aucDmac, stKeyMask.aucDmac, "mask_dmac", .stAt = {7, 7, 0},
            .sStep = -8, .pszKey = "key_dmac", .ucType = NP_SMD_MAC),
};
constexpr NpField g_astPri[] = {NP_F(ulPri, .pszKey = "pri", .bLost = true)};
constexpr auto g_astField =
    Np_JoinFields(Np_TwinValues(g_astTwin), Np_TwinMasks(g_astTwin, NP_KEY_SIZE),
                  Np_Inside<ad::g_astField, offsetof(R, stAD), nullptr, NP_AD_AT>(), g_astPri);

constexpr NpCheck g_astKeyCheck[] = {
    NP_C(stKey.ulEthType, Np_Most(0xffff)),
    NP_C(stKey.ulHaInfo, Np_Most(127)),
};
constexpr NpCheck g_astTagCheck[] = {NP_C(stKey.ulTagInfo, Np_Below(4))};
constexpr auto g_astCheck =
    Np_JoinFields(g_astKeyCheck, Np_Inside<ad::g_astInfoCheck, offsetof(R, stAD)>(), g_astTagCheck,
                  Np_Inside<ad::g_astCheck, offsetof(R, stAD)>());
constexpr NpRow g_stRow = Np_RowMake<R>({.ucModule = NP_M_PA,
                                         .pszArg = "pstL2pa",
                                         .usImageSize = NP_RULE_SIZE,
                                         .pstStraight = NP_STRAIGHT(g_astField, g_astCheck),
                                         .bBare = true},
                                        g_astField, g_astCheck);
}  // namespace l2_row

// ---- L3 analysis --------------------------------------------------------------------------------

namespace l3_key {
struct R {
    uint32_t ulL3paID;
};
constexpr NpField g_astField[] = {NP_F(ulL3paID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulL3paID, Np_BelowCap(NP_CAP_L3PA_ROWS))};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PA, .bBare = true}, g_astField, g_astCheck);
}  // namespace l3_key

namespace l3_row {
using R = NpL3pa;
constexpr auto g_astTypeWords = Np_Words("ppp", "ipv4", "ipv6", "others");
constexpr NpSmdKeyEnum g_astEncapWords[] = {
    {0, "eth", 0},          {0, "ch&eth", 1},      {0, "ppp", 2},      {0, "ch&eth", 3},
    {0, "eth&dsa", 4},      {0, "eth&higi", 5},    {0, "atm&cell", 6}, {0, "ipoa_llc", 8},
    {0, "1483_llc", 9},     {0, "pppoa_llc", 10},  {0, "aoe", 11},     {0, "ipoa_vcmux", 12},
    {0, "1483b_vcmux", 13}, {0, "pppoa_vcmux", 14}};

constexpr const NpWhen *g_pstPpp = NP_WHEN(ulKeyType, 1u << 0);
constexpr const NpWhen *g_pstIpv4 = NP_WHEN(ulKeyType, 1u << 1);
constexpr const NpWhen *g_pstIpv6 = NP_WHEN(ulKeyType, 1u << 2);
constexpr const NpWhen *g_pstOthers = NP_WHEN(ulKeyType, 1u << 3);

// The row does not say what kind of key it has. What depends on it stands behind it.
constexpr NpField g_astType[] = {
    NP_F(ulKeyType, .pszKey = "key_type", .stWords = g_astTypeWords, .bHanded = true)};
constexpr NpTwin g_astCommon[] = {
    NP_TWIN(NP_TWIN_BITS, stKey.ulEncap, stKeyMask.ulEncap, "mask_encap", .stAt = {8, 11, 8},
            .pszKey = "key_encap", .stWords = g_astEncapWords),
    NP_TWIN(NP_TWIN_BITS, stKey.ulHaInfo, stKeyMask.ulHaInfo, "mask_hainfo", .stAt = {8, 7, 1},
            .pszKey = "key_hainfo"),
    NP_TWIN(NP_TWIN_BITS, stKey.ulPttOffset, stKeyMask.ulPttOffset, "mask_ptt_offset",
            .stAt = {7, 7, 0}, .pszKey = "key_ptt_offset"),
};
constexpr NpTwin g_astUnion[] = {
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stPpp.ulPppoeDisCode, stKeyMask.unKey.stPpp.ulPppoeDisCode,
            "mask_pppoe_code", .stAt = {6, 7, 0}, .pszKey = "key_pppoe_code", .pstWhen = g_pstPpp),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stPpp.ulPppProtocol, stKeyMask.unKey.stPpp.ulPppProtocol,
            "mask_ppp_protocol", .stAt = {4, 15, 0}, .pszKey = "key_ppp_protocol",
            .pstWhen = g_pstPpp),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stPpp.ulLcpOpCode, stKeyMask.unKey.stPpp.ulLcpOpCode,
            "mask_lcp_code", .stAt = {3, 7, 0}, .pszKey = "key_lcp_code", .pstWhen = g_pstPpp),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stPpp.ulIpProtocol, stKeyMask.unKey.stPpp.ulIpProtocol,
            "mask_ip_protocol", .stAt = {2, 7, 0}, .pszKey = "key_ip_protocol",
            .pstWhen = g_pstPpp),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stIpv4.ulIpProtocol, stKeyMask.unKey.stIpv4.ulIpProtocol,
            "mask_ip_protocol", .stAt = {6, 7, 0}, .pszKey = "key_ip_protocol",
            .pstWhen = g_pstIpv4),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stIpv4.ulFirstFrgFlag, stKeyMask.unKey.stIpv4.ulFirstFrgFlag,
            "mask_first_frg", .stAt = {5, 0, 0}, .pszKey = "key_first_frg", .pstWhen = g_pstIpv4),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stIpv4.aucIpPayload, stKeyMask.unKey.stIpv4.aucIpPayload,
            "mask_payload", .stAt = {3, 7, 0}, .sStep = -8, .pszKey = "key_payload",
            .ucType = NP_SMD_DATA, .pstWhen = g_pstIpv4),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stIpv6.ulNextHeader, stKeyMask.unKey.stIpv6.ulNextHeader,
            "mask_next_header", .stAt = {6, 7, 0}, .pszKey = "key_next_header",
            .pstWhen = g_pstIpv6),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stIpv6.aucIpPayload, stKeyMask.unKey.stIpv6.aucIpPayload,
            "mask_payload", .stAt = {3, 7, 0}, .sStep = -8, .pszKey = "key_payload",
            .ucType = NP_SMD_DATA, .pstWhen = g_pstIpv6),
    NP_TWIN(NP_TWIN_BITS, stKey.unKey.stOthers.aucPayload, stKeyMask.unKey.stOthers.aucPayload,
            "mask_payload", .stAt = {6, 7, 0}, .sStep = -8, .pszKey = "key_payload",
            .ucType = NP_SMD_DATA, .pstWhen = g_pstOthers),
};
constexpr NpField g_astPri[] = {NP_F(ulPri, .pszKey = "pri", .bLost = true)};
constexpr auto g_astField =
    Np_JoinFields(Np_TwinValues(g_astCommon), Np_TwinMasks(g_astCommon, NP_KEY_SIZE), g_astType,
                  Np_TwinValues(g_astUnion), Np_TwinMasks(g_astUnion, NP_KEY_SIZE),
                  Np_Inside<ad::g_astField, offsetof(R, stAD), nullptr, NP_AD_AT>(), g_astPri);

// The highest priority in force depends on the chip.
uint32_t Np_L3PriCheck(const NpRow *, uint32_t ulChipID, const void *pvRecord)
{
    const NpL3pa *pstL3pa = static_cast<const NpL3pa *>(pvRecord);
    if (pstL3pa->ulPri <= g_aulL3paPriMax[ulChipID]) {
        return NP_OK;
    }
    NP_TRACE_AT((NpWhere{"Np_Tarn_L3paTbl_ParaCheck", __LINE__}), NP_M_PA, NP_PRINT_ERROR,
                "param error! pstL3pa->ulPri=0x%08x\r\n", pstL3pa->ulPri);
    return NP_ERR_PARAM;
}

#define NP_C_UNION(Variant, Member, stLimit, pstCondition)                                \
    NP_C(stKey.unKey.st##Variant.Member, stLimit, .pszText = "pst" #Variant "->" #Member, \
         .bAlone = true, .pstWhen = pstCondition)
constexpr NpCheck g_astKeyCheck[] = {
    NP_C(stKey.ulEncap, Np_Most(15)),
    NP_C(stKey.ulHaInfo, Np_Most(127)),
    NP_C(stKey.ulPttOffset, Np_Most(255)),
    NP_C(ulPri, Np_Custom(), .pfnCustom = Np_L3PriCheck),
    NP_C(ulKeyType, Np_Below(4)),
    NP_C_UNION(Ppp, ulPppoeDisCode, Np_Most(255), g_pstPpp),
    NP_C_UNION(Ppp, ulPppProtocol, Np_Below(0x10000), g_pstPpp),
    NP_C_UNION(Ppp, ulLcpOpCode, Np_Most(255), g_pstPpp),
    NP_C_UNION(Ppp, ulIpProtocol, Np_Most(255), g_pstPpp),
    NP_C_UNION(Ipv4, ulIpProtocol, Np_Most(255), g_pstIpv4),
    NP_C_UNION(Ipv4, ulFirstFrgFlag, Np_Below(2), g_pstIpv4),
    NP_C_UNION(Ipv6, ulNextHeader, Np_Most(255), g_pstIpv6),
};
#undef NP_C_UNION
constexpr auto g_astCheck =
    Np_JoinFields(g_astKeyCheck, Np_Inside<ad::g_astInfoCheck, offsetof(R, stAD)>(),
                  Np_Inside<ad::g_astCheck, offsetof(R, stAD)>());
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_PA, .pszArg = "pstL3pa", .usImageSize = NP_RULE_SIZE, .bBare = true},
    g_astField, g_astCheck);
}  // namespace l3_row

// ---- treatment of packet types and protocol templates -------------------------------------------

namespace pta_row {
using R = NpPta;
constexpr NpField g_astField[] = {
    NP_F(ulFwdCtrl, .stAt = {4, 31, 30}, .pszKey = "fwd_ctrl"),
    NP_F(ulIntrEnable, .stAt = {4, 29, 29}, .pszKey = "intr_enable"),
    NP_F(ulCarEnable, .stAt = {4, 27, 27}, .pszKey = "car_enable"),
    NP_F(ulPtclEnable, .stAt = {4, 26, 26}, .pszKey = "ptcl_enable"),
    NP_F(ulCntID, .stAt = {4, 25, 24}, .pszKey = "cnt_id"),
    NP_F(ulLrnSmacEnable, .stAt = {4, 28, 28}, .pszKey = "lrnsmac_enable"),
    NP_F(ulWredID, .stAt = {4, 7, 0}, .pszKey = "wred_id"),
    NP_F(ulPieCh, .stAt = {0, 30, 28}, .pszKey = "pie_ch"),
    NP_F(ulQID, .stAt = {0, 27, 16}, .pszKey = "queue_id"),
    NP_F(ulPtypeCarID, .stAt = {0, 15, 8}, .pszKey = "ptype_car_id"),
    NP_F(ulCarProfileID, .stAt = {0, 7, 0}, .pszKey = "car_profile_id"),
    NP_F(ulIntrID, .stAt = {4, 12, 8}, .pszKey = "intr_id"),
    NP_F(ulUserCNTEnable, .stAt = {4, 23, 23}, .pszKey = "usercnt_enable"),
    NP_F(ulCntGroupID, .stAt = {4, 22, 21}, .pszKey = "cnt_group_id"),
    NP_F(ulLrnFrcToCpu, .stAt = {0, 31, 31}, .pszKey = "lrn_ftc"),
    NP_F(ulUserToCpuCarEnable, .stAt = {4, 20, 20}, .pszKey = "usrtocpucar_en"),
    NP_F(ulCarGroupID, .stAt = {4, 19, 18}, .pszKey = "car_group_id"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulFwdCtrl, Np_Most(3)),
    NP_C(ulWredID, Np_Most(255)),
    NP_C(ulPieCh, Np_Most(7)),
    NP_C(ulQID, Np_Most(511)),
    NP_C(ulPtypeCarID, Np_Most(255)),
    NP_C(ulCarProfileID, Np_Most(255)),
    NP_C(ulCntID, Np_Most(3)),
    NP_C(ulIntrID, Np_Most(31)),
    NP_C(ulCntGroupID, Np_Most(3)),
    NP_C(ulCarGroupID, Np_Most(3)),
    NP_C(ulIntrEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulCarEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulPtclEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulLrnSmacEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulUserCNTEnable, Np_Flag(NP_SAY_ENABLE)),
    NP_C(ulLrnFrcToCpu, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulUserToCpuCarEnable, Np_Flag(NP_SAY_ENABLE)),
};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PA, .pszArg = "pstPta", .usImageSize = 8, .bBare = true},
                  g_astField, g_astCheck);
}  // namespace pta_row

namespace ptt1_key {
struct R {
    uint32_t ulPtt1ID;
};
constexpr NpField g_astField[] = {NP_F(ulPtt1ID, .pszKey = "index")};
constexpr NpCheck g_astCheck[] = {NP_C(ulPtt1ID, Np_BelowCap(NP_CAP_PTT1_ROWS))};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PA, .bBare = true}, g_astField, g_astCheck);
}  // namespace ptt1_key

namespace ptt1_row {
using R = NpPtt1;
constexpr auto g_astTypeWords = Np_Words("entries", "words");
constexpr const NpWhen *g_pstEntries = NP_WHEN(ulType, 1u << 0);
constexpr const NpWhen *g_pstWords = NP_WHEN(ulType, 1u << 1);
constexpr NpField g_astField[] = {
    NP_F(ulType, .pszKey = "type", .stWords = g_astTypeWords, .bHanded = true),
    NP_F(unPtt.aucPtt1, .stAt = {0, 1, 0}, .sStep = 2, .pszKey = "entry", .pstWhen = g_pstEntries,
         .bFree = true),
    NP_F(unPtt.aulPtt1, .stAt = {0, 31, 0}, .sStep = 32, .pszKey = "word", .pstWhen = g_pstWords),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulType, Np_Most(1), .pszFormat = "error ulType = 0x%08x\r\n"),
    NP_C(unPtt.aucPtt1, Np_Most(3), .pszText = "unPtt.aucPtt1[ulOffsetIndex]",
         .pstWhen = g_pstEntries),
};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_PA, .pszArg = "pastPtt1", .usImageSize = 64, .bBare = true},
                  g_astField, g_astCheck);
}  // namespace ptt1_row

uint32_t Np_L3DefaultSet(uint32_t ulChipID, uint32_t ulEthTypeMask)
{
    NpL3pa stL3pa = {};
    stL3pa.stAD.ulEthTypeMask = ulEthTypeMask;
    return Np_L3paTbl_Set(ulChipID, Np_GLB_CapGet(NP_CAP_L3PA_DEFAULT_ROW), &stL3pa);
}

}  // namespace

constexpr NpRow g_stL2paKeyRow = l2_key::g_stRow;
constexpr NpRow g_stL3paKeyRow = l3_key::g_stRow;
constexpr NpPriTable g_stL2paTable = {
    .pstKey = &g_stL2paKeyRow,
    .pstRow = &l2_row::g_stRow,
    .usMask = NP_KEY_SIZE,
    .usAd = NP_AD_AT,
    .ucLcamTable = NP_LCAM_L2PA,
    .enRows = NP_CAP_L2PA_ROWS,
    .usPri = offsetof(NpL2pa, ulPri),
    .usKept = 0,
    .pszPri = "param error! pstL2pa->ulPri=0x%08x\r\n",
    .bPriFirst = false,
    .pszOther = nullptr,
    .pszNoRule = nullptr,
    .pszNoMemory = "L2PA softtable malloc failed!\r\n",
    .ulPriLimit = 10,
    .pszLimit = "param error! pstPriBlockInfo->ulMaxPriNum=0x%08x\r\n",
    .ppstKeyInfo = g_pastL2paKeyID2EntryPri,
    .ppulEntryKey = g_pastL2paEntry2KeyID,
    .ppstPriPoint = g_pastL2paBlockInfo,
    .pulUsedNum = g_aulL2paItemNum,
    .pulPriMax = g_aulL2paPriMax,
    .ppulKept = nullptr,
    .ulAssignUsed = 1,
};
constexpr NpPriTable g_stL3paTable = {
    .pstKey = &g_stL3paKeyRow,
    .pstRow = &l3_row::g_stRow,
    .usMask = NP_KEY_SIZE,
    .usAd = NP_AD_AT,
    .ucLcamTable = NP_LCAM_L3PA,
    .enRows = NP_CAP_L3PA_ROWS,
    .usPri = offsetof(NpL3pa, ulPri),
    .usKept = offsetof(NpL3pa, ulKeyType),
    .pszPri = nullptr,
    .bPriFirst = false,
    .pszOther = nullptr,
    .pszNoRule = nullptr,
    .pszNoMemory = "L3PA softtable malloc failed!\r\n",
    .ulPriLimit = 10,
    .pszLimit = "param error! pstPriBlockInfo->ulMaxPriNum=0x%08x\r\n",
    .ppstKeyInfo = g_pastL3paKeyID2EntryPri,
    .ppulEntryKey = g_pastL3paEntry2KeyID,
    .ppstPriPoint = g_pastL3paBlockInfo,
    .pulUsedNum = g_aulL3paItemNum,
    .pulPriMax = g_aulL3paPriMax,
    .ppulKept = g_pastL3paKeyID2Type,
    .ulAssignUsed = 1,
};
constexpr NpTable g_stPaExtTable = Np_TableMake(ext_key::g_stRow, ad::g_stRow, 137);
constexpr NpTable g_stPtaTable =
    Np_TableMake(NpIndexKey<NP_M_PA, NP_CAP_PTA_ROWS, true>::g_stRow, pta_row::g_stRow, 30);
constexpr NpTable g_stPtt1Table = Np_TableMake(ptt1_key::g_stRow, ptt1_row::g_stRow, 18);

extern "C" {

NP_PRI_SET(Np_Tarn_L2paTbl_Set, NpL2pa, g_stL2paTable)
NP_PRI_GET(Np_Tarn_L2paTbl_Get, NpL2pa, g_stL2paTable)
NP_PRI_DEL(Np_Tarn_L2paTbl_Del, g_stL2paTable)
NP_PRI_STATE_SET(Np_Tarn_L2paTbl_SetState, g_stL2paTable)
NP_PRI_STATE_GET(Np_Tarn_L2paTbl_GetState, g_stL2paTable)
NP_PRI_SET(Np_Tarn_L3paTbl_Set, NpL3pa, g_stL3paTable)
NP_PRI_GET(Np_Tarn_L3paTbl_Get, NpL3pa, g_stL3paTable)
NP_PRI_DEL(Np_Tarn_L3paTbl_Del, g_stL3paTable)
NP_PRI_STATE_SET(Np_Tarn_L3paTbl_SetState, g_stL3paTable)
NP_PRI_STATE_GET(Np_Tarn_L3paTbl_GetState, g_stL3paTable)
NP_TABLE_SET(Np_Tarn_PaExtTbl_Set, NpPaAd, g_stPaExtTable)
NP_TABLE_GET(Np_Tarn_PaExtTbl_Get, NpPaAd, g_stPaExtTable)
NP_TABLE_SET(Np_Tarn_PtaTbl_Set, NpPta, g_stPtaTable)
NP_TABLE_GET(Np_Tarn_PtaTbl_Get, NpPta, g_stPtaTable)
NP_TABLE_SET(Np_Tarn_Ptt1Tbl_Set, NpPtt1, g_stPtt1Table)

// A view that there is not would leave the record as it was.
uint32_t Np_Tarn_Ptt1Tbl_Get(uint32_t ulChipID, uint32_t ulPtt1ID, NpPtt1 *pastPtt1)
{
    const uint32_t ulReturn = Np_Table_Get(&g_stPtt1Table, ulChipID, &ulPtt1ID, pastPtt1);
    if (ulReturn == NP_OK && pastPtt1->ulType > 1) {
        NP_TRACE(NP_M_PA, NP_PRINT_ERROR, "error ulType = 0x%08x\r\n", pastPtt1->ulType);
        return NP_ERR_PARAM;
    }
    return ulReturn;
}

uint32_t Np_Tarn_L2paTbl_Init(uint32_t ulChipID, const NpPriBlock *pstPriBlockInfo)
{
    uint32_t ulReturn = Np_PriTable_Assign(&g_stL2paTable, ulChipID, pstPriBlockInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    NpL2pa stL2pa = {};
    stL2pa.stAD.ulEthTypeMask = NP_ETH_TYPE_OTHERS;
    ulReturn = Np_Tarn_L2paTbl_Set(ulChipID, NP_L2PA_DEFAULT, &stL2pa);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_PA, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

uint32_t Np_Tarn_L3paTbl_Init(uint32_t ulChipID, const NpPriBlock *pstPriBlockInfo)
{
    uint32_t ulReturn = Np_PriTable_Assign(&g_stL3paTable, ulChipID, pstPriBlockInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_L3paDefaultItemCfg(ulChipID);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_PA, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

uint32_t Np_Tarn_L2paTbl_Destruct(uint32_t ulChipID)
{
    Np_PriTable_Free(&g_stL2paTable, ulChipID);
    return NP_OK;
}

uint32_t Np_Tarn_L3paTbl_Destruct(uint32_t ulChipID)
{
    Np_PriTable_Free(&g_stL3paTable, ulChipID);
    return NP_OK;
}

uint32_t Np_Tarn_L3paDefaultItemCfg(uint32_t ulChipID)
{
    return Np_L3DefaultSet(ulChipID, NP_ETH_TYPE_OTHERS);
}

uint32_t Np_TarnA_XDSL_L3paDefaultItemCfg(uint32_t ulChipID)
{
    return Np_L3DefaultSet(ulChipID, 0);
}

}  // extern "C"
