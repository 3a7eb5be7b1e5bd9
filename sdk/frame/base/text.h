// String and memory helpers, and the readers that turn text into values.
#pragma once

#include "platform/os.h"

#include <cstddef>
#include <cstdint>

// The compiler turns these into calls to the platform's C library where a loop would be longer.
extern "C" {
void *memcpy(void *, const void *, size_t) noexcept;
void *memset(void *, int, size_t) noexcept;
void *memmove(void *, const void *, size_t) noexcept;
int memcmp(const void *, const void *, size_t) noexcept;
}

extern "C" {

uint32_t NP_StrLen(const char *pszText);
void Np_StrCpy(char *pszTo, const char *pszFrom);
// Copies exactly ulCount bytes, NUL or not; adds no terminator.
void Np_StrNCpy(char *pszTo, const char *pszFrom, uint32_t ulCount);
// -1, 0 or 1 by the first byte that differs, unsigned.
int32_t Np_StrCmp(const char *pszA, const char *pszB);
int32_t Np_UcharStrCmp(const uint8_t *pucA, const uint8_t *pucB);
void Np_MemCpy(void *pvTo, const void *pvFrom, uint32_t ulSize);
void Np_MemSet(void *pvTo, uint32_t ulValue, uint32_t ulSize);
int32_t Np_MemCmp(const void *pvA, const void *pvB, uint32_t ulSize);
// The part behind the last slash or backslash; null and empty come back as they are.
const char *Np_GetShortFileName(const char *pszPath);

// "xx-xx-xx-xx-xx-xx", one to two or more hex digits a group, to 6 bytes, first group first.
// 0; NP_ERR_NULL_PTR; NP_ERR_FAIL for text over 31 characters or of another form.
uint32_t Np_StringMacToUCharMac(const char *pszMac, uint8_t *aucMac);
// "d.d.d.d" to 32 bits, first group in the top byte. 0, NP_ERR_NULL_PTR, NP_ERR_FAIL.
uint32_t Np_StringIPToULongIP(const char *pszIp, uint32_t *pulIp);
// Colon notation (RFC 4291, 2.2, without the dotted form) to 4 words, first group in the high half
// of word 0. 0; NP_ERR_NULL_PTR; NP_ERR_FAIL; NP_IPV6_EDGE_COLON. Cuts pszIp at a "::".
uint32_t Np_StringIPv6ToULongIP(char *pszIp, uint32_t *pulIp);

}  // extern "C"

// A single colon at the start or the end of an IPv6 text; not a status code.
inline constexpr uint32_t NP_IPV6_EDGE_COLON = 0xffffffffu;

// Reads one unsigned number as "%u" (base 10) or "%x" (base 16, an 0x prefix allowed) would: skips
// white space, wants at least one digit, wraps at 32 bits. Moves *ppszText behind it. False, with
// nothing moved, when there is no digit.
bool Np_ScanNumber(const char **ppszText, uint32_t ulBase, uint32_t *pulValue);

// Frees the block that *ppBlock holds, and forgets it first: whoever looks meanwhile finds none.
template <typename Block>
void Np_FreeAndForget(Block **ppBlock)
{
    Block *pBlock = *ppBlock;
    *ppBlock = nullptr;
    Os_Free(pBlock);
}
