#include "common/Frwk_EventSinkControl.h"

#include "platform/dialog/DialogFramework.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/common/RawTable.h"
#include "tests/unit/common/RecordingSink.h"

#include <gtest/gtest.h>

#include <oleauto.h>

#include <stdexcept>

namespace
{

using Frwk::Interface::Event;
using Frwk::Interface::EventNotWanted;

constexpr std::uint32_t AllKinds = 63;

class EventSinkControlTest : public ::testing::Test
{
protected:
    EventSinkControlTest() { m_sink.connected = true; }

    void* Interface(REFIID id)
    {
        void* found = nullptr;
        EXPECT_EQ(m_sink.QueryInterface(id, &found), S_OK);
        m_sink.Release();
        return found;
    }

    void ExpectReceived(const wchar_t* kind, ULONG fourthWord, ULONG subject)
    {
        ASSERT_EQ(m_sink.m_received.size(), 1u);
        const auto& [name, event] = m_sink.m_received[0];
        EXPECT_EQ(name, kind);
        EXPECT_EQ(event.event, 1u);
        EXPECT_EQ(event.messageType, 2u);
        EXPECT_EQ(event.messageSubType, 3u);
        EXPECT_EQ(event.words[0], 4u);
        EXPECT_EQ(event.words[1], 5u);
        EXPECT_EQ(event.words[2], 6u);
        EXPECT_EQ(event.words[3], fourthWord);
        EXPECT_EQ(NumberOf(event.blocks[0]), 100u);
        EXPECT_EQ(NumberOf(event.blocks[1]), 200u);
        EXPECT_EQ(event.subject.words[0], subject);
        EXPECT_EQ(event.data, m_data);
    }

    // Slot 4, 5 and 6 of the local events have the same arguments.
    void ExpectAtLocalSlot(std::size_t slot, const wchar_t* kind)
    {
        EXPECT_EQ(CallSlot(Interface(__uuidof(IVdFrwkLocalEvents)), slot, 1UL, BlockOf(300), 2UL, 3UL, 4UL, 5UL, 6UL,
                           7UL, BlockOf(100), BlockOf(200), m_data),
                  RecordingSink::Answer);
        ExpectReceived(kind, 7, 300);
    }

    RecordingSink m_sink{AllKinds};
    SAFEARRAY m_array{};
    SAFEARRAY* const m_data = &m_array;
};

} // namespace

TEST_F(EventSinkControlTest, ACommandEventComesThroughTheFirstSlotBehindIUnknown)
{
    EXPECT_EQ(CallSlot(Interface(__uuidof(IVdFrwkLocalEvents)), 3, 1UL, 2UL, 3UL, 4UL, 5UL, 6UL, 7UL, BlockOf(100),
                       BlockOf(200), m_data),
              RecordingSink::Answer);
    ExpectReceived(L"command", 7, 0);
}

TEST_F(EventSinkControlTest, AProfileEventComesThroughTheSecondSlot)
{
    ExpectAtLocalSlot(4, L"profile");
}

TEST_F(EventSinkControlTest, AStatusEventComesThroughTheThirdSlot)
{
    ExpectAtLocalSlot(5, L"status");
}

TEST_F(EventSinkControlTest, APropertyEventComesThroughTheFourthSlot)
{
    ExpectAtLocalSlot(6, L"property");
}

TEST_F(EventSinkControlTest, ASessionEventComesThroughTheFirstSlotOfItsInterfaceWithThreeWords)
{
    EXPECT_EQ(CallSlot(Interface(__uuidof(IVdFrwkSessionEvents)), 3, 1UL, 2UL, 3UL, 4UL, 5UL, 6UL, BlockOf(100),
                       BlockOf(200), m_data),
              RecordingSink::Answer);
    ExpectReceived(L"session", 0, 0);
}

TEST_F(EventSinkControlTest, ADetectionEventComesThroughTheSecondSlotOfTheSessionEvents)
{
    EXPECT_EQ(CallSlot(Interface(__uuidof(IVdFrwkSessionEvents)), 4, 1UL, 2UL, 3UL, 4UL, 5UL, 6UL, 7UL, BlockOf(100),
                       BlockOf(200), m_data),
              RecordingSink::Answer);
    ExpectReceived(L"detection", 7, 0);
}

TEST_F(EventSinkControlTest, AnEventWithoutDataAndWithTheHighestNumbersIsDelivered)
{
    EXPECT_EQ(m_sink.OnCommandEvent(~0U, ~0U, ~0U, ~0U, ~0U, ~0U, ~0U, BlockOf(100), BlockOf(200), nullptr),
              RecordingSink::Answer);
    ASSERT_EQ(m_sink.m_received.size(), 1u);
    EXPECT_EQ(m_sink.m_received[0].event.messageType, ~0U);
    EXPECT_EQ(m_sink.m_received[0].event.data, nullptr);
}

TEST_F(EventSinkControlTest, WithoutAConnectionEveryKindIsRefusedWithATraceOfItsName)
{
    const TraceRecorder trace;
    m_sink.connected = false;
    const VdFrwkBlock block{};
    EXPECT_EQ(m_sink.OnCommandEvent(1, ~0U, 0, 0, 0, 0, 0, block, block, nullptr), EventNotWanted);
    EXPECT_EQ(m_sink.OnProfileEvent(1, block, 0, 0, 0, 0, 0, 0, block, block, nullptr), EventNotWanted);
    EXPECT_EQ(m_sink.OnStatusEvent(1, block, 0, 0, 0, 0, 0, 0, block, block, nullptr), EventNotWanted);
    EXPECT_EQ(m_sink.OnPropertyEvent(1, block, 0, 0, 0, 0, 0, 0, block, block, nullptr), EventNotWanted);
    EXPECT_EQ(m_sink.OnSessionEvent(1, 0, 0, 0, 0, 0, block, block, nullptr), EventNotWanted);
    EXPECT_EQ(m_sink.OnDetectionEvent(1, 0, 0, 0, 0, 0, 0, block, block, nullptr), EventNotWanted);
    EXPECT_TRUE(m_sink.m_received.empty());
    const std::wstring end = L"() - No connection to Service framework.";
    EXPECT_EQ(trace.Errors(),
              (std::vector<std::wstring>{
                  L"*** EventSinkControl::::OnCommandEvent" + end, L"*** EventSinkControl::::OnProfileEvent" + end,
                  L"*** EventSinkControl::::OnStatusEvent" + end, L"*** EventSinkControl::::OnPropertyEvent" + end,
                  L"*** EventSinkControl::::OnSessionEvent" + end, L"*** EventSinkControl::::OnDetectionEvent" + end}));
    EXPECT_EQ(EventNotWanted, 262659);
}

TEST_F(EventSinkControlTest, IUnknownIsTheInterfaceOfTheLocalEvents)
{
    EXPECT_EQ(Interface(__uuidof(IUnknown)), static_cast<IVdFrwkLocalEvents*>(&m_sink));
    EXPECT_EQ(Interface(__uuidof(IVdFrwkLocalEvents)), static_cast<IVdFrwkLocalEvents*>(&m_sink));
    EXPECT_EQ(Interface(__uuidof(IVdFrwkSessionEvents)), static_cast<IVdFrwkSessionEvents*>(&m_sink));
    EXPECT_EQ(Interface(__uuidof(IVdFrwkRemoteEvents)), static_cast<IVdFrwkRemoteEvents*>(&m_sink));
}

TEST_F(EventSinkControlTest, AnotherInterfaceIsRefusedWithNull)
{
    void* found = this;
    EXPECT_EQ(m_sink.QueryInterface(__uuidof(IVdFrwkLocalController), &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(m_sink.QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
    EXPECT_EQ(m_sink.References(), 0u);
}

TEST_F(EventSinkControlTest, ReferencesAreCountedAndTheLastReleaseDestroysNothing)
{
    void* found = nullptr;
    ASSERT_EQ(m_sink.QueryInterface(__uuidof(IVdFrwkSessionEvents), &found), S_OK);
    auto* const session = static_cast<IVdFrwkSessionEvents*>(found);
    EXPECT_EQ(session->AddRef(), 2u);
    EXPECT_EQ(session->Release(), 1u);
    EXPECT_EQ(session->Release(), 0u);
    EXPECT_EQ(session->AddRef(), 1u); // it is still there
    EXPECT_EQ(session->Release(), 0u);
}

namespace
{

class ThrowingSink : public RecordingSink
{
public:
    using RecordingSink::RecordingSink;

    HRESULT OnCommandEvents(const Event&) override { throw std::runtime_error("no list"); }
};

} // namespace

TEST(EventSinkControl, AnExceptionDoesNotReachTheFramework)
{
    ThrowingSink sink(AllKinds);
    sink.connected = true;

    // Reported as an exception of a handler, without an application by a message box; so let there be one that is mute.
    struct MuteApp : CWinApp
    {
        void OnHandlerException(const std::exception_ptr& exception) override { text = ExceptionText(exception); }

        std::wstring text;
    } app;

    EXPECT_EQ(sink.OnCommandEvent(4, 22, 1, 0, 0, 0, 0, {}, {}, nullptr), E_UNEXPECTED);
    EXPECT_EQ(app.text, L"no list");
}
