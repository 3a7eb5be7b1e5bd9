#include "sdk/frame/bringup.h"

#include "ldsdk/status.h"
#include "platform/driver.h"
#include "platform/os.h"
#include "sdk/access/bus.h"
#include "sdk/access/smem.h"
#include "sdk/access/stack.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/frame/registry.h"

constinit uint8_t g_aucNpInitFlag[NP_CHIP_NUM] = {};
constinit uint32_t *g_pastNpDfxMirrorInfo[NP_CHIP_NUM] = {};

extern "C" {
#define NP_BRINGUP(group, call, message, state) NpStepOf_##group call;
#define NP_TEARDOWN(call, message, state) NpStepOf_TEARDOWN call;
#define NP_PRI_ASSIGN(type, call, state) NpStepOf_ANALYSIS call;
using NpStepOf_TABLES = uint32_t(uint32_t ulChipID);
using NpStepOf_ANALYSIS = uint32_t(uint32_t ulChipID, const NpPriBlock *pstPriBlock);
using NpStepOf_LATE = NpStepOf_TABLES;
using NpStepOf_FINAL = NpStepOf_TABLES;
using NpStepOf_SWITCH = NpStepOf_TABLES;
using NpStepOf_DFX = NpStepOf_TABLES;
using NpStepOf_TEARDOWN = NpStepOf_TABLES;
#include "sdk/frame/bringup_list.h"
}

namespace {

enum NpStepGroup : uint32_t {
    NP_GROUP_TABLES,
    NP_GROUP_ANALYSIS,
    NP_GROUP_LATE,
    NP_GROUP_FINAL,
    NP_GROUP_SWITCH,
    NP_GROUP_DFX,
    NP_GROUP_TEARDOWN,
};

struct NpStep {
    NpStepGroup enGroup;
    const char *pszName;            // as its failure is traced
    NpStepOf_TABLES *pfnStep;       // of a step that takes the chip alone
    NpStepOf_ANALYSIS *pfnPriStep;  // of a step that takes the priority blocks too
};

constexpr NpStep Np_Landed(NpStepGroup enGroup, const char *pszName, NpStepOf_TABLES *pfnStep)
{
    return {enGroup, pszName, pfnStep, nullptr};
}

[[maybe_unused]] constexpr NpStep Np_Landed(NpStepGroup enGroup, const char *pszName,
                                            NpStepOf_ANALYSIS *pfnStep)
{
    return {enGroup, pszName, nullptr, pfnStep};
}

constexpr NpStep Np_Pending(NpStepGroup enGroup, const char *pszName)
{
    return {enGroup, pszName, nullptr, nullptr};
}

#define NP_STEP_LANDED(group, call, message) Np_Landed(NP_GROUP_##group, message, call),
#define NP_STEP_PENDING(group, call, message) Np_Pending(NP_GROUP_##group, message),

// Both lists, one behind the other; a group's rows stand in the order in which they run.
constexpr NpStep g_astNpStep[] = {
#define NP_BRINGUP(group, call, message, state) NP_STEP_##state(group, call, message)
#define NP_TEARDOWN(call, message, state) NP_STEP_##state(TEARDOWN, call, message)
#include "sdk/frame/bringup_list.h"
};

#define NP_ASSIGN_LANDED(call) call
#define NP_ASSIGN_PENDING(call) nullptr

// Who lays out the priority blocks of a type, by type.
constexpr NpStepOf_ANALYSIS *g_apfnPriAssign[] = {
#define NP_PRI_ASSIGN(type, call, state) NP_ASSIGN_##state(call),
#include "sdk/frame/bringup_list.h"
};

inline constexpr uint32_t NP_PRI_TYPE_NUM = 5;  // the last one has nobody
inline constexpr uint32_t NP_CAR_REFRESH_PERIOD = 1000;

// Runs the steps of a group that are there, up to the first failure, which is traced.
uint32_t Np_StepsRun(uint32_t ulChipID, NpStepGroup enGroup, const NpPriBlock *pstPriBlock,
                     NpWhere stWhere = Np_Here())
{
    for (const NpStep &stStep : g_astNpStep) {
        if (stStep.enGroup != enGroup) {
            continue;
        }
        uint32_t ulReturn = NP_OK;
        if (stStep.pfnStep != nullptr) {
            ulReturn = stStep.pfnStep(ulChipID);
        }
        if (stStep.pfnPriStep != nullptr) {
            ulReturn = stStep.pfnPriStep(ulChipID, pstPriBlock);
        }
        if (ulReturn != NP_OK) {
            NP_TRACE_AT(stWhere, NP_M_INIT, NP_PRINT_ERROR,
                        "%s failed, chipid=0x%08x, ulReturn=0x%08x\r\n", stStep.pszName, ulChipID,
                        ulReturn);
            return ulReturn;
        }
    }
    return NP_OK;
}

// A module's failure: everything goes down again, and the caller learns no more than that.
uint32_t Np_StepsOrRollback(uint32_t ulChipID, NpStepGroup enGroup, const NpPriBlock *pstPriBlock,
                            NpWhere stWhere = Np_Here())
{
    if (Np_StepsRun(ulChipID, enGroup, pstPriBlock, stWhere) == NP_OK) {
        return NP_OK;
    }
    Np_Tarn_INIT_SdkDestruct(ulChipID);  // may itself stop early; the chip then stays marked
    Np_PrintLevelClose();
    return NP_ERR_INIT;
}

uint32_t Np_AtomsModeSet(uint32_t ulChipID, uint32_t ulMode, const char *pszMode)
{
    const uint32_t ulAtomNum = Np_GLB_CapGet(NP_CAP_ATOM_NUM);
    for (uint32_t ulAtomID = 0; ulAtomID < ulAtomNum; ulAtomID++) {
        const uint32_t ulReturn = Qd_PBA_AtomModeSet(ulChipID, ulAtomID, ulMode);
        if (ulReturn != NP_OK) {
            Np_RecordErrInfo(ulChipID, ulReturn, 0);
            Os_Print("\n\r Qd_PBA_AtomModeSet %s fail! chipid=%u,atomid=%u,ulReturn = 0x%x",
                     pszMode, ulChipID, ulAtomID, ulReturn);
            return ulReturn;
        }
    }
    return NP_OK;
}

// L2 and L3 analysis share one request: three priorities in 30, 30 and 40 percent of the table.
// It names ten, as the software tables have room for.
uint32_t Np_AnalysisInit(uint32_t ulChipID, NpWhere stWhere = Np_Here())
{
    NpPriBlock *pstPriBlock = static_cast<NpPriBlock *>(Os_Alloc(sizeof(NpPriBlock)));
    if (pstPriBlock == nullptr) {
        NP_TRACE_AT(stWhere, NP_M_INIT, NP_PRINT_ERROR, "memory alloc failed!\r\n");
        return NP_ERR_NO_MEMORY;
    }
    pstPriBlock->ulMaxPriNum = 10;
    pstPriBlock->ulPriPercent[0] = 30;
    pstPriBlock->ulPriPercent[1] = 30;
    pstPriBlock->ulPriPercent[2] = 40;
    const uint32_t ulReturn = Np_StepsOrRollback(ulChipID, NP_GROUP_ANALYSIS, pstPriBlock, stWhere);
    Os_Free(pstPriBlock);
    return ulReturn;
}

// The part of bring-up before the modules: nothing of it is rolled back.
uint32_t Np_ChipPrepare(uint32_t ulChipID, NpWhere stWhere = Np_Here())
{
    NpSdkVersionInfo stVersion;
    uint32_t ulReturn = Np_SdkVersion_Get(ulChipID, &stVersion);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_INIT, NP_PRINT_ERROR, "Np_SdkVersion_Get(%d) return: %d",
                    static_cast<int>(ulChipID), static_cast<int>(ulReturn));
        return ulReturn;
    }
    ulReturn = Np_AtomsModeSet(ulChipID, QD_PBA_MODE_PULL, "pull");
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_Tarn_SmemInit(ulChipID);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_INIT, NP_PRINT_ERROR,
                    "Np_Tarn_SmemInit failed, chipid=0x%08x, ulReturn=0x%08x\r\n", ulChipID,
                    ulReturn);
        return ulReturn;
    }
    ulReturn = Np_Tarn_Phy_Addr_Map();
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_INIT, NP_PRINT_ERROR, "Np_Tarn_Phy_Addr_Map fail!\r\n");
    }
    return ulReturn;
}

}  // namespace

uint32_t Np_CarRefreshStart(uint32_t ulChipID)
{
    return Np_CarRefresh_Msg(ulChipID, 1, NP_CAR_REFRESH_PERIOD);
}

uint32_t Np_CarRefreshStop(uint32_t ulChipID)
{
    return Np_CarRefresh_Msg(ulChipID, 0, 0);
}

uint32_t Np_Tarn_INIT_SdkInit(uint32_t ulChipID)
{
    NP_TRACE(NP_M_INIT, NP_PRINT_TRACE, "Begin Init,ChipID=0x%08x\r\n", ulChipID);
    if (Np_MasterChipGet(ulChipID) == NP_OK) {
        Np_PrintLevelInit();
    }
    if (g_aucNpInitFlag[ulChipID] == 1) {
        NP_TRACE(NP_M_INIT, NP_PRINT_ERROR, " Repeat SDKInit chip!(%08x)", ulChipID);
        return NP_ERR_FAIL;
    }
    g_aucNpInitFlag[ulChipID] = 1;
    Np_ClearWatchDog();
    uint32_t ulReturn = Np_ChipPrepare(ulChipID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_StepsOrRollback(ulChipID, NP_GROUP_TABLES, nullptr);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_AnalysisInit(ulChipID);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_StepsOrRollback(ulChipID, NP_GROUP_LATE, nullptr);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_AtomsModeSet(ulChipID, QD_PBA_MODE_NORMAL, "normal");
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_StepsOrRollback(ulChipID, NP_GROUP_FINAL, nullptr);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return Np_StepsRun(ulChipID, NP_GROUP_SWITCH, nullptr);
}

uint32_t Np_Tarn_INIT_SdkDestruct(uint32_t ulChipID)
{
    NP_TRACE(NP_M_INIT, NP_PRINT_TRACE, "in ulChipID=0x%08x\r\n", ulChipID);
    Np_ClearWatchDog();
    const uint32_t ulReturn = Np_StepsRun(ulChipID, NP_GROUP_TEARDOWN, nullptr);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    g_aucNpInitFlag[ulChipID] = 0;
    NP_TRACE(NP_M_INIT, NP_PRINT_TRACE, "out Return=0x%08x", NP_OK);
    return NP_OK;
}

uint32_t Np_Tarn_INIT_PriBlockAssign(uint32_t ulChipID, uint32_t ulType,
                                     const NpPriBlock *pstPriBlock)
{
    NP_TRACE(NP_M_INIT, NP_PRINT_TRACE, "in ulChipID=0x%08x ulType=0x%08x pstPriBlock=0x%08x\r\n",
             ulChipID, ulType, static_cast<uint32_t>(reinterpret_cast<uintptr_t>(pstPriBlock)));
    if (pstPriBlock == nullptr) {
        NP_TRACE(NP_M_INIT, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    if (ulType >= NP_PRI_TYPE_NUM) {
        NP_TRACE(NP_M_INIT, NP_PRINT_ERROR, "param error! ulType=0x%08x\r\n", ulType);
        return NP_ERR_PARAM;
    }
    constexpr uint32_t ulPriMax = sizeof(pstPriBlock->ulPriPercent) / sizeof(uint32_t);
    for (uint32_t i = 0; i < pstPriBlock->ulMaxPriNum && i < ulPriMax; i++) {
        NP_TRACE(NP_M_INIT, NP_PRINT_TRACE, "ulPriPercent[%d]=0x%08x\r\n", static_cast<int>(i),
                 pstPriBlock->ulPriPercent[i]);
    }
    if (ulType >= sizeof(g_apfnPriAssign) / sizeof(g_apfnPriAssign[0])) {
        NP_TRACE(NP_M_INIT, NP_PRINT_ERROR, "[ERROR] Para Error!!! ulType=0x%08x\r\n", ulType);
        return NP_ERR_PARAM;
    }
    if (g_apfnPriAssign[ulType] == nullptr) {
        return NP_ERR_UNREGISTERED;
    }
    const uint32_t ulReturn = g_apfnPriAssign[ulType](ulChipID, pstPriBlock);
    if (ulReturn != NP_OK) {
        NP_TRACE(NP_M_INIT, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

uint32_t Np_Tarn_DFX_Init(uint32_t ulChipID)
{
    const uint32_t ulSize = Np_GLB_CapGet(NP_CAP_MIRROR_GROUP_NUM) * sizeof(uint32_t);
    Np_Tarn_DFX_Destruct(ulChipID);  // a repeated bring-up starts from cleared words
    g_pastNpDfxMirrorInfo[ulChipID] = static_cast<uint32_t *>(Os_Alloc(ulSize));
    if (g_pastNpDfxMirrorInfo[ulChipID] == nullptr) {
        NP_TRACE(NP_M_DFX, NP_PRINT_ERROR, "memory alloc failed!\r\n");
        return NP_ERR_NO_MEMORY;
    }
    // Diagnosis that can't start is traced and does not hold the chip back.
    Np_StepsRun(ulChipID, NP_GROUP_DFX, nullptr);
    return NP_OK;
}

uint32_t Np_Tarn_DFX_Destruct(uint32_t ulChipID)
{
    Np_FreeAndForget(&g_pastNpDfxMirrorInfo[ulChipID]);
    return NP_OK;
}
