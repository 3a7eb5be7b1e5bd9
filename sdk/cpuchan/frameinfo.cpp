#include "sdk/cpuchan/frameinfo.h"

#include "sdk/cpuchan/formats.h"
#include "sdk/frame/base/trace.h"

namespace {

constexpr NpRow Np_FrameRow(std::span<const NpField> stFields, std::span<const NpCheck> stChecks)
{
    return Np_RowMake<NpFrameInfo>(
        {.ucModule = NP_M_CPUTR, .usImageSize = sizeof(uint32_t), .bBare = true}, stFields,
        stChecks);
}

// By frame info type; type 0 has no fields.
constexpr NpRow g_astFrameRow[NP_FRAME_NUM] = {
    Np_FrameRow({}, {}),
    Np_FrameRow(frame_info::g_astEther, frame_info::g_astEtherCheck),
    Np_FrameRow(frame_info::g_astGpon, frame_info::g_astGponCheck),
    Np_FrameRow(frame_info::g_astEpon, frame_info::g_astEponCheck),
    Np_FrameRow(frame_info::g_astXdsl, frame_info::g_astXdslCheck),
    Np_FrameRow(frame_info::g_astPrbs, frame_info::g_astPrbsCheck),
    Np_FrameRow(frame_info::g_astPie, frame_info::g_astPieCheck),
    Np_FrameRow(frame_info::g_astLoopBack, frame_info::g_astLoopBackCheck),
};

// The row of a type that there is, with the caller's module.
NpRow Np_FrameRowOf(uint32_t ulFrameInfoType, uint32_t ulModuleID)
{
    NpRow stRow = g_astFrameRow[ulFrameInfoType];
    stRow.ucModule = static_cast<uint8_t>(ulModuleID);
    return stRow;
}

uint32_t Np_FrameNull(uint32_t ulModuleID, const void *pvA, const void *pvB,
                      NpWhere stWhere = Np_Here())
{
    if (pvA == nullptr || pvB == nullptr) {
        NP_TRACE_AT(stWhere, ulModuleID, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    return NP_OK;
}

}  // namespace

uint32_t Np_Tarn_FrameInfo_Check(uint32_t ulChipID, uint32_t ulModuleID, uint32_t ulFrameInfoType,
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
    const NpRow stRow = Np_FrameRowOf(ulFrameInfoType, ulModuleID);
    return Np_Row_Check(&stRow, ulChipID, punFrameInfo);
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
        const NpRow stRow = Np_FrameRowOf(ulFrameInfoType, ulModuleID);
        Np_Row_Trace(&stRow, punFrameInfo);
    }
    return NP_OK;
}

uint32_t Np_Tarn_FrameInfo_Build(uint32_t ulChipID, uint32_t ulModuleID, uint32_t ulFrameInfoType,
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
    return Np_Row_Build(&g_astFrameRow[ulFrameInfoType], ulChipID, punFrameInfo, pulFrameInfo);
}

uint32_t Np_Tarn_FrameInfo_Parse(uint32_t ulChipID, uint32_t ulModuleID, uint32_t ulFrameInfoType,
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
    return Np_Row_Parse(&g_astFrameRow[ulFrameInfoType], ulChipID, &ulFrameInfo, punFrameInfo);
}
