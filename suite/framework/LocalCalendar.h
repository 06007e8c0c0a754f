#pragma once

#include "suite/framework/Service.h"

#include <windows.h>

namespace Framework
{

// The date on the clock of this machine, whatever its time zone and its daylight saving time.
class LocalCalendar : public Calendar
{
public:
    std::chrono::year_month_day Today() const override
    {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        return {std::chrono::year(now.wYear), std::chrono::month(now.wMonth), std::chrono::day(now.wDay)};
    }
};

} // namespace Framework
