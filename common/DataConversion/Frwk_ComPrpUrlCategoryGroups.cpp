#include "common/DataConversion/Frwk_ComPrpUrlCategoryGroups.h"

#include "common/DataConversion/Frwk_Append.h"
#include "common/VdCommon/VdComn_DebugLog.h"

#include <utility>

namespace Frwk::DataTypes
{

bool ComPrpUrlCategoryGroups::GetPrpUrlCategoryGroups(std::vector<UrlCategoryGroup>* list) const
{
    if (list == nullptr)
    {
        return false;
    }
    list->clear();
    const std::uint32_t count = GetElementCount();
    for (std::uint32_t index = 0; index < count; ++index)
    {
        UrlCategoryGroup group;
        if (!GetAtPrpUrlCategoryGroup(group, index) || !Append(*list, std::move(group)))
        {
            VD_TRACE(Error, L"*** ComPrpUrlCategoryGroups::GetPrpUrlCategoryGroups() - "
                            L"this->GetAtPrpUrlCategoryGroup() failed.");
            return false;
        }
    }
    return true;
}

bool ComPrpUrlCategoryGroups::GetAtPrpUrlCategoryGroup(UrlCategoryGroup& group, std::uint32_t index) const
{
    Variant element;
    if (!GetElement(element, index))
    {
        VD_TRACE(Error, L"*** ComPrpUrlCategoryGroups::GetAtPrpUrlCategoryGroup() - this->GetElement() failed.");
        return false;
    }
    ComPrpUrlCategoryGroup array; // a part of the element
    if (!array.Attach(element.Array()))
    {
        VD_TRACE(Error, L"*** ComPrpUrlCategoryGroups::GetAtPrpUrlCategoryGroup() - "
                        L"cComPrpUrlCategoryGroup.Attach() failed.");
        return false;
    }
    if (!array.GetPrpCategoryGroup(group))
    {
        VD_TRACE(Error, L"*** ComPrpUrlCategoryGroups::GetAtPrpUrlCategoryGroup() - "
                        L"cComPrpGuid.GetPrpCategoryGroup() failed.");
        return false;
    }
    return true;
}

} // namespace Frwk::DataTypes
