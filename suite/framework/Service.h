#pragma once

#include "suite/framework/EventHub.h"
#include "suite/framework/Journal.h"
#include "suite/framework/ObjectTable.h"
#include "suite/framework/ProfileValues.h"
#include "suite/framework/PropertyValues.h"
#include "suite/framework/PurgeCommand.h"
#include "suite/framework/PurgeSchedule.h"
#include "suite/framework/Worker.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace Framework
{

// Where the events are that a purge deletes.
class EventLogs
{
public:
    virtual ~EventLogs() = default;

    // Deletes the events of a kind, as queries name it, up to and including the day, YYYYMMDD, and returns their
    // number. Throws an exception of std when that fails; then all are there. Called by one thread.
    virtual std::uint64_t DeleteThrough(std::uint32_t kind, std::uint32_t day) = 0;
};

// What tells the date.
class Calendar
{
public:
    virtual ~Calendar() = default;

    virtual std::chrono::year_month_day Today() const = 0; // local
};

// What is one for all clients: the values, the sinks, the purges.
class Service
{
public:
    // All that it is given must outlive it.
    Service(ObjectTable& objects, ValueStore& store, EventLogs& logs, const Calendar& calendar, const Journal& journal);

    ObjectTable& Objects() { return m_objects; }

    ValueSource& Profile() { return m_profile; }

    ValueSource& Property() { return m_property; }

    EventHub& Events() { return m_events; }

    // Takes the purge command 22, 1. The deletion follows on a thread of its own, and then the event 4, 22, 1: also
    // when the deletion failed, since the client waits for it to show what is there. Its first word is the result,
    // Success or E_FAIL. The journal has the order, with the caller, and what came of it. Returns Success, Unknown for
    // another command, or E_INVALIDARG for another list, see PurgeCommand.h.
    HRESULT DoCommand(const ValueKey& command, const List& list);

    // Tells all clients to exit, by the event 1 of type -1.
    void RaiseExit();

    // Starts the scheduled purge of all kinds when it is due (PurgeSchedule.h) by the settings of the moment. A failed
    // one is tried again by the next process or on the next day, one that cannot be begun by the next call. Raises no
    // event: no client asked. To be called at start and once a minute, by one thread.
    void PurgeIfDue();

private:
    // A scheduled purge on its way through the kinds.
    struct Pass
    {
        ScheduledPurge purge;
        std::uint32_t days; // that are kept
        std::size_t kind = 0;
        bool isDone = true; // so far
    };

    HRESULT PurgeByOrder(const PurgeCommand& purge, const std::string& caller);
    void Post(const Pass& pass);
    void PurgeBySchedule(Pass pass);
    void Note(const ScheduledPurge& purge);
    std::optional<std::uint64_t> Delete(const PurgeCommand& purge);

    ObjectTable& m_objects;
    ValueStore& m_store;
    EventLogs& m_logs;
    const Calendar& m_calendar;
    const Journal& m_journal;
    ProfileValues m_profile;
    PropertyValues m_property;
    EventHub m_events;
    std::optional<ScheduledPurge> m_lastTry; // of this process, or else the last one that was done
    Worker m_worker;                         // first to go, since its work uses the others
};

} // namespace Framework
