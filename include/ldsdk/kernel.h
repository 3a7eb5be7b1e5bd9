/* What the SDK as a kernel module, ldsdk_arm, offers a sibling beside the functions of
   ldsdk/ldsdk.h. */
#ifndef LDSDK_KERNEL_H
#define LDSDK_KERNEL_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* Around what a sibling changes below the SDK, such as the chip's power: no command and no exported
   call of anybody else is inside between the two; the holder's own go on. May sleep, and waits a
   few seconds at most: 0, or -EBUSY when a call stays inside, and then nothing is held. */
int Ld_SdkHold(void);
void Ld_SdkRelease(void);

NP_EXTERN_C_END

#endif
