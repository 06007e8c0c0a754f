#include "framework/ui/kestrix/logs/ZPTLogScan.h"

#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "resource/WebAndTaskTexts.h"
#include "resource/resource.h"

namespace
{

// The fields of a record. A result that is not known has no field: the versions then stand one place earlier.
enum Field : std::size_t
{
    FieldTime,
    FieldStarted,
    FieldEnded,
    FieldResult,
    FieldScanEngine,
    FieldScanPattern,
};

// The column is sorted by the time all the same.
constexpr LogColumn Columns[] = {{IDS_SCAN_COLUMN_RESULT, 357, FieldResult, FieldTime}};

constexpr LogInfoRow InfoRows[CLogInfoPage::InfoRows] = {
    {IDS_SCAN_LABEL_STARTED, true, FieldStarted},
    {IDS_SCAN_LABEL_ENDED, true, FieldEnded},
    {IDS_SCAN_LABEL_PATTERN, true, FieldScanPattern},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_SCAN_EXPORT_TIME},
    {IDS_SCAN_LABEL_STARTED, Colons::AllRemoved},
    {IDS_SCAN_LABEL_ENDED, Colons::AllRemoved},
    {IDS_SCAN_COLUMN_RESULT},
    {.literal = L"MXAPI Engine Version"},
    {IDS_SCAN_LABEL_PATTERN, Colons::AllRemoved},
    {.literal = L"GRAPI Engine Version"},
    {.literal = L"GRAPI Da6 Version"},
    {.literal = L"Rqe Engine Version"},
    {.literal = L"Rqe Pattern Version"},
};

constexpr LogLayout Layout = {
    .type = LogTypeScan,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr CodeText Results[] = {
    {0, IDS_SCAN_NO_THREATS}, {1, IDS_SCAN_HANDLED},      {2, IDS_SCAN_ACTION_REQUIRED},
    {3, IDS_SCAN_STOPPED},    {4, IDS_SCAN_UNSUCCESSFUL},
};
static_assert(IsSorted(Results));

} // namespace

CZPTLogScan::CZPTLogScan(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
}

void CZPTLogScan::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 1:
    case 3:
    case 5:
        return record.Append(ClockText(token));
    case 6:
        AppendTextOfCode(Results, CodeOf(token), record);
        return;
    case 7:
    case 8:
    case 9:
    case 10:
    case 11:
        return record.Append(token);
    case 12:
        record.Append(token);
        m_bRecordDone = true;
        return;
    default:
        return;
    }
}
