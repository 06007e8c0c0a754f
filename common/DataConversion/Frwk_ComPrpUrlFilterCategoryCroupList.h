#pragma once

#include "common/DataConversion/Frwk_ComPrpUrlCategoryGroups.h"

namespace Frwk::DataTypes
{

// The URL filter's groups of categories, a property: one element, an array that is a ComPrpUrlCategoryGroups.
class ComPrpUrlFilterCategoryGroupList : public VariantArray
{
public:
    // Fills the list as GetPrpUrlCategoryGroups does; where there is no array, the list is left as it is.
    bool GetPrpUrlFilterCategoryCroupList(std::vector<UrlCategoryGroup>* list) const;
};

} // namespace Frwk::DataTypes
