// What the commands take that work on no table: read by completion, help and the reference page.
#pragma once

#include "sdk/record/record.h"

extern const NpRow g_stChipArgs;
extern const NpRow g_stPromptArgs;
extern const NpRow g_stPrintArgs;
extern const NpRow g_stFuncPrintArgs;
extern const NpRow g_stMicroLoadArgs;
extern const NpRow g_stPortArgs;
extern const NpRow g_stPhyArgs;
extern const NpRow g_stEmlCacheArgs;
extern const NpRow g_stCpuCacheArgs;
