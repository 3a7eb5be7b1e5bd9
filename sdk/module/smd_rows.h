// What the commands take that work on no table: read by their handlers, and told by completion,
// help and the reference page. Where nothing else is said the record is the one value.
#pragma once

#include "sdk/frame/base/trace.h"
#include "sdk/record/record.h"

// Which switches a trace command sets; 0 stands for all.
struct NpPrintArgs {
    uint32_t ulModule;
    uint32_t ulLevel;
};

inline constexpr uint32_t NP_FUNC_NAME_MAX = 100;
struct NpFuncPrintArgs {
    char acFunc[NP_FUNC_NAME_MAX + 2];
    uint32_t ulTimes;
};

extern const NpRow g_stChipArgs;
extern const NpRow g_stPromptArgs;
extern const NpRow g_stPrintArgs;      // NpPrintArgs
extern const NpRow g_stFuncPrintArgs;  // NpFuncPrintArgs
extern const NpRow g_stMicroLoadArgs;  // NpMicroLoad
extern const NpRow g_stPortArgs;
extern const NpRow g_stPhyArgs;
extern const NpRow g_stEmlCacheArgs;
extern const NpRow g_stCpuCacheArgs;
// Cable modem rows, which this family has not.
extern const NpRow g_stCmKeyArgs;
extern const NpRow g_stCmGroupArgs;
extern const NpRow g_stCmClassArgs;
extern const NpRow g_stCmLmtArgs;

// The blocks of a priority CAM table; the share is read once for each priority.
extern const NpRow g_stPriInitArgs;
extern const NpRow g_stAclInitArgs;
// What of its soft tables is shown. The key numbers are those from start to end.
struct NpPriDumpArgs {
    uint32_t ulSoftbl;
    uint32_t ulStart;
    uint32_t ulEnd;
};
inline constexpr uint32_t NP_DUMP_KEYS = 0;
inline constexpr uint32_t NP_DUMP_BLOCKS = 1;
extern const NpRow g_stL2DumpArgs;
extern const NpRow g_stL2paDumpArgs;
extern const NpRow g_stL3paDumpArgs;
extern const NpRow g_stAclDumpArgs;
extern const NpRow g_stPaStateArgs;
