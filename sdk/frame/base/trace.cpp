#include "sdk/frame/base/trace.h"

#include "platform/os.h"

#include <cstdarg>

namespace {

// The default print hook. Text is data here, never a format.
void Np_PrintDefault(const char *pszText)
{
    Os_Print("%s", pszText);
}

// Row 30 does not exist, so module 30 is refused although callers name modules up to 30.
bool Np_SwitchIsOn(uint32_t ulModule, uint32_t ulLevel)
{
    return ulModule < NP_MODULE_NUM && ulLevel <= NP_SWITCH_COUNTER &&
           g_stNpSdkModuleSwitch[ulModule][ulLevel] == 1;
}

// Adds 1 and tells whether the count had already reached the limit.
bool Np_CountExhausted(uint32_t *pulCount, uint32_t ulLimit)
{
    const uint32_t ulOld = *pulCount;
    *pulCount = ulOld + 1;
    return ulOld >= ulLimit;
}

// Function mode looks at the first four bytes of both names only.
bool Np_FuncModeMatches(void)
{
    for (uint32_t i = 0; i < 4; i++) {
        if (static_cast<uint8_t>(g_pszNpFunc[i]) != g_aucNpUsrFunc[i]) {
            return false;
        }
        if (g_aucNpUsrFunc[i] == 0) {
            return true;  // both names end here: what lies behind belongs to neither
        }
    }
    return true;
}

bool Np_PositionPrintAllowed(uint32_t ulModule, uint32_t ulLevel)
{
    if (g_stNpSdkFuncEnable == 1) {
        if (!Np_FuncModeMatches()) {
            return false;
        }
        if (Np_CountExhausted(&g_stNpSdkFuncCount, g_ulNpSdkTraceFuncTimes)) {
            g_stNpSdkFuncEnable = 0;
            g_stNpSdkFuncCount = 0;
            return false;
        }
        return true;
    }
    if (!Np_SwitchIsOn(ulModule, ulLevel)) {
        return false;
    }
    uint32_t *pulRow = g_stNpSdkModuleSwitch[ulModule];
    if (Np_CountExhausted(&pulRow[ulLevel + NP_SWITCH_COUNTER], g_ulNpSdkTraceTimes)) {
        pulRow[ulLevel] = 0;
        pulRow[ulLevel + NP_SWITCH_COUNTER] = 0;
    }
    return true;
}

// Formats behind the ulUsed bytes that stand in the buffer already.
void Np_FormatBehind(char *pszBuffer, uint32_t ulUsed, const char *pszFormat, va_list stArgs)
{
    if (ulUsed < NP_PRINT_SIZE) {
        Os_FormatV(pszBuffer + ulUsed, NP_PRINT_SIZE - ulUsed, pszFormat, stArgs);
    }
}

void Np_LevelSet(uint32_t ulModule, uint32_t ulLevel, uint32_t ulValue)
{
    g_stNpSdkModuleSwitch[ulModule][ulLevel] = ulValue;
    g_stNpSdkModuleSwitch[ulModule][ulLevel + NP_SWITCH_COUNTER] = 0;
}

void Np_LevelSetAll(uint32_t ulLevel, uint32_t ulValue)
{
    for (uint32_t ulModule = 1; ulModule < NP_MODULE_NUM; ulModule++) {
        Np_LevelSet(ulModule, ulLevel, ulValue);
    }
}

// Stores a hook, or traces why not.
template <typename Hook>
uint32_t Np_HookSet(Hook *ppfnSlot, Hook pfnHook, const char *pszFunc, const char *pszNull)
{
    if (pfnHook == nullptr) {
        if (g_stNpSdkModuleSwitch[NP_M_COMM][NP_PRINT_ERROR] != 0) {
            g_ulNpLine = static_cast<uint32_t>(__LINE__);
            g_pszNpFunc = pszFunc;
            Np_PrintWithPosition(NP_M_COMM, NP_PRINT_ERROR, "%s", pszNull);
        }
        return NP_ERR_NULL_PTR;
    }
    *ppfnSlot = pfnHook;
    return NP_OK;
}

}  // namespace

constinit uint32_t g_stNpSdkModuleSwitch[NP_MODULE_NUM][NP_SWITCH_WORDS] = {};
constinit NpPrintHook g_pfnNpSdkPrint = Np_PrintDefault;
constinit uint32_t g_ulNpSdkTraceTimes = 30;
constinit uint32_t g_ulNpSdkTraceFuncTimes = 20;
constinit uint32_t g_stNpSdkFuncEnable = 0;
constinit uint8_t g_aucNpUsrFunc[NP_USR_FUNC_SIZE] = {};
constinit uint32_t g_stNpSdkFuncCount = 0;
constinit uint32_t g_ulNpLine = 0;
constinit const char *g_pszNpFunc = nullptr;
constinit const char *g_pszNpFile = nullptr;

constinit NpUsDelayHook g_pfnNpUsDelayHook = nullptr;
constinit NpSlaveReadHook g_pFnNpSlaveAddrRead[NP_CHIP_NUM] = {};
constinit NpSlaveWriteHook g_pFnNpSlaveAddrWrite[NP_CHIP_NUM] = {};
constinit NpRecordErrHook g_pFnNpRecordErrInfo[NP_CHIP_NUM] = {};
constinit NpIntLockHook g_pFnNpIntLock = nullptr;
constinit NpIntUnlockHook g_pFnNpIntUnlock = nullptr;
constinit NpClearWatchDogHook g_pFnNpClearWatchDog = nullptr;

void Np_PrintWithPosition(uint32_t ulModule, uint32_t ulLevel, const char *pszFormat, ...)
{
    if (!Np_PositionPrintAllowed(ulModule, ulLevel)) {
        return;
    }
    char acText[NP_PRINT_SIZE] = {};
    const int lUsed = Os_Format(acText, sizeof(acText), "\r\n[%s %05u]: ", g_pszNpFunc, g_ulNpLine);
    va_list stArgs;
    va_start(stArgs, pszFormat);
    Np_FormatBehind(acText, static_cast<uint32_t>(lUsed), pszFormat, stArgs);
    va_end(stArgs);
    g_pfnNpSdkPrint(acText);
}

void Np_DeubgPrint(uint32_t ulModule, uint32_t ulLevel, const char *pszFormat, ...)
{
    if (!Np_SwitchIsOn(ulModule, ulLevel)) {
        return;
    }
    char acText[NP_PRINT_SIZE] = {};
    va_list stArgs;
    va_start(stArgs, pszFormat);
    Np_FormatBehind(acText, 0, pszFormat, stArgs);
    va_end(stArgs);
    g_pfnNpSdkPrint(acText);
}

void Np_PrintLevelSet(uint32_t ulModule, uint32_t ulLevel, uint32_t ulValue)
{
    if (ulModule < NP_MODULE_NUM && ulLevel >= 1 && ulLevel <= NP_LEVEL_NUM) {
        Np_LevelSet(ulModule, ulLevel, ulValue);
    }
}

void Np_PrintLevelSwitchAll(uint32_t ulLevel, uint32_t ulValue)
{
    if (ulLevel >= 1 && ulLevel <= NP_LEVEL_NUM) {
        Np_LevelSetAll(ulLevel, ulValue);
        return;
    }
    if (ulLevel > NP_LEVEL_NUM) {
        for (uint32_t ulEach = 1; ulEach <= NP_LEVEL_NUM; ulEach++) {
            Np_LevelSetAll(ulEach, ulValue);
        }
    }
}

void Np_PrintLevelInit(void)
{
    Np_PrintLevelSwitchAll(NP_LEVEL_NUM + 1, 0);
}

void Np_PrintLevelClose(void)
{
    Np_PrintLevelSwitchAll(NP_LEVEL_NUM + 1, 0);
}

void Np_ClosePrintExceptError(void)
{
    Np_LevelSetAll(NP_PRINT_TRACE, 0);
    Np_LevelSetAll(NP_PRINT_DEBUG, 0);
    Np_LevelSetAll(NP_PRINT_POLL, 0);
}

void Np_GetPosition(const char *pszFile, uint32_t ulLine, const char *pszFunc)
{
    g_pszNpFile = pszFile;
    g_ulNpLine = ulLine;
    g_pszNpFunc = pszFunc;
}

uint32_t Np_GLB_SetPrintHook(NpPrintHook pfnPrint)
{
    return Np_HookSet(&g_pfnNpSdkPrint, pfnPrint, __func__, " error parameter \r\n");
}

uint32_t Np_GLB_UsDelayRegister(NpUsDelayHook pfnUsDelayHook)
{
    return Np_HookSet(&g_pfnNpUsDelayHook, pfnUsDelayHook, __func__,
                      " pfnUsDelayHook is NULL!\r\n");
}

// The read hook is stored before the write hook is looked at, and stays if that one is null.
uint32_t Np_GLB_SlaveAddrHookRegister(uint32_t ulChipID, NpSlaveReadHook pfnRead,
                                      NpSlaveWriteHook pfnWrite)
{
    const uint32_t ulReturn = Np_HookSet(&g_pFnNpSlaveAddrRead[ulChipID], pfnRead, __func__,
                                         " no reg slave addr read function \r\n");
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return Np_HookSet(&g_pFnNpSlaveAddrWrite[ulChipID], pfnWrite, __func__,
                      " no reg slave addr write function \r\n");
}

uint32_t Np_Glb_RecordErrInfoHook(uint32_t ulChipID, NpRecordErrHook pfnRecord)
{
    return Np_HookSet(&g_pFnNpRecordErrInfo[ulChipID], pfnRecord, __func__,
                      " no reg RecordErrInfo function \r\n");
}

uint32_t Np_GLB_ClearWatchDogHook(NpClearWatchDogHook pfnClear)
{
    return Np_HookSet(&g_pFnNpClearWatchDog, pfnClear, __func__,
                      " no reg clearwatchdog function \r\n");
}

uint32_t Np_GLB_IntLock(NpIntLockHook pfnLock)
{
    return Np_HookSet(&g_pFnNpIntLock, pfnLock, __func__, " no reg intLock function \r\n");
}

uint32_t Np_GLB_IntUnlock(NpIntUnlockHook pfnUnlock)
{
    return Np_HookSet(&g_pFnNpIntUnlock, pfnUnlock, __func__, " no reg intUnlock function \r\n");
}

uint32_t Np_RecordErrInfo(uint32_t ulChipID, uint32_t ulErrCode, uint32_t ulErrInfo)
{
    if (g_pFnNpRecordErrInfo[ulChipID] == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    g_pFnNpRecordErrInfo[ulChipID](ulErrCode, ulErrInfo);
    return NP_OK;
}

void Np_ClearWatchDog(void)
{
    if (g_pFnNpClearWatchDog != nullptr) {
        g_pFnNpClearWatchDog();
        return;
    }
    Os_Schedule();
    NP_TRACE(NP_M_COMM, NP_PRINT_DEBUG, " no reg clearwatchdog function \r\n");
}

uintptr_t Np_IntLock(void)
{
    return Os_IrqSave();
}

void Np_IntUnlock(uintptr_t ulKey)
{
    Os_IrqRestore(ulKey);
}

uint32_t taskDelay(uint32_t ulMs)
{
    Os_Sleep(ulMs);
    return NP_OK;
}

void Np_UsDelay(uint32_t ulA, uint32_t ulB, uint32_t ulC)
{
    if (g_pfnNpUsDelayHook != nullptr) {
        g_pfnNpUsDelayHook(ulA, ulB, ulC);
    }
}

// Deliberately empty: the poll loops that call it are bounded by their callers.
void Np_MsDelay(uint32_t) {}
