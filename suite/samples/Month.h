#pragma once

#include "suite/samples/Kinds.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>

namespace Samples
{

// Takes the lines of one day of a kind, oldest first; days without records are left out.
using TakeDay = std::function<void(const Kind& kind, Date date, std::span<const std::wstring> lines)>;

// Makes up the records of the given kinds for the `days` days that end with `end`, kind by kind from the oldest day to
// the newest. The same seed, days and end date give the same lines, and those of a kind do not depend on other kinds.
void MakeMonth(std::span<const Kind* const> kinds, Date end, unsigned days, std::uint64_t seed, const TakeDay& take);

// Writes them as daily files into `folder`, which is made when it is missing. Files of the same names are replaced, all
// others stay.
// Throws Failure when something cannot be made or written.
void WriteMonth(const std::filesystem::path& folder, std::span<const Kind* const> kinds, Date end, unsigned days,
                std::uint64_t seed);

// Writes one file of `lines` records spread evenly over one day. Throws Failure like WriteMonth.
void WriteLines(const std::filesystem::path& file, const Kind& kind, Date date, std::uint64_t lines,
                std::uint64_t seed);

} // namespace Samples
