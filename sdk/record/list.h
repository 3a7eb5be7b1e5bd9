// Every description of a row. Handlers, help, the reference page and the tests come from here.
// Include it with the macros defined that are of interest; all are undefined afterwards.
// The first inclusion in a file, with none defined, stands outside of any namespace: it brings the
// declarations.
//
//   NP_TABLE_ROW(table, record, wrapper, handler, form)
//       a flat table: its description, the exported functions up to _Set and _Get, the commands up
//       to _Set and _Get, and how the set command reads (NP_FORM_SET or NP_FORM_LARGE)
//   NP_LOOSE_ROW(row)
//       a row on its own: a key or the data of a searched table
//   NP_COMMAND_ROW(handler, form, key, data)
//       the parameters of a handler that is written out: pointers to the rows that describe what
//       it reads, or null
#include "sdk/module/smd_rows.h"
#include "sdk/tables/mc.h"
#include "sdk/tables/qos.h"
#include "sdk/tables/vlan.h"

#ifndef NP_TABLE_ROW
#define NP_TABLE_ROW(stTable, Record, Wrapper, Handler, enForm)
#endif
#ifndef NP_LOOSE_ROW
#define NP_LOOSE_ROW(stRow)
#endif
#ifndef NP_COMMAND_ROW
#define NP_COMMAND_ROW(Handler, enForm, pstKey, pstData)
#endif

// clang-format off
NP_TABLE_ROW(g_stDscpMapTable, NpDscpMap, Np_DscpMapTbl, Np_SMD_DscpMapTbl, NP_FORM_LARGE)
NP_TABLE_ROW(g_stPcpMapTable, NpPcpMap, Np_PcpMapTbl, Np_SMD_PcpMapTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stIpMapTable, NpIpMap, Np_IpMapTbl, Np_SMD_IpMapTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stPriCarMapTable, NpPriCarMap, Np_PriCarMapTbl, Np_SMD_PriCarMapTbl, NP_FORM_LARGE)
NP_TABLE_ROW(g_stVlanTable, NpVlan, Np_VlanTbl, Np_SMD_VlanTbl, NP_FORM_LARGE)
NP_TABLE_ROW(g_stIstpTable, NpIstp, Np_IstpTbl, Np_SMD_IstpTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stEstpTable, NpEstp, Np_EstpTbl, Np_SMD_EstpTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stVlanPttTable, NpVlanPtt, Np_VlanPttTbl, Np_SMD_VlanPttTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stVlanOptionTable, NpVlanOption, Np_VlanOptionTbl, Np_SMD_VlanOptionTbl, NP_FORM_LARGE)
NP_TABLE_ROW(g_stLanVlanTable, NpLanVlan, Np_LanVlanTbl, Np_SMD_LanVlanTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stMetTable, NpMet, Np_MetTbl, Np_SMD_MetTbl, NP_FORM_LARGE)
NP_TABLE_ROW(g_stBrltTable, NpBrl, Np_BrltTbl, Np_SMD_BrltTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stMdiInfoTable, NpMdiInfo, Np_MdiInfoTbl, Np_SMD_MdiInfoTbl, NP_FORM_SET)

NP_COMMAND_ROW(Np_PUB_SMD_ChipSwitchGet, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_PUB_SMD_ChipSwitchSet, NP_FORM_VALUES, nullptr, &g_stChipArgs)
NP_COMMAND_ROW(Np_SMD_ATOM_Load, NP_FORM_PAIRS, nullptr, &g_stMicroLoadArgs)
NP_COMMAND_ROW(Np_SMD_ATOM_NpVersion, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_Prompt, NP_FORM_VALUES, nullptr, &g_stPromptArgs)
NP_COMMAND_ROW(Np_SMD_DFX_Prompt_Get, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_Prompt_Set, NP_FORM_PAIRS, nullptr, &g_stPromptArgs)
NP_COMMAND_ROW(Np_SMD_DFX_System_Init, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_System_Destruct, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_GLB_SDKVersionGet, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_GLB_MICROVersionGet, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_PUB_SMD_PrintSwitchOn, NP_FORM_VALUES, nullptr, &g_stPrintArgs)
NP_COMMAND_ROW(Np_PUB_SMD_PrintSwitchOff, NP_FORM_VALUES, nullptr, &g_stPrintArgs)
NP_COMMAND_ROW(Np_PUB_SMD_PrintFuncSwitchOn, NP_FORM_VALUES, nullptr, &g_stFuncPrintArgs)
NP_COMMAND_ROW(Np_PUB_SMD_PrintFuncSwitchOff, NP_FORM_PAIRS, nullptr, nullptr)
// clang-format on

#undef NP_TABLE_ROW
#undef NP_LOOSE_ROW
#undef NP_COMMAND_ROW
