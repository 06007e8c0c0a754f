#include "platform/dialog/Controls.h"

#include "tests/ui/platform/dialog/TestResources.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

namespace
{

constexpr RECT Place{0, 0, 150, 80};
constexpr int Id = 3;

class ControlsTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_host.SubclassWindow(m_window.Get())); }

    PlainWindow m_window;
    CWnd m_host;
};

class ListCtrlTest : public ControlsTest
{
protected:
    void SetUp() override
    {
        ControlsTest::SetUp();
        ASSERT_TRUE(m_list.Create(WS_CHILD | LVS_REPORT, Place, m_window.Get(), Id));
    }

    int Insert(const wchar_t* text, LPARAM data)
    {
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = m_list.GetItemCount();
        item.pszText = const_cast<wchar_t*>(text);
        item.lParam = data;
        return m_list.InsertItem(item);
    }

    CListCtrl m_list;
};

TEST_F(ListCtrlTest, ColumnsAreInsertedMeasuredAndDeleted)
{
    EXPECT_EQ(0, m_list.InsertColumn(0, L"first", LVCFMT_LEFT, 100));
    EXPECT_EQ(1, m_list.InsertColumn(1, L"second", LVCFMT_RIGHT, 40));
    EXPECT_EQ(40, m_list.GetColumnWidth(1));
    EXPECT_TRUE(m_list.SetColumnWidth(1, 55));
    EXPECT_EQ(55, m_list.GetColumnWidth(1));
    EXPECT_TRUE(m_list.DeleteColumn(0));
    EXPECT_EQ(55, m_list.GetColumnWidth(0));
}

TEST_F(ListCtrlTest, ItemsCarryTextsAndData)
{
    m_list.InsertColumn(0, L"first", LVCFMT_LEFT, 100);
    m_list.InsertColumn(1, L"second", LVCFMT_LEFT, 100);
    m_list.SetItemCount(2);
    EXPECT_EQ(0, m_list.GetItemCount()); // room only
    EXPECT_EQ(0, Insert(L"a", 11));
    EXPECT_EQ(1, Insert(L"b", 12));
    LVITEMW second{};
    second.iSubItem = 1;
    second.pszText = const_cast<wchar_t*>(L"b2");
    EXPECT_TRUE(m_list.SendMessage(LVM_SETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&second)));
    EXPECT_EQ(L"b2", m_list.GetItemText(1, 1));
    EXPECT_EQ(12, m_list.GetItemData(1));
    EXPECT_TRUE(m_list.SetItemData(1, -5));
    EXPECT_EQ(-5, m_list.GetItemData(1));
    EXPECT_EQ(0, m_list.GetItemData(9));
    EXPECT_EQ(L"", m_list.GetItemText(9, 0));
    EXPECT_TRUE(m_list.DeleteAllItems());
    EXPECT_EQ(0, m_list.GetItemCount());
}

TEST_F(ListCtrlTest, TheSelectionIsFound)
{
    Insert(L"a", 1);
    Insert(L"b", 2);
    EXPECT_EQ(-1, m_list.GetNextItem(-1, LVNI_SELECTED));
    EXPECT_TRUE(m_list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(1, m_list.GetNextItem(-1, LVNI_SELECTED));
    EXPECT_EQ(static_cast<UINT>(LVIS_SELECTED), m_list.GetItemState(1, LVIS_SELECTED));
    EXPECT_TRUE(m_list.EnsureVisible(0));
}

int CALLBACK CompareData(LPARAM first, LPARAM second, LPARAM sign)
{
    return static_cast<int>((first - second) * sign);
}

TEST_F(ListCtrlTest, SortingComparesTheDataWithTheContext)
{
    for (const LPARAM data : {2, 3, 1})
    {
        Insert(L"", data);
    }
    EXPECT_TRUE(m_list.SortItems(&CompareData, -1));
    EXPECT_EQ(3, m_list.GetItemData(0));
    EXPECT_TRUE(m_list.SortItems(&CompareData, 1));
    EXPECT_EQ(1, m_list.GetItemData(0));
}

TEST_F(ListCtrlTest, TheExtendedStyleIsSetAsAWhole)
{
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    EXPECT_NE(0u, m_list.GetExtendedStyle() & LVS_EX_FULLROWSELECT);
}

TEST_F(ListCtrlTest, TheListLeavesAnImageListToItsOwner)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24, 1, 1));
    m_list.SetImageList(images.GetSafeHandle(), LVSIL_SMALL);
    m_list.DestroyWindow();
    EXPECT_EQ(0, images.GetImageCount());
    int width = 0;
    int height = 0;
    EXPECT_TRUE(ImageList_GetIconSize(images.GetSafeHandle(), &width, &height)); // it is still one
    EXPECT_EQ(16, width);
}

TEST_F(ListCtrlTest, TheHeaderIsReadAndWritten)
{
    m_list.InsertColumn(0, L"first", LVCFMT_LEFT, 100);
    m_list.InsertColumn(1, L"second", LVCFMT_RIGHT, 100);
    CHeaderCtrl header;
    ASSERT_TRUE(header.SubclassWindow(m_list.GetHeaderCtrl()));
    EXPECT_EQ(2, header.GetItemCount());
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    ASSERT_TRUE(header.GetItem(1, item));
    EXPECT_EQ(HDF_RIGHT, item.fmt & HDF_JUSTIFYMASK);
    item.fmt |= HDF_SORTUP;
    EXPECT_TRUE(header.SetItem(1, item));
    item.fmt = 0;
    ASSERT_TRUE(header.GetItem(1, item));
    EXPECT_NE(0, item.fmt & HDF_SORTUP);
    EXPECT_FALSE(header.GetItem(9, item));

    CImageList images;
    ASSERT_TRUE(images.Create(9, 5, ILC_COLOR24, 1, 1));
    EXPECT_EQ(nullptr, header.SetImageList(images.GetSafeHandle()));
    EXPECT_EQ(images.GetSafeHandle(), header.GetImageList());
}

TEST_F(ControlsTest, AListBoxHoldsTexts)
{
    CListBox list;
    EXPECT_EQ(LB_ERR, list.GetCurSel()); // without a window
    ASSERT_TRUE(list.Create(WS_CHILD, Place, m_window.Get(), Id));
    EXPECT_EQ(0, list.AddString(L"b"));
    EXPECT_EQ(0, list.InsertString(0, L"a"));
    EXPECT_EQ(2, list.InsertString(-1, L"c"));
    EXPECT_EQ(3, list.GetCount());
    EXPECT_EQ(L"a", list.GetText(0));
    EXPECT_EQ(L"", list.GetText(7));
    EXPECT_EQ(LB_ERR, list.GetCurSel());
    EXPECT_EQ(2, list.SetCurSel(2));
    EXPECT_EQ(2, list.GetCurSel());
    list.ResetContent();
    EXPECT_EQ(0, list.GetCount());
}

TEST_F(ControlsTest, AComboBoxHoldsTextsAndData)
{
    CComboBox combo;
    EXPECT_EQ(CB_ERR, combo.GetCurSel()); // without a window
    ASSERT_TRUE(combo.Create(WS_CHILD | CBS_DROPDOWNLIST, Place, m_window.Get(), Id));
    EXPECT_EQ(0, combo.AddString(L"b"));
    EXPECT_EQ(0, combo.InsertString(0, L"a"));
    combo.SetItemData(1, 42);
    EXPECT_EQ(42u, combo.GetItemData(1));
    EXPECT_EQ(2, combo.GetCount());
    EXPECT_EQ(L"b", combo.GetLBText(1));
    EXPECT_EQ(L"", combo.GetLBText(7));
    EXPECT_EQ(CB_ERR, combo.GetCurSel());
    EXPECT_EQ(1, combo.SetCurSel(1));
    EXPECT_EQ(1, combo.GetCurSel());
    combo.ResetContent();
    EXPECT_EQ(0, combo.GetCount());
}

TEST_F(ControlsTest, ATabStripHoldsTabs)
{
    CTabCtrl tabs;
    EXPECT_EQ(-1, tabs.GetCurSel()); // without a window
    ASSERT_TRUE(tabs.Create(WS_CHILD, Place, m_window.Get(), Id));
    EXPECT_EQ(0, tabs.InsertItem(0, L"one"));
    EXPECT_EQ(1, tabs.InsertItem(1, L"two"));
    EXPECT_EQ(2, tabs.GetItemCount());
    EXPECT_EQ(L"two", tabs.GetItemText(1));
    EXPECT_EQ(L"", tabs.GetItemText(7));
    EXPECT_EQ(0, tabs.GetCurSel());
    tabs.SetCurSel(1);
    EXPECT_EQ(1, tabs.GetCurSel());
    EXPECT_GE(tabs.GetItemRect(1).left, tabs.GetItemRect(0).right);
    EXPECT_EQ(0, tabs.GetItemRect(7).right);

    RECT area = Place;
    tabs.AdjustRect(false, area);
    EXPECT_GE(area.top, tabs.GetItemRect(0).bottom);
    tabs.AdjustRect(true, area);
    EXPECT_EQ(Place.bottom, area.bottom);

    TCHITTESTINFO hit{};
    hit.pt = {tabs.GetItemRect(1).left + 2, tabs.GetItemRect(1).top + 2};
    EXPECT_EQ(1, tabs.HitTest(hit));
    hit.pt = {-5, -5};
    EXPECT_EQ(-1, tabs.HitTest(hit));
}

TEST_F(ControlsTest, TabsOfFixedWidthTakeTheirSize)
{
    CTabCtrl tabs;
    ASSERT_TRUE(tabs.Create(WS_CHILD | TCS_FIXEDWIDTH, Place, m_window.Get(), Id));
    tabs.InsertItem(0, L"one");
    tabs.SetItemSize({60, 22});
    EXPECT_EQ(60, tabs.GetItemRect(0).right - tabs.GetItemRect(0).left);
    const SIZE before = tabs.SetItemSize({70, 24});
    EXPECT_EQ(60, before.cx);
    EXPECT_EQ(22, before.cy);
}

TEST_F(ControlsTest, AButtonKeepsItsCheck)
{
    CButton button;
    ASSERT_TRUE(button.Create(L"check", WS_CHILD | BS_AUTOCHECKBOX, Place, m_window.Get(), Id));
    EXPECT_EQ(BST_UNCHECKED, button.GetCheck());
    button.SetCheck(BST_CHECKED);
    EXPECT_EQ(BST_CHECKED, button.GetCheck());
}

TEST_F(ControlsTest, AnEditIsReadOnlyWhenToldSo)
{
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD, Place, m_window.Get(), Id));
    edit.SetReadOnly();
    EXPECT_NE(0u, edit.GetStyle() & ES_READONLY);
    edit.SetReadOnly(false);
    EXPECT_EQ(0u, edit.GetStyle() & ES_READONLY);
    edit.SetWindowText(L"abc");
    edit.SetSel(0, -1);
    EXPECT_EQ(MAKELONG(0, 3), edit.SendMessage(EM_GETSEL));
}

class ToolTipCtrlTest : public ControlsTest
{
protected:
    void SetUp() override
    {
        ControlsTest::SetUp();
        ASSERT_TRUE(m_tool.Create(L"", WS_CHILD | SS_NOTIFY | WS_VISIBLE, {0, 0, 40, 20}, m_window.Get(), Id));
        ASSERT_TRUE(m_tip.Create(&m_host, TTS_ALWAYSTIP));
    }

    CStatic m_tool;
    CToolTipCtrl m_tip;
};

TEST_F(ToolTipCtrlTest, ATextIsAddedChangedAndEmptied)
{
    EXPECT_FALSE(m_tip.HasTool(m_tool));
    EXPECT_TRUE(m_tip.AddTool(m_tool, L"one"));
    EXPECT_TRUE(m_tip.HasTool(m_tool));
    EXPECT_EQ(L"one", m_tip.GetText(m_tool));
    m_tip.UpdateTipText(m_tool, L"two");
    EXPECT_EQ(L"two", m_tip.GetText(m_tool));
    m_tip.UpdateTipText(m_tool, L"");
    EXPECT_EQ(L"", m_tip.GetText(m_tool));
}

TEST_F(ToolTipCtrlTest, SettingATextAddsTheToolOnce)
{
    m_tip.SetToolText(m_tool, L"one");
    m_tip.SetToolText(m_tool, L"two");
    EXPECT_EQ(1, m_tip.SendMessage(TTM_GETTOOLCOUNT));
    EXPECT_EQ(L"two", m_tip.GetText(m_tool));
}

TEST_F(ToolTipCtrlTest, ATextOfMoreThanEightyCharactersIsWhole)
{
    const std::wstring text = std::wstring(500, L'a') + L"\n" + std::wstring(500, L'b');
    EXPECT_TRUE(m_tip.AddTool(m_tool, text));
    EXPECT_EQ(text, m_tip.GetText(m_tool));
    m_tip.UpdateTipText(m_tool, text + L"c");
    EXPECT_EQ(text + L"c", m_tip.GetText(m_tool));
}

TEST_F(ToolTipCtrlTest, TheTextIsCopied)
{
    {
        std::wstring text = L"short life";
        m_tip.AddTool(m_tool, text);
        text = L"gone";
    }
    EXPECT_EQ(L"short life", m_tip.GetText(m_tool));
}

TEST_F(ToolTipCtrlTest, AControlThatDoesNotExistGetsNoTool)
{
    EXPECT_FALSE(m_tip.AddTool(nullptr, L"x"));
    m_tip.SetToolText(nullptr, L"x");
    EXPECT_EQ(0, m_tip.SendMessage(TTM_GETTOOLCOUNT));
}

TEST_F(ToolTipCtrlTest, TheTipAppearsAfterAMouseMoveThatWasRelayed)
{
    ShowWindow(m_window.Get(), SW_SHOWNA);
    m_tip.AddTool(m_tool, L"seen");
    m_tip.SendMessage(TTM_SETDELAYTIME, TTDT_INITIAL, 1);
    SetCursorPos(m_tool.GetWindowRect().left + 5, m_tool.GetWindowRect().top + 5);
    const MSG move{m_tool, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5), GetTickCount(), {}};
    m_tip.RelayEvent(move);
    EXPECT_TRUE(WaitUntil([this] { return m_tip.IsWindowVisible(); }));
}

} // namespace
