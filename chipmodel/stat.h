// Counters of the data path's blocks, and the order engine's timeout queue.
#pragma once

#include "chipmodel/traffic.h"

namespace ldsdk::model {

class Chip;

inline constexpr uint32_t kStatMax = 77;  // counters of the largest block

struct Statistics {
    uint32_t counter[kStatBlockNum][kStatMax];
    uint32_t detect;  // the order engine looks for packets that overstay
    uint32_t period;
    uint32_t timeout[kOrderTimeoutNum];
    uint32_t timeout_first;  // both count on
    uint32_t timeout_end;

    uint32_t *of(StatBlock block)
    {
        return counter[static_cast<uint32_t>(block)];
    }
};

// Takes the packet off the head of the timeout queue. kErrParam when it is not the one there.
uint32_t order_timeout_flush(Chip &chip, uint32_t packet);

}  // namespace ldsdk::model
