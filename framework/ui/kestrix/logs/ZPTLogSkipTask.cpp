#include "framework/ui/kestrix/logs/ZPTLogSkipTask.h"

#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "resource/WebAndTaskTexts.h"
#include "resource/resource.h"

namespace
{

// The fields of a record. A task that is not known has no field: the reason then stands in its place.
enum Field : std::size_t
{
    FieldTime,
    FieldTask,
    FieldReason,
};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_SKIP_COLUMN_TASK, 257, FieldTask, FieldTask},
};

constexpr LogInfoRow InfoRows[CLogInfoPage::InfoRows] = {
    {IDS_SKIP_LABEL_REASON, true, FieldReason},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_COLUMN_TIME},
    {IDS_SKIP_COLUMN_TASK},
    {IDS_SKIP_LABEL_REASON, Colons::AllRemoved},
};

constexpr LogLayout Layout = {
    .type = LogTypeSkippedTask,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr CodeText Tasks[] = {
    {0, IDS_SKIP_TASK_SCAN},
    {1, IDS_SKIP_TASK_UPDATE},
    {2, IDS_SKIP_TASK_TUNING},
};
static_assert(IsSorted(Tasks));

constexpr CodeText Reasons[] = {
    {0, IDS_SKIP_REASON_BATTERY},
    {1, IDS_SKIP_REASON_IN_USE},
    {2, IDS_SKIP_REASON_OTHER_TASK},
};
static_assert(IsSorted(Reasons));

} // namespace

CZPTLogSkipTask::CZPTLogSkipTask(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
}

void CZPTLogSkipTask::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 3:
        return record.Append(ClockText(token));
    case 4:
        AppendTextOfCode(Tasks, CodeOf(token), record);
        return;
    case 5:
        m_bRecordDone = AppendTextOfCode(Reasons, CodeOf(token), record); // a line with another reason is refused
        return;
    default:
        return;
    }
}
