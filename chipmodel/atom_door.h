// The microcode engines as a host sees them: threads to look at and to disturb, packets to feed,
// branch memory, the check of instruction memory. All functions answer kErrNoChip, kErrParam for a
// number that the chip does not have, kErrNull.
#pragma once

#include "chipmodel/model.h"

#include <cstdint>

namespace ldsdk::model {

inline constexpr uint32_t kNpuNum = 4;      // of an atom
inline constexpr uint32_t kThreadNum = 10;  // of an NPU
inline constexpr uint32_t kGroupNum = 8192;
inline constexpr uint32_t kPcNum = 4 * kGroupNum;
inline constexpr uint32_t kBranchSize = 0x4000;  // bytes of each branch memory

enum class ThreadState : uint8_t {
    kHalt = 0,           // stands: at a breakpoint, between two steps, after an exception
    kRun = 1,            // works on a packet
    kWaitNewPacket = 3,  // WAIT_NPKT
};

// Exception codes of the model's own.
inline constexpr uint32_t kExceptionPc = 5;            // PC above the highest
inline constexpr uint32_t kExceptionEcc = 6;           // group with a wrong ECC word
inline constexpr uint32_t kExceptionInstruction = 14;  // no such opcode
// How they are reported.
inline constexpr uint32_t kReportTypeNum = 4;
inline constexpr uint32_t kExceptionReport = 2;

struct ThreadView {
    ThreadState state;
    uint32_t mode;       // 1 single step, 3 continuous
    uint32_t pc;         // of the last instruction, or where it stands
    uint32_t next_pc;    // 0 when the work on its packet is done
    uint32_t start_pc;   // where it begins with a packet
    uint32_t exception;  // code of the last one
    uint32_t packets;    // that it has ended
};
uint32_t thread_get(uint32_t chip, uint32_t atom, uint32_t npu, uint32_t thread, ThreadView *view);

struct AtomView {
    uint32_t max_pc;
    uint32_t exception_pc;
    uint32_t break_pc;
    bool break_armed;
    bool fed;
    bool powered;
};
uint32_t atom_get(uint32_t chip, uint32_t atom, AtomView *view);

// Packets for an atom: on, each thread that waits gets one as soon as the atom is in normal mode
// and microcode is loaded. Off at power on.
uint32_t atom_feed_set(uint32_t chip, uint32_t atom, bool on);
// Whether an atom has power; it has at power on.
uint32_t atom_power_set(uint32_t chip, uint32_t atom, bool on);
// A thread that never comes to the end of its packet, until this is taken back.
uint32_t thread_stuck_set(uint32_t chip, uint32_t atom, uint32_t npu, uint32_t thread, bool stuck);
// Stops a thread with an exception and reports it with a type, 0 to 3, at once.
uint32_t thread_exception(uint32_t chip, uint32_t atom, uint32_t npu, uint32_t thread,
                          uint32_t type, uint32_t code);

// Groups of instruction memory are checked when they are loaded, when their last word is written
// and when a thread enters them.
struct EccErrors {
    uint64_t count;
    uint32_t group;  // the last one
};
uint32_t ecc_errors_get(uint32_t chip, EccErrors *errors);
// Whether a group is right as it stands.
uint32_t group_ecc_ok(uint32_t chip, uint32_t group, bool *ok);

struct BranchView {
    uint32_t protect[2];
    uint32_t rules_size;  // bytes
    uint32_t data_size;   // bytes of the associated memory
};
uint32_t branch_get(uint32_t chip, BranchView *view);
// One word. selector: 0 rules, 1 associated memory. index: below its size / 4.
uint32_t branch_word_get(uint32_t chip, uint32_t selector, uint32_t index, uint32_t *word);

}  // namespace ldsdk::model
