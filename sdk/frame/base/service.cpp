#include "sdk/frame/base/service.h"

#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/frame/base/capability.h"
#include "sdk/frame/base/chip.h"
#include "sdk/frame/base/trace.h"

namespace {

// The argument types of a function, so that the list needs only their number.
template <typename Function>
struct NpArgs;

template <typename... Args>
struct NpArgs<uint32_t(Args...)> {
    enum : uint32_t { NUM = sizeof...(Args) };
};

template <uint32_t ulIndex, typename Function>
struct NpArg;

template <uint32_t ulIndex, typename First, typename... Rest>
struct NpArg<ulIndex, uint32_t(First, Rest...)> : NpArg<ulIndex - 1, uint32_t(Rest...)> {
};

template <typename First, typename... Rest>
struct NpArg<0, uint32_t(First, Rest...)> {
    using Type = First;
};

#define NP_ARG(Wrapper, ulIndex) NpArg<ulIndex, decltype(Wrapper)>::Type

// The function at a slot of the chip's table. Makes the chip the current one.
uint32_t Np_ServiceFind(uint32_t ulChipID, uint32_t ulSlot, NpServiceFn *ppfnFound)
{
    if (Np_GLB_ChipIDIsValid(ulChipID) != NP_OK) {
        return NP_ERR_CHIP_ID;
    }
    const NpServiceWord *pstTable = g_stNpSDKFunc[ulChipID];
    if (pstTable == nullptr || pstTable[ulSlot].pfn == nullptr) {
        return NP_ERR_UNREGISTERED;
    }
    *ppfnFound = pstTable[ulSlot].pfn;
    return NP_OK;
}

}  // namespace

constinit NpServiceWord *g_stNpSDKFunc[NP_CHIP_NUM] = {};

// The wrappers. Arguments go through unchanged, the chip identifier first.
#define NP_PARAMS_1(Wrapper) NP_ARG(Wrapper, 0) ulChipID
#define NP_PARAMS_2(Wrapper) NP_PARAMS_1(Wrapper), NP_ARG(Wrapper, 1) Arg1
#define NP_PARAMS_3(Wrapper) NP_PARAMS_2(Wrapper), NP_ARG(Wrapper, 2) Arg2
#define NP_PARAMS_4(Wrapper) NP_PARAMS_3(Wrapper), NP_ARG(Wrapper, 3) Arg3
#define NP_PARAMS_5(Wrapper) NP_PARAMS_4(Wrapper), NP_ARG(Wrapper, 4) Arg4
#define NP_PARAMS_6(Wrapper) NP_PARAMS_5(Wrapper), NP_ARG(Wrapper, 5) Arg5
#define NP_PASS_1 ulChipID
#define NP_PASS_2 NP_PASS_1, Arg1
#define NP_PASS_3 NP_PASS_2, Arg2
#define NP_PASS_4 NP_PASS_3, Arg3
#define NP_PASS_5 NP_PASS_4, Arg4
#define NP_PASS_6 NP_PASS_5, Arg5

// The turn that an entry takes, by its door.
#define NP_TURN_EXPORTED Os_TurnTake(OS_TURN_SHARED)
#define NP_TURN_ALONE Os_TurnTake(OS_TURN_ALONE)
#define NP_TURN_INTERNAL OS_TURN_NESTED

#define NP_SERVICE(ulSlot, Door, Wrapper, Impl, ulArity, State) \
    NP_SERVICE_EMPTY(ulSlot, Door, Wrapper, ulArity)
#define NP_SERVICE_EMPTY(ulSlot, Door, Wrapper, ulArity)                                  \
    static_assert(NpArgs<decltype(Wrapper)>::NUM == ulArity, #Wrapper);                   \
    uint32_t Wrapper(NP_PARAMS_##ulArity(Wrapper))                                        \
    {                                                                                     \
        const OsTurn enTurn = NP_TURN_##Door;                                             \
        if (enTurn == OS_TURN_REFUSED) {                                                  \
            return NP_ERR_SEMAPHORE;                                                      \
        }                                                                                 \
        NpServiceFn pfnFound = nullptr;                                                   \
        uint32_t ulReturn = Np_ServiceFind(ulChipID, ulSlot, &pfnFound);                  \
        if (ulReturn == NP_OK) {                                                          \
            ulReturn = reinterpret_cast<decltype(&Wrapper)>(pfnFound)(NP_PASS_##ulArity); \
        }                                                                                 \
        Os_TurnGive(enTurn);                                                              \
        return ulReturn;                                                                  \
    }
#include "sdk/frame/base/service_list.h"

// Chip 0 alone, empty places included. Without a registered chip 0 there is no table size to read,
// and the first delete could only fail.
uint32_t Np_ArlTbl_DelAll(void)
{
    constexpr uint32_t NP_WATCHDOG_PASSES = 512;
    if (Np_GLB_ChipIDIsValid(0) != NP_OK) {
        return NP_ERR_DELETE;
    }
    const uint32_t ulSize = Np_GLB_CapGet(NP_CAP_ARL_TABLE_SIZE);
    for (uint32_t ulIndex = 0; ulIndex < ulSize; ulIndex++) {
        if (Np_ArlTbl_DelByIndex(0, ulIndex) != NP_OK) {
            return NP_ERR_DELETE;
        }
        if (ulIndex % NP_WATCHDOG_PASSES == NP_WATCHDOG_PASSES - 1) {
            Np_ClearWatchDog();
        }
    }
    return NP_OK;
}
