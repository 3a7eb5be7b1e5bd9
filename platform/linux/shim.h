/* What the C files of the kernel modules share. */
#pragma once

#include "ldsdk/chip.h"
#include "ldsdk/images.h"
#include "ldsdk/kernel.h"
#include "platform/bus.h"

NP_EXTERN_C_BEGIN

/* Load and unload of the SDK (sdk/module). */
int Np_ModuleInit(void);
int Np_ModuleExit(void);
/* 0, or a code: no such option. */
uint32_t Np_FamilyOptionSet(const char *pszName, uint32_t ulValue);

/* Gives back what the services hold, and reports blocks of memory that nobody gave back. */
void Os_LinuxEnd(void);

/* Around what a sibling changes below the SDK, such as the chip's power: no command and no exported
   call of anybody else is inside between the two; the holder's own go on. May sleep, and waits a
   few seconds at most: 0, or -EBUSY when a call stays inside, and then nothing is held. */
int Ld_SdkHold(void);
void Ld_SdkRelease(void);

/* The chip model's door for a kernel. 0, or the model's code. Ld_ChipAttach and Ld_ChipDetach of
   ldsdk/chip.h hold its debug door off around them; the SDK is the caller's matter. */
uint32_t Ld_ModelAttach(uint32_t ulChipID);
uint32_t Ld_ModelDetach(uint32_t ulChipID);
/* pace_set of chipmodel/model.h. */
void Ld_ModelPace(bool (*pfnGoOn)(void));

/* Takes over the memory (of vmalloc) of a microcode image: the word that names it, which a load
   takes as its address; 0 when it is too large or the others are all in use, and then it is freed.
   The oldest of a few goes when there is no room, unless a load is at it. */
uint32_t Ld_BoardKeepImage(void *pvImage, uint32_t ulSize);
const OsImages *Ld_BoardImages(void);

NP_EXTERN_C_END
