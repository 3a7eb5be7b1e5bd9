// Commands of the lookup tables: match rules, MAC addresses, packet analysis, security.
#include "sdk/module/tree.h"

static constinit NpCliCmdEntry g_astCmdHaSmacFilter[] = {
    NP_LEAF("set", "set smac filter", Np_SMD_SmacFilterTbl_Set),
    NP_LEAF("get", "get smac filter", Np_SMD_SmacFilterTbl_Get),
    NP_LEAF("del", "del smac filter", Np_SMD_SmacFilterTbl_Del),
};

static constinit NpCliCmdEntry g_astCmdHaDmacFilter[] = {
    NP_LEAF("set", "set dmac filter", Np_SMD_DmacFilterTbl_Set),
    NP_LEAF("get", "get dmac filter", Np_SMD_DmacFilterTbl_Get),
    NP_LEAF("del", "del dmac filter", Np_SMD_DmacFilterTbl_Del),
};

static constinit NpCliCmdEntry g_astCmdHaErrorSample[] = {
    NP_LEAF("set", "set error sample", Np_SMD_ErrorSampleTbl_Set),
    NP_LEAF("get", "get error sample", Np_SMD_ErrorSampleTbl_Get),
    NP_LEAF("del", "del error sample", Np_SMD_ErrorSampleTbl_Del),
};

static constinit NpCliCmdEntry g_astCmdHaAcmClock[] = {
    NP_LEAF("set", "set acm clock", Np_SMD_AcmClockTbl_Set),
    NP_LEAF("get", "get acm clock", Np_SMD_AcmClockTbl_Get),
    NP_LEAF("del", "del acm clock", Np_SMD_AcmClockTbl_Del),
};

static constinit NpCliCmdEntry g_astCmdHaIllegalsmac[] = {
    NP_LEAF("set", "set illegal smac hainfo", Np_SMD_IllegalSmacHaInfo_Set),
    NP_LEAF("get", "get illegal smac hainfo", Np_SMD_IllegalSmacHaInfo_Get),
};

static constinit NpCliCmdEntry g_astCmdHaAoepkt[] = {
    NP_LEAF("set", "set aoepkt", Np_SMD_AoePktHaInfo_Set),
    NP_LEAF("get", "get aoepkt", Np_SMD_AoePktHaInfo_Get),
};

static constinit NpCliCmdEntry g_astCmdHaPiepkt[] = {
    NP_LEAF("set", "set piepkt", Np_SMD_PiePktHaInfo_Set),
    NP_LEAF("get", "get piepkt", Np_SMD_PiePktHaInfo_Get),
};

static constinit NpCliCmdEntry g_astCmdHaSpecialethpkt[] = {
    NP_LEAF("set", "set specialethpkt", Np_SMD_SpecialEthPktHaInfo_Set),
    NP_LEAF("get", "get specialethpkt", Np_SMD_SpecialEthPktHaInfo_Get),
};

static constinit NpCliCmdEntry g_astCmdHaNonbcgemportpkt[] = {
    NP_LEAF("set", "set 非广播gemportid filter", Np_SMD_NonBroadcastGemportFilter_Set),
    NP_LEAF("get", "get 非广播gemportid filter", Np_SMD_NonBroadcastGemportFilter_Get),
    NP_LEAF("del", "del 非广播gemportid filter", Np_SMD_NonBroadcastGemportFilter_Del),
};

static constinit NpCliCmdEntry g_astCmdHaNonbcllidpkt[] = {
    NP_LEAF("set", "set 非广播llid filter", Np_SMD_NonBroadcastLlidFilter_Set),
    NP_LEAF("get", "get 非广播llid filter", Np_SMD_NonBroadcastLlidFilter_Get),
    NP_LEAF("del", "del 非广播llid filter", Np_SMD_NonBroadcastLlidFilter_Del),
};

static constinit NpCliCmdEntry g_astCmdHaIpv4mcpkt[] = {
    NP_LEAF("set", "set ipv4组播 filter", Np_SMD_Ipv4MulticastFilter_Set),
    NP_LEAF("get", "get dmac filter", Np_SMD_Ipv4MulticastFilter_Get),
    NP_LEAF("del", "del dmac filter", Np_SMD_Ipv4MulticastFilter_Del),
};

static constinit NpCliCmdEntry g_astCmdHaIpv6mcpkt[] = {
    NP_LEAF("set", "set ipv6组播 filter", Np_SMD_Ipv6MulticastFilter_Set),
    NP_LEAF("get", "get ipv6组播 filter", Np_SMD_Ipv6MulticastFilter_Get),
    NP_LEAF("del", "del ipv6组播 filter", Np_SMD_Ipv6MulticastFilter_Del),
};

static constinit NpCliCmdEntry g_astCmdHaIpv4udppkt[] = {
    NP_LEAF("set", "set ipv4 udp filter", Np_SMD_Ipv4FilterWithUdp_Set),
    NP_LEAF("get", "get ipv4 udp filter", Np_SMD_Ipv4FilterWithUdp_Get),
    NP_LEAF("del", "del ipv4 udp filter", Np_SMD_Ipv4FilterWithUdp_Del),
};

static constinit NpCliCmdEntry g_astCmdHaL2packet[] = {
    NP_LEAF("set", "set l2 packet filter", Np_SMD_L2Packet_Set),
    NP_LEAF("get", "get l2 packet filter", Np_SMD_L2Packet_Get),
    NP_LEAF("del", "del l2 packet filter", Np_SMD_L2Packet_Del),
};

static constinit NpCliCmdEntry g_astCmdHaDmacMatch[] = {
    NP_LEAF("set", "set dmac match", Np_SMD_DmacMatchTbl_Set),
    NP_LEAF("get", "get dmac match", Np_SMD_DmacMatchTbl_Get),
    NP_LEAF("del", "del dmac match", Np_SMD_DmacMatchTbl_Del),
};

static constinit NpCliCmdEntry g_astCmdHaVlanMatch[] = {
    NP_LEAF("set", "set vlan match", Np_SMD_VlanMatchTbl_Set),
    NP_LEAF("get", "get vlan match", Np_SMD_VlanMatchTbl_Get),
    NP_LEAF("del", "del vlan match", Np_SMD_VlanMatchTbl_Del),
};

constinit NpCliCmdEntry g_astCmdHa[] = {
    NP_GROUP("smac_filter", "src mac filter", g_astCmdHaSmacFilter),
    NP_GROUP("dmac_filter", "dst mac filter", g_astCmdHaDmacFilter),
    NP_GROUP("error_sample", "error sample filter", g_astCmdHaErrorSample),
    NP_GROUP("acm_clock", "acm clock filter", g_astCmdHaAcmClock),
    NP_GROUP("illegalsmac", "illegal smac hainfo", g_astCmdHaIllegalsmac),
    NP_GROUP("aoepkt", "aoepkt hainfo", g_astCmdHaAoepkt),
    NP_GROUP("piepkt", "piepkt hainfo", g_astCmdHaPiepkt),
    NP_GROUP("specialethpkt", "specialpkt hainfo", g_astCmdHaSpecialethpkt),
    NP_GROUP("nonbcgemportpkt", "nonbcgemportpkt hainfo", g_astCmdHaNonbcgemportpkt),
    NP_GROUP("nonbcllidpkt", "nonbcllidpkt hainfo", g_astCmdHaNonbcllidpkt),
    NP_GROUP("ipv4mcpkt", "ipv4mcpkt hainfo", g_astCmdHaIpv4mcpkt),
    NP_GROUP("ipv6mcpkt", "ipv6mcpkt hainfo", g_astCmdHaIpv6mcpkt),
    NP_GROUP("ipv4udppkt", "ipv4udppkt hainfo", g_astCmdHaIpv4udppkt),
    NP_GROUP("l2packet", "l2packet hainfo", g_astCmdHaL2packet),
    NP_GROUP("dmac_match", "dmac match filter", g_astCmdHaDmacMatch),
    NP_GROUP("vlan_match", "vlan match filter", g_astCmdHaVlanMatch),
};

static constinit NpCliCmdEntry g_astCmdArlArltblGet[] = {
    NP_LEAF("bykey", "get bykey", Np_SMD_ARL_ArlTbl_Get),
    NP_LEAF("byindex", "get byindex", Np_SMD_ARL_ArlTbl_GetByIndex),
};

static constinit NpCliCmdEntry g_astCmdArlArltblDel[] = {
    NP_LEAF("bykey", "del bykey", Np_SMD_ARL_ArlTbl_Del),
    NP_LEAF("byindex", "del byindex", Np_SMD_ARL_ArlTbl_DelByIndex),
};

static constinit NpCliCmdEntry g_astCmdArlArltblAge[] = {
    NP_LEAF("force", "force age", Np_SMD_ARL_ArlTbl_ForceAge),
    NP_LEAF("burstforce", "burst force age", Np_SMD_ARL_ArlTbl_ForceAgeBurst),
    NP_LEAF("forcepara", "force age para", Np_SMD_ARL_ArlTbl_ForceAge_Para),
    NP_LEAF("normal", "normal age", Np_SMD_ARL_ArlTbl_NormalAge),
    NP_LEAF("normalpara", "normal age para", Np_SMD_ARL_ArlTbl_NormalAge_Para),
};

static constinit NpCliCmdEntry g_astCmdArlArltblDynamic[] = {
    NP_LEAF("add", "add dynamic mac", Np_SMD_ARL_DynamicArlLrn),
    NP_LEAF("state_get", "get dynamic mac add state", Np_SMD_ARL_DynamicArlLrnStateGet),
    NP_LEAF("state_clear", "clear dynamic mac add state", Np_SMD_ARL_DynamicArlLrnStateClear),
};

static constinit NpCliCmdEntry g_astCmdArlArltbl[] = {
    NP_LEAF("set", "arltbl set", Np_SMD_ARL_ArlTbl_Add),
    NP_GROUP("get", "arltbl get", g_astCmdArlArltblGet),
    NP_GROUP("del", "arltbl del", g_astCmdArlArltblDel),
    NP_GROUP("age", "arltbl age", g_astCmdArlArltblAge),
    NP_LEAF("agemode", "set age mode", Np_SMD_ARL_ArlTbl_AgeMode_Set),
    NP_LEAF("uvmacinfo", "get uvmac info", Np_SMD_ARL_UVMacInfo_Get),
    NP_GROUP("dynamic", "add dynamic mac", g_astCmdArlArltblDynamic),
};

static constinit NpCliCmdEntry g_astCmdArlVmacoffsettbl[] = {
    NP_LEAF("set", "set vmacoffset table", Np_SMD_VmacOffsetTbl_Set),
    NP_LEAF("get", "get vmacoffset table", Np_SMD_VmacOffsetTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdArlLanmactblGet[] = {
    NP_LEAF("bykey", "get bykey", Np_SMD_ARL_LanMacTbl_Get),
    NP_LEAF("byindex", "get byindex", Np_SMD_ARL_LanMacTbl_GetByIndex),
};

static constinit NpCliCmdEntry g_astCmdArlLanmactblDel[] = {
    NP_LEAF("bykey", "del bykey", Np_SMD_ARL_LanMacTbl_Del),
    NP_LEAF("byindex", "del byindex", Np_SMD_ARL_LanMacTbl_DelByIndex),
};

static constinit NpCliCmdEntry g_astCmdArlLanmactbl[] = {
    NP_LEAF("set", "lanmactbl set", Np_SMD_ARL_LanMacTbl_Add),
    NP_GROUP("get", "lanmactbl get", g_astCmdArlLanmactblGet),
    NP_GROUP("del", "lanmactbl del", g_astCmdArlLanmactblDel),
};

static constinit NpCliCmdEntry g_astCmdArlPortmaclmttbl[] = {
    NP_LEAF("set", "set portmaclmt table", Np_SMD_PortMacLimitTbl_Set),
    NP_LEAF("get", "get portmaclmt table", Np_SMD_PortMacLimitTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdArlGlblanMaclmttbl[] = {
    NP_LEAF("set", "set glblanmaclmt table", Np_SMD_GlbLanMacLimitTbl_Set),
    NP_LEAF("get", "get glblanmaclmt table", Np_SMD_GlbLanMacLimitTbl_Get),
};

constinit NpCliCmdEntry g_astCmdArl[] = {
    NP_GROUP("arltbl", "arltbl op", g_astCmdArlArltbl),
    NP_LEAF("mac_crash_read", "hash crash record read", Np_SMD_ARL_HashCrash_Record_Read),
    NP_GROUP("vmacoffsettbl", "vmacoffsettbl op", g_astCmdArlVmacoffsettbl),
    NP_GROUP("lanmactbl", "lanmactbl op", g_astCmdArlLanmactbl),
    NP_GROUP("portmaclmttbl", "portmaclmttbl op", g_astCmdArlPortmaclmttbl),
    NP_GROUP("glblanMaclmttbl", "glblanMaclmttbl op", g_astCmdArlGlblanMaclmttbl),
};

constinit NpCliCmdEntry g_astCmdL2pa[] = {
    NP_LEAF("init", "l2pa init", Np_SMD_L2pa_Init),
    NP_LEAF("destruct", "l2pa destruct", Np_SMD_L2pa_Destruct),
    NP_LEAF("set", "l2pa set", Np_SMD_L2pa_Set),
    NP_LEAF("get", "l2pa get", Np_SMD_L2pa_Get),
    NP_LEAF("del", "l2pa del", Np_SMD_L2pa_Del),
    NP_LEAF("set_state", "set item state", Np_SMD_L2pa_SetState),
    NP_LEAF("get_state", "get item state", Np_SMD_L2pa_GetState),
    NP_LEAF("dump", "l2pa soft table dump", NP_SMD_L2pa_Dump),
};

constinit NpCliCmdEntry g_astCmdL3pa[] = {
    NP_LEAF("init", "l3pa init", Np_SMD_L3pa_Init),
    NP_LEAF("destruct", "l3pa destruct", Np_SMD_L3pa_Destruct),
    NP_LEAF("set", "l3pa set", Np_SMD_L3pa_Set),
    NP_LEAF("get", "l3pa get", Np_SMD_L3pa_Get),
    NP_LEAF("del", "l3pa del", Np_SMD_L3pa_Del),
    NP_LEAF("set_state", "set item state", Np_SMD_L3pa_SetState),
    NP_LEAF("get_state", "get item state", Np_SMD_L3pa_GetState),
    NP_LEAF("dump", "l3pa soft table dump", NP_SMD_L3pa_Dump),
};

constinit NpCliCmdEntry g_astCmdPaext[] = {
    NP_LEAF("set", "paext table set", Np_SMD_PaExtTbl_Set),
    NP_LEAF("get", "paext table get", Np_SMD_PaExtTbl_Get),
};

constinit NpCliCmdEntry g_astCmdPtt1[] = {
    NP_LEAF("set", "ptt1 set", Np_SMD_Ptt1_Set),
    NP_LEAF("get", "ptt1 get", Np_SMD_Ptt1_Get),
};

static constinit NpCliCmdEntry g_astCmdTpidInnertpid[] = {
    NP_LEAF("set", "innertpid set", Np_SMD_InnerTpid_Set),
    NP_LEAF("get", "innertpid get", Np_SMD_InnerTpid_Get),
};

static constinit NpCliCmdEntry g_astCmdTpidOutertpid[] = {
    NP_LEAF("set", "outertpid set", Np_SMD_OuterTpid_Set),
    NP_LEAF("get", "outertpid get", Np_SMD_OuterTpid_Get),
};

constinit NpCliCmdEntry g_astCmdTpid[] = {
    NP_LEAF("init", "tpid init", Np_SMD_Tpid_Init),
    NP_GROUP("innertpid", "innertpid op", g_astCmdTpidInnertpid),
    NP_GROUP("outertpid", "outertpid op", g_astCmdTpidOutertpid),
};

constinit NpCliCmdEntry g_astCmdPta[] = {
    NP_LEAF("set", "pta table set", Np_SMD_PtaTbl_Set),
    NP_LEAF("get", "pta table get", Np_SMD_PtaTbl_Get),
};

constinit NpCliCmdEntry g_astCmdPortdos[] = {
    NP_LEAF("set", "dost table set", Np_SMD_PortDosTbl_Set),
    NP_LEAF("setpara", "dost table setpara", Np_SMD_AntiDos_Para),
    NP_LEAF("get", "dost table get", Np_SMD_PortDosTbl_Get),
};

constinit NpCliCmdEntry g_astCmdCmdos[] = {
    NP_LEAF("set", "dost table set", Np_SMD_CmDosTbl_Set),
    NP_LEAF("setpara", "dost table setpara", Np_SMD_AntiDos_Para),
    NP_LEAF("get", "dost table get", Np_SMD_CmDosTbl_Get),
};

constinit NpCliCmdEntry g_astCmd1xsmac[] = {
    NP_LEAF("set", "smac_bonding set", Np_SMD_1xSmac_Set),
    NP_LEAF("get", "smac_bonding get", Np_SMD_1xSmac_Get),
    NP_LEAF("del", "smac_bonding del", Np_SMD_1xSmac_Del),
    NP_LEAF("getbyindex", "smac_bonding get by index", Np_SMD_1xSmac_GetByIndex),
    NP_LEAF("delbyindex", "smac_bonding get by index", Np_SMD_1xSmac_DelByIndex),
};

static constinit NpCliCmdEntry g_astCmdIpbondingIpflow[] = {
    NP_LEAF("set", "Ip_flow set", Np_SMD_IpFlow_Set),
    NP_LEAF("get", "Ip_flow get", Np_SMD_IpFlow_Get),
    NP_LEAF("del", "Ip_flow del", Np_SMD_IpFlow_Del),
};

static constinit NpCliCmdEntry g_astCmdIpbondingIpflowbundle[] = {
    NP_LEAF("set", "Ip_flowbundle set", Np_SMD_IpFlowBundle_Set),
    NP_LEAF("get", "Ip_flowbundle get", Np_SMD_IpFlowBundle_Get),
    NP_LEAF("del", "Ip_flowbundle del", Np_SMD_IpFlowBundle_Del),
};

constinit NpCliCmdEntry g_astCmdIpbonding[] = {
    NP_LEAF("init", "ipbonding init", Np_SMD_Ipbonding_Init),
    NP_LEAF("destruct", "ipbonding destruct", Np_SMD_Ipbonding_Destruct),
    NP_GROUP("ipflow", "ip_flow op", g_astCmdIpbondingIpflow),
    NP_GROUP("ipflowbundle", "ip_flowbundle op", g_astCmdIpbondingIpflowbundle),
    NP_LEAF("dump", "ipbonding softtable dump", NP_SMD_Ipbonding_Dump),
};

constinit NpCliCmdEntry g_astCmdCmipbonding[] = {
    NP_LEAF("set", "Cm_Ip_Bonding set", Np_SMD_CmIpBonding_Set),
    NP_LEAF("get", "Cm_Ip_Bonding get", Np_SMD_CmIpBonding_Get),
    NP_LEAF("del", "Cm_Ip_Bonding del", Np_SMD_CmIpBonding_Del),
    NP_LEAF("dump", "Cm_Ip_Bonding softtable dump", NP_SMD_CmIpbonding_Dump),
};

constinit NpCliCmdEntry g_astCmdUvt[] = {
    NP_LEAF("set", "uvt table set", Np_SMD_UvtTbl_Set),
    NP_LEAF("get", "uvt table get", Np_SMD_UvtTbl_Get),
    NP_LEAF("staticflagset", "static flag set", Np_SMD_UvtTblStaticFlag_Set),
};

constinit NpCliCmdEntry g_astCmdMacfilter[] = {
    NP_LEAF("set", "mac_filter table set", Np_SMD_MacFilterTbl_Set),
    NP_LEAF("get", "mac_filter table get", Np_SMD_MacFilterTbl_Get),
};
