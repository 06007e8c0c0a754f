#include "suite/samples/DatabaseFeed.h"

#include "suite/database/EventDatabase.h"
#include "suite/database/LineRules.h"
#include "suite/database/LogKinds.h"
#include "suite/database/LogLine.h"
#include "suite/samples/DailyFile.h"
#include "suite/samples/Failure.h"
#include "suite/samples/Month.h"

#include <algorithm>
#include <string>
#include <vector>

namespace Samples
{

namespace
{

using std::filesystem::path;

EventLog::Day DayOf(Date date)
{
    const std::chrono::year_month_day day(date);
    return static_cast<EventLog::Day>(static_cast<int>(day.year())) * 10000 + static_cast<unsigned>(day.month()) * 100 +
           static_cast<unsigned>(day.day());
}

// The database form of a line. A log that meets one that it cannot read shows nothing of its day.
std::wstring CheckedForm(const EventLog::LogKind& log, const std::wstring& line, const std::string& where)
{
    if (const std::optional<std::wstring> fault = EventLog::FaultOfLine(log, line))
    {
        throw Failure(ExitCode::WorkFailed,
                      where + " " + Utf8(*fault) + ". Nothing of this day was taken. Mend the line or remove it.");
    }
    return EventLog::DatabaseForm(log.subType, line);
}

class Feed
{
public:
    Feed(const path& database, const TakeProgress& tell)
        : m_database(EventLog::EventDatabase::Create(database)), m_tell(tell)
    {
    }

    // where: the name of what has the lines, for messages.
    void Put(const Kind& kind, Date date, std::span<const std::wstring> lines, const std::string& where)
    {
        const EventLog::LogKind& log = *EventLog::FindKindOfExtension(kind.extension);
        std::vector<std::wstring> forms;
        for (std::size_t i = 0; i < lines.size(); ++i)
        {
            if (!lines[i].empty())
            {
                forms.push_back(CheckedForm(log, lines[i], where + ", line " + std::to_string(i + 1)));
            }
        }
        m_database.ReplaceDay(log.subType, DayOf(date), forms);
        m_progress.days += 1;
        m_progress.records += forms.size();
        m_tell(m_progress);
    }

    void End()
    {
        m_progress.done = true;
        m_tell(m_progress);
    }

private:
    EventLog::EventDatabase m_database;
    const TakeProgress& m_tell;
    Progress m_progress;
};

// Does the work with a feed, and tells what fails in the database as the program tells its failures.
template <class Work>
void FeedWith(const path& database, const TakeProgress& tell, Work work)
{
    try
    {
        Feed feed(database, tell);
        work(feed);
        feed.End();
    }
    catch (const EventLog::DatabaseError& error)
    {
        throw Failure(ExitCode::WorkFailed, "cannot write the database " + Utf8(database) + ": " + error.what() +
                                                ". Check that its folder exists, that you may write there and that no "
                                                "other program holds it. A damaged file stays as it is: move it away "
                                                "and run the program again.");
    }
}

[[noreturn]] void RefuseName(const path& file)
{
    throw Failure(ExitCode::WorkFailed, Utf8(file) + " is neither a folder nor a daily file, whose name is a date and "
                                                     "the letters of a log, as in 20260131.VLG.");
}

// The daily files among the paths and in their folders, each folder's in the order of their names.
std::vector<path> DailyFiles(std::span<const path> paths)
{
    std::vector<path> files;
    for (const path& given : paths)
    {
        std::error_code error;
        if (!std::filesystem::is_directory(given, error))
        {
            files.push_back(given);
            continue;
        }
        const std::size_t first = files.size();
        for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(given))
        {
            if (entry.is_regular_file() && ParseDailyName(entry.path()))
            {
                files.push_back(entry.path());
            }
        }
        std::sort(files.begin() + static_cast<std::ptrdiff_t>(first), files.end());
    }
    return files;
}

} // namespace

void FeedMonth(const path& database, std::span<const Kind* const> kinds, Date end, unsigned days, std::uint64_t seed,
               const TakeProgress& tell)
{
    FeedWith(database, tell,
             [&](Feed& feed)
             {
                 MakeMonth(
                     kinds, end, days, seed,
                     [&](const Kind& kind, Date date, std::span<const std::wstring> lines)
                     { feed.Put(kind, date, lines, "made-up " + Utf8(DateText(date)) + "." + Utf8(kind.extension)); });
             });
}

void ImportFiles(const path& database, std::span<const path> paths, const TakeProgress& tell)
{
    const std::vector<path> files = DailyFiles(paths);
    // Before the database is made: a wrong name changes nothing.
    for (const path& file : files)
    {
        if (!ParseDailyName(file))
        {
            RefuseName(file);
        }
    }
    FeedWith(database, tell,
             [&](Feed& feed)
             {
                 for (const path& file : files)
                 {
                     const DailyName name = *ParseDailyName(file);
                     feed.Put(*name.kind, name.date, ReadDailyFile(file), Utf8(file));
                 }
             });
}

} // namespace Samples
