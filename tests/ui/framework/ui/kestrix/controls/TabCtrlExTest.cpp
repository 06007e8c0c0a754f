#include "framework/ui/kestrix/controls/TabCtrlEx.h"

#include "tests/support/CommonControls.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/Ground.h"
#include "tests/ui/framework/ui/kestrix/controls/TabResources.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

namespace
{

constexpr RECT ExtendedPlace{10, 10, 310, 150};
constexpr DWORD ExtendedStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr int Header = 7;

// A page that counts how often it is shown or hidden.
class Page : public CDialog
{
public:
    std::wstring Edited() const { return GetDlgItemText(IDC_TAB_EDIT); }

    bool IsShown() const { return (GetStyle() & WS_VISIBLE) != 0; }

    int m_nChanges = 0;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::Message<WM_SHOWWINDOW, &Page::OnShow>);
        static constexpr MessageMap map{rows, &CDialog::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    LRESULT OnShow(WPARAM, LPARAM)
    {
        ++m_nChanges;
        return Default();
    }
};

class TabCtrlExTest : public ::testing::Test
{
protected:
    TabCtrlExTest()
    {
        RegisterCommonControls();
        m_tabs.Create(ExtendedStyle, ExtendedPlace, m_ground, 1);
        m_tabs.SetItemSize({80, 20});
        m_tabs.SetMinTabWidth(80);
        m_ground.Show();
    }

    bool CreateTwo()
    {
        m_tabs.AddPage(IDS_TAB_FIRST, m_first, IDD_TAB_FIRST);
        m_tabs.AddPage(IDS_TAB_SECOND, m_second, IDD_TAB_SECOND);
        return m_tabs.CreatePages(Header);
    }

    void Click(int tab)
    {
        const RECT rect = m_tabs.GetItemRect(tab);
        const LPARAM point = MAKELPARAM(rect.left + 30, rect.top + 5);
        m_tabs.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, point);
        m_tabs.SendMessage(WM_LBUTTONUP, 0, point);
    }

    // As the strip tells its parent when the user has selected a tab.
    LRESULT TellSelChange()
    {
        NMHDR header{m_tabs, 1, static_cast<UINT>(TCN_SELCHANGE)};
        return m_ground.SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&header));
    }

    // What stands on the screen below the tabs, when all is painted that is to be.
    Picture PageOnScreen()
    {
        EXPECT_TRUE(WaitUntil(
            [this]
            {
                return !GetUpdateRect(m_first, nullptr, FALSE) &&
                       !GetUpdateRect(m_first.GetDlgItem(IDC_TAB_EDIT), nullptr, FALSE);
            }));
        RECT area = m_first.GetWindowRect();
        m_ground.ScreenToClient(area);
        const SIZE size{area.right - area.left, area.bottom - area.top};
        return PictureOf(size,
                         [&](HDC dc)
                         {
                             const CClientDC screen(m_ground);
                             BitBlt(dc, 0, 0, size.cx, size.cy, screen, area.left, area.top, SRCCOPY);
                         });
    }

    Page m_first;
    Page m_second;
    Page m_third;
    Ground m_ground;
    CTabCtrlEx m_tabs;
};

} // namespace

TEST_F(TabCtrlExTest, WithNoPagesNothingIsMade)
{
    EXPECT_TRUE(m_tabs.CreatePages(Header));
    EXPECT_EQ(m_tabs.GetItemCount(), 0);
    EXPECT_EQ(TellSelChange(), 0);
}

TEST_F(TabCtrlExTest, EachPageGetsATabWithItsTitleInOrder)
{
    EXPECT_TRUE(CreateTwo());
    ASSERT_EQ(m_tabs.GetItemCount(), 2);
    EXPECT_EQ(m_tabs.GetItemText(0), L"Alpha");
    EXPECT_EQ(m_tabs.GetItemText(1), L"Beta");
    EXPECT_EQ(m_first.GetParent(), static_cast<HWND>(m_ground));
    EXPECT_EQ(m_second.GetParent(), static_cast<HWND>(m_ground));
}

TEST_F(TabCtrlExTest, TheFirstPageIsShownAndTheOthersAreHidden)
{
    CreateTwo();
    EXPECT_TRUE(m_first.IsShown());
    EXPECT_FALSE(m_second.IsShown()); // though its template says visible
    EXPECT_EQ(m_tabs.GetCurSel(), 0);
}

TEST_F(TabCtrlExTest, PagesLieBelowTheTabsAndTheHeaderAndEndWithTheStrip)
{
    CreateTwo();
    RECT expected = m_tabs.GetClientRect();
    m_tabs.AdjustRect(false, expected);
    MapWindowPoints(m_tabs, m_ground, reinterpret_cast<POINT*>(&expected), 2);
    expected.top += Header;
    for (Page* const page : {&m_first, &m_second})
    {
        RECT area = page->GetWindowRect();
        m_ground.ScreenToClient(area);
        EXPECT_TRUE(EqualRect(&area, &expected)) << area.top << " to " << area.bottom;
    }
}

TEST_F(TabCtrlExTest, PagesStandBehindTheStrip)
{
    CreateTwo();
    EXPECT_EQ(GetWindow(m_ground, GW_CHILD), static_cast<HWND>(m_tabs));
    // and yet the pointer reaches what lies on them
    const CWindow edit(m_first.GetDlgItem(IDC_TAB_EDIT));
    const RECT place = edit.GetWindowRect();
    EXPECT_EQ(WindowFromPoint({place.left + 5, place.top + 5}), edit.GetSafeHwnd());
}

TEST_F(TabCtrlExTest, ThePageStaysInSightWhenTheStripGetsTheFocus)
{
    CreateTwo();
    m_first.SetDlgItemText(IDC_TAB_EDIT, L"on the page");
    m_ground.PaintNow();
    const Picture before = PageOnScreen();
    EXPECT_FALSE(before == Picture(before.Width(), before.Height(), before.At(0, 0)));
    m_tabs.SendMessage(WM_SETFOCUS);
    EXPECT_TRUE(PageOnScreen() == before);
    m_tabs.SendMessage(WM_KILLFOCUS);
    EXPECT_TRUE(PageOnScreen() == before);
}

TEST_F(TabCtrlExTest, AClickOnATabShowsItsPageAndHidesTheOther)
{
    CreateTwo();
    Click(1);
    EXPECT_TRUE(m_second.IsShown());
    EXPECT_FALSE(m_first.IsShown());
    Click(0);
    EXPECT_TRUE(m_first.IsShown());
    EXPECT_FALSE(m_second.IsShown());
}

TEST_F(TabCtrlExTest, TheArrowKeysSwitchThePage)
{
    CreateTwo();
    SetFocus(m_tabs);
    m_tabs.SendMessage(WM_KEYDOWN, VK_RIGHT);
    EXPECT_TRUE(m_second.IsShown());
    EXPECT_FALSE(m_first.IsShown());
    m_tabs.SendMessage(WM_KEYDOWN, VK_LEFT);
    EXPECT_TRUE(m_first.IsShown());
    EXPECT_FALSE(m_second.IsShown());
}

TEST_F(TabCtrlExTest, FocusingATabByMessageShowsItsPage)
{
    CreateTwo();
    m_tabs.SetCurFocus(1);
    EXPECT_TRUE(m_second.IsShown());
    EXPECT_FALSE(m_first.IsShown());
    m_tabs.SetCurFocus(0);
    EXPECT_TRUE(m_first.IsShown());
    EXPECT_FALSE(m_second.IsShown());
}

TEST_F(TabCtrlExTest, SelectingTheCurrentTabChangesNothing)
{
    CreateTwo();
    m_first.m_nChanges = 0;
    m_second.m_nChanges = 0;
    Click(0);
    m_tabs.SetCurFocus(0);
    EXPECT_EQ(TellSelChange(), 0);
    EXPECT_TRUE(m_first.IsShown());
    EXPECT_FALSE(m_second.IsShown());
    EXPECT_EQ(m_first.m_nChanges + m_second.m_nChanges, 0);
}

TEST_F(TabCtrlExTest, ThePageOfTheSelectedTabIsShownAgainWhenItIsAskedFor)
{
    CreateTwo();
    m_first.ShowWindow(SW_HIDE);
    m_tabs.ShowSelectedPage();
    EXPECT_TRUE(m_first.IsShown());
    EXPECT_FALSE(m_second.IsShown());
}

TEST_F(TabCtrlExTest, AHiddenPageKeepsItsStateWhenAnotherIsShown)
{
    CreateTwo();
    m_first.SetDlgItemText(IDC_TAB_EDIT, L"half typed");
    const HWND window = m_first;
    Click(1);
    m_second.SetDlgItemText(IDC_TAB_EDIT, L"other");
    Click(0);
    EXPECT_EQ(m_first.GetSafeHwnd(), window);
    EXPECT_EQ(m_first.Edited(), L"half typed");
    EXPECT_EQ(m_second.Edited(), L"other");
}

TEST_F(TabCtrlExTest, ASingleTabHasNoOtherToGoTo)
{
    m_tabs.AddPage(IDS_TAB_FIRST, m_first, IDD_TAB_FIRST);
    ASSERT_TRUE(m_tabs.CreatePages(0));
    m_tabs.SetCurFocus(1);
    EXPECT_EQ(m_tabs.GetCurSel(), 0);
    EXPECT_TRUE(m_first.IsShown());
}

TEST_F(TabCtrlExTest, NoSelectedTabLeavesThePageThatIsShown)
{
    CreateTwo();
    m_tabs.SetCurSel(-1);
    EXPECT_EQ(TellSelChange(), 0);
    EXPECT_TRUE(m_first.IsShown());
}

TEST_F(TabCtrlExTest, ATabWithoutAPageLeavesThePageThatIsShown)
{
    CreateTwo();
    m_tabs.InsertItem(2, L"stray");
    Click(2);
    EXPECT_EQ(m_tabs.GetCurSel(), 2);
    EXPECT_TRUE(m_first.IsShown());
}

TEST_F(TabCtrlExTest, AMissingTitleLeavesTheTabWithoutAText)
{
    m_tabs.AddPage(IDS_TAB_MISSING, m_first, IDD_TAB_FIRST);
    m_tabs.AddPage(IDS_TAB_SECOND, m_second, IDD_TAB_SECOND);
    EXPECT_TRUE(m_tabs.CreatePages(0));
    EXPECT_EQ(m_tabs.GetItemText(0), L"");
    EXPECT_EQ(m_tabs.GetItemText(1), L"Beta");
    EXPECT_TRUE(m_first.IsShown());
}

TEST_F(TabCtrlExTest, APageWithoutATemplateLeavesTheOthersWorking)
{
    m_tabs.AddPage(IDS_TAB_FIRST, m_first, IDD_TAB_FIRST);
    m_tabs.AddPage(IDS_TAB_SECOND, m_second, IDD_TAB_MISSING);
    m_tabs.AddPage(IDS_TAB_THIRD, m_third, IDD_TAB_SECOND);
    EXPECT_FALSE(m_tabs.CreatePages(0));
    EXPECT_EQ(m_tabs.GetItemCount(), 3);
    EXPECT_EQ(m_second.GetSafeHwnd(), nullptr);
    Click(1);
    EXPECT_FALSE(m_first.IsShown());
    Click(2);
    EXPECT_TRUE(m_third.IsShown());
    Click(0);
    EXPECT_TRUE(m_first.IsShown());
    EXPECT_FALSE(m_third.IsShown());
}

TEST_F(TabCtrlExTest, TheFirstPageMayBeTheOneWithoutATemplate)
{
    m_tabs.AddPage(IDS_TAB_FIRST, m_first, IDD_TAB_MISSING);
    m_tabs.AddPage(IDS_TAB_SECOND, m_second, IDD_TAB_SECOND);
    EXPECT_FALSE(m_tabs.CreatePages(0));
    EXPECT_FALSE(m_second.IsShown());
    Click(1);
    EXPECT_TRUE(m_second.IsShown());
}

TEST_F(TabCtrlExTest, ADestroyedPageIsPassedOver)
{
    CreateTwo();
    m_first.DestroyWindow();
    Click(1);
    EXPECT_TRUE(m_second.IsShown());
    Click(0);
    EXPECT_FALSE(m_second.IsShown());
}

TEST_F(TabCtrlExTest, AThousandStripsWithPagesLeaveNothingBehind)
{
    const auto useOnce = [this]
    {
        Page first;
        Page second;
        CTabCtrlEx tabs;
        tabs.Create(ExtendedStyle, ExtendedPlace, m_ground, 2);
        tabs.AddPage(IDS_TAB_FIRST, first, IDD_TAB_FIRST);
        tabs.AddPage(IDS_TAB_SECOND, second, IDD_TAB_SECOND);
        ASSERT_TRUE(tabs.CreatePages(0));
        tabs.SetCurFocus(1);
        tabs.UpdateWindow();
    };
    ExpectAThousandToLeaveNothing(useOnce);
}
