#include "framework/ui/kestrix/controls/CuteTabCtrl.h"

#include "tests/support/CommonControls.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/Ground.h"
#include "tests/ui/framework/ui/kestrix/controls/TabResources.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

extern "C" decltype(&::CreateFontIndirectW) __imp_CreateFontIndirectW;
extern "C" decltype(&::GetCursorPos) __imp_GetCursorPos;

namespace
{

constexpr RECT TabPlace{10, 10, 310, 150};
constexpr DWORD TabStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr COLORREF Background = RGB(240, 240, 250);
constexpr COLORREF Border = RGB(0, 0, 128);

class CuteTabCtrlTest : public ::testing::Test
{
protected:
    CuteTabCtrlTest()
    {
        RegisterCommonControls();
        m_tabs.Create(TabStyle, TabPlace, m_ground, 1);
        m_tabs.SetItemSize({80, 20});
        m_tabs.SetMinTabWidth(80);
        m_tabs.SetColours({.background = Background, .border = Border});
        m_tabs.SetBitmaps(IDB_TAB_NORMAL, IDB_TAB_CHOSEN);
        m_ground.Show();
    }

    void AddTabs(int count)
    {
        for (int i = 0; i < count; ++i)
        {
            m_tabs.InsertItem(i, L"tab");
        }
    }

    Picture Seen()
    {
        m_ground.PaintNow();
        return PictureOf(m_tabs);
    }

    // The columns in which the outline of a tab stands in this row: its left and right edges.
    std::vector<int> EdgesInRow(int y)
    {
        const Picture picture = Seen();
        std::vector<int> edges;
        for (int x = 1; x < picture.Width() - 1; ++x)
        {
            if (picture.At(x, y) == Border)
            {
                edges.push_back(x);
            }
        }
        return edges;
    }

    // The row of the tabs in which their sides are straight lines.
    int RowOfSides() const { return m_tabs.GetItemRect(0).bottom - 2; }

    Ground m_ground;
    CCuteTabCtrl m_tabs;
};

} // namespace

TEST_F(CuteTabCtrlTest, AStripStaysATabControlThatItsOwnerDraws)
{
    std::array<wchar_t, 32> name{};
    GetClassNameW(m_tabs, name.data(), static_cast<int>(name.size()));
    EXPECT_STREQ(name.data(), WC_TABCONTROLW);
    EXPECT_NE(m_tabs.GetStyle() & 8192, 0u);
}

TEST_F(CuteTabCtrlTest, WithNoTabTheStripIsTheBackgroundAlone)
{
    EXPECT_TRUE(Seen() == Picture(TabPlace.right - TabPlace.left, TabPlace.bottom - TabPlace.top, Background));
}

TEST_F(CuteTabCtrlTest, WithOnePageNoTabIsDrawnAndTheFrameStillIs)
{
    AddTabs(1);
    const int top = m_tabs.GetItemRect(0).bottom;
    const Picture picture = Seen();
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            const bool isSide = x == 0 || x == picture.Width() - 1;
            const bool isEnd = y == top || y == picture.Height() - 1;
            ASSERT_EQ(picture.At(x, y), y >= top && (isSide || isEnd) ? Border : Background) << x << ", " << y;
        }
    }
}

TEST_F(CuteTabCtrlTest, WithTwoTabsTheyStand20PixelsInFromBothEnds)
{
    AddTabs(2);
    const RECT first = m_tabs.GetItemRect(0);
    const RECT second = m_tabs.GetItemRect(1);
    const LONG apart = std::max(0L, 2 - (second.left - first.right)); // that the second moves away from the first
    const std::vector<int> expected{first.left + 20, first.right - 1, second.left + apart, second.right + apart - 21};
    EXPECT_EQ(EdgesInRow(RowOfSides()), expected);
}

TEST_F(CuteTabCtrlTest, ThreeTabsStandWithAtLeast2PixelsBetweenThem)
{
    AddTabs(3);
    const std::vector<int> edges = EdgesInRow(RowOfSides());
    ASSERT_EQ(edges.size(), 6u);
    EXPECT_EQ(edges[0], m_tabs.GetItemRect(0).left);
    for (const std::size_t right : {1, 3})
    {
        EXPECT_EQ(edges[right + 1] - edges[right], 3); // two pixels lie between the edges
    }
    for (const std::size_t left : {0, 2, 4})
    {
        const RECT tab = m_tabs.GetItemRect(static_cast<int>(left / 2));
        EXPECT_EQ(edges[left + 1] - edges[left], tab.right - tab.left - 1);
    }
}

TEST_F(CuteTabCtrlTest, TheSelectedTabAloneIsOpenToThePage)
{
    AddTabs(3);
    m_tabs.SetCurSel(1);
    const std::vector<int> edges = EdgesInRow(RowOfSides());
    ASSERT_EQ(edges.size(), 6u);
    const Picture picture = Seen();
    const int line = m_tabs.GetItemRect(0).bottom;
    for (int x = 0; x < picture.Width(); ++x)
    {
        const bool isOpen = x > edges[2] && x < edges[3];
        ASSERT_EQ(picture.At(x, line), isOpen ? Background : Border) << x;
    }
}

TEST_F(CuteTabCtrlTest, TheSelectedTabHasTheSecondBitmap)
{
    AddTabs(3);
    m_tabs.SetCurSel(2);
    const Picture picture = Seen();
    const int row = m_tabs.GetItemRect(0).bottom - 2;
    const std::vector<int> edges = EdgesInRow(row);
    ASSERT_EQ(edges.size(), 6u);
    EXPECT_EQ(picture.At(edges[0] + 3, row), RGB(0xa0, 0xa0, 0xa0));
    EXPECT_EQ(picture.At(edges[2] + 3, row), RGB(0xa0, 0xa0, 0xa0));
    EXPECT_EQ(picture.At(edges[4] + 3, row), RGB(0xc0, 0xff, 0xc0));
}

TEST_F(CuteTabCtrlTest, WithoutItsBitmapsATabIsItsOutlineAndItsText)
{
    AddTabs(2);
    const int row = m_tabs.GetItemRect(0).bottom - 8; // clear of the round corners
    const std::vector<int> edges = EdgesInRow(row);
    ASSERT_EQ(edges.size(), 4u);
    for (const UINT none : {UINT{0}, UINT{IDB_TAB_MISSING}})
    {
        m_tabs.SetBitmaps(none, none);
        EXPECT_EQ(EdgesInRow(row), edges);
        EXPECT_EQ(Seen().At(edges[0] + 3, row), Background);
    }
}

TEST_F(CuteTabCtrlTest, ScrollButtonsStayInSightBesideTabsThatHaveNoRoom)
{
    AddTabs(6);
    CWindow buttons(GetWindow(m_tabs, GW_CHILD));
    ASSERT_TRUE(buttons.IsWindowVisible());
    RECT place = buttons.GetWindowRect();
    m_tabs.ScreenToClient(place);
    const Picture alone = PictureOf(buttons);
    const Picture picture = Seen();
    for (int y = place.top; y < place.bottom; ++y)
    {
        for (int x = place.left; x < place.right; ++x)
        {
            ASSERT_EQ(picture.At(x, y), alone.At(x - place.left, y - place.top)) << x << ", " << y;
        }
    }
    for (int y = place.bottom; y < picture.Height(); ++y)
    {
        ASSERT_EQ(picture.At(picture.Width() - 1, y), Background) << y; // the column of the buttons is left free
    }
    EXPECT_EQ(picture.At(0, picture.Height() - 1), Border);
}

TEST_F(CuteTabCtrlTest, AnOwnCursorStandsOverATabAlone)
{
    AddTabs(2);
    const HCURSOR hand = LoadCursorW(nullptr, IDC_HAND);
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    static POINT s_pointer;
    const ImportPatch<decltype(&::GetCursorPos)> patch(__imp_GetCursorPos,
                                                       [](POINT* point) -> BOOL
                                                       {
                                                           *point = s_pointer;
                                                           return TRUE;
                                                       });
    const auto cursorAt = [this, arrow](LONG x, LONG y)
    {
        s_pointer = {x, y};
        ClientToScreen(m_tabs, &s_pointer);
        SetCursor(arrow);
        m_tabs.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_tabs.GetSafeHwnd()),
                           MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    const RECT tab = m_tabs.GetItemRect(1);
    EXPECT_EQ(cursorAt(tab.left + 10, tab.top + 5), arrow);
    m_tabs.SetCursor(hand);
    EXPECT_EQ(cursorAt(tab.left + 10, tab.top + 5), hand);
    EXPECT_EQ(m_tabs.SendMessage(WM_SETCURSOR), TRUE);
    EXPECT_EQ(cursorAt(tab.left + 10, tab.bottom + 40), arrow);
    EXPECT_EQ(cursorAt(tab.right + 40, tab.top + 5), arrow);
}

TEST_F(CuteTabCtrlTest, FocusAndEnablingPaintTheGroundUnderTheStripAtOnce)
{
    AddTabs(2);
    for (const UINT message : {WM_SETFOCUS, WM_KILLFOCUS, WM_ENABLE})
    {
        m_ground.PaintNow();
        m_ground.m_arrReached.clear();
        m_tabs.SendMessage(message);
        EXPECT_EQ(m_ground.CountOf(WM_ERASEBKGND), 1) << message;
        EXPECT_FALSE(GetUpdateRect(m_ground, nullptr, FALSE)) << message;
    }
}

TEST_F(CuteTabCtrlTest, TheFocusIsMarkedOnTheSelectedTabWhileTheStripHasIt)
{
    AddTabs(2);
    const Picture before = Seen();
    m_tabs.SendMessage(WM_SETFOCUS);
    EXPECT_FALSE(Seen() == before);
    m_tabs.SendMessage(WM_KILLFOCUS);
    EXPECT_TRUE(Seen() == before);
}

TEST_F(CuteTabCtrlTest, TheFontsAreThoseOfTheParentUntilOthersAreSet)
{
    static std::vector<LOGFONTW> s_fonts;
    s_fonts.clear();
    static decltype(&::CreateFontIndirectW) s_original;
    const ImportPatch<decltype(&::CreateFontIndirectW)> patch(__imp_CreateFontIndirectW,
                                                              [](const LOGFONTW* font)
                                                              {
                                                                  s_fonts.push_back(*font);
                                                                  return s_original(font);
                                                              });
    s_original = patch.Original();
    CCuteTabCtrl tabs;
    tabs.Create(TabStyle, TabPlace, m_ground, 2);
    LOGFONTW parents{};
    ASSERT_TRUE(m_ground.m_font.GetLogFont(parents));
    ASSERT_EQ(s_fonts.size(), 2u);
    for (const LOGFONTW& font : s_fonts)
    {
        EXPECT_EQ(memcmp(&font, &parents, sizeof font), 0);
    }
}

TEST_F(CuteTabCtrlTest, NewFontsShowAndTheOldOnesGo)
{
    AddTabs(2);
    const Picture before = Seen();
    LOGFONTW font{};
    ASSERT_TRUE(m_ground.m_font.GetLogFont(font));
    LOGFONTW bold = font;
    bold.lfWeight = FW_BOLD;
    const std::vector<long> handles = OwnedHandles();
    EXPECT_TRUE(m_tabs.SetFonts(font, bold));
    EXPECT_EQ(OwnedHandles(), handles);
    EXPECT_FALSE(Seen() == before);
}

TEST_F(CuteTabCtrlTest, FontsThatTheSystemRefusesLeaveTheTabsAsTheyAre)
{
    AddTabs(2);
    const Picture before = Seen();
    const std::vector<long> handles = OwnedHandles();
    {
        const ImportPatch<decltype(&::CreateFontIndirectW)> patch(__imp_CreateFontIndirectW,
                                                                  [](const LOGFONTW*) -> HFONT { return nullptr; });
        EXPECT_FALSE(m_tabs.SetFonts({}, {}));
    }
    EXPECT_EQ(OwnedHandles(), handles);
    EXPECT_TRUE(Seen() == before);
}

TEST_F(CuteTabCtrlTest, AStripOnAParentWithoutAFontIsPainted)
{
    m_ground.SetFont(nullptr);
    CCuteTabCtrl tabs;
    ASSERT_TRUE(tabs.Create(TabStyle, TabPlace, m_ground, 2));
    tabs.InsertItem(0, L"one");
    tabs.InsertItem(1, L"two");
    m_tabs.ShowWindow(SW_HIDE);
    EXPECT_EQ(PictureOf(tabs).At(0, TabPlace.bottom - TabPlace.top - 1), RGB(0, 0, 0));
}

TEST_F(CuteTabCtrlTest, AThousandStripsLeaveNothingBehind)
{
    const auto useOnce = [this]
    {
        CCuteTabCtrl tabs;
        tabs.Create(TabStyle, TabPlace, m_ground, 2);
        tabs.SetBitmaps(IDB_TAB_NORMAL, IDB_TAB_CHOSEN);
        tabs.InsertItem(0, L"one");
        tabs.InsertItem(1, L"two");
        tabs.UpdateWindow();
    };
    ExpectAThousandToLeaveNothing(useOnce);
}
