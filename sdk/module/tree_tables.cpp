// Commands of the forwarding tables: QoS, ports, VLANs, rules, multicast, flows, global rows.
#include "sdk/module/tree.h"

static constinit NpCliCmdEntry g_astCmdQosDscpMap[] = {
    NP_LEAF("set", "set dscp_map table", Np_SMD_DscpMapTbl_Set),
    NP_LEAF("get", "get dscp_map table", Np_SMD_DscpMapTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdQosPcpMap[] = {
    NP_LEAF("set", "set pcp_map table", Np_SMD_PcpMapTbl_Set),
    NP_LEAF("get", "get pcp_map table", Np_SMD_PcpMapTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdQosIpMap[] = {
    NP_LEAF("set", "set ip_map table", Np_SMD_IpMapTbl_Set),
    NP_LEAF("get", "get ip_map table", Np_SMD_IpMapTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdQosPriCarMap[] = {
    NP_LEAF("set", "set pri_car_map table", Np_SMD_PriCarMapTbl_Set),
    NP_LEAF("get", "get pri_car_map table", Np_SMD_PriCarMapTbl_Get),
};

constinit NpCliCmdEntry g_astCmdQos[] = {
    NP_GROUP("dscp_map", "dscp_map table op", g_astCmdQosDscpMap),
    NP_GROUP("pcp_map", "pcp_map table op", g_astCmdQosPcpMap),
    NP_GROUP("ip_map", "Ip_map table op", g_astCmdQosIpMap),
    NP_GROUP("pri_car_map", "pri_car_map table op", g_astCmdQosPriCarMap),
};

static constinit NpCliCmdEntry g_astCmdPortPct[] = {
    NP_LEAF("set", "set pct table", Np_SMD_PctTbl_Set),
    NP_LEAF("get", "get pct table", Np_SMD_PctTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortAtmEncap[] = {
    NP_LEAF("set", "set atm_encap table", Np_SMD_AtmEncapTbl_Set),
    NP_LEAF("get", "get atm_encap table", Np_SMD_AtmEncapTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortAtmPvc[] = {
    NP_LEAF("set", "set atm_encap table pvc item", Np_SMD_AtmEncapTblPvcItem_Set),
    NP_LEAF("get", "get atm_encap table pvc item", Np_SMD_AtmEncapTblPvcItem_Get),
};

static constinit NpCliCmdEntry g_astCmdPortVoipChannel[] = {
    NP_LEAF("set", "set voip_channel table", Np_SMD_VoipChannelTbl_Set),
    NP_LEAF("get", "get voip_channel table", Np_SMD_VoipChannelTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortGmt[] = {
    NP_LEAF("set", "set gmt table", Np_SMD_GmtTbl_Set),
    NP_LEAF("get", "get gmt table", Np_SMD_GmtTbl_Get),
    NP_LEAF("del", "del gmt item", Np_SMD_GmtTbl_Del),
    NP_LEAF("set_full", "set_full gmt item", Np_SMD_GmtTbl_Set_Full),
};

static constinit NpCliCmdEntry g_astCmdPortLag[] = {
    NP_LEAF("set", "set lag table", Np_SMD_LagTbl_Set),
    NP_LEAF("get", "get lag table", Np_SMD_LagTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortVmacInfo[] = {
    NP_LEAF("set", "set vmac_info table", Np_SMD_VmacInfoTbl_Set),
    NP_LEAF("get", "get vmac_info table", Np_SMD_VmacInfoTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortGemportLoopQid[] = {
    NP_LEAF("set", "set GemportLoopQid table", Np_SMD_GemportLoopQidTbl_Set),
    NP_LEAF("get", "get GemportLoopQid table", Np_SMD_GemportLoopQidTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortTocpuPtypeCar[] = {
    NP_LEAF("set", "set tocpu ptype car table", Np_SMD_PortToCpuPtypeCarTbl_Set),
    NP_LEAF("get", "get tocpu ptype car table", Np_SMD_PortToCpuPtypeCarTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortUpCarProfile[] = {
    NP_LEAF("set", "set up_car_profile table", Np_SMD_UpCarProfileTbl_Set),
    NP_LEAF("get", "get up_car_profile table", Np_SMD_UpCarProfileTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortDownCarProfile[] = {
    NP_LEAF("set", "set down_car_profile table", Np_SMD_DownCarProfileTbl_Set),
    NP_LEAF("get", "get down_car_profile table", Np_SMD_DownCarProfileTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortCesop[] = {
    NP_LEAF("add", "set cesop map table", Np_SMD_CesopMapTbl_Add),
    NP_LEAF("get", "get cesop map table", Np_SMD_CesopMapTbl_Get),
    NP_LEAF("del", "del cesop map table", Np_SMD_CesopMapTbl_Del),
};

static constinit NpCliCmdEntry g_astCmdPortIpudp[] = {
    NP_LEAF("set", "set ip udp encap info table", Np_SMD_IpUdpEncapInfoTbl_Set),
    NP_LEAF("get", "get ip udp encap info table", Np_SMD_IpUdpEncapInfoTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdPortGemportbitmap[] = {
    NP_LEAF("set", "set Gemport Bit Map table", Np_SMD_GemportBitMapTbl_Set),
    NP_LEAF("get", "get Gemport Bit Map table", Np_SMD_GemportBitMapTbl_Get),
};

constinit NpCliCmdEntry g_astCmdPort[] = {
    NP_GROUP("pct", "pct table op", g_astCmdPortPct),
    NP_GROUP("atm_encap", "atm_encap table op", g_astCmdPortAtmEncap),
    NP_GROUP("atm_pvc", "atm_encap table item op", g_astCmdPortAtmPvc),
    NP_GROUP("voip_channel", "atm_encap table op", g_astCmdPortVoipChannel),
    NP_GROUP("gmt", "gmt table op", g_astCmdPortGmt),
    NP_GROUP("lag", "lag table op", g_astCmdPortLag),
    NP_GROUP("vmac_info", "vmac_info table op", g_astCmdPortVmacInfo),
    NP_GROUP("gemport_loop_qid", "gemport_loop_qid table op", g_astCmdPortGemportLoopQid),
    NP_GROUP("tocpu_ptype_car", "tocpu_ptype_car table op", g_astCmdPortTocpuPtypeCar),
    NP_GROUP("up_car_profile", "up_car_profile table op", g_astCmdPortUpCarProfile),
    NP_GROUP("down_car_profile", "down_car_profile table op", g_astCmdPortDownCarProfile),
    NP_GROUP("cesop", "cesop map table op", g_astCmdPortCesop),
    NP_GROUP("ipudp", "ip udp encap info table op", g_astCmdPortIpudp),
    NP_GROUP("gemportbitmap", "gemport bit map table op", g_astCmdPortGemportbitmap),
};

static constinit NpCliCmdEntry g_astCmdPtypeCapture[] = {
    NP_LEAF("set", "set ptype capture", Np_SMD_DFX_PtypeCapture_Set),
    NP_LEAF("del", "del ptype capture", Np_SMD_DFX_PtypeCapture_Del),
    NP_LEAF("get", "get ptype capture", Np_SMD_DFX_PtypeCapture_Get),
};

constinit NpCliCmdEntry g_astCmdPtype[] = {
    NP_LEAF("print", "print ptype", Np_SMD_DFX_PtypePrint),
    NP_LEAF("clear", "clear ptype", Np_SMD_DFX_PtypeClear),
    NP_GROUP("capture", "capture info", g_astCmdPtypeCapture),
};

static constinit NpCliCmdEntry g_astCmdVlanVlan[] = {
    NP_LEAF("set", "set vlan table", Np_SMD_VlanTbl_Set),
    NP_LEAF("get", "get vlan table", Np_SMD_VlanTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdVlanIstp[] = {
    NP_LEAF("set", "set istp table", Np_SMD_IstpTbl_Set),
    NP_LEAF("get", "get istp table", Np_SMD_IstpTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdVlanEstp[] = {
    NP_LEAF("set", "set estp table", Np_SMD_EstpTbl_Set),
    NP_LEAF("get", "get estp table", Np_SMD_EstpTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdVlanVlanPtt[] = {
    NP_LEAF("set", "set vlan_ptt table", Np_SMD_VlanPttTbl_Set),
    NP_LEAF("get", "get vlan_ptt table", Np_SMD_VlanPttTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdVlanVlanOption[] = {
    NP_LEAF("set", "set vlan_option table", Np_SMD_VlanOptionTbl_Set),
    NP_LEAF("get", "get vlan_ptt table", Np_SMD_VlanOptionTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdVlanLanvlan[] = {
    NP_LEAF("set", "set lan vlan table", Np_SMD_LanVlanTbl_Set),
    NP_LEAF("get", "get lan vlan table", Np_SMD_LanVlanTbl_Get),
};

constinit NpCliCmdEntry g_astCmdVlan[] = {
    NP_GROUP("vlan", "vlan table op", g_astCmdVlanVlan),
    NP_GROUP("istp", "istp table op", g_astCmdVlanIstp),
    NP_GROUP("estp", "estp table op", g_astCmdVlanEstp),
    NP_GROUP("vlan_ptt", "vlan_ptt table op", g_astCmdVlanVlanPtt),
    NP_GROUP("vlan_option", "vlan_option table op", g_astCmdVlanVlanOption),
    NP_GROUP("lanvlan", "lan_vlan table op", g_astCmdVlanLanvlan),
};

static constinit NpCliCmdEntry g_astCmdAclRule[] = {
    NP_LEAF("set", "set acl rule", Np_SMD_ACL_TblSet),
    NP_LEAF("get", "get acl rule", Np_SMD_ACL_TblGet),
    NP_LEAF("del", "get acl rule", Np_SMD_ACL_TblDel),
};

static constinit NpCliCmdEntry g_astCmdAclAction[] = {
    NP_LEAF("set", "set acl action", Np_SMD_ACL_ActionTblSet),
    NP_LEAF("get", "get acl action", Np_SMD_ACL_ActionTblGet),
};

constinit NpCliCmdEntry g_astCmdAcl[] = {
    NP_GROUP("rule", "acl rule op", g_astCmdAclRule),
    NP_GROUP("action", "acl action op", g_astCmdAclAction),
    NP_LEAF("softtbldump", "soft tbl dump", Np_SMD_ACL_SoftTblDump),
    NP_LEAF("init", "acl 初始化", NP_SMD_ACL_Init),
};

static constinit NpCliCmdEntry g_astCmdMcMet[] = {
    NP_LEAF("set", "set met table", Np_SMD_MetTbl_Set),
    NP_LEAF("get", "get met table", Np_SMD_MetTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdMcBrlt[] = {
    NP_LEAF("set", "set brlt table", Np_SMD_BrltTbl_Set),
    NP_LEAF("get", "get brlt table", Np_SMD_BrltTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdMcMdiInfo[] = {
    NP_LEAF("set", "set MdiInfo table", Np_SMD_MdiInfoTbl_Set),
    NP_LEAF("get", "get MdiInfo table", Np_SMD_MdiInfoTbl_Get),
};

constinit NpCliCmdEntry g_astCmdMc[] = {
    NP_GROUP("met", "met table op", g_astCmdMcMet),
    NP_GROUP("brlt", "brlt table op", g_astCmdMcBrlt),
    NP_GROUP("mdi_info", "mdi_info table op", g_astCmdMcMdiInfo),
};

static constinit NpCliCmdEntry g_astCmdGlbTable[] = {
    NP_LEAF("set", "set glb", Np_SMD_GLB_GlobalTblSet),
    NP_LEAF("get", "get glb", Np_SMD_GLB_GlobalTblGet),
};

static constinit NpCliCmdEntry g_astCmdGlbVersion[] = {
    NP_LEAF("sdk", "sdk version", Np_SMD_GLB_SDKVersionGet),
    NP_LEAF("micro", "micro version", Np_SMD_GLB_MICROVersionGet),
};

static constinit NpCliCmdEntry g_astCmdGlbDyingGasp[] = {
    NP_LEAF("set", "set dying gasp", Np_SMD_GLB_DyingGaspTblSet),
    NP_LEAF("get", "get dying gasp", Np_SMD_GLB_DyingGaspTblGet),
};

static constinit NpCliCmdEntry g_astCmdGlbDyingGaspSmac[] = {
    NP_LEAF("set", "set dying gasp", Np_SMD_GLB_DyingGaspSmacTblSet),
    NP_LEAF("get", "get dying gasp", Np_SMD_GLB_DyingGaspSmacTblGet),
};

static constinit NpCliCmdEntry g_astCmdGlbXdTxEthPad[] = {
    NP_LEAF("set", "set Xd tx eth pad len", Np_SMD_GLB_XdTxEthPadLenSet),
    NP_LEAF("get", "get Xd tx eth pad len", Np_SMD_GLB_XdTxEthPadLenGet),
};

constinit NpCliCmdEntry g_astCmdGlb[] = {
    NP_GROUP("table", "set glb table", g_astCmdGlbTable),
    NP_GROUP("version", "get version", g_astCmdGlbVersion),
    NP_GROUP("dying_gasp", "get dying gasp", g_astCmdGlbDyingGasp),
    NP_GROUP("dying_gasp_smac", "get dying gasp smac", g_astCmdGlbDyingGaspSmac),
    NP_GROUP("xd_tx_eth_pad", "xd_tx_eth_pad op", g_astCmdGlbXdTxEthPad),
};

static constinit NpCliCmdEntry g_astCmdL2Multiservicetbl[] = {
    NP_LEAF("set", "multiservicetbl set", NP_SMD_L2_MultiServiceTbl_Set),
    NP_LEAF("get", "multiservicetbl get", NP_SMD_L2_MultiServiceTbl_Get),
    NP_LEAF("del", "multiservicetbl del", Np_SMD_L2_MultiServiceTbl_Del),
};

static constinit NpCliCmdEntry g_astCmdL2Defaultflowidtbl[] = {
    NP_LEAF("set", "defaultflowidtbl set", NP_SMD_L2_DefaultFlowIDTbl_Set),
    NP_LEAF("get", "defaultflowidtbl get", NP_SMD_L2_DefaultFlowIDTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Iflowtbl[] = {
    NP_LEAF("set", "iflowtbl set", Np_SMD_L2_IflowTblTbl_Set),
    NP_LEAF("setext", "iflowexttbl set", Np_SMD_L2_IflowExtTblTbl_Set),
    NP_LEAF("get", "iflowtbl get", Np_SMD_L2_IflowTblTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Oflowtbl[] = {
    NP_LEAF("set", "oflowtbl set", Np_SMD_L2_OflowTblTbl_Set),
    NP_LEAF("get", "oflowtbl get", Np_SMD_L2_OflowTblTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Flowbundletbl[] = {
    NP_LEAF("set", "flowbundletbl set", Np_SMD_L2_FlowBundleTbl_Set),
    NP_LEAF("get", "flowbundletbl get", Np_SMD_L2_FlowBundleTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2L2encptbl[] = {
    NP_LEAF("set", "l2encptbl set", Np_SMD_L2_L2EncpTbl_Set),
    NP_LEAF("get", "l2encptbl get", Np_SMD_L2_L2EncpTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Dmactbl[] = {
    NP_LEAF("set", "dmactbl set", Np_SMD_L2_DmacTbl_Set),
    NP_LEAF("get", "dmactbl get", Np_SMD_L2_DmacTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Smacpooltbl[] = {
    NP_LEAF("set", "smacpooltbl set", Np_SMD_L2_SmacPoolTbl_Set),
    NP_LEAF("get", "smacpooltbl get", Np_SMD_L2_SmacPoolTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Flowlmttbl[] = {
    NP_LEAF("set", "flowlmttbl set", Np_SMD_L2_FlowLmtTbl_Set),
    NP_LEAF("get", "flowlmttbl get", Np_SMD_L2_FlowLmtTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Cmlmttbl[] = {
    NP_LEAF("set", "cmlmttbl set", Np_SMD_L2_CmLmtTbl_Set),
    NP_LEAF("get", "cmlmttbl get", Np_SMD_L2_CmLmtTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Bundlelmttbl[] = {
    NP_LEAF("set", "bundlelmttbl set", Np_SMD_L2_BundleLmtTbl_Set),
    NP_LEAF("get", "bundlelmttbl get", Np_SMD_L2_BundleLmtTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Cmgrouptbl[] = {
    NP_LEAF("set", "cm group tbl set", Np_SMD_L2_CmGroupTbl_Set),
    NP_LEAF("get", "cm group tbl get", Np_SMD_L2_CmGroupTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Cmclasstbl[] = {
    NP_LEAF("set", "cm class tbl set", Np_SMD_L2_CmClassTbl_Set),
    NP_LEAF("get", "cm class tbl get", Np_SMD_L2_CmClassTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Globemaclmt[] = {
    NP_LEAF("set", "globe mac limit tbl set", Np_SMD_L2_GlobalMacLmtTbl_Set),
    NP_LEAF("get", "globe mac limit tbl get", Np_SMD_L2_GlobalMacLmtTbl_Get),
};

static constinit NpCliCmdEntry g_astCmdL2Gemportmap[] = {
    NP_LEAF("set", "gemportmaptbl set", Np_SMD_L2_GemportMapTbl_Set),
    NP_LEAF("get", "gemportmaptbl get", Np_SMD_L2_GemportMapTbl_Get),
    NP_LEAF("del", "gemportmaptbl get", Np_SMD_L2_GemportMapTbl_Del),
};

constinit NpCliCmdEntry g_astCmdL2[] = {
    NP_LEAF("init", "l2 init", NP_SMD_L2_Init),
    NP_LEAF("pri_init", "pri init", NP_SMD_Pri_Init),
    NP_LEAF("dump", "dump soft tbl", NP_SMD_L2_SoftTbl_Dump),
    NP_GROUP("multiservicetbl", "multiservicetbl op", g_astCmdL2Multiservicetbl),
    NP_GROUP("defaultflowidtbl", "defaultflowidtbl op", g_astCmdL2Defaultflowidtbl),
    NP_GROUP("iflowtbl", "iflowtbl op", g_astCmdL2Iflowtbl),
    NP_GROUP("oflowtbl", "oflowtbl op", g_astCmdL2Oflowtbl),
    NP_GROUP("flowbundletbl", "flowbundletbl op", g_astCmdL2Flowbundletbl),
    NP_GROUP("l2encptbl", "l2encptbl op", g_astCmdL2L2encptbl),
    NP_GROUP("dmactbl", "dmactbl op", g_astCmdL2Dmactbl),
    NP_GROUP("smacpooltbl", "smacpooltbl op", g_astCmdL2Smacpooltbl),
    NP_GROUP("flowlmttbl", "flowlmttbl op", g_astCmdL2Flowlmttbl),
    NP_GROUP("cmlmttbl", "cmlmttbl op", g_astCmdL2Cmlmttbl),
    NP_GROUP("bundlelmttbl", "bundlelmttbl op", g_astCmdL2Bundlelmttbl),
    NP_GROUP("cmgrouptbl", "cmgrouptbl op", g_astCmdL2Cmgrouptbl),
    NP_GROUP("cmclasstbl", "cmclasstbl op", g_astCmdL2Cmclasstbl),
    NP_GROUP("globemaclmt", "globe mac limit tbl op", g_astCmdL2Globemaclmt),
    NP_GROUP("gemportmap", "gemport map tbl op", g_astCmdL2Gemportmap),
};
