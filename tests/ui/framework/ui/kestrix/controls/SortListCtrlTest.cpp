#include "framework/ui/kestrix/controls/SortListCtrl.h"

#include "tests/support/ListWindow.h"

#include <gtest/gtest.h>

namespace
{

// Counts how often the list is painted, and how often it asks for a text.
class AskedWindow : public ListWindow
{
public:
    int m_nPaints = 0;
    int m_nTexts = 0;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::Message<WM_NOTIFY, &AskedWindow::OnNotify>);
        static constexpr MessageMap map{rows, &ListWindow::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    LRESULT OnNotify(WPARAM, LPARAM notification)
    {
        const auto& header = *reinterpret_cast<const NMHDR*>(notification);
        const bool isPaint = header.code == NM_CUSTOMDRAW &&
                             reinterpret_cast<const NMCUSTOMDRAW*>(notification)->dwDrawStage == CDDS_PREPAINT;
        m_nPaints += isPaint;
        m_nTexts += header.code == LVN_GETDISPINFOW;
        return 0;
    }
};

} // namespace

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

TEST(SortListCtrlTest, AHiddenListIsMeasuredByAPaintingThatShowsNothing)
{
    AskedWindow window;
    window.m_list.InsertColumn(0, L"row", LVCFMT_LEFT, 50);
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.pszText = LPSTR_TEXTCALLBACKW;
    for (; item.iItem < 1000; ++item.iItem)
    {
        window.m_list.InsertItem(item);
    }
    ASSERT_EQ(window.m_nPaints, 0);
    window.m_list.MeasureRows();
    EXPECT_EQ(window.m_nPaints, 1);
    EXPECT_EQ(window.m_nTexts, 0);
    EXPECT_FALSE(IsWindowVisible(window.m_list));
}
