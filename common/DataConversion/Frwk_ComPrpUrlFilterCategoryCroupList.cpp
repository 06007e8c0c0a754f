#include "common/DataConversion/Frwk_ComPrpUrlFilterCategoryCroupList.h"

#include "common/VdCommon/VdComn_DebugLog.h"

namespace Frwk::DataTypes
{

bool ComPrpUrlFilterCategoryGroupList::GetPrpUrlFilterCategoryCroupList(std::vector<UrlCategoryGroup>* list) const
{
    ComPrpUrlCategoryGroups groups;
    if (!GetValueArray(groups.GetSafeArrayAddress(), 0))
    {
        VD_TRACE(Error, L"*** ComPrpUrlFilterCategoryCroupList::GetPrpUrlFilterCategoryCroupList() - "
                        L"this->GetValueArray() failed.");
        return false;
    }
    const bool converted = groups.GetPrpUrlCategoryGroups(list);
    if (!converted)
    {
        VD_TRACE(Error, L"*** ComPrpUrlFilterCategoryCroupList::GetPrpUrlFilterCategoryCroupList() - "
                        L"cComPrpUrlCategoryGroups.GetPrpUrlCategoryGroups() failed.");
    }
    groups.DestroyArray();
    return converted;
}

} // namespace Frwk::DataTypes
