#include "common/DataConversion/Frwk_ComPrfFwRules.h"

#include "common/DataConversion/Frwk_Append.h"
#include "common/VdCommon/VdComn_DebugLog.h"

#include <utility>

namespace Frwk::DataTypes
{

namespace
{

// Puts the rule into the array, which has no elements yet, and the array into its place.
bool StoreRule(ComPrfFwRule& array, const FwRule& rule, VariantArray& rules, std::uint32_t index)
{
    if (!array.CreateArray(ComPrfFwRule::ElementCount))
    {
        VD_TRACE(Error, L"*** ComPrfFwRules::SetPrfFwRules() - cComPrfFwRule.Create() failed.");
        return false;
    }
    if (!array.SetPrfFwRule(rule))
    {
        VD_TRACE(Error, L"*** ComPrfFwRules::SetPrfFwRules() - cComPrfFwRule.SetPrfFwRule() failed.");
        return false;
    }
    if (!rules.SetValueArray(array.GetSafeArray(), index))
    {
        VD_TRACE(Error, L"*** ComPrfFwRules::SetPrfFwRules() - this->SetValueArray() failed.");
        return false;
    }
    return true;
}

} // namespace

bool ComPrfFwRules::SetPrfFwRules(const FwRuleList& list)
{
    std::uint32_t index = 0;
    for (const FwRule& rule : list)
    {
        ComPrfFwRule array;
        const bool stored = StoreRule(array, rule, *this, index++);
        array.DestroyArray();
        if (!stored)
        {
            return false;
        }
    }
    return !list.empty();
}

bool ComPrfFwRules::GetPrfFwRules(FwRuleList& list) const
{
    list.clear();
    const std::uint32_t count = GetElementCount();
    for (std::uint32_t index = 0; index < count; ++index)
    {
        FwRule rule;
        if (!GetAtPrfFwRule(rule, index) || !Append(list, std::move(rule)))
        {
            VD_TRACE(Error, L"*** ComPrfFwRules::GetPrfFwRules() - this->GetAtPrfFwRule() failed.");
            return false;
        }
    }
    return true;
}

bool ComPrfFwRules::GetAtPrfFwRule(FwRule& rule, std::uint32_t index) const
{
    Variant element;
    if (!GetElement(element, index))
    {
        VD_TRACE(Error, L"*** ComPrfFwRules::GetAtPrfFwRule() - this->GetElement() failed.");
        return false;
    }
    ComPrfFwRule array; // a part of the element
    if (!array.Attach(element.Array()))
    {
        VD_TRACE(Error, L"*** ComPrfFwRules::GetAtPrfFwRule() - cComPrfFwRule.Attach() failed.");
        return false;
    }
    if (!array.GetPrfFwRule(rule))
    {
        VD_TRACE(Error, L"*** ComPrfFwRules::GetAtPrfFwRule() - cComPrfFwRule.GetPrfFwRule() failed.");
        return false;
    }
    return true;
}

} // namespace Frwk::DataTypes
