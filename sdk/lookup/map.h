// Pair arrays: where a caller's enumeration differs from the microcode's number.
#pragma once

#include <cstdint>

struct NpMapPair {
    uint32_t ulExternal;  // the caller's value
    uint32_t ulNp;        // the microcode's
};

extern "C" {

// Look a value up in an array of ulSize pairs; the first match wins and is written to the out
// argument. NP_ERR_MAP_NP, or NP_ERR_MAP_EXTERNAL of the second, when there is none.
uint32_t Np_Tarn_Map_GetNpValue(const NpMapPair *pstMap, uint32_t ulSize, uint32_t ulExternal,
                                uint32_t *pulNp);
uint32_t Np_Tarn_Map_GetExternalValue(const NpMapPair *pstMap, uint32_t ulSize, uint32_t ulNp,
                                      uint32_t *pulExternal);

}  // extern "C"
