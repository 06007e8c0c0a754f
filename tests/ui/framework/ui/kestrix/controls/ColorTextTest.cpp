#include "tests/ui/framework/ui/kestrix/controls/ColorTextTest.h"

#include "tests/support/ImportPatch.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <optional>

extern "C" decltype(&::TrackMouseEvent) __imp_TrackMouseEvent;

TEST_F(ColorTextTest, ALinkTakesItsHoverColourUnderThePointer)
{
    m_text.EnableHover(true);
    EXPECT_TRUE(Shows(Seen(), TextColour));
    Hover();
    EXPECT_TRUE(Shows(Seen(), HoverColour)); // pure red until another is set
    EXPECT_FALSE(Shows(Seen(), TextColour));
    m_text.SetHoverColour(RGB(0, 128, 0));
    EXPECT_TRUE(Shows(Seen(), RGB(0, 128, 0)));
}

TEST_F(ColorTextTest, ALinkThatLosesThePointerBetweenHoverAndLeaveReturnsToItsTextColour)
{
    m_text.EnableHover(true);
    const Picture before = Seen();
    Hover();
    EXPECT_FALSE(Seen() == before);
    Leave(); // no move comes in between
    EXPECT_TRUE(Seen() == before);
}

TEST_F(ColorTextTest, ASmoothedLinkKeepsNoRimOfItsHoverColour)
{
    LOGFONTW font{};
    ASSERT_TRUE(m_ground.m_font.GetLogFont(font));
    font.lfQuality = ANTIALIASED_QUALITY;
    ASSERT_TRUE(m_ground.m_font.CreateFontIndirect(font));
    m_ground.SetFont(m_ground.m_font);
    m_text.SetFontLook({.height = 30}); // small characters are not smoothed
    m_text.EnableHover(true);
    m_ground.PaintNow();
    const Picture before = OnScreen();
    ASSERT_TRUE(HasOtherColourThan(before, TextColour, Ground::Colour)) << "the characters are not smoothed";
    Hover();
    ASSERT_TRUE(WaitUntil([this] { return !IsInvalid(); }));
    EXPECT_FALSE(OnScreen() == before);
    Leave();
    ASSERT_TRUE(WaitUntil([this] { return !IsInvalid(); }));
    EXPECT_TRUE(OnScreen() == before);
}

TEST_F(ColorTextTest, ALabelWithoutHoveringKeepsItsColour)
{
    const Picture before = Seen();
    Hover();
    EXPECT_FALSE(IsInvalid());
    EXPECT_TRUE(Seen() == before);
    Leave();
    EXPECT_FALSE(IsInvalid());
}

TEST_F(ColorTextTest, HoverAndLeavePaintAnewOnlyWhenTheyChangeSomething)
{
    m_text.EnableHover(true);
    Seen();
    Leave();
    EXPECT_FALSE(IsInvalid());
    Hover();
    EXPECT_TRUE(IsInvalid());
    Seen();
    Hover();
    EXPECT_FALSE(IsInvalid());
    Leave();
    EXPECT_TRUE(IsInvalid());
}

TEST_F(ColorTextTest, AMoveAsksForHoverAndLeaveAfterOneMillisecond)
{
    static std::optional<TRACKMOUSEEVENT> s_asked;
    s_asked.reset();
    const ImportPatch<decltype(&::TrackMouseEvent)> patch(__imp_TrackMouseEvent,
                                                          [](TRACKMOUSEEVENT* track) -> BOOL
                                                          {
                                                              s_asked = *track;
                                                              return TRUE;
                                                          });
    m_text.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    ASSERT_TRUE(s_asked.has_value());
    EXPECT_EQ(s_asked->dwFlags, 3u);
    EXPECT_EQ(s_asked->hwndTrack, static_cast<HWND>(m_text));
    EXPECT_EQ(s_asked->dwHoverTime, 1u);
}

TEST_F(ColorTextTest, ThePointerItselfMakesALinkHotAndLeavesIt)
{
    m_text.EnableHover(true);
    POINT over{Place.left + 5, Place.top + 5};
    ClientToScreen(m_ground, &over);
    ASSERT_TRUE(SetCursorPos(over.x, over.y));
    EXPECT_TRUE(WaitUntil([this] { return Shows(Seen(), HoverColour); }));
    ASSERT_TRUE(SetCursorPos(over.x + 300, over.y + 300));
    EXPECT_TRUE(WaitUntil([this] { return Shows(Seen(), TextColour); }));
}

TEST_F(ColorTextTest, SpacePressesALink)
{
    m_text.SendMessage(WM_KEYDOWN, VK_SPACE);
    EXPECT_TRUE(m_ground.m_arrReached.empty());
    m_text.SendMessage(WM_KEYUP, VK_SPACE);
    ASSERT_TRUE(WaitUntil([this] { return m_ground.CountOf(WM_COMMAND) != 0; }));
    const Ground::Reached command = m_ground.FirstOf(WM_COMMAND);
    EXPECT_EQ(command.wParam, WPARAM{Id});
    EXPECT_EQ(command.lParam, reinterpret_cast<LPARAM>(m_text.GetSafeHwnd()));
}

TEST_F(ColorTextTest, NoOtherKeyPressesALink)
{
    for (const WPARAM key : {VK_RETURN, VK_TAB, VK_SHIFT})
    {
        m_text.SendMessage(WM_KEYUP, key);
    }
    m_ground.PostMessage(WM_USER);
    ASSERT_TRUE(WaitUntil([this] { return m_ground.CountOf(WM_USER) != 0; }));
    EXPECT_EQ(m_ground.CountOf(WM_COMMAND), 0);
}

TEST_F(ColorTextTest, AClickComesAsACommandToTheParent)
{
    m_text.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 4));
    EXPECT_EQ(m_ground.FirstOf(WM_COMMAND).wParam, MAKEWPARAM(Id, STN_CLICKED));
}

TEST_F(ColorTextTest, TheNotifyWindowGetsACopyOfEachClickWithZeroArguments)
{
    PlainWindow other;
    m_text.SetNotifyWindow(other.Get());
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK})
    {
        other.m_reached.clear();
        m_text.SendMessage(message, MK_LBUTTON, MAKELPARAM(3, 4));
        ASSERT_TRUE(WaitUntil([&] { return other.CountOf(message) == 1; })) << message;
        const auto copy = std::ranges::find(other.m_reached, message, &PlainWindow::Reached::message);
        EXPECT_EQ(copy->wParam, 0u);
        EXPECT_EQ(copy->lParam, 0);
    }
    m_text.SetNotifyWindow(nullptr);
    other.m_reached.clear();
    m_text.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON);
    SendMessageW(other.Get(), WM_USER, 0, 0);
    PostMessageW(other.Get(), WM_USER + 1, 0, 0);
    ASSERT_TRUE(WaitUntil([&] { return other.CountOf(WM_USER + 1) == 1; }));
    EXPECT_EQ(other.CountOf(WM_LBUTTONDOWN), 0);
}

TEST_F(ColorTextTest, MouseAndKeysGoOnToTheDefault)
{
    PlainWindow plain(m_ground, Id + 1);
    CColorText text;
    ASSERT_TRUE(text.SubclassWindow(plain.Get()));
    plain.m_reached.clear();
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_KEYUP, WM_MOUSEMOVE, WM_SETFOCUS,
                               WM_KILLFOCUS, WM_ENABLE, WM_SETCURSOR})
    {
        text.SendMessage(message);
        EXPECT_EQ(plain.CountOf(message), 1) << message;
    }
}

TEST_F(ColorTextTest, AnUpdateOfTheUiStateGoesOnUnlessItIsAboutAccelerators)
{
    PlainWindow plain(m_ground, Id + 1);
    CColorText text;
    ASSERT_TRUE(text.SubclassWindow(plain.Get()));
    text.SendMessage(WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEACCEL));
    text.SendMessage(WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS));
    EXPECT_EQ(plain.CountOf(WM_UPDATEUISTATE), 0);
    text.SendMessage(WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS));
    EXPECT_EQ(plain.CountOf(WM_UPDATEUISTATE), 1);
}

TEST_F(ColorTextTest, TheOwnCursorStandsOverTheLabel)
{
    const HCURSOR hand = LoadCursorW(nullptr, IDC_HAND);
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    const auto ask = [this, arrow]
    {
        SetCursor(arrow);
        m_text.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_text.GetSafeHwnd()),
                           MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    EXPECT_EQ(ask(), arrow);
    m_text.SetCursor(hand);
    EXPECT_EQ(ask(), hand);
    EXPECT_EQ(m_text.SendMessage(WM_SETCURSOR), TRUE);
    m_text.SetCursor(nullptr);
    EXPECT_EQ(ask(), arrow);
}

TEST_F(ColorTextTest, ALinkIsReachedByTheTabKeyOnlyWithATabStop)
{
    EXPECT_EQ(GetNextDlgTabItem(m_ground, nullptr, FALSE), static_cast<HWND>(m_text));
    m_text.ModifyStyle(WS_TABSTOP, 0);
    EXPECT_EQ(GetNextDlgTabItem(m_ground, nullptr, FALSE), nullptr);
}
