#include "framework/ui/kestrix/logs/ZPTLogURL.h"

#include "common/DataConversion/Frwk_ComPrpUrlFilterCategoryCroupList.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_DelimiterChanger.h"
#include "common/VdFrwk.h"
#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/ComPtr.h"
#include "platform/dialog/ComUse.h"
#include "platform/dialog/ResourceText.h"
#include "resource/WebAndTaskTexts.h"
#include "resource/resource.h"

namespace
{

// The fields of a record.
enum Field : std::size_t
{
    FieldTime,
    FieldAction,
    FieldResult,
    FieldAddress,
    FieldCategory,
};

// The second column is sorted by the result and not by the action that it shows.
constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 50, FieldTime, FieldTime},
    {IDS_URL_COLUMN_ACTION, 100, FieldAction, FieldResult},
    {IDS_URL_COLUMN_RESULT, 120, FieldResult, FieldResult},
    {IDS_COLUMN_ADDRESS, 275, FieldAddress, FieldAddress},
};

constexpr LogInfoRow InfoRows[CLogInfoPage::InfoRows] = {
    {IDS_URL_LABEL_CATEGORY, true, FieldCategory},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_URL_EXPORT_TIME}, {IDS_URL_COLUMN_ACTION},  {IDS_URL_COLUMN_RESULT},
    {IDS_COLUMN_ADDRESS},  {IDS_URL_LABEL_CATEGORY},
};

constexpr LogLayout Layout = {
    .type = LogTypeUrlFilter,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr std::uint32_t ResultByList = 1; // the address itself was listed: its category does not matter

constexpr CodeText Results[] = {
    {0, IDS_URL_BLOCKED_BY_CATEGORY},
    {ResultByList, IDS_URL_BLOCKED_BY_LIST},
};
static_assert(IsSorted(Results));

// The framework's numbers of the category groups.
constexpr ULONG CategoryGroupsType = 3;
constexpr ULONG CategoryGroupsSubType = 2;
constexpr std::uint32_t CategoryGroupsCount = 1;

// What the parser keeps from one token to the next, once for the whole process.
std::wstring g_strUrlAction;
std::uint32_t g_nUrlResult = 0;
std::wstring g_strUrlAddress;
std::wstring_view g_strUrlCategory; // lives as long as the log that is being read

void QueryCategoryGroups(IVdFrwkProperty& property, std::vector<Frwk::DataTypes::UrlCategoryGroup>& list)
{
    Frwk::DataTypes::ComPrpUrlFilterCategoryGroupList array;
    array.CreateArray(CategoryGroupsCount);
    ULONG word = 0;
    const HRESULT hr =
        property.QueryValue(CategoryGroupsType, CategoryGroupsSubType, 0, 0, &word, array.GetSafeArrayAddress());
    if (FAILED(hr))
    {
        VD_TRACE(Error, L"  Failed to DoCommand: [0x%08x]", hr);
    }
    else
    {
        array.GetPrpUrlFilterCategoryCroupList(&list);
        VD_TRACE(Flow, L"Get UrlCategoryGroup [%d]", static_cast<int>(list.size()));
    }
    array.DestroyArray();
}

} // namespace

CZPTLogURL::CZPTLogURL(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &ColumnOrder<Columns>::Up;
    m_pfnCompareDn = &ColumnOrder<Columns>::Down;
    const ComUse com;
    GetURLFilterCategoryList(m_listCategoryGroup);
    m_mapCategoryGroup.reserve(m_listCategoryGroup.size());
    for (std::size_t i = 0; i < m_listCategoryGroup.size(); ++i)
    {
        m_mapCategoryGroup.emplace(m_listCategoryGroup[i].first, i);
    }
}

void CZPTLogURL::GetURLFilterCategoryList(CategoryGroups& list)
{
    VD_TRACE(Flow, L"[Enter] CZPTLogURL::GetURLFilterCategoryList");
    CComPtr<IVdFrwkLocalController> controller;
    HRESULT hr = controller.CoCreateInstance(CLSID_VdFrwkLocalController);
    if (FAILED(hr))
    {
        VD_TRACE(Error, L"  Failed to CoCreateInstance: [0x%08x]", hr);
        return;
    }
    CComPtr<IVdFrwkProperty> property;
    hr = controller->GetProperty(property.put());
    if (FAILED(hr) || !property)
    {
        VD_TRACE(Error, L"  Failed to GetProperty: [0x%08x]", hr);
        return;
    }
    QueryCategoryGroups(*property.get(), list);
    property.reset();
    controller.reset();
    VD_TRACE(Flow, L"[Leave] CZPTLogURL::GetURLFilterCategoryList");
}

void CZPTLogURL::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 1:
        return record.Append(ClockText(token));
    case 4:
        g_strUrlAction = token;
        return;
    case 5:
        g_nUrlResult = CodeOf(token);
        return;
    case 6:
        VdCommon::DelimiterChanger().Decode(g_strUrlAddress, token); // an empty token leaves the address before it
        return;
    case 7:
        PutFields(token, record);
        m_bRecordDone = true;
        return;
    case 8: // of a provider record
        m_bRecordDone = true;
        return;
    default:
        return;
    }
}

void CZPTLogURL::PutFields(std::wstring_view key, LogRec& record) const
{
    record.Append(g_strUrlAction);
    FindCategoryName(key);
    record.AppendLasting(TextOfCode(Results, g_nUrlResult));
    record.Append(g_strUrlAddress);
    record.AppendLasting(g_strUrlCategory);
}

void CZPTLogURL::FindCategoryName(std::wstring_view key) const
{
    if (g_nUrlResult == ResultByList)
    {
        g_strUrlCategory = LoadText(IDS_URL_CATEGORY_OF_LIST);
        return;
    }
    const auto found = m_mapCategoryGroup.find(key);
    g_strUrlCategory = found == m_mapCategoryGroup.end() ? std::wstring_view(LoadText(IDS_URL_CATEGORY_UNKNOWN))
                                                         : m_listCategoryGroup[found->second].second;
}
