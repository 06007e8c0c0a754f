#include "framework/ui/kestrix/report/ReportCollector.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_FormatText.h"
#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/DailyFiles.h"
#include "framework/ui/kestrix/logs/DateRange.h"
#include "framework/ui/kestrix/logs/FindCharacter.h"

#include <algorithm>
#include <numeric>

namespace
{

// The fields that are looked at, counted from 0.
constexpr std::size_t SpywareKindField = 2;
constexpr std::size_t OutcomeField = 12; // of a spyware record and of a suspicious change

// Outcomes of a suspicious change.
constexpr std::uint32_t ChangeAllowed = 0;
constexpr std::uint32_t ChangeBlocked = 2;

constexpr std::uint32_t SpywareDetected = 1; // an outcome of a spyware record

// The kinds of spyware records that count by themselves.
constexpr std::uint32_t FirstCountedKind = 1;
constexpr std::uint32_t LastCountedKind = 3;

constexpr int Decimal = 10;
constexpr int BaseOfPrefix = 0;

bool HasSorts(std::uint32_t logType)
{
    return logType == LogTypeSpyware || logType == LogTypeVst;
}

std::uint32_t MaximumOf(const ReportSeries& series)
{
    return series.empty() ? 0 : *std::ranges::max_element(series);
}

std::uint32_t SumOf(const ReportSeries& series)
{
    return std::accumulate(series.begin(), series.end(), std::uint32_t{0});
}

// Puts the interval that was counted after the others of the line. count: of a line without sorts.
void AppendInterval(const ReportLineCounts& line, const ReportInterval& interval, std::uint32_t count,
                    ReportCounts& counts)
{
    for (const ReportSort& sort : line.sorts)
    {
        if (sort.series != nullptr)
        {
            (counts.*sort.series).push_back(interval.*sort.count);
            count += interval.*sort.count;
        }
    }
    (counts.*line.series).push_back(count);
}

} // namespace

ReportCounts CReportCollector::Collect()
{
    ReportCounts counts;
    for (const ReportLineCounts& line : ReportLines())
    {
        CollectLine(line, counts);
        counts.m_nGrandTotal += counts.*line.total;
    }
    counts.m_nMaxCount = MaximumOf(counts.m_vecSeriesMax);
    VD_TRACE(Info, L"Max Count item number [%ld]", counts.m_nMaxCount);
    return counts;
}

void CReportCollector::CollectLine(const ReportLineCounts& line, ReportCounts& counts)
{
    const LogKind& kind = KindOfReportLine(line.line);
    const std::wstring extension = L"." + std::wstring(kind.extension);
    for (std::uint32_t i = 0; i < m_nIntervals; ++i)
    {
        m_interval = {};
        std::uint32_t count = 0;
        std::vector<std::wstring> names;
        GetLogDate(extension, names, i * m_nReportSpan / m_nIntervals, (i + 1) * m_nReportSpan / m_nIntervals);
        GetLogItem(names, kind.type, count);
        AppendInterval(line, m_interval, count, counts);
    }
    counts.*line.max = MaximumOf(counts.*line.series);
    counts.m_vecSeriesMax.push_back(counts.*line.max);
    counts.*line.total = SumOf(counts.*line.series);
    for (const ReportSort& sort : line.sorts)
    {
        if (sort.series != nullptr)
        {
            counts.*sort.total = SumOf(counts.*sort.series);
        }
    }
}

void CReportCollector::GetLogDate(const std::wstring& extension, std::vector<std::wstring>& names,
                                  std::uint32_t startDay, std::uint32_t endDay) const
{
    if (extension.empty())
    {
        return;
    }
    m_files.ForEachEntry(
        extension,
        [&](std::wstring_view name, bool isDirectory)
        {
            VD_TRACE(Info, L"log filename[%s]", name);
            if (name.size() != DailyFileNameLength || isDirectory)
            {
                return;
            }
            const COleDateTime date = DateOfName(name);
            SYSTEMTIME day{};
            if (date.GetAsSystemTime(day) && startDay <= endDay && IsDateInDayRange(date, startDay, endDay))
            {
                names.push_back(
                    VdCommon::String::FormatText(L"%04d%02d%02d%s", {std::int32_t{day.wYear}, std::int32_t{day.wMonth},
                                                                     std::int32_t{day.wDay}, extension}));
            }
        });
}

void CReportCollector::GetLogItem(const std::vector<std::wstring>& names, std::uint32_t logType, std::uint32_t& count)
{
    for (const std::wstring& name : names)
    {
        ParseLogW(name, logType, count);
    }
}

bool CReportCollector::ParseLogW(const std::wstring& name, std::uint32_t logType, std::uint32_t& count)
{
    VD_TRACE(Flow, L"[Enter]CKxReportDlg::ParseLogW");
    LogLineReader* const reader = m_files.Open(name);
    if (reader == nullptr)
    {
        return false;
    }
    std::wstring_view line;
    while (reader->NextLine(line) && PutRecode(line, logType, count))
    {
    }
    VD_TRACE(Flow, L"[Leave]CKxReportDlg::ParseLogW");
    return true;
}

bool CReportCollector::PutRecode(std::wstring_view line, std::uint32_t logType, std::uint32_t& count)
{
    if (!HasSorts(logType))
    {
        ++count;
        return true;
    }
    VD_TRACE(Info, L"CZPTLogBase::PutRecode strData[%s]", line);
    const wchar_t* const end = line.data() + line.size();
    const wchar_t* field = line.data();
    for (std::size_t index = 0;; ++index)
    {
        const wchar_t* const bar = FindCharacter(field, end, L'|');
        MakeReportRecode(index, {field, bar}, logType);
        if (bar == end)
        {
            return true;
        }
        field = bar + 1;
    }
}

// The two rules for spyware are independent: a record that both of them count is counted twice.
void CReportCollector::MakeReportRecode(std::size_t index, std::wstring_view field, std::uint32_t logType)
{
    if (logType == LogTypeVst && index == OutcomeField)
    {
        CountSuspiciousChange(VdCommon::WideToUnsigned(field, Decimal));
    }
    else if (logType == LogTypeSpyware && index == SpywareKindField)
    {
        CountSpywareKind(VdCommon::WideToUnsigned(field, BaseOfPrefix));
    }
    else if (logType == LogTypeSpyware && index == OutcomeField)
    {
        CountSpywareOutcome(VdCommon::WideToUnsigned(field, Decimal));
    }
}

void CReportCollector::CountSuspiciousChange(std::uint32_t outcome)
{
    m_interval.m_nSuspiciousCode0 += outcome == ChangeAllowed ? 1 : 0;
    m_interval.m_nSuspiciousCode2 += outcome == ChangeBlocked ? 1 : 0;
}

void CReportCollector::CountSpywareKind(std::uint32_t kind)
{
    if (kind >= FirstCountedKind && kind <= LastCountedKind)
    {
        ++m_interval.m_nSpywareOther;
        VD_TRACE(Info, L"CKxReportDlg::MakeReportRecode --- Spyware Other Count add 1");
    }
}

void CReportCollector::CountSpywareOutcome(std::uint32_t outcome)
{
    if (outcome == SpywareDetected)
    {
        ++m_interval.m_nSpywareDetect;
        VD_TRACE(Info, L"CKxReportDlg::MakeReportRecode Spyware Detect Count add 1");
    }
    else
    {
        ++m_interval.m_nSpywareOther;
        VD_TRACE(Info, L"CKxReportDlg::MakeReportRecode Spyware Other Count add 1");
    }
}
