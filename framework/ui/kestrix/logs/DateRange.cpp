#include "framework/ui/kestrix/logs/DateRange.h"

#include "framework/ui/kestrix/logs/CalendarSeconds.h"
#include "platform/dialog/Exceptions.h"

namespace
{

constexpr WORD Noon = 12;

// Local noon of the day in calendar seconds.
std::int64_t NoonOf(const COleDateTime& date)
{
    SYSTEMTIME time{};
    if (!date.GetAsSystemTime(time))
    {
        throw CAtlException(E_FAIL);
    }
    time.wHour = Noon;
    time.wMinute = 0;
    time.wSecond = 0;
    const std::int64_t seconds = CalendarSeconds(time);
    if (seconds == -1)
    {
        throw CAtlException(E_INVALIDARG);
    }
    return seconds;
}

} // namespace

bool IsDateInDayRange(const COleDateTime& date, std::uint32_t startDay, std::uint32_t endDay, const COleDateTime& today)
{
    const std::int64_t todaysNoon = NoonOf(today);
    const auto daysBack = static_cast<std::uint32_t>((todaysNoon - NoonOf(date)) / SecondsOfADay);
    return startDay <= daysBack && daysBack < endDay;
}
