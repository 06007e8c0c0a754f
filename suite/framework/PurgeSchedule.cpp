#include "suite/framework/PurgeSchedule.h"

#include "suite/framework/Day.h"

namespace Framework
{

namespace
{

constexpr std::uint32_t SwitchedOn = 1;

} // namespace

std::optional<std::uint32_t> DuePurge(const PurgeSettings& settings, std::optional<std::uint32_t> last,
                                      std::chrono::year_month_day today)
{
    const std::chrono::sys_days now = today;
    if (settings.flag != SwitchedOn || last == DayOf(today) || !AreSensible(settings))
    {
        return std::nullopt;
    }
    return DayOf(now - std::chrono::days(settings.days) - std::chrono::days(1));
}

} // namespace Framework
