#include "suite/OrlDbMg/Status.h"

#include "suite/database/Sqlite.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>
#include <new>

namespace OrlDbMg
{

namespace
{

struct Row
{
    int code; // the primary one
    DWORD error;
};

constexpr Row Errors[] = {
    {SQLITE_CANTOPEN, ERROR_FILE_NOT_FOUND}, {SQLITE_BUSY, ERROR_LOCK_VIOLATION},
    {SQLITE_LOCKED, ERROR_LOCK_VIOLATION},   {SQLITE_CORRUPT, ERROR_FILE_CORRUPT},
    {SQLITE_NOTADB, ERROR_FILE_CORRUPT},     {SQLITE_SCHEMA, ERROR_REVISION_MISMATCH},
    {SQLITE_READONLY, ERROR_WRITE_PROTECT},  {SQLITE_PERM, ERROR_ACCESS_DENIED},
    {SQLITE_AUTH, ERROR_ACCESS_DENIED},      {SQLITE_FULL, ERROR_DISK_FULL},
    {SQLITE_IOERR, ERROR_IO_DEVICE},         {SQLITE_NOMEM, ERROR_NOT_ENOUGH_MEMORY},
};

HRESULT StatusOf(const EventLog::DatabaseError& error)
{
    const Row* const found = std::ranges::find(Errors, error.Code() & 0xFF, &Row::code);
    return found == std::end(Errors) ? E_FAIL : HRESULT_FROM_WIN32(found->error);
}

} // namespace

HRESULT StatusOfException() noexcept
{
    try
    {
        throw;
    }
    catch (const EventLog::DatabaseError& error)
    {
        return StatusOf(error);
    }
    catch (const std::bad_alloc&)
    {
        return E_OUTOFMEMORY;
    }
    catch (...)
    {
        return E_FAIL;
    }
}

} // namespace OrlDbMg
