#pragma once

#include "suite/samples/Kinds.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace Samples
{

// Writes the daily files of the given kinds for the `days` days that end with `end` into `folder`, which is made when
// it is missing. Files of the same names are replaced, all others stay. The same seed, days and end date give the same
// bytes, and what is written for a kind does not depend on the other kinds.
// Throws Failure when something cannot be made or written.
void WriteMonth(const std::filesystem::path& folder, std::span<const Kind* const> kinds, Date end, unsigned days,
                std::uint64_t seed);

// Writes one file of `lines` records spread evenly over one day. Throws Failure like WriteMonth.
void WriteLines(const std::filesystem::path& file, const Kind& kind, Date date, std::uint64_t lines,
                std::uint64_t seed);

} // namespace Samples
