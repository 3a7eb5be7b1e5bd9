// The driver's functions for instruction memory, the atoms' threads and their power.

#include "chipmodel/call.h"

using namespace ldsdk::model;

// ---- instruction memory -------------------------------------------------------------------------

uint32_t Qd_IMEM_InsMemLoad(uint32_t ulChipID, uint32_t ulImemID, const void *, uint32_t ulLen)
{
    return not_modelled(Op::Qd_IMEM_InsMemLoad, ulChipID, {{ulImemID, ulLen}});
}

// ---- threads ------------------------------------------------------------------------------------

uint32_t Qd_ATOM_MaxPCSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulMaxPC)
{
    return not_modelled(Op::Qd_ATOM_MaxPCSet, ulChipID, {{ulAtomID, ulMaxPC}});
}

uint32_t Qd_ATOM_ExceptionPcSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulExcepPC)
{
    return not_modelled(Op::Qd_ATOM_ExceptionPcSet, ulChipID, {{ulAtomID, ulExcepPC}});
}

uint32_t Qd_ATOM_ThreadNextPCSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                 uint32_t ulThreadID, uint32_t ulPC)
{
    return not_modelled(Op::Qd_ATOM_ThreadNextPCSet, ulChipID,
                        {{ulAtomID, ulNpuID, ulThreadID, ulPC}});
}

uint32_t Qd_ATOM_ThreadNextPCGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                 uint32_t ulThreadID, uint32_t *)
{
    return not_modelled(Op::Qd_ATOM_ThreadNextPCGet, ulChipID, {{ulAtomID, ulNpuID, ulThreadID}});
}

uint32_t Qd_ATOM_ThreadStateGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                uint32_t ulThreadID, uint32_t *)
{
    return not_modelled(Op::Qd_ATOM_ThreadStateGet, ulChipID, {{ulAtomID, ulNpuID, ulThreadID}});
}

uint32_t Qd_ATOM_ThreadAllStatusGet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                    uint32_t ulThreadID, uint32_t *)
{
    return not_modelled(Op::Qd_ATOM_ThreadAllStatusGet, ulChipID,
                        {{ulAtomID, ulNpuID, ulThreadID}});
}

uint32_t Qd_ATOM_ThreadActive(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                              uint32_t ulThreadID)
{
    return not_modelled(Op::Qd_ATOM_ThreadActive, ulChipID, {{ulAtomID, ulNpuID, ulThreadID}});
}

uint32_t Qd_ATOM_ThreadExecutionModeSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                        uint32_t ulThreadID, uint32_t ulMode)
{
    return not_modelled(Op::Qd_ATOM_ThreadExecutionModeSet, ulChipID,
                        {{ulAtomID, ulNpuID, ulThreadID, ulMode}});
}

uint32_t Qd_ATOM_ThreadExcpHoldOnEnableSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                                           uint32_t ulThreadID, uint32_t ulEnable)
{
    return not_modelled(Op::Qd_ATOM_ThreadExcpHoldOnEnableSet, ulChipID,
                        {{ulAtomID, ulNpuID, ulThreadID, ulEnable}});
}

uint32_t Qd_ATOM_BreakPointEnableForAtom(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulPC,
                                         uint32_t ulEnable)
{
    return not_modelled(Op::Qd_ATOM_BreakPointEnableForAtom, ulChipID,
                        {{ulAtomID, ulPC, ulEnable}});
}

uint32_t Qd_ATOM_BreakPointDisable(uint32_t ulChipID, uint32_t ulAtomID)
{
    return not_modelled(Op::Qd_ATOM_BreakPointDisable, ulChipID, {{ulAtomID}});
}

uint32_t Qd_ATOM_IntrEnableSet(uint32_t ulChipID, uint32_t ulAtomID, uint32_t ulNpuID,
                               uint32_t ulThreadID, uint32_t ulType, uint32_t ulEnable)
{
    return not_modelled(Op::Qd_ATOM_IntrEnableSet, ulChipID,
                        {{ulAtomID, ulNpuID, ulThreadID, ulType, ulEnable}});
}

uint32_t Qd_ATOM_IntrReportHookRegister(uint32_t ulChipID, QdAtomIntrHook)
{
    return not_modelled(Op::Qd_ATOM_IntrReportHookRegister, ulChipID, {});
}

// ---- power --------------------------------------------------------------------------------------

uint32_t QD_PORT_PowerGateEnableGet(uint32_t ulChipID, uint32_t ulModule, uint32_t ulPort,
                                    uint32_t ulUnit, uint32_t *)
{
    return not_modelled(Op::QD_PORT_PowerGateEnableGet, ulChipID, {{ulModule, ulPort, ulUnit}});
}
