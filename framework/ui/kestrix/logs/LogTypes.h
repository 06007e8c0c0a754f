#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string_view>

// The numbers of the log types. 4 and 10 were never given a log.
enum LogType : std::uint32_t
{
    LogTypeVirus = 0,
    LogTypeUpdate = 1,
    LogTypeUrlFilter = 2,
    LogTypeFirewall = 3,
    LogTypeTsc = 5,
    LogTypePrivacy = 6,
    LogTypePhishing = 7,
    LogTypeVa = 8,
    LogTypeSpyware = 9,
    LogTypeVst = 11,
    LogTypeSystemTuner = 12,
    LogTypeScan = 13,
    LogTypeSkippedTask = 14,
    LogTypeNone = 15,
};

// What is fixed for a log type: the three letters of its daily files, its number in database queries, its export title.
struct LogTypeInfo
{
    std::uint32_t type;
    std::wstring_view extension;
    std::uint32_t querySubType;
    UINT exportTitle;
};

// All log types that have a log, in the order in which an extension is looked up.
std::span<const LogTypeInfo> LogTypes() noexcept;

// The entry of a type; null for a number that has no log.
const LogTypeInfo* FindLogType(std::uint32_t type) noexcept;

// The title of a type's export; the general one for a number that has no log.
UINT ExportTitle(std::uint32_t type) noexcept;
