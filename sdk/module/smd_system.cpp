// Commands on the module itself: chip, prompt, versions, bring-up.
#include "ldsdk/glb.h"
#include "ldsdk/init.h"
#include "platform/os.h"
#include "sdk/access/bus.h"
#include "sdk/frame/registry.h"
#include "sdk/lookup/eml.h"
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/smd_rows.h"
#include "sdk/module/tree.h"

constinit uint32_t g_ulNpCurrentChipID = 0;
constinit uint32_t g_ulNpPubPrompt = 1;

namespace {

// First and last chip word of the microcode's path record.
inline constexpr uint32_t NP_MICRO_PATH_FIRST = 0x60200100;
inline constexpr uint32_t NP_MICRO_PATH_LAST = 0x6020017c;

bool Np_ChipIsRegistered(uint32_t ulChipID)
{
    NpChipAddr stChipAddr;
    return Np_Chip_AddrGet(ulChipID, &stChipAddr) == NP_OK && stChipAddr.ulRegistered == 1;
}

uint32_t Np_PromptValueSet(uint32_t ulPrompt)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    if (ulPrompt > 1) {
        Np_PUB_SMD_ReturnValue(NP_SMD_INVALID_PARAM);
        return 1;
    }
    g_ulNpPubPrompt = ulPrompt;
    return Np_SMD_Report(NP_OK);
}

}  // namespace

uint32_t Np_PUB_SMD_ChipSwitchSet(void)
{
    uint32_t ulChipID = 0;
    if (Np_SMD_RowScanValues(&g_stChipArgs, &ulChipID, NP_BOUNDS_BLANK) != 0) {
        return 1;
    }
    if (!Np_ChipIsRegistered(ulChipID)) {
        Np_PUB_SMD_ReturnValue(NP_SMD_ERROR);
        return 1;
    }
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    g_ulNpCurrentChipID = ulChipID;
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_PUB_SMD_ChipSwitchGet(void)
{
    if (CLI_CamIsNoParam() != 0) {
        return 1;
    }
    Os_Print("\n\r    Current ChipID: %d", static_cast<int32_t>(g_ulNpCurrentChipID));
    return 0;
}

uint32_t Np_SMD_DFX_Prompt(void)
{
    uint32_t ulPrompt = 0;
    if (Np_SMD_RowScanValues(&g_stPromptArgs, &ulPrompt, NP_BOUNDS_SHOWN) != 0) {
        return 1;
    }
    return Np_PromptValueSet(ulPrompt);
}

uint32_t Np_SMD_DFX_Prompt_Set(void)
{
    uint32_t ulPrompt = 0;
    if (Np_SMD_RowScan(&g_stPromptArgs, &ulPrompt, true) != 0) {
        return 1;
    }
    return Np_PromptValueSet(ulPrompt);
}

uint32_t Np_SMD_DFX_Prompt_Get(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    Np_SMD_SeparatorPrint();
    Np_SMD_RowPrint(&g_stPromptArgs, &g_ulNpPubPrompt);
    Np_SMD_SeparatorPrint();
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_SMD_GLB_SDKVersionGet(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    NpSdkVersionInfo stVersion;
    const uint32_t ulReturn = Np_SdkVersion_Get(g_ulNpCurrentChipID, &stVersion);
    if (ulReturn != NP_OK) {
        return Np_SMD_Report(ulReturn);
    }
    Np_SMD_SeparatorPrint();
    Np_PUB_SMD_Print_ex(NP_SMD_NUMBER, "year", &stVersion.ulYear);
    Np_PUB_SMD_Print_ex(NP_SMD_NUMBER, "month", &stVersion.ulMonth);
    Np_PUB_SMD_Print_ex(NP_SMD_NUMBER, "day", &stVersion.ulDay);
    Np_PUB_SMD_Print_ex(NP_SMD_STRING, "version", stVersion.szVersion);
    Np_SMD_SeparatorPrint();
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_SMD_GLB_MICROVersionGet(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    char acVersion[NP_MICRO_TRAILER_SIZE + 1];
    const uint32_t ulReturn = Np_MicroVersion_Get(g_ulNpCurrentChipID, acVersion);
    if (ulReturn != NP_OK) {
        return Np_SMD_Report(ulReturn);
    }
    Np_SMD_SeparatorPrint();
    Np_PUB_SMD_Print_ex(NP_SMD_STRING, "version", acVersion);
    Np_SMD_SeparatorPrint();
    return Np_SMD_Report(NP_OK);
}

uint32_t Np_SMD_DFX_System_Init(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_INIT_SdkInit(g_ulNpCurrentChipID));
}

uint32_t Np_SMD_DFX_System_Destruct(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_INIT_SdkDestruct(g_ulNpCurrentChipID));
}

namespace {

// Refreshes a cache of the search memory unit that the line names.
uint32_t Np_CacheClear(const NpRow *pstArgs, uint32_t (*pfnRefresh)(uint32_t, uint32_t))
{
    uint32_t ulSmemID = 0;
    if (Np_SMD_RowScanValues(pstArgs, &ulSmemID, NP_BOUNDS_HELD) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    uint32_t ulReturn = Np_GLB_ChipIDIsValid(g_ulNpCurrentChipID);
    if (ulReturn == NP_OK) {
        ulReturn = pfnRefresh(g_ulNpCurrentChipID, ulSmemID);
    }
    return Np_SMD_Report(ulReturn);
}

}  // namespace

uint32_t Np_SMD_DFX_Eml_CacheClear(void)
{
    return Np_CacheClear(&g_stEmlCacheArgs, Np_Tarn_EML_SmemEmlCacheRefresh);
}

uint32_t Np_SMD_DFX_Cpu_CacheClear(void)
{
    return Np_CacheClear(&g_stCpuCacheArgs, Np_Tarn_EML_SmemWriteReadCacheRefresh);
}

uint32_t Np_PUB_SMD_MicroPathClear(void)
{
    if (!Np_ChipIsRegistered(g_ulNpCurrentChipID)) {
        Np_PUB_SMD_ReturnValue(NP_SMD_NO_CHIP);
        return 1;
    }
    const uint32_t ulZero = 0;
    for (uint32_t ulAddr = NP_MICRO_PATH_FIRST; ulAddr <= NP_MICRO_PATH_LAST; ulAddr += 4) {
        const uint32_t ulReturn = Np_SMEM_ChipWrite32(g_ulNpCurrentChipID, ulAddr, &ulZero);
        if (ulReturn != NP_OK) {
            return Np_SMD_Report(ulReturn);
        }
    }
    return Np_SMD_Report(NP_OK);
}
