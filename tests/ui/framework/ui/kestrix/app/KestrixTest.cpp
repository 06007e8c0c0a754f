// The whole life of the application, in this process.

#include "framework/ui/kestrix/app/Kestrix.h"

#include "resource/resource.h"
#include "tests/support/ControllerDouble.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/MessageBoxRecorder.h"
#include "tests/support/OnTheLoop.h"
#include "tests/support/OrlRecorder.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

extern "C" decltype(&::OleInitialize) __imp_OleInitialize;

namespace
{

using Texts = std::vector<std::wstring>;
using VdCommon::TraceLevel;

constexpr wchar_t SuiteKey[] = L"Software\\Veldrane\\Zeptara";
constexpr wchar_t EventLogKey[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";
constexpr wchar_t NoLog[] = L"LocalLog%|6%|%|%|%|0"; // the form with an empty page
constexpr auto Refused = static_cast<HRESULT>(0x80040299);

constexpr wchar_t MaxCount[] = L"[InitInstance] Executing Log UI reached to Max count.";
constexpr wchar_t BoxExists[] = L"[InitInstance] message-box has already existed.";
constexpr wchar_t Terminated[] = L"***Kestrix.exe was terminated.";

class ApplicationTest : public ::testing::Test
{
protected:
    ApplicationTest()
    {
        CoInitialize(nullptr); // keeps the apartment, in which the controller is known, when the application ends
        m_controller = std::make_unique<ControllerDouble>();
        m_registry.SetText(SuiteKey, L"InstalledFolder", m_library.Folder());
        m_registry.SetText(SuiteKey, L"ProductName", L"The suite");
        for (const wchar_t* session : {L"InteractiveSession", L"ServiceSession"})
        {
            const std::wstring key = std::wstring(SuiteKey) + L"\\17\\DebugLog\\" + session;
            m_registry.SetNumber(key, L"Enable", 1);
            m_registry.SetNumber(key, L"Level", 0x111);
        }
    }

    ~ApplicationTest() override
    {
        m_controller.reset();
        CoUninitialize();
    }

    // From the command line to the end, as wWinMain does it.
    int Run(const wchar_t* commandLine = NoLog)
    {
        m_pApp = std::make_unique<CKestrixApp>();
        const int code = AfxWinMain(AfxGetInstanceHandle(), commandLine, SW_SHOW);
        m_pApp.reset();
        return code;
    }

    // The same, with the form closed as soon as it stands and the step done before that.
    void RunWithForm(const std::function<void(HWND)>& step)
    {
        const OnTheLoop close(
            [&]
            {
                const HWND form = FindWindowW(nullptr, Text(IDS_FORM_TITLE).c_str());
                if (form == nullptr || !IsWindowVisible(form))
                {
                    return false;
                }
                step(form);
                PostMessageW(form, WM_COMMAND, IDC_FORM_CLOSE, 0);
                return true;
            });
        EXPECT_EQ(Run(), 0);
        EXPECT_TRUE(close.IsDone());
    }

    bool Traced(const std::wstring& text) const { return std::ranges::count(m_trace.Texts(), text) != 0; }

    static UniqueKernelHandle OpenMaxCountMutex()
    {
        return UniqueKernelHandle(OpenMutexW(SYNCHRONIZE, FALSE, L"ZPTLOG_MUTEX_MAXCNT"));
    }

    const LanguageFile m_language; // for the texts that are compared; the application opens its own
    const RegistrySandbox m_registry;
    const OrlRecorder m_library;
    const MessageBoxRecorder m_boxes;
    std::unique_ptr<ControllerDouble> m_controller;
    const TraceRecorder m_trace;
    std::unique_ptr<CKestrixApp> m_pApp;
};

} // namespace

TEST_F(ApplicationTest, StartsAndEndsInItsOrder)
{
    RunWithForm([&](HWND) { EXPECT_NE(m_pApp->m_pIDBManagerProvider, nullptr); });
    // The lines that tell the steps, whatever stands between them.
    const Texts steps{L"[InitInstance] ...Enter...",
                      L"[Enter] CKestrixApp::CheckInstance()...",
                      std::wstring(L"cmd param: [") + NoLog + L"]",
                      L"[Enter] CKestrixApp::GetReportSpan()...",
                      L"[Enter] CKestrixApp::InitializeEventObject()...",
                      L"[Leave] CKestrixApp::InitializeEventObject()...",
                      L"[Enter] CKestrixApp::InitializeOrlDbMgLibrary()...",
                      L"[Leave] CKestrixApp::InitializeOrlDbMgLibrary()...",
                      L"[Enter] CKestrixDlg::OnInitDialog()...",
                      L"[Enter] CKestrixApp::UninitializeEventObject()...",
                      L"[Leave] CKestrixApp::UninitializeEventObject()...",
                      L"[Enter] CKestrixApp::UnInitializeOrlDbMgLibrary()...",
                      L"[Leave] CKestrixApp::UnInitializeOrlDbMgLibrary()...",
                      L"[Leave] CKestrixApp::ExitInstance()...",
                      Terminated};
    const Texts traced = m_trace.Texts();
    auto from = traced.begin();
    for (const std::wstring& step : steps)
    {
        const auto found = std::find(from, traced.end(), step);
        ASSERT_NE(found, traced.end()) << "missing or out of order: " << std::string(step.begin(), step.end());
        from = found + 1;
    }
    EXPECT_EQ(from, traced.end());
    EXPECT_TRUE(std::ranges::none_of(m_trace.Errors(),
                                     [](const std::wstring& text) { return text.starts_with(L"*** CKestrixApp::"); }));
    EXPECT_TRUE(m_boxes.Boxes().empty());
    EXPECT_EQ(m_controller->References(), 0);
    EXPECT_EQ(m_controller->Sink<IVdFrwkLocalEvents>(), nullptr);
}

TEST_F(ApplicationTest, WithoutTheServiceItWorksWithoutEvents)
{
    m_controller->Fail(ControllerDouble::Step::Create, REGDB_E_CLASSNOTREG);
    bool hadForm = false;
    RunWithForm([&](HWND) { hadForm = true; });
    EXPECT_TRUE(hadForm);
    EXPECT_TRUE(Traced(L"*** CKestrixApp::InitInstance() - this->InitializeEventObject() failed."));
    EXPECT_TRUE(Traced(L"*** CKestrixApp::ExitInstance() - this->UninitializeEventObject() failed."));
    EXPECT_TRUE(Traced(Terminated));
}

TEST_F(ApplicationTest, WithoutTheDatabaseLibraryItEndsWithoutAWindow)
{
    const TemporaryFolder folder;
    m_registry.SetText(SuiteKey, L"InstalledFolder", folder.Path().wstring());
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(Traced(L"*** CKestrixApp::InitInstance() - InitializeOrlDbMgLibrary() failed. [0x80040240]"));
    EXPECT_FALSE(Traced(L"[Enter] CKestrixDlg::OnInitDialog()..."));
    EXPECT_TRUE(Traced(Terminated));
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(ApplicationTest, AProviderThatDoesNotEndIsTracedAtTheEnd)
{
    m_library.State().providerUninitialize = Refused;
    RunWithForm([](HWND) {});
    EXPECT_TRUE(Traced(L"*** CKestrixApp::ExitInstance() - UnInitializeOrlDbMgLibrary() failed. [0x80040299]"));
}

TEST_F(ApplicationTest, AFormThatEndsWithAnotherResultThanOkAndCancelIsTraced)
{
    RunWithForm([&](HWND) { dynamic_cast<CDialog&>(*m_pApp->m_pMainWnd).EndDialog(77); });
    EXPECT_EQ(std::ranges::count_if(m_trace.Errors(),
                                    [](const std::wstring& text)
                                    {
                                        return text.starts_with(
                                            L"*** CKestrixApp::InitInstance() - CLogFormDlg.DoModal() failed. "
                                            L"nResponse = [77], GetLastError = [0x");
                                    }),
              1);
}

TEST_F(ApplicationTest, ASecondStartBringsTheFirstFormForwardAndEndsWithoutOneOfItsOwn)
{
    CKestrixApp first;
    ASSERT_TRUE(first.CheckInstance());
    CWnd form;
    form.Create(L"STATIC", Text(IDS_FORM_TITLE), WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 50, 350, 250}, nullptr, 0);
    EXPECT_EQ(Run(), 0);
    EXPECT_FALSE(IsIconic(form.GetSafeHwnd()));
    EXPECT_TRUE(Traced(L"[InitInstance] Failed, Instance has already existed"));
    EXPECT_TRUE(Traced(L"instance is found"));
    EXPECT_FALSE(Traced(std::wstring(L"cmd param: [") + NoLog + L"]"));
    EXPECT_TRUE(Traced(Terminated));
}

TEST_F(ApplicationTest, ACommandLineThatIsTooShortEndsBeforeTheService)
{
    EXPECT_EQ(Run(L"LocalLog%|1%|"), 0);
    EXPECT_TRUE(Traced(L"[InitInstance] Invalid Command Line: [LocalLog%|1%|]"));
    EXPECT_TRUE(m_controller->m_calls.empty());
    EXPECT_TRUE(Traced(L"*** CKestrixApp::UninitializeEventObject() - this->m_pEventSinkObject was invalid."));
    EXPECT_TRUE(Traced(Terminated));
}

TEST_F(ApplicationTest, TheCountIsGivenBackAtTheEnd)
{
    m_registry.SetNumber(EventLogKey, L"MaxLogCount", 1);
    CSemaphore semaphore(1, 1, L"Kestrix");
    RunWithForm([&](HWND) { EXPECT_FALSE(semaphore.Lock(0)); });
    EXPECT_TRUE(semaphore.Lock(0));
}

TEST_F(ApplicationTest, WithTooManyViewersOneBoxAppearsAndNoForm)
{
    m_registry.SetNumber(EventLogKey, L"MaxLogCount", 1);
    CSemaphore semaphore(1, 1, L"Kestrix");
    ASSERT_TRUE(semaphore.Lock(0));
    EXPECT_EQ(Run(), 0);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(IDS_TOO_MANY_VIEWERS));
    EXPECT_EQ(m_boxes.Boxes()[0].caption, L"The suite");
    EXPECT_EQ(m_boxes.Boxes()[0].flags, static_cast<UINT>(MB_ICONINFORMATION));
    EXPECT_TRUE(Traced(MaxCount));
    EXPECT_FALSE(Traced(BoxExists));
    EXPECT_FALSE(Traced(L"[Enter] CKestrixDlg::OnInitDialog()..."));
    EXPECT_EQ(m_library.Calls().size(), 6u); // the library is started all the same, and ended
    EXPECT_FALSE(OpenMaxCountMutex());       // gone with the application
    semaphore.Unlock();
    EXPECT_FALSE(semaphore.Unlock()); // nothing was given back that had not been taken
}

// The box said "Invalid handle." and nothing else.
TEST_F(ApplicationTest, AnotherProgramThatUsesTheNameOfTheCountIsToldWithWhatToDo)
{
    const UniqueKernelHandle event(CreateEventW(nullptr, TRUE, FALSE, L"Kestrix"));
    EXPECT_EQ(Run(), 0);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(IDS_NAME_IN_USE));
    EXPECT_EQ(m_boxes.Boxes()[0].caption, L"Kestrix");
    EXPECT_EQ(m_boxes.Boxes()[0].flags, static_cast<UINT>(MB_ICONERROR));
    EXPECT_TRUE(m_library.Calls().empty());
    EXPECT_EQ(m_controller->Sink<IVdFrwkLocalEvents>(), nullptr) << "what was started is undone";
    EXPECT_TRUE(Traced(Terminated));
}

TEST_F(ApplicationTest, WhileAnotherProcessShowsTheBoxItEndsInSilence)
{
    m_registry.SetNumber(EventLogKey, L"MaxLogCount", 1);
    CSemaphore semaphore(1, 1, L"Kestrix");
    ASSERT_TRUE(semaphore.Lock(0));
    const UniqueKernelHandle shown(CreateMutexW(nullptr, TRUE, L"ZPTLOG_MUTEX_MAXCNT"));
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(m_boxes.Boxes().empty());
    EXPECT_TRUE(Traced(MaxCount));
    EXPECT_TRUE(Traced(BoxExists));
    EXPECT_TRUE(m_library.Calls().empty());
    EXPECT_TRUE(Traced(Terminated));
}

TEST_F(ApplicationTest, TheThreadsFilterRepeatsCallsForEver)
{
    AfxOleGetMessageFilter().SetRetryReply(0);
    RunWithForm(
        [&](HWND)
        {
            EXPECT_EQ(AfxOleGetMessageFilter().RetryRejectedCall(nullptr, 0xFFFFFFFF, SERVERCALL_RETRYLATER), 0u);
            EXPECT_EQ(m_pApp->m_nThreadID, GetCurrentThreadId());
        });
}

TEST_F(ApplicationTest, ALanguageThatIsNotInstalledIsTriedFirst)
{
    m_registry.SetText(SuiteKey, L"LangName", L"xx-XX");
    bool hadForm = false;
    RunWithForm([&](HWND) { hadForm = true; }); // from the file beside the program
    EXPECT_TRUE(hadForm);
}

TEST_F(ApplicationTest, TheEndOfAPurgeWhileTheFormIsClosingTouchesNoPage)
{
    m_controller->m_onCall = [&](const std::wstring& call)
    {
        if (call.starts_with(L"Unadvise"))
        {
            EXPECT_EQ(m_pApp->m_pLogDlg, nullptr);
            EXPECT_EQ(m_pApp->m_pMainWnd, nullptr);
            EXPECT_EQ(m_controller->Sink<IVdFrwkLocalEvents>()->OnCommandEvent(4, 22, 1, 0, 0, 0, 0, {}, {}, nullptr),
                      262656);
        }
    };
    RunWithForm([](HWND) {});
    EXPECT_TRUE(Traced(L"CKestrixEventSinkObject::OnCommandEvents Finish"));
}

namespace
{

HRESULT WINAPI RefuseOle(void*)
{
    return E_OUTOFMEMORY;
}

} // namespace

TEST(Application, WithoutOleItEndsInSilenceBeforeTheLogIsOpen)
{
    const ImportPatch refusing(__imp_OleInitialize, &RefuseOle);
    const MessageBoxRecorder boxes;
    const RegistrySandbox registry;
    CKestrixApp app;
    EXPECT_EQ(AfxWinMain(AfxGetInstanceHandle(), NoLog, SW_SHOW), 0);
    EXPECT_TRUE(boxes.Boxes().empty());
}
