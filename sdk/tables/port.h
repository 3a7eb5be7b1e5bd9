// Port tables: configuration rows, ranges of virtual MACs that ports draw from, link aggregation,
// GEM ports, VoIP channels and CAR profiles.
#pragma once

#include "ldsdk/port.h"
#include "sdk/record/table.h"

extern const NpRow g_stPortKey;  // the port that selects a row
extern const NpTable g_stPctTable;
extern const NpTable g_stVmacInfoTable;
extern const NpTable g_stLagTable;
extern const NpTable g_stVoipChannelTable;
extern const NpTable g_stUpCarProfileTable;
extern const NpTable g_stDownCarProfileTable;
extern const NpTable g_stToCpuCarTable;
extern const NpTable g_stGemportLoopTable;

extern "C" {

void Np_Tarn_PORT_PortIDTrace(const NpPortID *pstPortID);
NP_ROW_TRACE(Np_Tarn_PORT_PctTblParaTrace, NpPortPct, g_stPctTable);
NP_ROW_CHECK(Np_Tarn_PORT_PctTblParaCheck, NpPortPct, g_stPctTable);
NP_ROW_BUILD(Np_Tarn_PORT_PctTblBuild, NpPortPct, g_stPctTable, 0);
NP_ROW_PARSE(Np_Tarn_PORT_PctTblParse, NpPortPct, g_stPctTable, 0);
NP_ROW_TRACE(Np_Tarn_PORT_VmacInfoTblParaTrace, NpPortVmacInfo, g_stVmacInfoTable);
NP_ROW_CHECK(Np_Tarn_PORT_VmacInfoTblParaCheck, NpPortVmacInfo, g_stVmacInfoTable);
NP_ROW_BUILD(Np_Tarn_PORT_VmacInfoTblBuild, NpPortVmacInfo, g_stVmacInfoTable, 0);
NP_ROW_PARSE(Np_Tarn_PORT_VmacInfoTblParse, NpPortVmacInfo, g_stVmacInfoTable, 0);
NP_ROW_TRACE(Np_Tarn_PORT_LagTblParaTrace, NpPortTrunk, g_stLagTable);
NP_ROW_CHECK(Np_Tarn_PORT_LagTblParaCheck, NpPortTrunk, g_stLagTable);
NP_ROW_BUILD(Np_Tarn_PORT_LagTblBuild, NpPortTrunk, g_stLagTable, 0);
NP_ROW_PARSE(Np_Tarn_PORT_LagTblParse, NpPortTrunk, g_stLagTable, 0);
NP_ROW_TRACE(Np_Tarn_PORT_VoipChannelTblParaTrace, NpPortVoipChannel, g_stVoipChannelTable);
NP_ROW_CHECK(Np_Tarn_PORT_VoipChannelTblParaCheck, NpPortVoipChannel, g_stVoipChannelTable);
NP_ROW_BUILD(Np_Tarn_PORT_VoipChannelTblBuild, NpPortVoipChannel, g_stVoipChannelTable, 0);
NP_ROW_PARSE(Np_Tarn_PORT_VoipChannelTblParse, NpPortVoipChannel, g_stVoipChannelTable, 0);
NP_ROW_TRACE(Np_Tarn_PORT_UpCarProfileTblParaTrace, NpPortCarProfile, g_stUpCarProfileTable);
NP_ROW_CHECK(Np_Tarn_PORT_UpCarProfileTblParaCheck, NpPortCarProfile, g_stUpCarProfileTable);
NP_ROW_BUILD(Np_Tarn_PORT_UpCarProfileTblBuild, NpPortCarProfile, g_stUpCarProfileTable, 0);
NP_ROW_PARSE(Np_Tarn_PORT_UpCarProfileTblParse, NpPortCarProfile, g_stUpCarProfileTable, 0);
NP_ROW_TRACE(Np_Tarn_PORT_DownCarProfileTblParaTrace, NpPortCarProfile, g_stDownCarProfileTable);
NP_ROW_CHECK(Np_Tarn_PORT_DownCarProfileTblParaCheck, NpPortCarProfile, g_stDownCarProfileTable);
NP_ROW_BUILD(Np_Tarn_PORT_DownCarProfileTblBuild, NpPortCarProfile, g_stDownCarProfileTable, 0);
NP_ROW_PARSE(Np_Tarn_PORT_DownCarProfileTblParse, NpPortCarProfile, g_stDownCarProfileTable, 0);
NP_ROW_TRACE(Np_Tarn_PORT_PortToCpuPtypeCarTblParaTrace, NpPortToCpuPtypeCarInfo,
             g_stToCpuCarTable);
NP_ROW_CHECK(Np_Tarn_PORT_PortToCpuPtypeCarTblParaCheck, NpPortToCpuPtypeCarInfo,
             g_stToCpuCarTable);
NP_ROW_BUILD(Np_Tarn_PORT_PortToCpuPtypeCarTblBuild, NpPortToCpuPtypeCarInfo, g_stToCpuCarTable, 0);
NP_ROW_PARSE(Np_Tarn_PORT_PortToCpuPtypeCarTblParse, NpPortToCpuPtypeCarInfo, g_stToCpuCarTable, 0);
NP_ROW_TRACE(Np_Tarn_PORT_GemportLoopQidTblParaTrace, NpPortGemportLoopQid, g_stGemportLoopTable);
NP_ROW_CHECK(Np_Tarn_PORT_GemportLoopQidTblParaCheck, NpPortGemportLoopQid, g_stGemportLoopTable);
NP_ROW_BUILD(Np_Tarn_PORT_GemportLoopQidTblBuild, NpPortGemportLoopQid, g_stGemportLoopTable, 0);
NP_ROW_PARSE(Np_Tarn_PORT_GemportLoopQidTblParse, NpPortGemportLoopQid, g_stGemportLoopTable, 0);

// Clears the counter of a user's entry, 0 to 3. The codes of the search memory.
uint32_t Np_Tarn_PortToCpuPtypeCarCnt_Init(uint32_t ulChipID, uint32_t ulUserID, uint32_t ulEntry);

}  // extern "C"
