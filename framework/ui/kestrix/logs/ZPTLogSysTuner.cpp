#include "framework/ui/kestrix/logs/ZPTLogSysTuner.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/ShownTexts.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/OleDateTime.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <stdexcept>

namespace
{

// The fields of a record.
enum Field : std::size_t
{
    FieldTime,
    FieldFunction,
    FieldStep,
    FieldStatus,
    FieldItem,
    FieldValue,
};

constexpr int StepColumn = 1;
constexpr std::wstring_view BeforeItem = L" - "; // in that column

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_TUNER_ITEM, 257, FieldStep, FieldStep}, // with the item, if there is one
};

constexpr LogInfoRow InfoRows[] = {
    {IDS_TUNER_LABEL_FUNCTION, true, FieldFunction},
    {IDS_TUNER_LABEL_VALUE, true, FieldValue},
    {IDS_TUNER_LABEL_STATUS, true, FieldStatus},
    {0, false},
    {0, false},
    {0, false},
    {0, false},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_COLUMN_TIME},
    {IDS_TUNER_LABEL_FUNCTION, Colons::AllRemoved},
    {0, Colons::Kept, L"Tuner Type"},
    {IDS_TUNER_LABEL_STATUS, Colons::AllRemoved},
    {IDS_TUNER_ITEM},
    {IDS_TUNER_LABEL_VALUE, Colons::AllRemoved},
};

constexpr LogLayout Layout = {
    .type = LogTypeSystemTuner,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr CodeText DiskSteps[] = {
    {0, IDS_TUNER_TEMPORARY_FILES}, {1, IDS_TUNER_INTERNET_FILES}, {2, IDS_TUNER_RECYCLE_BIN},
    {3, IDS_TUNER_DUMP_FILES},      {4, IDS_TUNER_LOG_FILES},
};
static_assert(IsSorted(DiskSteps));

constexpr CodeText StartupSteps[] = {{0, IDS_TUNER_STARTUP_OFF}, {1, IDS_TUNER_STARTUP_ON}};
static_assert(IsSorted(StartupSteps));

constexpr CodeText PrivacySteps[] = {
    {0, IDS_TUNER_HISTORY},
    {1, IDS_TUNER_ADDRESS_LIST},
    {2, IDS_TUNER_FORM_DATA},
    {3, IDS_TUNER_PASSWORDS},
};
static_assert(IsSorted(PrivacySteps));

// What a function's value is.
enum class Value
{
    None,
    Text,
    Count,
    Date,
};

// A function of the tuner by its code, which is its place in the table. Texts are 0 where there are none.
struct Function
{
    UINT text;
    std::span<const CodeText> steps;
    UINT otherSteps;
    Value value;
    UINT one;  // what stands after a count of 0 or 1, or before a date
    UINT many; // what stands after any other count
};

constexpr Function Functions[] = {
    {IDS_TUNER_DISK, DiskSteps, 0, Value::Count, IDS_TUNER_KILOBYTES, IDS_TUNER_KILOBYTES},
    {IDS_TUNER_STARTUP, StartupSteps, 0, Value::Text, 0, 0},
    {IDS_TUNER_REGISTRY, {}, IDS_TUNER_REGISTRY_ENTRIES, Value::Count, IDS_TUNER_ENTRY, IDS_TUNER_ENTRIES},
    {IDS_TUNER_PRIVACY, PrivacySteps, 0, Value::Date, IDS_TUNER_LAST_USED, 0},
    {IDS_TUNER_COOKIES, {}, IDS_TUNER_BROWSER_COOKIES, Value::Count, IDS_TUNER_COOKIE, IDS_TUNER_COOKIE_PLURAL},
    {IDS_TUNER_RECENT, {}, IDS_TUNER_RECENT_LIST, Value::Count, IDS_TUNER_RECENT_ITEM, IDS_TUNER_RECENT_ITEMS},
};

constexpr Function UnknownFunction = {0, {}, 0, Value::None, 0, 0};

constexpr std::wstring_view NoItem = L"--";

// The function of the line that was parsed last, once for the whole process.
std::uint32_t g_nTunerType = 0;

const Function& CurrentFunction()
{
    return g_nTunerType < std::size(Functions) ? Functions[g_nTunerType] : UnknownFunction;
}

std::wstring_view TextOrNone(UINT text)
{
    return text == 0 ? std::wstring_view() : std::wstring_view(LoadText(text));
}

std::wstring_view StatusText(std::uint32_t status)
{
    const bool done = status == 0;
    return g_nTunerType == 0 ? LoadText(done ? IDS_TUNER_DELETED : IDS_TUNER_NOT_DELETED)
                             : LoadText(done ? IDS_TUNER_DONE : IDS_TUNER_FAILED);
}

// The date at the start of the text, and its three numbers, which are 0 where they are missing.
struct SlashedDate
{
    explicit SlashedDate(std::wstring_view text)
    {
        const std::size_t slash = text.find(L'/');
        const auto number = [text](std::size_t start, std::size_t length)
        { return start < text.size() ? VdCommon::WideToInteger(text.substr(start, length)) : 0; };
        // Without a slash there is no year, and the other two are taken from the start of the text.
        year = slash == text.npos ? 0 : number(0, slash);
        month = number(slash + 1, 2);
        day = number(slash + 4, 2);
    }

    // Another number for each date: month and day have two characters at the most.
    std::int64_t Number() const { return (year * std::int64_t{0x100} + month) * 0x100 + day; }

    std::int32_t year;
    std::int32_t month;
    std::int32_t day;
};

constexpr std::size_t LongestDate = 259;

// The date as the user's region writes it, or what stands for one that the region cannot show; empty for one that the
// calendar does not have.
std::wstring RegionDate(const SlashedDate& numbers)
{
    constexpr int noon = 12;
    const COleDateTime date(numbers.year, numbers.month, numbers.day, noon, 0, 0);
    if (date.GetStatus() != COleDateTime::valid)
    {
        return {};
    }
    const std::wstring text = date.Format(VAR_DATEVALUEONLY);
    if (!text.empty())
    {
        return text.substr(0, LongestDate);
    }
    const std::wstring& none = LoadText(IDS_INVALID_DATE);
    return none.empty() ? L"Invalid DateTime" : none;
}

} // namespace

CZPTLogSysTuner::CZPTLogSysTuner(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &CZPTLogSysTuner::CompareFuncUp;
    m_pfnCompareDn = &ColumnOrder<Columns>::Down;
}

// Steps are sorted in one direction only.
int CALLBACK CZPTLogSysTuner::CompareFuncUp(LPARAM first, LPARAM second, LPARAM column)
{
    return column == StepColumn ? ColumnOrder<Columns>::Down(first, second, column)
                                : ColumnOrder<Columns>::Up(first, second, column);
}

void CZPTLogSysTuner::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 1:
        record.Append(ClockText(token));
        return;
    case 2:
        g_nTunerType = CodeOf(token);
        record.AppendLasting(TextOrNone(CurrentFunction().text));
        return;
    case 3:
        record.AppendLasting(TextOfCode(CurrentFunction().steps, CodeOf(token), CurrentFunction().otherSteps));
        return;
    case 4:
        record.AppendLasting(StatusText(CodeOf(token)));
        return;
    case 5:
        record.Append(token.empty() ? NoItem : token);
        return;
    case 6:
        AppendValue(token, record);
        m_bRecordDone = true;
        return;
    default:
        return;
    }
}

void CZPTLogSysTuner::AppendValue(std::wstring_view token, LogRec& record)
{
    const Function& function = CurrentFunction();
    switch (function.value)
    {
    case Value::None:
        return record.AppendLasting({});
    case Value::Text:
        return record.Append(token);
    case Value::Count:
        return record.AppendJoined(token, LoadText(VdCommon::WideToInteger(token) > 1 ? function.many : function.one));
    case Value::Date:
        std::wstring date(token);
        FormatLastAccessDate(date);
        return record.AppendJoined(LoadText(function.one), date);
    }
}

void CZPTLogSysTuner::FormatLastAccessDate(std::wstring& text)
{
    VD_TRACE(Flow, L"[Enter] CZPTLogSysTuner::FormatLastAccessDate...");
    const SlashedDate date(text);
    VD_TRACE(Info, L"CZPTLogSysTuner::FormatLastAccessDate - Date = [%d/%d/%d]", date.year, date.month, date.day);
    auto known = m_mapDateText.find(date.Number());
    if (known == m_mapDateText.end())
    {
        known = m_mapDateText.emplace(date.Number(), RegionDate(date)).first;
    }
    if (known->second.empty())
    {
        VD_TRACE(Error, L"*** CZPTLogSysTuner::FormatLastAccessDate - oletime invalid");
        return;
    }
    text = known->second;
    // Readers of the trace know the text by the name of the function that it was first written for.
    VD_TRACE(Info, L"*** CKestrixDlg::FillDate() - Datetime string to be filled : [%s]", text);
    VD_TRACE(Flow, L"[Leave] CZPTLogSysTuner::FormatLastAccessDate...");
}

// With the records go the dates' texts: the region may be another when the next day is read.
void CZPTLogSysTuner::ClearLog()
{
    CZPTLogBase::ClearLog();
    m_mapDateText.clear();
}

bool CZPTLogSysTuner::SetListLog()
{
    const std::size_t count = GetLogCount();
    const bool made = CZPTLogBase::SetListLog();
    if (GetLogCount() != count)
    {
        throw std::invalid_argument("the records of the list have changed");
    }
    return made;
}

void CZPTLogSysTuner::GetColumnText(const LogRec* record, std::wstring& text, int column) const
{
    CZPTLogBase::GetColumnText(record, text, column);
    if (column == StepColumn && record->Field(FieldItem) != NoItem)
    {
        text.append(BeforeItem).append(record->Field(FieldItem));
    }
}

void CZPTLogSysTuner::AddColumnTexts(const LogRec& record, ShownTexts& texts) const
{
    const std::wstring_view step = record.FieldOrEmpty(FieldStep);
    const std::wstring_view item = record.FieldOrEmpty(FieldItem);
    texts.Add(record.FieldOrEmpty(FieldTime));
    item == NoItem ? texts.Add(step) : texts.AddMade(step, BeforeItem, item);
}
