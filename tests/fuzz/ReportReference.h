#pragma once

#include "tests/unit/framework/ui/kestrix/report/ReportFilesDouble.h"

#include <cstdint>
#include <vector>

namespace Fuzz
{

// The events of one line of a report, interval by interval; of a line with two sorts of events, those of each as well.
struct ReferenceLine
{
    std::vector<std::uint32_t> series;
    std::vector<std::uint32_t> first;  // blocked changes, detected spyware
    std::vector<std::uint32_t> second; // allowed changes, other spyware
};

// The five lines of a report about these files on 21 November 2026, counted a second time, plain and slow, from what
// is asked of a report. No name may tell a year from 100 to 1899.
std::vector<ReferenceLine> CountReport(const std::vector<ReportFilesDouble::Entry>& files, std::uint32_t span,
                                       std::uint32_t intervals);

} // namespace Fuzz
