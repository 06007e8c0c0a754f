#include "suite/database/Schema.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/suite/database/DatabaseFiles.h"

#include <gtest/gtest.h>

namespace EventLog
{

namespace
{

// "x|120000|a" and "x|130000|b", and of the firewall "140000|c".
constexpr const char* FileOfVersion1 = "CREATE TABLE events(id INTEGER PRIMARY KEY, kind INTEGER NOT NULL, day INTEGER "
                                       "NOT NULL, line BLOB NOT NULL) STRICT;"
                                       "CREATE INDEX events_of_day ON events(kind, day);"
                                       "INSERT INTO events VALUES(7, 2, 20260101, CAST('x|120000|a' AS BLOB)), (3, 2, "
                                       "20260101, CAST('x|130000|b' AS BLOB)),"
                                       "(9, 6, 20260102, CAST('140000|c' AS BLOB));"
                                       "PRAGMA application_id=1517307212; PRAGMA user_version=1;";

class SchemaTest : public ::testing::Test
{
protected:
    void MakeVersion1() const
    {
        const Connection connection(m_path, OpenMode::CreateIfMissing, ShortTimeout);
        connection.Execute("PRAGMA encoding='UTF-16le'");
        connection.Execute(FileOfVersion1);
        connection.Execute("PRAGMA journal_mode=WAL");
    }

    std::int64_t Ask(const char* query) const
    {
        return Connection(m_path, OpenMode::Existing, ShortTimeout).Number(query);
    }

    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(DatabaseFileName);
};

} // namespace

TEST_F(SchemaTest, ANewFileIsMarkedAsOursAndHasTheCurrentVersion)
{
    EventDatabase::Create(m_path);
    EXPECT_EQ(Ask("PRAGMA application_id"), ApplicationId);
    EXPECT_EQ(Ask("PRAGMA user_version"), SchemaVersion);
    EXPECT_EQ(Ask("SELECT count(*) FROM pragma_journal_mode WHERE journal_mode='wal'"), 1);
}

TEST_F(SchemaTest, NothingLiesBesideANewFileThatWasClosed)
{
    EventDatabase::Create(m_path);
    for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(m_folder.Path()))
    {
        EXPECT_EQ(entry.path().wstring(), m_path);
    }
}

TEST_F(SchemaTest, AFileOfVersion1GetsTheTimesOfItsLines)
{
    MakeVersion1();
    const EventDatabase database = EventDatabase::Open(m_path);
    EXPECT_EQ(LinesOf(database, Virus, 20260101, 20260101), (Strings{L"x|130000|b", L"x|120000|a"}));
    EXPECT_EQ(LinesOf(database, Virus, {{20260101, 130000}, {20260101, 130000}}), Strings{L"x|130000|b"});
    EXPECT_EQ(LinesOf(database, Firewall, {{20260102, 140000}, {20260102, 140000}}), Strings{L"140000|c"});
    EXPECT_EQ(Ask("PRAGMA user_version"), SchemaVersion);
}

TEST_F(SchemaTest, AnUpgradedFileHasTheTablesOfANewOne)
{
    constexpr const char* count = "SELECT count(*) FROM sqlite_schema";
    const std::wstring fresh = m_folder.File(L"Fresh.db");
    MakeVersion1();
    EventDatabase::Open(m_path);
    EventDatabase::Create(fresh);
    const Connection both(fresh, OpenMode::Existing, ShortTimeout);
    both.Execute(("ATTACH '" + std::filesystem::path(m_path).string() + "' AS upgraded").c_str());
    EXPECT_EQ(both.Number(count), 2);
    EXPECT_EQ(both.Number("SELECT count(*) FROM upgraded.sqlite_schema"), 2);
    EXPECT_EQ(both.Number("SELECT count(*) FROM main.sqlite_schema JOIN upgraded.sqlite_schema AS u USING(name, sql)"),
              2);
}

TEST_F(SchemaTest, AnUpgradedFileTakesLinesBehindItsOwn)
{
    MakeVersion1();
    EventDatabase database = EventDatabase::Create(m_path);
    database.Append(Virus, 20260101, Strings{L"x|000000|new"});
    EXPECT_EQ(LinesOf(database, Virus, 20260101, 20260101).back(), L"x|000000|new");
}

TEST_F(SchemaTest, AFileOfVersion1ThatCannotBeWrittenStaysAsItIs)
{
    MakeVersion1();
    const std::string before = ReadBytes(m_path);
    {
        const UniqueFile holder(
            CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(holder);
        EXPECT_EQ(FailureOf([&] { EventDatabase::Open(m_path, ShortTimeout); }), SQLITE_READONLY);
    }
    EXPECT_EQ(ReadBytes(m_path), before);
}

// The index is gone already when the name of the old table is met: it must come back.
TEST_F(SchemaTest, AnUpgradeThatFailsHalfWayLeavesVersion1)
{
    MakeVersion1();
    Connection(m_path, OpenMode::Existing, ShortTimeout).Execute("CREATE TABLE events_of_version_1(a)");
    EXPECT_NE(FailureOf([&] { EventDatabase::Open(m_path, ShortTimeout); }), SQLITE_OK);
    EXPECT_EQ(Ask("PRAGMA user_version"), 1);
    EXPECT_EQ(Ask("SELECT count(*) FROM sqlite_schema WHERE name='events_of_day'"), 1);
    EXPECT_EQ(Ask("SELECT count(*) FROM events"), 3);
}

} // namespace EventLog
