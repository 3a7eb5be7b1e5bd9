// Commands whose handlers are written out, with the rows that describe what they read: help,
// completion and the reference page know their parameters from here. Include it as
// sdk/tables/list.h is.
//
//   NP_COMMAND_ROW(handler, form, key, data)
//       pointers to rows, or null
//   NP_ROW_COMMAND(handler, form, key, data, get, set)
//       the same, and the handler is made from this line: it reads with get and, if its form is not
//       NP_FORM_GET, sets. For a part of a row, and for tables that this family has not.
//   NP_NEW_COMMAND(handler, form, key, data, get, set)
//       the same, where the key may have nothing yet: set begins with zeros then
//   NP_CHOICE_ROW(handler, form, key, rows)
//       the key's one value chooses the row: null for values that have none
#include "sdk/cpuchan/message.h"
#include "sdk/cpuchan/packet.h"
#include "sdk/module/smd_arl.h"
#include "sdk/module/smd_rows.h"
#include "sdk/tables/acl.h"
#include "sdk/tables/arl.h"
#include "sdk/tables/gmt.h"
#include "sdk/tables/ipbonding.h"
#include "sdk/tables/l2.h"
#include "sdk/tables/pa.h"
#include "sdk/tables/port.h"
#include "sdk/tables/port_other.h"
#include "sdk/tables/secu.h"
#include "sdk/tables/stat.h"

#ifndef NP_COMMAND_ROW
#define NP_COMMAND_ROW(Handler, enForm, pstKey, pstData)
#endif
#ifndef NP_ROW_COMMAND
#define NP_ROW_COMMAND(Handler, enForm, pstKey, pstData, pfnGet, pfnSet)
#endif
#ifndef NP_NEW_COMMAND
#define NP_NEW_COMMAND(Handler, enForm, pstKey, pstData, pfnGet, pfnSet) \
    NP_ROW_COMMAND(Handler, enForm, pstKey, pstData, pfnGet, pfnSet)
#endif
#ifndef NP_CHOICE_ROW
#define NP_CHOICE_ROW(Handler, enForm, pstKey, apstData)
#endif

// clang-format off
NP_COMMAND_ROW(Np_SMD_ARL_HashCrash_Record_Read, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_ARL_DynamicArlLrn, NP_FORM_SET, &g_stArlKeyRow, &g_stArlDataRow)
NP_COMMAND_ROW(Np_SMD_ARL_DynamicArlLrnStateGet, NP_FORM_GET, &g_stLearnStateArgs, nullptr)
NP_COMMAND_ROW(Np_SMD_ARL_DynamicArlLrnStateClear, NP_FORM_PAIRS, nullptr, &g_stLearnStateArgs)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_NormalAge, NP_FORM_PAIRS, nullptr, &g_stNormalAgeRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_NormalAge_Para, NP_FORM_SET, &g_stNormalAgeRow, &g_stNpNormalAgeMsgRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_ForceAge, NP_FORM_PAIRS, nullptr, &g_stForceAgeRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_ForceAge_Para, NP_FORM_SET, &g_stForceAgeRow, &g_stNpForceAgeMsgRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_ForceAgeBurst, NP_FORM_PAIRS, nullptr, &g_stForceAgeRow)
NP_COMMAND_ROW(Np_SMD_ARL_ArlTbl_AgeMode_Set, NP_FORM_PAIRS, &g_stArlAgeModeKeyRow, &g_stAgeModeArgs)
NP_COMMAND_ROW(Np_SMD_ARL_UVMacInfo_Get, NP_FORM_GET, &g_stUvmacInfoKeyRow, nullptr)
NP_COMMAND_ROW(Np_SMD_AntiDos_Para, NP_FORM_SET, &g_stAntiDosArgs, &g_stNpAntiDosMsgArgs)
NP_ROW_COMMAND(Np_SMD_CmDosTbl_Set, NP_FORM_SET, &g_stDosKeyRow, &g_stDosRow, Np_CmDosTbl_Get, Np_CmDosTbl_Set)
NP_ROW_COMMAND(Np_SMD_CmDosTbl_Get, NP_FORM_GET, &g_stDosKeyRow, &g_stDosRow, Np_CmDosTbl_Get, Np_CmDosTbl_Set)
NP_COMMAND_ROW(Np_SMD_Ipbonding_Init, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_Ipbonding_Destruct, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(NP_SMD_Ipbonding_Dump, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_IpFlow_Set, NP_FORM_PAIRS, nullptr, &g_stIpFlowArgs)
NP_COMMAND_ROW(Np_SMD_IpFlow_Get, NP_FORM_GET, &g_stIpFlowKeyArgs, nullptr)
NP_COMMAND_ROW(Np_SMD_IpFlow_Del, NP_FORM_PAIRS, nullptr, &g_stIpFlowDelArgs)
NP_COMMAND_ROW(Np_SMD_IpFlowBundle_Set, NP_FORM_PAIRS, nullptr, &g_stIpBundleArgs)
NP_COMMAND_ROW(Np_SMD_IpFlowBundle_Get, NP_FORM_GET, &g_stIpBundleKeyArgs, nullptr)
NP_COMMAND_ROW(Np_SMD_IpFlowBundle_Del, NP_FORM_PAIRS, nullptr, &g_stIpBundleDelArgs)
NP_COMMAND_ROW(Np_SMD_CmIpBonding_Set, NP_FORM_PAIRS, nullptr, &g_stIpCmArgs)
NP_COMMAND_ROW(Np_SMD_CmIpBonding_Get, NP_FORM_GET, &g_stIpCmKeyArgs, nullptr)
NP_COMMAND_ROW(Np_SMD_CmIpBonding_Del, NP_FORM_PAIRS, nullptr, &g_stIpCmDelArgs)
NP_COMMAND_ROW(NP_SMD_CmIpbonding_Dump, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_UvtTblStaticFlag_Set, NP_FORM_PAIRS, nullptr, &g_stUvtStaticArgs)
NP_COMMAND_ROW(Np_SMD_DFX_Mac_DelAll, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_Mac_DisplayValid, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_Mac_Num, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_LanMac_DelAll, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_LanMac_DisplayValid, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_LanMac_Num, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_L2_GemportMapTbl_Del, NP_FORM_PAIRS, nullptr, &g_stGemportKeyRow)
NP_ROW_COMMAND(Np_SMD_L2_IflowExtTblTbl_Set, NP_FORM_LARGE, &g_stFlowKeyRow, &g_stIflowExtArgs, Np_IflowTbl_Get, Np_IflowTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_DmacTbl_Set, NP_FORM_SET, &g_stDmacKeyRow, &g_stDmacRow, Np_DmacTbl_Get, Np_DmacTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_DmacTbl_Get, NP_FORM_GET, &g_stDmacKeyRow, &g_stDmacRow, Np_DmacTbl_Get, Np_DmacTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_SmacPoolTbl_Set, NP_FORM_SET, &g_stSmacPoolKeyRow, &g_stDmacRow, Np_SmacPoolTbl_Get, Np_SmacPoolTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_SmacPoolTbl_Get, NP_FORM_GET, &g_stSmacPoolKeyRow, &g_stDmacRow, Np_SmacPoolTbl_Get, Np_SmacPoolTbl_Set)
NP_ROW_COMMAND(Np_SMD_Stat_QueueTbl_Set, NP_FORM_SET, &g_stQueueStatKeyRow, &g_stQueueStatRow, Np_Stat_QueueTbl_Get, Np_Stat_QueueTbl_Set)
NP_ROW_COMMAND(Np_SMD_Stat_QueueTbl_Get, NP_FORM_GET, &g_stQueueStatKeyRow, &g_stQueueStatRow, Np_Stat_QueueTbl_Get, Np_Stat_QueueTbl_Set)
NP_ROW_COMMAND(Np_SMD_Stat_PriTbl_Set, NP_FORM_SET, &g_stPriStatKeyRow, &g_stPriStatRow, Np_Stat_PriTbl_Get, Np_Stat_PriTbl_Set)
NP_ROW_COMMAND(Np_SMD_Stat_PriTbl_Get, NP_FORM_GET, &g_stPriStatKeyRow, &g_stPriStatRow, Np_Stat_PriTbl_Get, Np_Stat_PriTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_CmGroupTbl_Set, NP_FORM_SET, &g_stCmKeyArgs, &g_stCmGroupArgs, Np_CmGroupTbl_Get, Np_CmGroupTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_CmGroupTbl_Get, NP_FORM_GET, &g_stCmKeyArgs, &g_stCmGroupArgs, Np_CmGroupTbl_Get, Np_CmGroupTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_CmClassTbl_Set, NP_FORM_LARGE, &g_stCmKeyArgs, &g_stCmClassArgs, Np_CmClassTbl_Get, Np_CmClassTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_CmClassTbl_Get, NP_FORM_GET, &g_stCmKeyArgs, &g_stCmClassArgs, Np_CmClassTbl_Get, Np_CmClassTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_CmLmtTbl_Set, NP_FORM_SET, &g_stCmKeyArgs, &g_stCmLmtArgs, Np_CmLmtTbl_Get, Np_CmLmtTbl_Set)
NP_ROW_COMMAND(Np_SMD_L2_CmLmtTbl_Get, NP_FORM_GET, &g_stCmKeyArgs, &g_stCmLmtArgs, Np_CmLmtTbl_Get, Np_CmLmtTbl_Set)
NP_NEW_COMMAND(Np_SMD_ACL_TblSet, NP_FORM_LARGE, &g_stAclKeyArgs, &g_stAclRuleRow, Np_AclRuleOnly_Get, Np_AclRuleOnly_Set)
NP_ROW_COMMAND(Np_SMD_ACL_TblGet, NP_FORM_GET, &g_stAclKeyArgs, &g_stAclRuleRow, Np_AclRuleOnly_Get, Np_AclRuleOnly_Set)
NP_ROW_COMMAND(Np_SMD_ACL_ActionTblSet, NP_FORM_LARGE, &g_stAclKeyArgs, &g_stAclActionRow, Np_AclActionTbl_Get, Np_AclActionTbl_Set)
NP_ROW_COMMAND(Np_SMD_ACL_ActionTblGet, NP_FORM_GET, &g_stAclKeyArgs, &g_stAclActionRow, Np_AclActionTbl_Get, Np_AclActionTbl_Set)
NP_COMMAND_ROW(NP_SMD_ACL_Init, NP_FORM_COUNTED, nullptr, &g_stAclInitArgs)
NP_COMMAND_ROW(Np_SMD_ACL_SoftTblDump, NP_FORM_PAIRS, nullptr, &g_stAclDumpArgs)
NP_COMMAND_ROW(NP_SMD_Pri_Init, NP_FORM_COUNTED, nullptr, &g_stPriInitArgs)
NP_COMMAND_ROW(NP_SMD_L2_Init, NP_FORM_COUNTED, nullptr, &g_stPriInitArgs)
NP_COMMAND_ROW(NP_SMD_L2_SoftTbl_Dump, NP_FORM_PAIRS, nullptr, &g_stL2DumpArgs)
NP_COMMAND_ROW(Np_SMD_L2pa_Init, NP_FORM_COUNTED, nullptr, &g_stPriInitArgs)
NP_COMMAND_ROW(Np_SMD_L2pa_Destruct, NP_FORM_PAIRS, nullptr, nullptr)
NP_ROW_COMMAND(Np_SMD_L2pa_SetState, NP_FORM_SET, &g_stL2paKeyRow, &g_stPaStateArgs, Np_L2paTbl_GetState, Np_L2paTbl_SetState)
NP_ROW_COMMAND(Np_SMD_L2pa_GetState, NP_FORM_GET, &g_stL2paKeyRow, &g_stPaStateArgs, Np_L2paTbl_GetState, Np_L2paTbl_SetState)
NP_COMMAND_ROW(NP_SMD_L2pa_Dump, NP_FORM_PAIRS, nullptr, &g_stL2paDumpArgs)
NP_COMMAND_ROW(Np_SMD_L3pa_Init, NP_FORM_COUNTED, nullptr, &g_stPriInitArgs)
NP_COMMAND_ROW(Np_SMD_L3pa_Destruct, NP_FORM_PAIRS, nullptr, nullptr)
NP_ROW_COMMAND(Np_SMD_L3pa_SetState, NP_FORM_SET, &g_stL3paKeyRow, &g_stPaStateArgs, Np_L3paTbl_GetState, Np_L3paTbl_SetState)
NP_ROW_COMMAND(Np_SMD_L3pa_GetState, NP_FORM_GET, &g_stL3paKeyRow, &g_stPaStateArgs, Np_L3paTbl_GetState, Np_L3paTbl_SetState)
NP_COMMAND_ROW(NP_SMD_L3pa_Dump, NP_FORM_PAIRS, nullptr, &g_stL3paDumpArgs)
NP_COMMAND_ROW(Np_SMD_Tpid_Init, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(NP_SMD_PaInit, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_L2pa_DisplayValid, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_L3pa_DisplayValid, NP_FORM_PAIRS, nullptr, nullptr)
NP_CHOICE_ROW(Np_SMD_CPUTR_SendPkt, NP_FORM_LARGE, &g_stNpSendTypeArgs, g_apstNpSendRow)
NP_COMMAND_ROW(Np_SMD_CPUTR_ReceivePkt, NP_FORM_PAIRS, nullptr, nullptr)
NP_COMMAND_ROW(Np_SMD_DFX_PortID2PhyID, NP_FORM_VALUES, nullptr, &g_stPortArgs)
NP_COMMAND_ROW(Np_SMD_DFX_IngressPhyID2PortID, NP_FORM_PAIRS, nullptr, &g_stPhyArgs)
NP_COMMAND_ROW(Np_SMD_DFX_Eml_CacheClear, NP_FORM_VALUES, nullptr, &g_stEmlCacheArgs)
NP_COMMAND_ROW(Np_SMD_DFX_Cpu_CacheClear, NP_FORM_VALUES, nullptr, &g_stCpuCacheArgs)
NP_ROW_COMMAND(Np_SMD_GmtTbl_Set, NP_FORM_LARGE, &g_stGmtIndexArgs, &g_stGmtRuleArgs, Np_GmtRule_Get, Np_GmtRule_Set)
NP_ROW_COMMAND(Np_SMD_GmtTbl_Get, NP_FORM_GET, &g_stGmtIndexArgs, &g_stGmtShownArgs, Np_GmtRule_Get, Np_GmtRule_Set)
NP_COMMAND_ROW(Np_SMD_GmtTbl_Set_Full, NP_FORM_LARGE, &g_stGmtIndexArgs, &g_stGmtRuleArgs)
NP_COMMAND_ROW(Np_SMD_GmtTbl_Del, NP_FORM_PAIRS, nullptr, &g_stGmtIndexArgs)
NP_ROW_COMMAND(Np_SMD_GemportBitMapTbl_Set, NP_FORM_SET, &g_stGemportKeyArgs, &g_stGemportBitMapRow, Np_GemportBitMapTbl_Get, Np_GemportBitMapTbl_Set)
NP_ROW_COMMAND(Np_SMD_GemportBitMapTbl_Get, NP_FORM_GET, &g_stGemportKeyArgs, &g_stGemportBitMapRow, Np_GemportBitMapTbl_Get, Np_GemportBitMapTbl_Set)
NP_ROW_COMMAND(Np_SMD_AtmEncapTbl_Set, NP_FORM_SET, &g_stPortKey, &g_stAtmEncapRow, Np_AtmEncapTbl_Get, Np_AtmEncapTbl_Set)
NP_ROW_COMMAND(Np_SMD_AtmEncapTbl_Get, NP_FORM_GET, &g_stPortKey, &g_stAtmEncapRow, Np_AtmEncapTbl_Get, Np_AtmEncapTbl_Set)
NP_ROW_COMMAND(Np_SMD_AtmEncapTblPvcItem_Set, NP_FORM_SET, &g_stPvcKeyArgs, &g_stPvcEncRow, Np_PvcItem_Get, Np_PvcItem_Set)
NP_ROW_COMMAND(Np_SMD_AtmEncapTblPvcItem_Get, NP_FORM_GET, &g_stPvcKeyArgs, &g_stPvcEncRow, Np_PvcItem_Get, Np_PvcItem_Set)
NP_ROW_COMMAND(Np_SMD_CesopMapTbl_Add, NP_FORM_SET, &g_stCesopKeyRow, &g_stCesopDataRow, Np_CesopMapTbl_Get, Np_CesopMapTbl_Set)
NP_ROW_COMMAND(Np_SMD_CesopMapTbl_Get, NP_FORM_GET, &g_stCesopKeyRow, &g_stCesopDataRow, Np_CesopMapTbl_Get, Np_CesopMapTbl_Set)
NP_COMMAND_ROW(Np_SMD_CesopMapTbl_Del, NP_FORM_GET, &g_stCesopKeyRow, nullptr)
NP_ROW_COMMAND(Np_SMD_IpUdpEncapInfoTbl_Set, NP_FORM_SET, &g_stIpUdpKeyRow, &g_stIpUdpRow, Np_IpUdpEncapInfoTbl_Get, Np_IpUdpEncapInfoTbl_Set)
NP_ROW_COMMAND(Np_SMD_IpUdpEncapInfoTbl_Get, NP_FORM_GET, &g_stIpUdpKeyRow, &g_stIpUdpRow, Np_IpUdpEncapInfoTbl_Get, Np_IpUdpEncapInfoTbl_Set)
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

#undef NP_COMMAND_ROW
#undef NP_ROW_COMMAND
#undef NP_NEW_COMMAND
#undef NP_CHOICE_ROW
