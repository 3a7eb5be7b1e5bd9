// Commands of the statistics and the OAM tables.
#include "sdk/module/tree.h"

static constinit NpCliCmdEntry g_astCmdStatIflowstattbl[] = {
    NP_LEAF("set", "iflowstattbl set", Np_SMD_Stat_IflowStatTbl_Set),
    NP_LEAF("get", "iflowstattbl get", Np_SMD_Stat_IflowStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOflowstattbl[] = {
    NP_LEAF("set", "oflowstattbl set", Np_SMD_Stat_OflowStatTbl_Set),
    NP_LEAF("get", "oflowstattbl get", Np_SMD_Stat_OflowStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatMcstattbl[] = {
    NP_LEAF("set", "mcstattbl set", Np_SMD_Stat_McStatTbl_Set),
    NP_LEAF("get", "mcstattbl get", Np_SMD_Stat_McStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatAclstattbl[] = {
    NP_LEAF("set", "aclstattbl set", Np_SMD_Stat_AclStatTbl_Set),
    NP_LEAF("get", "aclstattbl get", Np_SMD_Stat_AclStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatPtypestattbl[] = {
    NP_LEAF("set", "ptypestattbl set", Np_SMD_Stat_PtypeStatTbl_Set),
    NP_LEAF("get", "ptypestattbl get", Np_SMD_Stat_PtypeStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatVoipstattbl[] = {
    NP_LEAF("set", "voipstattbl set", Np_SMD_Stat_VoipStatTbl_Set),
    NP_LEAF("get", "voipstattbl get", Np_SMD_Stat_VoipStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStat3ahstattbl[] = {
    NP_LEAF("set", "3ahstattbl set", Np_SMD_Stat_3ahStatTbl_Set),
    NP_LEAF("get", "3ahstattbl get", Np_SMD_Stat_3ahStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatCapstattbl[] = {
    NP_LEAF("set", "capstattbl set", Np_SMD_Stat_CapStatTbl_Set),
    NP_LEAF("get", "capstattbl get", Np_SMD_Stat_CapStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatLcpstattblIft[] = {
    NP_LEAF("set", "iftlcpstattbl set", Np_SMD_Stat_PppIftlcpStatTbl_Set),
    NP_LEAF("get", "iftlcpstattbl get", Np_SMD_Stat_PppIftlcpStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatLcpstattblOft[] = {
    NP_LEAF("set", "oftlcpstattbl set", Np_SMD_Stat_PppOftlcpStatTbl_Set),
    NP_LEAF("get", "oftlcpstattbl get", Np_SMD_Stat_PppOftlcpStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatLcpstattbl[] = {
    NP_GROUP("ift", "ift lcpstattbl", g_astCmdStatLcpstattblIft),
    NP_GROUP("oft", "oft lcpstattbl", g_astCmdStatLcpstattblOft),
};

static constinit NpCliCmdEntry g_astCmdStatSessionstattbl[] = {
    NP_LEAF("set", "sessionstattbl set", Np_SMD_Stat_PppoeSessionStatTbl_Set),
    NP_LEAF("get", "sessionstattbl get", Np_SMD_Stat_PppoeSessionStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatMcleafstattbl[] = {
    NP_LEAF("set", "mc leaf stat set", Np_SMD_Stat_McleafStatTbl_Set),
    NP_LEAF("get", "mc leaf stat get", Np_SMD_Stat_McleafStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatPortptypestattbl[] = {
    NP_LEAF("set", "port ptype stat set", Np_SMD_Stat_PortPtypeStatTbl_Set),
    NP_LEAF("get", "port ptype stat get", Np_SMD_Stat_PortPtypeStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatPorttocpuptypecarstattbl[] = {
    NP_LEAF("set", "port tocpu ptype car stat set", Np_SMD_Stat_PortToCpuPtypeStatTbl_Set),
    NP_LEAF("get", "port tocpu ptype car statt get", Np_SMD_Stat_PortToCpuPtypeStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOamstatTx[] = {
    NP_LEAF("set", "oamtxstattbl set", Np_SMD_Stat_OamTxStatTbl_Set),
    NP_LEAF("get", "oamtxstattbl get", Np_SMD_Stat_OamTxStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOamstatRx[] = {
    NP_LEAF("set", "oamrxstattbl set", Np_SMD_Stat_OamRxStatTbl_Set),
    NP_LEAF("get", "oamrxstattbl get", Np_SMD_Stat_OamRxStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOamstatLmcnt[] = {
    NP_LEAF("set", "oamlmcnttbl set", Np_SMD_Stat_LmStatTbl_Set),
    NP_LEAF("get", "oamlmcnttbl get", Np_SMD_Stat_LmStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOamstatLmrcd[] = {
    NP_LEAF("set", "oamlmrcdtbl set", Np_SMD_Stat_LmRecordStatTbl_Set),
    NP_LEAF("get", "oamlmrcdtbl get", Np_SMD_Stat_LmRecordStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOamstatLmrxcnt[] = {
    NP_LEAF("set", "lmrxcnttbl set", Np_SMD_Stat_LmRxCounterTbl_Set),
    NP_LEAF("get", "lmrxcnttbl get", Np_SMD_Stat_LmRxCounterTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOamstatDmrxcnt[] = {
    NP_LEAF("set", "dmrxcnttbl set", Np_SMD_Stat_DmRxCounterTbl_Set),
    NP_LEAF("get", "dmrxcnttbl get", Np_SMD_Stat_DmRxCounterTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOamstatSlcnt[] = {
    NP_LEAF("set", "slcnt set", Np_SMD_Stat_SlStatTbl_Set),
    NP_LEAF("get", "slcnt get", Np_SMD_Stat_SlStatTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatOamstat[] = {
    NP_GROUP("tx", "tx op", g_astCmdStatOamstatTx),
    NP_GROUP("rx", "rx op", g_astCmdStatOamstatRx),
    NP_GROUP("lmcnt", "lmcnt op", g_astCmdStatOamstatLmcnt),
    NP_GROUP("lmrcd", "lmrcd op", g_astCmdStatOamstatLmrcd),
    NP_GROUP("lmrxcnt", "lmrxcounter op", g_astCmdStatOamstatLmrxcnt),
    NP_GROUP("dmrxcnt", "dmrxcounter op", g_astCmdStatOamstatDmrxcnt),
    NP_GROUP("slcnt", "slcnt op", g_astCmdStatOamstatSlcnt),
};

static constinit NpCliCmdEntry g_astCmdStatPristat[] = {
    NP_LEAF("set", "pri_set", Np_SMD_Stat_PriTbl_Set),
    NP_LEAF("get", "pri_set", Np_SMD_Stat_PriTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdStatQueuestat[] = {
    NP_LEAF("set", "queue_cnt", Np_SMD_Stat_QueueTbl_Set),
    NP_LEAF("get", "queue_cnt", Np_SMD_Stat_QueueTbl_Get),
};

constinit NpCliCmdEntry g_astCmdStat[] = {
    NP_GROUP("iflowstattbl", "iflowstattbl op", g_astCmdStatIflowstattbl),
    NP_GROUP("oflowstattbl", "oflowstattbl op", g_astCmdStatOflowstattbl),
    NP_GROUP("mcstattbl", "mcstattbl op", g_astCmdStatMcstattbl),
    NP_GROUP("aclstattbl", "aclstattbl op", g_astCmdStatAclstattbl),
    NP_GROUP("ptypestattbl", "ptypestattbl op", g_astCmdStatPtypestattbl),
    NP_GROUP("voipstattbl", "voipstattbl op", g_astCmdStatVoipstattbl),
    NP_GROUP("3ahstattbl", "3ahstattbl op", g_astCmdStat3ahstattbl),
    NP_GROUP("capstattbl", "capstattbl op", g_astCmdStatCapstattbl),
    NP_GROUP("lcpstattbl", "lcpstattbl op", g_astCmdStatLcpstattbl),
    NP_GROUP("sessionstattbl", "sessionstattbl op", g_astCmdStatSessionstattbl),
    NP_GROUP("mcleafstattbl", "mcleafstattbl op", g_astCmdStatMcleafstattbl),
    NP_GROUP("portptypestattbl", "portptypestattbl op", g_astCmdStatPortptypestattbl),
    NP_GROUP("porttocpuptypecarstattbl", "porttocpuptypecarstattbl op",
             g_astCmdStatPorttocpuptypecarstattbl),
    NP_GROUP("oamstat", "oamstat op", g_astCmdStatOamstat),
    NP_GROUP("pristat", "pri_stat op", g_astCmdStatPristat),
    NP_GROUP("queuestat", "queue_stat op", g_astCmdStatQueuestat),
};

static constinit NpCliCmdEntry g_astCmdOamTimernode[] = {
    NP_LEAF("add", "set common node info", Np_SMD_OAM_TxTimer_Add),
    NP_LEAF("get", "get common node info", Np_SMD_OAM_TxTimer_Get),
    NP_LEAF("del", "del common node info", Np_SMD_OAM_TxTimer_Del),
    NP_LEAF("display", "display common node info", Np_SMD_OAM_TxTimer_Display),
};

static constinit NpCliCmdEntry g_astCmdOamTimerhead[] = {
    NP_LEAF("set", "set head node info", Np_SMD_OAM_TxTimerHead_Set),
    NP_LEAF("get", "get head node info", Np_SMD_OAM_TxTimerHead_Get),
};

static constinit NpCliCmdEntry g_astCmdOamMpcfg[] = {
    NP_LEAF("set", "set oam mp cfg info", Np_SMD_OAM_MpCfgTbl_Set),
    NP_LEAF("get", "get oam mp cfg info", Np_SMD_OAM_MpCfgTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdOamMegcfg[] = {
    NP_LEAF("set", "set oam meg cfg info", Np_SMD_OAM_MegCfgTbl_Set),
    NP_LEAF("get", "get oam meg cfg info", Np_SMD_OAM_MegCfgTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdOamMegtbl[] = {
    NP_LEAF("set", "set oam meg info", Np_SMD_OAM_MegTbl_Set),
    NP_LEAF("get", "get oam meg info", Np_SMD_OAM_MegTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdOamMepcfg[] = {
    NP_LEAF("set", "set oam mep cfg info", Np_SMD_OAM_MepCfgTbl_Set),
    NP_LEAF("get", "get oam mep cfg info", Np_SMD_OAM_MepCfgTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdOamMeptbl[] = {
    NP_LEAF("set", "set oam mep info", Np_SMD_OAM_MepTbl_Set),
    NP_LEAF("get", "get oam mep info", Np_SMD_OAM_MepTbl_Get),
    NP_LEAF("init", "init mep stmachine info", Np_SMD_OAM_MepStMachine_Init),
};

static constinit NpCliCmdEntry g_astCmdOamTx[] = {
    NP_LEAF("set", "set oam tx info", Np_SMD_OAM_TxTbl_Set),
    NP_LEAF("get", "get oam tx info", Np_SMD_OAM_TxTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdOamRx[] = {
    NP_LEAF("set", "set oam rx info", Np_SMD_OAM_RxTbl_Set),
    NP_LEAF("get", "get oam rx info", Np_SMD_OAM_RxTbl_Get),
    NP_LEAF("init", "init mep stmachine info", Np_SMD_OAM_RxStMachine_Init),
};

static constinit NpCliCmdEntry g_astCmdOamPvt[] = {
    NP_LEAF("add", "add oam port vlan info", Np_SMD_OAM_PortVlanTbl_Add),
    NP_LEAF("get", "get oam port vlan info", Np_SMD_OAM_PortVlanTbl_Get),
    NP_LEAF("del", "del oam port vlan info", Np_SMD_OAM_PortVlanTbl_Del),
    NP_LEAF("getbyindex", "get oam port vlan info", Np_SMD_OAM_PortVlanTbl_GetByIndex),
    NP_LEAF("delbyindex", "del oam port vlan info", Np_SMD_OAM_PortVlanTbl_DelByIndex),
};

static constinit NpCliCmdEntry g_astCmdOamLookup[] = {
    NP_LEAF("add", "add oam look up info", Np_SMD_OAM_LookUpTbl_Add),
    NP_LEAF("get", "get oam look up info", Np_SMD_OAM_LookUpTbl_Get),
    NP_LEAF("del", "del oam look up info", Np_SMD_OAM_LookUpTbl_Del),
    NP_LEAF("getbyindex", "get oam look up info", Np_SMD_OAM_LookUpTbl_GetByIndex),
    NP_LEAF("delbyindex", "del oam look up info", Np_SMD_OAM_LookUpTbl_DelByIndex),
};

static constinit NpCliCmdEntry g_astCmdOamSmac[] = {
    NP_LEAF("set", "set oam smac info", Np_SMD_OAM_SmacTbl_Set),
    NP_LEAF("get", "get oam smac info", Np_SMD_OAM_SmacTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdOamLoopback[] = {
    NP_LEAF("set", "set oam loopback info", Np_SMD_OAM_LoopbackTblSet),
    NP_LEAF("get", "get oam loopback info", Np_SMD_OAM_LoopbackTblGet),
};

static constinit NpCliCmdEntry g_astCmdOamMsg[] = {
    NP_LEAF("tx", "tx timed msg", Np_SMD_OAM_TxTimedMsg_Set),
    NP_LEAF("age", "set oam loopback info", Np_SMD_OAM_AgeTimedMsg_Set),
};

static constinit NpCliCmdEntry g_astCmdOamLmdata[] = {
    NP_LEAF("add", "add oam lmdata info", Np_SMD_OAM_LmDataTbl_Add),
    NP_LEAF("get", "get oam lmdata info", Np_SMD_OAM_LmDataTbl_Get),
    NP_LEAF("del", "del oam lmdata info", Np_SMD_OAM_LmDataTbl_Del),
    NP_LEAF("getbyindex", "get oam lmdata info", Np_SMD_OAM_LmDataTbl_GetByIndex),
    NP_LEAF("delbyindex", "del oam lmdata info", Np_SMD_OAM_LmDataTbl_DelByIndex),
    NP_LEAF("set_full", "set_full lmdata item", Np_SMD_OAM_LmDataTbl_Set_Full),
};

static constinit NpCliCmdEntry g_astCmdOamLmoam[] = {
    NP_LEAF("add", "add oam lmoam info", Np_SMD_OAM_LmOamTbl_Add),
    NP_LEAF("get", "get oam lmoam info", Np_SMD_OAM_LmOamTbl_Get),
    NP_LEAF("del", "del oam lmoam info", Np_SMD_OAM_LmOamTbl_Del),
    NP_LEAF("getbyindex", "get oam lmoam info", Np_SMD_OAM_LmOamTbl_GetByIndex),
    NP_LEAF("delbyindex", "del oam lmoam info", Np_SMD_OAM_LmOamTbl_DelByIndex),
};

static constinit NpCliCmdEntry g_astCmdOamLmcfg[] = {
    NP_LEAF("set", "set oam lmcfg info", Np_SMD_OAM_LmCfgTbl_Set),
    NP_LEAF("get", "get oam lmcfg info", Np_SMD_OAM_LmCfgTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdOamDmmode[] = {
    NP_LEAF("set", "set oam dmmode info", Np_SMD_OAM_DmModeTbl_Set),
    NP_LEAF("get", "get oam dmmode info", Np_SMD_OAM_DmModeTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdOamDmoam[] = {
    NP_LEAF("add", "add oam dmoam info", Np_SMD_OAM_DmOamTbl_Add),
    NP_LEAF("get", "get oam dmoam info", Np_SMD_OAM_DmOamTbl_Get),
    NP_LEAF("del", "del oam dmoam info", Np_SMD_OAM_DmOamTbl_Del),
    NP_LEAF("getbyindex", "get oam dmoam info", Np_SMD_OAM_DmOamTbl_GetByIndex),
    NP_LEAF("delbyindex", "del oam dmoam info", Np_SMD_OAM_DmOamTbl_DelByIndex),
};

static constinit NpCliCmdEntry g_astCmdOamSltbl[] = {
    NP_LEAF("add", "add sl info", Np_SMD_OAM_Sl_Add),
    NP_LEAF("get", "get  sl info", Np_SMD_OAM_Sl_Get),
    NP_LEAF("del", "del  sl info", Np_SMD_OAM_Sl_Del),
};

static constinit NpCliCmdEntry g_astCmdOamSlmode[] = {
    NP_LEAF("set", "set sl_mode info", Np_SMD_OAM_SlMode_Set),
    NP_LEAF("get", "get  sl_mode info", Np_SMD_OAM_SlMode_Get),
};

static constinit NpCliCmdEntry g_astCmdOamSlcfg[] = {
    NP_LEAF("set", "set sl_cfg info", Np_SMD_OAM_SlCfg_Set),
    NP_LEAF("get", "get  sl_cfg info", Np_SMD_OAM_SlCfg_Get),
};

constinit NpCliCmdEntry g_astCmdOam[] = {
    NP_GROUP("timernode", "oam timer nodeop", g_astCmdOamTimernode),
    NP_GROUP("timerhead", "oam timer nodeop", g_astCmdOamTimerhead),
    NP_GROUP("mpcfg", "oam mp cfg op", g_astCmdOamMpcfg),
    NP_GROUP("megcfg", "oam meg cfg op", g_astCmdOamMegcfg),
    NP_GROUP("megtbl", "oam meg op", g_astCmdOamMegtbl),
    NP_GROUP("mepcfg", "oam mep cfg op", g_astCmdOamMepcfg),
    NP_GROUP("meptbl", "oam mep op", g_astCmdOamMeptbl),
    NP_GROUP("tx", "oam tx op", g_astCmdOamTx),
    NP_GROUP("rx", "oam rx op", g_astCmdOamRx),
    NP_GROUP("pvt", "oam portvlan op", g_astCmdOamPvt),
    NP_GROUP("lookup", "oam look up op", g_astCmdOamLookup),
    NP_GROUP("smac", "oam smac op", g_astCmdOamSmac),
    NP_GROUP("loopback", "oam loopback op", g_astCmdOamLoopback),
    NP_GROUP("msg", "oam msg", g_astCmdOamMsg),
    NP_GROUP("lmdata", "lmdata op", g_astCmdOamLmdata),
    NP_GROUP("lmoam", "lmoam op", g_astCmdOamLmoam),
    NP_GROUP("lmcfg", "lmcfg op", g_astCmdOamLmcfg),
    NP_GROUP("dmmode", "dmmode op", g_astCmdOamDmmode),
    NP_GROUP("dmoam", "dmoam op", g_astCmdOamDmoam),
    NP_GROUP("sltbl", "sl op", g_astCmdOamSltbl),
    NP_GROUP("slmode", "sl_mode op", g_astCmdOamSlmode),
    NP_GROUP("slcfg", "slcfg op", g_astCmdOamSlcfg),
};
