// A text is looked for in the form: what is found, in which order, and what is said of where the search ended.

#include "tests/support/AlertRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/FindFormTest.h"

namespace
{

using LogFormFindTest = FindFormTest;

} // namespace

TEST_F(LogFormFindTest, AFoundRecordIsSelectedFocusedAndShownInThePane)
{
    Run(
        [&]
        {
            const FindDialogKit dialog = OpenDialog();
            dialog.Type(L"BETA");
            dialog.FindNext();
            EXPECT_EQ(SelectedRow(), 2);
            EXPECT_EQ(ListView_GetNextItem(List(), -1, LVNI_FOCUSED), 2);
            EXPECT_EQ(ShownThreat(), L"beta");
            EXPECT_EQ(NoteText(), L"");
            EXPECT_TRUE(dialog.IsOpen()) << "until the user closes it";
        });
}

TEST_F(LogFormFindTest, AFoundRecordComesIntoSight)
{
    std::wstring lines = L"x|0000|1048576|x|0|0|needle|C:\\b|4|1|0|0\r\n";
    for (int i = 0; i < 100; ++i)
    {
        lines += L"x|0900|1048576|x|0|0|hay|C:\\b|4|1|0|0\r\n";
    }
    WriteUtf16(m_form.m_strLogPath, lines);
    Run(
        [&]
        {
            FindOnce(L"needle");
            EXPECT_EQ(SelectedRow(), 100);
            EXPECT_EQ(ListView_GetTopIndex(List()) + ListView_GetCountPerPage(List()), 101);
        });
}

TEST_F(LogFormFindTest, ATextOfTheDetailsAloneIsFound)
{
    Run(
        [&]
        {
            FindOnce(L"c:\\b");
            EXPECT_EQ(ShownThreat(), L"beta");
        });
}

TEST_F(LogFormFindTest, F3GoesOnAndShiftF3GoesBack)
{
    Run(
        [&]
        {
            FindOnce(L"a");
            EXPECT_EQ(ShownThreat(), L"alpha");
            Press(List(), VK_F3);
            EXPECT_EQ(ShownThreat(), L"gamma");
            Press(List(), VK_F3);
            EXPECT_EQ(ShownThreat(), L"beta");
            Press(List(), VK_F3, {VK_SHIFT});
            EXPECT_EQ(ShownThreat(), L"gamma");
        });
}

TEST_F(LogFormFindTest, AfterASearchUpwardsF3GoesUpAndShiftF3Down)
{
    Run(
        [&]
        {
            const FindDialogKit dialog = OpenDialog();
            dialog.Type(L"a");
            dialog.Click(FindDialogKit::Up);
            dialog.FindNext();
            EXPECT_EQ(SelectedRow(), 2) << "from the end";
            dialog.Cancel();
            Press(List(), VK_F3);
            EXPECT_EQ(SelectedRow(), 1);
            Press(List(), VK_F3, {VK_SHIFT});
            EXPECT_EQ(SelectedRow(), 2);
        });
}

TEST_F(LogFormFindTest, TheKeysWorkWhereverTheKeyboardIsInThePage)
{
    Run(
        [&]
        {
            FindOnce(L"gamma");
            for (const UINT control : {IDC_DATE_LIST, IDC_LOG_TYPE, IDC_VIEW})
            {
                ListView_SetItemState(List(), 0, LVIS_SELECTED, LVIS_SELECTED);
                Press(PageItem(control), VK_F3);
                EXPECT_EQ(SelectedRow(), 1) << control;
            }
        });
}

TEST_F(LogFormFindTest, F3TakesTheKeyboardToTheEntries)
{
    Run(
        [&]
        {
            FindOnce(L"a");
            ::SetFocus(PageItem(IDC_DATE_LIST));
            Press(PageItem(IDC_DATE_LIST), VK_F3);
            EXPECT_EQ(::GetFocus(), List());
        });
}

TEST_F(LogFormFindTest, ASearchThatGoesRoundTheEndSaysSoWithoutABox)
{
    Run(
        [&]
        {
            FindOnce(L"a");
            Press(List(), VK_F3, {VK_SHIFT});
            EXPECT_EQ(SelectedRow(), 2);
            EXPECT_EQ(NoteText(), Text(IDS_SEARCH_FROM_BOTTOM));
            Press(List(), VK_F3);
            EXPECT_EQ(SelectedRow(), 0);
            EXPECT_EQ(NoteText(), Text(IDS_SEARCH_FROM_TOP));
            Press(List(), VK_F3);
            EXPECT_EQ(SelectedRow(), 1);
            EXPECT_EQ(NoteText(), L"") << "nothing is to be said of this one";
        });
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(LogFormFindTest, ATextThatNoRecordHasLeavesTheSelectionAndSaysSoWithoutABox)
{
    Run(
        [&]
        {
            FindOnce(L"gamma");
            FindOnce(L"delta");
            EXPECT_EQ(NoteText(), Text(IDS_SEARCH_NOTHING));
            EXPECT_EQ(SelectedRow(), 1);
            EXPECT_EQ(ShownThreat(), L"gamma");
        });
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(LogFormFindTest, ATextThatTheSelectedRecordAloneHasIsSaidToBeInNoOther)
{
    Run(
        [&]
        {
            FindOnce(L"gamma");
            EXPECT_EQ(NoteText(), L"");
            Press(List(), VK_F3);
            EXPECT_EQ(NoteText(), Text(IDS_SEARCH_NO_OTHER));
            EXPECT_EQ(SelectedRow(), 1);
        });
}

TEST_F(LogFormFindTest, AnEmptyListHasNoText)
{
    WriteUtf16(m_form.m_strLogPath, L"");
    Run(
        [&]
        {
            FindOnce(L"alpha");
            EXPECT_EQ(NoteText(), Text(IDS_SEARCH_NOTHING));
            EXPECT_EQ(SelectedRow(), -1);
        });
}

TEST_F(LogFormFindTest, TheRowsAreSearchedInTheOrderInWhichTheyAreSorted)
{
    Run(
        [&]
        {
            FindOnce(L"a");
            ListView_SetItemState(List(), 0, 0, LVIS_SELECTED);
            const HWND header = ListView_GetHeader(List());
            NMHEADERW click{};
            click.hdr = {header, static_cast<UINT_PTR>(::GetDlgCtrlID(header)), static_cast<UINT>(HDN_ITEMCLICKW)};
            click.iItem = 2;
            ::SendMessageW(List(), WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
            std::vector<std::wstring> found;
            for (int i = 0; i < 3; ++i)
            {
                Press(List(), VK_F3);
                found.push_back(ShownThreat());
            }
            EXPECT_EQ(found, (std::vector<std::wstring>{L"alpha", L"beta", L"gamma"}));
        });
}

// What stands in the note is its name for a screen reader, which hears of it by two events.
TEST_F(LogFormFindTest, AScreenReaderHearsTheNoteEachTimeThatItIsTold)
{
    Run(
        [&]
        {
            const AlertRecorder events;
            FindOnce(L"gamma");
            EXPECT_TRUE(events.Events().empty()) << "there is nothing to say";
            for (int i = 0; i < 2; ++i)
            {
                Press(List(), VK_F3);
            }
            ASSERT_EQ(events.Events().size(), 4u);
            for (const AlertRecorder::Event& event : events.Events())
            {
                EXPECT_EQ(event.window, Note().GetSafeHwnd());
                EXPECT_EQ(event.text, Text(IDS_SEARCH_NO_OTHER));
                EXPECT_TRUE(event.isVisible);
            }
            EXPECT_EQ(events.Events()[0].event, AlertRecorder::LiveRegionChanged);
            EXPECT_EQ(events.Events()[1].event, static_cast<DWORD>(EVENT_SYSTEM_ALERT));
        });
}

TEST_F(LogFormFindTest, TheWaitCursorStandsUntilTheSearchHasEnded)
{
    Run(
        [&]
        {
            const HCURSOR cross = ::LoadCursorW(nullptr, IDC_CROSS);
            FindOnce(L"gamma");
            ::SetCursor(cross);
            const AlertRecorder events;
            Press(List(), VK_F3);
            ASSERT_FALSE(events.Events().empty());
            EXPECT_EQ(events.Events()[0].cursor, ::LoadCursorW(nullptr, IDC_WAIT));
            EXPECT_EQ(::GetCursor(), cross);
        });
}
