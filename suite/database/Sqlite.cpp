#include "suite/database/Sqlite.h"

#include "suite/common/KernelHandle.h"

#include <sqlite3.h>

#include <cstring>
#include <string>

namespace EventLog
{

namespace
{

constexpr DWORD RetryMilliseconds = 10;

static_assert(sizeof(wchar_t) == 2, "texts are stored as they lie in memory");

[[noreturn]] void Fail(sqlite3* database, int code)
{
    const int primary = code & 0xFF;
    const bool damaged = primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB;
    const std::string text = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
    if (damaged && database != nullptr)
    {
        KeepFileAsItIs(database);
    }
    throw DatabaseError(code, text + " (SQLite code " + std::to_string(code) + ")");
}

void Require(sqlite3* database, int code)
{
    if (code != SQLITE_OK)
    {
        Fail(database, code);
    }
}

std::string Utf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

// Whoever can write the file, or a statement, gets nothing more by it: the schema calls no function that could do harm,
// and nothing writes past the library's own rules.
void Distrust(sqlite3* database)
{
    Require(database, sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr));
    Require(database, sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr));
}

// Whether the file is one that this user may write, although it may be in use at the moment in a way that forbids it.
bool MayBeWritten(const std::filesystem::path& path)
{
    const Suite::KernelHandle file = Suite::OpenShared(path.c_str(), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
    return file != nullptr || GetLastError() == ERROR_SHARING_VIOLATION;
}

} // namespace

void KeepFileAsItIs(sqlite3* database) noexcept
{
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

void Connection::Closer::operator()(sqlite3* database) const noexcept
{
    sqlite3_close_v2(database);
}

Connection::Connection(const std::filesystem::path& path, OpenMode mode, std::chrono::milliseconds busyTimeout)
{
    // The library takes a file that it cannot open for writing for one that is to be read only, also when that is so
    // for a moment: while somebody gives the file its name, or looks through it.
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(busyTimeout.count());
    Open(path, mode);
    while (sqlite3_db_readonly(Handle(), "main") == 1 && MayBeWritten(path) && GetTickCount64() < end)
    {
        Sleep(RetryMilliseconds);
        Open(path, mode);
    }
    Require(Handle(), sqlite3_busy_timeout(Handle(), static_cast<int>(busyTimeout.count())));
}

void Connection::Open(const std::filesystem::path& path, OpenMode mode)
{
    const int flags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE | (mode == OpenMode::CreateIfMissing ? SQLITE_OPEN_CREATE : 0);
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(Utf8(path).c_str(), &database, flags, nullptr);
    m_database.reset(database);
    Require(database, code);
    Distrust(database);
}

void Connection::Execute(const char* statements) const
{
    Require(Handle(), sqlite3_exec(Handle(), statements, nullptr, nullptr, nullptr));
}

std::int64_t Connection::Number(const char* query) const
{
    Statement statement(*this, query);
    statement.Step();
    return statement.Number(0);
}

std::int64_t Connection::Changes() const
{
    return sqlite3_changes64(Handle());
}

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const noexcept
{
    sqlite3_finalize(statement);
}

Statement::Statement(const Connection& connection, std::string_view text)
{
    sqlite3_stmt* statement = nullptr;
    Require(connection.Handle(),
            sqlite3_prepare_v2(connection.Handle(), text.data(), static_cast<int>(text.size()), &statement, nullptr));
    m_statement.reset(statement);
}

void Statement::Bind(int parameter, std::int64_t number)
{
    Require(sqlite3_db_handle(m_statement.get()), sqlite3_bind_int64(m_statement.get(), parameter, number));
}

void Statement::Bind(int parameter, std::wstring_view text)
{
    // An empty text is a blob of no bytes, and not the null that a null address would bind.
    const void* const bytes = text.empty() ? L"" : text.data();
    Require(sqlite3_db_handle(m_statement.get()),
            sqlite3_bind_blob64(m_statement.get(), parameter, bytes, text.size() * sizeof(wchar_t), SQLITE_STATIC));
}

bool Statement::Step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW)
    {
        return true;
    }
    if (code != SQLITE_DONE)
    {
        Fail(sqlite3_db_handle(m_statement.get()), code);
    }
    Restart();
    return false;
}

void Statement::Restart()
{
    Require(sqlite3_db_handle(m_statement.get()), sqlite3_reset(m_statement.get()));
}

std::int64_t Statement::Number(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

void Statement::Text(int column, std::wstring& text) const
{
    const void* const bytes = sqlite3_column_blob(m_statement.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column));
    sqlite3* const database = sqlite3_db_handle(m_statement.get());
    if (bytes == nullptr && sqlite3_errcode(database) == SQLITE_NOMEM)
    {
        Fail(database, SQLITE_NOMEM);
    }
    text.resize(size / sizeof(wchar_t));
    if (!text.empty())
    {
        std::memcpy(text.data(), bytes, text.size() * sizeof(wchar_t));
    }
}

Transaction::Transaction(const Connection& connection) : m_connection(connection)
{
    m_connection.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (m_bOpen)
    {
        // After some failures the library has undone it already; then there is nothing to undo, which is no failure.
        sqlite3_exec(m_connection.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::Commit()
{
    m_connection.Execute("COMMIT");
    m_bOpen = false;
}

} // namespace EventLog
