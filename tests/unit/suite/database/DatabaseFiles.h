#pragma once

#include "suite/database/EventDatabase.h"

#include <sqlite3.h>

#include <chrono>
#include <string>
#include <vector>

namespace EventLog
{

// Short enough for a test that waits for the end of it.
inline constexpr std::chrono::milliseconds ShortTimeout{50};

inline constexpr std::uint32_t Virus = 2;
inline constexpr std::uint32_t Firewall = 6;

using Strings = std::vector<std::wstring>;

// The whole days from the first to the last.
Period DaysBetween(Day first, Day last);

// The lines of these days, or of the period.
Strings LinesOf(const EventDatabase& database, std::uint32_t kind, Day first, Day last);
Strings LinesOf(const EventDatabase& database, std::uint32_t kind, const Period& period);

// The primary SQLite code with which the work fails; SQLITE_OK when it does not.
template <class Work>
int FailureOf(Work work)
{
    try
    {
        work();
        return SQLITE_OK;
    }
    catch (const DatabaseError& error)
    {
        return error.Code() & 0xFF;
    }
}

// Makes a database with virus lines "20260101|HHMMSS|NUMBER" of 1 January 2026, enough for many pages, at the path.
void MakeFilledDatabase(const std::wstring& path, int lines = 5000);

} // namespace EventLog
