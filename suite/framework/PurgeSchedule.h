#pragma once

#include "suite/framework/PurgeSettings.h"

#include <chrono>
#include <optional>

namespace Framework
{

// A purge by the service itself. Both days are YYYYMMDD.
struct ScheduledPurge
{
    std::uint32_t day;     // on which it began
    std::uint32_t through; // the last day that it takes

    bool operator==(const ScheduledPurge&) const = default;
};

// The purge that is due: events that are older than the set number of days go, so those of the day that many days ago
// stay. Nothing when it is switched off, when the settings make no sense, or when the last one was today and took as
// much: settings that keep less than they did have their effect on the same day. A last one that lies ahead was noted
// by a wrong clock and holds nobody up.
std::optional<ScheduledPurge> DuePurge(const PurgeSettings& settings, const std::optional<ScheduledPurge>& last,
                                       std::chrono::year_month_day today);

} // namespace Framework
