#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Framework
{

// What OnCommandEvent tells; the other words and blocks are 0, and there are no data.
struct CommandEvent
{
    std::uint32_t event;
    std::uint32_t messageType;
    std::uint32_t messageSubType;
    std::uint32_t word1 = 0;
    std::uint32_t subject = 0; // the kind of log that was purged; no client is told

    bool operator==(const CommandEvent&) const = default;
};

// The events that wait for one client, the oldest first. Their number is bounded, so that a client that does not answer
// for days costs no more than one that is slow.
class EventQueue
{
public:
    static constexpr std::size_t MostWaiting = 32;

    EventQueue() { m_events.reserve(MostWaiting); } // so that no event is lost for want of memory

    // Puts the event at the end, in place of one that waits and tells of the same: all but the first word is the same,
    // which says how it went this time. When MostWaiting others wait the oldest of them is lost; false then.
    bool Push(const CommandEvent& event);

    bool IsEmpty() const { return m_events.empty(); }

    // Takes the oldest out; there must be one.
    CommandEvent Pop();

private:
    std::vector<CommandEvent> m_events;
};

} // namespace Framework
