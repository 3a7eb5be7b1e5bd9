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

NP_ROW_TRACE(Np_Tarn_VLAN_VlanTblParaTrace, NpVlan, g_stVlanTable);
NP_ROW_CHECK(Np_Tarn_VLAN_VlanTblParaCheck, NpVlan, g_stVlanTable);
NP_ROW_BUILD(Np_Tarn_VLAN_VlanTblBuild, NpVlan, g_stVlanTable, 0);
NP_ROW_PARSE(Np_Tarn_VLAN_VlanTblParse, NpVlan, g_stVlanTable, 0);
// The extension's word on its own.
NP_ROW_BUILD(Np_Tarn_VlanExtTblBuild, NpVlan, g_stVlanTable, 1);
NP_ROW_PARSE(Np_Tarn_VlanExtTblParse, NpVlan, g_stVlanTable, 1);
NP_ROW_TRACE(Np_Tarn_VLAN_VlanOptionTblParaTrace, NpVlanOption, g_stVlanOptionTable);
NP_ROW_CHECK(Np_Tarn_VLAN_VlanOptionTblParaCheck, NpVlanOption, g_stVlanOptionTable);
NP_ROW_BUILD(Np_Tarn_VLAN_VlanOptionTblBuild, NpVlanOption, g_stVlanOptionTable, 0);
NP_ROW_PARSE(Np_Tarn_VLAN_VlanOptionTblParse, NpVlanOption, g_stVlanOptionTable, 0);
NP_ROW_TRACE(Np_Tarn_VLAN_VlanPttTblParaTrace, NpVlanPtt, g_stVlanPttTable);
NP_ROW_CHECK(Np_Tarn_VLAN_VlanPttTblParaCheck, NpVlanPtt, g_stVlanPttTable);
NP_ROW_BUILD(Np_Tarn_VLAN_VlanPttTblBuild, NpVlanPtt, g_stVlanPttTable, 0);
NP_ROW_PARSE(Np_Tarn_VLAN_VlanPttTblParse, NpVlanPtt, g_stVlanPttTable, 0);
NP_ROW_TRACE(Np_Tarn_VLAN_LanVlanTblParaTrace, NpLanVlan, g_stLanVlanTable);
NP_ROW_CHECK(Np_Tarn_VLAN_LanVlanTblParaCheck, NpLanVlan, g_stLanVlanTable);
NP_ROW_BUILD(Np_Tarn_VLAN_LanVlanTblBuild, NpLanVlan, g_stLanVlanTable, 0);
NP_ROW_PARSE(Np_Tarn_VLAN_LanVlanTblParse, NpLanVlan, g_stLanVlanTable, 0);
NP_ROW_TRACE(Np_Tarn_VLAN_IstpTblParaTrace, NpIstp, g_stIstpTable);
NP_ROW_CHECK(Np_Tarn_VLAN_IstpTblParaCheck, NpIstp, g_stIstpTable);
NP_ROW_BUILD(Np_Tarn_VLAN_IstpTblBuild, NpIstp, g_stIstpTable, 0);
NP_ROW_PARSE(Np_Tarn_VLAN_IstpTblParse, NpIstp, g_stIstpTable, 0);
NP_ROW_TRACE(Np_Tarn_VLAN_EstpTblParaTrace, NpEstp, g_stEstpTable);
NP_ROW_CHECK(Np_Tarn_VLAN_EstpTblParaCheck, NpEstp, g_stEstpTable);
NP_ROW_BUILD(Np_Tarn_VLAN_EstpTblBuild, NpEstp, g_stEstpTable, 0);
NP_ROW_PARSE(Np_Tarn_VLAN_EstpTblParse, NpEstp, g_stEstpTable, 0);

}  // extern "C"
