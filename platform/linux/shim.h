/* What the C files of the kernel modules share. */
#pragma once

#include "platform/bus.h"

NP_EXTERN_C_BEGIN

/* Load and unload of the SDK (sdk/module). */
int Np_ModuleInit(void);
int Np_ModuleExit(void);

/* Gives back what the services hold, and reports blocks of memory that nobody gave back. */
void Os_LinuxEnd(void);

/* The chip model's door for a kernel. 0, or the model's code. */
uint32_t Ld_ChipAttach(uint32_t ulChipID);
uint32_t Ld_ChipDetach(uint32_t ulChipID);
const OsBus *Ld_ChipBus(void);

/* The board's hooks. They live beside the chip, so that they outlast the sibling that hands them to
   the SDK, which takes none back. The SDK's text goes to the log without one. */
void Ld_BoardDelay(uint32_t, uint32_t, uint32_t);
void Ld_BoardWatchDog(void);
uint32_t Ld_BoardLock(void);
void Ld_BoardUnlock(uint32_t ulKey);
void Ld_BoardRecordError(uint32_t ulCode, uint32_t ulInfo);
/* Takes over the memory (of vmalloc) of the microcode image that is loaded next, where the SDK
   looks sections up, and frees the one before. */
void Ld_BoardKeepImage(void *pvImage);

NP_EXTERN_C_END
