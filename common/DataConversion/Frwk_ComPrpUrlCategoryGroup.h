#pragma once

#include "common/Frwk_VariantArray.h"

#include <string>

namespace Frwk::DataTypes
{

// A group of categories of the URL filter.
struct UrlCategoryGroup
{
    std::wstring first;  // its key
    std::wstring second; // its name for the user
};

// One group: the two texts, each VT_BSTR.
class ComPrpUrlCategoryGroup : public VariantArray
{
public:
    bool GetPrpCategoryGroup(UrlCategoryGroup& group) const;
};

} // namespace Frwk::DataTypes
