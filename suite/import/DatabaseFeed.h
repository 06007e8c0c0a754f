#pragma once

#include "suite/database/EventDatabase.h"
#include "suite/database/LogKinds.h"

#include <filesystem>
#include <span>
#include <string>

namespace Import
{

// Puts days into the event-log database at a path, which is made when it is missing. Every operation throws
// Suite::Failure, with the remedy, when the database cannot be written.
class DatabaseFeed
{
public:
    explicit DatabaseFeed(std::filesystem::path database);

    // Replaces a day of a kind in one transaction by these lines of a daily file, but for the empty ones; returns their
    // number. Throws BadFile, and has then changed nothing, when there is a line that its log cannot read.
    std::size_t Put(const EventLog::LogKind& log, EventLog::Day day, std::span<const std::wstring> lines);

private:
    const std::filesystem::path m_path;
    EventLog::EventDatabase m_database;
};

} // namespace Import
