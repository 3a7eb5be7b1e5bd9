// Every table and every other described row. What reads, writes, walks or shows tables works from
// this list; the commands of a table are made from it as well (sdk/module/command_list.h has those
// that are written out). Include it with the macros defined that are of interest; all are undefined
// afterwards. The first inclusion in a file, with none defined, stands outside of any namespace: it
// brings the declarations.
//
//   NP_TABLE_ROW(table, get, set, get handler, set handler, form)
//       a flat table: its description, the exported functions, the handlers of its commands, and
//       how the set command reads (NP_FORM_SET or NP_FORM_LARGE)
//   NP_PRI_ROW(table, get, set, del, get handler, set handler, del handler)
//       a priority CAM table
//   NP_EXACT_ROW(table, add, get, del, get by index, del by index, and their five handlers)
//       an exact-match table
//   NP_ENTRY_ROW(key, data, get, set, get handler, set handler)
//       entries that are there or not, or words that stand for a row: pointers to the rows that
//       describe them, the key null where there is one entry; NP_FORM_ENTRY
//   NP_ENTRY_DEL(key, delete, delete handler)
//       and what takes an entry out
//   NP_LOOSE_ROW(row)
//       a row on its own: a key or the data of a searched table
#include "sdk/tables/acl.h"
#include "sdk/tables/arl.h"
#include "sdk/tables/glb.h"
#include "sdk/tables/gmt.h"
#include "sdk/tables/ha.h"
#include "sdk/tables/ipbonding.h"
#include "sdk/tables/l2.h"
#include "sdk/tables/mc.h"
#include "sdk/tables/multiservice.h"
#include "sdk/tables/pa.h"
#include "sdk/tables/port.h"
#include "sdk/tables/port_other.h"
#include "sdk/tables/qos.h"
#include "sdk/tables/secu.h"
#include "sdk/tables/stat.h"
#include "sdk/tables/tpid.h"
#include "sdk/tables/vlan.h"

#ifndef NP_TABLE_ROW
#define NP_TABLE_ROW(stTable, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler, enForm)
#endif
#ifndef NP_PRI_ROW
#define NP_PRI_ROW(stTable, pfnGet, pfnSet, pfnDel, pfnGetHandler, pfnSetHandler, pfnDelHandler)
#endif
#ifndef NP_EXACT_ROW
#define NP_EXACT_ROW(stTable, pfnAdd, pfnGet, pfnDel, pfnGetByIndex, pfnDelByIndex, pfnAddHandler, \
                     pfnGetHandler, pfnDelHandler, pfnGetByIndexHandler, pfnDelByIndexHandler)
#endif
#ifndef NP_ENTRY_ROW
#define NP_ENTRY_ROW(pstKey, pstData, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler)
#endif
#ifndef NP_ENTRY_DEL
#define NP_ENTRY_DEL(pstKey, pfnDel, pfnDelHandler)
#endif
#ifndef NP_LOOSE_ROW
#define NP_LOOSE_ROW(stRow)
#endif

// clang-format off
NP_TABLE_ROW(g_stDscpMapTable, Np_DscpMapTbl_Get, Np_DscpMapTbl_Set, Np_SMD_DscpMapTbl_Get, Np_SMD_DscpMapTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stPcpMapTable, Np_PcpMapTbl_Get, Np_PcpMapTbl_Set, Np_SMD_PcpMapTbl_Get, Np_SMD_PcpMapTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stIpMapTable, Np_IpMapTbl_Get, Np_IpMapTbl_Set, Np_SMD_IpMapTbl_Get, Np_SMD_IpMapTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stPriCarMapTable, Np_PriCarMapTbl_Get, Np_PriCarMapTbl_Set, Np_SMD_PriCarMapTbl_Get, Np_SMD_PriCarMapTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stVlanTable, Np_VlanTbl_Get, Np_VlanTbl_Set, Np_SMD_VlanTbl_Get, Np_SMD_VlanTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stIstpTable, Np_IstpTbl_Get, Np_IstpTbl_Set, Np_SMD_IstpTbl_Get, Np_SMD_IstpTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stEstpTable, Np_EstpTbl_Get, Np_EstpTbl_Set, Np_SMD_EstpTbl_Get, Np_SMD_EstpTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stVlanPttTable, Np_VlanPttTbl_Get, Np_VlanPttTbl_Set, Np_SMD_VlanPttTbl_Get, Np_SMD_VlanPttTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stVlanOptionTable, Np_VlanOptionTbl_Get, Np_VlanOptionTbl_Set, Np_SMD_VlanOptionTbl_Get, Np_SMD_VlanOptionTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stLanVlanTable, Np_LanVlanTbl_Get, Np_LanVlanTbl_Set, Np_SMD_LanVlanTbl_Get, Np_SMD_LanVlanTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stMetTable, Np_MetTbl_Get, Np_MetTbl_Set, Np_SMD_MetTbl_Get, Np_SMD_MetTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stBrltTable, Np_BrltTbl_Get, Np_BrltTbl_Set, Np_SMD_BrltTbl_Get, Np_SMD_BrltTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stMdiInfoTable, Np_MdiInfoTbl_Get, Np_MdiInfoTbl_Set, Np_SMD_MdiInfoTbl_Get, Np_SMD_MdiInfoTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stVmacInfoTable, Np_VmacInfoTbl_Get, Np_VmacInfoTbl_Set, Np_SMD_VmacInfoTbl_Get, Np_SMD_VmacInfoTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stUvtTable, Np_UvtTbl_Get, Np_UvtTbl_Set, Np_SMD_UvtTbl_Get, Np_SMD_UvtTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stVmacOffsetTable, Np_VmacOffsetTbl_Get, Np_VmacOffsetTbl_Set, Np_SMD_VmacOffsetTbl_Get, Np_SMD_VmacOffsetTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stPortMacLimitTable, Np_PortMacLimitTbl_Get, Np_PortMacLimitTbl_Set, Np_SMD_PortMacLimitTbl_Get, Np_SMD_PortMacLimitTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stGlbLanMacLimitTable, Np_GlbLanMacLimitTbl_Get, Np_GlbLanMacLimitTbl_Set, Np_SMD_GlbLanMacLimitTbl_Get, Np_SMD_GlbLanMacLimitTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stIflowTable, Np_IflowTbl_Get, Np_IflowTbl_Set, Np_SMD_L2_IflowTblTbl_Get, Np_SMD_L2_IflowTblTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stOflowTable, Np_OflowTbl_Get, Np_OflowTbl_Set, Np_SMD_L2_OflowTblTbl_Get, Np_SMD_L2_OflowTblTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stFlowBundleTable, Np_FlowBundleTbl_Get, Np_FlowBundleTbl_Set, Np_SMD_L2_FlowBundleTbl_Get, Np_SMD_L2_FlowBundleTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stL2EncapTable, Np_L2EncapTbl_Get, Np_L2EncapTbl_Set, Np_SMD_L2_L2EncpTbl_Get, Np_SMD_L2_L2EncpTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stDefaultFlowIDTable, NP_DefaultFlowIDTbl_Get, NP_DefaultFlowIDTbl_Set, NP_SMD_L2_DefaultFlowIDTbl_Get, NP_SMD_L2_DefaultFlowIDTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stGemportMapTable, Np_GemportMapTbl_Get, Np_GemportMapTbl_Set, Np_SMD_L2_GemportMapTbl_Get, Np_SMD_L2_GemportMapTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stFlowLmtTable, Np_FlowLmtTbl_Get, Np_FlowLmtTbl_Set, Np_SMD_L2_FlowLmtTbl_Get, Np_SMD_L2_FlowLmtTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stBundleLmtTable, Np_BundleLmtTbl_Get, Np_BundleLmtTbl_Set, Np_SMD_L2_BundleLmtTbl_Get, Np_SMD_L2_BundleLmtTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stGlobalMacLmtTable, Np_GlobalMacLmtTbl_Get, Np_GlobalMacLmtTbl_Set, Np_SMD_L2_GlobalMacLmtTbl_Get, Np_SMD_L2_GlobalMacLmtTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stPctTable, Np_PctTbl_Get, Np_PctTbl_Set, Np_SMD_PctTbl_Get, Np_SMD_PctTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stPaExtTable, Np_PaExtTbl_Get, Np_PaExtTbl_Set, Np_SMD_PaExtTbl_Get, Np_SMD_PaExtTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stPtaTable, Np_PtaTbl_Get, Np_PtaTbl_Set, Np_SMD_PtaTbl_Get, Np_SMD_PtaTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stPtt1Table, Np_Ptt1Tbl_Get, Np_Ptt1Tbl_Set, Np_SMD_Ptt1_Get, Np_SMD_Ptt1_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stLagTable, Np_LagTbl_Get, Np_LagTbl_Set, Np_SMD_LagTbl_Get, Np_SMD_LagTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stVoipChannelTable, Np_VoipChannelTbl_Get, Np_VoipChannelTbl_Set, Np_SMD_VoipChannelTbl_Get, Np_SMD_VoipChannelTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stUpCarProfileTable, Np_UpCarProfileTbl_Get, Np_UpCarProfileTbl_Set, Np_SMD_UpCarProfileTbl_Get, Np_SMD_UpCarProfileTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stDownCarProfileTable, Np_DownCarProfileTbl_Get, Np_DownCarProfileTbl_Set, Np_SMD_DownCarProfileTbl_Get, Np_SMD_DownCarProfileTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stToCpuCarTable, Np_PortToCpuPtypeCarTbl_Get, Np_PortToCpuPtypeCarTbl_Set, Np_SMD_PortToCpuPtypeCarTbl_Get, Np_SMD_PortToCpuPtypeCarTbl_Set, NP_FORM_LARGE)
NP_TABLE_ROW(g_stGemportLoopTable, Np_GemportLoopQidTbl_Get, Np_GemportLoopQidTbl_Set, Np_SMD_GemportLoopQidTbl_Get, Np_SMD_GemportLoopQidTbl_Set, NP_FORM_SET)

NP_TABLE_ROW(g_stIflowStatTable, Np_IflowStatTbl_Get, Np_IflowStatTbl_Set, Np_SMD_Stat_IflowStatTbl_Get, Np_SMD_Stat_IflowStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stOflowStatTable, Np_OflowStatTbl_Get, Np_OflowStatTbl_Set, Np_SMD_Stat_OflowStatTbl_Get, Np_SMD_Stat_OflowStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stMcStatTable, Np_McStatTbl_Get, Np_McStatTbl_Set, Np_SMD_Stat_McStatTbl_Get, Np_SMD_Stat_McStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stAclStatTable, Np_AclStatTbl_Get, Np_AclStatTbl_Set, Np_SMD_Stat_AclStatTbl_Get, Np_SMD_Stat_AclStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stCapStatTable, Np_CapStatTbl_Get, Np_CapStatTbl_Set, Np_SMD_Stat_CapStatTbl_Get, Np_SMD_Stat_CapStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stVoipStatTable, Np_VoipStatTbl_Get, Np_VoipStatTbl_Set, Np_SMD_Stat_VoipStatTbl_Get, Np_SMD_Stat_VoipStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stPtypeStatTable, Np_PtypeStatTbl_Get, Np_PtypeStatTbl_Set, Np_SMD_Stat_PtypeStatTbl_Get, Np_SMD_Stat_PtypeStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stPppoeSessionStatTable, Np_PppoeSessionStatTbl_Get, Np_PppoeSessionStatTbl_Set, Np_SMD_Stat_PppoeSessionStatTbl_Get, Np_SMD_Stat_PppoeSessionStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stPppIftlcpStatTable, Np_PppIftlcpStatTbl_Get, Np_PppIftlcpStatTbl_Set, Np_SMD_Stat_PppIftlcpStatTbl_Get, Np_SMD_Stat_PppIftlcpStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stPppOftlcpStatTable, Np_PppOftlcpStatTbl_Get, Np_PppOftlcpStatTbl_Set, Np_SMD_Stat_PppOftlcpStatTbl_Get, Np_SMD_Stat_PppOftlcpStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stMcleafStatTable, Np_Stat_McleafStatTbl_Get, Np_Stat_McleafStatTbl_Set, Np_SMD_Stat_McleafStatTbl_Get, Np_SMD_Stat_McleafStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stPortPtypeStatTable, Np_Stat_PortPtypeStatTbl_Get, Np_Stat_PortPtypeStatTbl_Set, Np_SMD_Stat_PortPtypeStatTbl_Get, Np_SMD_Stat_PortPtypeStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stOamTxStatTable, Np_Stat_OamTxStatTbl_Get, Np_Stat_OamTxStatTbl_Set, Np_SMD_Stat_OamTxStatTbl_Get, Np_SMD_Stat_OamTxStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stOamRxStatTable, Np_Stat_OamRxStatTbl_Get, Np_Stat_OamRxStatTbl_Set, Np_SMD_Stat_OamRxStatTbl_Get, Np_SMD_Stat_OamRxStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stPortToCpuTypeStatTable, Np_Stat_PortToCpuTypeStatTbl_Get, Np_Stat_PortToCpuTypeStatTbl_Set, Np_SMD_Stat_PortToCpuPtypeStatTbl_Get, Np_SMD_Stat_PortToCpuPtypeStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_st3ahStatTable, Np_3ahStatTbl_Get, Np_3ahStatTbl_Set, Np_SMD_Stat_3ahStatTbl_Get, Np_SMD_Stat_3ahStatTbl_Set, NP_FORM_SET)
NP_TABLE_ROW(g_stGlobalTable, Np_GlobalTbl_Get, Np_GlobalTbl_Set, Np_SMD_GLB_GlobalTblGet, Np_SMD_GLB_GlobalTblSet, NP_FORM_LARGE)
NP_TABLE_ROW(g_stDyingGaspTable, Np_DyingGaspTbl_Get, Np_DyingGaspTbl_Set, Np_SMD_GLB_DyingGaspTblGet, Np_SMD_GLB_DyingGaspTblSet, NP_FORM_SET)
NP_TABLE_ROW(g_stDyingGaspSmacTable, Np_DyingGaspSmacTbl_Get, Np_DyingGaspSmacTbl_Set, Np_SMD_GLB_DyingGaspSmacTblGet, Np_SMD_GLB_DyingGaspSmacTblSet, NP_FORM_SET)
NP_TABLE_ROW(g_stXdTxEthPadTable, Np_XdTxEthPadLen_Get, Np_XdTxEthPadLen_Set, Np_SMD_GLB_XdTxEthPadLenGet, Np_SMD_GLB_XdTxEthPadLenSet, NP_FORM_SET)
NP_TABLE_ROW(g_stPortDosTable, Np_PortDosTbl_Get, Np_PortDosTbl_Set, Np_SMD_PortDosTbl_Get, Np_SMD_PortDosTbl_Set, NP_FORM_SET)
NP_PRI_ROW(g_stMultiServiceTable, Np_MultiServiceTbl_Get, Np_MultiServiceTbl_Set, Np_MultiServiceTbl_Del, NP_SMD_L2_MultiServiceTbl_Get, NP_SMD_L2_MultiServiceTbl_Set, Np_SMD_L2_MultiServiceTbl_Del)
NP_PRI_ROW(g_stL2paTable, Np_L2paTbl_Get, Np_L2paTbl_Set, Np_L2paTbl_Del, Np_SMD_L2pa_Get, Np_SMD_L2pa_Set, Np_SMD_L2pa_Del)
NP_PRI_ROW(g_stL3paTable, Np_L3paTbl_Get, Np_L3paTbl_Set, Np_L3paTbl_Del, Np_SMD_L3pa_Get, Np_SMD_L3pa_Set, Np_SMD_L3pa_Del)

NP_EXACT_ROW(g_stArlTable, Np_ArlTbl_Add, Np_ArlTbl_Get, Np_ArlTbl_Del, Np_ArlTbl_GetByIndex, Np_ArlTbl_DelByIndex, Np_SMD_ARL_ArlTbl_Add, Np_SMD_ARL_ArlTbl_Get, Np_SMD_ARL_ArlTbl_Del, Np_SMD_ARL_ArlTbl_GetByIndex, Np_SMD_ARL_ArlTbl_DelByIndex)
NP_EXACT_ROW(g_stLanMacTable, Np_LanMacTbl_Add, Np_LanMacTbl_Get, Np_LanMacTbl_Del, Np_LanMacTbl_GetByIndex, Np_LanMacTbl_DelByIndex, Np_SMD_ARL_LanMacTbl_Add, Np_SMD_ARL_LanMacTbl_Get, Np_SMD_ARL_LanMacTbl_Del, Np_SMD_ARL_LanMacTbl_GetByIndex, Np_SMD_ARL_LanMacTbl_DelByIndex)
NP_EXACT_ROW(g_st1xSmacTable, Np_1xSmac_Set, Np_1xSmac_Get, Np_1xSmac_Del, Np_1xSmac_GetByIndex, Np_Tarn_1xSmacBondingTbl_DelByIndex, Np_SMD_1xSmac_Set, Np_SMD_1xSmac_Get, Np_SMD_1xSmac_Del, Np_SMD_1xSmac_GetByIndex, Np_SMD_1xSmac_DelByIndex)

NP_ENTRY_DEL(&g_stAclKeyArgs, Np_AclTbl_Del, Np_SMD_ACL_TblDel)
NP_ENTRY_ROW(&g_stMacFilterKeyRow, &g_stMacFilterDataRow, Np_MacFilterEntry_Get, Np_MacFilterEntry_Set, Np_SMD_MacFilterTbl_Get, Np_SMD_MacFilterTbl_Set)
NP_ENTRY_ROW(&g_stHaSmacKey, &g_stHaSmacRow, Np_SmacFilterTbl_Get, Np_SmacFilterTbl_Set, Np_SMD_SmacFilterTbl_Get, Np_SMD_SmacFilterTbl_Set)
NP_ENTRY_DEL(&g_stHaSmacKey, Np_SmacFilterTbl_Del, Np_SMD_SmacFilterTbl_Del)
NP_ENTRY_ROW(&g_stHaDmacKey, &g_stHaDmacRow, Np_DmacFilterTbl_Get, Np_DmacFilterTbl_Set, Np_SMD_DmacFilterTbl_Get, Np_SMD_DmacFilterTbl_Set)
NP_ENTRY_DEL(&g_stHaDmacKey, Np_DmacFilterTbl_Del, Np_SMD_DmacFilterTbl_Del)
NP_ENTRY_ROW(&g_stHaErrorSampleKey, &g_stHaErrorSampleRow, Np_ErrorSampleTbl_Get, Np_ErrorSampleTbl_Set, Np_SMD_ErrorSampleTbl_Get, Np_SMD_ErrorSampleTbl_Set)
NP_ENTRY_DEL(&g_stHaErrorSampleKey, Np_ErrorSampleTbl_Del, Np_SMD_ErrorSampleTbl_Del)
NP_ENTRY_ROW(&g_stHaAcmClockKey, &g_stHaAcmClockRow, Np_AcmClockTbl_Get, Np_AcmClockTbl_Set, Np_SMD_AcmClockTbl_Get, Np_SMD_AcmClockTbl_Set)
NP_ENTRY_DEL(&g_stHaAcmClockKey, Np_AcmClockTbl_Del, Np_SMD_AcmClockTbl_Del)
NP_ENTRY_ROW(nullptr, &g_stHaAll0SmacRow, Np_IllegalSmacHaInfo_Get, Np_IllegalSmacHaInfo_Set, Np_SMD_IllegalSmacHaInfo_Get, Np_SMD_IllegalSmacHaInfo_Set)
NP_ENTRY_ROW(nullptr, &g_stHaAoeArgs, Np_AoePktGet, Np_AoePktSet, Np_SMD_AoePktHaInfo_Get, Np_SMD_AoePktHaInfo_Set)
NP_ENTRY_ROW(nullptr, &g_stHaInfoArgs, Np_PiePktHaInfo_Get, Np_PiePktHaInfo_Set, Np_SMD_PiePktHaInfo_Get, Np_SMD_PiePktHaInfo_Set)
NP_ENTRY_ROW(nullptr, &g_stHaSpecialEthRow, Np_SpecialEthGet, Np_SpecialEthSet, Np_SMD_SpecialEthPktHaInfo_Get, Np_SMD_SpecialEthPktHaInfo_Set)
NP_ENTRY_ROW(nullptr, &g_stHaGemportRow, Np_NonBroadcastGemportFilter_Get, Np_NonBroadcastGemportFilter_Set, Np_SMD_NonBroadcastGemportFilter_Get, Np_SMD_NonBroadcastGemportFilter_Set)
NP_ENTRY_DEL(nullptr, Np_NonBroadcastGemportFilter_Del, Np_SMD_NonBroadcastGemportFilter_Del)
NP_ENTRY_ROW(nullptr, &g_stHaLlidRow, Np_NonBroadcastLlidFilter_Get, Np_NonBroadcastLlidFilter_Set, Np_SMD_NonBroadcastLlidFilter_Get, Np_SMD_NonBroadcastLlidFilter_Set)
NP_ENTRY_DEL(nullptr, Np_NonBroadcastLlidFilter_Del, Np_SMD_NonBroadcastLlidFilter_Del)
NP_ENTRY_ROW(nullptr, &g_stHaIpv4MulticastRow, Np_Ipv4MulticastFilter_Get, Np_Ipv4MulticastFilter_Set, Np_SMD_Ipv4MulticastFilter_Get, Np_SMD_Ipv4MulticastFilter_Set)
NP_ENTRY_DEL(nullptr, Np_Ipv4MulticastFilter_Del, Np_SMD_Ipv4MulticastFilter_Del)
NP_ENTRY_ROW(nullptr, &g_stHaIpv6MulticastRow, Np_Ipv6MulticastFilter_Get, Np_Ipv6MulticastFilter_Set, Np_SMD_Ipv6MulticastFilter_Get, Np_SMD_Ipv6MulticastFilter_Set)
NP_ENTRY_DEL(nullptr, Np_Ipv6MulticastFilter_Del, Np_SMD_Ipv6MulticastFilter_Del)
NP_ENTRY_ROW(nullptr, &g_stHaIpv4UdpRow, Np_Ipv4FilterWithUdp_Get, Np_Ipv4FilterWithUdp_Set, Np_SMD_Ipv4FilterWithUdp_Get, Np_SMD_Ipv4FilterWithUdp_Set)
NP_ENTRY_DEL(nullptr, Np_Ipv4FilterWithUdp_Del, Np_SMD_Ipv4FilterWithUdp_Del)
NP_ENTRY_ROW(&g_stHaL2PacketKey, &g_stHaL2PacketRow, Np_L2PacketFilterTbl_Get, Np_L2PacketFilterTbl_Set, Np_SMD_L2Packet_Get, Np_SMD_L2Packet_Set)
NP_ENTRY_DEL(&g_stHaL2PacketKey, Np_L2PacketFilterTbl_Del, Np_SMD_L2Packet_Del)
NP_ENTRY_ROW(&g_stHaDmacMatchKey, &g_stHaDmacMatchRow, Np_DmacMatchTbl_Get, Np_DmacMatchTbl_Set, Np_SMD_DmacMatchTbl_Get, Np_SMD_DmacMatchTbl_Set)
NP_ENTRY_DEL(&g_stHaDmacMatchKey, Np_DmacMatchTbl_Del, Np_SMD_DmacMatchTbl_Del)
NP_ENTRY_ROW(&g_stHaVlanMatchKey, &g_stHaVlanMatchRow, Np_VlanMatchPktHaInfo_Get, Np_VlanMatchPktHaInfo_Set, Np_SMD_VlanMatchTbl_Get, Np_SMD_VlanMatchTbl_Set)
NP_ENTRY_DEL(&g_stHaVlanMatchKey, Np_VlanMatchPktHaInfo_Del, Np_SMD_VlanMatchTbl_Del)
NP_ENTRY_ROW(nullptr, &g_stOuterTpidArgs, Np_OuterTpid_Get, Np_OuterTpid_Set, Np_SMD_OuterTpid_Get, Np_SMD_OuterTpid_Set)
NP_ENTRY_ROW(nullptr, &g_stInnerTpidArgs, Np_InnerTpid_Get, Np_InnerTpid_Set, Np_SMD_InnerTpid_Get, Np_SMD_InnerTpid_Set)

NP_LOOSE_ROW(g_stMultiServiceWideRow)
NP_LOOSE_ROW(g_stTpidRow)
NP_LOOSE_ROW(g_stArlKeyRow)
NP_LOOSE_ROW(g_stArlDataRow)
NP_LOOSE_ROW(g_stLanMacKeyRow)
NP_LOOSE_ROW(g_stLanMacDataRow)
NP_LOOSE_ROW(g_stAclRuleRow)
NP_LOOSE_ROW(g_stAclActionRow)
NP_LOOSE_ROW(g_st1xSmacKeyRow)
NP_LOOSE_ROW(g_st1xSmacDataRow)
NP_LOOSE_ROW(g_st1xSmacWideRow)
NP_LOOSE_ROW(g_stMacFilterKeyRow)
NP_LOOSE_ROW(g_stIp4KeyRow)
NP_LOOSE_ROW(g_stIp4DataRow)
NP_LOOSE_ROW(g_stIp6Row)
NP_LOOSE_ROW(g_stHaMultiSmacRow)
NP_LOOSE_ROW(g_stGmtKeyRow)
NP_LOOSE_ROW(g_stGmtDataRow)
NP_LOOSE_ROW(g_stGemportBitMapRow)
NP_LOOSE_ROW(g_stAtmEncapRow)
NP_LOOSE_ROW(g_stPvcEncRow)
NP_LOOSE_ROW(g_stIpUdpRow)
NP_LOOSE_ROW(g_stQueueStatRow)
NP_LOOSE_ROW(g_stPriStatRow)
NP_LOOSE_ROW(g_stCesopKeyRow)
NP_LOOSE_ROW(g_stCesopDataRow)
NP_LOOSE_ROW(g_stDmacRow)
// clang-format on

#undef NP_TABLE_ROW
#undef NP_PRI_ROW
#undef NP_EXACT_ROW
#undef NP_ENTRY_ROW
#undef NP_ENTRY_DEL
#undef NP_LOOSE_ROW
