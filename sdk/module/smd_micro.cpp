// Commands on the microcode image: loading one, and the version of the one that is loaded.
#include "ldsdk/micro.h"
#include "platform/os.h"
#include "sdk/frame/registry.h"
#include "sdk/module/cli.h"
#include "sdk/module/smd.h"
#include "sdk/module/tree.h"

namespace {

enum NpAtomLoadItem : uint32_t { NP_LOAD_ADDR, NP_LOAD_LEN };

constexpr NpSmdKeyItem g_astLoadItem[] = {
    {1, NP_SMD_NUMBER, 0, "addr", 0, -1},
    {2, NP_SMD_NUMBER, 0, "len", 0, -1},
};
constexpr NpSmdKeyTable g_stLoadTable = {g_astLoadItem, 2, nullptr, 0};

}  // namespace

uint32_t Np_SMD_ATOM_Load(void)
{
    NpMicroLoad stLoad = {};
    if (Np_SMD_PairGet(NP_LOAD_ADDR, &stLoad.ulAddress, &g_stLoadTable) != 0 ||
        Np_SMD_PairGet(NP_LOAD_LEN, &stLoad.ulLength, &g_stLoadTable) != 0 ||
        Np_SMD_EndCheck() != 0) {
        return 1;
    }
    const uint32_t ulReturn = Np_Micro_Load(g_ulNpCurrentChipID, &stLoad);
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
