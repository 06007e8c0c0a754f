// The system's dialog that asks for a text, beside the form: how it comes, whom its keys belong to, and when it goes.

#include "tests/support/MenuVisit.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/ui/framework/ui/kestrix/app/FindFormTest.h"

namespace
{

using LogFormFindDialogTest = FindFormTest;

} // namespace

TEST_F(LogFormFindDialogTest, CtrlAndFOpenTheDialogBesideTheForm)
{
    Run(
        [&]
        {
            EXPECT_FALSE(Dialog().IsOpen());
            EXPECT_TRUE(OpenDialog().IsOpen());
            EXPECT_TRUE(m_form.IsWindowEnabled());
        });
}

TEST_F(LogFormFindDialogTest, ItOpensAboveTheHeadingOfTheEntriesAndStaysWhereTheUserMovesIt)
{
    Run(
        [&]
        {
            m_form.SetWindowPos(nullptr, {40, 200, 0, 0}, SWP_NOSIZE | SWP_NOZORDER);
            CWindow dialog(OpenDialog().Window());
            EXPECT_EQ(dialog.GetWindowRect().bottom, Note().GetWindowRect().top);
            dialog.SetWindowPos(nullptr, {100, 300, 0, 0}, SWP_NOSIZE | SWP_NOZORDER);
            OpenDialog();
            EXPECT_EQ(dialog.GetWindowRect().top, 300);
        });
}

TEST_F(LogFormFindDialogTest, AtTheTopOfTheScreenItOpensAllTheSameOnTheScreen)
{
    Run(
        [&]
        {
            m_form.SetWindowPos(nullptr, {40, -100, 0, 0}, SWP_NOSIZE | SWP_NOZORDER);
            EXPECT_EQ(CWindow(OpenDialog().Window()).GetWindowRect().top, 0);
        });
}

TEST_F(LogFormFindDialogTest, TheMenuOfTheListOpensTheDialogToo)
{
    Run(
        [&]
        {
            const MenuVisit visit({'F'});
            m_form.Page()->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()), MAKELPARAM(-1, -1));
            EXPECT_TRUE(Dialog().IsOpen());
        });
}

TEST_F(LogFormFindDialogTest, F3AsksForATextWhenThereIsNone)
{
    Run(
        [&]
        {
            Press(List(), VK_F3);
            EXPECT_TRUE(Dialog().IsOpen());
            EXPECT_EQ(SelectedRow(), -1);
        });
}

TEST_F(LogFormFindDialogTest, TheDialogGoesOnInADayThatWasLoadedMeanwhileAndTheNoteGoes)
{
    Run(
        [&]
        {
            const FindDialogKit dialog = OpenDialog();
            dialog.Type(L"delta");
            dialog.FindNext();
            EXPECT_EQ(NoteText(), Text(IDS_SEARCH_NOTHING));
            WriteUtf16(m_form.m_strLogPath, L"x|1030|1048576|x|0|0|delta|C:\\d|4|1|0|0\r\n");
            m_form.Page()->OnSelchangeLogDate();
            EXPECT_EQ(NoteText(), L"");
            dialog.FindNext();
            EXPECT_EQ(SelectedRow(), 0);
            EXPECT_EQ(ShownThreat(), L"delta");
        });
}

TEST_F(LogFormFindDialogTest, TheDialogGoesOnInAnotherLogAndInOneWithoutRecords)
{
    m_database.AddDay(2026, 11, 20);
    m_database.SetLines({L"x|1030|1048576|x|0|0|alpha|C:\\a|4|1|0|0|x"});
    m_form.m_bIsLocal = true;
    Run(
        [&]
        {
            const FindDialogKit dialog = OpenDialog();
            dialog.Type(L"alpha");
            dialog.FindNext();
            EXPECT_EQ(ShownThreat(), L"alpha");
            m_database.SetLines({L"x|103015|alpha|1|x"});
            m_form.Page()->ShowLog(LogTypeTsc);
            dialog.FindNext();
            EXPECT_EQ(SelectedRow(), 0);
            m_database.RemoveDays();
            m_form.Page()->RefreshLog(CKestrixDlg::AnyReason);
            dialog.FindNext();
            EXPECT_EQ(SelectedRow(), -1);
            EXPECT_EQ(NoteText(), Text(IDS_SEARCH_NOTHING));
        });
}

TEST_F(LogFormFindDialogTest, TheKeyboardComesBackToTheListWhenTheDialogCloses)
{
    Run(
        [&]
        {
            m_form.Item(IDC_FORM_CLOSE).SetFocus();
            const FindDialogKit dialog = OpenDialog();
            dialog.TextField().SetFocus();
            dialog.Cancel();
            EXPECT_FALSE(dialog.IsOpen());
            EXPECT_EQ(::GetFocus(), List());
        });
}

TEST_F(LogFormFindDialogTest, EnterAndEscapeOfTheDialogAreItsOwn)
{
    bool isOpen = true;
    std::wstring shown;
    m_form.Run({[&]
                {
                    const FindDialogKit dialog = OpenDialog();
                    dialog.Type(L"beta");
                    dialog.TextField().SetFocus();
                    PressKey(dialog.TextField(), VK_RETURN);
                },
                [&]
                {
                    shown = ShownThreat();
                    PressKey(Dialog().TextField(), VK_ESCAPE);
                },
                [&] { isOpen = Dialog().IsOpen(); }});
    EXPECT_EQ(shown, L"beta");
    EXPECT_FALSE(isOpen);
}

// The system enables nothing but the window that a modal dialog belongs to.
TEST_F(LogFormFindDialogTest, TheDialogWaitsWhileTheFormWaitsForAModalOne)
{
    m_form.Run({[&]
                {
                    const FindDialogKit dialog = OpenDialog();
                    dialog.Type(L"beta");
                    m_form.EnableWindow(false);
                    EXPECT_FALSE(dialog.Window().IsWindowEnabled());
                    dialog.FindNext();
                    EXPECT_EQ(SelectedRow(), -1);
                    m_form.EnableWindow(true);
                    EXPECT_TRUE(dialog.Window().IsWindowEnabled());
                    dialog.FindNext();
                    EXPECT_EQ(SelectedRow(), 2);
                }});
}

TEST_F(LogFormFindDialogTest, TheDialogGoesWithTheForm)
{
    HWND window = nullptr;
    Run([&] { window = OpenDialog().Window(); });
    EXPECT_NE(window, nullptr);
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(LogFormFindDialogTest, TheDialogGoesWhenTheTabOfTheReportHidesThePage)
{
    const RegistrySandbox registry;
    m_form.m_bLogOnly = false;
    m_form.m_nReportSpan = 10'000; // days; the file's date is one of them
    Run(
        [&]
        {
            const auto selectTab = [&](WPARAM tab) { m_form.Item(IDC_FORM_TAB).SendMessage(TCM_SETCURFOCUS, tab); };
            selectTab(1);
            const FindDialogKit dialog = OpenDialog();
            EXPECT_TRUE(dialog.IsOpen());
            selectTab(0);
            EXPECT_FALSE(dialog.IsOpen());
            Press(m_form.Item(IDC_FORM_CLOSE), L'F', {VK_CONTROL});
            EXPECT_FALSE(Dialog().IsOpen()) << "the report has no entries";
        });
}
