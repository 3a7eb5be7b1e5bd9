// The driver's functions for instruction memory, the atoms' threads and their power.

#include "chipmodel/call.h"

using namespace ldsdk::model;

namespace {

// A driver function on one atom: work(Chip &, Atom &) gives its result.
template <typename Work>
uint32_t atom_call(Op op, uint32_t id, uint32_t atom, const CallNumbers &numbers, Work work)
{
    return driver_call(op, id, numbers, [&](Chip &chip) {
        Atom *found = atom_find(chip, atom);
        return found == nullptr ? kErrParam : work(chip, *found);
    });
}

// A driver function on one thread: work(Chip &, Atom &, Thread &). The thread is what the numbers
// begin with.
template <typename Work>
uint32_t thread_call(Op op, uint32_t id, const CallNumbers &numbers, Work work)
{
    return atom_call(op, id, numbers.number[0], numbers, [&](Chip &chip, Atom &atom) {
        Thread *thread = thread_find(chip, numbers.number[0], numbers.number[1], numbers.number[2]);
        return thread == nullptr ? kErrParam : work(chip, atom, *thread);
    });
}

}  // namespace

// ---- instruction memory -------------------------------------------------------------------------

uint32_t Qd_IMEM_InsMemLoad(uint32_t ulChipID, uint32_t ulImemID, const void *pvData,
                            uint32_t ulLen)
{
    return driver_call(Op::Qd_IMEM_InsMemLoad, ulChipID, {{ulImemID, ulLen}}, [&](Chip &chip) {
        return ulImemID != 0 ? kErrParam : imem_load(chip, pvData, ulLen);
    });
}

// ---- threads ------------------------------------------------------------------------------------

uint32_t Qd_ATOM_MaxPCSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulMaxPC)
{
    return atom_call(Op::Qd_ATOM_MaxPCSet, ulChipID, ulAtomID, {{ulAtomID, ulMaxPC}},
                     [&](Chip &, Atom &atom) {
                         atom.max_pc = ulMaxPC;
                         return kOk;
                     });
}

uint32_t Qd_ATOM_ExceptionPcSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulExcepPC)
{
    return atom_call(Op::Qd_ATOM_ExceptionPcSet, ulChipID, ulAtomID, {{ulAtomID, ulExcepPC}},
                     [&](Chip &, Atom &atom) {
                         atom.exception_pc = ulExcepPC;
                         return kOk;
                     });
}

uint32_t Qd_ATOM_ThreadNextPCSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                 uint32_t ulThreadID, uint32_t ulPC)
{
    return thread_call(Op::Qd_ATOM_ThreadNextPCSet, ulChipID,
                       {{ulAtomID, ulNpuID, ulThreadID, ulPC}},
                       [&](Chip &, Atom &, Thread &thread) {
                           thread_next_pc_set(thread, ulPC);
                           return kOk;
                       });
}

uint32_t Qd_ATOM_ThreadNextPCGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                 uint32_t ulThreadID, uint32_t *pulPC)
{
    return thread_call(Op::Qd_ATOM_ThreadNextPCGet, ulChipID, {{ulAtomID, ulNpuID, ulThreadID}},
                       [&](Chip &, Atom &, const Thread &thread) {
                           if (pulPC == nullptr) {
                               return kErrNull;
                           }
                           *pulPC = thread.next_pc;
                           return kOk;
                       });
}

uint32_t Qd_ATOM_ThreadStateGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                uint32_t ulThreadID, uint32_t *pulState)
{
    return thread_call(Op::Qd_ATOM_ThreadStateGet, ulChipID, {{ulAtomID, ulNpuID, ulThreadID}},
                       [&](Chip &chip, Atom &atom, Thread &thread) {
                           if (pulState == nullptr) {
                               return kErrNull;
                           }
                           *pulState = static_cast<uint32_t>(thread_state_ask(chip, atom, thread));
                           return kOk;
                       });
}

uint32_t Qd_ATOM_ThreadAllStatusGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                    uint32_t ulThreadID, uint32_t *pulStatus)
{
    return thread_call(Op::Qd_ATOM_ThreadAllStatusGet, ulChipID, {{ulAtomID, ulNpuID, ulThreadID}},
                       [&](Chip &, Atom &, Thread &thread) {
                           if (pulStatus == nullptr) {
                               return kErrNull;
                           }
                           pulStatus[0] = static_cast<uint32_t>(thread.state);
                           pulStatus[1] = thread.exception;
                           pulStatus[2] = thread.packets;
                           pulStatus[3] = thread.pc;
                           thread.held = false;
                           return kOk;
                       });
}

uint32_t Qd_ATOM_ThreadActive(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                              uint32_t ulThreadID)
{
    return thread_call(Op::Qd_ATOM_ThreadActive, ulChipID, {{ulAtomID, ulNpuID, ulThreadID}},
                       [&](Chip &chip, Atom &atom, Thread &thread) {
                           thread_active(chip, atom, thread);
                           return kOk;
                       });
}

uint32_t Qd_ATOM_ThreadExecutionModeSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                        uint32_t ulThreadID, uint32_t ulMode)
{
    return thread_call(
        Op::Qd_ATOM_ThreadExecutionModeSet, ulChipID, {{ulAtomID, ulNpuID, ulThreadID, ulMode}},
        [&](Chip &, Atom &, Thread &thread) {
            if (ulMode != QD_ATOM_MODE_SINGLE_STEP && ulMode != QD_ATOM_MODE_CONTINUOUS) {
                return kErrParam;
            }
            thread.single_step = ulMode == QD_ATOM_MODE_SINGLE_STEP;
            return kOk;
        });
}

uint32_t Qd_ATOM_ThreadExcpHoldOnEnableSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                           uint32_t ulThreadID, uint32_t ulEnable)
{
    return thread_call(Op::Qd_ATOM_ThreadExcpHoldOnEnableSet, ulChipID,
                       {{ulAtomID, ulNpuID, ulThreadID, ulEnable}},
                       [&](Chip &, Atom &, Thread &thread) {
                           if (ulEnable > 1) {
                               return kErrParam;
                           }
                           thread.hold_on = ulEnable == 1;
                           return kOk;
                       });
}

uint32_t Qd_ATOM_BreakPointEnableForAtom(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulPC,
                                         uint32_t ulEnable)
{
    return atom_call(Op::Qd_ATOM_BreakPointEnableForAtom, ulChipID, ulAtomID,
                     {{ulAtomID, ulPC, ulEnable}}, [&](Chip &, Atom &atom) {
                         if (ulEnable > 1) {
                             return kErrParam;
                         }
                         atom.break_pc = ulPC;
                         atom.break_armed = ulEnable == 1;
                         return kOk;
                     });
}

uint32_t Qd_ATOM_BreakPointDisable(uint32_t ulChipID, uint32_t ulAtomID)
{
    return atom_call(Op::Qd_ATOM_BreakPointDisable, ulChipID, ulAtomID, {{ulAtomID}},
                     [](Chip &, Atom &atom) {
                         atom.break_armed = false;
                         return kOk;
                     });
}

uint32_t Qd_ATOM_IntrEnableSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                               uint32_t ulThreadID, uint32_t ulType, uint32_t ulEnable)
{
    return thread_call(Op::Qd_ATOM_IntrEnableSet, ulChipID,
                       {{ulAtomID, ulNpuID, ulThreadID, ulType, ulEnable}},
                       [&](Chip &, Atom &, Thread &thread) {
                           if (ulType >= kReportTypeNum || ulEnable > 1) {
                               return kErrParam;
                           }
                           const uint32_t others = thread.reports & ~(1u << ulType);
                           thread.reports = static_cast<uint8_t>(others | ulEnable << ulType);
                           return kOk;
                       });
}

uint32_t Qd_ATOM_IntrReportHookRegister(uint32_t ulChipID, QdAtomIntrHook pfnHook)
{
    return driver_call(Op::Qd_ATOM_IntrReportHookRegister, ulChipID, {}, [&](Chip &chip) {
        if (pfnHook == nullptr) {
            return kErrNull;
        }
        chip.atoms.hook = pfnHook;
        return kOk;
    });
}

// ---- power --------------------------------------------------------------------------------------

uint32_t QD_PORT_PowerGateEnableGet(uint32_t ulChipID, uint32_t ulModule, uint32_t ulPort,
                                    uint32_t ulUnit, uint32_t *pulEnable)
{
    return atom_call(Op::QD_PORT_PowerGateEnableGet, ulChipID, ulUnit, {{ulModule, ulPort, ulUnit}},
                     [&](Chip &, const Atom &atom) {
                         if (pulEnable == nullptr) {
                             return kErrNull;
                         }
                         if (ulModule != QD_PORT_POWER_ATOM || ulPort != 0) {
                             return kErrParam;
                         }
                         *pulEnable = atom.off ? 0 : 1;
                         return kOk;
                     });
}
