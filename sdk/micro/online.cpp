// Replacing the microcode of atoms in service: packets are stopped at the door, the threads come to
// rest, the new image goes in, the threads are let go.

#include "ldsdk/micro.h"
#include "platform/driver.h"
#include "platform/os.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/trace.h"
#include "sdk/micro/thread.h"

namespace {

inline constexpr uint32_t NP_ATOM_BITMAP_MAX = 15;
inline constexpr uint32_t NP_WAIT_PASS_MAX = 8192;

// What one run works on.
struct NpOnlineLoad {
    uint32_t ulChipID;
    uint32_t ulAtomNum;
    uint32_t ulAtomBitmap;
};

// Calls fnAtom(atom) for each selected atom, up to the first failure.
template <typename Atom>
uint32_t Np_AtomWalk(const NpOnlineLoad &stRun, Atom fnAtom)
{
    for (uint32_t ulAtomID = 0; ulAtomID < stRun.ulAtomNum; ulAtomID++) {
        if ((stRun.ulAtomBitmap >> ulAtomID & 1) == 0) {
            continue;
        }
        const uint32_t ulReturn = fnAtom(ulAtomID);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
    }
    return NP_OK;
}

// Calls fnThread(atom, NPU, thread) for each thread of the selected atoms, up to the first failure.
template <typename Thread>
uint32_t Np_SelectedThreadWalk(const NpOnlineLoad &stRun, Thread fnThread)
{
    return Np_AtomWalk(stRun, [&](uint32_t ulAtomID) {
        return Np_Micro_ThreadWalk([&](uint32_t ulNpuID, uint32_t ulThreadID) {
            return fnThread(ulAtomID, ulNpuID, ulThreadID);
        });
    });
}

uint32_t Np_AtomModesSet(const NpOnlineLoad &stRun, uint32_t ulMode, const char *pszMode)
{
    return Np_AtomWalk(stRun, [&](uint32_t ulAtomID) {
        const uint32_t ulReturn = Qd_PBA_AtomModeSet(stRun.ulChipID, ulAtomID, ulMode);
        if (ulReturn != NP_OK) {
            Np_RecordErrInfo(stRun.ulChipID, ulReturn, 0);
            Os_Print("\n\r Qd_PBA_AtomModeSet %s fail! chipid=%u,atomid=%u,ulReturn = 0x%x",
                     pszMode, stRun.ulChipID, ulAtomID, ulReturn);
        }
        return ulReturn;
    });
}

// The failure of the first round is printed without its code.
uint32_t Np_ThreadsActivate(const NpOnlineLoad &stRun, bool bCodePrint)
{
    const auto fnThread = [&](uint32_t ulAtomID, uint32_t ulNpuID, uint32_t ulThreadID) {
        const uint32_t ulReturn =
            Qd_ATOM_ThreadActive(stRun.ulChipID, ulAtomID, ulNpuID, ulThreadID);
        if (ulReturn == NP_OK) {
            return ulReturn;
        }
        Np_RecordErrInfo(stRun.ulChipID, ulReturn, 0);
        Os_Print("\n\r Qd_ATOM_ThreadActive fail! chipid=%u,atomid=%u,npuid=%u,threadid=%u",
                 stRun.ulChipID, ulAtomID, ulNpuID, ulThreadID);
        if (bCodePrint) {
            Os_Print(",ulReturn = 0x%x", ulReturn);
        }
        return ulReturn;
    };
    return Np_SelectedThreadWalk(stRun, fnThread);
}

// One pass over the threads: how many of them wait for a packet.
uint32_t Np_WaitingThreadsCount(const NpOnlineLoad &stRun, uint32_t *pulWaiting)
{
    *pulWaiting = 0;
    const auto fnThread = [&](uint32_t ulAtomID, uint32_t ulNpuID, uint32_t ulThreadID) {
        uint32_t ulState = 0;
        const uint32_t ulReturn =
            Qd_ATOM_ThreadStateGet(stRun.ulChipID, ulAtomID, ulNpuID, ulThreadID, &ulState);
        if (ulReturn != NP_OK) {
            Np_RecordErrInfo(stRun.ulChipID, ulReturn, 0);
            Os_Print(
                "\n\r Qd_ATOM_ThreadStateGet fail! "
                "chipid=%u,atomid=%u,npuid=%u,threadid=%u,ulReturn = 0x%x",
                stRun.ulChipID, ulAtomID, ulNpuID, ulThreadID, ulReturn);
            return ulReturn;
        }
        *pulWaiting += ulState == QD_ATOM_STATE_WAIT_NPKT ? 1 : 0;
        return NP_OK;
    };
    return Np_SelectedThreadWalk(stRun, fnThread);
}

uint32_t Np_ThreadsAwait(const NpOnlineLoad &stRun)
{
    uint32_t ulSelected = 0;
    Np_AtomWalk(stRun, [&](uint32_t) {
        ulSelected++;
        return NP_OK;
    });
    for (uint32_t ulPass = 1;; ulPass++) {
        uint32_t ulWaiting = 0;
        const uint32_t ulReturn = Np_WaitingThreadsCount(stRun, &ulWaiting);
        if (ulReturn != NP_OK) {
            return ulReturn;
        }
        Np_ClearWatchDog();
        if (ulPass == NP_WAIT_PASS_MAX) {
            Os_Print("\r\n wait thread to WAIT_NPKT failed!");
            return NP_ERR_THREAD_STATE;
        }
        if (ulWaiting == NP_ATOM_THREAD_NUM * ulSelected) {
            return NP_OK;
        }
    }
}

uint32_t Np_ImageReplace(uint32_t ulChipID, const NpMicroLoad *pstLoad, NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_Tarn_Micro_Load(ulChipID, pstLoad);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ATOM, NP_PRINT_ERROR,
                    "Np_Tarn_Micro_Load error return: 0x%08x \r\n", ulReturn);
        return ulReturn;
    }
    ulReturn = Np_LOAD_PbaFreeThCntSet(ulChipID, 0);
    if (ulReturn != NP_OK) {
        NP_TRACE_AT(stWhere, NP_M_ATOM, NP_PRINT_ERROR,
                    "Np_Tarn_LOAD_PbaFreeThCntSet error return: 0x%08x \r\n", ulReturn);
    }
    return ulReturn;
}

// The steps that run with interrupts masked.
uint32_t Np_OnlineLoadRun(const NpOnlineLoad &stRun, const NpMicroLoad *pstLoad,
                          NpWhere stWhere = Np_Here())
{
    uint32_t ulReturn = Np_AtomModesSet(stRun, QD_PBA_MODE_ONLINE_PULL, "pull");
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_ThreadsAwait(stRun);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_ThreadsActivate(stRun, false);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_ImageReplace(stRun.ulChipID, pstLoad, stWhere);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    ulReturn = Np_ThreadsActivate(stRun, true);
    if (ulReturn != NP_OK) {
        return ulReturn;
    }
    return Np_AtomModesSet(stRun, QD_PBA_MODE_NORMAL, "normal");
}

}  // namespace

uint32_t Np_Tarn_Micro_OnlineLoad(uint32_t ulChipID, uint32_t ulAtomBitmap,
                                  const NpMicroLoad *pstLoad)
{
    if (ulAtomBitmap == 0 || ulAtomBitmap > NP_ATOM_BITMAP_MAX) {
        NP_TRACE(NP_M_ATOM, NP_PRINT_ERROR, "param error! ulAtomBitmap=0x%08x\r\n", ulAtomBitmap);
        return NP_ERR_PARAM;
    }
    if (pstLoad == nullptr) {
        NP_TRACE(NP_M_ATOM, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    const NpOnlineLoad stRun = {ulChipID, Np_GLB_CapGet(NP_CAP_ATOM_NUM), ulAtomBitmap};
    const uintptr_t ulKey = Np_IntLock();
    const uint32_t ulReturn = Np_OnlineLoadRun(stRun, pstLoad);
    Np_IntUnlock(ulKey);
    return ulReturn;
}
