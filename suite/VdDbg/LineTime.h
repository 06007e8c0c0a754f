#pragma once

#include <windows.h>

#include <optional>

namespace VdDbg
{

// A calendar day as a number, YYYYMMDD.
inline unsigned DayOf(const SYSTEMTIME& time)
{
    return (time.wYear * 100U + time.wMonth) * 100U + time.wDay;
}

// The day of local time on which the stamp of a file lies.
unsigned LocalDayOf(const FILETIME& stamp);

// A local time as a file carries it; nothing when it is no time of the calendar.
std::optional<FILETIME> StampOf(const SYSTEMTIME& local);

} // namespace VdDbg
