// A service that is killed in the middle of a deletion.

#include "suite/framework/ValueSource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/Process.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/support/EventRows.h"

namespace
{

using DeletionTest = ServiceFixture;

constexpr EventLog::Day Day = 20261119;

// Virus records of the day that take the service a while to delete.
void FillWithManyRecords(const EventLogs& logs)
{
    logs.Append(VirusSubType, Day, {});
    const EventLog::Connection connection = ConnectionTo(logs.File());
    EventLog::Statement insert(connection,
                               "WITH RECURSIVE numbers(number) AS (VALUES(1) UNION ALL SELECT number + 1 FROM numbers "
                               "WHERE number < 20000) INSERT INTO events(kind, day, time, line) SELECT 2, 20261119, "
                               "120000, zeroblob(600) FROM numbers");
    insert.Step();
}

} // namespace

TEST_F(DeletionTest, AServiceKilledInTheMiddleOfItsDeletionLeavesAllRecordsAndTheNextOneDeletesThem)
{
    constexpr std::uintmax_t middle = 500'000; // bytes
    const EventLogs logs(m_service.Installed());
    FillWithManyRecords(logs);
    const EventRows before = EventRowsOf(logs.File());
    const std::filesystem::path log = logs.File().wstring() + L"-wal";
    std::error_code ignored;
    EXPECT_EQ(OrderPurge(*Connect().Get(), VirusPurgeType, Day), Framework::Success);
    EXPECT_TRUE(WaitUntil(
        [&] { return std::filesystem::exists(log, ignored) && std::filesystem::file_size(log, ignored) > middle; },
        30'000, 1));
    Service::Freeze();
    EXPECT_EQ(logs.VirusDays(), std::vector{Day}) << "it has come to its end";
    Service::Kill();
    EXPECT_EQ(EventRowsOf(logs.File()), before);
    EXPECT_TRUE(IsIntact(logs.File()));

    ServiceSession next;
    EXPECT_EQ(OrderPurge(next.Controller(), VirusPurgeType, Day), Framework::Success);
    EXPECT_TRUE(PumpUntil([&] { return !next.events.empty(); }));
    EXPECT_EQ(EventRowsOf(logs.File()), EventRows());
}
