// Commands of IP-QAM. This family has none of its tables, so that no node of the command tree leads
// to the group; every command answers what the exported functions do.
#pragma once

#include "sdk/module/cli/cli.h"

extern "C" {

extern NpCliCmdEntry g_stNpSdkIpqamCmds[7];
extern NpCliCmdEntry g_stNpSdkIpqamPgidMapCmds[5];
extern NpCliCmdEntry g_stNpSdkIpqamPmtMapCmds[5];
extern NpCliCmdEntry g_stNpSdkIpqamNpidMapCmds[5];
extern NpCliCmdEntry g_stNpSdkIpqamVerInfoCmds[2];
extern NpCliCmdEntry g_stNpSdkIpqamChanMapCmds[2];
extern NpCliCmdEntry g_stNpSdkIpqamEncInfoCmds[2];
extern NpCliCmdEntry g_stNpSdkIpqamTxTimeMsgCmds[1];

}  // extern "C"
