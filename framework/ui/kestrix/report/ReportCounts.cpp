#include "framework/ui/kestrix/report/ReportCounts.h"

#include <algorithm>

namespace
{

using Counts = ReportCounts;
using Interval = ReportInterval;

constexpr ReportLineCounts Lines[ReportLineCount] = {
    {.line = ReportLine::Virus,
     .series = &Counts::m_vecVirus,
     .total = &Counts::m_nVirusTotal,
     .max = &Counts::m_nVirusMax},
    {.line = ReportLine::SuspiciousChange,
     .series = &Counts::m_vecSuspicious,
     .total = &Counts::m_nSuspiciousTotal,
     .max = &Counts::m_nSuspiciousMax,
     .sorts = {{&Interval::m_nSuspiciousCode2, &Counts::m_vecSuspiciousCode2, &Counts::m_nSuspiciousCode2Total},
               {&Interval::m_nSuspiciousCode0, &Counts::m_vecSuspiciousCode0, &Counts::m_nSuspiciousCode0Total}}},
    {.line = ReportLine::Spyware,
     .series = &Counts::m_vecSpyware,
     .total = &Counts::m_nSpywareTotal,
     .max = &Counts::m_nSpywareMax,
     .sorts = {{&Interval::m_nSpywareDetect, &Counts::m_vecSpywareDetect, &Counts::m_nSpywareDetectTotal},
               {&Interval::m_nSpywareOther, &Counts::m_vecSpywareOther, &Counts::m_nSpywareOtherTotal}}},
    {.line = ReportLine::Web, .series = &Counts::m_vecWeb, .total = &Counts::m_nWebTotal, .max = &Counts::m_nWebMax},
    {.line = ReportLine::DataPrevention,
     .series = &Counts::m_vecDataPrevention,
     .total = &Counts::m_nDataPreventionTotal,
     .max = &Counts::m_nDataPreventionMax},
};

} // namespace

std::span<const ReportLineCounts, ReportLineCount> ReportLines() noexcept
{
    return Lines;
}

const LogKind& KindOfReportLine(ReportLine line) noexcept
{
    return *std::ranges::find(LogKinds(), line, &LogKind::reportLine);
}
