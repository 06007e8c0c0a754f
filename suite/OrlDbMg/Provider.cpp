#include "suite/OrlDbMg/Provider.h"

#include "suite/OrlDbMg/Status.h"
#include "suite/common/Folders.h"

#include <sqlite3.h>

namespace OrlDbMg
{

namespace
{

EventLog::Moment MomentOf(const SYSTEMTIME& time)
{
    return {time.wYear * 10000u + time.wMonth * 100u + time.wDay,
            time.wHour * 10000u + time.wMinute * 100u + time.wSecond};
}

} // namespace

Provider::Provider(std::chrono::milliseconds busyTimeout) : m_busyTimeout(busyTimeout) {}

HRESULT Provider::Reserved()
{
    return E_NOTIMPL;
}

HRESULT Provider::Initialize(ULONG_PTR, ULONG_PTR)
{
    return OrlSuccess;
}

HRESULT Provider::Uninitialize(ULONG_PTR, ULONG_PTR)
{
    m_answer.Clear();
    m_database.reset();
    return OrlSuccess;
}

HRESULT Provider::QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                             std::uint32_t flags, const void* request)
{
    if (result == nullptr || request == nullptr || kind != OrlKindEventLog || flags != 0 ||
        (query != OrlQueryRecords && query != OrlQueryDays))
    {
        return E_INVALIDARG;
    }
    *result = nullptr;
    const HRESULT status = WithoutExceptions(
        [&]
        {
            m_answer.Clear();
            *result = query == OrlQueryRecords ? ReadRecords(logSubType, *static_cast<const OrlPeriod*>(request))
                                               : ReadDays(logSubType);
            return OrlSuccess;
        });
    if (FAILED(status))
    {
        // Whoever mends or replaces the file finds it free, and the next query finds what they made.
        m_answer.Clear();
        m_database.reset();
    }
    return status;
}

EventLog::EventDatabase& Provider::Database()
{
    if (!m_database)
    {
        const std::optional<std::filesystem::path> folder = Suite::DataFolder();
        if (!folder)
        {
            throw EventLog::DatabaseError(SQLITE_CANTOPEN, "the registry names no folder of the suite");
        }
        m_database.emplace(EventLog::EventDatabase::Open(*folder / EventLog::DatabaseFileName, m_busyTimeout));
    }
    return *m_database;
}

void* Provider::ReadRecords(std::uint32_t logSubType, const OrlPeriod& period)
{
    Database().ReadPeriod(logSubType, {MomentOf(period.from), MomentOf(period.to)},
                          [this](std::wstring_view line) { m_answer.AddLine(line); });
    return m_answer.Lines();
}

void* Provider::ReadDays(std::uint32_t logSubType)
{
    for (const EventLog::Day day : Database().Days(logSubType))
    {
        m_answer.AddDay(day);
    }
    return m_answer.Days();
}

} // namespace OrlDbMg
