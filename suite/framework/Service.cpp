#include "suite/framework/Service.h"

#include "suite/database/LogKinds.h"
#include "suite/framework/Day.h"
#include "suite/framework/PurgeCommand.h"
#include "suite/framework/Shape.h"
#include "suite/framework/Trace.h"

#include <exception>
#include <string>

namespace Framework
{

namespace
{

constexpr ValueKey Purge{22, 1};
constexpr std::uint32_t ExitEvent = 1;
constexpr std::uint32_t CompletionEvent = 4;

// Where the store keeps the last scheduled purge that was done, its two days. No client reaches it.
constexpr ValueKey LastPurge{0, 1};
constexpr Element LastPurgeElements[] = {Element::Number, Element::Number};

std::optional<ScheduledPurge> StoredPurge(const ValueStore& store)
{
    const std::optional<List> list = store.Get(LastPurge);
    if (!list || !HasShape(*list, LastPurgeElements))
    {
        return std::nullopt;
    }
    return ScheduledPurge{std::get<std::uint32_t>((*list)[0]), std::get<std::uint32_t>((*list)[1])};
}

} // namespace

Service::Service(ObjectTable& objects, ValueStore& store, EventLogs& logs, const Calendar& calendar)
    : m_objects(objects),
      m_store(store),
      m_logs(logs),
      m_calendar(calendar),
      m_profile(store),
      m_property(store.Folder()),
      m_lastTry(StoredPurge(store))
{
}

HRESULT Service::DoCommand(const ValueKey& command, const List& list)
{
    if (command != Purge)
    {
        return Unknown;
    }
    const std::optional<PurgeCommand> purge = ReadPurgeCommand(list);
    if (!purge)
    {
        return E_INVALIDARG;
    }
    m_worker.Post(
        [this, purge = *purge, lock = ServiceLock(m_objects)]
        {
            const HRESULT result = Delete(purge.kind, purge.day) ? Success : E_FAIL;
            m_events.Raise(
                {CompletionEvent, Purge.type, Purge.subType, static_cast<std::uint32_t>(result), purge.kind});
        });
    return Success;
}

void Service::RaiseExit()
{
    m_events.Raise({ExitEvent, static_cast<std::uint32_t>(-1), 0});
}

void Service::PurgeIfDue()
{
    if (const auto due = DuePurge(m_profile.Purging(), m_lastTry, m_calendar.Today()))
    {
        m_lastTry = due;
        m_worker.Post([this, due = *due, lock = ServiceLock(m_objects)] { PurgeAll(due); });
    }
}

bool Service::Delete(std::uint32_t kind, std::uint32_t day)
{
    try
    {
        m_logs.DeleteThrough(kind, day);
        return true;
    }
    catch (const std::exception& error)
    {
        Trace(std::string("The events up to ") + std::to_string(day) + " cannot be deleted: " + error.what());
        return false;
    }
}

void Service::PurgeAll(const ScheduledPurge& purge)
{
    bool isDone = true;
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        isDone = Delete(kind.subType, purge.through) && isDone;
    }
    if (!isDone)
    {
        return;
    }
    try
    {
        m_store.Set(LastPurge, {purge.day, purge.through});
    }
    catch (const std::exception& error)
    {
        Trace(error.what());
    }
}

} // namespace Framework
