// An order to delete the entries of a log, from the order to its event, beside the same deletion by SQLite alone.

#include "suite/database/EventDatabase.h"
#include "suite/framework/Apartment.h"
#include "suite/framework/DatabaseLogs.h"
#include "suite/framework/Service.h"
#include "suite/framework/ValueSource.h"
#include "tests/bench/Bench.h"
#include "tests/bench/Timing.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <optional>

namespace
{

using namespace std::chrono;
using EventLog::Connection;
using EventLog::OpenMode;
using EventLog::Statement;

constexpr double Budget = 3;
constexpr std::uint32_t Virus = 2;
constexpr std::uint32_t VirusPurgeType = 1;
constexpr std::uint32_t FirstDay = 20260101;
constexpr std::uint32_t LastDeletedDay = 20260110;
constexpr std::uint32_t LastDay = 20260111;
constexpr std::int64_t RecordsOfDay = 100'000;
constexpr seconds Patience{5};
constexpr DWORD LongestDeletion = 10 * 60 * 1000;

// Eleven days of virus records.
void Fill(const std::filesystem::path& path)
{
    EventLog::EventDatabase::Create(path);
    const Connection connection(path, OpenMode::Existing, Patience);
    Statement insert(connection, "WITH RECURSIVE days(day) AS (VALUES(?1) UNION ALL SELECT day + 1 FROM days WHERE day "
                                 "< ?2), numbers(number) AS (VALUES(1) UNION ALL SELECT number + 1 FROM numbers WHERE "
                                 "number < ?3) INSERT INTO events(kind, day, time, line) SELECT ?4, day, 120000, ?5 "
                                 "FROM days, numbers");
    insert.Bind(1, FirstDay);
    insert.Bind(2, LastDay);
    insert.Bind(3, RecordsOfDay);
    insert.Bind(4, Virus);
    insert.Bind(5, std::wstring_view(L"20260101|120000|1048576|1|0|0|Sample_Threat.A|C:\\Users\\user\\Downloads\\"
                                     L"setup.exe|4|1|0|0|"));
    insert.Step();
}

std::int64_t Count(const std::filesystem::path& path)
{
    return Connection(path, OpenMode::Existing, Patience).Number("SELECT count(*) FROM events");
}

// The deletion as it stands, on a connection that is open already.
class BareDeletion
{
public:
    void Open(const std::filesystem::path& path) { m_connection.emplace(path, OpenMode::Existing, Patience); }

    void Close() { m_connection.reset(); }

    void Run() const
    {
        Statement statement(*m_connection, "DELETE FROM events WHERE kind = ?1 AND day <= ?2");
        statement.Bind(1, Virus);
        statement.Bind(2, LastDeletedDay);
        statement.Step();
    }

private:
    std::optional<Connection> m_connection;
};

struct NoCalendar : Framework::Calendar
{
    year_month_day Today() const override { return {}; }
};

// The service on the database of a folder.
class OrderedDeletion
{
public:
    explicit OrderedDeletion(const std::filesystem::path& folder) : m_store(folder), m_logs(folder), m_journal(folder)
    {
    }

    // Returns when the event is raised.
    void Run()
    {
        Require(m_service.DoCommand({22, 1}, {LastDeletedDay, std::uint32_t{0}, VirusPurgeType}) == Framework::Success,
                "the order was refused");
        while (!m_objects.UnusedSince())
        {
            Require(WaitForSingleObject(m_objects.Changed(), LongestDeletion) == WAIT_OBJECT_0,
                    "the deletion does not end");
        }
    }

private:
    const Framework::Apartment m_apartment;
    Framework::ObjectTable m_objects;
    Framework::ValueStore m_store;
    Framework::DatabaseLogs m_logs;
    const NoCalendar m_calendar;
    const Framework::Journal m_journal;
    Framework::Service m_service{m_objects, m_store, m_logs, m_calendar, m_journal};
};

} // namespace

Figures BenchDelete()
{
    const TemporaryFolder folder;
    const std::filesystem::path filled = folder.File(L"Filled.db");
    const std::filesystem::path bare = folder.File(L"Bare.db");
    const std::filesystem::path ordered = folder.File(EventLog::DatabaseFileName);
    Fill(filled);
    BareDeletion bareDeletion;
    OrderedDeletion orderedDeletion(folder.Path());
    const auto renew = [&](const std::filesystem::path& path)
    { Require(CopyFileW(filled.c_str(), path.c_str(), FALSE), "the database cannot be copied"); };
    const auto renewBare = [&]
    {
        bareDeletion.Close();
        renew(bare);
        bareDeletion.Open(bare);
    };
    renewBare();
    renew(ordered);
    const std::vector<double> times = MedianTimes({
        {[&] { bareDeletion.Run(); }, renewBare},
        {[&] { orderedDeletion.Run(); },
         [&]
         {
             Require(Count(ordered) == RecordsOfDay, "the deletion took others than it should");
             renew(ordered);
         }},
    });
    return {{"delete: 1,000,000 of 1,100,000 records", times[1], "ms", times[0], Budget}};
}
