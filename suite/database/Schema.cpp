#include "suite/database/Schema.h"

#include "suite/database/LogLine.h"

#include <sqlite3.h>

#include <string>

namespace EventLog
{

namespace
{

constexpr const char* Tables = "CREATE TABLE events("
                               "id INTEGER PRIMARY KEY, kind INTEGER NOT NULL, day INTEGER NOT NULL, "
                               "time INTEGER NOT NULL, line BLOB NOT NULL) STRICT;"
                               "CREATE INDEX events_of_day ON events(kind, day);";

std::int64_t Version(const Connection& connection)
{
    return connection.Number("PRAGMA user_version");
}

std::int64_t Owner(const Connection& connection)
{
    return connection.Number("PRAGMA application_id");
}

void SetVersion(const Connection& connection)
{
    connection.Execute(("PRAGMA user_version=" + std::to_string(SchemaVersion)).c_str());
}

[[noreturn]] void Refuse(const Connection& connection, int code, const std::string& text)
{
    KeepFileAsItIs(connection.Handle());
    throw DatabaseError(code, text);
}

// Version 1 had no time: it is read from the line. The index goes first, since its name is that of the new one.
void UpgradeFrom1(const Connection& connection)
{
    connection.Execute("DROP INDEX events_of_day; ALTER TABLE events RENAME TO events_of_version_1;");
    connection.Execute(Tables);
    {
        Statement read(connection, "SELECT id, kind, day, line FROM events_of_version_1 ORDER BY id");
        Statement write(connection, "INSERT INTO events(id, kind, day, time, line) VALUES(?1, ?2, ?3, ?4, ?5)");
        std::wstring line;
        while (read.Step())
        {
            read.Text(3, line);
            write.Bind(1, read.Number(0));
            write.Bind(2, read.Number(1));
            write.Bind(3, read.Number(2));
            write.Bind(4, TimeOfLine(static_cast<std::uint32_t>(read.Number(1)), line));
            write.Bind(5, line);
            write.Step();
        }
    }
    connection.Execute("DROP TABLE events_of_version_1");
    SetVersion(connection);
}

} // namespace

void CreateSchema(const Connection& connection)
{
    // Before the first table, or it has no effect: it makes "cast(line as text)" readable for whoever rescues a file.
    connection.Execute("PRAGMA encoding='UTF-16le'");
    connection.Execute(Tables);
    connection.Execute(("PRAGMA application_id=" + std::to_string(ApplicationId)).c_str());
    SetVersion(connection);
    connection.Execute("PRAGMA journal_mode=WAL");
}

void RequireSchema(const Connection& connection)
{
    if (Owner(connection) != ApplicationId || Version(connection) < 1)
    {
        Refuse(connection, SQLITE_NOTADB, "this is no event-log database");
    }
    if (const std::int64_t version = Version(connection); version > SchemaVersion)
    {
        Refuse(connection, SQLITE_SCHEMA,
               "the event-log database has version " + std::to_string(version) + ", and this program knows version " +
                   std::to_string(SchemaVersion) + " at most. Use the program that belongs to it.");
    }
    else if (version < SchemaVersion)
    {
        Transaction transaction(connection);
        // Another process may have been quicker.
        if (Version(connection) == 1)
        {
            UpgradeFrom1(connection);
        }
        transaction.Commit();
    }
}

} // namespace EventLog
