// What the keys and the context menus of the page copy, and what they offer.

#include "framework/ui/kestrix/app/page/PageMenus.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "resource/resource.h"
#include "tests/support/ClipboardText.h"
#include "tests/support/HeldKeys.h"
#include "tests/support/MenuVisit.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <optional>
#include <utility>

namespace
{

using Items = std::vector<SeenItem>;

class KestrixDlgCopyTest : public PageTest
{
protected:
    // Newest first: alpha, beta.
    KestrixDlgCopyTest()
    {
        OpenDay({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0", L"x|1030|1048576|x|0|0|alpha|C:\\a|4|1|0|0"});
        ClearClipboard();
    }

    // Whether the page takes the key while these others are held down.
    bool Press(HWND target, WORD key, std::initializer_list<int> held)
    {
        const HeldKeys keys(held);
        MSG message{};
        message.hwnd = target;
        message.message = WM_KEYDOWN;
        message.wParam = key;
        message.lParam = 1;
        return m_page.PreTranslateMessage(message);
    }

    std::wstring Line(int row, bool withLabels = false)
    {
        const auto* const record = reinterpret_cast<const LogRec*>(m_list.GetItemData(row));
        return m_page.Log()->ExportLine(*record, withLabels);
    }

    // Has the menu of a control come up and presses these keys in it. Returns what was seen.
    Items VisitMenu(HWND control, std::initializer_list<WORD> keys, POINT point = ByKeyboard)
    {
        const MenuVisit visit(keys);
        ::SendMessageW(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), MAKELPARAM(point.x, point.y));
        m_place = visit.Place();
        return visit.Items();
    }

    RECT m_place{}; // of the last menu
};

} // namespace

TEST_F(KestrixDlgCopyTest, TheKeysOfTheListCopyTheSelectedRecord)
{
    const struct
    {
        WORD key;
        std::initializer_list<int> held;
        bool withLabels;
    } cases[] = {
        {'C', {VK_CONTROL}, false},
        {VK_INSERT, {VK_CONTROL}, false},
        {'C', {VK_CONTROL, VK_SHIFT}, true},
    };

    SelectRow(1);
    for (const auto& each : cases)
    {
        SCOPED_TRACE(each.key + each.withLabels);
        ClearClipboard();
        EXPECT_TRUE(Press(m_list, each.key, each.held));
        EXPECT_EQ(TextOfClipboard(), Line(1, each.withLabels));
    }
}

TEST_F(KestrixDlgCopyTest, OtherKeysPlacesAndModifiersCopyNothing)
{
    const struct
    {
        HWND target;
        WORD key;
        std::initializer_list<int> held;
    } cases[] = {
        {m_list, 'C', {}},
        {m_list, 'C', {VK_SHIFT}},
        {m_list, 'C', {VK_CONTROL, VK_MENU}}, // AltGr
        {m_list, 'X', {VK_CONTROL}},
        {Item(IDC_DATE_LIST), 'C', {VK_CONTROL}},
        {Item(IDC_LOG_TYPE), 'C', {VK_CONTROL}},
    };

    SelectRow(0);
    for (const auto& each : cases)
    {
        EXPECT_FALSE(Press(each.target, each.key, each.held)) << each.key;
    }
    EXPECT_EQ(TextOfClipboard(), std::nullopt);
}

// The key is the page's all the same: the list would take it for a letter that the user looks for.
TEST_F(KestrixDlgCopyTest, WithoutASelectedRecordTheClipboardStaysAsItIs)
{
    EXPECT_TRUE(Press(m_list, 'C', {VK_CONTROL}));
    EXPECT_EQ(TextOfClipboard(), std::nullopt);
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(KestrixDlgCopyTest, TheMenuOfTheListOffersWhatCanBeDone)
{
    const auto items = [](bool hasEntry, bool hasDetails)
    {
        return Items{{L"&Copy\tCtrl+C", hasEntry},
                     {L"Copy with &headings\tCtrl+Shift+C", hasEntry},
                     {L"Copy &details", hasDetails},
                     {L"-", false},
                     {L"&Find...\tCtrl+F", true}};
    };
    EXPECT_EQ(VisitMenu(m_list, {VK_ESCAPE}), items(false, false));
    ClickRow(0);
    EXPECT_EQ(VisitMenu(m_list, {VK_ESCAPE}), items(true, true));
    m_list.SetItemState(0, 0, LVIS_SELECTED);
    EXPECT_EQ(VisitMenu(m_list, {VK_ESCAPE}), items(false, true));
    EXPECT_EQ(TextOfClipboard(), std::nullopt) << "nothing was chosen";
}

TEST_F(KestrixDlgCopyTest, AnItemIsChosenByItsAccessKey)
{
    ClickRow(0);
    VisitMenu(m_list, {'C'});
    EXPECT_EQ(TextOfClipboard(), Line(0));
    VisitMenu(m_list, {'H'});
    EXPECT_EQ(TextOfClipboard(), Line(0, true));
    VisitMenu(m_list, {'D'});
    EXPECT_EQ(TextOfClipboard(), m_page.GetDlgItemText(IDC_INFO_LABEL_0) + L" alpha\r\n" +
                                     m_page.GetDlgItemText(IDC_INFO_LABEL_1) + L" " + Text(150) + L"\r\n" +
                                     m_page.GetDlgItemText(IDC_INFO_LABEL_2) + L" C:\\a\r\n" +
                                     m_page.GetDlgItemText(IDC_INFO_LABEL_3) + L" " + Text(147) + L"\r\n" +
                                     m_page.GetDlgItemText(IDC_INFO_LABEL_4) + L" " + Text(800) + L"\r\n" +
                                     m_page.GetDlgItemText(IDC_INFO_LABEL_5) + L" \r\n" +
                                     m_page.GetDlgItemText(IDC_INFO_LABEL_6) + L" \r\n");
}

TEST_F(KestrixDlgCopyTest, TheMenuStandsAtThePointerOrBelowTheFocusedRowOrAtTheCornerOfTheList)
{
    RECT list = m_list.GetClientRect();
    m_list.ClientToScreen(list);
    VisitMenu(m_list, {VK_ESCAPE});
    EXPECT_EQ(m_place.left, list.left);
    EXPECT_EQ(m_place.top, list.top);
    ClickRow(1);
    VisitMenu(m_list, {VK_ESCAPE});
    RECT row{};
    row.left = LVIR_LABEL;
    m_list.SendMessage(LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    m_list.ClientToScreen(row);
    EXPECT_EQ(m_place.left, row.left);
    EXPECT_EQ(m_place.top, row.bottom);
    VisitMenu(m_list, {VK_ESCAPE}, {list.left + 40, list.top + 30});
    EXPECT_EQ(m_place.left, list.left + 40);
    EXPECT_EQ(m_place.top, list.top + 30);
}

TEST_F(KestrixDlgCopyTest, TheFocusedRowComesIntoSightForTheMenuOfTheKeyboard)
{
    RECT row{};
    row.left = LVIR_BOUNDS;
    m_list.SendMessage(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    ::SetWindowPos(m_list, nullptr, 0, 0, row.right, row.bottom + (row.bottom - row.top) / 2,
                   SWP_NOMOVE | SWP_NOZORDER); // room for one row
    ClickRow(0);
    m_list.EnsureVisible(1);
    ASSERT_EQ(m_list.GetTopIndex(), 1);
    VisitMenu(m_list, {VK_ESCAPE});
    EXPECT_EQ(m_list.GetTopIndex(), 0);
}

TEST_F(KestrixDlgCopyTest, OtherControlsHaveNoMenuOfThePage)
{
    for (const UINT control : {IDC_DATE_LIST, IDC_INFO_LABEL_0, IDC_VIEW})
    {
        EXPECT_EQ(VisitMenu(Item(control), {VK_ESCAPE}), Items()) << control;
    }
}

TEST_F(KestrixDlgCopyTest, TheKeysOfAValueCopyWhatIsSelectedInIt)
{
    ClickRow(0);
    CWindow value = Item(IDC_INFO_VALUE_1);
    value.SetFocus();
    value.SendMessage(EM_SETSEL, 0, 3);
    EXPECT_TRUE(Press(value, 'C', {VK_CONTROL}));
    EXPECT_EQ(TextOfClipboard(), Text(150).substr(0, 3));
    Item(IDC_INFO_VALUE_0_LINK).SetFocus();
    EXPECT_TRUE(Press(Item(IDC_INFO_VALUE_0_LINK), VK_INSERT, {VK_CONTROL}));
    EXPECT_EQ(TextOfClipboard(), L"alpha");
}

TEST_F(KestrixDlgCopyTest, TheMenuOfAValueTakesTheKeyboardThereAndCopiesTheValueOrAllOfThem)
{
    const auto items = [](bool hasValue, bool hasDetails) {
        return Items{{L"&Copy\tCtrl+C", hasValue}, {L"Copy &details", hasDetails}};
    };
    EXPECT_EQ(VisitMenu(Item(IDC_INFO_VALUE_1), {VK_ESCAPE}), items(false, false));
    ClickRow(0);
    for (const UINT value : {IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2})
    {
        ClearClipboard();
        EXPECT_EQ(VisitMenu(Item(value), {'C'}), items(true, true)) << value;
        EXPECT_EQ(::GetFocus(), Item(value).GetSafeHwnd()) << value;
        EXPECT_EQ(TextOfClipboard(), TextOf(value)) << value;
    }
    VisitMenu(Item(IDC_INFO_VALUE_2), {'D'});
    EXPECT_TRUE(TextOfClipboard().value_or(L"").ends_with(L"\r\n"));
}

TEST_F(KestrixDlgCopyTest, AClipboardThatCannotBeHadIsTold)
{
    SelectRow(0);
    ASSERT_TRUE(OpenClipboardSoon()); // and nobody else opens it meanwhile
    EXPECT_TRUE(Press(m_list, 'C', {VK_CONTROL}));
    CloseClipboard();
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(IDS_CLIPBOARD_IN_USE));
}
