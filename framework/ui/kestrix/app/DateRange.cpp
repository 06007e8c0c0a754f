#include "framework/ui/kestrix/app/DateRange.h"

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/OleDateTime.h"

#include <ctime>

namespace
{

constexpr int FirstYear = 1900; // std::tm counts from here
constexpr int Noon = 12;
constexpr std::int64_t SecondsOfADay = 86'400;

// Local noon of the day in calendar seconds; the library decides about daylight saving.
std::int64_t NoonOf(const COleDateTime& date)
{
    SYSTEMTIME time{};
    if (!date.GetAsSystemTime(time) || time.wYear < FirstYear)
    {
        throw CAtlException(E_FAIL);
    }
    std::tm fields{};
    fields.tm_year = time.wYear - FirstYear;
    fields.tm_mon = time.wMonth - 1;
    fields.tm_mday = time.wDay;
    fields.tm_hour = Noon;
    fields.tm_isdst = -1;
    const __time64_t seconds = ::_mktime64(&fields);
    if (seconds == -1)
    {
        throw CAtlException(E_INVALIDARG);
    }
    return seconds;
}

} // namespace

bool IsDateInDayRange(const COleDateTime& date, std::uint32_t startDay, std::uint32_t endDay)
{
    const std::int64_t today = NoonOf(COleDateTime::Now());
    const auto daysBack = static_cast<std::uint32_t>((today - NoonOf(date)) / SecondsOfADay);
    return startDay <= daysBack && daysBack < endDay;
}
