#pragma once

#include "framework/ui/kestrix/logs/LogKinds.h"

#include <cstdint>
#include <span>
#include <vector>

// The events of one interval after the other, the most recent interval first.
using ReportSeries = std::vector<std::uint32_t>;

// What the report tells: the events of each line, over its intervals and in all. A line whose events are of two sorts
// has a series and a total for each of them beside its own. All numbers are modulo 2 to the 32.
struct ReportCounts
{
    ReportSeries m_vecVirus;
    ReportSeries m_vecSuspicious;
    ReportSeries m_vecSuspiciousCode2; // blocked
    ReportSeries m_vecSuspiciousCode0; // allowed
    ReportSeries m_vecSpyware;
    ReportSeries m_vecSpywareDetect;
    ReportSeries m_vecSpywareOther;
    ReportSeries m_vecWeb;
    ReportSeries m_vecDataPrevention;
    ReportSeries m_vecSeriesMax; // the maximum of each line, in the order of the lines

    std::uint32_t m_nVirusTotal = 0;
    std::uint32_t m_nVirusMax = 0;
    std::uint32_t m_nSuspiciousTotal = 0;
    std::uint32_t m_nSuspiciousCode2Total = 0;
    std::uint32_t m_nSuspiciousCode0Total = 0;
    std::uint32_t m_nSuspiciousMax = 0;
    std::uint32_t m_nSpywareTotal = 0;
    std::uint32_t m_nSpywareDetectTotal = 0;
    std::uint32_t m_nSpywareOtherTotal = 0;
    std::uint32_t m_nSpywareMax = 0;
    std::uint32_t m_nWebTotal = 0;
    std::uint32_t m_nWebMax = 0;
    std::uint32_t m_nDataPreventionTotal = 0;
    std::uint32_t m_nDataPreventionMax = 0;

    std::uint32_t m_nMaxCount = 0;   // the greatest number of any line and interval
    std::uint32_t m_nGrandTotal = 0; // of all lines
};

// The events of the interval that is being counted, by their sort.
struct ReportInterval
{
    std::uint32_t m_nSuspiciousCode2 = 0;
    std::uint32_t m_nSuspiciousCode0 = 0;
    std::uint32_t m_nSpywareDetect = 0;
    std::uint32_t m_nSpywareOther = 0;
};

// A sort of events: where it is counted, and where its numbers go. Null members for none.
struct ReportSort
{
    std::uint32_t ReportInterval::*count = nullptr;
    ReportSeries ReportCounts::*series = nullptr;
    std::uint32_t ReportCounts::*total = nullptr;
};

// Where the numbers of a line go. A line without sorts counts every record.
struct ReportLineCounts
{
    ReportLine line = ReportLine::None;
    ReportSeries ReportCounts::*series = nullptr;
    std::uint32_t ReportCounts::*total = nullptr;
    std::uint32_t ReportCounts::*max = nullptr;
    ReportSort sorts[2]{};
};

// How many lines a report has.
inline constexpr std::size_t ReportLineCount = 5;

// The lines, in the order in which they are counted and drawn.
std::span<const ReportLineCounts, ReportLineCount> ReportLines() noexcept;

// The log whose records a line counts.
const LogKind& KindOfReportLine(ReportLine line) noexcept;
