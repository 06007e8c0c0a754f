#pragma once

#include "common/DataConversion/Frwk_ComPrpUrlCategoryGroup.h"

#include <vector>

namespace Frwk::DataTypes
{

// The groups of categories, each an array that is a ComPrpUrlCategoryGroup.
class ComPrpUrlCategoryGroups : public VariantArray
{
public:
    // Replaces what the list holds by all groups, in the order of the array; no elements is a success. The first group
    // that fails ends it, and those before it stay in the list. False for a null list.
    bool GetPrpUrlCategoryGroups(std::vector<UrlCategoryGroup>* list) const;

    bool GetAtPrpUrlCategoryGroup(UrlCategoryGroup& group, std::uint32_t index) const;
};

} // namespace Frwk::DataTypes
