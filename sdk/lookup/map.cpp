#include "sdk/lookup/map.h"

#include "ldsdk/status.h"

uint32_t Np_Tarn_Map_GetNpValue(const NpMapPair *pstMap, uint32_t ulSize, uint32_t ulExternal,
                                uint32_t *pulNp)
{
    for (uint32_t i = 0; i < ulSize; i++) {
        if (pstMap[i].ulExternal == ulExternal) {
            *pulNp = pstMap[i].ulNp;
            return NP_OK;
        }
    }
    return NP_ERR_MAP_NP;
}

uint32_t Np_Tarn_Map_GetExternalValue(const NpMapPair *pstMap, uint32_t ulSize, uint32_t ulNp,
                                      uint32_t *pulExternal)
{
    for (uint32_t i = 0; i < ulSize; i++) {
        if (pstMap[i].ulNp == ulNp) {
            *pulExternal = pstMap[i].ulExternal;
            return NP_OK;
        }
    }
    return NP_ERR_MAP_EXTERNAL;
}
