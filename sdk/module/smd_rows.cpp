#include "sdk/module/smd_rows.h"

#include "sdk/frame/trace.h"
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
struct R {
    uint32_t ulModule;  // 0: all
    uint32_t ulLevel;   // 0: all
};
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
struct R {
    uint32_t ulFunc;  // stands for the text, which no record holds
    uint32_t ulTimes;
};
constexpr NpField g_astField[] = {
    NP_F(ulFunc, .pszKey = "func", .ucType = NP_SMD_STRING),
    NP_F(ulTimes, .pszKey = "print-num"),
};
constexpr NpCheck g_astCheck[] = {NP_C(ulTimes, Np_Most(65535))};
}  // namespace func_print

namespace micro_load {
struct R {
    uint32_t ulAddr;
    uint32_t ulLen;
};
constexpr NpField g_astField[] = {
    NP_F(ulAddr, .pszKey = "addr"),
    NP_F(ulLen, .pszKey = "len"),
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
