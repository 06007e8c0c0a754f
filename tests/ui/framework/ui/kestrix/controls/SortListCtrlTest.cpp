#include "framework/ui/kestrix/controls/SortListCtrl.h"

#include "tests/support/ListWindow.h"
#include "tests/support/MessageBoxRecorder.h"

#include <gtest/gtest.h>

#include <stdexcept>

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
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, {0, 0, 100, 100}, window, 5));
    EXPECT_EQ(CWnd::FromHandlePermanent(list.GetHeaderCtrl()), &list.SortHeader());
}

TEST(SortListCtrlTest, TheEndOfTheObjectLeavesListAndHeaderAlone)
{
    ListWindow window;
    const HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0, 0,
                                      100, 100, window, nullptr, AfxGetInstanceHandle(), nullptr);
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

TEST(SortListCtrlTest, AnotherWindowOfTheObjectHasNoRowsOfTheOneBefore)
{
    ListWindow window;
    window.m_list.InsertItem({});
    window.m_list.DestroyWindow();
    ASSERT_TRUE(window.m_list.Create(WS_CHILD | LVS_REPORT | LVS_OWNERDATA, {0, 0, 100, 100}, window, 5));
    EXPECT_EQ(window.m_list.GetItemCount(), 0);
}

TEST(SortListCtrlTest, ItemDataAndImageAreChangedAndReadBackAndTextsAreRefused)
{
    ListWindow window;
    LVITEMW item{};
    item.mask = LVIF_PARAM | LVIF_IMAGE;
    item.lParam = 11;
    item.iImage = 2;
    EXPECT_EQ(window.m_list.InsertItem(item), 0);
    item.lParam = 12;
    item.iImage = 3;
    EXPECT_TRUE(window.m_list.SendMessage(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(window.m_list.GetItemData(0), 12);
    LVITEMW read{};
    read.mask = LVIF_IMAGE;
    EXPECT_TRUE(window.m_list.SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&read)));
    EXPECT_EQ(read.iImage, 3);
    wchar_t text[] = L"text";
    item.mask = LVIF_TEXT;
    item.pszText = text;
    EXPECT_FALSE(window.m_list.SendMessage(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_FALSE(window.m_list.SetItemData(1, 5)) << "there is no second row";
}

TEST(SortListCtrlTest, WhatIsNoRowOrHasNoPlaceIsNotInserted)
{
    ListWindow window;
    LVITEMW item{};
    item.iItem = -1;
    EXPECT_EQ(window.m_list.InsertItem(item), -1);
    item = {};
    item.iSubItem = 1;
    EXPECT_EQ(window.m_list.InsertItem(item), -1);
    CSortListCtrl withoutWindow;
    EXPECT_EQ(withoutWindow.InsertItem({}), -1);
    item = {};
    item.iItem = 7;
    EXPECT_EQ(window.m_list.InsertItem(item), 0) << "a place beyond the end is the end";
}

// The system's list view learns of new rows with the next message, and nobody else may send it one.
TEST(SortListCtrlTest, ARowThatIsAddedOrChangedHasTheListPainted)
{
    ListWindow window;
    window.m_list.InsertColumn(0, L"column", LVCFMT_LEFT, 100);
    window.ShowWindow(SW_SHOWNA);
    ::UpdateWindow(window.m_list);
    ASSERT_FALSE(::GetUpdateRect(window.m_list, nullptr, FALSE));
    window.m_list.InsertItem({});
    EXPECT_TRUE(::GetUpdateRect(window.m_list, nullptr, FALSE));
    ::UpdateWindow(window.m_list);
    ASSERT_FALSE(::GetUpdateRect(window.m_list, nullptr, FALSE));
    window.m_list.SetItemData(0, 5);
    EXPECT_TRUE(::GetUpdateRect(window.m_list, nullptr, FALSE));
}

// A log whose order cannot tell must not lose rows, nor what the user has selected.
TEST(SortListCtrlTest, AnOrderThatThrowsLeavesRowsAndSelectionAndIsTold)
{
    const MessageBoxRecorder boxes;
    ListWindow window;
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    for (; item.iItem < 50; ++item.iItem, ++item.lParam)
    {
        window.m_list.InsertItem(item);
    }
    window.m_list.SetItemState(20, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    const auto order = [](LPARAM first, LPARAM second, LPARAM) -> int
    { return first + second > 60 ? throw std::out_of_range("short") : static_cast<int>(second - first); };
    window.m_list.SortItems(order, 0);
    EXPECT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(window.m_list.GetItemCount(), 50);
    EXPECT_EQ(window.m_list.GetItemData(window.m_list.GetNextItem(-1, LVNI_SELECTED)), 20);
    EXPECT_EQ(window.m_list.GetItemData(window.m_list.GetNextItem(-1, LVNI_FOCUSED)), 20);
}
