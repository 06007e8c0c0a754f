#pragma once

#include "framework/ui/kestrix/report/ReportCounts.h"
#include "framework/ui/kestrix/report/ReportFiles.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Counts the events of a report in the daily files of the last days. The days are cut into intervals, whose bounds are
// those of whole numbers: of 7 days in 3 intervals the most recent has 2 days, as has the next, and the oldest 3.
class CReportCollector
{
public:
    // The files must outlive the object. span: in days; the current one is day 0.
    CReportCollector(CReportFiles& files, std::uint32_t span, std::uint32_t intervals)
        : m_files(files), m_nReportSpan(span), m_nIntervals(intervals)
    {
    }

    // Counts everything. A file that cannot be read counts nothing. Throws CAtlException for a file whose date is one,
    // but not one whose days can be counted (see IsDateInDayRange).
    ReportCounts Collect();

    // Appends the names of the daily files of an extension (with its dot) that lie at least startDay and less than
    // endDay days back. The names are put together from the day that was read and this extension.
    void GetLogDate(const std::wstring& extension, std::vector<std::wstring>& names, std::uint32_t startDay,
                    std::uint32_t endDay) const;

    // Counts the records of these files. The number of records goes to count, but the events of a log that tells sorts
    // of events apart are counted by their sort.
    void GetLogItem(const std::vector<std::wstring>& names, std::uint32_t logType, std::uint32_t& count);

    // The same of one file; false when it cannot be read.
    bool ParseLogW(const std::wstring& name, std::uint32_t logType, std::uint32_t& count);

    // The same of one line. True: the next one is wanted.
    bool PutRecode(std::wstring_view line, std::uint32_t logType, std::uint32_t& count);

    // The same of one field of a line, by its index.
    void MakeReportRecode(std::size_t index, std::wstring_view field, std::uint32_t logType);

    // What was counted by sort since the last interval began.
    const ReportInterval& Interval() const { return m_interval; }

private:
    void CollectLine(const ReportLineCounts& line, ReportCounts& counts);
    void CountSuspiciousChange(std::uint32_t outcome);
    void CountSpywareKind(std::uint32_t kind);
    void CountSpywareOutcome(std::uint32_t outcome);

    CReportFiles& m_files;
    const std::uint32_t m_nReportSpan;
    const std::uint32_t m_nIntervals;
    ReportInterval m_interval;
};
