// The system's dialog that asks for a text to look for, as this program opens, drives and hears it.

#include "platform/dialog/FindTextDialog.h"

#include "platform/dialog/MessageLoop.h"
#include "tests/support/FindDialogKit.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

using Event = CFindTextDialog::Event;

// A window that opens the dialog and keeps what it tells.
class Asker : public CWnd
{
public:
    Asker()
    {
        m_top.Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE, {0, 0, 400, 300}, nullptr, 0);
        CWnd::Create(L"STATIC", {}, WS_CHILD | WS_VISIBLE, {10, 10, 300, 200}, m_top, 0);
    }

    FindDialogKit Open()
    {
        EXPECT_TRUE(m_dialog->Open(m_hWnd));
        return FindDialogKit(m_top);
    }

    CWnd m_top;
    std::unique_ptr<CFindTextDialog> m_dialog = std::make_unique<CFindTextDialog>();
    std::vector<Event> m_events;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const Event event = m_dialog != nullptr ? m_dialog->Take(message, lParam) : Event::None;
        if (event == Event::None)
        {
            return CWnd::WindowProc(message, wParam, lParam);
        }
        m_events.push_back(event);
        return 0;
    }
};

class FindTextDialogTest : public ::testing::Test
{
protected:
    Asker m_asker;
};

} // namespace

TEST_F(FindTextDialogTest, BelongsToTheTopLevelWindowOfTheOneThatAsks)
{
    const FindDialogKit dialog = m_asker.Open();
    ASSERT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.Text(), L"");
    EXPECT_TRUE(dialog.IsChecked(FindDialogKit::Down));
    EXPECT_FALSE(dialog.IsChecked(FindDialogKit::MatchCase));
    EXPECT_FALSE(dialog.IsChecked(FindDialogKit::WholeWords));
    EXPECT_TRUE(m_asker.m_top.IsWindowEnabled()) << "modeless";
}

TEST_F(FindTextDialogTest, EachPressOfItsButtonTellsWhatIsWanted)
{
    const FindDialogKit dialog = m_asker.Open();
    dialog.Type(L"\xD842\xDFB7 text");
    dialog.FindNext();
    EXPECT_EQ(m_asker.m_dialog->Request().text, L"\xD842\xDFB7 text");
    EXPECT_TRUE(m_asker.m_dialog->Request().down);
    EXPECT_FALSE(m_asker.m_dialog->Request().matchCase);
    EXPECT_FALSE(m_asker.m_dialog->Request().wholeWords);
    dialog.Type(L"other");
    dialog.Click(FindDialogKit::Up);
    dialog.Click(FindDialogKit::MatchCase);
    dialog.Click(FindDialogKit::WholeWords);
    dialog.FindNext();
    EXPECT_EQ(m_asker.m_dialog->Request().text, L"other");
    EXPECT_FALSE(m_asker.m_dialog->Request().down);
    EXPECT_TRUE(m_asker.m_dialog->Request().matchCase);
    EXPECT_TRUE(m_asker.m_dialog->Request().wholeWords);
    EXPECT_EQ(m_asker.m_events, (std::vector{Event::FindNext, Event::FindNext}));
}

TEST_F(FindTextDialogTest, TellsThatItClosesAndCanBeOpenedAgainWithWhatWasLookedForLast)
{
    const FindDialogKit first = m_asker.Open();
    first.Type(L"text");
    first.Click(FindDialogKit::Up);
    first.Click(FindDialogKit::WholeWords);
    first.FindNext();
    first.Type(L"not looked for");
    first.Cancel();
    EXPECT_FALSE(first.IsOpen());
    EXPECT_EQ(m_asker.m_events.back(), Event::Closes);
    EXPECT_EQ(m_asker.m_dialog->Request().text, L"text");
    const FindDialogKit second = m_asker.Open();
    ASSERT_TRUE(second.IsOpen());
    EXPECT_EQ(second.Text(), L"text");
    EXPECT_TRUE(second.IsChecked(FindDialogKit::Up));
    EXPECT_TRUE(second.IsChecked(FindDialogKit::WholeWords));
    EXPECT_FALSE(second.IsChecked(FindDialogKit::MatchCase));
}

TEST_F(FindTextDialogTest, OneThatIsOpenIsBroughtToTheFrontInsteadOfASecond)
{
    const FindDialogKit first = m_asker.Open();
    first.Type(L"half a te");
    ::SetActiveWindow(m_asker.m_top);
    const FindDialogKit second = m_asker.Open();
    EXPECT_EQ(second.Window().GetSafeHwnd(), first.Window().GetSafeHwnd());
    EXPECT_EQ(::GetActiveWindow(), first.Window().GetSafeHwnd());
    EXPECT_EQ(second.Text(), L"half a te");
}

TEST_F(FindTextDialogTest, GoesWithItsObjectAndWithItsOwner)
{
    const FindDialogKit first = m_asker.Open();
    m_asker.m_dialog.reset();
    EXPECT_FALSE(first.IsOpen());
    m_asker.m_dialog = std::make_unique<CFindTextDialog>();
    const FindDialogKit second = m_asker.Open();
    m_asker.m_top.DestroyWindow();
    EXPECT_FALSE(second.IsOpen());
    EXPECT_EQ(m_asker.m_dialog->GetSafeHwnd(), nullptr);
}

// In the loop of the dialog that it stands beside, whose own keys are others.
TEST_F(FindTextDialogTest, TakesItsKeysInTheLoopOfAnotherWindow)
{
    const FindDialogKit dialog = m_asker.Open();
    dialog.Type(L"text");
    dialog.TextField().SetFocus();
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE})
    {
        dialog.TextField().PostMessage(WM_KEYDOWN, key, 1);
    }
    constexpr UINT pace = 50; // milliseconds between two looks when nothing happens
    const ULONGLONG limit = ::GetTickCount64() + 10'000;
    ::SetTimer(m_asker.m_top, 1, pace, nullptr);
    int exitCode = 0;
    RunMessageLoop(
        m_asker.m_top, [&] { return !dialog.IsOpen() || ::GetTickCount64() > limit; }, exitCode);
    EXPECT_EQ(m_asker.m_events, (std::vector{Event::FindNext, Event::Closes}));
}

TEST_F(FindTextDialogTest, OtherMessagesAreLeftAlone)
{
    FINDREPLACEW other{};
    const UINT message = ::RegisterWindowMessageW(FINDMSGSTRINGW);
    EXPECT_EQ(m_asker.m_dialog->Take(message, reinterpret_cast<LPARAM>(&other)), Event::None);
    EXPECT_EQ(m_asker.m_dialog->Take(WM_COMMAND, 0), Event::None);
}
