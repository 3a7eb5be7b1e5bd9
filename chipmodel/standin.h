// The stand-in for the microcode: the other end of packets and messages, built from their bits
// alone. It works on the chip as microcode does: through the hash engine and the counters.
#pragma once

#include "chipmodel/traffic.h"

namespace ldsdk::model {

class Chip;

// Counters of learning that were seen with credit: flow, bundle, all.
inline constexpr uint32_t kLimitNum = 1024 + 32 + 1;

struct Standin {
    bool off;
    bool loop;
    StandinCounts counts;
    uint32_t age_ticks;           // normal age messages since the last walk
    uint32_t heartbeats_waiting;  // answers that nobody fetched
    bool limited[kLimitNum];
};

// Takes one packet or message and does what it asks for.
void standin_take(Chip &chip, const Packet &packet);

// The processor fetched a packet.
void standin_fetched(Chip &chip, const Packet &packet);

}  // namespace ldsdk::model
