// Deletions by the service in its own process: what goes, what stays, and what a service leaves that is killed.

#include "suite/database/LogKinds.h"
#include "suite/framework/Caller.h"
#include "suite/framework/Day.h"
#include "suite/framework/Journal.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/Process.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/support/EventRows.h"

#include <algorithm>
#include <chrono>

namespace
{

constexpr EventLog::Day MiddleDay = 20261119;
constexpr EventLog::Day LastDay = 20261120;

class DeletionTest : public ServiceFixture
{
protected:
    // Returns when the event has come.
    static void Delete(ServiceSession& session, std::uint32_t purgeType, EventLog::Day day)
    {
        const std::size_t events = session.events.size();
        EXPECT_EQ(OrderPurge(session.Controller(), purgeType, day), Framework::Success);
        EXPECT_TRUE(PumpUntil([&] { return session.events.size() > events; }));
    }

    EventRows Rows() const { return EventRowsOf(m_logs.File()); }

    std::string Journal() const { return ReadBytes(m_service.Installed().File(Framework::Journal::FileName)); }

    // Virus records of a day that take the service a while to delete.
    void FillWithManyRecords() const
    {
        m_logs.Append(VirusSubType, MiddleDay, {});
        const EventLog::Connection connection = ConnectionTo(m_logs.File());
        EventLog::Statement insert(connection,
                                   "WITH RECURSIVE numbers(number) AS (VALUES(1) UNION ALL SELECT number + 1 FROM "
                                   "numbers WHERE number < 20000) INSERT INTO events(kind, day, time, line) SELECT 2, "
                                   "20261119, 120000, zeroblob(600) FROM numbers");
        insert.Step();
    }

    // What the killed service left is whole, and the next one does what it is told.
    void ExpectTheNextServiceToDelete(const EventRows& left) const
    {
        EXPECT_TRUE(IsIntact(m_logs.File()));
        ServiceSession session;
        Delete(session, VirusPurgeType, LastDay);
        EXPECT_EQ(Rows(), WithoutKindThrough(left, VirusSubType, LastDay));
    }

    const EventLogs m_logs{m_service.Installed()};
};

} // namespace

TEST_F(DeletionTest, OfEachKindTakesItsRecordsThroughTheDayAndNoOther)
{
    m_logs.FillWithSamplesOfAllKinds(4, LastDay);
    ServiceSession session;
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        const EventRows before = Rows();
        Delete(session, kind.purgeType, MiddleDay);
        const EventRows after = Rows();
        EXPECT_LT(after.size(), before.size()) << kind.title;
        EXPECT_EQ(after, WithoutKindThrough(before, kind.subType, MiddleDay)) << kind.title;
    }
    EXPECT_TRUE(IsIntact(m_logs.File()));
    const std::string user = Framework::Caller().Name(); // and the process of this test
    EXPECT_NE(Journal().find("Skipped task log through 2026-11-19: deletion ordered by " + user), std::string::npos)
        << Journal();
}

TEST_F(DeletionTest, AServiceKilledBeforeItsDeletionLeavesAllRecords)
{
    m_logs.Append(VirusSubType, MiddleDay, {VirusLine(L"0800", L"middle")});
    const EventRows before = Rows();
    {
        const EventLog::Connection other = ConnectionTo(m_logs.File());
        const EventLog::Transaction writing(other); // for which the service waits
        EXPECT_EQ(OrderPurge(*Connect().Get(), VirusPurgeType, MiddleDay), Framework::Success);
        Service::Kill();
    }
    EXPECT_EQ(Rows(), before);
    ExpectTheNextServiceToDelete(before);
}

TEST_F(DeletionTest, AServiceKilledInTheMiddleOfItsDeletionLeavesAllRecords)
{
    constexpr std::uintmax_t middle = 500'000; // bytes
    FillWithManyRecords();
    const EventRows before = Rows();
    const std::filesystem::path log = m_logs.File().wstring() + L"-wal";
    std::error_code ignored;
    EXPECT_EQ(OrderPurge(*Connect().Get(), VirusPurgeType, MiddleDay), Framework::Success);
    EXPECT_TRUE(WaitUntil(
        [&] { return std::filesystem::exists(log, ignored) && std::filesystem::file_size(log, ignored) > middle; },
        30'000, 1));
    Service::Freeze();
    EXPECT_EQ(m_logs.VirusDays(), std::vector<EventLog::Day>{MiddleDay}) << "it has come to its end";
    Service::Kill();
    EXPECT_EQ(Rows(), before);
    ExpectTheNextServiceToDelete(before);
}

TEST_F(DeletionTest, AServiceKilledAfterItsDeletionHasDeleted)
{
    m_logs.Append(VirusSubType, MiddleDay, {VirusLine(L"0800", L"middle")});
    m_logs.Append(VirusSubType, LastDay, {VirusLine(L"0800", L"newest")});
    const EventRows before = Rows();
    {
        ServiceSession session;
        Delete(session, VirusPurgeType, MiddleDay);
        Service::Kill();
    }
    EXPECT_EQ(Rows(), WithoutKindThrough(before, VirusSubType, MiddleDay));
    ExpectTheNextServiceToDelete(Rows());
}
