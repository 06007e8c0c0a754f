#include "suite/framework/Service.h"

#include "suite/database/LogKinds.h"
#include "suite/framework/Caller.h"
#include "suite/framework/ComObject.h"
#include "suite/framework/Day.h"
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

// As in "Virus log through 2026-11-14".
std::string NameOf(const PurgeCommand& purge)
{
    const EventLog::LogKind* const kind = EventLog::FindKindOfSubType(purge.kind);
    return std::string(kind->title) + " through " + TextOf(purge.day);
}

} // namespace

Service::Service(ObjectTable& objects, ValueStore& store, EventLogs& logs, const Calendar& calendar,
                 const Journal& journal)
    : m_objects(objects),
      m_store(store),
      m_logs(logs),
      m_calendar(calendar),
      m_journal(journal),
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
        [this, purge = *purge, caller = Caller(), lock = ServiceLock(m_objects)]
        {
            const HRESULT done = WithoutExceptions([&] { return PurgeByOrder(purge, caller.Name()); });
            const HRESULT result = SUCCEEDED(done) ? Success : E_FAIL;
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
    WithoutExceptions(
        [this]
        {
            const PurgeSettings settings = m_profile.Purging();
            if (const auto due = DuePurge(settings, m_lastTry, m_calendar.Today()))
            {
                Post({*due, settings.days});
                m_lastTry = due;
            }
            return Success;
        });
}

HRESULT Service::PurgeByOrder(const PurgeCommand& purge, const std::string& caller)
{
    // The order stands there first, so that it is found also when the process ends in the middle.
    m_journal.Write(NameOf(purge) + ": deletion ordered by " + caller);
    const std::optional<std::uint64_t> deleted = Delete(purge);
    if (!deleted)
    {
        return E_FAIL;
    }
    WithoutExceptions(
        [&]
        {
            m_journal.Write(NameOf(purge) + ": " + std::to_string(*deleted) + " entries deleted, by order of " +
                            caller);
            return Success;
        });
    return Success; // they are gone, whether the journal has it or not
}

// Each kind is work of its own, so that an order that comes meanwhile waits for one of them at most.
void Service::Post(const Pass& pass)
{
    m_worker.Post([this, pass, lock = ServiceLock(m_objects)] { PurgeBySchedule(pass); });
}

void Service::PurgeBySchedule(Pass pass)
{
    const std::string word = " by the schedule, which keeps " + std::to_string(pass.days) + " days";
    if (pass.kind == 0)
    {
        m_journal.Write("All logs through " + TextOf(pass.purge.through) + ": deletion begun" + word);
    }
    const PurgeCommand purge{EventLog::AllLogKinds()[pass.kind].subType, pass.purge.through};
    const std::optional<std::uint64_t> deleted = Delete(purge);
    if (deleted.value_or(0) > 0)
    {
        m_journal.Write(NameOf(purge) + ": " + std::to_string(*deleted) + " entries deleted" + word);
    }
    pass.isDone = pass.isDone && deleted;
    if (++pass.kind < EventLog::AllLogKinds().size())
    {
        Post(pass);
    }
    else if (pass.isDone)
    {
        Note(pass.purge);
    }
}

// For the next process.
void Service::Note(const ScheduledPurge& purge)
{
    try
    {
        m_store.Set(LastPurge, {purge.day, purge.through});
    }
    catch (const std::exception& error)
    {
        Trace(error.what());
    }
}

// The number of events; nothing when they cannot be deleted, and then all are there.
std::optional<std::uint64_t> Service::Delete(const PurgeCommand& purge)
{
    try
    {
        return m_logs.DeleteThrough(purge.kind, purge.day);
    }
    catch (const std::exception& error)
    {
        m_journal.Write(NameOf(purge) + ": no entry deleted: " + error.what());
        return std::nullopt;
    }
}

} // namespace Framework
