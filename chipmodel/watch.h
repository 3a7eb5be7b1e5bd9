// One word tells the hot paths whether anybody watches: off, a crossing costs one test.
#pragma once

#include <cstdint>

namespace ldsdk::model {

inline constexpr uint32_t kWatchJournal = 1;
inline constexpr uint32_t kWatchFaults = 2;

extern uint32_t g_watch;

inline bool watched(uint32_t what)
{
    return __builtin_expect((g_watch & what) != 0, 0);
}

}  // namespace ldsdk::model
