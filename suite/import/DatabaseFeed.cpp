#include "suite/import/DatabaseFeed.h"

#include "suite/common/Failure.h"
#include "suite/database/LineRules.h"
#include "suite/database/LogLine.h"
#include "suite/import/DailyFile.h"

#include <utility>
#include <vector>

namespace Import
{

namespace
{

using std::filesystem::path;

[[noreturn]] void FailToWrite(const path& database, const EventLog::DatabaseError& error)
{
    throw Suite::Failure(Suite::ExitCode::WorkFailed,
                         "cannot write the database " + Suite::Utf8(database) + ": " + error.what() +
                             ". Check that its folder exists, that you may write there, that the disk has room and "
                             "that no other program holds it. A damaged file stays as it is: move it away and run the "
                             "program again.");
}

EventLog::EventDatabase OpenOrMake(const path& database)
{
    try
    {
        return EventLog::EventDatabase::Create(database);
    }
    catch (const EventLog::DatabaseError& error)
    {
        FailToWrite(database, error);
    }
}

// The database form of a line. A log that meets one that it cannot read shows nothing of its day.
std::wstring CheckedForm(const EventLog::LogKind& log, const std::wstring& line, std::size_t number)
{
    if (const std::optional<std::wstring> fault = EventLog::FaultOfLine(log, line))
    {
        throw BadFile("is not taken, since line " + std::to_string(number) + " " + Suite::Utf8(*fault) +
                      ". Mend the line or remove it.");
    }
    return EventLog::DatabaseForm(log.subType, line);
}

} // namespace

DatabaseFeed::DatabaseFeed(path database) : m_path(std::move(database)), m_database(OpenOrMake(m_path)) {}

std::size_t DatabaseFeed::Put(const EventLog::LogKind& log, EventLog::Day day, std::span<const std::wstring> lines)
{
    std::vector<std::wstring> forms;
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        if (!lines[i].empty())
        {
            forms.push_back(CheckedForm(log, lines[i], i + 1));
        }
    }
    try
    {
        m_database.ReplaceDay(log.subType, day, forms);
    }
    catch (const EventLog::DatabaseError& error)
    {
        FailToWrite(m_path, error);
    }
    return forms.size();
}

} // namespace Import
