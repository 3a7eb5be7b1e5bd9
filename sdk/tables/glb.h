// Chip-wide settings: the global table, dying gasp, the pad length of the XD transmit path.
#pragma once

#include "ldsdk/glb.h"
#include "sdk/record/table.h"

extern const NpTable g_stGlobalTable;
extern const NpTable g_stDyingGaspTable;
extern const NpTable g_stDyingGaspSmacTable;
extern const NpTable g_stXdTxEthPadTable;

NP_ROW_TRACE(Np_Tarn_GLB_GlobalTblParaTrace, NpGlobal, g_stGlobalTable);
NP_ROW_CHECK(Np_Tarn_GLB_GlobalTblParaCheck, NpGlobal, g_stGlobalTable);

extern "C" {

// Frame info types of the dying gasp rows, which the rows do not hold; null before bring-up.
extern uint32_t *g_pastNpGlbDyingGaspInfo[NP_CHIP_NUM];

// Every feature off but the one flag. Forgets the microcode's version.
uint32_t Np_Tarn_GLB_Init(uint32_t ulChipID);
uint32_t Np_Tarn_GLB_Destruct(uint32_t ulChipID);

}  // extern "C"
