// Every description of a row. Handlers, help, the reference page and the tests come from here.
// Include it with the macros defined that are of interest; all are undefined afterwards.
// The first inclusion in a file, with none defined, stands outside of any namespace: it brings the
// declarations.
//
//   NP_TABLE_ROW(table, record, wrapper, handler, form)
//       a flat table: its description, the exported functions up to _Set and _Get, the commands up
//       to _Set and _Get, and how the set command reads (NP_FORM_SET or NP_FORM_LARGE)
//   NP_KEYED_ROW(key row, key record, row, record, wrapper, handler, form)
//       the same for a row that a record selects, such as a port
//   NP_LOOSE_ROW(row)
//       a row on its own: a key or the data of a searched table
//   NP_COMMAND_ROW(handler, form, key, data)
//       the parameters of a handler that is written out: pointers to the rows that describe what
//       it reads, or null
#include "sdk/module/smd_arl.h"
#include "sdk/module/smd_rows.h"
#include "sdk/tables/arl.h"
#include "sdk/tables/mc.h"
#include "sdk/tables/port.h"
#include "sdk/tables/qos.h"
#include "sdk/tables/secu.h"
#include "sdk/tables/vlan.h"

#ifndef NP_TABLE_ROW
#define NP_TABLE_ROW(stTable, Record, Wrapper, Handler, enForm)
#endif
#ifndef NP_KEYED_ROW
#define NP_KEYED_ROW(stKey, Key, stRow, Record, Wrapper, Handler, enForm)
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
NP_TABLE_ROW(g_stVmacInfoTable, NpPortVmacInfo, Np_VmacInfoTbl, Np_SMD_VmacInfoTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stUvtTable, NpUvt, Np_UvtTbl, Np_SMD_UvtTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stVmacOffsetTable, NpVmacOffset, Np_VmacOffsetTbl, Np_SMD_VmacOffsetTbl, NP_FORM_LARGE)
NP_TABLE_ROW(g_stPortMacLimitTable, NpPortLimitNum, Np_PortMacLimitTbl, Np_SMD_PortMacLimitTbl, NP_FORM_SET)
NP_TABLE_ROW(g_stGlbLanMacLimitTable, NpGlbLimitNum, Np_GlbLanMacLimitTbl, Np_SMD_GlbLanMacLimitTbl, NP_FORM_SET)

NP_KEYED_ROW(g_stPortKey, NpPortID, g_stPctRow, NpPortPct, Np_PctTbl, Np_SMD_PctTbl, NP_FORM_LARGE)

NP_LOOSE_ROW(g_stArlKeyRow)
NP_LOOSE_ROW(g_stArlDataRow)
NP_LOOSE_ROW(g_stLanMacKeyRow)
NP_LOOSE_ROW(g_stLanMacDataRow)

NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_Add, NP_FORM_SET, &g_stArlKeyRow, &g_stArlDataRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_Get, NP_FORM_GET, &g_stArlKeyRow, nullptr)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_GetByIndex, NP_FORM_GET, &g_stArlIndexArgs, nullptr)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_Del, NP_FORM_PAIRS, &g_stMacDelTypeArgs, &g_stArlKeyRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_DelByIndex, NP_FORM_PAIRS, nullptr, &g_stArlIndexArgs)
NP_COMMAND_ROW(Np_SMD_ARL_LanMacTbl_Add, NP_FORM_SET, &g_stLanMacKeyRow, &g_stLanMacDataRow)
NP_COMMAND_ROW(Np_SMD_ARL_LanMacTbl_Get, NP_FORM_GET, &g_stLanMacKeyRow, nullptr)
NP_COMMAND_ROW(Np_SMD_ARL_LanMacTbl_GetByIndex, NP_FORM_GET, &g_stLanMacIndexArgs, nullptr)
NP_COMMAND_ROW(Np_SMD_ARL_LanMacTbl_Del, NP_FORM_PAIRS, &g_stMacDelTypeArgs, &g_stLanMacKeyRow)
NP_COMMAND_ROW(Np_SMD_ARL_LanMacTbl_DelByIndex, NP_FORM_PAIRS, nullptr, &g_stLanMacIndexArgs)
NP_COMMAND_ROW(Np_SMD_ARL_HashCrash_Record_Read, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_ARL_DynamicArlLrn, NP_FORM_SET, &g_stArlKeyRow, &g_stArlDataRow)
NP_COMMAND_ROW(Np_SMD_ARL_DynamicArlLrnStateGet, NP_FORM_GET, &g_stLearnStateArgs, nullptr)
NP_COMMAND_ROW(Np_SMD_ARL_DynamicArlLrnStateClear, NP_FORM_PAIRS, nullptr, &g_stLearnStateArgs)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_NormalAge, NP_FORM_PAIRS, nullptr, &g_stNormalAgeRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_NormalAge_Para, NP_FORM_SET, &g_stNormalAgeRow, &g_stNormalAgeParaArgs)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_ForceAge, NP_FORM_PAIRS, nullptr, &g_stForceAgeRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_ForceAge_Para, NP_FORM_SET, &g_stForceAgeRow, &g_stForceAgeParaArgs)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_ForceAgeBurst, NP_FORM_PAIRS, nullptr, &g_stForceAgeRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_AgeMode_Set, NP_FORM_PAIRS, &g_stArlAgeModeKeyRow, &g_stAgeModeArgs)
NP_COMMAND_ROW(Np_SMD_ARL_UVMacInfo_Get, NP_FORM_GET, &g_stUvmacInfoKeyRow, nullptr)
NP_COMMAND_ROW(Np_SMD_UvtTblStaticFlag_Set, NP_FORM_PAIRS, nullptr, &g_stUvtStaticArgs)
NP_COMMAND_ROW(Np_SMD_DFX_Mac_DelAll, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_Mac_DisplayValid, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_Mac_Num, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_LanMac_DelAll, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_LanMac_DisplayValid, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_LanMac_Num, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_CPUTR_ReceivePkt, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_PortID2PhyID, NP_FORM_VALUES, nullptr, &g_stPortArgs)
NP_COMMAND_ROW(Np_SMD_DFX_IngressPhyID2PortID, NP_FORM_PAIRS, nullptr, &g_stPhyArgs)
NP_COMMAND_ROW(Np_SMD_DFX_Eml_CacheClear, NP_FORM_VALUES, nullptr, &g_stEmlCacheArgs)
NP_COMMAND_ROW(Np_SMD_DFX_Cpu_CacheClear, NP_FORM_VALUES, nullptr, &g_stCpuCacheArgs)
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
#undef NP_KEYED_ROW
#undef NP_LOOSE_ROW
#undef NP_COMMAND_ROW
