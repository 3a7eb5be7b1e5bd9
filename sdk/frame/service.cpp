#include "sdk/frame/service.h"

#include "ldsdk/status.h"
#include "sdk/frame/capability.h"
#include "sdk/frame/registry.h"
#include "sdk/frame/trace.h"

#include <cstddef>

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

// Word ulWord of a group's header: its share of the name, zero behind it.
template <size_t ulSize>
constexpr NpServiceWord Np_ServiceName(const char (&szName)[ulSize], uint32_t ulWord)
{
    static_assert(ulSize <= NP_SERVICE_NAME_SIZE);
    NpServiceWord stWord = {.szName = {}};
    for (size_t ulIndex = 0; ulIndex < sizeof(stWord.szName); ulIndex++) {
        const size_t ulChar = ulWord * sizeof(stWord.szName) + ulIndex;
        stWord.szName[ulIndex] = ulChar < ulSize ? szName[ulChar] : '\0';
    }
    return stWord;
}

struct NpServicePlace {
    uint32_t ulFirst;
    uint32_t ulNext;
    bool bZero;
};

// The list must run through the table without a hole, or the words below would slip: each entry
// begins where the one before it ends. A gap takes no room in the initialiser, so that nothing but
// zeros may follow one.
consteval bool Np_ServiceListIsWhole()
{
    constexpr NpServicePlace astPlace[] = {
#define NP_SERVICE_GROUP(ulWord, szName) {ulWord, ulWord + NP_SERVICE_HEADER_WORDS, false},
#define NP_SERVICE(ulSlot, Door, Wrapper, Impl, ulArity, State) {ulSlot, ulSlot + 1, false},
#define NP_SERVICE_EMPTY(ulSlot, Door, Wrapper, ulArity) {ulSlot, ulSlot + 1, true},
#define NP_SERVICE_BARE(ulSlot, Impl, State) {ulSlot, ulSlot + 1, false},
#define NP_SERVICE_GAP(ulFirst, ulLast) {ulFirst, ulLast + 1, true},
#include "sdk/frame/service_list.h"
    };
    uint32_t ulNext = 0;
    bool bBehindGap = false;
    for (const NpServicePlace &stPlace : astPlace) {
        if (stPlace.ulFirst != ulNext || (bBehindGap && !stPlace.bZero)) {
            return false;
        }
        bBehindGap = bBehindGap || (stPlace.bZero && stPlace.ulNext - stPlace.ulFirst > 1);
        ulNext = stPlace.ulNext;
    }
    return ulNext == NP_SERVICE_WORD_NUM;
}
static_assert(Np_ServiceListIsWhole());

}  // namespace

#define NP_SERVICE_WORD_LANDED(Impl) {.pfn = reinterpret_cast<NpServiceFn>(&Impl)},
#define NP_SERVICE_WORD_PENDING(Impl) {},

// Addresses alone: the compiler lays them down as data, and nothing is left to do at start.
NpServiceWord g_stNpSDKFuncInit_TarnB[NP_SERVICE_WORD_NUM] = {
#define NP_SERVICE_GROUP(ulWord, szName)                                             \
    Np_ServiceName(szName, 0), Np_ServiceName(szName, 1), Np_ServiceName(szName, 2), \
        Np_ServiceName(szName, 3), {},
#define NP_SERVICE(ulSlot, Door, Wrapper, Impl, ulArity, State) NP_SERVICE_WORD_##State(Impl)
#define NP_SERVICE_EMPTY(ulSlot, Door, Wrapper, ulArity) {},
#define NP_SERVICE_BARE(ulSlot, Impl, State) NP_SERVICE_WORD_##State(Impl)
#include "sdk/frame/service_list.h"
};

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

#define NP_SERVICE(ulSlot, Door, Wrapper, Impl, ulArity, State) \
    NP_SERVICE_EMPTY(ulSlot, Door, Wrapper, ulArity)
#define NP_SERVICE_EMPTY(ulSlot, Door, Wrapper, ulArity)                          \
    static_assert(NpArgs<decltype(Wrapper)>::NUM == ulArity, #Wrapper);           \
    uint32_t Wrapper(NP_PARAMS_##ulArity(Wrapper))                                \
    {                                                                             \
        NpServiceFn pfnFound = nullptr;                                           \
        const uint32_t ulReturn = Np_ServiceFind(ulChipID, ulSlot, &pfnFound);    \
        if (ulReturn != NP_OK) {                                                  \
            return ulReturn;                                                      \
        }                                                                         \
        return reinterpret_cast<decltype(&Wrapper)>(pfnFound)(NP_PASS_##ulArity); \
    }
#include "sdk/frame/service_list.h"

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
