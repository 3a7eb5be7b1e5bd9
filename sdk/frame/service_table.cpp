// The family's service table: the one place that knows every implementation.
#include "sdk/frame/base/service.h"

#include <cstddef>

namespace {

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
#include "sdk/frame/base/service_list.h"
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
#include "sdk/frame/base/service_list.h"
};
