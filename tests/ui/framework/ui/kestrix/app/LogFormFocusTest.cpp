// Where the keyboard is in the form: in the values that can be clicked, and never with a control that has gone.

#include "tests/support/StartRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/KeysFormTest.h"

namespace
{

int FocusId()
{
    return ::GetDlgCtrlID(::GetFocus());
}

class LogFormFocusTest : public KeysFormTest
{
protected:
    void OpenDatabase()
    {
        m_database.AddDay(2026, 11, 20);
        m_database.SetLines({L"x|1030|1048576|x|0|0|alpha|C:\\a|4|1|0|0|x"});
        m_form.m_bIsLocal = true;
    }

    // Focuses the control, does this with it, and returns where the focus is then. All in one step: the system takes
    // the focus away between two of them when another program comes to the front, and on a busy machine also when it
    // hears late of a window that has gone.
    int FocusAfter(UINT control, const ScriptedForm::Step& step)
    {
        int focus = -1;
        m_form.Run({[&] { ShowFirstRecord(); },
                    [&]
                    {
                        const HWND ofForm = m_form.Item(control);
                        ::SetFocus(ofForm != nullptr ? ofForm : PageItem(control));
                        EXPECT_EQ(FocusId(), static_cast<int>(control));
                        step();
                        focus = FocusId();
                    }});
        return focus;
    }

    // A key that the message loop deals with at once, and with the command that it posts.
    static void TypeKey(HWND target, WPARAM key)
    {
        for (const UINT action : {WM_KEYDOWN, WM_KEYUP})
        {
            MSG message{};
            message.hwnd = target;
            message.message = action;
            message.wParam = key;
            message.lParam = 1;
            if (!IsTranslated(message))
            {
                ::DispatchMessageW(&message);
            }
        }
        MSG command{};
        while (::PeekMessageW(&command, nullptr, WM_COMMAND, WM_COMMAND, PM_REMOVE))
        {
            ::DispatchMessageW(&command);
        }
    }

    // The log loses its last day while the button has the focus.
    void ExpectToLeave(UINT button)
    {
        OpenDatabase();
        const int focus = FocusAfter(button,
                                     [&]
                                     {
                                         m_database.RemoveDays();
                                         m_form.Page()->RefreshLog(CKestrixDlg::AnyReason);
                                         EXPECT_FALSE(m_form.Item(button).IsWindowEnabled());
                                     });
        EXPECT_EQ(focus, IDC_RECORD_LIST);
    }
};

} // namespace

TEST_F(LogFormFocusTest, TheTabKeyComesToTheLinkAndTheValuesOfARecordAfterTheList)
{
    std::vector<int> way;
    m_form.Run({[&] { ShowFirstRecord(); }, [&] { way = WalkTabs(); }});
    EXPECT_EQ(way, (std::vector<int>{IDC_DATE_LIST, IDC_RECORD_LIST, IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_1,
                                     IDC_INFO_VALUE_2, IDC_INFO_VALUE_3, IDC_INFO_VALUE_4, IDC_LOG_TYPE, IDC_VIEW,
                                     IDC_FORM_HELP, IDC_FORM_EXPORT, IDC_FORM_CLOSE}))
        << "values without a text are passed over";
}

TEST_F(LogFormFocusTest, SpaceOnTheLinkOpensThePageOfTheThreat)
{
    const StartRecorder starts;
    const int focus = FocusAfter(IDC_INFO_VALUE_0_LINK, [&] { TypeKey(PageItem(IDC_INFO_VALUE_0_LINK), VK_SPACE); });
    EXPECT_EQ(starts.Starts().size(), 1u);
    EXPECT_EQ(focus, IDC_INFO_VALUE_0_LINK);
}

TEST_F(LogFormFocusTest, EnterOnTheLinkDoesNothing)
{
    const StartRecorder starts;
    FocusAfter(IDC_INFO_VALUE_0_LINK, [&] { TypeKey(PageItem(IDC_INFO_VALUE_0_LINK), VK_RETURN); });
    EXPECT_TRUE(starts.Starts().empty());
}

TEST_F(LogFormFocusTest, SpaceOnTheLocationOpensTheWholeTextWhichHasTheFocusThen)
{
    std::vector<int> way;
    const int focus = FocusAfter(IDC_INFO_VALUE_2,
                                 [&]
                                 {
                                     TypeKey(PageItem(IDC_INFO_VALUE_2), VK_SPACE);
                                     EXPECT_EQ(m_form.Page()->GetDlgItemText(IDC_INFO_VALUE_2_WHOLE), L"C:\\a");
                                     way = WalkTabs();
                                 });
    EXPECT_EQ(focus, IDC_INFO_VALUE_2_WHOLE);
    EXPECT_TRUE(std::ranges::count(way, IDC_INFO_VALUE_2_WHOLE) == 1);
    EXPECT_TRUE(std::ranges::count(way, IDC_INFO_VALUE_2) == 0) << "hidden";
}

TEST_F(LogFormFocusTest, AClickOfTheMouseOnTheLocationLeavesTheFocusWhereItIs)
{
    EXPECT_EQ(FocusAfter(IDC_RECORD_LIST, [&] { ::SendMessageW(PageItem(IDC_INFO_VALUE_2), WM_LBUTTONDOWN, 0, 0); }),
              IDC_RECORD_LIST);
}

TEST_F(LogFormFocusTest, TheFocusLeavesALinkThatARefreshEmptiesForAControlThatTakesKeys)
{
    OpenDatabase();
    bool takesKeys = false;
    const int focus = FocusAfter(IDC_INFO_VALUE_0_LINK,
                                 [&]
                                 {
                                     m_form.Page()->RefreshLog(CKestrixDlg::AnyReason);
                                     takesKeys = TakesKeys(::GetFocus());
                                 });
    EXPECT_TRUE(takesKeys);
    EXPECT_NE(focus, IDC_INFO_VALUE_0_LINK);
}

TEST_F(LogFormFocusTest, TheFocusLeavesTheWholeLocationThatARefreshHides)
{
    OpenDatabase();
    bool takesKeys = false;
    const int focus = FocusAfter(IDC_INFO_VALUE_2,
                                 [&]
                                 {
                                     m_form.Page()->SendMessage(WM_COMMAND, MAKEWPARAM(IDC_INFO_VALUE_2, STN_CLICKED));
                                     EXPECT_EQ(FocusId(), IDC_INFO_VALUE_2_WHOLE);
                                     m_form.Page()->RefreshLog(CKestrixDlg::AnyReason);
                                     EXPECT_EQ(ListView_GetItemCount(PageItem(IDC_RECORD_LIST)), 1);
                                     EXPECT_FALSE(CWindow(PageItem(IDC_INFO_VALUE_2_WHOLE)).IsWindowVisible());
                                     takesKeys = TakesKeys(::GetFocus());
                                 });
    EXPECT_TRUE(takesKeys);
    EXPECT_NE(focus, IDC_INFO_VALUE_2_WHOLE);
}

// Its place stays on the page without a text, where no key would do anything.
TEST_F(LogFormFocusTest, TheFocusLeavesALocationThatAnotherLogHasNot)
{
    OpenDatabase();
    const int focus = FocusAfter(IDC_INFO_VALUE_2,
                                 [&]
                                 {
                                     m_form.Page()->m_nLogType = LogTypeScan;
                                     m_form.Page()->RefreshLog(CKestrixDlg::AnyReason);
                                     EXPECT_TRUE(CWindow(PageItem(IDC_INFO_VALUE_2)).IsWindowVisible());
                                     EXPECT_TRUE(CWindow(PageItem(IDC_INFO_VALUE_2)).IsWindowEnabled());
                                 });
    EXPECT_EQ(focus, IDC_RECORD_LIST);
}

TEST_F(LogFormFocusTest, TheFocusLeavesAnExportButtonThatARefreshDisables)
{
    ExpectToLeave(IDC_FORM_EXPORT);
}

TEST_F(LogFormFocusTest, TheFocusLeavesADeleteButtonThatARefreshDisables)
{
    ExpectToLeave(IDC_FORM_DELETE);
}

TEST_F(LogFormFocusTest, TheFocusStaysWithAControlThatARefreshLeavesAlone)
{
    OpenDatabase();
    EXPECT_EQ(FocusAfter(IDC_VIEW, [&] { m_form.Page()->RefreshLog(CKestrixDlg::AnyReason); }), IDC_VIEW);
}

TEST_F(LogFormFocusTest, AFormThatComesBackWhoseButtonWasDisabledMeanwhileGivesTheFocusToTheList)
{
    EXPECT_EQ(FocusAfter(IDC_FORM_EXPORT,
                         [&]
                         {
                             m_form.Item(IDC_FORM_EXPORT).EnableWindow(false);
                             m_form.SendMessage(WM_ACTIVATE, WA_INACTIVE);
                             m_form.SendMessage(WM_ACTIVATE, WA_ACTIVE);
                         }),
              IDC_RECORD_LIST);
}

// The list is given the focus when the form is seen again, not before. A disabled button has lost it.
TEST_F(LogFormFocusTest, AFormThatIsActivatedAsAnIconGivesTheFocusToNoControl)
{
    constexpr int noControl = 0;
    EXPECT_EQ(FocusAfter(IDC_FORM_EXPORT,
                         [&]
                         {
                             m_form.Item(IDC_FORM_EXPORT).EnableWindow(false);
                             m_form.SendMessage(WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, TRUE));
                         }),
              noControl);
}
