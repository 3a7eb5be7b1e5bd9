// VLAN rows and spanning tree states: what the microcode reads once it knows a packet's VLAN.
#pragma once

#include "ldsdk/vlan.h"
#include "sdk/record/table.h"

extern const NpTable g_stVlanTable;  // two rows: the VLAN and its extension
extern const NpTable g_stVlanOptionTable;
extern const NpTable g_stVlanPttTable;
extern const NpTable g_stLanVlanTable;
extern const NpTable g_stIstpTable;
extern const NpTable g_stEstpTable;

extern "C" {

NP_ROW_DECLARE(Np_Tarn_VLAN_VlanTbl, NpVlan)
// The extension's word on its own.
uint32_t Np_Tarn_VlanExtTblBuild(uint32_t ulChipID, const NpVlan *pstRecord, void *pvImage);
uint32_t Np_Tarn_VlanExtTblParse(uint32_t ulChipID, const void *pvImage, NpVlan *pstRecord);
NP_ROW_DECLARE(Np_Tarn_VLAN_VlanOptionTbl, NpVlanOption)
NP_ROW_DECLARE(Np_Tarn_VLAN_VlanPttTbl, NpVlanPtt)
NP_ROW_DECLARE(Np_Tarn_VLAN_LanVlanTbl, NpLanVlan)
NP_ROW_DECLARE(Np_Tarn_VLAN_IstpTbl, NpIstp)
NP_ROW_DECLARE(Np_Tarn_VLAN_EstpTbl, NpEstp)

}  // extern "C"
