#pragma once

#include "common/DataConversion/Frwk_ComPrfFwRule.h"

#include <list>

namespace Frwk::DataTypes
{

// The rules in the order of the profile, which means something to the framework.
using FwRuleList = std::list<FwRule>;

// All rules of the firewall, a setting of the profile: one element a rule, an array that is a ComPrfFwRule.
class ComPrfFwRules : public VariantArray
{
public:
    // Writes all rules into an array of as many elements. The first one that fails ends it, and those before it stay.
    // False for an empty list.
    bool SetPrfFwRules(const FwRuleList& list);

    // Replaces what the list holds by all rules, in the order of the array; no elements is a success. The first rule
    // that fails ends it, and those before it stay in the list.
    bool GetPrfFwRules(FwRuleList& list) const;

    bool GetAtPrfFwRule(FwRule& rule, std::uint32_t index) const;
};

} // namespace Frwk::DataTypes
