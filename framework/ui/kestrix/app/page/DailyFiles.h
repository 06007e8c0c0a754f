#pragma once

#include "platform/dialog/OleDateTime.h"

#include <cstdint>
#include <string>
#include <vector>

// A daily log file: its name YYYYMMDD.EXT tells the day.
struct DailyFile
{
    COleDateTime date;  // the day at noon
    std::uint32_t size; // bytes, the low 32 bits
};

// The daily files that a path or wildcard pattern names, in the order in which the system lists them. A directory, a
// name that is not exactly 12 characters long and one that does not begin with a date are passed over.
std::vector<DailyFile> FindDailyFiles(const std::wstring& path);

// Whether a path is there and fits where it is read from; one that does not is traced.
bool IsUsablePath(const std::wstring& path);

// Whether the path names something that is no daily file, directories included.
bool HasForeignLogFile(const std::wstring& path);
