#pragma once

#include "suite/framework/PurgeSettings.h"

#include <chrono>
#include <optional>

namespace Framework
{

// The last day that a scheduled purge takes: events that are older than the set number of days go, so those of the day
// that many days ago stay. Nothing when no purge is due: it is switched off, was done today already, or the settings
// make no sense. `last` is the day of the last purge, if there was one; one that lies ahead was noted by a wrong clock
// and holds nobody up.
std::optional<std::uint32_t> DuePurge(const PurgeSettings& settings, std::optional<std::uint32_t> last,
                                      std::chrono::year_month_day today);

} // namespace Framework
