#pragma once

#include "suite/database/Sqlite.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace EventLog
{

// The database file of an installation, in its data folder.
inline constexpr wchar_t DatabaseFileName[] = L"EventLog.db";

// Local days as YYYYMMDD and times of day as HHMMSS: they order as numbers as they do in time.
using Day = std::uint32_t;
using Time = std::uint32_t;

// A moment, and all that lies between two of them, both included.
struct Moment
{
    Day day;
    Time time;
};

struct Period
{
    Moment from;
    Moment to;
};

// The events of all log kinds in one database file, shared by any number of readers and writers of any process: readers
// see the last committed state and wait for nobody; writers wait for one another. A kind is the query sub type of its
// log, see LogKinds.h; an event is its line in the database form, see LogLine.h, kept character for character.
//
// One thread at a time. Every operation throws DatabaseError, and has then changed nothing.
class EventDatabase
{
public:
    // How long an operation waits for a file that another one has locked.
    static constexpr std::chrono::milliseconds BusyTimeout{5000};

    // Opens a file that exists. One of an older version is brought up to date; one that is damaged, is no database of
    // ours or is of a newer version is left as it is.
    static EventDatabase Open(const std::filesystem::path& path, std::chrono::milliseconds busyTimeout = BusyTimeout);

    // The same, but makes the file when there is none. Its folder must exist.
    static EventDatabase Create(const std::filesystem::path& path, std::chrono::milliseconds busyTimeout = BusyTimeout);

    // Adds events of a day after those that are there, in one transaction.
    void Append(std::uint32_t kind, Day day, std::span<const std::wstring> lines);

    // The same in the place of the events that are there.
    void ReplaceDay(std::uint32_t kind, Day day, std::span<const std::wstring> lines);

    // Passes the lines of a period to the function, oldest day first and within a day as they were added. A view is
    // valid during the call. What the function throws ends the reading and arrives at the caller.
    void ReadPeriod(std::uint32_t kind, const Period& period, const std::function<void(std::wstring_view)>& take) const;

    // The days that have events, newest first.
    std::vector<Day> Days(std::uint32_t kind) const;

    // Deletes the events of a kind up to and including a day; returns their number.
    std::uint64_t DeleteThrough(std::uint32_t kind, Day day);

private:
    explicit EventDatabase(Connection connection);

    Connection m_connection;
};

} // namespace EventLog
