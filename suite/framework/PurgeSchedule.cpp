#include "suite/framework/PurgeSchedule.h"

#include "suite/framework/Day.h"

namespace Framework
{

namespace
{

constexpr std::uint32_t SwitchedOn = 1;

} // namespace

std::optional<ScheduledPurge> DuePurge(const PurgeSettings& settings, const std::optional<ScheduledPurge>& last,
                                       std::chrono::year_month_day today)
{
    if (settings.flag != SwitchedOn || !AreSensible(settings))
    {
        return std::nullopt;
    }
    const std::chrono::sys_days now = today;
    const ScheduledPurge due{DayOf(today), DayOf(now - std::chrono::days(settings.days) - std::chrono::days(1))};
    const bool isDone = last && last->day == due.day && last->through >= due.through;
    return isDone ? std::nullopt : std::optional(due);
}

} // namespace Framework
