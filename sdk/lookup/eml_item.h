// The layout of an item: what stands where, and how it is packed.
#pragma once

#include "sdk/lookup/eml.h"

#include <cstdint>

// Unpacks an item's key, ulKeyLen bytes.
void Np_EmlKeyGet(const NpEmlConfig *pstConfig, const uint8_t *pucItem, uint8_t *pucKey);

// The shifted form of an AD, as responses and flee entries hold it: the AD shifted left by four
// bits in the top bytes of a field of ulField bytes. A field that is shorter than the AD lacks the
// lowest bits. The get direction leaves those of the item alone, and its key; the put direction
// fills a zeroed field.
void Np_EmlShiftedAdGet(const NpEmlConfig *pstConfig, uint8_t *pucItem, const uint8_t *pucField,
                        uint32_t ulField);
void Np_EmlShiftedAdPut(const NpEmlConfig *pstConfig, const uint8_t *pucItem, uint8_t *pucField,
                        uint32_t ulField);

// The status nibble.
inline uint32_t Np_EmlStatusGet(const NpEmlConfig *pstConfig, const uint8_t *pucItem)
{
    return pucItem[Np_EmlItemSize(pstConfig->ulTblWidth) - 1] >> 4;
}

inline void Np_EmlStatusSet(const NpEmlConfig *pstConfig, uint8_t *pucItem, uint32_t ulStatus)
{
    uint8_t *pucLast = &pucItem[Np_EmlItemSize(pstConfig->ulTblWidth) - 1];
    *pucLast = static_cast<uint8_t>((*pucLast & 0x0f) | ulStatus << 4);
}
