#include "framework/ui/kestrix/logs/ZPTLogVA.h"

#include "framework/ui/kestrix/logs/CodeOutcomes.h"
#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/ResourceText.h"
#include "resource/WebAndTaskTexts.h"
#include "resource/resource.h"

namespace
{

// The fields of a record.
enum Field : std::size_t
{
    FieldTime,
    FieldName,
    FieldRisk,
    FieldStatus,
    FieldSolution,
};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_VA_COLUMN_NAME, 150, FieldName, FieldName},
    {IDS_VA_COLUMN_RISK, 125, FieldRisk, FieldRisk},
};

constexpr LogInfoRow InfoRows[CLogInfoPage::InfoRows] = {
    {IDS_VA_LABEL_STATUS, true, FieldStatus},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_COLUMN_TIME}, {IDS_VA_EXPORT_NAME}, {IDS_VA_EXPORT_RISK}, {IDS_VA_LABEL_STATUS}, {IDS_VA_EXPORT_SOLUTION},
};

constexpr LogLayout Layout = {
    .type = LogTypeVa,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr CodeOutcome Risks[] = {
    {0, {IDS_VA_RISK_NONE, 0}}, {1, {IDS_VA_RISK_LOW, 1}},      {2, {IDS_VA_RISK_MEDIUM, 2}},
    {3, {IDS_VA_RISK_HIGH, 3}}, {4, {IDS_VA_RISK_CRITICAL, 4}},
};
constexpr Outcome OtherRisk = {IDS_VA_RISK_UNKNOWN, 5};
constexpr Outcome RiskOfNothing = {IDS_VA_RISK_OF_NOTHING, 5};

constexpr CodeText Statuses[] = {
    {0, IDS_VA_FIX_AVAILABLE},
    {1, IDS_VA_FIX_INSTALLED},
    {2, IDS_VA_FIX_MISSING},
};
static_assert(IsSorted(Statuses));

// Whether the record being parsed has no name, once for the whole process.
bool g_bVaNameEmpty = false;

// Appends the text, or another one where it is empty.
void AppendOr(UINT other, std::wstring_view text, LogRec& record)
{
    text.empty() ? record.AppendLasting(LoadText(other)) : record.Append(text);
}

} // namespace

CZPTLogVA::CZPTLogVA(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
}

void CZPTLogVA::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 1:
        return record.Append(ClockText(token));
    case 2:
        g_bVaNameEmpty = token.empty();
        return AppendOr(IDS_VA_NOTHING_FOUND, token, record);
    case 3:
        return AppendOutcome(g_bVaNameEmpty ? RiskOfNothing : OutcomeOfCode(Risks, CodeOf(token), OtherRisk), record);
    case 4:
        return record.AppendLasting(g_bVaNameEmpty ? std::wstring_view(LoadText(IDS_VA_FIX_OF_NOTHING))
                                                   : TextOfCode(Statuses, CodeOf(token), IDS_VA_FIX_UNKNOWN));
    case 5:
        AppendOr(IDS_VA_NO_SOLUTION, token, record);
        m_bRecordDone = true;
        return;
    default:
        return;
    }
}
