// Orders to purge that the database refuses: the client learns of it, the journal says why, and every record is there.

#include "suite/framework/DatabaseLogs.h"
#include "suite/framework/PurgeSettings.h"
#include "tests/support/EventRows.h"
#include "tests/support/WatchedWrites.h"
#include "tests/unit/suite/framework/Inbox.h"
#include "tests/unit/suite/framework/ServiceFixture.h"

using namespace Framework;

namespace
{

constexpr std::uint32_t Virus = 2;
constexpr std::uint32_t Firewall = 6;
constexpr std::uint32_t VirusPurgeType = 1;

class PurgeFailuresTest : public ServiceFixture
{
protected:
    PurgeFailuresTest()
    {
        auto database = EventLog::EventDatabase::Create(m_path);
        const std::vector<std::wstring> lines{L"x|120000|one", L"x|130000|two"};
        for (const std::uint32_t day : {20261010u, 20261119u, 20261120u})
        {
            database.Append(Virus, day, lines);
            database.Append(Firewall, day, lines);
        }
        m_before = EventRowsOf(m_path);
        m_purger.Events().Advise(this, __uuidof(IVdFrwkLocalEvents), Suite::ComPtr<IUnknown>(m_inbox.Sink()));
    }

    ~PurgeFailuresTest() override { m_purger.Events().UnadviseAll(this); }

    // Orders the purge, waits for its event and returns the result that the event tells.
    HRESULT Order()
    {
        const std::size_t events = m_inbox.Events().size();
        EXPECT_EQ(m_purger.DoCommand({22, 1}, {20261119u, 0u, VirusPurgeType}), Success);
        EXPECT_TRUE(m_inbox.WaitFor(events + 1));
        return m_inbox.LastResult();
    }

    void ExpectTheOrderToFailFor(const std::string& reason)
    {
        EXPECT_EQ(Order(), E_FAIL);
        const std::string line = JournalLines().back();
        EXPECT_TRUE(line.starts_with("Virus log through 2026-11-19: no entry deleted: ")) << line;
        EXPECT_NE(line.find(reason), line.npos) << line;
    }

    // With nothing in its way any more.
    void ExpectTheSameOrderToBeDone()
    {
        EXPECT_EQ(EventRowsOf(m_path), m_before);
        EXPECT_EQ(Order(), Success);
        EXPECT_EQ(EventRowsOf(m_path), WithoutKindThrough(m_before, Virus, 20261119));
        EXPECT_TRUE(IsIntact(m_path));
        EXPECT_NE(JournalLines().back().find(": 4 entries deleted, by order of "), std::string::npos);
    }

    const std::wstring m_path = m_folder.File(EventLog::DatabaseFileName);
    EventRows m_before;
    Inbox m_inbox;
    DatabaseLogs m_database{m_folder.Path(), std::chrono::milliseconds(50)};
    Service m_purger{m_objects, m_store, m_database, m_calendar, m_journal};
};

} // namespace

TEST_F(PurgeFailuresTest, ALockedDatabase)
{
    {
        const EventLog::Connection other = ConnectionTo(m_path);
        const EventLog::Transaction transaction(other);
        ExpectTheOrderToFailFor("database is locked");
    }
    ExpectTheSameOrderToBeDone();
}

TEST_F(PurgeFailuresTest, AReadOnlyDatabase)
{
    {
        // Nobody else may write while this handle is open, whatever the rights of the user are.
        const Suite::KernelHandle holder = Suite::OwnFile(
            CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(holder);
        ExpectTheOrderToFailFor("readonly database");
    }
    ExpectTheSameOrderToBeDone();
}

TEST_F(PurgeFailuresTest, AFullDisk)
{
    {
        // The journal lies on it too, so that only the event tells.
        const WatchedWrites disk([] { return false; });
        EXPECT_EQ(Order(), E_FAIL);
    }
    EXPECT_EQ(JournalLines(), std::vector<std::string>());
    ExpectTheSameOrderToBeDone();
}

TEST_F(PurgeFailuresTest, ADatabaseThatIsNotThere)
{
    const std::wstring elsewhere = m_path + L".moved";
    std::filesystem::rename(m_path, elsewhere);
    ExpectTheOrderToFailFor("unable to open database file");
    ASSERT_FALSE(std::filesystem::exists(m_path));
    std::filesystem::rename(elsewhere, m_path);
    ExpectTheSameOrderToBeDone();
}

TEST_F(PurgeFailuresTest, AFileThatIsNoDatabase)
{
    const std::string good = ReadBytes(m_path);
    const std::string other(10'000, 'x');
    WriteBytes(m_path, other);
    ExpectTheOrderToFailFor("file is not a database");
    EXPECT_EQ(ReadBytes(m_path), other);
    WriteBytes(m_path, good);
    ExpectTheSameOrderToBeDone();
}

TEST_F(PurgeFailuresTest, ADatabaseLockedForAMomentIsWaitedFor)
{
    DatabaseLogs patient(m_folder.Path());
    Service purger(m_objects, m_store, patient, m_calendar, m_journal);
    Inbox inbox;
    purger.Events().Advise(this, __uuidof(IVdFrwkLocalEvents), Suite::ComPtr<IUnknown>(inbox.Sink()));
    {
        const EventLog::Connection other = ConnectionTo(m_path);
        const EventLog::Transaction transaction(other);
        EXPECT_EQ(purger.DoCommand({22, 1}, {20261119u, 0u, VirusPurgeType}), Success);
        EXPECT_EQ(EventRowsOf(m_path), m_before) << "a reader waits for nobody";
        EXPECT_TRUE(inbox.Events().empty());
    }
    EXPECT_TRUE(inbox.WaitFor(1));
    EXPECT_EQ(inbox.LastResult(), Success);
    EXPECT_EQ(EventRowsOf(m_path), WithoutKindThrough(m_before, Virus, 20261119));
    purger.Events().UnadviseAll(this);
    EXPECT_TRUE(inbox.WaitUntilReleased());
}

TEST_F(PurgeFailuresTest, AScheduledPurgeThatADatabaseRefusesIsDoneByTheNextProcess)
{
    WritePurgeSettings({30, 1}); // through 20 October
    {
        const EventLog::Connection other = ConnectionTo(m_path);
        const EventLog::Transaction transaction(other);
        m_purger.PurgeIfDue();
        EXPECT_TRUE(WaitUntilIdle());
    }
    EXPECT_EQ(EventRowsOf(m_path), m_before);
    Service next(m_objects, m_store, m_database, m_calendar, m_journal);
    next.PurgeIfDue();
    EXPECT_TRUE(WaitUntilIdle());
    EventRows left = m_before;
    std::erase_if(left, [](const EventRow& row) { return row.day == 20261010; });
    EXPECT_EQ(EventRowsOf(m_path), left);
}
