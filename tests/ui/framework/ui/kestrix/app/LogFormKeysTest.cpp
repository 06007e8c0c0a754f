// The form under the user's hands: keys, closing, dragging, the way of the Tab key, and names for screen readers.

#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <algorithm>
#include <array>

namespace
{

class LogFormKeysTest : public FormTest
{
protected:
    void PressKey(HWND target, WPARAM key)
    {
        ::PostMessageW(target, WM_KEYDOWN, key, 1);
        ::PostMessageW(target, WM_KEYUP, key, 1);
    }

    // The controls that the Tab key visits, from the first on until it comes to one again. No key is pressed here: the
    // focus goes when another program comes to the front meanwhile.
    std::vector<int> TabWay()
    {
        std::vector<int> way;
        m_form.Run({[&]
                    {
                        HWND control = ::GetNextDlgTabItem(m_form, nullptr, FALSE);
                        while (control != nullptr && std::ranges::count(way, ::GetDlgCtrlID(control)) == 0)
                        {
                            way.push_back(::GetDlgCtrlID(control));
                            control = ::GetNextDlgTabItem(m_form, control, FALSE);
                        }
                    }});
        return way;
    }
};

std::wstring ClassOf(HWND window)
{
    std::array<wchar_t, 64> name{};
    ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

// What a screen reader calls a control: a button's own text, the text right before any other.
std::wstring AccessibleName(HWND control)
{
    if (ClassOf(control) == WC_BUTTONW)
    {
        return CWindow(control).GetWindowText();
    }
    const HWND before = ::GetWindow(control, GW_HWNDPREV);
    return before != nullptr && ClassOf(before) == WC_STATICW ? CWindow(before).GetWindowText() : std::wstring();
}

// All controls below a window that the Tab key can reach, now or once they are shown; lists inside of controls are not.
std::vector<HWND> FocusControls(HWND window)
{
    std::vector<HWND> controls;
    for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        if ((CWindow(child).GetExStyle() & WS_EX_CONTROLPARENT) != 0)
        {
            std::ranges::copy(FocusControls(child), std::back_inserter(controls));
        }
        else if ((CWindow(child).GetStyle() & WS_TABSTOP) != 0)
        {
            controls.push_back(child);
        }
    }
    return controls;
}

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
    constexpr LPARAM altIsDown = 0x20000001;
    EXPECT_EQ(m_form.RunToItsOwnEnd({[&] {
        ::PostMessageW(m_form.Page()->GetDlgItem(IDC_RECORD_LIST), WM_SYSKEYDOWN, VK_F4, altIsDown);
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

TEST_F(LogFormKeysTest, EveryControlThatCanHaveTheFocusHasANameForScreenReaders)
{
    m_form.Run({[&]
                {
                    const std::vector<HWND> controls = FocusControls(m_form);
                    EXPECT_GE(controls.size(), 11u);
                    for (const HWND control : controls)
                    {
                        if (::GetDlgCtrlID(control) != IDC_FORM_TAB) // has names of its own, and is not shown
                        {
                            EXPECT_NE(AccessibleName(control), L"") << ::GetDlgCtrlID(control);
                        }
                    }
                    EXPECT_EQ(AccessibleName(m_form.Page()->GetDlgItem(IDC_DATE_LIST)), Text(IDS_HEADING_DATES));
                    EXPECT_EQ(AccessibleName(m_form.Page()->GetDlgItem(IDC_RECORD_LIST)), Text(IDS_HEADING_ENTRIES));
                    EXPECT_EQ(AccessibleName(m_form.Page()->GetDlgItem(IDC_INFO_VALUE_2_WHOLE)),
                              Text(IDS_LABEL_LOCATION));
                }});
}
