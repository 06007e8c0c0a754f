#pragma once

#include "suite/database/Sqlite.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

// A record of an event-log database, as its file has it.
struct EventRow
{
    std::int64_t id;
    std::int64_t kind;
    std::int64_t day;
    std::int64_t time;
    std::wstring line;

    bool operator==(const EventRow&) const = default;
};

using EventRows = std::vector<EventRow>;

inline EventLog::Connection ConnectionTo(const std::filesystem::path& database)
{
    return {database, EventLog::OpenMode::Existing, std::chrono::seconds(5)};
}

// All records of all kinds, by their numbers.
inline EventRows EventRowsOf(const std::filesystem::path& database)
{
    const EventLog::Connection connection = ConnectionTo(database);
    EventLog::Statement statement(connection, "SELECT id, kind, day, time, line FROM events ORDER BY id");
    EventRows rows;
    while (statement.Step())
    {
        rows.push_back({statement.Number(0), statement.Number(1), statement.Number(2), statement.Number(3), {}});
        statement.Text(4, rows.back().line);
    }
    return rows;
}

// What is left of them when those of a kind are deleted up to and including a day.
inline EventRows WithoutKindThrough(EventRows rows, std::int64_t kind, std::int64_t day)
{
    std::erase_if(rows, [=](const EventRow& row) { return row.kind == kind && row.day <= day; });
    return rows;
}

// Whether the library finds nothing wrong in the file, in none of its tables and indexes.
inline bool IsIntact(const std::filesystem::path& database)
{
    return ConnectionTo(database).Number("SELECT count(*) FROM pragma_integrity_check WHERE integrity_check = 'ok'") ==
           1;
}
