#include "common/Frwk_EventSinkHandler.h"

#include "tests/support/ControllerDouble.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/OleApartment.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/common/RecordingSink.h"

#include <gtest/gtest.h>

extern "C" decltype(&::CoDisconnectObject) __imp_CoDisconnectObject;

namespace
{

using namespace Frwk::Interface;
using Texts = std::vector<std::wstring>;
using Step = ControllerDouble::Step;

constexpr std::uint32_t EveryKind = 63;
constexpr auto Refused = static_cast<HRESULT>(0x80040201);

class EventSinkHandlerTest : public ::testing::Test
{
protected:
    ~EventSinkHandlerTest() override { EXPECT_EQ(m_controller.References(), 0); }

    // One event of each kind, in the order of the mask's bits; the answers.
    static std::vector<HRESULT> SendAll(RecordingSink& sink)
    {
        const VdFrwkBlock block{};
        return {sink.OnCommandEvent(1, 0, 0, 0, 0, 0, 0, block, block, nullptr),
                sink.OnProfileEvent(1, block, 0, 0, 0, 0, 0, 0, block, block, nullptr),
                sink.OnStatusEvent(1, block, 0, 0, 0, 0, 0, 0, block, block, nullptr),
                sink.OnPropertyEvent(1, block, 0, 0, 0, 0, 0, 0, block, block, nullptr),
                sink.OnSessionEvent(1, 0, 0, 0, 0, 0, block, block, nullptr),
                sink.OnDetectionEvent(1, 0, 0, 0, 0, 0, 0, block, block, nullptr)};
    }

    const OleApartment m_apartment;
    ControllerDouble m_controller;
    const TraceRecorder m_trace;
};

// Notes for which objects CoDisconnectObject is called, with a reserved word of 0.
class DisconnectRecorder
{
public:
    DisconnectRecorder() { Calls().clear(); }

    const std::vector<void*>& Disconnected() const { return Calls(); }

private:
    static HRESULT STDAPICALLTYPE Record(IUnknown* object, DWORD reserved)
    {
        Calls().push_back(reserved == 0 ? object : nullptr);
        return S_OK;
    }

    static std::vector<void*>& Calls()
    {
        static std::vector<void*> calls;
        return calls;
    }

    const ImportPatch<decltype(&::CoDisconnectObject)> m_patch{__imp_CoDisconnectObject, &Record};
};

constexpr wchar_t Enter[] = L"[Enter] EventSinkHandler::Initialize()...";
constexpr wchar_t EnterEnd[] = L"[Enter] EventSinkHandler::Uninitialize()...";

} // namespace

TEST_F(EventSinkHandlerTest, EachBitOfTheMaskLetsItsKindThroughAlone)
{
    for (std::uint32_t bit = 0; bit < 6; ++bit)
    {
        RecordingSink sink(1U << bit);
        sink.connected = true;
        std::vector<HRESULT> expected(6, EventNotWanted);
        expected[bit] = RecordingSink::Answer;
        EXPECT_EQ(SendAll(sink), expected) << "bit " << bit;
        EXPECT_EQ(sink.m_received.size(), 1u);
    }
}

TEST_F(EventSinkHandlerTest, WithTheMaskOneAStatusEventIsAnsweredWithoutATrace)
{
    RecordingSink sink(CommandEvents);
    sink.connected = true;
    EXPECT_EQ(sink.OnStatusEvent(1, {}, 0, 0, 0, 0, 0, 0, {}, {}, nullptr), 262659);
    EXPECT_TRUE(sink.m_received.empty());
    EXPECT_EQ(m_trace.Texts(), Texts{});
}

TEST_F(EventSinkHandlerTest, AnEventThatNobodyOverridesIsNotWanted)
{
    EventSinkHandler sink(EveryKind);
    const Event event{};
    EXPECT_EQ(sink.OnCommand(event), EventNotWanted);
    EXPECT_EQ(sink.OnProfile(event), EventNotWanted);
    EXPECT_EQ(sink.OnStatus(event), EventNotWanted);
    EXPECT_EQ(sink.OnProperty(event), EventNotWanted);
    EXPECT_EQ(sink.OnSession(event), EventNotWanted);
    EXPECT_EQ(sink.OnDetection(event), EventNotWanted);
}

TEST_F(EventSinkHandlerTest, ALocalMaskConnectsTheLocalEventsAlone)
{
    RecordingSink sink(PropertyEvents);
    EXPECT_FALSE(sink.connected);
    EXPECT_EQ(sink.Initialize(), S_OK);
    EXPECT_TRUE(sink.connected);
    EXPECT_EQ(m_controller.m_calls,
              (Texts{L"CreateInstance", L"QueryInterface", L"FindConnectionPoint local", L"Advise local"}));
    EXPECT_EQ(sink.References(), 1u); // the connection
    EXPECT_EQ(m_trace.Texts(), (Texts{Enter, L"[Leave] EventSinkHandler::Initialize()...[0x00000000]"}));

    auto* const events = m_controller.Sink<IVdFrwkLocalEvents>();
    ASSERT_NE(events, nullptr);
    EXPECT_EQ(events->OnPropertyEvent(1, {}, 0, 0, 0, 0, 0, 0, {}, {}, nullptr), RecordingSink::Answer);
    EXPECT_EQ(sink.Uninitialize(), S_OK);
    EXPECT_EQ(sink.References(), 0u);
}

TEST_F(EventSinkHandlerTest, ASessionMaskConnectsTheSessionEventsAlone)
{
    RecordingSink sink(DetectionEvents);
    EXPECT_EQ(sink.Initialize(), S_OK);
    EXPECT_EQ(m_controller.m_calls.back(), L"Advise session");
    EXPECT_EQ(m_controller.Sink<IVdFrwkLocalEvents>(), nullptr);
    ASSERT_NE(m_controller.Sink<IVdFrwkSessionEvents>(), nullptr);
    EXPECT_EQ(m_controller.Sink<IVdFrwkSessionEvents>()->OnDetectionEvent(1, 0, 0, 0, 0, 0, 0, {}, {}, nullptr),
              RecordingSink::Answer);
    EXPECT_EQ(sink.Uninitialize(), S_OK);
    EXPECT_EQ(m_controller.m_calls.back(), L"Unadvise session 18");
}

TEST_F(EventSinkHandlerTest, BothConnectionsAreMadeAndEndedLocalFirst)
{
    RecordingSink sink(EveryKind);
    EXPECT_EQ(sink.Initialize(), S_OK);
    EXPECT_EQ(sink.References(), 2u);
    EXPECT_EQ(sink.Uninitialize(), S_OK);
    EXPECT_EQ(
        m_controller.m_calls,
        (Texts{L"CreateInstance", L"QueryInterface", L"FindConnectionPoint local", L"Advise local", L"QueryInterface",
               L"FindConnectionPoint session", L"Advise session", L"QueryInterface", L"FindConnectionPoint local",
               L"Unadvise local 17", L"QueryInterface", L"FindConnectionPoint session", L"Unadvise session 18"}));
    EXPECT_EQ(sink.References(), 0u);
}

TEST_F(EventSinkHandlerTest, AMaskWithoutAKindTouchesNoFramework)
{
    RecordingSink sink(64);
    EXPECT_EQ(sink.Initialize(), 0x40200);
    EXPECT_FALSE(sink.connected);
    EXPECT_EQ(sink.Uninitialize(), 0x40200);
    EXPECT_EQ(m_controller.m_calls, Texts{});
    EXPECT_EQ(m_trace.Texts(), (Texts{Enter, L"[Leave] EventSinkHandler::Initialize()...[0x00040200]", EnterEnd,
                                      L"[Leave] EventSinkHandler::Uninitialize()...[0x00040200]"}));
}

TEST_F(EventSinkHandlerTest, AnEventBeforeInitializeHasFinishedIsRefused)
{
    RecordingSink sink(CommandEvents);
    HRESULT answer = S_OK;
    m_controller.m_onCall = [&](const std::wstring& call)
    {
        if (call == L"Advise local")
        {
            answer = sink.OnCommandEvent(1, ~0U, 0, 0, 0, 0, 0, {}, {}, nullptr);
        }
    };
    EXPECT_EQ(sink.Initialize(), S_OK);
    EXPECT_EQ(answer, 262659);
    EXPECT_TRUE(sink.m_received.empty());
    EXPECT_EQ(m_trace.Errors(),
              Texts{L"*** EventSinkControl::::OnCommandEvent() - No connection to Service framework."});
    sink.Uninitialize();
}

TEST_F(EventSinkHandlerTest, AControllerThatCannotBeMadeLeavesTheSinkUnconnected)
{
    m_controller.Fail(Step::Create, Refused);
    RecordingSink sink(CommandEvents);
    EXPECT_EQ(sink.Initialize(), Refused);
    EXPECT_FALSE(sink.connected);
    EXPECT_EQ(m_trace.Texts(), (Texts{Enter, L"*** EventSinkHandler::::Initialize() - "
                                             L"this->m_pLocalController.CoCreateInstance() failed. [0x80040201]"}));
}

TEST_F(EventSinkHandlerTest, AControllerThatIsMadeAndNotGivenIsAFailure)
{
    m_controller.GiveNothing(Step::Create);
    RecordingSink sink(EveryKind);
    EXPECT_EQ(sink.Initialize(), E_POINTER);
    EXPECT_FALSE(sink.connected);
}

TEST_F(EventSinkHandlerTest, WithoutItsOwnInterfaceTheSinkDoesNotConnect)
{
    RecordingSink sink(CommandEvents);
    sink.m_nAnswered = 0;
    EXPECT_EQ(sink.Initialize(), E_ABORT);
    EXPECT_FALSE(sink.connected);
    EXPECT_EQ(m_controller.m_calls, Texts{L"CreateInstance"});
    EXPECT_EQ(m_trace.Errors(),
              Texts{L"*** EventSinkHandler::::Initialize() - this->QueryInterface() failed. [0x80004004]"});
}

TEST_F(EventSinkHandlerTest, ARefusedAdviseIsAnsweredWhileTheSinkIsConnected)
{
    m_controller.Fail(Step::Advise, Refused);
    RecordingSink sink(CommandEvents);
    EXPECT_EQ(sink.Initialize(), Refused);
    EXPECT_TRUE(sink.connected);
    EXPECT_EQ(m_trace.Texts(),
              (Texts{Enter,
                     L"*** EventSinkHandler::::Initialize() - ::AtlAdvise(IID_IVdFrwkLocalEvents) failed. [0x80040201]",
                     L"[Leave] EventSinkHandler::Initialize()...[0x80040201]"}));
    EXPECT_EQ(sink.OnCommandEvent(1, 0, 0, 0, 0, 0, 0, {}, {}, nullptr), RecordingSink::Answer);
    m_controller.Work(Step::Advise);
    EXPECT_EQ(sink.Uninitialize(), CONNECT_E_NOCONNECTION);
}

TEST_F(EventSinkHandlerTest, TheResultOfTwoConnectionsIsThatOfTheLast)
{
    RecordingSink sink(EveryKind);
    m_controller.Fail(Step::Advise, Refused);
    m_controller.Fail(Step::Unadvise, Refused);
    m_controller.m_onCall = [&](const std::wstring& call)
    {
        if (call.ends_with(L"session"))
        {
            m_controller.Work(Step::Advise);
        }
        if (call.starts_with(L"Unadvise session"))
        {
            m_controller.Work(Step::Unadvise);
        }
    };
    EXPECT_EQ(sink.Initialize(), S_OK);
    EXPECT_EQ(sink.Uninitialize(), S_OK);
    EXPECT_EQ(m_trace.Errors(),
              (Texts{L"*** EventSinkHandler::::Initialize() - ::AtlAdvise(IID_IVdFrwkLocalEvents) failed. [0x80040201]",
                     L"*** EventSinkHandler::::Uninitialize() - ::AtlUnadvise(IID_IVdFrwkLocalEvents) failed. "
                     L"[0x80040201]"}));
}

TEST_F(EventSinkHandlerTest, BothConnectionsMayBeRefused)
{
    RecordingSink sink(EveryKind);
    m_controller.Fail(Step::Find, Refused);
    EXPECT_EQ(sink.Initialize(), Refused);
    EXPECT_TRUE(sink.connected);
    EXPECT_EQ(m_trace.Errors(),
              (Texts{L"*** EventSinkHandler::::Initialize() - ::AtlAdvise(IID_IVdFrwkLocalEvents) failed. [0x80040201]",
                     L"*** EventSinkHandler::::Initialize() - ::AtlAdvise(IID_IVdFrwkSessionEvents) failed. "
                     L"[0x80040201]"}));
    EXPECT_EQ(sink.Uninitialize(), Refused);
}

TEST_F(EventSinkHandlerTest, ConnectionPointsThatAreNotGivenAreFailures)
{
    for (const Step step : {Step::Container, Step::Find})
    {
        m_controller.GiveNothing(step);
        RecordingSink sink(CommandEvents);
        EXPECT_EQ(sink.Initialize(), E_POINTER);
        EXPECT_TRUE(sink.connected);
        EXPECT_EQ(sink.Uninitialize(), E_POINTER);
        m_controller.Work(step);
    }
}

TEST_F(EventSinkHandlerTest, UninitializeWithoutAControllerTellsAnInvalidArgument)
{
    RecordingSink sink(EveryKind);
    EXPECT_EQ(sink.Uninitialize(), E_INVALIDARG);
    EXPECT_EQ(m_trace.Texts(),
              (Texts{EnterEnd,
                     L"*** EventSinkHandler::::Uninitialize() - ::AtlUnadvise(IID_IVdFrwkLocalEvents) failed. "
                     L"[0x80070057]",
                     L"*** EventSinkHandler::::Uninitialize() - ::AtlUnadvise(IID_IVdFrwkSessionEvents) failed. "
                     L"[0x80070057]",
                     L"[Leave] EventSinkHandler::Uninitialize()...[0x80070057]"}));
}

TEST_F(EventSinkHandlerTest, ARefusedUnadviseIsAnsweredAndTheControllerIsReleasedAllTheSame)
{
    RecordingSink sink(CommandEvents);
    ASSERT_EQ(sink.Initialize(), S_OK);
    m_controller.Fail(Step::Unadvise, Refused);
    EXPECT_EQ(sink.Uninitialize(), Refused);
    EXPECT_EQ(m_controller.References(), 0);
    EXPECT_EQ(m_trace.Errors(),
              Texts{L"*** EventSinkHandler::::Uninitialize() - ::AtlUnadvise(IID_IVdFrwkLocalEvents) failed. "
                    L"[0x80040201]"});
    m_controller.DropSinks();
}

TEST_F(EventSinkHandlerTest, WithoutItsOwnInterfaceUninitializeStillDisconnectsByForceAndEndsWithoutALeaveLine)
{
    RecordingSink sink(CommandEvents);
    ASSERT_EQ(sink.Initialize(), S_OK);
    sink.m_nAnswered = 0;
    EXPECT_EQ(sink.Uninitialize(), E_ABORT);
    const Texts texts = m_trace.Texts();
    EXPECT_EQ(Texts(texts.end() - 3, texts.end()),
              (Texts{EnterEnd, L"*** EventSinkHandler::::Uninitialize() - this->QueryInterface() failed. [0x80004004]",
                     L"*** EventSinkHandler::ForceDisconnect() - this->QueryInterface() was failed. [0x80004004]"}));
    EXPECT_GT(m_controller.References(), 0); // it is kept
    sink.m_nAnswered = ~0U;
    EXPECT_EQ(sink.Uninitialize(), S_OK);
}

namespace
{

HRESULT STDAPICALLTYPE RefuseToDisconnect(IUnknown*, DWORD)
{
    return Refused;
}

} // namespace

// An error line of our own stood in the trace.
TEST_F(EventSinkHandlerTest, ACutThatFailsIsPassedOver)
{
    RecordingSink sink(CommandEvents);
    ASSERT_EQ(sink.Initialize(), S_OK);
    const ImportPatch refusing(__imp_CoDisconnectObject, &RefuseToDisconnect);
    EXPECT_EQ(sink.Uninitialize(), S_OK);
    EXPECT_EQ(m_trace.Errors(), Texts{});
}

TEST_F(EventSinkHandlerTest, UninitializeCutsOffWhatOtherProcessesHoldOfTheSink)
{
    RecordingSink sink(CommandEvents);
    ASSERT_EQ(sink.Initialize(), S_OK);
    const DisconnectRecorder recorder;
    EXPECT_EQ(sink.Uninitialize(), S_OK);
    EXPECT_EQ(recorder.Disconnected(), std::vector<void*>{static_cast<IVdFrwkLocalEvents*>(&sink)});
}

TEST_F(EventSinkHandlerTest, ALateEventIsHandledAsUsual)
{
    RecordingSink sink(CommandEvents);
    ASSERT_EQ(sink.Initialize(), S_OK);
    ASSERT_EQ(sink.Uninitialize(), S_OK);
    EXPECT_TRUE(sink.connected);
    EXPECT_EQ(sink.OnCommandEvent(4, 22, 1, 0, 0, 0, 0, {}, {}, nullptr), RecordingSink::Answer);
}

TEST_F(EventSinkHandlerTest, TheControllerIsReleasedWithASinkThatWasNeverUninitialized)
{
    {
        RecordingSink sink(CommandEvents);
        m_controller.Fail(Step::Advise, Refused);
        sink.Initialize();
        EXPECT_EQ(m_controller.References(), 1);
    }
    EXPECT_EQ(m_controller.References(), 0);
}

TEST(EventSinkHandler, WithoutAnApartmentNothingConnects)
{
    RecordingSink sink(CommandEvents);
    EXPECT_EQ(sink.Initialize(), CO_E_NOTINITIALIZED);
    EXPECT_FALSE(sink.connected);
}
