#include "framework/ui/kestrix/logs/ZPTLogPVY.h"

#include "framework/ui/kestrix/logs/CodeOutcomes.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "resource/WebAndTaskTexts.h"
#include "resource/resource.h"

namespace
{

// The fields of a record.
enum Field : std::size_t
{
    FieldTime,
    FieldData,
    FieldResult,
    FieldPlace,
};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_COLUMN_RESULT, 150, FieldResult, FieldResult},
    {IDS_PRIVACY_COLUMN_DATA, 125, FieldData, FieldData},
};

constexpr LogInfoRow InfoRows[CLogInfoPage::InfoRows] = {
    {IDS_PRIVACY_LABEL_DATA, true, FieldData, InfoText::Cut},
    {IDS_PRIVACY_LABEL_PLACE, true, FieldPlace, InfoText::Cut},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_EXPORT_TIME},
    {IDS_PRIVACY_COLUMN_DATA},
    {IDS_COLUMN_RESULT},
    {IDS_PRIVACY_LABEL_PLACE, Colons::AllRemoved},
};

constexpr LogLayout Layout = {
    .type = LogTypePrivacy,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr CodeOutcome Results[] = {
    {0, {IDS_PRIVACY_ALLOWED, 0}},
    {101, {IDS_PRIVACY_BLOCKED, 1}},
};
constexpr Outcome OtherResult = {0, 0}; // shown as it stands

constexpr std::uint32_t KindMail = 2;

// What the parser keeps from one token to the next, once for the whole process.
std::uint32_t g_nPvyKind = 0;
std::wstring g_strPvyItem;

} // namespace

CZPTLogPVY::CZPTLogPVY(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &ColumnOrder<Columns>::Up;
    m_pfnCompareDn = &ColumnOrder<Columns>::Down;
}

void CZPTLogPVY::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 1:
        return record.Append(ClockText(token));
    case 2:
        g_nPvyKind = CodeOf(token);
        return;
    case 4:
        return record.Append(token);
    case 5:
        return SetResult(token, record);
    case 6:
        return SetItem(token, record);
    case 7:
        return SetPlace(token, record);
    default:
        return;
    }
}

void CZPTLogPVY::SetResult(std::wstring_view token, LogRec& record)
{
    const Outcome result = OutcomeOfCode(Results, CodeOf(token), OtherResult);
    result.text == 0 ? record.Append(token) : AppendOutcome(result, record);
}

void CZPTLogPVY::SetItem(std::wstring_view token, LogRec& record)
{
    if (g_nPvyKind == KindMail)
    {
        Unescape(token, g_strPvyItem);
        return;
    }
    Unescape(token, m_strPlain);
    record.Append(m_strPlain);
}

void CZPTLogPVY::SetPlace(std::wstring_view token, LogRec& record)
{
    if (g_nPvyKind == KindMail)
    {
        Unescape(token, m_strPlain);
        record.Append(m_strPlain.append(L" \"").append(g_strPvyItem).append(L"\""));
    }
    m_bRecordDone = true;
}
