#include "sdk/frame/registry.h"

#include "ldsdk/init.h"
#include "sdk/access/counter.h"
#include "sdk/access/regtable.h"
#include "sdk/access/smem.h"
#include "sdk/access/stack.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/frame/bringup.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/lcam.h"
#include "sdk/tables/acl.h"

constinit uint32_t g_aulNpFamilyOption[NP_OPTION_NUM] = {};

namespace {

constinit bool g_bFirstRegistration = true;

// Classes above this are refused; class 0 is known but not served.
inline constexpr uint32_t NP_CHIP_CLASS_MAX = 2;

// Product forms that the family serves; the others register nothing.
inline constexpr uint32_t NP_CHIP_ATTR_MXU = 0;
inline constexpr uint32_t NP_CHIP_ATTR_XGPON = 4;

bool Np_ChipIsServed(uint32_t ulChipClass, uint32_t ulChipAttr)
{
    return (ulChipClass == 1 || ulChipClass == 2) &&
           (ulChipAttr == NP_CHIP_ATTR_MXU || ulChipAttr == NP_CHIP_ATTR_XGPON);
}

uint32_t Np_AllRecordsClear(void)
{
    constexpr NpChipAddr stEmpty = {};
    for (uint32_t ulChipID = 0; ulChipID < NP_CHIP_NUM; ulChipID++) {
        const uint32_t ulReturn = Np_Chip_AddrSet(ulChipID, &stEmpty);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

// What an option chooses between, by its value.
struct NpAclVariant {
    const NpLcamConfig *pstLcam;
    uint32_t ulLcamNum;
    uint32_t (*pfnStart)(uint32_t ulChipID);
};

uint32_t Np_NoStart(uint32_t)
{
    return NP_OK;
}

constexpr NpAclVariant g_astAclVariant[] = {
    {g_stNpLcamConfig_TarnB, NP_LCAM_TABLE_NUM, Np_NoStart},
    {g_stNpLcamConfig_TarnBAcl, NP_LCAM_ADDR_NUM, Np_Tarn_Acl_Init},
};

constexpr const char *g_apszOption[NP_OPTION_NUM] = {"acl"};

}  // namespace

uint32_t Np_FamilyOptionSet(const char *pszName, uint32_t ulValue)
{
    if (pszName == nullptr) {
        return NP_ERR_NULL_PTR;
    }
    for (const uint8_t ucInit : g_aucNpInitFlag) {
        if (ucInit != 0) {
            return NP_ERR_FAIL;
        }
    }
    for (uint32_t i = 0; i < NP_OPTION_NUM && ulValue <= 1; i++) {
        if (Np_StrCmp(g_apszOption[i], pszName) != 0) {
            continue;
        }
        g_aulNpFamilyOption[i] = ulValue;
        for (uint32_t ulChipID = 0; ulChipID < NP_CHIP_NUM; ulChipID++) {
            if (g_stNpChipAddr[ulChipID].ulRegistered != 0) {
                Np_GLB_TarnBVariableInit(ulChipID);
            }
        }
        return NP_OK;
    }
    return NP_ERR_PARAM;
}

uint32_t Np_AclStart(uint32_t ulChipID)
{
    return g_astAclVariant[g_aulNpFamilyOption[NP_OPTION_ACL]].pfnStart(ulChipID);
}

// Whatever a family's tables are to a chip is listed here, and nowhere else.
void Np_GLB_TarnBVariableInit(uint32_t ulChipID)
{
    g_stNpEmlConfig[ulChipID] = g_stNpEmlConfig_TarnB;
    const NpAclVariant &stAcl = g_astAclVariant[g_aulNpFamilyOption[NP_OPTION_ACL]];
    g_stNpLcamConfig[ulChipID] = stAcl.pstLcam;
    g_aulNpLcamTableNum[ulChipID] = stAcl.ulLcamNum;
    g_astNpMultiServiceLcamAddrBlockConfig[ulChipID] = g_astNpMultiServiceLcamAddrBlockConfig_TarnB;
    g_pstNpLcamAddrConfig[ulChipID] = g_pstNpLcamAddrConfig_TarnB;
    g_asttarnNpCntConfigDesc[ulChipID] = g_asttarnNpCntConfigDesc_TarnB;
    g_aulNpSmemCopAddr[ulChipID] = g_aulNpSmemCopAddr_TarnB;
    g_aulNpSmemInitParam[ulChipID] = g_aulNpSmemInitParam_TarnB;
    g_stNpSDKFunc[ulChipID] = g_stNpSDKFuncInit_TarnB;
    g_astNpStackInfo[ulChipID] = g_astNpStackInfo_TarnB;
    g_aulStackNum[ulChipID] = g_ulStackNum_TarnB;
}

uint32_t Np_GLB_ChipRegister(uint32_t ulChipID, uint32_t ulChipClass, uint32_t ulChipAttr,
                             uintptr_t ulRegBaseAddr)
{
    NP_TRACE(NP_M_COMM, NP_PRINT_TRACE,
             "in ulChipID=0x%08x ulChipClass=0x%08x ulRegBaseAddr=0x%08x ", ulChipID, ulChipClass,
             static_cast<uint32_t>(ulRegBaseAddr));
    if (ulChipID >= NP_CHIP_NUM) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, " ulChipID para error!(%08x)", ulChipID);
        return NP_ERR_CHIP_ID;
    }
    if (ulChipClass > NP_CHIP_CLASS_MAX) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "chip class error = 0x%08x", ulChipClass);
        return NP_ERR_CHIP_VERSION;
    }
    uint32_t ulReturn = NP_OK;
    if (g_bFirstRegistration) {
        g_bFirstRegistration = false;
        ulReturn = Np_AllRecordsClear();
        if (ulReturn != NP_OK) {
            NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "op failed! ulReturn=%d",
                     static_cast<int>(ulReturn));
            return ulReturn;
        }
    }
    if (Np_ChipIsServed(ulChipClass, ulChipAttr)) {
        Np_GLB_TarnBVariableInit(ulChipID);
        const NpChipAddr stChipAddr = {.ulRegBaseAddr = ulRegBaseAddr,
                                       .pstRegTable = g_astNpRegTableDesc_TarnB,
                                       .pstRegGroupTable = nullptr,
                                       .usRegTableNum = NP_REG_TABLE_NUM,
                                       .usRegGroupNum = 0,
                                       .ulRegistered = 1,
                                       .ulRefCount = 1,
                                       .pulRegGroupOffset = nullptr};
        ulReturn = Np_Chip_AddrSet(ulChipID, &stChipAddr);
        if (ulReturn != NP_OK) {
            NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "op failed! ulReturn=%d",
                     static_cast<int>(ulReturn));
            return ulReturn;
        }
        g_aulNpGlbCap[ulChipID] = g_aulNpTarnBGlbCap.data();
        g_aulNpChipAttr[ulChipID] = {ulChipClass, ulChipAttr};
    }
    NP_TRACE(NP_M_COMM, NP_PRINT_TRACE, "out Return=0x%08x", ulReturn);
    return ulReturn;
}

uint32_t Np_GLB_ChipCancel(uint32_t ulChipID)
{
    NP_TRACE(NP_M_COMM, NP_PRINT_TRACE, "in ulChipID=0x%08x  \r\n", ulChipID);
    NpChipAddr stChipAddr = {};
    if (Np_Chip_AddrGet(ulChipID, &stChipAddr) == NP_OK && stChipAddr.ulRegistered == 1 &&
        stChipAddr.ulRefCount < 2) {
        constexpr NpChipAddr stEmpty = {};
        Np_Chip_AddrSet(ulChipID, &stEmpty);
    }
    NP_TRACE(NP_M_COMM, NP_PRINT_TRACE, "out Return=0x%08x", NP_OK);
    return NP_OK;
}

uint32_t Np_INIT(uint32_t ulChipID, uint32_t ulChipClass, uint32_t ulChipAttr,
                 uintptr_t ulRegBaseAddr)
{
    uint32_t ulReturn = Np_GLB_ChipRegister(ulChipID, ulChipClass, ulChipAttr, ulRegBaseAddr);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_INIT_SdkInit(ulChipID);
    if (ulReturn != NP_OK) {
        Np_INIT_SdkDestruct(ulChipID);
    }
    return ulReturn;
}
