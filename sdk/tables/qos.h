// Priority maps: what 802.1p value or CAR priority a packet's priority becomes.
#pragma once

#include "ldsdk/qos.h"
#include "sdk/record/table.h"

extern const NpTable g_stDscpMapTable;
extern const NpTable g_stPcpMapTable;
extern const NpTable g_stIpMapTable;
extern const NpTable g_stPriCarMapTable;

extern "C" {

NP_ROW_TRACE(Np_Tarn_QOS_DscpMapTblParaTrace, NpDscpMap, g_stDscpMapTable);
NP_ROW_CHECK(Np_Tarn_QOS_DscpMapTblParaCheck, NpDscpMap, g_stDscpMapTable);
NP_ROW_BUILD(Np_Tarn_QOS_DscpMapTblBuild, NpDscpMap, g_stDscpMapTable, 0);
NP_ROW_PARSE(Np_Tarn_QOS_DscpMapTblParse, NpDscpMap, g_stDscpMapTable, 0);
NP_ROW_TRACE(Np_Tarn_QOS_PcpMapTblParaTrace, NpPcpMap, g_stPcpMapTable);
NP_ROW_CHECK(Np_Tarn_QOS_PcpMapTblParaCheck, NpPcpMap, g_stPcpMapTable);
NP_ROW_BUILD(Np_Tarn_QOS_PcpMapTblBuild, NpPcpMap, g_stPcpMapTable, 0);
NP_ROW_PARSE(Np_Tarn_QOS_PcpMapTblParse, NpPcpMap, g_stPcpMapTable, 0);
NP_ROW_TRACE(Np_Tarn_QOS_IpMapTblParaTrace, NpIpMap, g_stIpMapTable);
NP_ROW_CHECK(Np_Tarn_QOS_IpMapTblParaCheck, NpIpMap, g_stIpMapTable);
NP_ROW_BUILD(Np_Tarn_QOS_IpMapTblBuild, NpIpMap, g_stIpMapTable, 0);
NP_ROW_PARSE(Np_Tarn_QOS_IpMapTblParse, NpIpMap, g_stIpMapTable, 0);
NP_ROW_TRACE(Np_Tarn_QOS_PriCarMapTblParaTrace, NpPriCarMap, g_stPriCarMapTable);
NP_ROW_CHECK(Np_Tarn_QOS_PriCarMapTblParaCheck, NpPriCarMap, g_stPriCarMapTable);
NP_ROW_BUILD(Np_Tarn_QOS_PriCarMapTblBuild, NpPriCarMap, g_stPriCarMapTable, 0);
NP_ROW_PARSE(Np_Tarn_QOS_PriCarMapTblParse, NpPriCarMap, g_stPriCarMapTable, 0);

}  // extern "C"
