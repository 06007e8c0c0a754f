// How many viewers there may be: one in a session, and a number from the settings in all.

#include "resource/resource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/InstalledFolder.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Tracing.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"

#include <array>
#include <filesystem>

namespace
{

constexpr wchar_t EmptyForm[] = L"LocalLog%|6%|%|%|%|0"; // the form with an empty page
constexpr wchar_t InstanceMutex[] = L"FRWK_MUTEX_KESTRIX";
constexpr wchar_t MaxCountMutex[] = L"ZPTLOG_MUTEX_MAXCNT";

std::wstring ProgramPath()
{
    return ProgramFolder() + L"Kestrix.exe";
}

// A start that is expected to end by itself, without a window.
void ExpectToEndWithoutAWindow(const std::wstring& program = ProgramPath())
{
    const DebuggerOutput output(program, EmptyForm);
    EXPECT_TRUE(output.ended);
    EXPECT_EQ(output.exitCode, 0u);
    EXPECT_FALSE(output.hadWindow);
}

// Waits for a message box of the program and gives its text; no other window may be visible.
std::wstring TextOfOnlyBox(const Process& program, const std::wstring& title)
{
    const HWND box = program.Window(title);
    EXPECT_EQ(program.Windows(), std::vector<HWND>{box});
    constexpr int textControl = 0xFFFF;
    std::array<wchar_t, 1024> text{};
    SendMessageTimeoutW(GetDlgItem(box, textControl), WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_ABORTIFHUNG, 1000, nullptr);
    return text.data();
}

// A window of the test over the whole screen, in front of all others.
class Curtain
{
public:
    Curtain()
        : m_window(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, GetSystemMetrics(SM_CXSCREEN),
                                   GetSystemMetrics(SM_CYSCREEN), nullptr, nullptr, nullptr, nullptr))
    {
        SetForegroundWindow(m_window.get());
        EXPECT_TRUE(PumpUntil([this] { return GetForegroundWindow() == m_window.get(); }));
    }

    bool IsBehind(HWND window) const
    {
        while (window != nullptr && window != m_window.get())
        {
            window = GetWindow(window, GW_HWNDNEXT);
        }
        return window != nullptr;
    }

private:
    const UniqueWindow m_window;
};

// The running count of the viewers, taken by this process as another viewer would. Gives back what it has taken.
class RunningCount
{
public:
    // The count must be there already: a viewer runs.
    RunningCount() : m_handle(OpenSemaphoreW(SYNCHRONIZE | SEMAPHORE_MODIFY_STATE, FALSE, L"Kestrix"))
    {
        EXPECT_TRUE(m_handle);
    }

    ~RunningCount() { ReleaseSemaphore(m_handle.get(), m_nTaken, nullptr); }

    RunningCount(const RunningCount&) = delete;
    RunningCount& operator=(const RunningCount&) = delete;

    // Gives how many there were.
    LONG TakeAll()
    {
        LONG taken = 0;
        while (WaitForSingleObject(m_handle.get(), 0) == WAIT_OBJECT_0)
        {
            ++taken;
        }
        m_nTaken += taken;
        return taken;
    }

private:
    const UniqueKernelHandle m_handle;
    LONG m_nTaken = 0;
};

class InstanceTest : public ::testing::Test
{
protected:
    const LanguageFile m_language;
};

class SecondStartTest : public InstanceTest
{
protected:
    SecondStartTest() { EXPECT_NE(m_first.Form(), nullptr); }

    void ExpectTheFirstInFront() const
    {
        EXPECT_TRUE(PumpUntil([&] { return GetForegroundWindow() == m_first.Form(); }));
        EXPECT_FALSE(IsIconic(m_first.Form()));
        EXPECT_TRUE(IsWindowVisible(m_first.Form()));
        EXPECT_TRUE(m_curtain.IsBehind(m_first.Form()));
        EXPECT_EQ(m_first.Close(), 0u);
    }

    const Viewer m_first{EmptyForm};
    const Curtain m_curtain;
};

// The limit, and what the viewer makes of it.
struct Limit
{
    DWORD setting;
    LONG count;
};

class RunningCountTest : public InstanceTest, public ::testing::WithParamInterface<Limit>
{
protected:
    // All that the setting allows.
    void UseUp(RunningCount& count, const Viewer& viewer) const
    {
        EXPECT_EQ(count.TakeAll(), GetParam().count - 1);
        EXPECT_EQ(viewer.Close(), 0u);
        EXPECT_EQ(count.TakeAll(), 1);
    }

    const std::wstring m_strProduct = L"Name of the product";
    const RegistryValue m_product{L"Software\\Veldrane\\Zeptara", L"ProductName", m_strProduct};
    const RegistryValue m_maximum{EventLogKey, L"MaxLogCount", GetParam().setting};
};

// A viewer that starts and waits for a service that hangs.
class StartingViewerTest : public ServiceFixture
{
protected:
    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
};

// The program and the language file in a folder of their own.
class WithoutLibraryTest : public InstanceTest
{
protected:
    WithoutLibraryTest()
    {
        constexpr wchar_t texts[] = L"Kestrix.exe.mui";
        std::filesystem::copy_file(ProgramPath(), m_folder.File(L"Kestrix.exe"));
        std::filesystem::copy_file(ProgramFolder() + L"resource\\en-US\\" + texts, m_folder.File(texts));
    }

    const TemporaryFolder m_folder;
    const InstalledFolder m_installed; // empty
    const Tracing m_tracing{m_installed.Folder().Path()};
};

INSTANTIATE_TEST_SUITE_P(MaxLogCount, RunningCountTest, ::testing::Values(Limit{1, 1}, Limit{0, 14}, Limit{14, 14}),
                         [](const auto& parameter) { return std::to_string(parameter.param.setting); });

} // namespace

TEST_F(SecondStartTest, BringsAFormThatIsOpenToTheFrontAndEnds)
{
    ASSERT_FALSE(m_curtain.IsBehind(m_first.Form()));
    ExpectToEndWithoutAWindow();
    ExpectTheFirstInFront();
}

TEST_F(SecondStartTest, RestoresAMinimisedFormAndEnds)
{
    ShowWindowAsync(m_first.Form(), SW_MINIMIZE);
    ASSERT_TRUE(PumpUntil([&] { return IsIconic(m_first.Form()); }));
    ExpectToEndWithoutAWindow();
    ExpectTheFirstInFront();
}

TEST_F(StartingViewerTest, ASecondStartEndsWhileTheFirstHasNoFormYet)
{
    const Process service(ProgramFolder() + L"VdFrwkSvc.exe", L"-Embedding");
    ASSERT_TRUE(WaitUntil([] { return Service::IsRunning(); }));
    Service::Freeze();
    const Process first(ProgramPath(), EmptyForm);
    ASSERT_TRUE(WaitUntil([] { return bool(UniqueKernelHandle(OpenMutexW(SYNCHRONIZE, FALSE, InstanceMutex))); }));
    const Tracing tracing(m_service.Installed().Path());
    ExpectToEndWithoutAWindow();
    EXPECT_TRUE(tracing.Has("*** CKestrixApp::CheckInstance() - Cannot find existed window handle!!"));
    EXPECT_TRUE(tracing.Has("[InitInstance] Failed, Instance has already existed"));
    EXPECT_TRUE(first.Windows().empty());

    Service::Thaw();
    const HWND form = first.Window(Text(IDS_FORM_TITLE));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(CloseForm(first, form), 0u);
    Service::Kill(); // with its class object, which the end of the process alone leaves to all programs after it
}

TEST_P(RunningCountTest, AsManyViewersAsTheSettingAllowsAndOneMoreShowsAMessageAndNoForm)
{
    const Viewer viewer(EmptyForm);
    RunningCount count;
    UseUp(count, viewer);
    const Process oneMore(ProgramPath(), EmptyForm);
    EXPECT_EQ(TextOfOnlyBox(oneMore, m_strProduct), Text(IDS_TOO_MANY_VIEWERS));
    EXPECT_TRUE(WaitUntil(
        [&]
        {
            const HWND box = oneMore.HasEnded() ? nullptr : oneMore.Window(m_strProduct);
            PostMessageW(box, WM_COMMAND, IDOK, 0);
            return oneMore.HasEnded(200);
        }));
    EXPECT_EQ(oneMore.ExitCode(), 0u);
    EXPECT_EQ(count.TakeAll(), 0); // it had none to give back
}

TEST_P(RunningCountTest, WhileAnotherOneShowsTheMessageItEndsWithoutAWindow)
{
    const Viewer viewer(EmptyForm);
    RunningCount count;
    UseUp(count, viewer);
    const UniqueKernelHandle message(CreateMutexW(nullptr, FALSE, MaxCountMutex));
    ExpectToEndWithoutAWindow();
}

TEST_F(WithoutLibraryTest, EndsWithoutAWindow)
{
    ExpectToEndWithoutAWindow(m_folder.File(L"Kestrix.exe"));
    EXPECT_TRUE(m_tracing.Has("*** CKestrixApp::InitInstance() - InitializeOrlDbMgLibrary() failed. [0x80040240]"));
}
