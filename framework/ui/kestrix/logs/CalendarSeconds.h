#pragma once

#include <windows.h>

#include <cstdint>

inline constexpr std::int64_t SecondsOfADay = 86'400;

// A local time in the seconds of the calendar; its day of the week and milliseconds are not read, and the library
// decides about daylight saving. -1 for a time that the calendar cannot count. Throws CAtlException, E_FAIL, for a year
// before 1900 or a field that is out of range.
std::int64_t CalendarSeconds(const SYSTEMTIME& time);
