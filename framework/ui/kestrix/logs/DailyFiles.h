#pragma once

#include "platform/dialog/OleDateTime.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// A daily log file: its name YYYYMMDD.EXT tells the day.
struct DailyFile
{
    COleDateTime date;  // the day at noon
    std::uint32_t size; // bytes, the low 32 bits
};

// How long the name of a daily file is.
inline constexpr std::size_t DailyFileNameLength = 12; // YYYYMMDD.EXT

// The day at noon that a name of that length begins with; invalid when that is none. What is no number counts as 0.
COleDateTime DateOfName(std::wstring_view name);

// Calls visit for each entry but "." and ".." that a path or wildcard pattern names, as the system lists them, until it
// returns false.
void ForEachEntry(const std::wstring& path, const std::function<bool(const WIN32_FIND_DATAW&)>& visit);

// Visits the daily files that a path or wildcard pattern names, as the system lists them. A directory, a name that is
// not exactly 12 characters long and one that does not begin with a date are passed over. What visit throws ends it.
void ForEachDailyFile(const std::wstring& path, const std::function<void(const DailyFile&)>& visit);

// Whether a path is there and fits where it is read from; one that does not is traced.
bool IsUsablePath(const std::wstring& path);

// Whether the path names something that is no daily file, directories included.
bool HasForeignLogFile(const std::wstring& path);
