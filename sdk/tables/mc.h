// Multicast rows: leaves of the copy lists, CAR profiles of flooded packets, arrival records.
#pragma once

#include "ldsdk/mc.h"
#include "sdk/record/table.h"

extern const NpTable g_stMetTable;
extern const NpTable g_stBrltTable;
extern const NpTable g_stMdiInfoTable;

extern "C" {

NP_ROW_TRACE(Np_Tarn_MC_MetTblParaTrace, NpMet, g_stMetTable);
NP_ROW_CHECK(Np_Tarn_MC_MetTblParaCheck, NpMet, g_stMetTable);
NP_ROW_BUILD(Np_Tarn_MC_MetTblBuild, NpMet, g_stMetTable, 0);
NP_ROW_PARSE(Np_Tarn_MC_MetTblParse, NpMet, g_stMetTable, 0);
NP_ROW_TRACE(Np_Tarn_MC_BrltTblParaTrace, NpBrl, g_stBrltTable);
NP_ROW_CHECK(Np_Tarn_MC_BrltTblParaCheck, NpBrl, g_stBrltTable);
NP_ROW_BUILD(Np_Tarn_MC_BrltTblBuild, NpBrl, g_stBrltTable, 0);
NP_ROW_PARSE(Np_Tarn_MC_BrltTblParse, NpBrl, g_stBrltTable, 0);
NP_ROW_TRACE(Np_Tarn_MC_MdiInfoTblParaTrace, NpMdiInfo, g_stMdiInfoTable);
NP_ROW_CHECK(Np_Tarn_MC_MdiInfoTblParaCheck, NpMdiInfo, g_stMdiInfoTable);
NP_ROW_BUILD(Np_Tarn_MC_MdiInfoTblBuild, NpMdiInfo, g_stMdiInfoTable, 0);
NP_ROW_PARSE(Np_Tarn_MC_MdiInfoTblParse, NpMdiInfo, g_stMdiInfoTable, 0);

}  // extern "C"
