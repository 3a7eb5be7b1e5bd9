// The driver's match rules of the pre-classifier.

#include "chipmodel/call.h"

using namespace ldsdk::model;

uint32_t Qd_HA_MatchRuleAdd(uint32_t ulChipID, uint32_t ulRuleID, const QdHaMatchRule *)
{
    return not_modelled(Op::Qd_HA_MatchRuleAdd, ulChipID, {{ulRuleID}});
}

uint32_t Qd_HA_MatchRuleDel(uint32_t ulChipID, uint32_t ulRuleID)
{
    return not_modelled(Op::Qd_HA_MatchRuleDel, ulChipID, {{ulRuleID}});
}

uint32_t Qd_HA_MatchRuleGet(uint32_t ulChipID, uint32_t ulRuleID, QdHaMatchRule *)
{
    return not_modelled(Op::Qd_HA_MatchRuleGet, ulChipID, {{ulRuleID}});
}

uint32_t Qd_HA_ExtendRuleSet(uint32_t ulChipID, uint32_t ulType, uint32_t ulPqmPri,
                             uint32_t ulHaInfo)
{
    return not_modelled(Op::Qd_HA_ExtendRuleSet, ulChipID, {{ulType, ulPqmPri, ulHaInfo}});
}

uint32_t Qd_HA_ExtendRuleGet(uint32_t ulChipID, uint32_t ulType, uint32_t *, uint32_t *)
{
    return not_modelled(Op::Qd_HA_ExtendRuleGet, ulChipID, {{ulType}});
}

uint32_t Qd_HA_ExtendTpidSet(uint32_t ulChipID, uint32_t ulTpid, uint8_t ucType)
{
    return not_modelled(Op::Qd_HA_ExtendTpidSet, ulChipID, {{ulTpid, ucType}});
}

uint32_t Qd_HA_ExtendTpidGet(uint32_t ulChipID, uint32_t *, uint8_t ucType)
{
    return not_modelled(Op::Qd_HA_ExtendTpidGet, ulChipID, {{ucType}});
}
