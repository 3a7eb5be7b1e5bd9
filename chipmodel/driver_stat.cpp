// The driver's functions for the order engine and for the statistics of the data path blocks.

#include "chipmodel/call.h"

using namespace ldsdk::model;

namespace {

uint32_t counter_get(Op op, uint32_t chip, StatBlock block, uint32_t index, uint32_t *count)
{
    return driver_call(op, chip, {{index}},
                       [&](Chip &found) { return stat_get(found.id(), block, index, count); });
}

uint32_t counter_clear(Op op, uint32_t chip, StatBlock block, uint32_t index)
{
    return driver_call(op, chip, {{index}},
                       [&](Chip &found) { return stat_set(found.id(), block, index, 0); });
}

uint32_t word_get(Op op, uint32_t chip, uint32_t Statistics::*word, uint32_t *value)
{
    return driver_call(op, chip, {}, [&](Chip &found) {
        if (value == nullptr) {
            return kErrNull;
        }
        *value = found.stat.*word;
        return kOk;
    });
}

}  // namespace

// ---- order engine -------------------------------------------------------------------------------

uint32_t Qd_OE_OrderFlowTimeoutDetectEnableGet(uint32_t ulChipID, uint32_t *pulEnable)
{
    return word_get(Op::Qd_OE_OrderFlowTimeoutDetectEnableGet, ulChipID, &Statistics::detect,
                    pulEnable);
}

uint32_t Qd_OE_OrderFlowTimeoutDetectEnableSet(uint32_t ulChipID, uint32_t ulEnable)
{
    return driver_call(Op::Qd_OE_OrderFlowTimeoutDetectEnableSet, ulChipID, {{ulEnable}},
                       [&](Chip &chip) {
                           if (ulEnable > 1) {
                               return kErrParam;
                           }
                           chip.stat.detect = ulEnable;
                           return kOk;
                       });
}

uint32_t Qd_OE_OrderFlowTimeoutDetectPeriodGet(uint32_t ulChipID, uint32_t *pulPeriod)
{
    return word_get(Op::Qd_OE_OrderFlowTimeoutDetectPeriodGet, ulChipID, &Statistics::period,
                    pulPeriod);
}

uint32_t Qd_OE_TimeoutFifoHeadPktIdGet(uint32_t ulChipID, uint32_t *pulValid, uint32_t *pulPktId)
{
    return driver_call(Op::Qd_OE_TimeoutFifoHeadPktIdGet, ulChipID, {}, [&](Chip &chip) {
        if (pulValid == nullptr || pulPktId == nullptr) {
            return kErrNull;
        }
        const Statistics &stat = chip.stat;
        *pulValid = stat.timeout_first != stat.timeout_end ? 1 : 0;
        *pulPktId = *pulValid != 0 ? stat.timeout[stat.timeout_first % kOrderTimeoutNum] : 0;
        return kOk;
    });
}

uint32_t Qd_OE_TimeoutFifoHeadPktFlush(uint32_t ulChipID, uint32_t ulPktId)
{
    return driver_call(Op::Qd_OE_TimeoutFifoHeadPktFlush, ulChipID, {{ulPktId}},
                       [&](Chip &chip) { return order_timeout_flush(chip, ulPktId); });
}

uint32_t Qd_OE_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *pulCount)
{
    return counter_get(Op::Qd_OE_StatGet, ulChipID, StatBlock::kOe, ulIndex, pulCount);
}

uint32_t Qd_OE_StatClear(uint32_t ulChipID, uint32_t ulIndex)
{
    return counter_clear(Op::Qd_OE_StatClear, ulChipID, StatBlock::kOe, ulIndex);
}

// ---- data path ----------------------------------------------------------------------------------

uint32_t Qd_PQM_StatInfoGet(uint32_t ulChipID, uint32_t ulPri, uint32_t *pulCount)
{
    return counter_get(Op::Qd_PQM_StatInfoGet, ulChipID, StatBlock::kPqm, ulPri, pulCount);
}

uint32_t Qd_PQM_StatInfoClear(uint32_t ulChipID, uint32_t ulPri)
{
    return counter_clear(Op::Qd_PQM_StatInfoClear, ulChipID, StatBlock::kPqm, ulPri);
}

uint32_t Qd_CR_StatGet(uint32_t ulChipID, QdCrStat *pstStat)
{
    return driver_call(Op::Qd_CR_StatGet, ulChipID, {}, [&](Chip &chip) {
        if (pstStat == nullptr) {
            return kErrNull;
        }
        __builtin_memcpy(pstStat->aulWord, chip.stat.of(StatBlock::kCr), sizeof pstStat->aulWord);
        return kOk;
    });
}

uint32_t Qd_MCC_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *pulCount)
{
    return counter_get(Op::Qd_MCC_StatGet, ulChipID, StatBlock::kMcc, ulIndex, pulCount);
}

uint32_t Qd_MCC_StatClear(uint32_t ulChipID, uint32_t ulIndex)
{
    return counter_clear(Op::Qd_MCC_StatClear, ulChipID, StatBlock::kMcc, ulIndex);
}

uint32_t Qd_PE_StatGet(uint32_t ulChipID, uint32_t ulIndex, uint32_t *pulCount)
{
    return counter_get(Op::Qd_PE_StatGet, ulChipID, StatBlock::kPe, ulIndex, pulCount);
}

uint32_t Qd_PE_StatClear(uint32_t ulChipID, uint32_t ulIndex)
{
    return counter_clear(Op::Qd_PE_StatClear, ulChipID, StatBlock::kPe, ulIndex);
}
