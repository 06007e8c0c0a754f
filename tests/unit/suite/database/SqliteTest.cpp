#include "suite/database/Sqlite.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/unit/suite/database/DatabaseFiles.h"

#include <gtest/gtest.h>

namespace EventLog
{

namespace
{

class SqliteTest : public ::testing::Test
{
protected:
    const TemporaryFolder m_folder;
    const Connection m_connection{m_folder.File(DatabaseFileName), OpenMode::CreateIfMissing, ShortTimeout};
};

void ReturnOne(sqlite3_context* context, int, sqlite3_value**)
{
    sqlite3_result_int(context, 1);
}

} // namespace

TEST_F(SqliteTest, ASchemaCannotCallAFunctionThatIsNotMarkedAsHarmless)
{
    ASSERT_EQ(
        sqlite3_create_function(m_connection.Handle(), "one", 0, SQLITE_UTF8, nullptr, ReturnOne, nullptr, nullptr),
        SQLITE_OK);
    m_connection.Execute("CREATE VIEW trap AS SELECT one()");
    EXPECT_EQ(m_connection.Number("SELECT one()"), 1);
    EXPECT_EQ(FailureOf([&] { m_connection.Number("SELECT * FROM trap"); }), SQLITE_ERROR);
}

TEST_F(SqliteTest, AStatementCannotRewriteTheSchemaOrSwitchTheJournalOff)
{
    m_connection.Execute("CREATE TABLE events(id)");
    m_connection.Execute("PRAGMA writable_schema=ON");
    EXPECT_EQ(FailureOf([&] { m_connection.Execute("DELETE FROM sqlite_schema"); }), SQLITE_ERROR);
    m_connection.Execute("PRAGMA journal_mode=OFF");
    EXPECT_EQ(m_connection.Number("SELECT count(*) FROM pragma_journal_mode WHERE journal_mode='delete'"), 1);
}

} // namespace EventLog
