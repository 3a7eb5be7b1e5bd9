// Commands on flows that no list makes.
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/tree.h"

#include "ldsdk/ldsdk.h"
#include "sdk/tables/l2.h"

uint32_t Np_SMD_L2_GemportMapTbl_Del(void)
{
    uint32_t ulGemportId = 0;
    if (Np_SMD_RowScan(&g_stGemportKeyRow, &ulGemportId, true) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    const NpGemportMap stNone = {};
    return Np_SMD_Report(Np_GemportMapTbl_Del(g_ulNpCurrentChipID, ulGemportId, &stNone));
}
