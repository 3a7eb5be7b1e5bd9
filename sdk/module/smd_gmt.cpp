// Commands on GEM port mapping rules and the CESoP map that only take a key, or a whole rule.
#include "ldsdk/port.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/tree.h"
#include "sdk/tables/gmt.h"
#include "sdk/tables/port_other.h"

uint32_t Np_SMD_GmtTbl_Del(void)
{
    NpPortGmtKey stKey = {};
    if (Np_SMD_RowScan(&g_stGmtIndexArgs, &stKey.ulGemportIndex, true) != 0 ||
        Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_GmtTbl_Del(g_ulNpCurrentChipID, &stKey));
}

// What the line does not name is 0, where set keeps what the row has.
uint32_t Np_SMD_GmtTbl_Set_Full(void)
{
    uint32_t ulIndex = 0;
    NpGmtRule stRule = {};
    if (Np_SMD_RowScan(&g_stGmtIndexArgs, &ulIndex, true) != 0 ||
        Np_SMD_RowScanMenu(&g_stGmtRuleArgs, &stRule) != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_GmtRule_Set(g_ulNpCurrentChipID, ulIndex, &stRule));
}

uint32_t Np_SMD_CesopMapTbl_Del(void)
{
    NpPortCesopKey stKey = {};
    const NpPortCesopData stData = {};
    if (Np_SMD_RowScan(&g_stCesopKeyRow, &stKey, true) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_CesopMapTbl_Del(g_ulNpCurrentChipID, &stKey, &stData));
}
