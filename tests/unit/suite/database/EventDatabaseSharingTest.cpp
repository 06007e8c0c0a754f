// Several connections to one file at once. Those of one process and those of several use the same locks of the file.

#include "platform/dialog/UniqueHandle.h"
#include "suite/database/EventDatabase.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/suite/database/DatabaseFiles.h"

#include <gtest/gtest.h>

#include <future>

extern "C" decltype(&::Sleep) __imp_Sleep;

namespace EventLog
{

namespace
{

constexpr Day TheDay = 20260101;

class EventDatabaseSharing : public ::testing::Test
{
protected:
    EventDatabaseSharing() { EventDatabase::Create(m_path).Append(Virus, TheDay, Strings{L"x|000000|first"}); }

    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(DatabaseFileName);
};

} // namespace

TEST_F(EventDatabaseSharing, AReaderGetsTheLastCommittedStateWhileAWriterIsAtWork)
{
    const EventDatabase reader = EventDatabase::Open(m_path, ShortTimeout);
    const Connection writer(m_path, OpenMode::Existing, ShortTimeout);
    Transaction transaction(writer);
    writer.Execute("DELETE FROM events; INSERT INTO events(kind, day, time, line) VALUES(2, 20260102, 0, x'4100')");
    EXPECT_EQ(LinesOf(reader, Virus, TheDay, 20260102), Strings{L"x|000000|first"});
    EXPECT_EQ(EventDatabase::Open(m_path, ShortTimeout).Days(Virus), std::vector<Day>{TheDay});
    transaction.Commit();
    EXPECT_EQ(LinesOf(reader, Virus, TheDay, 20260102), Strings{L"A"});
}

TEST_F(EventDatabaseSharing, AReaderKeepsItsStateWhileAWriterCommits)
{
    const EventDatabase reader = EventDatabase::Open(m_path, ShortTimeout);
    EventDatabase writer = EventDatabase::Open(m_path, ShortTimeout);
    writer.Append(Virus, TheDay, Strings{L"x|000000|second"});
    Strings lines;
    reader.ReadPeriod(Virus, DaysBetween(TheDay, TheDay),
                      [&](std::wstring_view line)
                      {
                          lines.emplace_back(line);
                          writer.DeleteThrough(Virus, TheDay);
                      });
    EXPECT_EQ(lines.size(), 2u);
    EXPECT_EQ(reader.Days(Virus), std::vector<Day>{});
}

TEST_F(EventDatabaseSharing, AWriterThatWaitsInVainChangesNothing)
{
    const Connection other(m_path, OpenMode::Existing, ShortTimeout);
    {
        const Transaction transaction(other);
        EventDatabase writer = EventDatabase::Open(m_path, ShortTimeout);
        EXPECT_EQ(FailureOf([&] { writer.Append(Virus, TheDay, Strings{L"x|000000|second"}); }), SQLITE_BUSY);
        EXPECT_EQ(FailureOf([&] { writer.ReplaceDay(Virus, TheDay, {}); }), SQLITE_BUSY);
        EXPECT_EQ(FailureOf([&] { writer.DeleteThrough(Virus, TheDay); }), SQLITE_BUSY);
    }
    EXPECT_EQ(LinesOf(EventDatabase::Open(m_path), Virus, TheDay, TheDay), Strings{L"x|000000|first"});
}

TEST_F(EventDatabaseSharing, AWriterWaitsForAnotherOne)
{
    constexpr int lines = 200;
    const auto write = [this](std::wstring name)
    {
        EventDatabase database = EventDatabase::Open(m_path);
        for (int i = 0; i < lines; ++i)
        {
            database.Append(Virus, TheDay, Strings{L"x|000000|" + name});
        }
    };
    std::future<void> first = std::async(std::launch::async, write, L"one");
    std::future<void> second = std::async(std::launch::async, write, L"two");
    EXPECT_NO_THROW(first.get());
    EXPECT_NO_THROW(second.get());
    EXPECT_EQ(LinesOf(EventDatabase::Open(m_path), Virus, TheDay, TheDay).size(), 1u + 2 * lines);
}

TEST_F(EventDatabaseSharing, AFileThatSomebodyHoldsForAMomentCanStillBeWritten)
{
    // As the system does while a file gets its name: nobody else may open it for writing who does not allow that.
    static UniqueFile holder;
    holder.reset(CreateFileW(m_path.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(holder);
    const ImportPatch release(
        __imp_Sleep, +[](DWORD) { holder.reset(); });
    EventDatabase database = EventDatabase::Open(m_path);
    EXPECT_FALSE(holder) << "it was not waited for";
    EXPECT_EQ(FailureOf([&] { database.Append(Virus, TheDay, Strings{L"x|000000|second"}); }), SQLITE_OK);
}

TEST_F(EventDatabaseSharing, ManyThatMakeTheSameFileAllGetIt)
{
    const std::wstring path = m_folder.File(L"New.db");
    const auto make = [&path](Day day) { EventDatabase::Create(path).Append(Virus, day, Strings{L"x|000000|line"}); };
    std::vector<std::future<void>> makers;
    for (Day day = 20260101; day <= 20260106; ++day)
    {
        makers.push_back(std::async(std::launch::async, make, day));
    }
    for (std::future<void>& maker : makers)
    {
        EXPECT_NO_THROW(maker.get());
    }
    EXPECT_EQ(EventDatabase::Open(path).Days(Virus).size(), 6u);
    for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(m_folder.Path()))
    {
        EXPECT_NE(entry.path().extension(), L".new");
    }
}

TEST_F(EventDatabaseSharing, AnExclusiveLockIsReportedAfterTheTimeout)
{
    const Connection other(m_path, OpenMode::Existing, ShortTimeout);
    other.Execute("PRAGMA locking_mode=EXCLUSIVE");
    const Transaction transaction(other);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(FailureOf([&] { EventDatabase::Open(m_path, ShortTimeout); }), SQLITE_BUSY);
    EXPECT_GE(std::chrono::steady_clock::now() - start, ShortTimeout / 2);
    EXPECT_LT(std::chrono::steady_clock::now() - start, EventDatabase::BusyTimeout);
}

} // namespace EventLog
