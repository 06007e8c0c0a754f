#include "framework/ui/kestrix/controls/CuteTabCtrl.h"

#include "tests/support/CommonControls.h"
#include "tests/support/Picture.h"
#include "tests/support/StandingScale.h"
#include "tests/ui/framework/ui/kestrix/controls/Ground.h"
#include "tests/ui/framework/ui/kestrix/controls/TabResources.h"

#include <gtest/gtest.h>

#include <array>

namespace
{

constexpr std::array Titles{L"Report", L"Logs", L"More", L"And more", L"Last"};

class CuteTabCtrlPictureTest : public ::testing::Test
{
protected:
    CuteTabCtrlPictureTest()
    {
        RegisterCommonControls();
        m_tabs.Create(WS_CHILD | WS_VISIBLE, {0, 0, 300, 70}, m_ground, 1);
        m_tabs.SetItemSize({90, 20});
        m_tabs.SetMinTabWidth(90);
        m_tabs.SetBitmaps(IDB_TAB_NORMAL, IDB_TAB_CHOSEN);
        m_ground.Show();
    }

    Picture With(std::size_t count, int selected)
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            m_tabs.InsertItem(static_cast<int>(i), Titles.at(i));
        }
        m_tabs.SetCurSel(selected);
        return Seen();
    }

    Picture Seen()
    {
        m_ground.PaintNow();
        return PictureOf(m_tabs);
    }

    Ground m_ground;
    CCuteTabCtrl m_tabs;
};

} // namespace

TEST_F(CuteTabCtrlPictureTest, NoTab)
{
    EXPECT_PICTURE(With(0, -1), "none");
}

TEST_F(CuteTabCtrlPictureTest, OneTab)
{
    EXPECT_PICTURE(With(1, 0), "one");
}

TEST_F(CuteTabCtrlPictureTest, TwoTabsWithTheFirstSelected)
{
    EXPECT_PICTURE(With(2, 0), "two-first");
}

TEST_F(CuteTabCtrlPictureTest, TwoTabsWithTheSecondSelected)
{
    EXPECT_PICTURE(With(2, 1), "two-second");
}

TEST_F(CuteTabCtrlPictureTest, ThreeTabsWithTheMiddleSelected)
{
    EXPECT_PICTURE(With(3, 1), "three-middle");
}

TEST_F(CuteTabCtrlPictureTest, ThreeTabsWithNoneSelected)
{
    EXPECT_PICTURE(With(3, -1), "three-none-selected");
}

TEST_F(CuteTabCtrlPictureTest, MoreTabsThanTheStripHasRoomForShowScrollButtons)
{
    EXPECT_PICTURE(With(5, 0), "scrolled");
}

TEST_F(CuteTabCtrlPictureTest, TheSelectedTabWithTheFocus)
{
    m_tabs.SendMessage(WM_SETFOCUS);
    EXPECT_PICTURE(With(2, 0), "focus");
}

TEST_F(CuteTabCtrlPictureTest, TheSelectedTabWithTheFocusAtTwiceTheScale)
{
    const StandingScale scale(192);
    m_tabs.SetItemSize({140, 40});
    m_tabs.SetMinTabWidth(140);
    m_tabs.SendMessage(WM_SETFOCUS);
    EXPECT_PICTURE(With(2, 0), "focus-192");
}

TEST_F(CuteTabCtrlPictureTest, ADisabledStripShowsGreyTextsAndNoFocus)
{
    With(2, 0);
    m_tabs.SendMessage(WM_SETFOCUS);
    m_tabs.EnableWindow(false);
    EXPECT_PICTURE(Seen(), "disabled");
}

TEST_F(CuteTabCtrlPictureTest, OtherColoursFontsAndCorners)
{
    m_tabs.SetColours({.background = RGB(255, 250, 230),
                       .border = RGB(160, 64, 0),
                       .normalText = RGB(0, 96, 0),
                       .selectedText = RGB(0, 0, 160)});
    m_tabs.SetCornerRadius(8);
    LOGFONTW font{};
    ASSERT_TRUE(m_ground.m_font.GetLogFont(font));
    LOGFONTW bold = font;
    bold.lfWeight = FW_BOLD;
    ASSERT_TRUE(m_tabs.SetFonts(font, bold));
    EXPECT_PICTURE(With(2, 1), "other-looks");
}

TEST_F(CuteTabCtrlPictureTest, TabsWithoutTheirBitmaps)
{
    m_tabs.SetBitmaps(IDB_TAB_MISSING, IDB_TAB_MISSING);
    EXPECT_PICTURE(With(2, 0), "no-bitmaps");
}
