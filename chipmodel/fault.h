// How the doors ask whether a call is to fail. Callers test watched(kWatchFaults) first; each
// question counts as one call.
#pragma once

#include "chipmodel/model.h"
#include "chipmodel/watch.h"

namespace ldsdk::model {

struct FaultHit {
    bool hit;
    bool status;  // value is a status word, else a driver code
    uint32_t value;
};

// Counts one call of an operation, of a command inside Qd_RBA_CommandSend, against all faults.
FaultHit fault_check(Op op, RbaOp command = RbaOp::kUnknown);

}  // namespace ldsdk::model
