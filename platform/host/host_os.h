// The user-space platform: what a host program sets and asks beside os.h and bus.h. Nothing here is
// safe to call from two threads at once, as the module itself isn't.
#pragma once

#include "platform/os.h"

#include <cstddef>
#include <cstdint>

extern "C" {

// ---- text -------------------------------------------------------------------------------------

// Sends what Os_Print formats to pfnSink, one call per print with the whole text; null goes back to
// stdout.
void Os_HostSetSink(void (*pfnSink)(const char *pszText, void *pvUser), void *pvUser);

// ---- memory -----------------------------------------------------------------------------------

typedef struct OsHostMemory {
    size_t ulBlocks;    // blocks that Os_Alloc gave and Os_Free has not taken back
    size_t ulBytes;     // their bytes, as asked for
    size_t ulAllocs;    // allocations that succeeded since the start
    size_t ulRefused;   // allocations that the bus or the host refused
    size_t ulBadFrees;  // calls of Os_Free on what is no live block; they free nothing
} OsHostMemory;
// Reads the counters of Os_Alloc and Os_Free. A leak test compares ulBlocks before and after.
void Os_HostMemoryGet(OsHostMemory *pstMemory);

// Address limit of the calling process: Os_UserRangeOk accepts what ends at or below it. 0 goes
// back to no limit.
void Os_HostSetUserLimit(uintptr_t ulLimit);
// Makes every Os_CopyFromUser stop after ulBytes bytes, as at an unmapped page; SIZE_MAX ends that.
void Os_HostSetCopyFault(size_t ulBytes);

// ---- processor --------------------------------------------------------------------------------

typedef struct OsHostIrq {
    uint32_t ulDepth;       // Os_IrqSave without their Os_IrqRestore; 0 when interrupts are on
    uint32_t ulSaves;       // calls of Os_IrqSave since the start
    uint32_t ulUnbalanced;  // calls of Os_IrqRestore with another state than the last save's
    uint32_t ulAsleep;      // calls of Os_Sleep or Os_Schedule while interrupts were masked
} OsHostIrq;
void Os_HostIrqGet(OsHostIrq *pstIrq);
// Counters and depth back to 0.
void Os_HostIrqReset(void);

// Calls pfnHook in place of sleeping, to advance a model's clock; null sleeps again.
void Os_HostSetSleepHook(void (*pfnHook)(uint32_t ulMs, void *pvUser), void *pvUser);

// ---- misc device ------------------------------------------------------------------------------

// Operations of a registered misc device; null when there is none of that name.
const OsMiscOps *Os_HostMisc(const char *pszName);
// Makes Os_MiscRegister answer iCode (negative) and register nothing; 0 ends that.
void Os_HostSetMiscFault(int iCode);

}  // extern "C"
