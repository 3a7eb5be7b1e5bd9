/* Microcode images that a board holds ready. */
#ifndef LDSDK_IMAGES_H
#define LDSDK_IMAGES_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* Where a board keeps its microcode images, so that a load can name one by a word of 32 bits
   whatever the size of a pointer. The words are the board's to choose; in a 32-bit kernel they lie
   below the kernel's own addresses. */
typedef struct OsImages {
    /* ulSize bytes from the word on, wholly inside of one image, which stays until the put; else
       null. */
    void *(*pfnGet)(uint32_t ulAddress, uint32_t ulSize);
    /* Ignores a word that names no image of the board. */
    void (*pfnPut)(uint32_t ulAddress);
} OsImages;

/* Registers them, for the commands too; null takes them out. As a hook they must outlive their
   use. For a kernel: on a host ldsdk_image_load of ldsdk/host.h keeps and registers an image. */
void Os_ImagesAttach(const OsImages *pstImages);

NP_EXTERN_C_END

#endif
