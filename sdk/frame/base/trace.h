// Tracing, the hooks of the sibling module, the interrupt lock and delays.
#pragma once

#include "ldsdk/glb.h"
#include "ldsdk/status.h"
#include "ldsdk/types.h"

#include <cstdint>

// Module numbers, rows of g_stNpSdkModuleSwitch. 0 means all modules in the commands only.
enum NpModule : uint32_t {
    NP_M_COMM = 1,
    NP_M_1588,
    NP_M_ACL,
    NP_M_ARL,
    NP_M_CPUTR,
    NP_M_DFX,
    NP_M_OAM,
    NP_M_GLB,
    NP_M_INIT,
    NP_M_INTR,
    NP_M_L2,
    NP_M_L3,
    NP_M_MC,
    NP_M_PA,
    NP_M_PORT,
    NP_M_PUB,
    NP_M_QOS,
    NP_M_SECU,
    NP_M_STAT,
    NP_M_VLAN,
    NP_M_VOIP,
    NP_M_VPN,
    NP_M_LCAM,
    NP_M_EML,
    NP_M_PRICAM,
    NP_M_CPUTRMSG,
    NP_M_HA,
    NP_M_ATOM,
    NP_M_IPQAM,
};

enum NpPrintLevel : uint32_t {
    NP_PRINT_TRACE = 1,  // function entry and exit
    NP_PRINT_ERROR = 2,  // failures
    NP_PRINT_DEBUG = 3,
    NP_PRINT_POLL = 4,
};

inline constexpr uint32_t NP_MODULE_NUM = 30;  // rows; row 0 is not used
inline constexpr uint32_t NP_LEVEL_NUM = 4;
inline constexpr uint32_t NP_SWITCH_WORDS = 10;   // 1 to 4 switches, 6 to 9 print counters
inline constexpr uint32_t NP_SWITCH_COUNTER = 5;  // counter word = level + this
inline constexpr uint32_t NP_PRINT_SIZE = 512;    // a formatted line with prefix and NUL
inline constexpr uint32_t NP_USR_FUNC_SIZE = 100;

extern "C" {

extern uint32_t g_stNpSdkModuleSwitch[NP_MODULE_NUM][NP_SWITCH_WORDS];
extern NpPrintHook g_pfnNpSdkPrint;
extern uint32_t g_ulNpSdkTraceTimes;
extern uint32_t g_ulNpSdkTraceFuncTimes;
extern uint32_t g_stNpSdkFuncEnable;
extern uint8_t g_aucNpUsrFunc[NP_USR_FUNC_SIZE];
extern uint32_t g_stNpSdkFuncCount;
extern uint32_t g_ulNpLine;
extern const char *g_pszNpFunc;
extern const char *g_pszNpFile;

extern NpUsDelayHook g_pfnNpUsDelayHook;
extern NpSlaveReadHook g_pFnNpSlaveAddrRead[NP_CHIP_NUM];
extern NpSlaveWriteHook g_pFnNpSlaveAddrWrite[NP_CHIP_NUM];
extern NpRecordErrHook g_pFnNpRecordErrInfo[NP_CHIP_NUM];
extern NpIntLockHook g_pFnNpIntLock;
extern NpIntUnlockHook g_pFnNpIntUnlock;
extern NpClearWatchDogHook g_pFnNpClearWatchDog;

// Prints one trace line with its position, if function mode or the switch says so. The line at
// which a switch reaches g_ulNpSdkTraceTimes still prints and closes the switch.
void Np_PrintWithPosition(uint32_t ulModule, uint32_t ulLevel, const char *pszFormat, ...)
    __attribute__((format(printf, 3, 4), cold));
// Prints a dump without position or counting, if the switch is 1.
void Np_DeubgPrint(uint32_t ulModule, uint32_t ulLevel, const char *pszFormat, ...)
    __attribute__((format(printf, 3, 4)));

void Np_PrintLevelSet(uint32_t ulModule, uint32_t ulLevel, uint32_t ulValue);
void Np_PrintLevelInit(void);
void Np_PrintLevelClose(void);
void Np_ClosePrintExceptError(void);
// A level above 4 means all four.
void Np_PrintLevelSwitchAll(uint32_t ulLevel, uint32_t ulValue);
// Stores the three position globals.
void Np_GetPosition(const char *pszFile, uint32_t ulLine, const char *pszFunc);

// Hands a driver's failure to the chip's recorder. 0, or NP_ERR_NULL_PTR without a hook.
uint32_t Np_RecordErrInfo(uint32_t ulChipID, uint32_t ulErrCode, uint32_t ulErrInfo);
// Once per pass of a long loop: feeds the watchdog, or gives the processor up. May sleep.
void Np_ClearWatchDog(void);
// Masks interrupts on this processor; the key goes back to Np_IntUnlock. Keep the stretch short.
uintptr_t Np_IntLock(void);
void Np_IntUnlock(uintptr_t ulKey);
uint32_t taskDelay(uint32_t ulMs);
void Np_UsDelay(uint32_t ulA, uint32_t ulB, uint32_t ulC);
void Np_MsDelay(uint32_t ulMs);

}  // extern "C"

// The trace statement. Off, it costs one load and one test: nothing of it is evaluated.
#define NP_TRACE(module, level, ...)                                  \
    do {                                                              \
        if (g_stNpSdkModuleSwitch[module][level] != 0) [[unlikely]] { \
            g_ulNpLine = static_cast<uint32_t>(__LINE__);             \
            g_pszNpFunc = __func__;                                   \
            Np_PrintWithPosition(module, level, __VA_ARGS__);         \
        }                                                             \
    } while (0)

// Whose function and line a trace names. A helper takes its caller's: traces carry the names of the
// system's functions only.
struct NpWhere {
    const char *pszFunc;
    uint32_t ulLine;
};
constexpr NpWhere Np_Here(const char *pszFunc = __builtin_FUNCTION(),
                          uint32_t ulLine = __builtin_LINE())
{
    return {pszFunc, ulLine};
}

// A trace of the caller's position. Off, it costs one load and one test.
#define NP_TRACE_AT(stWhere, module, level, ...)                      \
    do {                                                              \
        if (g_stNpSdkModuleSwitch[module][level] != 0) [[unlikely]] { \
            g_ulNpLine = (stWhere).ulLine;                            \
            g_pszNpFunc = (stWhere).pszFunc;                          \
            Np_PrintWithPosition(module, level, __VA_ARGS__);         \
        }                                                             \
    } while (0)
