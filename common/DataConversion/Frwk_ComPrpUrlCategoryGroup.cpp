#include "common/DataConversion/Frwk_ComPrpUrlCategoryGroup.h"

namespace Frwk::DataTypes
{

bool ComPrpUrlCategoryGroup::GetPrpCategoryGroup(UrlCategoryGroup& group) const
{
    return GetValue(group.first, 0) && GetValue(group.second, 1);
}

} // namespace Frwk::DataTypes
