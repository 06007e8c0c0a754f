#include "platform/dialog/MessageLoop.h"

#include "tests/ui/platform/dialog/ScriptDialog.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

constexpr UINT MessageLoopProbe = WM_APP + 7;

// Notes that it was asked about Probe, and takes it where it shall.
class CAsked : public CWnd
{
public:
    CAsked(Notes& notes, const wchar_t* name) : m_notes(notes), m_name(name) {}

    BOOL PreTranslateMessage(MSG& message) override
    {
        if (message.message == MessageLoopProbe)
        {
            m_notes.push_back(m_name);
            return m_takes;
        }
        return FALSE;
    }

    bool m_takes = false;

private:
    Notes& m_notes;
    const wchar_t* const m_name;
};

class MessageLoopTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_outer.SubclassWindow(m_outerWindow.Get()));
        ASSERT_TRUE(m_top.SubclassWindow(m_topWindow.Get()));
        ASSERT_TRUE(m_inner.SubclassWindow(m_innerWindow.Get()));
    }

    // Posts one message to the innermost window and runs the loop until it is through.
    void RunProbe(HWND top)
    {
        PostMessageW(m_innerWindow.Get(), MessageLoopProbe, 0, 0);
        PostMessageW(m_innerWindow.Get(), MessageLoopProbe + 1, 0, 0);
        int exitCode = 0;
        EXPECT_TRUE(RunMessageLoop(
            top, [this] { return m_innerWindow.CountOf(MessageLoopProbe + 1) == 1; }, exitCode));
    }

    Notes m_notes;
    PlainWindow m_outerWindow;
    PlainWindow m_topWindow{m_outerWindow.Get()};
    PlainWindow m_plain{m_topWindow.Get()}; // has no object
    PlainWindow m_innerWindow{m_plain.Get()};
    CAsked m_outer{m_notes, L"outer"};
    CAsked m_top{m_notes, L"top"};
    CAsked m_inner{m_notes, L"inner"};
};

TEST_F(MessageLoopTest, AsksFromTheMessagesWindowUpToTheTopAndNotBeyond)
{
    RunProbe(m_topWindow.Get());
    EXPECT_EQ((Notes{L"inner", L"top"}), m_notes);
    EXPECT_EQ(1, m_innerWindow.CountOf(MessageLoopProbe));
}

TEST_F(MessageLoopTest, WithoutATopAsksAll)
{
    RunProbe(nullptr);
    EXPECT_EQ((Notes{L"inner", L"top", L"outer"}), m_notes);
}

TEST_F(MessageLoopTest, AMessageThatIsTakenGoesNoFurther)
{
    m_inner.m_takes = true;
    RunProbe(m_topWindow.Get());
    EXPECT_EQ(Notes{L"inner"}, m_notes);
    EXPECT_EQ(0, m_innerWindow.CountOf(MessageLoopProbe));
}

TEST_F(MessageLoopTest, IsAskedBeforeTheFirstMessageWhetherItIsDone)
{
    int exitCode = 0;
    EXPECT_TRUE(RunMessageLoop(
        nullptr, [] { return true; }, exitCode));
}

TEST_F(MessageLoopTest, QuitEndsItWithTheExitCode)
{
    PostQuitMessage(21);
    int exitCode = 0;
    EXPECT_FALSE(RunMessageLoop(
        nullptr, [] { return false; }, exitCode));
    EXPECT_EQ(21, exitCode);
}

TEST_F(MessageLoopTest, AnExceptionOfAnObjectThatIsAskedIsReportedAndTakesTheMessage)
{
    class CThrowing : public CWnd
    {
        BOOL PreTranslateMessage(MSG& message) override
        {
            return message.message == MessageLoopProbe ? throw std::runtime_error("asked") : FALSE;
        }
    };

    RecordingApp app;
    CThrowing object;
    ASSERT_TRUE(object.SubclassWindow(m_plain.Get()));
    RunProbe(m_topWindow.Get());
    EXPECT_EQ(Notes{L"asked"}, app.m_reports);
    EXPECT_EQ(Notes{L"inner"}, m_notes);
    EXPECT_EQ(0, m_innerWindow.CountOf(MessageLoopProbe));
}

TEST(MessageLoopOfDialogTest, KeysOfADialogMoveTheFocusAndEndIt)
{
    CScriptDialog dialog;
    int focused = 0;
    dialog.m_inLoop = [&focused](CScriptDialog& self)
    {
        PostMessageW(self.GetDlgItem(IDC_TEST_EDIT), WM_KEYDOWN, VK_TAB, 0);
        PostMessageW(self.GetDlgItem(IDC_TEST_EDIT), WM_KEYDOWN, VK_ESCAPE, 0);
        self.m_inPreTranslate = [&focused](MSG& message)
        {
            if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE)
            {
                focused = GetDlgCtrlID(GetFocus());
            }
            return FALSE;
        };
    };
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ(IDC_TEST_BUTTON, focused);
}

TEST(MessageLoopOfDialogTest, AKeyThatTheDialogSwallowsDoesNotEndIt)
{
    CScriptDialog dialog;
    int swallowed = 0;
    dialog.m_inPreTranslate = [&](MSG& message)
    {
        const bool isEscape = message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
        swallowed += isEscape;
        return isEscape;
    };
    dialog.m_inLoop = [](CScriptDialog& self)
    {
        PostMessageW(self.GetDlgItem(IDC_TEST_EDIT), WM_KEYDOWN, VK_ESCAPE, 0);
        self.m_inLoop = [](CScriptDialog& dialog) { dialog.EndDialog(5); };
        self.PostMessage(WM_APP + 1);
    };
    EXPECT_EQ(5, dialog.DoModal());
    EXPECT_EQ(1, swallowed);
}

TEST(MessageLoopOfDialogTest, TheKeysOfAChildDialogAreThoseOfTheOneAroundIt)
{
    CScriptDialog form;
    CScriptDialog page;
    bool seen = false;
    bool left = false;
    form.m_inLoop = [&](CScriptDialog& self)
    {
        ASSERT_TRUE(page.Create(IDD_TEST_CHILD, &self));
        const HWND inside = page.GetDlgItem(IDC_TEST_EDIT);
        SetFocus(inside);
        PostMessageW(inside, WM_KEYDOWN, VK_TAB, 0);
        self.m_inPreTranslate = [&seen, inside](MSG& message)
        {
            seen |= message.hwnd == inside && message.message == WM_KEYDOWN;
            return FALSE;
        };
        self.m_inLoop = [&left, inside](CScriptDialog& dialog)
        {
            left = GetFocus() != inside && GetParent(GetFocus()) == dialog.GetSafeHwnd();
            dialog.EndDialog(1);
        };
        self.PostMessage(WM_APP + 1);
    };
    EXPECT_EQ(1, form.DoModal());
    EXPECT_TRUE(seen); // by the form's PreTranslateMessage
    EXPECT_TRUE(left); // Tab walked out of the page
}

} // namespace
