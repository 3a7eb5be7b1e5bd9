// The top of the command tree, and the groups that act on the module itself.
#include "sdk/module/tree.h"

#include "ldsdk/init.h"

static constinit NpCliCmdEntry g_astCmdChip[] = {
    NP_LEAF("get", "get operate chip", Np_PUB_SMD_ChipSwitchGet),
    NP_LEAF("set", "set operate chip", Np_PUB_SMD_ChipSwitchSet),
};

static constinit NpCliCmdEntry g_astCmdAtom[] = {
    NP_LEAF("load", "load micro bin from flash", Np_SMD_ATOM_Load),
    NP_LEAF("version", "display micro version", Np_SMD_ATOM_NpVersion),
};

static constinit NpCliCmdEntry g_astCmdPrint[] = {
    NP_LEAF("on", "print on", Np_PUB_SMD_PrintSwitchOn),
    NP_LEAF("off", "print off", Np_PUB_SMD_PrintSwitchOff),
};

static constinit NpCliCmdEntry g_astCmdFuncPrint[] = {
    NP_LEAF("on", "print on", Np_PUB_SMD_PrintFuncSwitchOn),
    NP_LEAF("off", "print off", Np_PUB_SMD_PrintFuncSwitchOff),
};

static constinit NpCliCmdEntry g_astCmdCputr[] = {
    NP_LEAF("send", "op for send packet", Np_SMD_CPUTR_SendPkt),
    NP_LEAF("receive", "op for receive packet", Np_SMD_CPUTR_ReceivePkt),
};

static constinit NpCliCmdEntry g_astCmdMicro[] = {
    NP_GROUP("chip", "set chip No.", g_astCmdChip),
    NP_GROUP("atom", "atom operation", g_astCmdAtom),
    NP_GROUP("qos", "qos info", g_astCmdQos),
    NP_GROUP("port", "port info", g_astCmdPort),
    NP_GROUP("ptype", "ptype info", g_astCmdPtype),
    NP_LEAF("prompt", "set prompt on/off", Np_SMD_DFX_Prompt),
    NP_GROUP("print", "print op", g_astCmdPrint),
    NP_GROUP("func-print", "func print op", g_astCmdFuncPrint),
    NP_GROUP("read", "read function", g_astCmdRead),
    NP_GROUP("write", "write function", g_astCmdWrite),
    NP_GROUP("mwrite", "batch write function", g_astCmdMwrite),
    NP_GROUP("clear", "clear function", g_astCmdClear),
    NP_GROUP("vlan", "vlan info", g_astCmdVlan),
    NP_GROUP("acl", "acl op", g_astCmdAcl),
    NP_GROUP("mc", "mc op", g_astCmdMc),
    NP_GROUP("glb", "glb op", g_astCmdGlb),
    NP_GROUP("table", "table op", g_astCmdTable),
    NP_GROUP("dfx", "dfx function", g_astCmdDfx),
    NP_GROUP("l2", "l2 op", g_astCmdL2),
    NP_GROUP("ha", "ha op", g_astCmdHa),
    NP_GROUP("arl", "arl op", g_astCmdArl),
    NP_GROUP("stat", "stat op", g_astCmdStat),
    NP_GROUP("l2pa", "l2pa op", g_astCmdL2pa),
    NP_GROUP("l3pa", "l3pa op", g_astCmdL3pa),
    NP_GROUP("paext", "paext op", g_astCmdPaext),
    NP_GROUP("ptt1", "ptt1 op", g_astCmdPtt1),
    NP_GROUP("tpid", "tipd op", g_astCmdTpid),
    NP_GROUP("pta", "pta op", g_astCmdPta),
    NP_GROUP("portdos", "portdos table op", g_astCmdPortdos),
    NP_GROUP("cmdos", "cmdos table op", g_astCmdCmdos),
    NP_GROUP("1xsmac", "1xsmac table op", g_astCmd1xsmac),
    NP_GROUP("ipbonding", "ipbonding table op", g_astCmdIpbonding),
    NP_GROUP("cmipbonding", "cmipbonding table op", g_astCmdCmipbonding),
    NP_GROUP("uvt", "umac_vmac table op", g_astCmdUvt),
    NP_GROUP("cputr", "cputr op", g_astCmdCputr),
    NP_GROUP("oam", "oam op", g_astCmdOam),
    NP_GROUP("debug", "micro debug operation", g_astCmdDebug),
    NP_GROUP("macfilter", "macfilter table op", g_astCmdMacfilter),
};

constinit NpCliCmdEntry g_stNpSdkCmds[1] = {
    NP_GROUP("micro", "<Group>micro op", g_astCmdMicro),
};

uint32_t Np_SdkCmdTreeInstall(void)
{
    return CLI_CamInstallCmdExt(g_stNpSdkCmds, 2);
}

uint32_t Np_INIT_SdkCmdTreeInstall(void)
{
    return Np_SdkCmdTreeInstall();
}
