// How a chip plugs into the mapped windows of a platform that has no hardware: the platform's
// Os_Io* functions end here. Plain C, so that the chip can be a module of its own.
#pragma once

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

typedef struct OsBus {
    // Virtual base of ulSize bytes of the master chip's address space from ulFirst; 0 if none.
    uintptr_t (*pfnMap)(uint32_t ulFirst, uint32_t ulSize);
    void (*pfnClear)(uintptr_t ulVirt, uint32_t ulSize);
    uint32_t (*pfnRead32)(uintptr_t ulVirt);
    void (*pfnWrite32)(uintptr_t ulVirt, uint32_t ulValue);
    uint16_t (*pfnRead16)(uintptr_t ulVirt);
    void (*pfnWrite16)(uintptr_t ulVirt, uint16_t usValue);
    // Asked before each allocation: non-zero makes it fail.
    int (*pfnAllocFails)(uintptr_t ulSize);
} OsBus;

// Installs the bus; null takes it out (mapping then fails, reads give 0, writes are lost).
void Os_BusAttach(const OsBus *pstBus);

NP_EXTERN_C_END
