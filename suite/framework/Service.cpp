#include "suite/framework/Service.h"

#include "suite/database/LogKinds.h"
#include "suite/framework/Day.h"
#include "suite/framework/PurgeCommand.h"
#include "suite/framework/PurgeSchedule.h"
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

// Where the store keeps the day of the last scheduled purge, one number. No client reaches it.
constexpr ValueKey LastPurge{0, 1};

std::optional<std::uint32_t> FirstNumber(const std::optional<List>& list)
{
    const bool isNumber = list && !list->empty() && std::holds_alternative<std::uint32_t>(list->front());
    return isNumber ? std::optional(std::get<std::uint32_t>(list->front())) : std::nullopt;
}

} // namespace

Service::Service(ObjectTable& objects, ValueStore& store, EventLogs& logs, const Calendar& calendar)
    : m_objects(objects),
      m_store(store),
      m_logs(logs),
      m_calendar(calendar),
      m_profile(store),
      m_property(store.Folder())
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
    const std::chrono::year_month_day date = m_calendar.Today();
    const std::uint32_t today = DayOf(date);
    if (m_lastTry == today)
    {
        return;
    }
    if (const auto through = DuePurge(ReadPurgeSettings(), FirstNumber(m_store.Get(LastPurge)), date))
    {
        m_lastTry = today;
        m_worker.Post([this, through = *through, today, lock = ServiceLock(m_objects)] { PurgeAll(through, today); });
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

void Service::PurgeAll(std::uint32_t through, std::uint32_t today)
{
    bool isDone = true;
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        isDone = Delete(kind.subType, through) && isDone;
    }
    if (!isDone)
    {
        return;
    }
    try
    {
        m_store.Set(LastPurge, {today});
    }
    catch (const std::exception& error)
    {
        Trace(error.what());
    }
}

} // namespace Framework
