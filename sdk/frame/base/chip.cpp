#include "sdk/frame/base/chip.h"

#include "sdk/frame/base/trace.h"

constinit NpChipAddr g_stNpChipAddr[NP_CHIP_NUM] = {};
constinit const uint32_t *g_aulNpGlbCap[NP_CHIP_NUM] = {};
constinit NpChipAttr g_aulNpChipAttr[NP_CHIP_NUM] = {};
constinit uint32_t g_ulNpCurrentUsedChipID = 0;
constinit NpMicroVersion g_stNpMicroVersion[NP_CHIP_NUM] = {};

uint32_t Np_GLB_ChipIDIsValid(uint32_t ulChipID)
{
    if (ulChipID >= NP_CHIP_NUM) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "ChipID Error(%d)!\r\n", static_cast<int>(ulChipID));
        return NP_ERR_CHIP_ID;
    }
    if (g_stNpChipAddr[ulChipID].ulRegistered == 0) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "ChipID not register(%d)!\r\n",
                 static_cast<int>(ulChipID));
        return NP_ERR_CHIP_ID;
    }
    g_ulNpCurrentUsedChipID = ulChipID;
    return NP_OK;
}

uint32_t Np_Chip_AddrFind(uint32_t ulChipID, const NpChipAddr **ppstChipAddr)
{
    if (ulChipID >= NP_CHIP_NUM) {
        NP_TRACE_AT(Np_Here("Np_Chip_AddrGet"), NP_M_COMM, NP_PRINT_ERROR,
                    " ulChipID para error!(%08x)", ulChipID);
        return NP_ERR_CHIP_ID;
    }
    *ppstChipAddr = &g_stNpChipAddr[ulChipID];
    return NP_OK;
}

uint32_t Np_Chip_AddrGet(uint32_t ulChipID, NpChipAddr *pstChipAddr)
{
    const NpChipAddr *pstFound = nullptr;
    const uint32_t ulReturn = Np_Chip_AddrFind(ulChipID, &pstFound);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (pstChipAddr == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, " pstChipAddr is null ptr");
        return NP_ERR_NULL_PTR;
    }
    *pstChipAddr = *pstFound;
    return NP_OK;
}

uint32_t Np_Chip_AddrSet(uint32_t ulChipID, const NpChipAddr *pstChipAddr)
{
    if (ulChipID >= NP_CHIP_NUM) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, " ulChipID para error!(%08x)", ulChipID);
        return NP_ERR_CHIP_ID;
    }
    g_stNpChipAddr[ulChipID] = *pstChipAddr;
    return NP_OK;
}
