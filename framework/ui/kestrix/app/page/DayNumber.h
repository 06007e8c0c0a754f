#pragma once

#include <windows.h>

// A day as one number, YYYYMMDD, which an entry of a list of dates carries beside its text.

using DayNumber = DWORD_PTR;

inline constexpr DayNumber NoDay = 0;

constexpr DayNumber DayNumberOf(const SYSTEMTIME& time)
{
    return time.wYear * DayNumber{10'000} + time.wMonth * 100U + time.wDay;
}

// The first moment of the day; the day of the week is not told.
constexpr SYSTEMTIME StartOfDay(DayNumber day)
{
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(day / 10'000);
    time.wMonth = static_cast<WORD>(day / 100 % 100);
    time.wDay = static_cast<WORD>(day % 100);
    return time;
}
