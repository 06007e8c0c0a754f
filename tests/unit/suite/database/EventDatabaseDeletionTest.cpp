// A deletion is done or it is not, whatever ends it: nothing in between is ever found in the file.

#include "suite/database/EventDatabase.h"
#include "suite/database/LogKinds.h"
#include "tests/support/EventRows.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WatchedWrites.h"
#include "tests/unit/suite/database/DatabaseFiles.h"

#include <gtest/gtest.h>

#include <optional>

namespace EventLog
{

namespace
{

constexpr Day FirstDay = 20251230;
constexpr Day MiddleDay = 20260101;
constexpr Day LastDay = 20260102;

class EventDatabaseDeletion : public ::testing::Test
{
protected:
    // Records of every kind on four days, those of a day and kind in two places of the file, of several pages.
    EventDatabaseDeletion()
    {
        EventDatabase database = EventDatabase::Create(m_path);
        for (const wchar_t* const part : {L"first", L"second"})
        {
            for (const Day day : {MiddleDay, FirstDay, LastDay, Day{20251231}})
            {
                for (const LogKind& kind : AllLogKinds())
                {
                    const std::wstring line = L"x|120000|" + std::wstring(kind.extension) + part;
                    database.Append(kind.subType, day, Strings{line + std::wstring(300, L'.'), line});
                }
            }
        }
    }

    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(DatabaseFileName);
};

} // namespace

TEST_F(EventDatabaseDeletion, OfEachKindTakesItsRecordsThroughTheDayAndNoOther)
{
    EventDatabase database = EventDatabase::Open(m_path);
    for (const LogKind& kind : AllLogKinds())
    {
        const EventRows before = EventRowsOf(m_path);
        EXPECT_EQ(database.DeleteThrough(kind.subType, MiddleDay), 12u) << kind.title;
        EXPECT_EQ(EventRowsOf(m_path), WithoutKindThrough(before, kind.subType, MiddleDay)) << kind.title;
        EXPECT_EQ(database.Days(kind.subType), std::vector<Day>{LastDay}) << kind.title;
    }
    EXPECT_TRUE(IsIntact(m_path));
}

TEST_F(EventDatabaseDeletion, ADayWithoutRecordsTakesThoseBeforeIt)
{
    EventDatabase database = EventDatabase::Open(m_path);
    EXPECT_EQ(database.DeleteThrough(Virus, FirstDay - 1), 0u);
    EXPECT_EQ(database.DeleteThrough(Virus, 20251239), 8u);
    EXPECT_EQ(database.DeleteThrough(Virus, 99991231), 8u);
    EXPECT_EQ(database.Days(Virus), std::vector<Day>{});
}

TEST_F(EventDatabaseDeletion, AFullDiskAtAnyOfItsWritesLeavesAllRecords)
{
    const EventRows before = EventRowsOf(m_path);
    int result = SQLITE_FULL;
    int writes = 0;
    for (; result != SQLITE_OK && writes < 1000; ++writes)
    {
        SCOPED_TRACE(writes);
        EventDatabase database = EventDatabase::Open(m_path);
        {
            int left = writes;
            const WatchedWrites disk([&] { return left-- > 0; });
            result = FailureOf([&] { database.DeleteThrough(Virus, MiddleDay); });
        }
        ASSERT_TRUE(result == SQLITE_FULL || result == SQLITE_OK) << result;
        ASSERT_EQ(EventRowsOf(m_path), result == SQLITE_OK ? WithoutKindThrough(before, Virus, MiddleDay) : before);
        ASSERT_TRUE(IsIntact(m_path));
    }
    EXPECT_GT(writes, 10) << "the deletion is too small for this test";
    EXPECT_EQ(result, SQLITE_OK);
}

// What is in the files at any moment is what a process that is killed then leaves there.
TEST_F(EventDatabaseDeletion, AProcessKilledAtAnyOfItsWritesLeavesAllRecordsOrHasDeletedThem)
{
    const EventRows before = EventRowsOf(m_path);
    const EventRows after = WithoutKindThrough(before, Virus, MiddleDay);
    const auto log = [](const std::wstring& path) { return path + L"-wal"; };
    std::vector<std::wstring> snapshots;
    const auto take = [&]
    {
        const std::wstring path = m_folder.File(std::to_wstring(snapshots.size()) + L".db");
        EXPECT_TRUE(CopyFileW(m_path.c_str(), path.c_str(), TRUE));
        EXPECT_TRUE(CopyFileW(log(m_path).c_str(), log(path).c_str(), TRUE));
        snapshots.push_back(path);
        return true;
    };
    {
        std::optional<EventDatabase> database = EventDatabase::Open(m_path);
        const WatchedWrites watched(take);
        database->DeleteThrough(Virus, MiddleDay);
        database.reset(); // what it has written moves into the file
    }
    ASSERT_EQ(EventRowsOf(m_path), after);

    std::size_t old = 0;
    bool isDone = false;
    for (const std::wstring& snapshot : snapshots)
    {
        SCOPED_TRACE(std::filesystem::path(snapshot).filename());
        const EventRows rows = EventRowsOf(snapshot);
        isDone = isDone || rows != before;
        old += isDone ? 0 : 1;
        ASSERT_EQ(rows, isDone ? after : before);
        ASSERT_TRUE(IsIntact(snapshot));
        EXPECT_EQ(EventDatabase::Open(snapshot).Days(Firewall).size(), 4u);
    }
    EXPECT_GT(old, 10u) << "no snapshot was taken in the middle of the deletion";
    EXPECT_GT(snapshots.size(), old) << "no snapshot was taken while it moved into the file";
}

} // namespace EventLog
