#include "framework/ui/kestrix/app/EventConnection.h"

#include "tests/ui/framework/ui/kestrix/app/ControllerTest.h"

namespace
{

// Counts what the events ask for.
class CountingHost : public CEventHost
{
public:
    void Exit() override { ++m_nExits; }

    void RefreshPage() override { ++m_nRefreshes; }

    int m_nExits = 0;
    int m_nRefreshes = 0;
};

class EventConnectionTest : public ControllerTest
{
protected:
    CountingHost m_host;
    CEventConnection m_events{m_host};
};

constexpr wchar_t Enter[] = L"[Enter] CKestrixApp::InitializeEventObject()...";
constexpr wchar_t EnterEnd[] = L"[Enter] CKestrixApp::UninitializeEventObject()...";

} // namespace

TEST_F(EventConnectionTest, TheSinkSubscribesToTheLocalEventsAlone)
{
    EXPECT_TRUE(m_events.Connect());
    EXPECT_EQ(m_controller.m_calls.back(), L"Advise local");
    EXPECT_NE(m_controller.Sink<IVdFrwkLocalEvents>(), nullptr);
    EXPECT_TRUE(m_events.Disconnect());
    EXPECT_EQ(m_controller.m_calls.back(), L"Unadvise local 17");
    EXPECT_EQ(m_trace.Texts(), (Texts{Enter, L"[Enter] EventSinkHandler::Initialize()...",
                                      L"[Leave] EventSinkHandler::Initialize()...[0x00000000]",
                                      L"[Leave] CKestrixApp::InitializeEventObject()...", EnterEnd,
                                      L"[Enter] EventSinkHandler::Uninitialize()...",
                                      L"[Leave] EventSinkHandler::Uninitialize()...[0x00000000]",
                                      L"[Leave] CKestrixApp::UninitializeEventObject()..."}));
}

TEST_F(EventConnectionTest, OnlyCommandEventsReachTheViewer)
{
    ASSERT_TRUE(m_events.Connect());
    auto* const sink = m_controller.Sink<IVdFrwkLocalEvents>();
    ASSERT_NE(sink, nullptr);
    EXPECT_EQ(sink->OnCommandEvent(7, 8, 9, 0, 0, 0, 0, {}, {}, nullptr), 262656);
    EXPECT_EQ(sink->OnProfileEvent(7, {}, 8, 9, 0, 0, 0, 0, {}, {}, nullptr), 262659);
    EXPECT_EQ(sink->OnStatusEvent(7, {}, 8, 9, 0, 0, 0, 0, {}, {}, nullptr), 262659);
    EXPECT_EQ(sink->OnPropertyEvent(7, {}, 8, 9, 0, 0, 0, 0, {}, {}, nullptr), 262659);
    EXPECT_EQ(m_host.m_nRefreshes, 0);
    EXPECT_EQ(sink->OnCommandEvent(4, 22, 1, 0, 0, 0, 0, {}, {}, nullptr), 262656);
    EXPECT_EQ(m_host.m_nRefreshes, 1);
    EXPECT_EQ(m_host.m_nExits, 0);
    EXPECT_TRUE(m_events.Disconnect());
}

TEST_F(EventConnectionTest, ASinkThatCannotConnectIsTraced)
{
    m_controller.Fail(Step::Create, Refused);
    EXPECT_FALSE(m_events.Connect());
    EXPECT_EQ(m_trace.Errors().back(), L"*** CKestrixApp::InitializeEventObject() - "
                                       L"this->m_pEventSinkObject->Initialize() failed. [0x80040201]");
    EXPECT_EQ(m_trace.Texts().back(), m_trace.Errors().back());

    EXPECT_FALSE(m_events.Disconnect());
    EXPECT_EQ(m_trace.Errors().back(), L"*** CKestrixApp::UninitializeEventObject() - "
                                       L"this->m_pEventSinkObject->Uninitialize() failed. [0x80070057]");
}

TEST_F(EventConnectionTest, AServiceThatDiedBeforeTheEndIsTracedAndTheControllerReleased)
{
    ASSERT_TRUE(m_events.Connect());
    m_controller.Fail(Step::Container, HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    EXPECT_FALSE(m_events.Disconnect());
    EXPECT_EQ(m_controller.References(), 0);
    EXPECT_EQ(m_trace.Errors().back(), L"*** CKestrixApp::UninitializeEventObject() - "
                                       L"this->m_pEventSinkObject->Uninitialize() failed. [0x800706ba]");
    m_controller.DropSinks();
}

TEST_F(EventConnectionTest, AConnectionThatWasEndedIsNotEndedAgainByItsObject)
{
    Texts ended;
    {
        CEventConnection events{m_host};
        ASSERT_TRUE(events.Connect());
        ASSERT_TRUE(events.Disconnect());
        ended = m_trace.Texts();
    }
    EXPECT_EQ(m_trace.Texts(), ended);
}

TEST_F(EventConnectionTest, WithoutASinkThereIsNothingToEnd)
{
    EXPECT_FALSE(m_events.Disconnect());
    EXPECT_EQ(m_trace.Texts(),
              (Texts{EnterEnd, L"*** CKestrixApp::UninitializeEventObject() - this->m_pEventSinkObject was invalid."}));
}

TEST_F(EventConnectionTest, AConnectionThatStillStandsEndsWithItsObject)
{
    {
        CEventConnection events(m_host);
        ASSERT_TRUE(events.Connect());
    }
    EXPECT_EQ(m_controller.m_calls.back(), L"Unadvise local 17");
    EXPECT_EQ(m_controller.Sink<IVdFrwkLocalEvents>(), nullptr);
}

TEST_F(EventConnectionTest, AConnectionThatWasEndedIsNotEndedAgainWithItsObject)
{
    {
        CEventConnection events(m_host);
        ASSERT_TRUE(events.Connect());
        ASSERT_TRUE(events.Disconnect());
        m_controller.m_calls.clear();
    }
    EXPECT_EQ(m_controller.m_calls, Texts{});
}
