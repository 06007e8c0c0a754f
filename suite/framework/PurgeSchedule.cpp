#include "suite/framework/PurgeSchedule.h"

#include "suite/framework/Day.h"

namespace Framework
{

namespace
{

constexpr std::uint32_t SwitchedOn = 1;
constexpr std::chrono::year_month_day FirstDay(std::chrono::year(1601), std::chrono::month(1), std::chrono::day(1));

} // namespace

std::optional<std::uint32_t> DuePurge(const PurgeSettings& settings, std::optional<std::uint32_t> last,
                                      std::chrono::year_month_day today)
{
    const std::chrono::sys_days now = today;
    const auto age = (now - std::chrono::sys_days(FirstDay)).count();
    if (settings.flag != SwitchedOn || last == DayOf(today) || settings.days >= age)
    {
        return std::nullopt;
    }
    return DayOf(now - std::chrono::days(settings.days) - std::chrono::days(1));
}

} // namespace Framework
