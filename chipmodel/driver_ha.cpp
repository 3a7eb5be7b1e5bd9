// The driver's match rules of the pre-classifier.

#include "chipmodel/call.h"

using namespace ldsdk::model;

uint32_t Qd_HA_MatchRuleAdd(uint32_t ulChipID, uint32_t ulRuleID, const QdHaMatchRule *pstRule)
{
    return driver_call(Op::Qd_HA_MatchRuleAdd, ulChipID, {{ulRuleID}}, [&](Chip &chip) {
        return pstRule == nullptr ? kErrNull : ha_rule_add(chip.ha, ulRuleID, *pstRule);
    });
}

uint32_t Qd_HA_MatchRuleDel(uint32_t ulChipID, uint32_t ulRuleID)
{
    return driver_call(Op::Qd_HA_MatchRuleDel, ulChipID, {{ulRuleID}}, [&](Chip &chip) {
        if (ulRuleID >= kHaRuleNum) {
            return kErrParam;
        }
        chip.ha.used[ulRuleID] = false;
        return kOk;
    });
}

uint32_t Qd_HA_MatchRuleGet(uint32_t ulChipID, uint32_t ulRuleID, QdHaMatchRule *pstRule)
{
    return driver_call(Op::Qd_HA_MatchRuleGet, ulChipID, {{ulRuleID}},
                       [&](Chip &chip) { return ha_rule_get(chip.id(), ulRuleID, pstRule); });
}

uint32_t Qd_HA_ExtendRuleSet(uint32_t ulChipID, uint32_t ulType, uint32_t ulPqmPri,
                             uint32_t ulHaInfo)
{
    const CallNumbers numbers = {{ulType, ulPqmPri, ulHaInfo}};
    return driver_call(Op::Qd_HA_ExtendRuleSet, ulChipID, numbers, [&](Chip &chip) {
        if (ulType < kHaFixedFirst || ulType >= kHaFixedNum || ulPqmPri > 3 || ulHaInfo > 127) {
            return kErrParam;
        }
        chip.ha.fixed[ulType] = {true, ulPqmPri, ulHaInfo};
        return kOk;
    });
}

uint32_t Qd_HA_ExtendRuleGet(uint32_t ulChipID, uint32_t ulType, uint32_t *pulPqmPri,
                             uint32_t *pulHaInfo)
{
    return driver_call(Op::Qd_HA_ExtendRuleGet, ulChipID, {{ulType}}, [&](Chip &chip) {
        HaFixedRule rule = {};
        const uint32_t result = ha_fixed_get(chip.id(), ulType, &rule);
        if (pulPqmPri == nullptr || pulHaInfo == nullptr) {
            return kErrNull;
        }
        if (result == kOk) {
            *pulPqmPri = rule.queue_pri;
            *pulHaInfo = rule.info;
        }
        return result;
    });
}

uint32_t Qd_HA_ExtendTpidSet(uint32_t ulChipID, uint32_t ulTpid, uint8_t ucType)
{
    return driver_call(Op::Qd_HA_ExtendTpidSet, ulChipID, {{ulTpid, ucType}}, [&](Chip &chip) {
        if (ucType >= kHaTpidNum || ulTpid > 0xffff) {
            return kErrParam;
        }
        chip.ha.tpid[ucType] = ulTpid;
        return kOk;
    });
}

uint32_t Qd_HA_ExtendTpidGet(uint32_t ulChipID, uint32_t *pulTpid, uint8_t ucType)
{
    return driver_call(Op::Qd_HA_ExtendTpidGet, ulChipID, {{ucType}},
                       [&](Chip &chip) { return ha_tpid_get(chip.id(), ucType, pulTpid); });
}
