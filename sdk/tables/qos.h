// Priority maps: what 802.1p value or CAR priority a packet's priority becomes.
#pragma once

#include "ldsdk/qos.h"
#include "sdk/record/table.h"

extern const NpTable g_stDscpMapTable;
extern const NpTable g_stPcpMapTable;
extern const NpTable g_stIpMapTable;
extern const NpTable g_stPriCarMapTable;

extern "C" {

NP_ROW_DECLARE(Np_Tarn_QOS_DscpMapTbl, NpDscpMap)
NP_ROW_DECLARE(Np_Tarn_QOS_PcpMapTbl, NpPcpMap)
NP_ROW_DECLARE(Np_Tarn_QOS_IpMapTbl, NpIpMap)
NP_ROW_DECLARE(Np_Tarn_QOS_PriCarMapTbl, NpPriCarMap)

}  // extern "C"
