// The command tree: static data, one array of records per group, in the order of the listings.
#pragma once

#include "sdk/module/cli/cli.h"

extern "C" {

#define NP_HANDLER(Name) uint32_t Name(void);
#include "sdk/module/handler_list.h"

// The whole tree: one record, "micro".
extern NpCliCmdEntry g_stNpSdkCmds[1];

}  // extern "C"

// A word that runs a handler, and a word with a further level behind it.
// clang-format off
#define NP_LEAF(szWord, szText, pfnLeaf) {szWord, szText, nullptr, 0, pfnLeaf}
#define NP_GROUP(szWord, szText, astLevel) \
    {szWord, szText, astLevel, sizeof(astLevel) / sizeof((astLevel)[0]), nullptr}
// clang-format on

// The groups below "micro" whose records stand in a file of their area.
extern NpCliCmdEntry g_astCmdQos[4];
extern NpCliCmdEntry g_astCmdPort[14];
extern NpCliCmdEntry g_astCmdPtype[3];
extern NpCliCmdEntry g_astCmdRead[2];
extern NpCliCmdEntry g_astCmdWrite[2];
extern NpCliCmdEntry g_astCmdMwrite[2];
extern NpCliCmdEntry g_astCmdClear[2];
extern NpCliCmdEntry g_astCmdVlan[6];
extern NpCliCmdEntry g_astCmdAcl[4];
extern NpCliCmdEntry g_astCmdMc[3];
extern NpCliCmdEntry g_astCmdGlb[5];
extern NpCliCmdEntry g_astCmdTable[5];
extern NpCliCmdEntry g_astCmdDfx[19];
extern NpCliCmdEntry g_astCmdL2[18];
extern NpCliCmdEntry g_astCmdHa[16];
extern NpCliCmdEntry g_astCmdArl[6];
extern NpCliCmdEntry g_astCmdStat[16];
extern NpCliCmdEntry g_astCmdL2pa[8];
extern NpCliCmdEntry g_astCmdL3pa[8];
extern NpCliCmdEntry g_astCmdPaext[2];
extern NpCliCmdEntry g_astCmdPtt1[2];
extern NpCliCmdEntry g_astCmdTpid[3];
extern NpCliCmdEntry g_astCmdPta[2];
extern NpCliCmdEntry g_astCmdPortdos[3];
extern NpCliCmdEntry g_astCmdCmdos[3];
extern NpCliCmdEntry g_astCmd1xsmac[5];
extern NpCliCmdEntry g_astCmdIpbonding[5];
extern NpCliCmdEntry g_astCmdCmipbonding[4];
extern NpCliCmdEntry g_astCmdUvt[3];
extern NpCliCmdEntry g_astCmdOam[22];
extern NpCliCmdEntry g_astCmdDebug[19];
extern NpCliCmdEntry g_astCmdMacfilter[2];
