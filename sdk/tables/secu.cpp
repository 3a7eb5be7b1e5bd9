#include "sdk/tables/secu.h"

#include "ldsdk/status.h"
#include "sdk/access/smem.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/describe.h"

namespace {

namespace uvt_row {
using R = NpUvt;
constexpr NpField g_astField[] = {
    NP_F(ulUmacUsed, .stAt = {15, 7, 7}),
    NP_F(ulVmacUsed, .stAt = {15, 6, 6}),
    NP_F(ulUsed, .stAt = {15, 5, 5}),
    NP_F(ulStaticFlag, .stAt = {15, 4, 4}),
    NP_F(aucVmac, .stAt = {13, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC),
    NP_F(aucUmac, .stAt = {5, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulUmacUsed, Np_Below(2)),
    NP_C(ulVmacUsed, Np_Below(2)),
    NP_C(ulUsed, Np_Flag(NP_SAY_BOOL)),
    NP_C(ulStaticFlag, Np_Flag(NP_SAY_BOOL)),
};
constexpr NpRow g_stRow =
    Np_RowMake<R>({.ucModule = NP_M_SECU, .pszArg = "pstUvt", .usImageSize = 16, .bBare = true},
                  g_astField, g_astCheck);
}  // namespace uvt_row

namespace static_args {
struct R {
    uint32_t ulIndex;
    uint32_t ulStaticFlag;
};
constexpr NpField g_astField[] = {
    NP_F(ulIndex, .pszKey = "index"),
    NP_F(ulStaticFlag),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulIndex, Np_BelowCap(NP_CAP_UVT_ROWS)),
    NP_C(ulStaticFlag, Np_Flag(NP_SAY_BOOL)),
};
}  // namespace static_args

inline constexpr uint32_t NP_UVT_ROW_SIZE = 16;
inline constexpr uint32_t NP_UVT_TOP_UNIT = 14;  // byte of the unit that has the flags

}  // namespace

constexpr NpTable g_stUvtTable =
    Np_TableMake(NpIndexKey<NP_M_SECU, NP_CAP_UVT_ROWS, true>::g_stRow, uvt_row::g_stRow, 17);
constexpr NpRow g_stUvtStaticArgs = Np_RowMake<static_args::R>(
    {.ucModule = NP_M_SECU, .bBare = true}, static_args::g_astField, static_args::g_astCheck);

extern "C" {

NP_TABLE_SET(Np_Tarn_UvtTbl_Set, NpUvt, g_stUvtTable)
NP_TABLE_GET(Np_Tarn_UvtTbl_Get, NpUvt, g_stUvtTable)

uint32_t Np_Tarn_SECU_UvtFlagSet(uint32_t ulChipID, uint32_t ulIndex, NpUvtFlag enFlag,
                                 uint32_t ulValue, NpWhere stWhere)
{
    const uint32_t ulAddr =
        Np_GLB_CapGet(NP_CAP_UVT_BASE) + NP_UVT_TOP_UNIT + ulIndex * NP_UVT_ROW_SIZE;
    const NpSmemReq stReq = {NP_SMEM_LEN_16, ulAddr >> 1 & NP_SMEM_ADDR_MASK};
    uint8_t aucBlock[NP_SMEM_BLOCK_SIZE] = {};
    aucBlock[NP_SMEM_BLOCK_SIZE - 1] = static_cast<uint8_t>(ulValue << 7 | enFlag);
    NpSmemRsp stRsp;
    const uint32_t ulReturn = Np_Tarn_SMEM_ReqSetBit(ulChipID, 0, &stReq, aucBlock, &stRsp);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_SECU, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

uint32_t Np_Tarn_UvtTblStaticFlag_Set(uint32_t ulChipID, uint32_t ulIndex, uint32_t ulStaticFlag)
{
    const uint32_t aulArg[] = {ulIndex, ulStaticFlag};
    NP_TRACE(NP_M_SECU, NP_PRINT_TRACE, " in ulChipID=0x%08x\r\n", ulChipID);
    Np_Row_Trace(&g_stUvtStaticArgs, aulArg);
    const uint32_t ulReturn = Np_Row_Check(&g_stUvtStaticArgs, ulChipID, aulArg);
    return ulReturn != NP_OK
               ? ulReturn
               : Np_Tarn_SECU_UvtFlagSet(ulChipID, ulIndex, NP_UVT_STATIC, ulStaticFlag);
}

}  // extern "C"
