// The microcode engines: four atoms of four NPUs of ten threads, which run out of one instruction
// memory.
//
// What an instruction computes is not modelled, only where a thread goes: straight on, but for JMP
// and JMPD to an immediate PC on the condition TRUE, and for what ends a task: ENDTASK, ENDTASKD,
// HALT, and PULLNEW with a packet in hand. Conditions that depend on data count as not met. A step
// in single step mode goes up to the next instruction that hands the NPU to another thread
// (opcodes 0x10 to 0x1f) or that changes the way.
//
// Time: a thread runs kTickSteps instructions in a tick of the clock, and a few whenever its state
// is asked for, as asking takes time too. That lets a driver wait for threads while nothing else
// moves.
#pragma once

#include "chipmodel/atom_door.h"
#include "chipmodel/memory.h"
#include "platform/driver.h"

#include <cstdint>

namespace ldsdk::model {

class Chip;

inline constexpr uint32_t kAtomThreads = kNpuNum * kThreadNum;
inline constexpr uint32_t kImemBase = 0x7a080000;
inline constexpr uint32_t kGroupBytes = 32;
inline constexpr uint32_t kDelayedEnd = 0xffffffff;

struct Thread {
    ThreadState state;
    uint8_t exception;
    uint8_t reports;  // a bit for each type of event that is reported
    uint8_t pending;  // a report on its way: its type + 1
    bool single_step;
    bool hold_on;  // stays halted after an exception until its status was read
    bool held;     // is
    bool stuck;
    bool pulled;  // has taken its packet
    uint32_t pc;
    uint32_t next_pc;
    uint32_t start_pc;
    uint32_t delayed;  // where to go behind the next instruction, + 1; kDelayedEnd; 0 nowhere
    uint32_t packets;
};

struct Atom {
    uint32_t max_pc;
    uint32_t exception_pc;
    uint32_t break_pc;
    bool break_armed;
    bool fed;
    bool off;  // no power
    Thread thread[kAtomThreads];
};

struct Atoms {
    Atom atom[kAtomNum];
    QdAtomIntrHook hook;
    EccErrors ecc;
    BranchView branch;
    uint8_t branch_bytes[2][kBranchSize];
};

// Where instruction memory begins in the store.
inline constexpr uint32_t kImemOffset = [] {
    for (uint32_t row = 0; row < kRegionNum; row++) {
        if (kRegions[row].first == kImemBase) {
            return region_offset(row);
        }
    }
    return kNoOffset;
}();
static_assert(kImemOffset != kNoOffset);
// Whether a word at an offset in the store completes a group.
inline bool completes_group(uint32_t offset)
{
    return offset - kImemOffset < kGroupNum * kGroupBytes && offset % kGroupBytes == 28;
}
static_assert(kImemOffset % kGroupBytes == 0);

void atoms_power_on(Atoms &atoms);
// The clock moved on by some ticks.
void atoms_tick(Chip &chip, uint64_t ticks);
// The last word of a group was written; offset in the store.
void atoms_group_written(Chip &chip, uint32_t offset);

// What the driver's functions do. Results are the driver's.
uint32_t imem_load(Chip &chip, const void *data, uint32_t size);
uint32_t branch_write(Chip &chip, uint32_t selector, const void *data, uint32_t size);
void thread_next_pc_set(Thread &thread, uint32_t pc);
ThreadState thread_state_ask(Chip &chip, Atom &atom, Thread &thread);
void thread_active(Chip &chip, Atom &atom, Thread &thread);
// Null for a number that there is not.
Atom *atom_find(Chip &chip, uint32_t atom);
Thread *thread_find(Chip &chip, uint32_t atom, uint32_t npu, uint32_t thread);

// The ECC word that a group should have, from its first six words, as the store holds them.
uint32_t group_ecc(const uint8_t *group);

}  // namespace ldsdk::model
