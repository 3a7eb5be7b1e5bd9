// How every driver function begins: which chip, does a fault answer in its place, and the record of
// it in the journal.
#pragma once

#include "chipmodel/bytes.h"
#include "chipmodel/chip.h"
#include "chipmodel/fault.h"
#include "chipmodel/journal.h"
#include "platform/driver.h"

namespace ldsdk::model {

// The plain numbers among a call's arguments, behind the chip, in the order of its declaration.
struct CallNumbers {
    uint32_t number[5];
};

// Writes a finished call to the journal.
void call_record(Op op, uint32_t chip, const CallNumbers &numbers, uint32_t result);

// Carries a driver function out: work(Chip &) gives its result.
template <typename Work>
uint32_t driver_call(Op op, uint32_t id, const CallNumbers &numbers, Work work)
{
    Chip *chip = chip_find(id);
    uint32_t result = kErrNoChip;
    FaultHit fault = {};
    if (chip != nullptr && watched(kWatchFaults)) {
        fault = fault_check(op);
    }
    if (fault.hit) {
        result = fault.value;
    }
    else if (chip != nullptr) {
        result = work(*chip);
    }
    if (watched(kWatchJournal)) {
        call_record(op, id, numbers, result);
    }
    return result;
}

// A driver function that the model has no part for yet.
inline uint32_t not_modelled(Op op, uint32_t id, const CallNumbers &numbers)
{
    return driver_call(op, id, numbers, [](Chip &) { return kErrNotModelled; });
}

}  // namespace ldsdk::model
