#include "sdk/module/smd_rows.h"

#include "ldsdk/micro.h"
#include "sdk/record/describe.h"

namespace {

namespace chip {
struct R {
    uint32_t ulChipID;
};
constexpr NpField g_astField[] = {NP_F(ulChipID, .pszKey = "ChipID")};
constexpr NpCheck g_astCheck[] = {NP_C(ulChipID, Np_Below(NP_CHIP_NUM))};
}  // namespace chip

namespace prompt {
struct R {
    uint32_t ulPrompt;
};
constexpr auto g_astWords = Np_Words("off", "on");
constexpr NpField g_astField[] = {NP_F(ulPrompt, .pszKey = "prompt", .stWords = g_astWords)};
constexpr NpCheck g_astCheck[] = {NP_C(ulPrompt, Np_Flag(NP_SAY_PARAM))};
}  // namespace prompt

namespace print {
using R = NpPrintArgs;
constexpr NpField g_astField[] = {
    NP_F(ulModule, .pszKey = "Moudle"),
    NP_F(ulLevel, .pszKey = "PrintLevel"),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulModule, Np_Below(NP_MODULE_NUM)),
    NP_C(ulLevel, Np_Most(NP_LEVEL_NUM)),
};
}  // namespace print

namespace func_print {
using R = NpFuncPrintArgs;
constexpr NpField g_astField[] = {
    NP_F(acFunc, .pszKey = "func", .ucType = NP_SMD_STRING),
    NP_F(ulTimes, .pszKey = "print-num"),
};
constexpr NpCheck g_astCheck[] = {NP_C(ulTimes, Np_Most(65535))};
}  // namespace func_print

namespace micro_load {
using R = NpMicroLoad;
constexpr NpField g_astField[] = {
    NP_F(ulAddress, .pszKey = "addr"),
    NP_F(ulLength, .pszKey = "len"),
};
}  // namespace micro_load

namespace port_map {
struct R {
    NpPortID stPort;
};
struct Phy {
    uint32_t ulPhyID;
};
constexpr NpField g_astField[] = {NP_F(stPort)};
constexpr NpField g_astPhyField[] = {
    Np_FieldMake<uint32_t>("ulPhyID", 0, sizeof(uint32_t), 0, {.pszKey = "phyid"})};
constexpr NpCheck g_astPhyCheck[] = {
    Np_CheckMake<uint32_t>("ulPhyID", 0, sizeof(uint32_t), 0, Np_Most(1023), {})};
}  // namespace port_map

namespace cache {
struct R {
    uint32_t ulSmemID;
};
constexpr NpField g_astField[] = {NP_F(ulSmemID, .pszKey = "smem_id")};
constexpr NpCheck g_astEmlCheck[] = {NP_C(ulSmemID, Np_BelowCap(NP_CAP_SMEM_NUM))};
constexpr NpCheck g_astCpuCheck[] = {NP_C(ulSmemID, Np_Most(1))};
}  // namespace cache

namespace cm {
struct R {
    uint32_t ulIndex;
};
constexpr NpField g_astKeyField[] = {NP_F(ulIndex, .pszKey = "index")};

struct Group {
    uint32_t ulDefaultFlowID;
    uint32_t ulUpCarProfile;
    uint32_t ulDnCarProfile;
    uint32_t ulLe;
    uint32_t ulFt;
    uint32_t ulUpCarMode;
    uint32_t ulDnCarMode;
};
namespace group {
using R = Group;
constexpr NpField g_astField[] = {
    NP_F(ulDefaultFlowID, .pszKey = "defaultflowid"),
    NP_F(ulUpCarProfile, .pszKey = "upcarprofile"),
    NP_F(ulDnCarProfile, .pszKey = "dncarprofile"),
    NP_F(ulLe, .pszKey = "le"),
    NP_F(ulFt, .pszKey = "ft"),
    NP_F(ulUpCarMode, .pszKey = "upcarmode"),
    NP_F(ulDnCarMode, .pszKey = "dncarmode"),
};
}  // namespace group

// What a class matches on, each with its switch.
struct Class {
    uint32_t ulRuleID;
    uint32_t ulMode;
    uint32_t ulPri;
    uint32_t ulFlowID;
    uint8_t aucMac[6];
    uint16_t usMacEnable;
    uint32_t ulVlan, ulVlanEnable;
    uint32_t ulVlanPri, ulVlanPriEnable;
    uint32_t ulEthType, ulEthTypeEnable;
    uint32_t ulIpProtocol, ulIpProtocolEnable;
    uint32_t ulTos, ulTosEnable;
    uint32_t ulSrcPort, ulSrcPortEnable;
    uint32_t ulDstPort, ulDstPortEnable;
};
namespace classes {
using R = Class;
constexpr NpField g_astField[] = {
    NP_F(ulRuleID, .pszKey = "ruleid"),
    NP_F(ulMode, .pszKey = "mode"),
    NP_F(ulPri, .pszKey = "pri"),
    NP_F(ulFlowID, .pszKey = "flowid"),
    NP_F(aucMac, .pszKey = "mac", .ucType = NP_SMD_MAC),
    NP_F(usMacEnable, .pszKey = "macen"),
    NP_F(ulVlan, .pszKey = "vlan"),
    NP_F(ulVlanEnable, .pszKey = "vlanen"),
    NP_F(ulVlanPri, .pszKey = "vlanpri"),
    NP_F(ulVlanPriEnable, .pszKey = "vlanprien"),
    NP_F(ulEthType, .pszKey = "ethtype"),
    NP_F(ulEthTypeEnable, .pszKey = "ethtypeen"),
    NP_F(ulIpProtocol, .pszKey = "ipprotocol"),
    NP_F(ulIpProtocolEnable, .pszKey = "ipprotocolen"),
    NP_F(ulTos, .pszKey = "tos"),
    NP_F(ulTosEnable, .pszKey = "tosen"),
    NP_F(ulSrcPort, .pszKey = "srcport"),
    NP_F(ulSrcPortEnable, .pszKey = "srcporten"),
    NP_F(ulDstPort, .pszKey = "dstport"),
    NP_F(ulDstPortEnable, .pszKey = "dstporten"),
};
}  // namespace classes

struct Limit {
    uint32_t ulLimitNumber;
};
namespace limit {
using R = Limit;
constexpr NpField g_astField[] = {NP_F(ulLimitNumber, .pszKey = "limitnum")};
}  // namespace limit
}  // namespace cm

namespace pri_init {
struct R {
    uint32_t ulPriNum;
    uint32_t ulPercent;
};
constexpr NpField g_astField[] = {NP_F(ulPriNum, .pszKey = "prinum"),
                                  NP_F(ulPercent, .pszKey = "percent")};
constexpr NpField g_astAclField[] = {NP_F(ulPriNum, .pszKey = "rule_prinum"),
                                     NP_F(ulPercent, .pszKey = "percent")};
constexpr NpCheck g_astCheck[] = {NP_C(ulPriNum, Np_Range(1, 256)), NP_C(ulPercent, Np_Most(100))};
}  // namespace pri_init

namespace pri_dump {
using R = NpPriDumpArgs;
// The last two print nothing: there are no such tables.
constexpr auto g_astWords = Np_Words("key+entry+pri", "pri+top+bot", "cm+entry", "cm+rule");
constexpr const NpWhen *g_pstKeys = NP_WHEN(ulSoftbl, 1u << NP_DUMP_KEYS);
constexpr const NpWhen *g_pstCms = NP_WHEN(ulSoftbl, 1u << 2 | 1u << 3);
constexpr NpField g_astL2Field[] = {
    NP_F(ulSoftbl, .pszKey = "softbl", .stWords = g_astWords),
    NP_F(ulStart, .pszKey = "startkeyid", .pstWhen = g_pstKeys),
    NP_F(ulEnd, .pszKey = "endkeyid", .pstWhen = g_pstKeys),
    NP_F(ulStart, .pszKey = "startcmid", .pstWhen = g_pstCms),
    NP_F(ulEnd, .pszKey = "endcmid", .pstWhen = g_pstCms),
};
constexpr NpField g_astPaField[] = {
    NP_F(ulSoftbl, .pszKey = "softbl", .stWords = std::span(g_astWords).first(2)),
    NP_F(ulStart, .pszKey = "startkeyid", .pstWhen = g_pstKeys),
    NP_F(ulEnd, .pszKey = "endkeyid", .pstWhen = g_pstKeys),
};
constexpr auto g_astAclWords = Np_Words("key+entry+pri+mode", "entry+key+valid", "pri+top+bot");
constexpr NpField g_astAclField[] = {
    NP_F(ulSoftbl, .pszKey = "softbl", .stWords = g_astAclWords),
    NP_F(ulStart, .pszKey = "startID"),
    NP_F(ulEnd, .pszKey = "endID"),
};
template <NpCapSlot enRows>
constexpr NpCheck g_astCheck[] = {
    NP_C(ulStart, Np_BelowCap(enRows), .pstWhen = g_pstKeys),
    NP_C(ulEnd, Np_BelowCap(enRows), .pstWhen = g_pstKeys),
};
}  // namespace pri_dump

namespace pa_state {
struct R {
    uint32_t ulState;
};
constexpr auto g_astWords = Np_Words("disable", "enable");
constexpr NpField g_astField[] = {NP_F(ulState, .pszKey = "state", .stWords = g_astWords)};
constexpr NpCheck g_astCheck[] = {NP_C(ulState, Np_Flag(NP_SAY_ENABLE))};
}  // namespace pa_state

}  // namespace

constexpr NpRow g_stChipArgs =
    Np_RowMake<chip::R>({.ucModule = NP_M_COMM}, chip::g_astField, chip::g_astCheck);
constexpr NpRow g_stPromptArgs =
    Np_RowMake<prompt::R>({.ucModule = NP_M_COMM}, prompt::g_astField, prompt::g_astCheck);
constexpr NpRow g_stPrintArgs =
    Np_RowMake<print::R>({.ucModule = NP_M_COMM}, print::g_astField, print::g_astCheck);
constexpr NpRow g_stFuncPrintArgs = Np_RowMake<func_print::R>(
    {.ucModule = NP_M_COMM}, func_print::g_astField, func_print::g_astCheck);
constexpr NpRow g_stMicroLoadArgs =
    Np_RowMake<micro_load::R>({.ucModule = NP_M_COMM}, micro_load::g_astField, {});
constexpr NpRow g_stEmlCacheArgs =
    Np_RowMake<cache::R>({.ucModule = NP_M_COMM}, cache::g_astField, cache::g_astEmlCheck);
constexpr NpRow g_stCpuCacheArgs =
    Np_RowMake<cache::R>({.ucModule = NP_M_COMM}, cache::g_astField, cache::g_astCpuCheck);
constexpr NpRow g_stPortArgs =
    Np_RowMake<port_map::R>({.ucModule = NP_M_COMM}, port_map::g_astField, {});
constexpr NpRow g_stPhyArgs = Np_RowMake<port_map::Phy>(
    {.ucModule = NP_M_COMM}, port_map::g_astPhyField, port_map::g_astPhyCheck);
constexpr NpRow g_stCmKeyArgs = Np_RowMake<cm::R>({.ucModule = NP_M_L2}, cm::g_astKeyField, {});
constexpr NpRow g_stCmGroupArgs =
    Np_RowMake<cm::Group>({.ucModule = NP_M_L2}, cm::group::g_astField, {});
constexpr NpRow g_stCmClassArgs =
    Np_RowMake<cm::Class>({.ucModule = NP_M_L2}, cm::classes::g_astField, {});
constexpr NpRow g_stCmLmtArgs =
    Np_RowMake<cm::Limit>({.ucModule = NP_M_L2}, cm::limit::g_astField, {});
constexpr NpRow g_stPriInitArgs =
    Np_RowMake<pri_init::R>({.ucModule = NP_M_L2}, pri_init::g_astField, pri_init::g_astCheck);
constexpr NpRow g_stAclInitArgs =
    Np_RowMake<pri_init::R>({.ucModule = NP_M_ACL}, pri_init::g_astAclField, pri_init::g_astCheck);
constexpr NpRow g_stAclDumpArgs =
    Np_RowMake<NpPriDumpArgs>({.ucModule = NP_M_ACL}, pri_dump::g_astAclField, {});
constexpr NpRow g_stL2DumpArgs = Np_RowMake<NpPriDumpArgs>(
    {.ucModule = NP_M_L2}, pri_dump::g_astL2Field, pri_dump::g_astCheck<NP_CAP_FLOW_NUM>);
constexpr NpRow g_stL2paDumpArgs = Np_RowMake<NpPriDumpArgs>(
    {.ucModule = NP_M_PA}, pri_dump::g_astPaField, pri_dump::g_astCheck<NP_CAP_L2PA_ROWS>);
constexpr NpRow g_stL3paDumpArgs = Np_RowMake<NpPriDumpArgs>(
    {.ucModule = NP_M_PA}, pri_dump::g_astPaField, pri_dump::g_astCheck<NP_CAP_L3PA_ROWS>);
constexpr NpRow g_stPaStateArgs =
    Np_RowMake<pa_state::R>({.ucModule = NP_M_PA}, pa_state::g_astField, pa_state::g_astCheck);
