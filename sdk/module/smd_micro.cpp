// Commands on the microcode image: loading one, and the version of the one that is loaded.
#include "ldsdk/micro.h"
#include "platform/os.h"
#include "sdk/frame/registry.h"
#include "sdk/module/cli/cli.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/smd_rows.h"
#include "sdk/module/tree.h"

uint32_t Np_SMD_ATOM_Load(void)
{
    NpMicroLoad stLoad = {};
    if (Np_SMD_RowScan(&g_stMicroLoadArgs, &stLoad, true) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    // The words of a line may name anything, and the load would write there.
    uint32_t ulReturn = NP_ERR_ADDRESS;
    if (Os_ImageGet(stLoad.ulAddress, stLoad.ulLength, true) != nullptr) {
        ulReturn = Np_Micro_Load(g_ulNpCurrentChipID, &stLoad);
        Os_ImagePut(stLoad.ulAddress);
    }
    else {
        Os_Print("\n\r No image of %u bytes is registered at 0x%08x!", stLoad.ulLength,
                 stLoad.ulAddress);
    }
    if (ulReturn != NP_OK) {
        Np_PUB_SMD_PrintReturnValue(ulReturn);
        Np_PUB_SMD_ReturnValue(NP_SMD_ERROR);
        return 1;
    }
    Np_PUB_SMD_ReturnValue(NP_SMD_SUCCESS);
    return 0;
}

uint32_t Np_SMD_ATOM_NpVersion(void)
{
    if (Np_SMD_EndCheck() != 0) {
        return 1;
    }
    const NpMicroVersion &stVersion = g_stNpMicroVersion[g_ulNpCurrentChipID];
    if (stVersion.ulValid == 1) {
        Os_Print("\r\n NP   compile date:%s %s %s,version:%s%s, user define:%s", stVersion.szMonth,
                 stVersion.szDay, stVersion.szYear, stVersion.szVerHigh, stVersion.szVerLow,
                 stVersion.szUserDefine);
    }
    else {
        Os_Print("\r\n NP   compile date :  unknow  ");
    }
    Np_PUB_SMD_ReturnValue(NP_SMD_SUCCESS);
    return 0;
}
