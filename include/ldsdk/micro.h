/* Loading microcode.
   Results that all functions share: ldsdk/ldsdk.h. */
#ifndef LDSDK_MICRO_H
#define LDSDK_MICRO_H

#include "ldsdk/images.h"
#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* Where an image stands: two words of 32 bits everywhere. The address is a pointer where pointers
   have 32 bits; on a 64-bit host the image lies in the first 4 GiB; in any kernel it can also be
   the word of an image that the board registered (ldsdk/images.h), and in a 64-bit one it has to
   be. */
typedef struct NpMicroLoad {
    uint32_t ulLength;  /* bytes, with the 32-byte version trailer */
    uint32_t ulAddress; /* of its first byte; a multiple of 4 loads fastest */
} NpMicroLoad;

/* Takes an image apart and loads its sections. pstLoad: length in bytes and address of the
   image, big-endian words, which the call reverses in place: an image loads once, from a fresh
   copy. It must stay in memory. The version is recorded first, even if the load fails then.
   NP_ERR_NOT_EXIST: a section is missing or does not lie in the image; NP_ERR_NULL_PTR;
   NP_ERR_ADDRESS: the address names no memory;
   NP_ERR_IMEM_LOAD, NP_ERR_RCAM_WRITE; otherwise the driver's own code. Nothing is undone. */
NP_API uint32_t Np_Micro_Load(uint32_t ulChipID, const NpMicroLoad *pstLoad);

/* Replaces the microcode of atoms in service. ulAtomBitmap 1 to 15, bit i for atom i.
   Interrupts are masked throughout, and a watchdog hook that does not sleep must be registered.
   NP_ERR_THREAD_STATE: the threads do not come to rest. Further codes: those of the load and of
   the driver; a failure leaves the atoms stopped. */
NP_API uint32_t Np_Micro_OnlineLoad(uint32_t ulChipID, uint32_t ulAtomBitmap,
                                    const NpMicroLoad *pstLoad);

NP_EXTERN_C_END

#endif
