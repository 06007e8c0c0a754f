#pragma once

#include "suite/samples/Kinds.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Samples
{

// What the name of a daily file says.
struct DailyName
{
    const Kind* kind;
    Date date;
};

// Takes YYYYMMDD.EXT apart; nothing when the name is not that of a daily file. Upper and lower case are the same.
std::optional<DailyName> ParseDailyName(const std::filesystem::path& path);

// The lines of a log file without their ends, empty ones included; one that has no end yet is left out. Characters of
// no meaning, NULs among them, stay. Throws Failure when the file cannot be read or is not UTF-16 with its byte order
// mark.
std::vector<std::wstring> ReadDailyFile(const std::filesystem::path& path);

} // namespace Samples
