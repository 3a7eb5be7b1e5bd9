// What the benchmarks share: a chip that is up, and the table of targets printed at the end.
#pragma once

#include "chipmodel/model.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace ldsdk::bench {

// Chip 0 registered and brought up on a fresh model, output thrown away. Done once a process.
void chip_up();

// Command frames that an operation sends; of one command only when it is given.
double frames_of(const std::function<void()> &work, model::RbaOp command = model::RbaOp::kUnknown);

// Tells whether two forms of an operation do the same to the chip: the same window accesses in the
// same order, whatever their values, and the same commands with the same payload.
bool same_traffic(const std::function<void()> &work, const std::function<void()> &other);

// One line of the closing table: the ratio of two benchmarks of this run (or one's own rate or
// counter), against a target. The line also has the time of `of` and,
// from its counter "frames", what that sends. Nothing is asserted.
struct Target {
    enum class Kind {
        kRatioAtMost,   // time of `of` over time of `against`, at most `limit`
        kRateAtLeast,   // operations per second of `of`, at least `limit`
        kSpeedAtLeast,  // time of `against` over time of `of`, at least `limit`
        kCounterAtMost  // counter `against` of `of`, at most `limit`
    };
    Kind kind;
    std::string of;
    std::string against;
    double limit;
    std::string meaning;
};

// Registers a target; a static object of this type in a bench file does it.
struct AddTarget {
    explicit AddTarget(Target target);
};

}  // namespace ldsdk::bench
