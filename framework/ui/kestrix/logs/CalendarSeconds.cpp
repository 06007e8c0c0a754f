#include "framework/ui/kestrix/logs/CalendarSeconds.h"

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/OleDateTime.h"

#include <ctime>

namespace
{

constexpr int FirstYear = 1900; // std::tm counts from here

} // namespace

std::int64_t CalendarSeconds(const SYSTEMTIME& time)
{
    const COleDateTime date(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
    if (time.wYear < FirstYear || date.GetStatus() != COleDateTime::valid)
    {
        throw CAtlException(E_FAIL);
    }
    std::tm fields{};
    fields.tm_year = time.wYear - FirstYear;
    fields.tm_mon = time.wMonth - 1;
    fields.tm_mday = time.wDay;
    fields.tm_hour = time.wHour;
    fields.tm_min = time.wMinute;
    fields.tm_sec = time.wSecond;
    fields.tm_isdst = -1;
    return ::_mktime64(&fields);
}
