// Commands of the diagnostics: table access by address or number, walks, threads, counters.
#include "sdk/module/tree.h"

constinit NpCliCmdEntry g_astCmdRead[] = {
    NP_LEAF("addr", "read by address", Np_SMD_DFX_Tbl_ReadByAddr),
    NP_LEAF("id", "read by virtual table id", Np_SMD_DFX_Tbl_ReadByID),
};

constinit NpCliCmdEntry g_astCmdWrite[] = {
    NP_LEAF("addr", "write by address", Np_SMD_DFX_Tbl_WriteByAddr),
    NP_LEAF("id", "write by virtual table id", Np_SMD_DFX_Tbl_WriteByID),
};

constinit NpCliCmdEntry g_astCmdMwrite[] = {
    NP_LEAF("addr", "batch write by address", Np_SMD_DFX_Tbl_BatchWriteByAddr),
    NP_LEAF("id", "batch write by virtual table id", Np_SMD_DFX_Tbl_BatchWriteByID),
};

constinit NpCliCmdEntry g_astCmdClear[] = {
    NP_LEAF("addr", "clear by address", Np_SMD_DFX_Tbl_ClearByAddr),
    NP_LEAF("id", "clear by virtual table id", Np_SMD_DFX_Tbl_ClearByID),
};

static constinit NpCliCmdEntry g_astCmdTableLcam[] = {
    NP_LEAF("del", "del table", Np_SMD_DFX_Tbl_LcamDel),
    NP_LEAF("move", "table move", Np_SMD_DFX_Tbl_LcamMove),
    NP_LEAF("upmove", "move talbe up", Np_SMD_DFX_Tbl_LcamMoveUp),
    NP_LEAF("downmove", "move talbe down", Np_SMD_DFX_Tbl_LcamMoveDown),
    NP_LEAF("bupmove", "block move talbe up", Np_SMD_DFX_Tbl_LcamBlockMoveUp),
    NP_LEAF("bdownmove", "block move talbe down", Np_SMD_DFX_Tbl_LcamBlockMoveDown),
    NP_LEAF("set_status", "set lcam itme enable/disable", Np_SMD_DFX_Tbl_LcamEnableSet),
    NP_LEAF("get_status", "get lcam itme enable/disable", Np_SMD_DFX_Tbl_LcamEnableGet),
};

static constinit NpCliCmdEntry g_astCmdTableHash[] = {
    NP_LEAF("add", "add hash table", Np_SMD_DFX_Tbl_HashAdd),
    NP_LEAF("get", "get hash table", Np_SMD_DFX_Tbl_HashGet),
    NP_LEAF("del", "del hash table", Np_SMD_DFX_Tbl_HashDel),
    NP_LEAF("iget", "get hash table by index", Np_SMD_DFX_Tbl_HashGetByIndex),
    NP_LEAF("idel", "del hash table by index", Np_SMD_DFX_Tbl_HashDelByIndex),
};

constinit NpCliCmdEntry g_astCmdTable[] = {
    NP_LEAF("display", "micro table print", Np_SMD_DFX_Tbl_Display),
    NP_LEAF("filter", "filter table by keys", Np_SMD_DFX_Tbl_Filter),
    NP_GROUP("lcam", "lcam table operation", g_astCmdTableLcam),
    NP_GROUP("hash", "hash table operation", g_astCmdTableHash),
    NP_LEAF("get_valid", "get valid table item", Np_SMD_DFX_Tbl_GetValid),
};

static constinit NpCliCmdEntry g_astCmdDfxSystem[] = {
    NP_LEAF("init", "init system", Np_SMD_DFX_System_Init),
    NP_LEAF("destruct", "destruct system", Np_SMD_DFX_System_Destruct),
};

static constinit NpCliCmdEntry g_astCmdDfxMac[] = {
    NP_LEAF("del_all", "del all mac item", Np_SMD_DFX_Mac_DelAll),
    NP_LEAF("display", "display all valid mac items", Np_SMD_DFX_Mac_DisplayValid),
    NP_LEAF("num", "display mac num", Np_SMD_DFX_Mac_Num),
};

static constinit NpCliCmdEntry g_astCmdDfxLanmac[] = {
    NP_LEAF("del_all", "del all lan mac item", Np_SMD_DFX_LanMac_DelAll),
    NP_LEAF("display", "display all valid lan mac items", Np_SMD_DFX_LanMac_DisplayValid),
    NP_LEAF("num", "display lan mac num", Np_SMD_DFX_LanMac_Num),
};

static constinit NpCliCmdEntry g_astCmdDfxFlow[] = {
    NP_LEAF("del_all", "del all flow item", Np_SMD_DFX_Flow_DelAll),
    NP_LEAF("display", "display all valid flow items", Np_SMD_DFX_Flow_DisplayValid),
    NP_LEAF("stat_display", "display all valid flow stat", Np_SMD_DFX_Flow_StatDisplay_ex),
    NP_LEAF("stat_clear", "clear all valid flow stat", Np_SMD_DFX_Flow_StatClear_ex),
    NP_LEAF("get_stat", "get flow stat", Np_SMD_DFX_Flow_StatDisplay),
    NP_LEAF("clear_stat", "clear flow stat", Np_SMD_DFX_Flow_StatClear),
};

static constinit NpCliCmdEntry g_astCmdDfxMirrortbl[] = {
    NP_LEAF("get", "get mirror table", Np_SMD_MirrorGroupTbl_Get),
    NP_LEAF("set", "set mirror table", Np_SMD_MirrorGroupTbl_Set),
};

static constinit NpCliCmdEntry g_astCmdDfxMcc[] = {
    NP_LEAF("discrete_add", "create a MCC list using discrete oflows", Np_SMD_DFX_Mc_DiscreteAdd),
    NP_LEAF("continue_add", "create a MCC list using continue oflows", Np_SMD_DFX_Mc_ContinueAdd),
    NP_LEAF("del", "delete a MCC&MET list", Np_SMD_DFX_Mc_ListDel),
    NP_LEAF("init", "init MCC list DEBUG function", Np_SMD_DFX_MccAnalyse_Init),
    NP_LEAF("dest", "destruct MCC list DEBUG function", Np_SMD_DFX_MccAnalyse_Destruct),
    NP_LEAF("analyse", "analyse MCC list", Np_SMD_DFX_MccAnalyse),
    NP_LEAF("clear", "clear MCC list analyse result", Np_SMD_DFX_MccAnalyse_Clear),
    NP_LEAF("display", "display all MCC list", Np_SMD_DFX_MccAnalyse_Display),
    NP_LEAF("1display", "display a MCC list by mid", Np_SMD_DFX_MccAnalyse_Display1List),
};

static constinit NpCliCmdEntry g_astCmdDfxPortIdMap[] = {
    NP_LEAF("portid_to_phyid", "portid to phyid", Np_SMD_DFX_PortID2PhyID),
    NP_LEAF("phyid_to_portid", "phyid to portid", Np_SMD_DFX_IngressPhyID2PortID),
};

static constinit NpCliCmdEntry g_astCmdDfxIntr[] = {
    NP_LEAF("set", "set intr cfg", Np_SMD_DFX_IntrCfgTbl_Set),
    NP_LEAF("get", "get intr cfg", Np_SMD_DFX_IntrCfgTbl_Get),
    NP_LEAF("read_clear", "del intr cfg", Np_SMD_DFX_IntrCfgTbl_ReadClear),
};

static constinit NpCliCmdEntry g_astCmdDfxMicroTable[] = {
    NP_LEAF("read", "read micro maintain table", Np_SMD_DFX_MicroTbl_Read),
    NP_LEAF("write", "write micro maintain table", Np_SMD_DFX_MircoTbl_Write),
};

static constinit NpCliCmdEntry g_astCmdDfxL2pa[] = {
    NP_LEAF("display", "display valid l2pa table info", Np_SMD_DFX_L2pa_DisplayValid),
};

static constinit NpCliCmdEntry g_astCmdDfxL3pa[] = {
    NP_LEAF("display", "display valid l3pa table info", Np_SMD_DFX_L3pa_DisplayValid),
};

static constinit NpCliCmdEntry g_astCmdDfxPrompt[] = {
    NP_LEAF("get", "get smd prompt cfg", Np_SMD_DFX_Prompt_Get),
    NP_LEAF("set", "set smd prompt cfg", Np_SMD_DFX_Prompt_Set),
};

static constinit NpCliCmdEntry g_astCmdDfxCacheClear[] = {
    NP_LEAF("eml", "eml cache clear", Np_SMD_DFX_Eml_CacheClear),
    NP_LEAF("cpu", "cpu cache clear", Np_SMD_DFX_Cpu_CacheClear),
};

static constinit NpCliCmdEntry g_astCmdDfxPctInterference[] = {
    NP_LEAF("set", "set PctInterference", Np_SMD_DFX_Pct_Interference_Set),
};

constinit NpCliCmdEntry g_astCmdDfx[] = {
    NP_GROUP("system", "system operation", g_astCmdDfxSystem),
    NP_GROUP("mac", "mac operation", g_astCmdDfxMac),
    NP_GROUP("lanmac", "lan mac operation", g_astCmdDfxLanmac),
    NP_GROUP("flow", "flow operation", g_astCmdDfxFlow),
    NP_GROUP("mirrortbl", "mirror table op", g_astCmdDfxMirrortbl),
    NP_GROUP("mcc", "MCC list debug", g_astCmdDfxMcc),
    NP_GROUP("port_id_map", "port ID <----> phyid map", g_astCmdDfxPortIdMap),
    NP_GROUP("intr", "intr cfg", g_astCmdDfxIntr),
    NP_GROUP("micro_table", "micro maintain table", g_astCmdDfxMicroTable),
    NP_LEAF("flow_relation", "display flow relation table", Np_SMD_DFX_Tbl_GetByFlowID),
    NP_GROUP("l2pa", "display valid l2pa table info", g_astCmdDfxL2pa),
    NP_GROUP("l3pa", "display valid l3pa table info", g_astCmdDfxL3pa),
    NP_GROUP("prompt", "cmd prompt set/get", g_astCmdDfxPrompt),
    NP_GROUP("cache_clear", "cache clear", g_astCmdDfxCacheClear),
    NP_GROUP("pct_interference", "cmd pct_interference set", g_astCmdDfxPctInterference),
    NP_LEAF("context_rewrite", "context rewrite", NP_SMD_ContextRewrite),
    NP_LEAF("context_recovery", "context recovery", NP_SMD_ContextRecovery),
    NP_LEAF("pa_init", "pa init", NP_SMD_PaInit),
    NP_LEAF("cesopmap_display", "display cesopmap", Np_SMD_DFX_CesopMap_Display),
};

static constinit NpCliCmdEntry g_astCmdDebugExcp[] = {
    NP_LEAF("get", "get micro thread info saved in smem 0", Np_SMD_DFX_MicroExcpGet),
};

static constinit NpCliCmdEntry g_astCmdDebugInfo[] = {
    NP_LEAF("get", "get micro thread info saved in smem 0", Np_SMD_DFX_MicroInfoGet),
    NP_LEAF("filter", "get thread info by key", Np_SMD_DFX_MicroInfoFilter),
    NP_LEAF("clear", "clear micro dfx memory", Np_SMD_DFX_ClearDfxMemory),
    NP_LEAF("counter", "clear counter micro dfx counter", Np_SMD_DFX_ClearDfxCounter),
};

static constinit NpCliCmdEntry g_astCmdDebugIntrStatus[] = {
    NP_LEAF("np_intr_get", "np_intr_get", Np_SMD_Dfx_Np_IntrState_Get),
    NP_LEAF("np_intr_clr", "np_intr_clr", Np_SMD_Dfx_Np_IntrState_Clr),
    NP_LEAF("np_intr_set", "np_intr_set", Np_SMD_Dfx_Np_TestIntrState_Set),
};

static constinit NpCliCmdEntry g_astCmdDebugCatchPktCnt[] = {
    NP_LEAF("filter_set", "filter_set", Np_SMD_DFX_Catch_PktCnt_Filter_Set),
    NP_LEAF("filter_get", "filter_get", Np_SMD_DFX_Catch_PktCnt_Filter_Get),
    NP_LEAF("pc_set", "pc_set", Np_SMD_DFX_Catch_PktCnt_Pc_Set),
    NP_LEAF("pc_get", "pc_get", Np_SMD_DFX_Catch_PktCnt_Pc_Get),
    NP_LEAF("pkt_get", "pkt_get", Np_SMD_DFX_Catch_PktCnt_Pkt_Get),
    NP_LEAF("cnt_get", "cnt_get", Np_SMD_DFX_Catch_PktCnt_Cnt_Get),
    NP_LEAF("clear", "clear", Np_SMD_DFX_Catch_PktCnt_Clear),
    NP_LEAF("status", "status", Np_SMD_DFX_Catch_PktCnt_Status_Display),
    NP_LEAF("catch_point_print", "catch_point_print", Np_SMD_DFX_Catch_PktCnt_PcGroup_Print),
    NP_LEAF("pc_group_print", "pc_group_print", Np_SMD_DFX_PcGroup_Print),
    NP_LEAF("pc_recover", "pc_recover", Np_SMD_DFX_Catch_PktCnt_PcRecover),
};

static constinit NpCliCmdEntry g_astCmdDebugDropPktCnt[] = {
    NP_LEAF("drop_cnt_print", "drop_cnt_print", Np_SMD_Dfx_DataPath_Pkt_Drop_Print),
    NP_LEAF("drop_cnt_clear", "drop_cnt_clear", Np_SMD_Dfx_DataPath_Pkt_Drop_Cnt_Clr),
};

static constinit NpCliCmdEntry g_astCmdDebugHeartBeat[] = {
    NP_LEAF("rsp_get", "rsp_get", Np_SMD_Dfx_HeartBeat_RspMsg_Print),
    NP_LEAF("statics_get", "statics_get", Np_SMD_Dfx_HeartBeat_Cnt_Print),
};

static constinit NpCliCmdEntry g_astCmdDebugIoCmd[] = {
    NP_LEAF("set", "set", Np_SMD_Dfx_HeartBeat_IO_CMD_Set),
    NP_LEAF("clr", "clr", Np_SMD_Dfx_HeartBeat_IO_CMD_Clr),
};

constinit NpCliCmdEntry g_astCmdDebug[] = {
    NP_GROUP("excp", "micro thread info saved in smem 0", g_astCmdDebugExcp),
    NP_GROUP("info", "micro thread info saved in smem 0", g_astCmdDebugInfo),
    NP_LEAF("trace", "trace step pc", Np_SMD_DFX_PcTrace),
    NP_LEAF("lastword", "lastword trace", Np_SMD_DFX_DebugMsgShow),
    NP_GROUP("intr_status", "display intr_status", g_astCmdDebugIntrStatus),
    NP_LEAF("excp_record", "excp_record", Np_SMD_Dfx_Atom_Excp_Record_Get),
    NP_GROUP("catch_pkt_cnt", "pc catch pkt cnt online", g_astCmdDebugCatchPktCnt),
    NP_GROUP("drop_pkt_cnt", " datapath drop_pkt_cnt", g_astCmdDebugDropPktCnt),
    NP_LEAF("timer_routine_test", "timer_routine_test", Np_SMD_Dfx_Np_Timer_Routine_Test),
    NP_LEAF("last_msg_print", "last_msg_print", Np_SMD_Dfx_Np_LastMsg_Print),
    NP_LEAF("excp_lmt_set", "excp_lmt_set", Np_SMD_Dfx_Atom_Excep_LimitCnt_Set),
    NP_LEAF("excp_lmt_get", "excp_lmt_get", Np_SMD_Dfx_Atom_Excep_LimitCnt_Get),
    NP_LEAF("softtbl_clr", "softtbl_clr", Np_SMD_Dfx_IntrExcep_Softtbl_Clr),
    NP_LEAF("switch_set", "switch_set", Np_SMD_Dfx_IntrExcep_Switch_Set),
    NP_LEAF("switch_get", "switch_get", Np_SMD_Dfx_IntrExcep_Switch_Get),
    NP_LEAF("reg_set", "reg_set", Np_SMD_Dfx_Reg_Set),
    NP_LEAF("reg_get", "reg_get", Np_SMD_Dfx_Reg_Get),
    NP_GROUP("heart_beat", "heart_beat", g_astCmdDebugHeartBeat),
    NP_GROUP("io_cmd", "io_cmd", g_astCmdDebugIoCmd),
};
