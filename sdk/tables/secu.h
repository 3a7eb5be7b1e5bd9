// User MAC rows: each user MAC of an access port and the virtual MAC that stands for it upstream.
#pragma once

#include "ldsdk/secu.h"
#include "sdk/frame/base/trace.h"
#include "sdk/record/table.h"

extern const NpTable g_stUvtTable;
extern const NpRow g_stUvtStaticArgs;

// Flags of a row, by their bit in its uppermost 16-bit unit.
enum NpUvtFlag : uint32_t {
    NP_UVT_STATIC = 12,
    NP_UVT_VMAC_USED = 14,
    NP_UVT_UMAC_USED = 15,
};

extern "C" {

NP_ROW_TRACE(Np_Tarn_SECU_UvtTblParaTrace, NpUvt, g_stUvtTable);
NP_ROW_CHECK(Np_Tarn_SECU_UvtTblParaCheck, NpUvt, g_stUvtTable);
NP_ROW_BUILD(Np_Tarn_SECU_UvtTblBuild, NpUvt, g_stUvtTable, 0);
NP_ROW_PARSE(Np_Tarn_SECU_UvtTblParse, NpUvt, g_stUvtTable, 0);

// Changes one flag of a row atomically: the microcode writes the row too. ulIndex is not checked.
// The driver's code, NP_ERR_SMEM_OP.
uint32_t Np_Tarn_SECU_UvtFlagSet(uint32_t ulChipID, uint32_t ulIndex, NpUvtFlag enFlag,
                                 uint32_t ulValue, NpWhere stWhere = Np_Here());

}  // extern "C"
