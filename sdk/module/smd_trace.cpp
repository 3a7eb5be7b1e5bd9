// Commands that switch tracing.
#include "platform/os.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/smd_rows.h"
#include "sdk/module/tree.h"

namespace {

// Names as the user sees them, by module and level number.
constexpr const char *g_apszModule[NP_MODULE_NUM] = {
    nullptr,     "NP_M_COMM",   "NP_M_1588",     "NP_M_ACL",  "NP_M_ARL",  "NP_M_CPUTR",
    "NP_M_DFX",  "NP_M_OAM",    "NP_M_GLB",      "NP_M_INIT", "P_M_INTR",  "NP_M_L2",
    "NP_M_L3",   "NP_M_MC",     "NP_M_PA",       "NP_M_PORT", "NP_M_PUB",  "NP_M_QOS",
    "NP_M_SECU", "NP_M_STAT",   "NP_M_VLAN",     "NP_M_VOIP", "NP_M_VPN",  "NP_M_LCAM",
    "NP_M_EML",  "NP_M_PRICAM", "NP_M_CPUTRMSG", "NP_M_HA",   "NP_M_ATOM", "NP_M_IPQAM",
};
constexpr const char *g_apszLevel[NP_LEVEL_NUM + 1] = {
    "PRINT_LEVEL_ALL", "NP_PRINT_TRACE", "NP_PRINT_ERROR", "NP_PRINT_DEBUG", "NP_PRINT_POLL",
};

inline constexpr uint32_t NP_MODULES_PER_LINE = 3;

// Sets the switches that a module and a level address, 0 meaning all.
void Np_SwitchesSet(uint32_t ulModule, uint32_t ulLevel, uint32_t ulValue)
{
    const uint32_t ulFirstModule = ulModule == 0 ? 1 : ulModule;
    const uint32_t ulLastModule = ulModule == 0 ? NP_MODULE_NUM - 1 : ulModule;
    const uint32_t ulFirstLevel = ulLevel == 0 ? 1 : ulLevel;
    const uint32_t ulLastLevel = ulLevel == 0 ? NP_LEVEL_NUM : ulLevel;
    for (uint32_t m = ulFirstModule; m <= ulLastModule; m++) {
        for (uint32_t l = ulFirstLevel; l <= ulLastLevel; l++) {
            Np_PrintLevelSet(m, l, ulValue);
        }
    }
}

uint32_t Np_SwitchCommand(uint32_t ulValue)
{
    Np_PrintLevelInfoDisplay();
    NpPrintArgs stArgs = {};
    if (Np_SMD_RowScanValues(&g_stPrintArgs, &stArgs, NP_BOUNDS_BLANK) != 0 ||
        Np_SMD_EndCheck() != 0) {
        return 1;
    }
    Np_SwitchesSet(stArgs.ulModule, stArgs.ulLevel, ulValue);
    return Np_SMD_Report(NP_OK);
}

}  // namespace

void Np_PrintLevelInfoDisplay(void)
{
    Os_Print("\n\r    p1 : module number[0-28]   p2 : print level[0-4]");
    for (uint32_t i = 1; i < NP_MODULE_NUM; i++) {
        Os_Print("%s%2u : %-16s", i % NP_MODULES_PER_LINE == 1 ? "\n\r    " : "", i,
                 g_apszModule[i]);
    }
    for (uint32_t i = 0; i <= NP_LEVEL_NUM; i++) {
        Os_Print("\n\r    %2u : %s", i, g_apszLevel[i]);
    }
}

uint32_t Np_PUB_SMD_PrintSwitchOn(void)
{
    return Np_SwitchCommand(1);
}

uint32_t Np_PUB_SMD_PrintSwitchOff(void)
{
    return Np_SwitchCommand(0);
}

uint32_t Np_PUB_SMD_PrintFuncSwitchOn(void)
{
    NpFuncPrintArgs stArgs = {};
    if (Np_SMD_RowScanValues(&g_stFuncPrintArgs, &stArgs, NP_BOUNDS_BLANK) != 0 ||
        Np_SMD_EndCheck() != 0) {
        return 1;
    }
    stArgs.acFunc[NP_USR_FUNC_SIZE - 1] = 0;
    memset(g_aucNpUsrFunc, 0, sizeof(g_aucNpUsrFunc));
    Np_StrCpy(reinterpret_cast<char *>(g_aucNpUsrFunc), stArgs.acFunc);
    g_ulNpSdkTraceFuncTimes = stArgs.ulTimes;
    g_stNpSdkFuncCount = 0;
    g_stNpSdkFuncEnable = 1;
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_PUB_SMD_PrintFuncSwitchOff(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    g_stNpSdkFuncEnable = 0;
    g_stNpSdkFuncCount = 0;
    return Np_SMD_Report(NP_OK);
}
