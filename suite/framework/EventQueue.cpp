#include "suite/framework/EventQueue.h"

namespace Framework
{

namespace
{

bool TellOfTheSame(CommandEvent one, const CommandEvent& other)
{
    one.word1 = other.word1;
    return one == other;
}

} // namespace

bool EventQueue::Push(const CommandEvent& event)
{
    std::erase_if(m_events, [&](const CommandEvent& waiting) { return TellOfTheSame(waiting, event); });
    const bool isFull = m_events.size() == MostWaiting;
    if (isFull)
    {
        m_events.erase(m_events.begin());
    }
    m_events.push_back(event);
    return !isFull;
}

CommandEvent EventQueue::Pop()
{
    const CommandEvent oldest = m_events.front();
    m_events.erase(m_events.begin());
    return oldest;
}

} // namespace Framework
