#include "suite/framework/Service.h"

#include "suite/database/LogKinds.h"
#include "suite/framework/Caller.h"
#include "suite/framework/PurgeSettings.h"
#include "tests/unit/suite/framework/Inbox.h"
#include "tests/unit/suite/framework/ServiceFixture.h"

using namespace Framework;
using namespace std::chrono_literals;

namespace
{

using Deletions = EventLogsDouble::Deletions;
using Strings = std::vector<std::string>;
constexpr ValueKey PurgeEntries{22, 1};

class ServiceTest : public ServiceFixture
{
protected:
    void Advise(Inbox& inbox)
    {
        m_service.Events().Advise(this, __uuidof(IVdFrwkLocalEvents), Suite::ComPtr<IUnknown>(inbox.Sink()));
    }

    // The day up to which the scheduled purge deletes all kinds; 0 when it does nothing.
    std::uint32_t ScheduledPurge()
    {
        const std::size_t before = m_logs.Done().size();
        m_service.PurgeIfDue();
        EXPECT_TRUE(WaitUntilIdle());
        const Deletions done = m_logs.Done();
        EXPECT_TRUE(done.size() == before || done.size() == before + EventLog::AllLogKinds().size());
        return done.size() == before ? 0 : done.back().second;
    }
};

} // namespace

TEST_F(ServiceTest, APurgeDeletesTheKindUpToTheDayAndThenRaisesTheEvent)
{
    Inbox inbox;
    Advise(inbox);
    EXPECT_EQ(m_service.DoCommand(PurgeEntries, {20261119u, 0u, 1u}), Success);
    ASSERT_TRUE(inbox.WaitFor(1));
    EXPECT_EQ(m_logs.Done(), (Deletions{{2, 20261119}}));
    EXPECT_EQ(inbox.Events(), (std::vector<std::string>{"4 22 1"}));
    EXPECT_EQ(inbox.LastResult(), Success);
    m_service.Events().UnadviseAll(this);
    EXPECT_TRUE(inbox.WaitUntilReleased());
}

TEST_F(ServiceTest, TheJournalTellsAnOrderBeforeItsDeletionAndThenHowManyWentByWhoseOrder)
{
    const std::string caller = Caller().Name();
    EXPECT_EQ(m_service.DoCommand(PurgeEntries, {20261119u, 0u, 13u}), Success);
    ASSERT_TRUE(WaitUntilIdle());
    EXPECT_EQ(JournalLines(), (Strings{"Scan log through 2026-11-19: deletion ordered by " + caller,
                                       "Scan log through 2026-11-19: 3 entries deleted, by order of " + caller}));
}

TEST_F(ServiceTest, TheJournalTellsWhyNothingWasDeleted)
{
    m_logs.fails = true;
    EXPECT_EQ(m_service.DoCommand(PurgeEntries, {20261119u, 0u, 1u}), Success);
    ASSERT_TRUE(WaitUntilIdle());
    EXPECT_EQ(JournalLines().back(), "Virus log through 2026-11-19: no entry deleted: as the test wants it");
}

TEST_F(ServiceTest, TheJournalTellsWhatTheScheduleDeletedOfEachKind)
{
    WritePurgeSettings({7, 1});
    EXPECT_EQ(ScheduledPurge(), 20261112u);
    const Strings lines = JournalLines();
    ASSERT_EQ(lines.size(), 1 + EventLog::AllLogKinds().size());
    EXPECT_EQ(lines.front(), "All logs through 2026-11-12: deletion begun by the schedule, which keeps 7 days");
    for (std::size_t i = 1; i < lines.size(); ++i)
    {
        EXPECT_EQ(lines[i], std::string(EventLog::AllLogKinds()[i - 1].title) +
                                " through 2026-11-12: 3 entries deleted by the schedule, which keeps 7 days");
    }
}

TEST_F(ServiceTest, WhileADeletionRunsEveryOtherCallIsAnsweredAndTheNextOrderTaken)
{
    Inbox inbox;
    {
        const std::lock_guard running(m_logs.mayRun);
        EXPECT_EQ(m_service.DoCommand(PurgeEntries, {20261118u, 0u, 1u}), Success);
        Advise(inbox);
        List list;
        EXPECT_EQ(m_service.Profile().Query({112, 1}, list), Success);
        EXPECT_EQ(m_service.Profile().Set({113, 2}, {60u, 0u}), Success);
        EXPECT_EQ(m_service.Property().Query({3, 2}, list), Success);
        EXPECT_EQ(m_service.DoCommand(PurgeEntries, {20261119u, 0u, 1u}), Success);
        m_service.PurgeIfDue();
        EXPECT_EQ(m_logs.Done(), Deletions());
    }
    EXPECT_TRUE(inbox.WaitFor(1));
    EXPECT_TRUE(WaitUntilIdle());
    EXPECT_EQ(m_logs.Done(), (Deletions{{2, 20261118}, {2, 20261119}}));
    m_service.Events().UnadviseAll(this);
    EXPECT_TRUE(inbox.WaitUntilReleased());
}

// It waited for all thirteen, each of which can wait five seconds for a locked database.
TEST_F(ServiceTest, AnOrderThatComesDuringAScheduledPurgeWaitsForOneKindAlone)
{
    WritePurgeSettings({7, 1});
    {
        const std::lock_guard running(m_logs.mayRun);
        m_service.PurgeIfDue();
        EXPECT_EQ(m_service.DoCommand(PurgeEntries, {20261119u, 0u, 1u}), Success);
    }
    ASSERT_TRUE(WaitUntilIdle());
    const Deletions done = m_logs.Done();
    ASSERT_EQ(done.size(), EventLog::AllLogKinds().size() + 1);
    EXPECT_EQ(done[1], (std::pair(2u, 20261119u)));
}

TEST_F(ServiceTest, AFailedPurgeRaisesTheEventTooAndTellsTheFailure)
{
    m_logs.fails = true;
    Inbox inbox;
    Advise(inbox);
    EXPECT_EQ(m_service.DoCommand(PurgeEntries, {20261119u, 0u, 1u}), Success);
    EXPECT_TRUE(inbox.WaitFor(1));
    EXPECT_EQ(inbox.LastResult(), E_FAIL);
    m_service.Events().UnadviseAll(this);
    EXPECT_TRUE(inbox.WaitUntilReleased());
}

TEST_F(ServiceTest, AnotherCommandOrListDoesNothing)
{
    EXPECT_EQ(m_service.DoCommand({22, 2}, {20261119u, 0u, 1u}), Unknown);
    EXPECT_EQ(m_service.DoCommand({21, 1}, {20261119u, 0u, 1u}), Unknown);
    EXPECT_EQ(m_service.DoCommand(PurgeEntries, {20261119u, 0u}), E_INVALIDARG);
    EXPECT_TRUE(m_objects.UnusedSince());
    EXPECT_EQ(m_logs.Done(), Deletions());
}

TEST_F(ServiceTest, TheScheduledPurgeTakesAllKindsOnceADay)
{
    WritePurgeSettings({7, 1});
    EXPECT_EQ(ScheduledPurge(), 20261112u);
    EXPECT_EQ(ScheduledPurge(), 0u);
    m_calendar.today = 2026y / 11 / 21;
    EXPECT_EQ(ScheduledPurge(), 20261113u);
}

TEST_F(ServiceTest, TheNextProcessKnowsOfThePurgeOfTheDay)
{
    WritePurgeSettings({7, 1});
    EXPECT_EQ(ScheduledPurge(), 20261112u);
    ValueStore store(m_folder.Path());
    Service next(m_objects, store, m_logs, m_calendar, m_journal);
    const std::size_t before = m_logs.Done().size();
    next.PurgeIfDue();
    EXPECT_TRUE(WaitUntilIdle());
    EXPECT_EQ(m_logs.Done().size(), before);
}

TEST_F(ServiceTest, AFailedScheduledPurgeIsLeftToTheNextProcessOrDay)
{
    WritePurgeSettings({7, 1});
    m_logs.fails = true;
    EXPECT_EQ(ScheduledPurge(), 20261112u);
    EXPECT_EQ(ScheduledPurge(), 0u);
    m_logs.fails = false;
    Service next(m_objects, m_store, m_logs, m_calendar, m_journal);
    const std::size_t before = m_logs.Done().size();
    next.PurgeIfDue();
    EXPECT_TRUE(WaitUntilIdle());
    EXPECT_GT(m_logs.Done().size(), before);
}

TEST_F(ServiceTest, AScheduledPurgeThatFailedForOneKindIsNotDone)
{
    constexpr std::uint32_t virus = 2; // others come after it
    WritePurgeSettings({7, 1});
    m_logs.failingKind = virus;
    EXPECT_EQ(ScheduledPurge(), 20261112u);
    m_logs.failingKind = 0;
    Service next(m_objects, m_store, m_logs, m_calendar, m_journal);
    const std::size_t before = m_logs.Done().size();
    next.PurgeIfDue();
    EXPECT_TRUE(WaitUntilIdle());
    EXPECT_GT(m_logs.Done().size(), before);
}

// The day of the last purge held up the next one, whatever it took: whoever chose 7 days saw entries of a month until
// the next day.
TEST_F(ServiceTest, TheScheduledPurgeFollowsTheSettingsOfTheMomentAlsoOnTheDayOfTheLastOne)
{
    struct Step
    {
        std::uint32_t days;
        std::uint32_t flag;
        std::uint32_t through; // 0: no purge
    };

    constexpr Step steps[] = {{7, 0, 0},  {60, 1, 20260920}, {60, 1, 0},        {30, 1, 20261020}, {45, 1, 0},
                              {30, 1, 0}, {14, 0, 0},        {14, 1, 20261105}, {7, 1, 20261112},  {60, 1, 0}};
    for (const Step& step : steps)
    {
        EXPECT_EQ(m_service.Profile().Set({113, 2}, {step.days, step.flag}), Success);
        EXPECT_EQ(ScheduledPurge(), step.through) << step.days << ", " << step.flag;
    }
}

TEST_F(ServiceTest, SettingsOfTheRegistryThatMakeNoSensePurgeNothing)
{
    constexpr wchar_t key[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";
    const auto expectNone = [&](std::uint32_t days, std::uint32_t flag)
    {
        m_registry.SetNumber(key, L"EventLogPurgeFre", days);
        m_registry.SetNumber(key, L"EventLogPurgeFlag", flag);
        EXPECT_EQ(ScheduledPurge(), 0u) << days << ", " << flag;
    };
    expectNone(0, 1);
    expectNone(0xFFFFFFFF, 1);
    expectNone(30, 2);
    expectNone(30, 0xFFFFFFFF);
    EXPECT_EQ(JournalLines(), Strings());
}

TEST_F(ServiceTest, TheCategoryGroupsOfTheUrlFilterLieBesideTheKeptValues)
{
    WriteBytes(m_folder.File(CategoryFile::FileName), "1 = one\n");
    List list;
    EXPECT_EQ(m_service.Property().Query({3, 2}, list), Success);
    EXPECT_EQ(list, (List{List{List{std::wstring(L"1"), std::wstring(L"one")}}}));
}
