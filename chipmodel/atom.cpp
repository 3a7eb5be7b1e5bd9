#include "chipmodel/atom.h"

#include "chipmodel/chip.h"

namespace ldsdk::model {

namespace {

constexpr uint32_t kTickSteps = 256;  // instructions of a thread in a tick
constexpr uint32_t kAskSteps = 16;    // while its state is asked for
constexpr uint32_t kMaxSteps = 4096;  // at a time: a thread that loops is anywhere after them
constexpr uint32_t kEccOffset = 24;   // of the ECC word in a group
constexpr uint32_t kNoGroup = 0xffffffff;

uint32_t group_offset(uint32_t group)
{
    return kImemOffset + group * kGroupBytes;
}

bool ecc_right(const Chip &chip, uint32_t group)
{
    const uint8_t *at = chip.memory.at(group_offset(group));
    return group_ecc(at) == load_le32(at + kEccOffset);
}

// Counts a group that is wrong.
bool ecc_check(Chip &chip, uint32_t group)
{
    if (ecc_right(chip, group)) {
        return true;
    }
    chip.atoms.ecc.count++;
    chip.atoms.ecc.group = group;
    return false;
}

// ---- instructions -------------------------------------------------------------------------------

struct Instruction {
    uint32_t opcode;
    uint64_t bits;
};

enum Opcode : uint32_t {
    kJmp = 0x10,
    kEndTask = 0x11,
    kPullNew = 0x1c,
    kHaltTask = 0x1f,
    kJmpd = 0x30,
    kSkip = 0x31,
    kEndTaskd = 0x34,
};

bool is_opcode(uint32_t opcode)
{
    return opcode >= 0x10 && opcode != 0x24 && opcode != 0x25 && opcode != 0x35 && opcode != 0x3e;
}

// Opcodes at which an NPU turns to another thread.
bool hands_over(uint32_t opcode)
{
    return (opcode >= 0x10 && opcode <= 0x1f) || opcode == kSkip;
}

Instruction fetch(const Chip &chip, uint32_t pc)
{
    const uint8_t *pair = chip.memory.at(group_offset(pc / 4)) + (pc % 4 / 2) * 12;
    const uint64_t middle = load_le32(pair + 4);
    uint64_t bits = 0;
    if (pc % 2 == 0) {
        bits = static_cast<uint64_t>(load_le32(pair)) << 16 | middle >> 16;
    }
    else {
        bits = (middle & 0xffff) << 32 | load_le32(pair + 8);
    }
    return {static_cast<uint32_t>(bits >> 42), bits};
}

// A jump to an immediate PC on the condition TRUE.
bool always_jumps(const Instruction &instruction)
{
    const bool immediate = (instruction.bits >> 41 & 1) != 0;
    const bool always = (instruction.bits >> 16 & 7) == 1;
    return (instruction.opcode == kJmp || instruction.opcode == kJmpd) && immediate && always;
}

// ---- threads ------------------------------------------------------------------------------------

void raise(const Atom &atom, Thread &thread, uint32_t type, uint32_t code)
{
    thread.state = ThreadState::kHalt;
    thread.exception = static_cast<uint8_t>(code);
    thread.next_pc = atom.exception_pc;
    thread.delayed = 0;
    thread.held = true;
    thread.pending = static_cast<uint8_t>(type + 1);
}

void end_task(Thread &thread)
{
    thread.next_pc = 0;
    thread.delayed = 0;
    thread.packets++;
    thread.state = thread.single_step ? ThreadState::kHalt : ThreadState::kWaitNewPacket;
}

bool can_feed(const Chip &chip, const Atom &atom, const Thread &thread)
{
    const uint32_t mode = chip.atom_mode[&atom - chip.atoms.atom];
    return thread.state == ThreadState::kWaitNewPacket && atom.fed && !atom.off &&
           atom.max_pc != 0 && mode == QD_PBA_MODE_NORMAL;
}

void feed(Thread &thread)
{
    thread.state = ThreadState::kRun;
    thread.next_pc = thread.start_pc;
    thread.delayed = 0;
    thread.pulled = false;
}

// Runs the instruction at the next PC; checked is the group that was looked at last. True when a
// step of single step mode ends with it.
bool execute(Chip &chip, const Atom &atom, Thread &thread, uint32_t &checked)
{
    thread.pc = thread.next_pc;
    if (thread.pc > atom.max_pc || thread.pc >= kPcNum) {
        raise(atom, thread, kExceptionReport, kExceptionPc);
        return true;
    }
    const uint32_t group = thread.pc / 4;
    if (group != checked && !ecc_check(chip, group)) {
        raise(atom, thread, kExceptionReport, kExceptionEcc);
        return true;
    }
    checked = group;
    const Instruction instruction = fetch(chip, thread.pc);
    if (!is_opcode(instruction.opcode)) {
        raise(atom, thread, kExceptionReport, kExceptionInstruction);
        return true;
    }
    const bool repeated_pull = instruction.opcode == kPullNew && thread.pulled;
    thread.pulled = thread.pulled || instruction.opcode == kPullNew;
    if (thread.delayed == kDelayedEnd || instruction.opcode == kEndTask ||
        instruction.opcode == kHaltTask || repeated_pull) {
        end_task(thread);
        return true;
    }
    if (thread.delayed != 0) {
        thread.next_pc = thread.delayed - 1;
        thread.delayed = 0;
        return true;
    }
    const auto target = static_cast<uint32_t>(instruction.bits & 0xffff);
    const bool jumps = always_jumps(instruction);
    thread.next_pc = jumps && instruction.opcode == kJmp ? target : thread.pc + 1;
    if (instruction.opcode == kEndTaskd) {
        thread.delayed = kDelayedEnd;
    }
    else if (jumps && instruction.opcode == kJmpd) {
        thread.delayed = target + 1;
    }
    return hands_over(instruction.opcode);
}

// Runs a thread for at most that many instructions. Gives how many it ran. A thread that was let go
// at a breakpoint passes it.
uint32_t run(Chip &chip, const Atom &atom, Thread &thread, uint32_t steps, bool pass_break)
{
    uint32_t done = 0;
    uint32_t checked = kNoGroup;
    while (done < steps && thread.state == ThreadState::kRun && !thread.stuck) {
        if (atom.break_armed && thread.next_pc == atom.break_pc && !pass_break) {
            thread.pc = thread.next_pc;
            thread.state = ThreadState::kHalt;
            break;
        }
        pass_break = false;
        done++;
        const bool step_ends = execute(chip, atom, thread, checked);
        if (step_ends && thread.single_step && thread.state == ThreadState::kRun) {
            thread.state = ThreadState::kHalt;
        }
    }
    return done;
}

// Tells the driver's user of what happened, as an interrupt would.
void deliver(Chip &chip)
{
    for (uint32_t atom = 0; atom < kAtomNum; atom++) {
        for (uint32_t index = 0; index < kAtomThreads; index++) {
            Thread &thread = chip.atoms.atom[atom].thread[index];
            if (thread.pending == 0) {
                continue;
            }
            const uint32_t type = thread.pending - 1u;
            thread.pending = 0;
            if ((thread.reports >> type & 1) != 0 && chip.atoms.hook != nullptr) {
                chip.atoms.hook(chip.id(), atom, index / kThreadNum, index % kThreadNum, type);
            }
        }
    }
}

// A chip, and a thing of it to work on.
template <typename Work>
uint32_t with_atom(uint32_t id, uint32_t atom, Work work)
{
    Chip *chip = chip_find(id);
    if (chip == nullptr) {
        return kErrNoChip;
    }
    Atom *found = atom_find(*chip, atom);
    return found == nullptr ? kErrParam : work(*chip, *found);
}

template <typename Work>
uint32_t with_thread(uint32_t id, uint32_t atom, uint32_t npu, uint32_t thread, Work work)
{
    return with_atom(id, atom, [&](Chip &chip, Atom &found) {
        Thread *one = thread_find(chip, atom, npu, thread);
        return one == nullptr ? kErrParam : work(chip, found, *one);
    });
}

}  // namespace

void atoms_power_on(Atoms &atoms)
{
    __builtin_memset(atoms.atom, 0, sizeof atoms.atom);
    for (Atom &atom : atoms.atom) {
        for (Thread &thread : atom.thread) {
            thread.state = ThreadState::kWaitNewPacket;
        }
    }
    atoms.hook = nullptr;
    atoms.ecc = {};
    atoms.branch = {};  // its bytes mean nothing without a size
}

void atoms_tick(Chip &chip, uint64_t ticks)
{
    const uint32_t steps =
        ticks < kMaxSteps / kTickSteps ? static_cast<uint32_t>(ticks) * kTickSteps : kMaxSteps;
    for (Atom &atom : chip.atoms.atom) {
        for (Thread &thread : atom.thread) {
            uint32_t left = go_on() ? steps : 0;
            while (left > 0) {
                if (can_feed(chip, atom, thread)) {
                    feed(thread);
                }
                const uint32_t done = run(chip, atom, thread, left, false);
                if (done == 0) {
                    break;
                }
                left -= done;
            }
        }
    }
    deliver(chip);
}

void atoms_group_written(Chip &chip, uint32_t offset)
{
    ecc_check(chip, (offset - kImemOffset) / kGroupBytes);
}

uint32_t imem_load(Chip &chip, const void *data, uint32_t size)
{
    if (data == nullptr && size != 0) {
        return kErrNull;
    }
    if (size > kGroupNum * kGroupBytes || size % 4 != 0) {
        return kErrParam;
    }
    for (uint32_t at = 0; at < size; at += 4) {
        uint32_t word;
        __builtin_memcpy(&word, static_cast<const uint8_t *>(data) + at, 4);
        chip.memory.write32(kImemOffset + at, word);
    }
    for (uint32_t group = 0; group < size / kGroupBytes; group++) {
        ecc_check(chip, group);
    }
    return kOk;
}

uint32_t branch_write(Chip &chip, uint32_t selector, const void *data, uint32_t size)
{
    if (data == nullptr && size != 0) {
        return kErrNull;
    }
    if (selector > 1 || size > kBranchSize) {
        return kErrParam;
    }
    __builtin_memcpy(chip.atoms.branch_bytes[selector], data, size);
    (selector == 0 ? chip.atoms.branch.rules_size : chip.atoms.branch.data_size) = size;
    return kOk;
}

void thread_next_pc_set(Thread &thread, uint32_t pc)
{
    thread.start_pc = pc;
    thread.next_pc = pc;
    thread.delayed = 0;
}

ThreadState thread_state_ask(Chip &chip, Atom &atom, Thread &thread)
{
    if (can_feed(chip, atom, thread)) {
        feed(thread);
    }
    run(chip, atom, thread, kAskSteps, false);
    return thread.state;
}

void thread_active(Chip &chip, Atom &atom, Thread &thread)
{
    if (thread.state != ThreadState::kHalt || (thread.hold_on && thread.held)) {
        return;
    }
    thread.held = false;
    if (thread.next_pc == 0) {
        thread.state = ThreadState::kWaitNewPacket;
        return;
    }
    thread.state = ThreadState::kRun;
    run(chip, atom, thread, thread.single_step ? kMaxSteps : 1, true);
}

Atom *atom_find(Chip &chip, uint32_t atom)
{
    return atom < kAtomNum ? &chip.atoms.atom[atom] : nullptr;
}

Thread *thread_find(Chip &chip, uint32_t atom, uint32_t npu, uint32_t thread)
{
    if (atom >= kAtomNum || npu >= kNpuNum || thread >= kThreadNum) {
        return nullptr;
    }
    return &chip.atoms.atom[atom].thread[npu * kThreadNum + thread];
}

// ---- atom_door.h --------------------------------------------------------------------------------

uint32_t thread_get(uint32_t chip, uint32_t atom, uint32_t npu, uint32_t thread, ThreadView *view)
{
    return with_thread(chip, atom, npu, thread, [&](Chip &, Atom &, const Thread &found) {
        if (view == nullptr) {
            return kErrNull;
        }
        *view = {
            found.state,    found.single_step ? QD_ATOM_MODE_SINGLE_STEP : QD_ATOM_MODE_CONTINUOUS,
            found.pc,       found.next_pc,
            found.start_pc, found.exception,
            found.packets};
        return kOk;
    });
}

uint32_t atom_get(uint32_t chip, uint32_t atom, AtomView *view)
{
    return with_atom(chip, atom, [&](Chip &, const Atom &found) {
        if (view == nullptr) {
            return kErrNull;
        }
        *view = {found.max_pc,      found.exception_pc, found.break_pc,
                 found.break_armed, found.fed,          !found.off};
        return kOk;
    });
}

uint32_t atom_feed_set(uint32_t chip, uint32_t atom, bool on)
{
    return with_atom(chip, atom, [&](Chip &, Atom &found) {
        found.fed = on;
        return kOk;
    });
}

uint32_t atom_power_set(uint32_t chip, uint32_t atom, bool on)
{
    return with_atom(chip, atom, [&](Chip &, Atom &found) {
        found.off = !on;
        return kOk;
    });
}

uint32_t thread_stuck_set(uint32_t chip, uint32_t atom, uint32_t npu, uint32_t thread, bool stuck)
{
    return with_thread(chip, atom, npu, thread, [&](Chip &, Atom &, Thread &found) {
        if (stuck && found.state == ThreadState::kWaitNewPacket) {
            feed(found);
        }
        found.stuck = stuck;
        return kOk;
    });
}

uint32_t thread_exception(uint32_t chip, uint32_t atom, uint32_t npu, uint32_t thread,
                          uint32_t type, uint32_t code)
{
    return with_thread(chip, atom, npu, thread, [&](Chip &found, Atom &owner, Thread &one) {
        if (type >= kReportTypeNum || code > 0xff) {
            return kErrParam;
        }
        raise(owner, one, type, code);
        deliver(found);
        return kOk;
    });
}

uint32_t ecc_errors_get(uint32_t chip, EccErrors *errors)
{
    return with_atom(chip, 0, [&](Chip &found, Atom &) {
        if (errors == nullptr) {
            return kErrNull;
        }
        *errors = found.atoms.ecc;
        return kOk;
    });
}

uint32_t group_ecc_ok(uint32_t chip, uint32_t group, bool *ok)
{
    return with_atom(chip, 0, [&](const Chip &found, Atom &) {
        if (ok == nullptr) {
            return kErrNull;
        }
        if (group >= kGroupNum) {
            return kErrParam;
        }
        *ok = ecc_right(found, group);
        return kOk;
    });
}

uint32_t branch_get(uint32_t chip, BranchView *view)
{
    return with_atom(chip, 0, [&](const Chip &found, Atom &) {
        if (view == nullptr) {
            return kErrNull;
        }
        *view = found.atoms.branch;
        return kOk;
    });
}

uint32_t branch_word_get(uint32_t chip, uint32_t selector, uint32_t index, uint32_t *word)
{
    return with_atom(chip, 0, [&](const Chip &found, Atom &) {
        if (word == nullptr) {
            return kErrNull;
        }
        const BranchView &branch = found.atoms.branch;
        const uint32_t size = selector == 0 ? branch.rules_size : branch.data_size;
        if (selector > 1 || index >= size / 4) {
            return kErrParam;
        }
        __builtin_memcpy(word, found.atoms.branch_bytes[selector] + 4 * index, 4);
        return kOk;
    });
}

}  // namespace ldsdk::model
