#include "suite/framework/EventQueue.h"

#include "suite/database/LogKinds.h"
#include "tests/support/AllocationWatch.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Framework;

namespace
{

constexpr CommandEvent Exit{1, 0xFFFFFFFF, 0};

constexpr CommandEvent Purged(std::uint32_t kind, std::uint32_t result = 0)
{
    return {4, 22, 1, result, kind};
}

std::vector<CommandEvent> TakeAll(EventQueue& queue)
{
    std::vector<CommandEvent> events;
    while (!queue.IsEmpty())
    {
        events.push_back(queue.Pop());
    }
    return events;
}

} // namespace

TEST(EventQueueTest, EventsComeOutAsTheyWentIn)
{
    EventQueue queue;
    EXPECT_TRUE(queue.IsEmpty());
    for (const CommandEvent& event : {Purged(2), Exit, Purged(3)})
    {
        EXPECT_TRUE(queue.Push(event));
    }
    EXPECT_EQ(TakeAll(queue), (std::vector{Purged(2), Exit, Purged(3)}));
}

TEST(EventQueueTest, APurgeReplacesTheOlderOneOfItsKindAndTellsHowItWent)
{
    EventQueue queue;
    EXPECT_TRUE(queue.Push(Purged(2, 5)));
    EXPECT_TRUE(queue.Push(Purged(3)));
    EXPECT_TRUE(queue.Push(Purged(2, 6)));
    EXPECT_EQ(TakeAll(queue), (std::vector{Purged(3), Purged(2, 6)}));
}

TEST(EventQueueTest, TheExitCommandWaitsOnce)
{
    EventQueue queue;
    EXPECT_TRUE(queue.Push(Exit));
    EXPECT_TRUE(queue.Push(Exit));
    EXPECT_EQ(TakeAll(queue), std::vector{Exit});
}

TEST(EventQueueTest, AnEventThatWasTakenOutIsNoOlderOne)
{
    EventQueue queue;
    EXPECT_TRUE(queue.Push(Purged(2)));
    EXPECT_EQ(queue.Pop(), Purged(2));
    EXPECT_TRUE(queue.Push(Purged(2)));
    EXPECT_EQ(TakeAll(queue), std::vector{Purged(2)});
}

TEST(EventQueueTest, ThereIsRoomForAPurgeOfEachKindAndTheExitCommand)
{
    EXPECT_LT(EventLog::AllLogKinds().size(), EventQueue::MostWaiting);
}

TEST(EventQueueTest, BeyondTheBoundTheOldestIsLost)
{
    EventQueue queue;
    for (std::uint32_t kind = 0; kind < EventQueue::MostWaiting; ++kind)
    {
        EXPECT_TRUE(queue.Push(Purged(kind)));
    }
    EXPECT_TRUE(queue.Push(Purged(1))); // takes the place of one that waits
    EXPECT_FALSE(queue.Push(Exit));
    const std::vector<CommandEvent> left = TakeAll(queue);
    ASSERT_EQ(left.size(), EventQueue::MostWaiting);
    EXPECT_EQ(left.front(), Purged(2));
    EXPECT_EQ(left.back(), Exit);
}

// The event of a purge got lost, and its client waited for it.
TEST(EventQueueTest, TakesEventsWhenMemoryHasRunOut)
{
    EventQueue queue;
    {
        AllocationWatch memory;
        memory.FailAbove(0);
        for (std::uint32_t kind = 1; kind <= EventQueue::MostWaiting; ++kind)
        {
            queue.Push(Purged(kind));
        }
    }
    EXPECT_EQ(TakeAll(queue).size(), EventQueue::MostWaiting);
}
