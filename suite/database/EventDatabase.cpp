#include "suite/database/EventDatabase.h"

#include "suite/database/LogLine.h"
#include "suite/database/Schema.h"

#include <windows.h>

#include <sqlite3.h>

#include <string>
#include <utility>

namespace EventLog
{

namespace
{

// Within a day, what was added first comes first, whatever the times of the lines say: the order of a daily file.
constexpr std::string_view LinesOfPeriod = "SELECT line FROM events WHERE kind = ?1 AND day BETWEEN ?2 AND ?4 "
                                           "AND (day > ?2 OR time >= ?3) AND (day < ?4 OR time <= ?5) ORDER BY day, id";

// One look-up in the index per day, however many events a day has.
constexpr std::string_view DaysOfKind =
    "WITH RECURSIVE days(day) AS (SELECT max(day) FROM events WHERE kind = ?1 UNION ALL "
    "SELECT (SELECT max(day) FROM events WHERE kind = ?1 AND day < days.day) FROM days WHERE day IS NOT NULL) "
    "SELECT day FROM days WHERE day IS NOT NULL";

void Insert(const Connection& connection, std::uint32_t kind, Day day, std::span<const std::wstring> lines)
{
    Statement statement(connection, "INSERT INTO events(kind, day, time, line) VALUES(?1, ?2, ?3, ?4)");
    statement.Bind(1, kind);
    statement.Bind(2, day);
    for (const std::wstring& line : lines)
    {
        statement.Bind(3, TimeOfLine(kind, line));
        statement.Bind(4, line);
        statement.Step();
    }
}

// Makes the file under another name first, so that nobody ever meets one that is half made. Nothing happens when
// somebody else is quicker.
void MakeFile(const std::filesystem::path& path, std::chrono::milliseconds busyTimeout)
{
    std::filesystem::path made = path;
    made += L"." + std::to_wstring(GetCurrentProcessId()) + L"." + std::to_wstring(GetCurrentThreadId()) + L".new";
    CreateSchema(Connection(made, OpenMode::CreateIfMissing, busyTimeout));
    if (!MoveFileW(made.c_str(), path.c_str()))
    {
        const DWORD error = GetLastError();
        DeleteFileW(made.c_str());
        if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS)
        {
            throw DatabaseError(SQLITE_CANTOPEN,
                                "the file could not be given its name (system error " + std::to_string(error) + ")");
        }
    }
}

// The library reads a last page of which a part is missing as if that part were zero.
void RequireWholePages(const Connection& connection, const std::filesystem::path& path)
{
    const std::uintmax_t page = static_cast<std::uintmax_t>(connection.Number("PRAGMA page_size"));
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (!error && size % page != 0)
    {
        KeepFileAsItIs(connection.Handle());
        throw DatabaseError(SQLITE_CORRUPT, "the file ends within a page");
    }
}

} // namespace

EventDatabase::EventDatabase(Connection connection) : m_connection(std::move(connection)) {}

EventDatabase EventDatabase::Open(const std::filesystem::path& path, std::chrono::milliseconds busyTimeout)
{
    Connection connection(path, OpenMode::Existing, busyTimeout);
    RequireSchema(connection);
    RequireWholePages(connection, path);
    return EventDatabase(std::move(connection));
}

EventDatabase EventDatabase::Create(const std::filesystem::path& path, std::chrono::milliseconds busyTimeout)
{
    std::error_code error;
    if (!std::filesystem::exists(path, error))
    {
        MakeFile(path, busyTimeout);
    }
    return Open(path, busyTimeout);
}

void EventDatabase::Append(std::uint32_t kind, Day day, std::span<const std::wstring> lines)
{
    Transaction transaction(m_connection);
    Insert(m_connection, kind, day, lines);
    transaction.Commit();
}

void EventDatabase::ReplaceDay(std::uint32_t kind, Day day, std::span<const std::wstring> lines)
{
    Transaction transaction(m_connection);
    Statement old(m_connection, "DELETE FROM events WHERE kind = ?1 AND day = ?2");
    old.Bind(1, kind);
    old.Bind(2, day);
    old.Step();
    Insert(m_connection, kind, day, lines);
    transaction.Commit();
}

void EventDatabase::ReadPeriod(std::uint32_t kind, const Period& period,
                               const std::function<void(std::wstring_view)>& take) const
{
    Statement statement(m_connection, LinesOfPeriod);
    statement.Bind(1, kind);
    statement.Bind(2, period.from.day);
    statement.Bind(3, period.from.time);
    statement.Bind(4, period.to.day);
    statement.Bind(5, period.to.time);
    std::wstring line;
    while (statement.Step())
    {
        statement.Text(0, line);
        take(line);
    }
}

std::vector<Day> EventDatabase::Days(std::uint32_t kind) const
{
    Statement statement(m_connection, DaysOfKind);
    statement.Bind(1, kind);
    std::vector<Day> days;
    while (statement.Step())
    {
        days.push_back(static_cast<Day>(statement.Number(0)));
    }
    return days;
}

std::uint64_t EventDatabase::DeleteThrough(std::uint32_t kind, Day day)
{
    Transaction transaction(m_connection);
    Statement statement(m_connection, "DELETE FROM events WHERE kind = ?1 AND day <= ?2");
    statement.Bind(1, kind);
    statement.Bind(2, day);
    statement.Step();
    const auto deleted = static_cast<std::uint64_t>(m_connection.Changes());
    transaction.Commit();
    return deleted;
}

} // namespace EventLog
