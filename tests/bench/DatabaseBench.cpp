// The event-log database through the suite's library, as the viewer reads it, beside the SQLite library alone.

#include "common/OrlDbMg.h"
#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "platform/dialog/OleDateTime.h"
#include "platform/dialog/UniqueHandle.h"
#include "suite/database/EventDatabase.h"
#include "suite/import/FileImport.h"
#include "suite/samples/Month.h"
#include "tests/bench/Bench.h"
#include "tests/bench/Timing.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

namespace
{

using namespace std::chrono;
using EventLog::Connection;
using EventLog::Statement;

constexpr double Budget = 3;
constexpr std::uint32_t Virus = 2;
constexpr seconds Patience{5};

// The library that the build made, over the database in the given folder.
class DatabaseLibrary
{
public:
    explicit DatabaseLibrary(const std::filesystem::path& installedFolder)
    {
        m_registry.SetText(L"Software\\Veldrane\\Zeptara", L"InstalledFolder", installedFolder.wstring());
        Require(static_cast<bool>(m_module), "OrlDbMg.dll cannot be loaded");
        Require(SUCCEEDED(Find<OrlCreateFunction>(OrlCreateName)(&m_provider, 0, 0)), "there is no provider");
    }

    ~DatabaseLibrary() { Find<OrlFreeFunction>(OrlFreeName)(0, 0, 0); }

    DatabaseLibrary(const DatabaseLibrary&) = delete;
    DatabaseLibrary& operator=(const DatabaseLibrary&) = delete;

    IDBManagerProvider* Provider() const { return m_provider; }

private:
    template <class Function>
    Function Find(const char* name) const
    {
        const FARPROC found = GetProcAddress(m_module.get(), name);
        Require(found != nullptr, "OrlDbMg.dll lacks a function");
        Function function = nullptr;
        std::memcpy(&function, &found, sizeof function);
        return function;
    }

    const RegistrySandbox m_registry;
    const UniqueModule m_module{LoadLibraryW((ProductFolder() / L"OrlDbMg.dll").c_str())};
    IDBManagerProvider* m_provider = nullptr;
};

// --- A day of virus records.

constexpr std::uint64_t DayRecords = 100'000;
constexpr sys_days TheDay = sys_days(year(2026) / January / 1);

void MakeDay(const std::filesystem::path& folder)
{
    const std::filesystem::path file = folder / L"20260101.VLG";
    constexpr std::uint64_t seed = 1;
    Samples::WriteLines(file, *Samples::FindKind(L"VLG"), TheDay, DayRecords, seed);
    Import::ImportFiles(
        folder / EventLog::DatabaseFileName, std::span(&file, 1),
        {[](const Import::Progress&) {}, [](const std::string& fault) { throw std::runtime_error(fault); }});
}

// Copies each line of the day out of the database, and gives the number of their characters.
std::size_t ReadDayWithSqlite(const Connection& connection)
{
    Statement statement(connection, "SELECT line FROM events WHERE kind = 2 AND day = 20260101 ORDER BY id");
    std::wstring line;
    std::size_t characters = 0;
    while (statement.Step())
    {
        statement.Text(0, line);
        characters += line.size();
    }
    return characters;
}

// --- The days of ten million records of all kinds over three years, leap year included.

constexpr sys_days FirstDay = sys_days(year(2023) / January / 1);
constexpr unsigned Days = 1096;
constexpr unsigned Kinds = 13;
constexpr unsigned RecordsOfDay = 702;
static_assert(Days * Kinds * RecordsOfDay >= 10'000'000);

EventLog::Day Number(sys_days date)
{
    const year_month_day day(date);
    return static_cast<unsigned>(static_cast<int>(day.year())) * 10000 + static_cast<unsigned>(day.month()) * 100 +
           static_cast<unsigned>(day.day());
}

void FillYears(const std::filesystem::path& path)
{
    EventLog::EventDatabase::Create(path);
    const Connection connection(path, EventLog::OpenMode::Existing, Patience);
    Statement insert(connection,
                     "WITH RECURSIVE kinds(kind) AS (VALUES(2) UNION ALL SELECT kind + 1 FROM kinds WHERE kind < 14), "
                     "numbers(number) AS (VALUES(1) UNION ALL SELECT number + 1 FROM numbers WHERE number < ?2) "
                     "INSERT INTO events(kind, day, time, line) SELECT kind, ?1, 120000, ?3 FROM kinds, numbers");
    insert.Bind(2, RecordsOfDay);
    insert.Bind(3, std::wstring_view(L"20260101|120000|1|2|3"));
    for (unsigned i = 0; i < Days; ++i)
    {
        insert.Bind(1, Number(FirstDay + days(i)));
        insert.Step();
    }
}

// The folder with the database, which is made once and kept in the system's temporary folder: it has 800 MB and takes
// half a minute. Its name says what is in it; it gets that name when it is complete.
std::filesystem::path FolderOfYears()
{
    const std::filesystem::path temporary = std::filesystem::temp_directory_path();
    const std::filesystem::path folder =
        temporary / (L"KestrixBench-years-2-" + std::to_wstring(Days * Kinds * RecordsOfDay));
    if (!std::filesystem::exists(folder))
    {
        std::fputs("Making the database of ten million records\n", stderr);
        const std::filesystem::path part = temporary / L"KestrixBench-years-part";
        std::filesystem::remove_all(part);
        std::filesystem::create_directories(part);
        FillYears(part / EventLog::DatabaseFileName);
        std::filesystem::rename(part, folder);
    }
    return folder;
}

// All in one transaction, as the list of days is one statement: each of its own would take the file's lock again.
void LookUpEachDay(const Connection& connection)
{
    connection.Execute("BEGIN");
    {
        Statement statement(connection, "SELECT 1 FROM events WHERE kind = 2 AND day = ?1 LIMIT 1");
        for (unsigned i = 0; i < Days; ++i)
        {
            statement.Bind(1, Number(FirstDay + days(i)));
            Require(statement.Step(), "a day is missing");
            statement.Restart();
        }
    }
    connection.Execute("COMMIT");
}

std::ptrdiff_t CountDays(IDBManagerProvider& provider)
{
    OrlDayListRequest request{};
    request.flag = OrlDayListFlag;
    void* result = nullptr;
    Require(SUCCEEDED(provider.QueryValue(OrlKindEventLog, OrlQueryDays, Virus, &result, 0, &request)),
            "the days cannot be read");
    const auto* const answer = static_cast<const OrlVector<OrlDayEntry>*>(result);
    return answer->last - answer->first;
}

} // namespace

Figures BenchDatabase()
{
    const TemporaryFolder folder;
    MakeDay(folder.Path());
    const DatabaseLibrary library(folder.Path());
    const Connection connection(folder.Path() / EventLog::DatabaseFileName, EventLog::OpenMode::Existing, Patience);
    CZPTLogVir log;
    log.m_pIDBManagerProvider = library.Provider();
    const COleDateTime date(2026, 1, 1, 12, 0, 0);
    const std::vector<double> times = MedianTimes({
        {[&] { Require(ReadDayWithSqlite(connection) > DayRecords, "the database missed records"); }},
        {[&] { Require(log.ReadLogDBMgr(date) && log.GetLogCount() == DayRecords, "the log missed records"); },
         [&] { log.ClearLog(); }},
    });
    return {{"database: a day of 100,000 virus records", times[1], "ms", times[0], Budget}};
}

Figures BenchDays()
{
    const std::filesystem::path folder = FolderOfYears();
    const DatabaseLibrary library(folder);
    const Connection connection(folder / EventLog::DatabaseFileName, EventLog::OpenMode::Existing, Patience);
    const std::vector<double> times = MedianTimes({
        {[&] { LookUpEachDay(connection); }},
        {[&] { Require(CountDays(*library.Provider()) == Days, "days are missing"); }},
    });
    return {{"days: those of ten million records over three years", times[1], "ms", times[0], Budget}};
}
