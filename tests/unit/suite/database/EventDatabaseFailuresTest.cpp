// Files that are not what they should be: each is reported and stays byte for byte as it is.

#include "platform/dialog/UniqueHandle.h"
#include "suite/database/EventDatabase.h"
#include "suite/database/Schema.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/suite/database/DatabaseFiles.h"

#include <gtest/gtest.h>

namespace EventLog
{

namespace
{

class EventDatabaseFailures : public ::testing::Test
{
protected:
    std::string Bytes() const { return ReadBytes(m_path); }

    // Opening and making fail with the code, and leave the file as it is.
    void ExpectRefused(int code) const
    {
        const std::string before = Bytes();
        EXPECT_EQ(FailureOf([&] { EventDatabase::Open(m_path, ShortTimeout); }), code);
        EXPECT_EQ(Bytes(), before);
        EXPECT_EQ(FailureOf([&] { EventDatabase::Create(m_path, ShortTimeout); }), code);
        EXPECT_EQ(Bytes(), before);
    }

    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(DatabaseFileName);
};

} // namespace

TEST_F(EventDatabaseFailures, AFileThatIsNotThereStaysAbsent)
{
    EXPECT_EQ(FailureOf([&] { EventDatabase::Open(m_path); }), SQLITE_CANTOPEN);
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

TEST_F(EventDatabaseFailures, AFolderThatIsNotThereIsReported)
{
    const std::wstring path = m_folder.File(L"no\\EventLog.db");
    EXPECT_EQ(FailureOf([&] { EventDatabase::Open(path); }), SQLITE_CANTOPEN);
    EXPECT_EQ(FailureOf([&] { EventDatabase::Create(path); }), SQLITE_CANTOPEN);
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

TEST_F(EventDatabaseFailures, ATruncatedFileIsReportedAndStaysAsItIs)
{
    MakeFilledDatabase(m_path);
    const std::uintmax_t size = std::filesystem::file_size(m_path);
    for (const std::uintmax_t left : {size - 1, size / 2, std::uintmax_t{4096}, std::uintmax_t{100}})
    {
        SCOPED_TRACE(left);
        std::filesystem::resize_file(m_path, left);
        ExpectRefused(SQLITE_CORRUPT);
    }
    std::filesystem::resize_file(m_path, 1);
    ExpectRefused(SQLITE_NOTADB);
    std::filesystem::resize_file(m_path, 0);
    ExpectRefused(SQLITE_NOTADB);
}

TEST_F(EventDatabaseFailures, AFileOfSomethingElseStaysAsItIs)
{
    WriteBytes(m_path, std::string(10'000, 'x'));
    ExpectRefused(SQLITE_NOTADB);
}

TEST_F(EventDatabaseFailures, ADatabaseOfSomebodyElseStaysAsItIs)
{
    Connection(m_path, OpenMode::CreateIfMissing, ShortTimeout)
        .Execute("CREATE TABLE events(a); PRAGMA user_version=2");
    ExpectRefused(SQLITE_NOTADB);
}

TEST_F(EventDatabaseFailures, ANewerVersionStaysAsItIs)
{
    MakeFilledDatabase(m_path);
    Connection(m_path, OpenMode::Existing, ShortTimeout).Execute("PRAGMA user_version=3");
    ExpectRefused(SQLITE_SCHEMA);
}

TEST_F(EventDatabaseFailures, ADamagedPageIsReportedByTheReadingThatMeetsIt)
{
    MakeFilledDatabase(m_path);
    std::string bytes = Bytes();
    bytes.replace(bytes.size() / 2, 8192, 8192, '\xFF');
    WriteBytes(m_path, bytes);
    {
        const EventDatabase database = EventDatabase::Open(m_path);
        EXPECT_EQ(FailureOf([&] { LinesOf(database, Virus, 20260101, 20260101); }), SQLITE_CORRUPT);
    }
    EXPECT_EQ(Bytes(), bytes);
}

// A writer that ended without closing leaves its last transactions in the write-ahead log. The next one that closes the
// file moves them into it, which would change a damaged file too.
TEST_F(EventDatabaseFailures, ADamagedFileStaysAsItIsThoughItsLogHoldsMore)
{
    const std::wstring path = m_folder.File(L"Crashed.db");
    MakeFilledDatabase(m_path);
    {
        EventDatabase writer = EventDatabase::Open(m_path);
        writer.Append(Firewall, 20260102, Strings{L"000000|in the log alone"});
        std::filesystem::copy_file(m_path, path);
        std::filesystem::copy_file(m_path + L"-wal", path + L"-wal");
    }
    std::string bytes = ReadBytes(path);
    ASSERT_NE(bytes, Bytes()) << "closing moves nothing";
    bytes.replace(bytes.size() / 2, 8192, 8192, '\xFF');
    WriteBytes(path, bytes);
    {
        const EventDatabase database = EventDatabase::Open(path);
        EXPECT_EQ(LinesOf(database, Firewall, 20260102, 20260102), Strings{L"000000|in the log alone"});
        EXPECT_EQ(FailureOf([&] { LinesOf(database, Virus, 20260101, 20260101); }), SQLITE_CORRUPT);
    }
    EXPECT_EQ(ReadBytes(path), bytes);
}

TEST_F(EventDatabaseFailures, AReadOnlyFileCanBeReadAndNotWritten)
{
    MakeFilledDatabase(m_path, 10);
    const std::string before = Bytes();
    // Nobody else may write while this handle is open, whatever the rights of the user are.
    const UniqueFile holder(
        CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(holder);
    EventDatabase database = EventDatabase::Open(m_path, ShortTimeout);
    EXPECT_EQ(LinesOf(database, Virus, 20260101, 20260101).size(), 10u);
    EXPECT_EQ(FailureOf([&] { database.Append(Virus, 20260102, Strings{L"x|000000|a"}); }), SQLITE_READONLY);
    EXPECT_EQ(FailureOf([&] { database.DeleteThrough(Virus, 20260102); }), SQLITE_READONLY);
    EXPECT_EQ(Bytes(), before);
}

TEST_F(EventDatabaseFailures, TheTextOfAFailureNamesItsReasonAndCode)
{
    try
    {
        EventDatabase::Open(m_path);
        FAIL() << "it was opened";
    }
    catch (const DatabaseError& error)
    {
        EXPECT_NE(std::string(error.what()).find("unable to open"), std::string::npos) << error.what();
        EXPECT_NE(std::string(error.what()).find("14"), std::string::npos) << error.what();
    }
}

} // namespace EventLog
