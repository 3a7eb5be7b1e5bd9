// Waiting a little before going to sleep: an answer mostly comes sooner than a sleeper wakes up.
#pragma once

#include <sched.h>
#include <chrono>

namespace ldsdk::tool {

// Calls ready() until it is true or a short time is over; gives what it gave last. The processor
// goes to whoever else wants it in between.
template <typename Ready>
bool spin_until(Ready ready)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::microseconds kSpin(50);
    if (ready()) {
        return true;
    }
    const Clock::time_point end = Clock::now() + kSpin;
    do {
        ::sched_yield();
        if (ready()) {
            return true;
        }
    } while (Clock::now() < end);
    return false;
}

}  // namespace ldsdk::tool
