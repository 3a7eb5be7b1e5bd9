/* The chip model as a kernel module, ldsdk_chip: power-on, and the hooks of its board, for a
   sibling module on a machine without the chip. A sibling of a real chip needs none of it. In a
   program of the host power-on is ldsdk_model_attach of ldsdk/host.h. */
#ifndef LDSDK_CHIP_H
#define LDSDK_CHIP_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

struct OsBus;

/* Puts a chip behind the windows that bring-up maps: Os_BusAttach(Ld_ChipBus()), once, in front of
   the chip's registration. Null takes it out; windows that are mapped then read as 0. */
void Os_BusAttach(const struct OsBus *pstBus);
const struct OsBus *Ld_ChipBus(void);

/* Powers a chip on, 0 to 3, its memory all 0; again: a power cycle. The first one stands behind the
   windows: registered with register base 0. Detach takes it out: what still comes finds no chip.
   Between Ld_SdkHold and Ld_SdkRelease of ldsdk/kernel.h; both keep the debug door off themselves.
   0, or 0xe0000002 for a chip number that is none, and for a chip to detach that is not there. */
uint32_t Ld_ChipAttach(uint32_t ulChipID);
uint32_t Ld_ChipDetach(uint32_t ulChipID);

/* Hooks of the board, for the functions of ldsdk/glb.h. They live beside the chip, so that they
   outlast the sibling that hands them to the SDK, which takes none back. Delay and watchdog do
   nothing, error records go to the log; the SDK's text goes to the log without a hook. */
void Ld_BoardDelay(uint32_t ulA, uint32_t ulB, uint32_t ulC);
void Ld_BoardWatchDog(void);
uint32_t Ld_BoardLock(void);
void Ld_BoardUnlock(uint32_t ulKey);
void Ld_BoardRecordError(uint32_t ulErrCode, uint32_t ulErrInfo);

NP_EXTERN_C_END

#endif
