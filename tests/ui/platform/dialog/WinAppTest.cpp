#include "platform/dialog/WinApp.h"

#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <stdexcept>

namespace
{

// Notes the steps of its life.
class StepApp : public RecordingApp
{
public:
    BOOL InitInstance() override
    {
        m_notes.push_back(Note(L"init", m_strCmdLine, m_nShow));
        if (m_throws)
        {
            throw std::runtime_error("start failed");
        }
        m_oleOpen = AfxOleInit();
        return m_goOn;
    }

    int Run() override
    {
        m_notes.push_back(L"run");
        PostQuitMessage(17);
        return CWinApp::Run();
    }

    int ExitInstance() override
    {
        m_notes.push_back(L"exit");
        return CWinApp::ExitInstance();
    }

    BOOL m_goOn = TRUE;
    bool m_throws = false;
    BOOL m_oleOpen = FALSE;
    Notes m_notes;
};

// Whether this thread has an apartment.
bool HasApartment()
{
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    return CoGetApartmentType(&type, &qualifier) == S_OK;
}

TEST(WinAppTest, IsTheApplicationWhileItLives)
{
    EXPECT_EQ(nullptr, AfxGetApp());
    {
        RecordingApp app;
        EXPECT_EQ(&app, AfxGetApp());
    }
    EXPECT_EQ(nullptr, AfxGetApp());
}

TEST(WinAppTest, RunsAndExitsWithTheLoopsExitCode)
{
    StepApp app;
    EXPECT_EQ(17, AfxWinMain(AfxGetInstanceHandle(), L"a \"b\" c", SW_SHOWMAXIMIZED));
    EXPECT_EQ((Notes{L"init a \"b\" c 3", L"run", L"exit"}), app.m_notes);
}

TEST(WinAppTest, ExitInstanceRunsAlsoWhenInitInstanceSaysNo)
{
    StepApp app;
    app.m_goOn = FALSE;
    EXPECT_EQ(0, AfxWinMain(AfxGetInstanceHandle(), L"", SW_SHOW));
    EXPECT_EQ((Notes{L"init  5", L"exit"}), app.m_notes);
}

TEST(WinAppTest, ExitInstanceRunsAlsoWhenInitInstanceThrows)
{
    StepApp app;
    app.m_throws = true;
    EXPECT_EQ(-1, AfxWinMain(AfxGetInstanceHandle(), nullptr, SW_SHOW));
    EXPECT_EQ((Notes{L"init  5", L"exit"}), app.m_notes);
    EXPECT_EQ(Notes{L"start failed"}, app.m_reports);
}

TEST(WinAppTest, WithoutAnApplicationThereIsNothingToRun)
{
    EXPECT_EQ(-1, AfxWinMain(AfxGetInstanceHandle(), L"", SW_SHOW));
}

TEST(WinAppTest, TheApartmentIsOpenFromAfxOleInitToTheEnd)
{
    StepApp app;
    app.m_goOn = FALSE;
    EXPECT_FALSE(HasApartment());
    AfxWinMain(AfxGetInstanceHandle(), L"", SW_SHOW);
    EXPECT_TRUE(app.m_oleOpen);
    EXPECT_FALSE(HasApartment());
}

TEST(WinAppTest, TheApartmentIsOpenedOnceAndClosedOnce)
{
    EXPECT_TRUE(AfxOleInit());
    EXPECT_TRUE(AfxOleInit());
    EXPECT_TRUE(HasApartment());
    AfxOleTerm();
    EXPECT_FALSE(HasApartment());
    AfxOleTerm();
}

TEST(WinAppTest, AThreadThatIsMultithreadedAlreadyIsRefused)
{
    ASSERT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    EXPECT_FALSE(AfxOleInit());
    CoUninitialize();
}

TEST(WinAppTest, TheModalOwnerIsTheMainWindow)
{
    EXPECT_EQ(nullptr, AfxGetModalOwner());
    RecordingApp app;
    EXPECT_EQ(nullptr, AfxGetModalOwner());
    PlainWindow window;
    CWnd main;
    app.m_pMainWnd = &main;
    EXPECT_EQ(nullptr, AfxGetModalOwner()); // no window yet
    ASSERT_TRUE(main.SubclassWindow(window.Get()));
    EXPECT_EQ(window.Get(), AfxGetModalOwner());
}

// The dialog that asks for a text to find is such a window: a box that belonged to it would leave the main window free.
TEST(WinAppTest, AWindowBesideTheMainWindowOwnsNothingAndOneModalAboveItDoes)
{
    RecordingApp app;
    CWnd main;
    app.m_pMainWnd = &main;
    ASSERT_TRUE(main.CWnd::Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE, {0, 0, 200, 100}, nullptr, 0));
    CWnd beside;
    ASSERT_TRUE(beside.CWnd::Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE, {0, 0, 100, 50}, main, 0));
    ::SetActiveWindow(beside);
    EXPECT_EQ(AfxGetModalOwner(), main.GetSafeHwnd());
    main.EnableWindow(false);
    EXPECT_EQ(AfxGetModalOwner(), beside.GetSafeHwnd());
}

TEST(WaitCursorTest, NestedCursorsGiveBackWhatStoodBefore)
{
    const HCURSOR before = LoadCursorW(nullptr, IDC_CROSS);
    const HCURSOR wait = LoadCursorW(nullptr, IDC_WAIT);
    SetCursor(before);
    {
        const CWaitCursor outer;
        EXPECT_EQ(wait, GetCursor());
        {
            const CWaitCursor inner;
            EXPECT_EQ(wait, GetCursor());
        }
        EXPECT_EQ(wait, GetCursor());
    }
    EXPECT_EQ(before, GetCursor());
}

} // namespace
