#pragma once

#include "tests/support/ImportPatch.h"

#include <windows.h>

#include <ctime>

extern "C" decltype(&::GetLocalTime) __imp_GetLocalTime;
extern "C" decltype(&::_time64) __imp__time64;

// While it lives, the clock of the process stands at half past nine, local time, on 21 November 2026.
class StandingClock
{
private:
    static void WINAPI Now(SYSTEMTIME* time) { *time = {2026, 11, 6, 21, 9, 30, 0, 0}; }

    static __time64_t __cdecl Seconds(__time64_t* seconds)
    {
        std::tm now{};
        now.tm_year = 126;
        now.tm_mon = 10;
        now.tm_mday = 21;
        now.tm_hour = 9;
        now.tm_min = 30;
        now.tm_isdst = -1;
        const __time64_t time = ::_mktime64(&now);
        if (seconds != nullptr)
        {
            *seconds = time;
        }
        return time;
    }

    const ImportPatch<decltype(&::GetLocalTime)> m_clock{__imp_GetLocalTime, &Now};
    const ImportPatch<decltype(&::_time64)> m_seconds{__imp__time64, &Seconds};
};
