#pragma once

#include "suite/database/EventDatabase.h"
#include "suite/database/LogKinds.h"

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Import
{

// Why a file is not taken and what helps, in UTF-8, as what follows the file's name in a message.
class BadFile : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// What the name of a daily file says.
struct DailyName
{
    const EventLog::LogKind* kind;
    EventLog::Day day;
};

// Takes YYYYMMDD.EXT apart; nothing when the name is not that of a daily file. Upper and lower case are the same.
std::optional<DailyName> ParseDailyName(const std::filesystem::path& path);

// The lines of a log file without their ends, empty ones included; one that has no end yet is left out. Characters of
// no meaning, NULs among them, stay. Throws BadFile when the file cannot be read or is not UTF-16 with its byte order
// mark.
std::vector<std::wstring> ReadDailyFile(const std::filesystem::path& path);

} // namespace Import
