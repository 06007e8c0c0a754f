#include "suite/framework/EventHub.h"

#include "suite/framework/Apartment.h"
#include "tests/support/DebuggerOutput.h"
#include "tests/unit/suite/framework/Inbox.h"

#include <gtest/gtest.h>

#include <optional>

using namespace Framework;
using namespace std::chrono_literals;

namespace
{

using Events = std::vector<std::string>;

class EventHubTest : public ::testing::Test
{
protected:
    DWORD Advise(EventHub& hub, Inbox& inbox, const void* owner = nullptr)
    {
        return hub.Advise(owner, __uuidof(IVdFrwkLocalEvents), Suite::ComPtr<IUnknown>(inbox.Sink()));
    }

    // Whether the hub lets the sink go within 30 s, by events without which it would not notice.
    static bool WaitUntilDropped(EventHub& hub)
    {
        const auto end = std::chrono::steady_clock::now() + 30s;
        while (!hub.Sinks(nullptr, __uuidof(IVdFrwkLocalEvents)).empty())
        {
            if (std::chrono::steady_clock::now() > end)
            {
                return false;
            }
            std::this_thread::yield();
        }
        return true;
    }

    const Apartment m_apartment;
};

} // namespace

TEST_F(EventHubTest, EverySinkGetsEveryEventInItsOrder)
{
    Inbox one;
    Inbox two;
    EventHub hub;
    Advise(hub, one);
    Advise(hub, two);
    hub.Raise({4, 22, 1});
    hub.Raise({1, 0xFFFFFFFF, 0});
    ASSERT_TRUE(one.WaitFor(2) && two.WaitFor(2));
    EXPECT_EQ(one.Events(), (Events{"4 22 1", "1 -1 0"}));
    EXPECT_EQ(two.Events(), one.Events());
}

TEST_F(EventHubTest, AnUnadvisedSinkGetsNothingAndIsLetGo)
{
    Inbox one;
    Inbox two;
    EventHub hub;
    const DWORD cookie = Advise(hub, one);
    Advise(hub, two);
    EXPECT_TRUE(hub.Unadvise(nullptr, __uuidof(IVdFrwkLocalEvents), cookie));
    EXPECT_FALSE(hub.Unadvise(nullptr, __uuidof(IVdFrwkLocalEvents), cookie));
    hub.Raise({4, 22, 1});
    EXPECT_TRUE(two.WaitFor(1));
    EXPECT_TRUE(one.WaitUntilReleased());
    EXPECT_EQ(one.Events(), Events());
}

TEST_F(EventHubTest, ACookieBelongsToItsOwnerAndInterface)
{
    Inbox inbox;
    const int owner = 0;
    EventHub hub;
    const DWORD cookie = Advise(hub, inbox, &owner);
    EXPECT_NE(cookie, 0u);
    EXPECT_FALSE(hub.Unadvise(nullptr, __uuidof(IVdFrwkLocalEvents), cookie));
    EXPECT_FALSE(hub.Unadvise(&owner, __uuidof(IVdFrwkSessionEvents), cookie));
    ASSERT_EQ(hub.Sinks(&owner, __uuidof(IVdFrwkLocalEvents)).size(), 1u);
    EXPECT_EQ(hub.Sinks(&owner, __uuidof(IVdFrwkLocalEvents))[0].cookie, cookie);
    hub.UnadviseAll(&owner);
    EXPECT_TRUE(hub.Sinks(&owner, __uuidof(IVdFrwkLocalEvents)).empty());
    EXPECT_TRUE(inbox.WaitUntilReleased());
}

TEST_F(EventHubTest, ASinkWhoseClientIsGoneIsDroppedAndTheOthersGoOn)
{
    for (const HRESULT gone : {RPC_E_DISCONNECTED, HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE)})
    {
        Inbox dead(gone);
        Inbox alive;
        const int owner = 0;
        EventHub hub;
        Advise(hub, dead);
        Advise(hub, alive, &owner);
        hub.Raise({4, 22, 1});
        EXPECT_TRUE(WaitUntilDropped(hub));
        hub.Raise({1, 0xFFFFFFFF, 0});
        EXPECT_TRUE(alive.WaitFor(2));
        EXPECT_EQ(dead.Events().size(), 1u);
        EXPECT_TRUE(dead.WaitUntilReleased());
    }
}

TEST_F(EventHubTest, AFailureOfTheClientsOwnIsNoReasonToDropIt)
{
    Inbox inbox(E_FAIL);
    EventHub hub;
    Advise(hub, inbox);
    hub.Raise({4, 22, 1});
    hub.Raise({1, 0xFFFFFFFF, 0});
    EXPECT_TRUE(inbox.WaitFor(2));
}

// A viewer that loaded a large day for longer than the limit of the time got no event any more.
TEST_F(EventHubTest, EventsWaitForASinkThatHangsAndComeWhenItAnswersWhileTheOthersGetTheirs)
{
    Inbox hanging(S_OK, true);
    Inbox alive;
    EventHub hub;
    Advise(hub, hanging);
    Advise(hub, alive);
    hub.Raise({4, 22, 1});
    ASSERT_TRUE(hanging.WaitFor(1));
    hub.Raise({1, 0xFFFFFFFF, 0});
    EXPECT_TRUE(alive.WaitFor(2));
    EXPECT_EQ(hanging.Events(), Events{"4 22 1"});
    hanging.LetGo();
    EXPECT_TRUE(hanging.WaitFor(2));
    EXPECT_EQ(hanging.Events(), (Events{"4 22 1", "1 -1 0"}));
}

TEST_F(EventHubTest, OfAKindThatIsPurgedAgainMeanwhileASinkThatHangsIsToldOnce)
{
    constexpr std::uint32_t virus = 2;
    constexpr std::uint32_t update = 11;
    Inbox hanging(S_OK, true);
    EventHub hub;
    Advise(hub, hanging);
    hub.Raise({4, 22, 1, 0, virus}); // is on its way, and so waits no more
    ASSERT_TRUE(hanging.WaitFor(1));
    for (int i = 0; i < 5; ++i)
    {
        hub.Raise({4, 22, 1, 0, virus});
        hub.Raise({4, 22, 1, 0, update});
    }
    hub.Raise({1, 0xFFFFFFFF, 0});
    hanging.LetGo();
    ASSERT_TRUE(hanging.WaitFor(4));
    EXPECT_EQ(hanging.Events(), (Events{"4 22 1", "4 22 1", "4 22 1", "1 -1 0"}));
}

TEST_F(EventHubTest, ASinkThatLosesItsOldestEventIsToldOfInTheTraceThoughAnotherGotAll)
{
    const DebuggerOutput output;
    Inbox hanging(S_OK, true);
    Inbox alive;
    EventHub hub;
    Advise(hub, hanging);
    Advise(hub, alive); // comes after the one that loses
    std::uint32_t sent = 0;
    const auto raise = [&]
    {
        hub.Raise({4, 22, ++sent});
        return alive.WaitFor(sent);
    };
    ASSERT_TRUE(raise() && hanging.WaitFor(1)); // is on its way, and so waits no more
    while (sent <= EventQueue::MostWaiting)
    {
        ASSERT_TRUE(raise());
    }
    EXPECT_EQ(output.Texts(), std::vector<std::string>());
    ASSERT_TRUE(raise());
    EXPECT_EQ(output.Texts(), std::vector<std::string>{"VdFrwkSvc: Too many events wait for a client that does not "
                                                       "answer; it does not get the oldest.\n"});
}

TEST_F(EventHubTest, TheEndWaitsForNoSinkThatHangs)
{
    Inbox hanging(S_OK, true);
    std::optional<EventHub> hub(std::in_place);
    Advise(*hub, hanging);
    hub->Raise({4, 22, 1});
    ASSERT_TRUE(hanging.WaitFor(1));
    hub->Raise({4, 22, 1});
    hub.reset(); // does not return if it waits
    EXPECT_EQ(hanging.Events().size(), 1u);
    hanging.LetGo();
    EXPECT_TRUE(hanging.WaitUntilReleased());
    EXPECT_EQ(hanging.Events().size(), 1u);
}

TEST_F(EventHubTest, ASinkThatHangsCanBeUnadvisedAndGetsNothingThatWaited)
{
    Inbox hanging(S_OK, true);
    EventHub hub;
    const DWORD cookie = Advise(hub, hanging);
    hub.Raise({4, 22, 1});
    ASSERT_TRUE(hanging.WaitFor(1));
    hub.Raise({1, 0xFFFFFFFF, 0});
    EXPECT_TRUE(hub.Unadvise(nullptr, __uuidof(IVdFrwkLocalEvents), cookie));
    hanging.LetGo();
    EXPECT_TRUE(hanging.WaitUntilReleased());
    EXPECT_EQ(hanging.Events(), Events{"4 22 1"});
}
