#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

// The owners of what the SQLite library hands out.
namespace EventLog
{

// Any failure of a database: the extended result code of the SQLite library and a text for the trace or the console.
class DatabaseError : public std::runtime_error
{
public:
    DatabaseError(int code, const std::string& text) : std::runtime_error(text), m_nCode(code) {}

    // The extended code; its lowest byte is the primary code.
    int Code() const { return m_nCode; }

private:
    int m_nCode;
};

// From now on closing the connection does not move what other connections left in the write-ahead log into the file:
// a damaged file, or one that is not understood, stays byte for byte what it is.
void KeepFileAsItIs(sqlite3* database) noexcept;

enum class OpenMode
{
    Existing,
    CreateIfMissing,
};

// An open database file, without any demand on what is in it. Every operation throws DatabaseError.
class Connection
{
public:
    // A file that may not be written can be read. One that somebody else keeps from being written is waited for, and
    // can only be read when the time is out.
    Connection(const std::filesystem::path& path, OpenMode mode, std::chrono::milliseconds busyTimeout);

    sqlite3* Handle() const { return m_database.get(); }

    // Runs statements that return no rows.
    void Execute(const char* statements) const;

    // The number in the first column of the first row.
    std::int64_t Number(const char* query) const;

    // How many rows the last statement inserted, changed or deleted.
    std::int64_t Changes() const;

private:
    void Open(const std::filesystem::path& path, OpenMode mode);

    struct Closer
    {
        void operator()(sqlite3* database) const noexcept;
    };

    std::unique_ptr<sqlite3, Closer> m_database;
};

// A prepared statement with its parameters, numbered from 1, and its current row, whose columns count from 0.
// The connection must outlive it. Every operation throws DatabaseError.
class Statement
{
public:
    Statement(const Connection& connection, std::string_view text);

    void Bind(int parameter, std::int64_t number);
    // The characters as they lie in memory; they must stay until the next Step has returned.
    void Bind(int parameter, std::wstring_view text);

    // Goes to the next row; false after the last one, ready to be run again.
    bool Step();

    // Leaves the current row: parameters can be bound again, and the next Step begins at the first row.
    void Restart();

    std::int64_t Number(int column) const;
    // Characters as they were bound. They are copied, since in the library they may lie at an odd address.
    void Text(int column, std::wstring& text) const;

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };

    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

// A transaction that may write, taken at once so that it cannot fail half way for want of the lock. Undone by the
// destructor unless it was committed.
class Transaction
{
public:
    explicit Transaction(const Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    const Connection& m_connection;
    bool m_bOpen = true;
};

} // namespace EventLog
