#pragma once

#include "tests/support/ImportPatch.h"

#include <windows.h>

extern "C" decltype(&::GetLocalTime) __imp_GetLocalTime;

// While it lives, the local time of the process stands at half past nine on 21 November 2026.
class StandingClock
{
private:
    static void WINAPI Now(SYSTEMTIME* time) { *time = {2026, 11, 6, 21, 9, 30, 0, 0}; }

    const ImportPatch<decltype(&::GetLocalTime)> m_clock{__imp_GetLocalTime, &Now};
};
