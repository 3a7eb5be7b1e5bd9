/* The host's C door: drives the whole system, module and chip model, inside one process, from any
   language. Records are passed as the plain memory that the module's interface documents.

   One caller at a time, as the module itself asks for: a function of this header that finds another
   thread in one refuses with LDSDK_HOST_BUSY and does nothing; the Np_* functions are the caller's
   to hold apart. The output's sink and the module's hooks may call back, but for
   ldsdk_device_ioctl and ldsdk_image_load. The functions return 0 or a code of the list below,
   unless told otherwise. */
#ifndef LDSDK_HOST_H
#define LDSDK_HOST_H

#include "ldsdk/types.h"

NP_EXTERN_C_BEGIN

/* Results: done; chip number not 0 to 3, or no chip attached there; nothing modelled at the
   address, or not a multiple of 4; a null pointer where one is needed; a fault's text that can't be
   read, of which ldsdk_model_error tells more; another thread is in a function of this header; no
   memory that 32 bits can name for an image of that size. */
#define LDSDK_HOST_OK 0u
#define LDSDK_HOST_CHIP 1u
#define LDSDK_HOST_ADDRESS 2u
#define LDSDK_HOST_NULL 3u
#define LDSDK_HOST_DESCRIPTION 4u
#define LDSDK_HOST_BUSY 5u
#define LDSDK_HOST_MEMORY 6u

/* Turns an option of the chip family on, value 1, or off, 0, before a chip is brought up: "acl"
   gives the CAM rows for access rules. LDSDK_HOST_NULL, LDSDK_HOST_BUSY; NP_ERR_PARAM for a name or
   a value that is none, NP_ERR_FAIL once a chip is up. Nothing changes then. */
NP_API uint32_t ldsdk_family_option(const char *name, uint32_t value);

/* A powered-on chip behind the driver interface: chip 0 as the master behind the mapped windows,
   1 to 3 as slaves on the indirect bus. Again: the chip is power-cycled, all its memory 0. */
NP_API uint32_t ldsdk_model_attach(uint32_t chip);

/* The register base that Np_GLB_ChipRegister wants for this chip: 0 for the master. */
NP_API uintptr_t ldsdk_model_reg_base(uint32_t chip);

/* One 32-bit word of a chip's memory or registers, by its chip address (a multiple of 4). */
NP_API uint32_t ldsdk_model_peek(uint32_t chip, uint32_t addr, uint32_t *value);
NP_API uint32_t ldsdk_model_poke(uint32_t chip, uint32_t addr, uint32_t value);

/* Lets a chip's clock run, in ticks of 0.1 ms. */
NP_API uint32_t ldsdk_model_advance(uint32_t chip, uint64_t ticks);

/* Sets a fault from the text of the tool's `chip fault`; null clears all faults. */
NP_API uint32_t ldsdk_model_fault(const char *description);

/* Loads a microcode image of size bytes, from memory anywhere, into a chip that is registered. The
   bytes are copied and stay as they are; the copy is kept until the chip's next load. No byte or
   null is LDSDK_HOST_NULL, more than 16 MiB LDSDK_HOST_MEMORY; else what Np_Micro_Load answers, a
   code of ldsdk/status.h or the driver's. */
NP_API uint32_t ldsdk_image_load(uint32_t chip, const void *bytes, size_t size);

/* Why the last call of ldsdk_model_fault was refused; "" if it was not. Valid until the next. */
NP_API const char *ldsdk_model_error(void);

/* The misc device's ioctl: one 512-byte buffer with a signed 32-bit little-endian word count and
   the words, each ended by a NUL; word 0 is the caller's own name. 0, or -14; -16 while another
   thread is in a function of this header, and from within a command. */
NP_API int ldsdk_device_ioctl(const void *buffer512);

/* Where everything that the module prints goes. A null sink is standard output. */
NP_API uint32_t ldsdk_set_output(void (*sink)(const char *text, void *user), void *user);

NP_EXTERN_C_END

#endif
