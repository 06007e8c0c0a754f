#include "framework/ui/kestrix/app/KestrixEventSinkObject.h"

#include "resource/resource.h"
#include "tests/support/ImportPatch.h"
#include "tests/ui/framework/ui/kestrix/app/DatabasePageTest.h"

#include <algorithm>

extern "C" decltype(&::ExitProcess) __imp_ExitProcess;

namespace
{

using Frwk::Interface::Event;

Event EventOf(ULONG event, ULONG type, ULONG subType)
{
    Event made{};
    made.event = event;
    made.messageType = type;
    made.messageSubType = subType;
    return made;
}

// What ExitProcess becomes: the call does not return, and the test goes on.
struct ProcessExit
{
    UINT code;
};

[[noreturn]] void WINAPI ThrowExit(UINT code)
{
    throw ProcessExit{code};
}

class EventSinkObjectTest : public DatabasePageTest
{
protected:
    EventSinkObjectTest()
    {
        m_database.AddDay(2026, 11, 20);
        m_database.AddDay(2026, 11, 19);
        m_database.SetLines(
            {L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0|x", L"x|1030|1048576|x|0|0|alpha|C:\\a|4|1|0|0|x"});
    }

    // What an event traces between the enter and leave lines.
    Texts TracedBy(const Event& event)
    {
        m_trace.Clear();
        EXPECT_EQ(m_sink.OnCommandEvents(event), 262656);
        Texts texts = m_trace.Texts(VdCommon::TraceLevel::Flow);
        EXPECT_GE(texts.size(), 2u);
        EXPECT_TRUE(texts.front().starts_with(L"[Enter] CKestrixEventSinkObject::OnCommandEvents [event="));
        EXPECT_EQ(texts.back(), L"[Leave] CKestrixEventSinkObject::OnCommandEvents");
        return {texts.begin() + 1, texts.end() - 1};
    }

    CKestrixModule m_module;
    CKestrixEventSinkObject m_sink{m_module, m_app};

private:
    // A test that ended its process would count as passed.
    const ImportPatch<decltype(&::ExitProcess)> m_exit{__imp_ExitProcess, &ThrowExit};
};

constexpr wchar_t Finish[] = L"CKestrixEventSinkObject::OnCommandEvents Finish";
constexpr wchar_t Exit[] = L"[CKestrixEventSinkObject::OnCommandEvents] receive exit command, exit now..";

} // namespace

TEST_F(EventSinkObjectTest, TheEndOfAPurgeRefreshesThePageWhileADateIsShown)
{
    OpenPage();
    ASSERT_EQ(Dates(), (Texts{DateText(2026, 11, 20), DateText(2026, 11, 19)}));
    ASSERT_EQ(m_list.GetItemCount(), 2);
    SelectDate(1);
    SelectRow(0);

    m_database.RemoveDays();
    m_database.AddDay(2026, 11, 20);
    m_database.SetLines({L"x|1100|1048576|x|0|0|gamma|C:\\c|4|1|0|0|x"});
    const Texts texts = TracedBy(EventOf(4, 22, 1));
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.back(), Finish);
    EXPECT_EQ(Dates(), (Texts{DateText(2026, 11, 20)}));
    EXPECT_EQ(Item(IDC_DATE_LIST).SendMessage(LB_GETCURSEL), 0);
    ASSERT_EQ(m_list.GetItemCount(), 1);
    EXPECT_EQ(Cells(0)[2], L"gamma");
}

TEST_F(EventSinkObjectTest, APurgeOfEverythingLeavesAnEmptyPage)
{
    OpenPage();
    ASSERT_EQ(m_list.GetItemCount(), 2);
    m_database.RemoveDays();
    TracedBy(EventOf(4, 22, 1));
    EXPECT_EQ(Dates(), Texts{});
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(EventSinkObjectTest, WithoutAPageTheEndOfAPurgeIsTracedAlone)
{
    EXPECT_EQ(TracedBy(EventOf(4, 22, 1)), Texts{Finish});
}

TEST_F(EventSinkObjectTest, APageWithoutAWindowIsNotRefreshed)
{
    m_app.m_pLogDlg = &m_page;
    EXPECT_EQ(TracedBy(EventOf(4, 22, 1)), Texts{Finish});
}

TEST_F(EventSinkObjectTest, Event4WithType22AndSubType2IsIgnored)
{
    OpenPage();
    EXPECT_EQ(TracedBy(EventOf(4, 22, 2)), Texts{});
    EXPECT_EQ(TracedBy(EventOf(4, 21, 1)), Texts{});
    EXPECT_EQ(TracedBy(EventOf(5, 22, 1)), Texts{});
    EXPECT_EQ(TracedBy(EventOf(~0U, ~0U, ~0U)), Texts{});
    EXPECT_EQ(m_database.CountOf(OrlQueryDays), 1); // that of the opening
}

TEST_F(EventSinkObjectTest, Event1WithType0IsIgnored)
{
    EXPECT_EQ(TracedBy(EventOf(1, 0, 0)), Texts{});
    EXPECT_EQ(TracedBy(EventOf(1, 22, 1)), Texts{});
    EXPECT_EQ(TracedBy(EventOf(2, ~0U, 0)), Texts{});
}

TEST_F(EventSinkObjectTest, TheExitCommandEndsTheProcessAtOnceWithoutALeaveLine)
{
    UINT code = 99;
    try
    {
        m_sink.OnCommandEvents(EventOf(1, ~0U, 5));
    }
    catch (const ProcessExit& ended)
    {
        code = ended.code;
    }
    EXPECT_EQ(code, 0u);
    EXPECT_EQ(m_trace.Texts(), (Texts{L"[Enter] CKestrixEventSinkObject::OnCommandEvents [event=1] [message type=-1] "
                                      L"[message sub type=5]",
                                      Exit}));
}

TEST_F(EventSinkObjectTest, AProfileEventIsTracedAndAnsweredZero)
{
    EXPECT_EQ(m_sink.OnProfileEvents(EventOf(3, 48, ~0U)), 0);
    EXPECT_EQ(m_trace.Texts(), (Texts{L"[Enter] CKestrixEventSinkObject::OnProfileEvents [event=3] [message type=48] "
                                      L"[message sub type=-1]",
                                      L"[Leave] CKestrixEventSinkObject::OnProfileEvents"}));
}

TEST_F(EventSinkObjectTest, TheOtherKindsAreAnsweredZero)
{
    EXPECT_EQ(m_sink.OnStatusEvents({}), 0);
    EXPECT_EQ(m_sink.OnPropertyEvents({}), 0);
    EXPECT_EQ(m_sink.OnSessionEvents({}), 0);
    EXPECT_EQ(m_sink.OnDetectionEvents({}), 0);
    EXPECT_EQ(m_trace.Texts(), Texts{});
}

TEST_F(EventSinkObjectTest, TheModuleCountsTheSinksThatLive)
{
    EXPECT_EQ(m_module.GetLockCount(), 1);
    {
        const CKestrixEventSinkObject second(m_module, m_app);
        EXPECT_EQ(m_module.GetLockCount(), 2);
    }
    EXPECT_EQ(m_module.GetLockCount(), 1);
}

namespace
{

// Writes down what is asked of it among the traces, and ends nothing.
class RecordingHost : public CEventHost
{
public:
    explicit RecordingHost(const TraceRecorder& trace) : m_trace(trace) {}

    void Exit() override { Note(L"Exit"); }

    void RefreshPage() override { Note(L"RefreshPage"); }

    // What was asked, each with the line that was traced last before it.
    std::vector<Texts> m_asked;

private:
    void Note(const wchar_t* what) { m_asked.push_back({m_trace.Texts().back(), what}); }

    const TraceRecorder& m_trace;
};

} // namespace

TEST(EventSinkObject, AsksTheProgramToExitAfterTheTraceAndToRefreshBeforeIt)
{
    const TraceRecorder trace;
    RecordingHost host(trace);
    CKestrixModule module;
    CKestrixEventSinkObject sink(module, host);
    sink.OnCommandEvents(EventOf(1, ~0U, 0));
    sink.OnCommandEvents(EventOf(4, 22, 1));
    EXPECT_EQ(host.m_asked,
              (std::vector<Texts>{{Exit, L"Exit"},
                                  {L"[Enter] CKestrixEventSinkObject::OnCommandEvents [event=4] [message type=22] "
                                   L"[message sub type=1]",
                                   L"RefreshPage"}}));
}
