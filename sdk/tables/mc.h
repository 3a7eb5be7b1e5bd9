// Multicast rows: leaves of the copy lists, CAR profiles of flooded packets, arrival records.
#pragma once

#include "ldsdk/mc.h"
#include "sdk/record/table.h"

extern const NpTable g_stMetTable;
extern const NpTable g_stBrltTable;
extern const NpTable g_stMdiInfoTable;

extern "C" {

NP_ROW_DECLARE(Np_Tarn_MC_MetTbl, NpMet)
NP_ROW_DECLARE(Np_Tarn_MC_BrltTbl, NpBrl)
void Np_Tarn_MC_MdiInfoTblParaTrace(const NpMdiInfo *pstRecord);
uint32_t Np_Tarn_MC_MdiInfoTblParaCheck(uint32_t ulChipID, uint32_t ulMdiID, uint32_t ulOffset,
                                        const NpMdiInfo *pstRecord);
uint32_t Np_Tarn_MC_MdiInfoTblBuild(uint32_t ulChipID, const NpMdiInfo *pstRecord, void *pvImage);
uint32_t Np_Tarn_MC_MdiInfoTblParse(uint32_t ulChipID, const void *pvImage, NpMdiInfo *pstRecord);

}  // extern "C"
