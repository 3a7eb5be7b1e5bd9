// The pre-classifier: the rules that the driver was given, and what a packet meets.
#pragma once

#include "chipmodel/lookup.h"
#include "platform/driver.h"

namespace ldsdk::model {

struct HaRules {
    bool used[kHaRuleNum];
    QdHaMatchRule rule[kHaRuleNum];
    HaFixedRule fixed[kHaFixedNum];
    uint32_t tpid[kHaTpidNum];
};

// Takes a rule in, in place of one of that number. kErrParam for a record that no chip could hold.
uint32_t ha_rule_add(HaRules &rules, uint32_t number, const QdHaMatchRule &rule);

}  // namespace ldsdk::model
