// The viewer and the service while both run: a purge, the order to exit, and a service that dies.

#include "suite/framework/ValueSource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Tracing.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"

namespace
{

using Texts = std::vector<std::wstring>;

constexpr char LastLine[] = "***Kestrix.exe was terminated.";

// The viewer on a database of three days, traced.
class PurgeTest : public ServiceFixture
{
protected:
    PurgeTest()
    {
        m_logs.Append(VirusSubType, 20261118, {VirusLine(L"0700", L"oldest")});
        m_logs.Append(VirusSubType, 20261119, {VirusLine(L"0800", L"middle")});
        m_logs.Append(VirusSubType, 20261120, {VirusLine(L"0900", L"newest")});
        m_viewer.emplace(DatabaseCommandLine(VirusLog));
    }

    void SetUp() override
    {
        ASSERT_NE(m_viewer->Form(), nullptr);
        ASSERT_EQ(m_viewer->Dates().size(), 3u);
    }

    void ExpectPage(const Texts& dates, const Texts& threats) const
    {
        EXPECT_TRUE(PumpUntil([&] { return m_viewer->Dates() == dates && m_viewer->Column(2) == threats; }));
    }

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
    const Tracing m_tracing{m_service.Installed().Path()};
    std::optional<Viewer> m_viewer;
};

using ViewerAndServiceTest = PurgeTest;

// Stops the thread of a window, which takes no messages then, as one that is busy.
class StoppedThread
{
public:
    explicit StoppedThread(HWND window)
        : m_thread(OpenThread(THREAD_SUSPEND_RESUME, FALSE, GetWindowThreadProcessId(window, nullptr)))
    {
        EXPECT_EQ(SuspendThread(m_thread.get()), 0u);
    }

    ~StoppedThread() { ResumeThread(m_thread.get()); }

    StoppedThread(const StoppedThread&) = delete;
    StoppedThread& operator=(const StoppedThread&) = delete;

private:
    const UniqueKernelHandle m_thread;
};

} // namespace

TEST_F(PurgeTest, APurgeByAnotherClientTakesItsDatesFromTheListAndShowsTheNewestDate)
{
    m_viewer->ClickDate(2);
    ExpectPage(m_viewer->Dates(), {L"oldest"});
    ServiceSession session;
    EXPECT_EQ(Service::Processes().size(), 1u);
    EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261119), Framework::Success);
    ExpectPage({DateText(20261120)}, {L"newest"});
    EXPECT_EQ(m_viewer->SelectedDate(), 0);
    EXPECT_TRUE(PumpUntil([&] { return !session.events.empty(); }));
    EXPECT_EQ(session.events, Events{PurgeDone});
    EXPECT_EQ(m_viewer->Close(), 0u);
}

TEST_F(PurgeTest, APurgeOfAllDatesLeavesAnEmptyPageThatFillsAgainWithTheNextOne)
{
    ServiceSession session;
    EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261120), Framework::Success);
    ExpectPage({}, {});
    m_logs.Append(VirusSubType, 20261121, {VirusLine(L"1000", L"later")});
    EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261120), Framework::Success);
    ExpectPage({DateText(20261121)}, {L"later"});
    EXPECT_EQ(m_viewer->Close(), 0u);
}

// The service dropped a viewer that did not answer for 3 s, as one that loads a large day: it missed all events from
// then on, and nobody said so.
TEST_F(PurgeTest, AViewerThatIsBusyForHalfAMinuteDelaysNobodyAndGetsItsEventsAfterwards)
{
    constexpr ULONGLONG halfAMinute = 30'000;
    ServiceSession session;
    {
        const StoppedThread busy(m_viewer->Form());
        const ULONGLONG start = GetTickCount64();
        EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261118), Framework::Success);
        EXPECT_TRUE(PumpUntil([&] { return session.events.size() == 1; }));
        EXPECT_TRUE(WaitUntil([&] { return GetTickCount64() - start >= halfAMinute; }, 2 * halfAMinute));
        EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261119), Framework::Success);
        EXPECT_TRUE(PumpUntil([&] { return session.events.size() == 2; }));
    }
    ExpectPage({DateText(20261120)}, {L"newest"});
    m_logs.Append(VirusSubType, 20261121, {VirusLine(L"1000", L"later")});
    EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261120), Framework::Success);
    ExpectPage({DateText(20261121)}, {L"later"});
    EXPECT_EQ(Service::Run(L"/Exit"), 0u);
    EXPECT_EQ(m_viewer->Program().ExitCode(), 0u);
}

TEST_F(PurgeTest, AfterThePurgeTheViewerEndsAsAlways)
{
    EXPECT_EQ(OrderPurge(*Connect().Get(), VirusPurgeType, 20261119), Framework::Success);
    ExpectPage({DateText(20261120)}, {L"newest"});
    EXPECT_EQ(m_viewer->Close(), 0u);
    EXPECT_TRUE(m_tracing.Has(LastLine));
    EXPECT_FALSE(m_tracing.Has("!!!"));
    EXPECT_TRUE(Service::HasEnded());
}

TEST_F(ViewerAndServiceTest, TheExitCommandEndsTheViewerAtOnceWithoutItsLastLine)
{
    EXPECT_EQ(Service::Run(L"/Exit"), 0u);
    EXPECT_EQ(m_viewer->Program().ExitCode(), 0u);
    EXPECT_TRUE(m_tracing.Has("receive exit command, exit now.."));
    EXPECT_FALSE(m_tracing.Has("CKestrixApp::ExitInstance()"));
    EXPECT_FALSE(m_tracing.Has(LastLine));
    EXPECT_TRUE(Service::HasEnded());
}

TEST_F(ViewerAndServiceTest, WhenTheServiceIsKilledTheViewerWorksOnAndClosesAsAlways)
{
    Service::Kill();
    m_viewer->ClickDate(1);
    ExpectPage(m_viewer->Dates(), {L"middle"});
    EXPECT_EQ(m_viewer->Close(), 0u);
    EXPECT_TRUE(m_tracing.Has("::AtlUnadvise(IID_IVdFrwkLocalEvents) failed."));
    EXPECT_TRUE(m_tracing.Has(LastLine));
}

TEST_F(ViewerAndServiceTest, WhenTheServiceHangsAndIsKilledWhileTheViewerLeavesTheViewerEndsAllTheSame)
{
    Service::Freeze();
    PostMessageW(m_viewer->Form(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return m_tracing.Has("[Enter] EventSinkHandler::Uninitialize()..."); }));
    EXPECT_FALSE(m_viewer->Program().HasEnded());
    Service::Kill();
    EXPECT_EQ(m_viewer->Program().ExitCode(), 0u);
    EXPECT_TRUE(m_tracing.Has(LastLine));
}
