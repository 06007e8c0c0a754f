// The label that the keyboard clicks too: when the Tab key comes to it, its focus, and Space.

#include "framework/ui/kestrix/controls/ClickText.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/Ground.h"

namespace
{

constexpr int ClickId = 1010;
constexpr RECT ClickPlace{20, 20, 180, 40};

class ClickTextTest : public ::testing::Test
{
protected:
    ClickTextTest()
    {
        m_text.Create(L"path", WS_CHILD | WS_VISIBLE | SS_NOTIFY | SS_NOPREFIX, ClickPlace, m_ground, ClickId);
        m_text.SetClickable(true);
        m_ground.Show();
        m_ground.m_arrReached.clear();
    }

    bool IsTabStop() const { return (m_text.GetStyle() & WS_TABSTOP) != 0; }

    // The clicks that the parent is told of.
    long Clicks()
    {
        MSG message{};
        while (::PeekMessageW(&message, m_ground, WM_COMMAND, WM_COMMAND, PM_REMOVE))
        {
            ::DispatchMessageW(&message);
        }
        return m_ground.CountOf(WM_COMMAND);
    }

    // What stands on the screen once what is due has been painted, and nothing more.
    Picture Shown()
    {
        m_text.UpdateWindow();
        constexpr SIZE size{ClickPlace.right - ClickPlace.left, ClickPlace.bottom - ClickPlace.top};
        return PictureOf(size,
                         [&](HDC dc)
                         {
                             const CClientDC screen(m_text);
                             BitBlt(dc, 0, 0, size.cx, size.cy, screen, 0, 0, SRCCOPY);
                         });
    }

    Ground m_ground;
    CClickText m_text;
};

} // namespace

TEST_F(ClickTextTest, TheTabKeyComesToOneWithATextThatCanBeClicked)
{
    EXPECT_TRUE(IsTabStop());
    EXPECT_EQ(::GetNextDlgTabItem(m_ground, nullptr, FALSE), m_text.GetSafeHwnd());
}

TEST_F(ClickTextTest, TheTabKeyPassesOverOneWithoutAText)
{
    m_text.SetWindowText({});
    EXPECT_FALSE(IsTabStop());
    m_text.SetWindowText(L"another");
    EXPECT_TRUE(IsTabStop());
}

TEST_F(ClickTextTest, TheTabKeyPassesOverOneThatCannotBeClicked)
{
    m_text.SetClickable(false);
    EXPECT_FALSE(IsTabStop());
    m_text.SetWindowText(L"another");
    EXPECT_FALSE(IsTabStop());
}

TEST_F(ClickTextTest, SpaceTellsTheParentOfAClickAsTheMouseDoes)
{
    m_text.SendMessage(WM_KEYUP, VK_SPACE);
    ASSERT_EQ(Clicks(), 1);
    const Ground::Reached byKey = m_ground.FirstOf(WM_COMMAND);
    m_ground.m_arrReached.clear();
    m_text.SendMessage(WM_LBUTTONDOWN);
    m_text.SendMessage(WM_LBUTTONUP);
    ASSERT_EQ(Clicks(), 1);
    const Ground::Reached byMouse = m_ground.FirstOf(WM_COMMAND);
    EXPECT_EQ(byKey.wParam, byMouse.wParam);
    EXPECT_EQ(byKey.lParam, byMouse.lParam);
}

TEST_F(ClickTextTest, OtherKeysAndOneThatCannotBeClickedTellNothing)
{
    m_text.SendMessage(WM_KEYUP, VK_RETURN);
    m_text.SetClickable(false);
    m_text.SendMessage(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(Clicks(), 0);
}

TEST_F(ClickTextTest, ARectangleAroundTheTextShowsTheFocus)
{
    const Picture without = Shown();
    m_text.SetFocus();
    ASSERT_EQ(::GetFocus(), m_text.GetSafeHwnd());
    const Picture with = Shown();
    EXPECT_NE(with, without);
    m_ground.SetFocus();
    EXPECT_EQ(Shown(), without);
}

TEST_F(ClickTextTest, PaintingAgainKeepsTheFocusInSight)
{
    m_text.SetFocus();
    const Picture once = Shown();
    for (const RECT& part : {RECT{0, 0, 10, 10}, RECT{5, 5, 60, 20}})
    {
        m_text.InvalidateRect(part, false);
        m_text.UpdateWindow();
        EXPECT_EQ(Shown(), once);
    }
}

TEST_F(ClickTextTest, ANewTextKeepsTheFocusInSight)
{
    m_text.SetWindowText(L"another");
    const Picture without = Shown();
    m_text.SetFocus();
    const Picture with = Shown();
    ASSERT_NE(with, without);
    m_text.SetWindowText(L"path");
    m_text.SetWindowText(L"another");
    EXPECT_EQ(Shown(), with);
}

TEST_F(ClickTextTest, TheFocusOfALongTextStaysInsideTheLabel)
{
    m_text.SetWindowText(std::wstring(100, L'W'));
    m_text.SetFocus();
    const Picture shown = Shown();
    m_ground.SetFocus();
    const Picture without = Shown();
    int dots = 0;
    for (int y = 0; y < shown.Height(); ++y)
    {
        dots += shown.At(shown.Width() - 1, y) != without.At(shown.Width() - 1, y);
    }
    EXPECT_GE(dots, shown.Height() / 2 - 1) << "the right side of the rectangle";
}
