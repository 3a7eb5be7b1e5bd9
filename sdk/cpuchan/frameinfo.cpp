#include "sdk/cpuchan/frameinfo.h"

#include "sdk/cpuchan/formats.h"
#include "sdk/frame/registry.h"
#include "sdk/frame/trace.h"

namespace {

inline constexpr char NP_FRAME_RECORD[] = "punFrameInfo->";

uint32_t Np_FrameNull(uint32_t ulModuleID, const void *pvA, const void *pvB)
{
    if (pvA == nullptr || pvB == nullptr) {
        NP_TRACE(ulModuleID, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    return NP_OK;
}

}  // namespace

uint32_t Np_Tarn_FrameInfo_Check(uint32_t, uint32_t ulModuleID, uint32_t ulFrameInfoType,
                                 const NpFrameInfo *punFrameInfo)
{
    if (ulFrameInfoType == NP_FRAME_NONE) {
        return NP_OK;
    }
    if (ulFrameInfoType >= NP_FRAME_NUM) {
        NP_TRACE(ulModuleID, NP_PRINT_ERROR, "param error! ulFrameInfoType=0x%08x\r\n",
                 ulFrameInfoType);
        return NP_ERR_PARAM;
    }
    const uint32_t ulReturn = Np_FrameNull(ulModuleID, punFrameInfo, punFrameInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return Np_InbandCheck(g_astFrameFormat[ulFrameInfoType], punFrameInfo,
                          {ulModuleID, __func__, NP_FRAME_RECORD});
}

uint32_t Np_Tarn_FrameInfo_Trace(uint32_t, uint32_t ulModuleID, uint32_t ulFrameInfoType,
                                 const NpFrameInfo *punFrameInfo)
{
    if (ulFrameInfoType >= NP_FRAME_NUM) {
        NP_TRACE(ulModuleID, NP_PRINT_ERROR, "unrecogenized frameinfo type(0x%08x) user input!\r\n",
                 ulFrameInfoType);
        return NP_OK;
    }
    if (punFrameInfo != nullptr) {
        Np_InbandTrace(g_astFrameFormat[ulFrameInfoType], punFrameInfo,
                       {ulModuleID, __func__, NP_FRAME_RECORD});
    }
    return NP_OK;
}

uint32_t Np_Tarn_FrameInfo_Build(uint32_t, uint32_t ulModuleID, uint32_t ulFrameInfoType,
                                 const NpFrameInfo *punFrameInfo, uint32_t *pulFrameInfo)
{
    const uint32_t ulReturn = Np_FrameNull(ulModuleID, punFrameInfo, pulFrameInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (ulFrameInfoType >= NP_FRAME_NUM) {
        NP_TRACE(ulModuleID, NP_PRINT_ERROR, "unrecogenized frameinfo type(0x%08x)!\r\n",
                 ulFrameInfoType);
        return NP_ERR_PARAM;
    }
    *pulFrameInfo = 0;
    Np_InbandPack(g_astFrameFormat[ulFrameInfoType], punFrameInfo, pulFrameInfo);
    return NP_OK;
}

uint32_t Np_Tarn_FrameInfo_Parse(uint32_t, uint32_t ulModuleID, uint32_t ulFrameInfoType,
                                 uint32_t ulFrameInfo, NpFrameInfo *punFrameInfo)
{
    const uint32_t ulReturn = Np_FrameNull(ulModuleID, punFrameInfo, punFrameInfo);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    if (ulFrameInfoType >= NP_FRAME_NUM) {
        NP_TRACE(ulModuleID, NP_PRINT_ERROR,
                 "unrecogenized frameinfo type(0x%08x) saved in soft table!\r\n", ulFrameInfoType);
        return NP_ERR_PARAM;
    }
    Np_InbandParse(g_astFrameFormat[ulFrameInfoType], &ulFrameInfo, punFrameInfo);
    return NP_OK;
}
