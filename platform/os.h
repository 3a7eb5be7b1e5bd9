// What the SDK asks of the kernel: one of the two doors out of sdk/. A platform folder defines
// these functions (host/ in user space, linux/ in a kernel). Plain C.
#pragma once

#include "ldsdk/types.h"

#include <stdarg.h>
#include <stdbool.h>

NP_EXTERN_C_BEGIN

// ---- text -------------------------------------------------------------------------------------

// Prints to the kernel log, as printk does. Never fails.
int Os_Print(const char *pszFormat, ...) __attribute__((format(printf, 1, 2)));

// Formats into pszBuffer, at most ulSize bytes with the NUL, which is always written. Returns the
// length that the whole text has.
int Os_FormatV(char *pszBuffer, size_t ulSize, const char *pszFormat, va_list stArgs)
    __attribute__((format(printf, 3, 0)));
int Os_Format(char *pszBuffer, size_t ulSize, const char *pszFormat, ...)
    __attribute__((format(printf, 3, 4)));

// ---- memory -----------------------------------------------------------------------------------

// Allocates ulSize bytes, cleared, aligned for any record. Null when there is none.
void *Os_Alloc(size_t ulSize);
// Gives an allocation back; null does nothing.
void Os_Free(void *pvBlock);

// Tells whether ulSize bytes at pvUser lie wholly below the calling process's address limit.
bool Os_UserRangeOk(const void *pvUser, size_t ulSize);
// Copies from the calling process. Returns the number of bytes that were not copied.
size_t Os_CopyFromUser(void *pvTo, const void *pvUser, size_t ulSize);

// ---- chip windows -----------------------------------------------------------------------------

// Maps ulSize bytes of chip address space that begin at ulFirst, for device access. 0 on failure.
uintptr_t Os_IoMap(uint32_t ulFirst, uint32_t ulSize);
// Clears ulSize bytes of a mapped window.
void Os_IoClear(uintptr_t ulVirt, uint32_t ulSize);

// One load or store of a mapped window, or of a slave's bus block (16 bits), in program order.
uint32_t Os_IoRead32(uintptr_t ulVirt);
void Os_IoWrite32(uintptr_t ulVirt, uint32_t ulValue);
uint16_t Os_IoRead16(uintptr_t ulVirt);
void Os_IoWrite16(uintptr_t ulVirt, uint16_t usValue);

// Chip registers that lie outside the SDK's own address map but within reach of this platform:
// context windows, instruction memory. Rows end with ulLast 0; ulVirt 0 means not mapped (yet).
typedef struct OsIoRow {
    uint32_t ulFirst;
    uint32_t ulLast;  // inclusive
    uintptr_t ulVirt;
} OsIoRow;
// The rows that a platform has: X(first, last), by address.
#define OS_IO_EXTRA_ROWS(X)                                                     \
    X(0x7a101a80, 0x7a101a8f) /* context windows of the atoms */                \
    X(0x7a111a80, 0x7a111a8f)                                                   \
    X(0x7a121a80, 0x7a121a8f)                                                   \
    X(0x7a131a80, 0x7a131a8f)                                                   \
    X(0x7a080000, 0x7a0bffff) /* instruction memory: 8192 groups of 32 bytes */ \
    X(0x78100160, 0x7810016f) /* free thread counts of the packet feed */       \
    X(0x78880000, 0x78881fff) /* multicast pointer array: 2048 words */
// Maps the platform's rows (again, after a repeated call) and returns them; null if one fails.
const OsIoRow *Os_IoExtraMap(void);

// ---- microcode images -------------------------------------------------------------------------

// The ulSize bytes of an image that a 32-bit word names. They stay there until Os_ImagePut with the
// same word, once for each get that did not answer null.
// bRegistered: only what the board has registered (ldsdk/micro.h) counts, as for a word that
// somebody typed; null for all else. Without it also the caller's own memory, where words can name
// it: all of user space's below 4 GiB, and a 32-bit kernel's own.
void *Os_ImageGet(uint32_t ulAddress, uint32_t ulSize, bool bRegistered);
void Os_ImagePut(uint32_t ulAddress);

// ---- processor --------------------------------------------------------------------------------

void Os_Sleep(uint32_t ulMs);           // sleeps at least ulMs milliseconds
void Os_Schedule(void);                 // gives the processor up once
uintptr_t Os_IrqSave(void);             // masks interrupts here, returns the old state
void Os_IrqRestore(uintptr_t ulState);  // puts a state of Os_IrqSave back

// ---- callers ----------------------------------------------------------------------------------
//
// Bring-up and tear-down run alone: each exported call stands between these two, so that a platform
// where siblings and commands run at the same time can hold one off against the other.

typedef enum OsTurn {
    OS_TURN_REFUSED,  // somebody else keeps the SDK: nothing may be touched
    OS_TURN_NESTED,   // inside of what the caller holds already
    OS_TURN_SHARED,   // beside other calls
    OS_TURN_ALONE,    // no other call and no command is inside
} OsTurn;

#ifdef LDSDK_MANY_CALLERS
// Waits a few seconds at most for enTurn, OS_TURN_SHARED or OS_TURN_ALONE, and says what came of
// it. Where the caller may not sleep it does not wait, and nobody gets to be alone.
OsTurn Os_TurnTake(OsTurn enTurn);
// Gives back what it answered; nothing for OS_TURN_REFUSED and OS_TURN_NESTED.
void Os_TurnGive(OsTurn enTurn);
#else
// One thread: there is nobody to wait for.
static inline OsTurn Os_TurnTake(OsTurn enTurn)
{
    (void)enTurn;
    return OS_TURN_NESTED;
}
static inline void Os_TurnGive(OsTurn enTurn)
{
    (void)enTurn;
}
#endif

// ---- misc device ------------------------------------------------------------------------------

typedef struct OsMiscOps {
    int (*pfnOpen)(void *pvInode, void *pvFile);
    int (*pfnRelease)(void *pvInode, void *pvFile);
    int (*pfnIoctl)(void *pvInode, void *pvFile, unsigned int uiCmd, uintptr_t ulArg);
} OsMiscOps;

// Registers a misc device with a dynamic minor. 0, or the platform's negative error.
int Os_MiscRegister(const char *pszName, const OsMiscOps *pstOps);
void Os_MiscDeregister(const char *pszName);

NP_EXTERN_C_END
