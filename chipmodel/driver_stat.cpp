// The driver's functions for the order engine and for the statistics of the data path blocks.

#include "chipmodel/call.h"

using namespace ldsdk::model;

// ---- order engine -------------------------------------------------------------------------------

uint32_t Qd_OE_OrderFlowTimeoutDetectEnableGet(uint32_t ulChipID, uint32_t *)
{
    return not_modelled(Op::Qd_OE_OrderFlowTimeoutDetectEnableGet, ulChipID, {});
}

uint32_t Qd_OE_OrderFlowTimeoutDetectEnableSet(uint32_t ulChipID, uint32_t ulEnable)
{
    return not_modelled(Op::Qd_OE_OrderFlowTimeoutDetectEnableSet, ulChipID, {{ulEnable}});
}

uint32_t Qd_OE_OrderFlowTimeoutDetectPeriodGet(uint32_t ulChipID, uint32_t *)
{
    return not_modelled(Op::Qd_OE_OrderFlowTimeoutDetectPeriodGet, ulChipID, {});
}

uint32_t Qd_OE_TimeoutFifoHeadPktIdGet(uint32_t ulChipID, uint32_t *, uint32_t *)
{
    return not_modelled(Op::Qd_OE_TimeoutFifoHeadPktIdGet, ulChipID, {});
}

uint32_t Qd_OE_TimeoutFifoHeadPktFlush(uint32_t ulChipID, uint32_t ulPktId)
{
    return not_modelled(Op::Qd_OE_TimeoutFifoHeadPktFlush, ulChipID, {{ulPktId}});
}

uint32_t Qd_OE_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *)
{
    return not_modelled(Op::Qd_OE_StatGet, ulChipID, {{ulIndex}});
}

uint32_t Qd_OE_StatClear(uint32_t ulChipID, uint32_t ulIndex)
{
    return not_modelled(Op::Qd_OE_StatClear, ulChipID, {{ulIndex}});
}

// ---- data path ----------------------------------------------------------------------------------

uint32_t Qd_PQM_StatInfoGet(uint32_t ulChipID, uint32_t ulPri, uint32_t *)
{
    return not_modelled(Op::Qd_PQM_StatInfoGet, ulChipID, {{ulPri}});
}

uint32_t Qd_PQM_StatInfoClear(uint32_t ulChipID, uint32_t ulPri)
{
    return not_modelled(Op::Qd_PQM_StatInfoClear, ulChipID, {{ulPri}});
}

uint32_t Qd_CR_StatGet(uint32_t ulChipID, QdCrStat *)
{
    return not_modelled(Op::Qd_CR_StatGet, ulChipID, {});
}

uint32_t Qd_MCC_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *)
{
    return not_modelled(Op::Qd_MCC_StatGet, ulChipID, {{ulIndex}});
}

uint32_t Qd_MCC_StatClear(uint32_t ulChipID, uint32_t ulIndex)
{
    return not_modelled(Op::Qd_MCC_StatClear, ulChipID, {{ulIndex}});
}

uint32_t Qd_PE_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *)
{
    return not_modelled(Op::Qd_PE_StatGet, ulChipID, {{ulIndex}});
}

uint32_t Qd_PE_StatClear(uint32_t ulChipID, uint32_t ulIndex)
{
    return not_modelled(Op::Qd_PE_StatClear, ulChipID, {{ulIndex}});
}
