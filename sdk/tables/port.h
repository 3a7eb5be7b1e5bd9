// Port configuration rows and the ranges of virtual MACs that ports draw from.
#pragma once

#include "ldsdk/port.h"
#include "sdk/record/table.h"

extern const NpRow g_stPortKey;  // the port that selects a row
extern const NpRow g_stPctRow;
extern const NpTable g_stVmacInfoTable;

extern "C" {

void Np_Tarn_PORT_PortIDTrace(const NpPortID *pstPortID);
void Np_Tarn_PORT_PctTblParaTrace(const NpPortPct *pstPct);
uint32_t Np_Tarn_PORT_PctTblParaCheck(uint32_t ulChipID, const NpPortPct *pstPct);
uint32_t Np_Tarn_PORT_PctTblBuild(uint32_t ulChipID, const NpPortPct *pstPct, void *pvImage);
uint32_t Np_Tarn_PORT_PctTblParse(uint32_t ulChipID, const void *pvImage, NpPortPct *pstPct);
NP_ROW_DECLARE(Np_Tarn_PORT_VmacInfoTbl, NpPortVmacInfo)

}  // extern "C"
