#include "framework/ui/kestrix/controls/SortListCtrl.h"

#include "tests/support/ListWindow.h"

#include <gtest/gtest.h>

TEST(SortListCtrlTest, TakingAListOverTakesItsHeaderOver)
{
    ListWindow window;
    ASSERT_NE(window.m_list.GetHeaderCtrl(), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(window.m_list), &window.m_list);
    EXPECT_EQ(CWnd::FromHandlePermanent(window.m_list.GetHeaderCtrl()), &window.m_list.SortHeader());
    EXPECT_EQ(window.m_list.SortHeader().GetSafeHwnd(), window.m_list.GetHeaderCtrl());
}

TEST(SortListCtrlTest, AListThatTheObjectMadeHasItsHeaderToo)
{
    ListWindow window;
    CSortListCtrl list;
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 100, 100}, window, 5));
    EXPECT_EQ(CWnd::FromHandlePermanent(list.GetHeaderCtrl()), &list.SortHeader());
}

TEST(SortListCtrlTest, TheEndOfTheObjectLeavesListAndHeaderAlone)
{
    ListWindow window;
    const HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, 100, 100, window,
                                      nullptr, AfxGetInstanceHandle(), nullptr);
    ASSERT_NE(list, nullptr);
    {
        CSortListCtrl object;
        ASSERT_TRUE(object.SubclassWindow(list));
    }
    const HWND header = ListView_GetHeader(list);
    EXPECT_TRUE(IsWindow(list));
    EXPECT_TRUE(IsWindow(header));
    EXPECT_EQ(CWnd::FromHandlePermanent(list), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(header), nullptr);
}

TEST(SortListCtrlTest, TheEndOfTheWindowLeavesTheObjectWithoutHeader)
{
    ListWindow window;
    window.m_list.DestroyWindow();
    EXPECT_EQ(window.m_list.GetSafeHwnd(), nullptr);
    EXPECT_EQ(window.m_list.SortHeader().GetSafeHwnd(), nullptr);
    window.m_list.SortHeader().SetSortArrow(0, 1);
    window.m_list.SortHeader().SetArrowImages();
}
