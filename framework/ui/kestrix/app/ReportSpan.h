#pragma once

#include <cstdint>

// The days that a report covers.

inline constexpr std::uint32_t DefaultReportSpan = 7;

// The days of a setting: 3 to 30 as they are, and the default for any other number.
std::uint32_t ReportSpanOf(std::uint32_t setting) noexcept;

// The days as the service framework has them in its active profile; the default when it does not answer.
std::uint32_t QueryReportSpan();
