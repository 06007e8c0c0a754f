// The form under the user's hands: keys, closing, dragging, the way of the Tab key, and access keys.

#include "tests/ui/framework/ui/kestrix/app/KeysFormTest.h"

#include <set>

namespace
{

class LogFormKeysTest : public KeysFormTest
{
protected:
    std::vector<int> TabWay()
    {
        std::vector<int> way;
        m_form.Run({[&] { way = WalkTabs(); }});
        return way;
    }

    void PressAltAnd(wchar_t letter) const { ::PostMessageW(PageItem(IDC_VIEW), WM_SYSCHAR, letter, AltIsDown); }

    // The control that has the focus after Alt with this letter, from elsewhere.
    int FocusAfterAltAnd(wchar_t letter)
    {
        int focus = 0;
        m_form.Run({[&]
                    {
                        m_form.Item(IDC_FORM_CLOSE).SetFocus();
                        PressAltAnd(letter);
                    },
                    [] {}, [&] { focus = ::GetDlgCtrlID(::GetFocus()); }});
        return focus;
    }
};

} // namespace

TEST_F(LogFormKeysTest, EnterAndEscapeDoNotCloseWhateverHasTheFocus)
{
    std::vector<ScriptedForm::Step> steps;
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE})
    {
        steps.push_back([this, key] { PressKey(m_form, key); });
        steps.push_back([this, key] { PressKey(*m_form.Page(), key); });
        for (const UINT control : {IDC_DATE_LIST, IDC_RECORD_LIST, IDC_LOG_TYPE, IDC_VIEW})
        {
            steps.push_back(
                [this, key, control]
                {
                    const HWND window = m_form.Page()->GetDlgItem(static_cast<int>(control));
                    ::SetFocus(window);
                    PressKey(window, key);
                });
        }
        for (const UINT control : {IDC_FORM_EXPORT, IDC_FORM_CLOSE})
        {
            steps.push_back(
                [this, key, control]
                {
                    m_form.Item(control).SetFocus();
                    PressKey(m_form.Item(control), key);
                });
        }
    }
    bool visible = false;
    steps.push_back([&] { visible = m_form.IsWindowVisible(); });
    EXPECT_EQ(m_form.Run(steps), ScriptedForm::EndedByTest);
    EXPECT_TRUE(visible);
    EXPECT_TRUE(m_boxes.Boxes().empty()) << "View must not take Enter";
}

TEST_F(LogFormKeysTest, TheCloseButtonCloses)
{
    EXPECT_EQ(m_form.RunToItsOwnEnd({[&] { m_form.Item(IDC_FORM_CLOSE).SendMessage(BM_CLICK); }}), IDCANCEL);
}

TEST_F(LogFormKeysTest, SpaceOnTheCloseButtonCloses)
{
    EXPECT_EQ(m_form.RunToItsOwnEnd({[&]
                                     {
                                         m_form.Item(IDC_FORM_CLOSE).SetFocus();
                                         PressKey(m_form.Item(IDC_FORM_CLOSE), VK_SPACE);
                                     }}),
              IDCANCEL);
}

TEST_F(LogFormKeysTest, AltAndF4Close)
{
    EXPECT_EQ(m_form.RunToItsOwnEnd({[&] {
        ::PostMessageW(m_form.Page()->GetDlgItem(IDC_RECORD_LIST), WM_SYSKEYDOWN, VK_F4, AltIsDown);
    }}),
              IDCANCEL);
}

TEST_F(LogFormKeysTest, ThePartOfThePageTakesArrowKeysFromTheQueue)
{
    std::wstring threat;
    m_form.Run({[&]
                {
                    const CWindow list(m_form.Page()->GetDlgItem(IDC_RECORD_LIST));
                    ::SetFocus(list);
                    PressKey(list, VK_HOME); // selects the first row and leaves the pane
                    PressKey(list, VK_DOWN);
                },
                [] {}, [&] { threat = m_form.Page()->GetDlgItemText(IDC_INFO_VALUE_0_LINK); }});
    EXPECT_EQ(threat, L"gamma") << "the second row";
}

TEST_F(LogFormKeysTest, TheClientAreaDragsTheWindow)
{
    MSG drag{};
    BOOL found = FALSE;
    m_form.Run({[&]
                {
                    m_form.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(123, 45));
                    found = ::PeekMessageW(&drag, m_form, WM_NCLBUTTONDOWN, WM_NCLBUTTONDOWN, PM_REMOVE);
                }});
    ASSERT_TRUE(found);
    EXPECT_EQ(drag.wParam, static_cast<WPARAM>(HTCAPTION));
    EXPECT_EQ(drag.lParam, MAKELPARAM(123, 45));
}

TEST_F(LogFormKeysTest, TheTabKeyVisitsTheControlsInTheOrderOfTheTemplates)
{
    EXPECT_EQ(TabWay(), (std::vector<int>{IDC_DATE_LIST, IDC_RECORD_LIST, IDC_LOG_TYPE, IDC_VIEW, IDC_FORM_HELP,
                                          IDC_FORM_EXPORT, IDC_FORM_CLOSE}));
}

TEST_F(LogFormKeysTest, InDatabaseModeTheTabKeyVisitsSettingsAndDeleteToo)
{
    m_database.AddDay(2026, 11, 20);
    m_form.m_bIsLocal = true;
    EXPECT_EQ(TabWay(), (std::vector<int>{IDC_DATE_LIST, IDC_RECORD_LIST, IDC_LOG_TYPE, IDC_VIEW, IDC_SETTING,
                                          IDC_FORM_HELP, IDC_FORM_EXPORT, IDC_FORM_DELETE, IDC_FORM_CLOSE}));
}

TEST_F(LogFormKeysTest, TheTabKeyLeadsOutOfThePageIntoTheForm)
{
    int focus = 0;
    m_form.Run({[&]
                {
                    const HWND view = m_form.Page()->GetDlgItem(IDC_VIEW);
                    ::SetFocus(view);
                    PressKey(view, VK_TAB);
                },
                [&] { focus = ::GetDlgCtrlID(::GetFocus()); }});
    EXPECT_EQ(focus, IDC_FORM_HELP);
}

TEST_F(LogFormKeysTest, AccessKeysLeadToTheListsAndToTheChoiceOfTheLog)
{
    EXPECT_EQ(FocusAfterAltAnd(L't'), IDC_DATE_LIST);
    EXPECT_EQ(FocusAfterAltAnd(L'n'), IDC_RECORD_LIST);
    EXPECT_EQ(FocusAfterAltAnd(L'l'), IDC_LOG_TYPE);
}

TEST_F(LogFormKeysTest, AccessKeysPressButtonsOfFormAndPage)
{
    EXPECT_EQ(m_form.RunToItsOwnEnd({[&] { PressAltAnd(L'v'); }, [] {}, [&] { PressAltAnd(L'c'); }}), IDCANCEL);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes().front().text, Text(IDS_ONLY_THIS_FILE));
}

TEST_F(LogFormKeysTest, AnAccessKeyMinimisesTheForm)
{
    BOOL iconic = FALSE;
    m_form.Run({[&] { PressAltAnd(L'm'); }, [] {}, [&] { iconic = m_form.IsIconic(); }});
    EXPECT_TRUE(iconic);
}

TEST_F(LogFormKeysTest, EveryCommandAndListOfTheFormHasAnAccessKeyOfItsOwn)
{
    std::multiset<wchar_t> keys;
    m_form.Run({[&]
                {
                    for (const HWND window : {m_form.GetSafeHwnd(), m_form.Page()->GetSafeHwnd()})
                    {
                        for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
                             child = ::GetWindow(child, GW_HWNDNEXT))
                        {
                            const std::wstring text = CWindow(child).GetWindowText();
                            const auto mark = text.find(L'&');
                            if (mark != std::wstring::npos && (CWindow(child).GetStyle() & SS_NOPREFIX) == 0)
                            {
                                keys.insert(static_cast<wchar_t>(::towupper(text.at(mark + 1))));
                            }
                        }
                    }
                }});
    EXPECT_EQ(keys, (std::multiset<wchar_t>{L'A', L'C', L'D', L'E', L'H', L'L', L'M', L'N', L'S', L'T', L'V'}));
}
