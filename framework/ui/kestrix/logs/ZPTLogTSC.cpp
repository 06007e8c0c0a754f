#include "framework/ui/kestrix/logs/ZPTLogTSC.h"

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
    FieldThreat,
    FieldResult,
};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_COLUMN_RESULT, 150, FieldResult, FieldResult},
    {IDS_COLUMN_THREAT, 125, FieldThreat, FieldThreat},
};

// The details are the last field: a file record, which lacks them, ends in the empty field that stands for its missing
// token.
constexpr LogInfoRow InfoRows[CLogInfoPage::InfoRows] = {
    {IDS_LABEL_THREAT, true, FieldThreat, InfoText::Link},
    {IDS_LABEL_DETAIL, true, LastField},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_EXPORT_EVENT_TIME},
    {IDS_COLUMN_THREAT},
    {IDS_COLUMN_RESULT},
    {IDS_LABEL_DETAIL, Colons::AllRemoved},
};

constexpr LogLayout Layout = {
    .type = LogTypeTsc,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr CodeOutcome Results[] = {
    {0, {IDS_TSC_UNSUCCESSFUL, 2}},
    {1, {IDS_TSC_SUCCESSFUL, 0}},
};
constexpr Outcome OtherResult = {0, 1};

} // namespace

CZPTLogTSC::CZPTLogTSC(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &ColumnOrder<Columns>::Up;
    m_pfnCompareDn = &ColumnOrder<Columns>::Down;
}

void CZPTLogTSC::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 1:
        return record.Append(ClockText(token));
    case 2:
        return record.Append(token);
    case 3:
        AppendOutcome(OutcomeOfCode(Results, CodeOf(token), OtherResult), record);
        if (!m_bUseDBMgr)
        {
            m_bRecordDone = true;
        }
        return;
    case 4:
        record.Append(token);
        m_bRecordDone = true;
        return;
    default:
        return;
    }
}
