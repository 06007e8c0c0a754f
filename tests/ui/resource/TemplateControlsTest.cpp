// Which controls the templates hold, in which order, and how the keyboard and screen readers reach them.

#include "resource/resource.h"
#include "tests/ui/resource/TemplateDialog.h"

#include <commctrl.h>

#include <array>
#include <set>
#include <string>
#include <string_view>

namespace
{

constexpr DWORD Caption = SS_NOPREFIX | SS_ENDELLIPSIS;
constexpr DWORD Value = ES_READONLY | ES_AUTOHSCROLL;
constexpr DWORD Stop = WS_TABSTOP;
constexpr DWORD Shown = WS_VISIBLE;

// Styles that a control's class sets and clears by itself, or that say nothing here.
constexpr DWORD Ignored = WS_CHILD | WS_GROUP | WS_BORDER | WS_CLIPSIBLINGS;

// What a control must be: its class, and all of its style but the ignored ones.
struct Control
{
    int number;
    const wchar_t* name;
    DWORD style;
};

constexpr std::array FormControls{
    Control{IDC_FORM_HEADING, Static, Shown | SS_NOPREFIX},
    Control{IDC_FORM_TAB, Tab, Shown | Stop},
    Control{IDC_FORM_HELP, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDC_FORM_REPORT_TITLE, Static, SS_NOPREFIX},
    Control{IDC_FORM_REPORT_TOTAL, Static, SS_NOPREFIX},
    Control{IDC_FORM_EXPORT, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDC_FORM_DELETE, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDC_FORM_CLOSE, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDC_FORM_MINIMISE, Button, Shown | BS_PUSHBUTTON},
    Control{IDC_FORM_CLOSE_BOX, Button, Shown | BS_PUSHBUTTON},
};

constexpr int Unnumbered = 0xFFFF; // the text before a combo box

constexpr std::array PageControls{
    Control{IDC_HEADING_DATES, Static, Shown},
    Control{IDC_DATE_LIST, ListBox, Shown | Stop | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT},
    Control{IDC_HEADING_ENTRIES, Static, Shown},
    Control{IDC_RECORD_LIST, ListView,
            Shown | Stop | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | LVS_OWNERDATA},
    Control{IDC_SEARCH_NOTE, Static, SS_NOPREFIX},
    Control{IDC_DETAIL_FRAME, Static, Shown | SS_NOPREFIX},
    Control{IDC_HEADING_DETAILS, Static, Shown | SS_NOPREFIX},
    Control{IDC_INFO_VALUE_0_LINK, Static, Shown | SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY},
    Control{IDC_INFO_LABEL_0, Static, Shown | Caption},
    Control{IDC_INFO_VALUE_0_TEXT, Edit, Shown | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL},
    Control{IDC_INFO_LABEL_1, Static, Shown | Caption},
    Control{IDC_INFO_VALUE_1, Edit, Shown | Value},
    Control{IDC_INFO_LABEL_2, Static, Shown | Caption},
    Control{IDC_INFO_VALUE_2, Edit, Shown | Value},
    Control{IDC_INFO_VALUE_2_WHOLE, Edit, Stop | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL},
    Control{IDC_INFO_LABEL_3, Static, Shown | Caption},
    Control{IDC_INFO_VALUE_3, Edit, Shown | Value},
    Control{IDC_INFO_LABEL_4, Static, Shown | Caption},
    Control{IDC_INFO_VALUE_4, Edit, Shown | Value},
    Control{IDC_INFO_LABEL_5, Static, Shown | Caption},
    Control{IDC_INFO_VALUE_5, Edit, Shown | Value},
    Control{IDC_INFO_LABEL_6, Static, Shown | Caption},
    Control{IDC_INFO_VALUE_6, Edit, Shown | Value},
    Control{IDC_ALLOW_LABEL, Static, SS_RIGHT},
    Control{IDC_ALLOW, Button, Stop | BS_PUSHBUTTON},
    Control{Unnumbered, Static, Shown},
    Control{IDC_LOG_TYPE, ComboBox, Shown | Stop | CBS_DROPDOWNLIST},
    Control{IDC_VIEW, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDC_SPARE_EDIT, Edit, ES_READONLY},
    Control{IDC_SETTING, Button, Shown | Stop | BS_PUSHBUTTON},
};

constexpr std::array SettingsControls{
    Control{IDC_SETTINGS_HEADING, Static, Shown | SS_NOPREFIX},
    Control{IDC_SETTINGS_PURGE, Button, Shown | Stop | BS_AUTOCHECKBOX},
    Control{Unnumbered, Static, Shown},
    Control{IDC_SETTINGS_FREQUENCY, ComboBox, Shown | Stop | CBS_DROPDOWNLIST},
    Control{IDOK, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDCANCEL, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDC_SETTINGS_CLOSE_BOX, Button, Shown | BS_PUSHBUTTON},
};

constexpr std::array DeletionControls{
    Control{IDC_DELETE_HEADING, Static, Shown | SS_NOPREFIX},
    Control{Unnumbered, Static, Shown},
    Control{IDC_DELETE_DATE, ComboBox, Shown | Stop | CBS_DROPDOWNLIST},
    Control{IDOK, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDCANCEL, Button, Shown | Stop | BS_PUSHBUTTON},
    Control{IDC_DELETE_CLOSE_BOX, Button, Shown | BS_PUSHBUTTON},
};

constexpr DWORD Link = Shown | Stop | SS_NOPREFIX | SS_NOTIFY;

constexpr std::array ReportControls{
    Control{IDC_REPORT_PAGE_TITLE, Static, Shown | SS_NOPREFIX},
    Control{IDC_REPORT_RULE, Static, Shown | SS_ETCHEDHORZ},
    Control{IDC_REPORT_ANCHOR_VIRUS, Static, Shown | SS_NOPREFIX},
    Control{IDC_REPORT_VIRUS, Static, Link},
    Control{IDC_REPORT_ANCHOR_SUSPICIOUS, Static, Shown | SS_NOPREFIX},
    Control{IDC_REPORT_SUSPICIOUS, Static, Link},
    Control{IDC_REPORT_ANCHOR_SPYWARE, Static, Shown | SS_NOPREFIX},
    Control{IDC_REPORT_SPYWARE, Static, Link},
    Control{IDC_REPORT_ANCHOR_WEB, Static, Shown | SS_NOPREFIX},
    Control{IDC_REPORT_WEB, Static, Link},
    Control{IDC_REPORT_ANCHOR_DATA_PREVENTION, Static, Shown | SS_NOPREFIX},
    Control{IDC_REPORT_DATA_PREVENTION, Static, Link},
    Control{IDC_REPORT_NO_DATA, Static, SS_NOPREFIX},
    Control{IDC_REPORT_FRAME, Static, Shown | SS_ETCHEDFRAME},
};

// Styles that lists set by themselves: a scroll bar when they need one, and that they keep texts.
DWORD SetByLists(std::wstring_view name)
{
    if (name == ListBox)
    {
        return WS_VSCROLL | LBS_HASSTRINGS;
    }
    return name == ComboBox ? WS_VSCROLL | CBS_HASSTRINGS : 0;
}

template <std::size_t Count>
void ExpectControls(const TemplateDialog& dialog, const std::array<Control, Count>& expected)
{
    const auto children = dialog.Children();
    ASSERT_EQ(Count, children.size());
    for (std::size_t i = 0; i < Count; ++i)
    {
        EXPECT_EQ(expected[i].number, NumberOf(children[i])) << "place " << i;
        EXPECT_EQ(std::wstring(expected[i].name), ClassOf(children[i])) << expected[i].number;
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(children[i], GWL_STYLE));
        EXPECT_EQ(expected[i].style, style & ~(Ignored | SetByLists(expected[i].name))) << expected[i].number;
    }
}

} // namespace

TEST_F(Templates, FormHasItsControlsInTheOrderOfTheTabKey)
{
    ExpectControls(m_form, FormControls);
}

TEST_F(Templates, PageHasItsControlsInTheOrderOfTheTabKey)
{
    ExpectControls(m_page, PageControls);
}

TEST_F(Templates, ReportHasItsControlsInTheOrderOfTheTabKey)
{
    ExpectControls(m_report, ReportControls);
}

TEST_F(Templates, SmallDialogsHaveTheirControlsInTheOrderOfTheTabKey)
{
    ExpectControls(m_settings, SettingsControls);
    ExpectControls(m_deletion, DeletionControls);
}

TEST_F(Templates, FormAndSmallDialogsArePopupsWithoutAFrameOfTheSystem)
{
    for (const TemplateDialog* dialog : {&m_form, &m_settings, &m_deletion})
    {
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(dialog->Window(), GWL_STYLE));
        EXPECT_EQ(static_cast<DWORD>(WS_POPUP | WS_SYSMENU),
                  style & (WS_POPUP | WS_SYSMENU | WS_CAPTION | WS_THICKFRAME | WS_VISIBLE | WS_MINIMIZEBOX));
        RECT window{};
        GetWindowRect(dialog->Window(), &window);
        EXPECT_EQ(Width(window), Width(dialog->Client()));
        EXPECT_EQ(Height(window), Height(dialog->Client()));
    }
}

TEST_F(Templates, PageIsAHiddenChildWhoseControlsTakePartInTheTabOrder)
{
    for (const TemplateDialog* page : {&m_page, &m_report})
    {
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(page->Window(), GWL_STYLE));
        EXPECT_EQ(static_cast<DWORD>(WS_CHILD), style & (WS_CHILD | WS_VISIBLE | WS_CAPTION | WS_BORDER));
        EXPECT_TRUE(style & DS_CONTROL);
        EXPECT_TRUE(GetWindowLongPtrW(page->Window(), GWL_EXSTYLE) & WS_EX_CONTROLPARENT);
    }
}

TEST_F(Templates, PageShowsThroughTheTabControlInFrontOfIt)
{
    // A page that clips its siblings would be left out where the tab control stands.
    EXPECT_FALSE(GetWindowLongPtrW(m_page.Window(), GWL_STYLE) & WS_CLIPSIBLINGS);
    EXPECT_FALSE(GetWindowLongPtrW(m_report.Window(), GWL_STYLE) & WS_CLIPSIBLINGS);
}

TEST_F(Templates, BackgroundIsPaintedUnderTransparentControls)
{
    for (const TemplateDialog* dialog : m_all)
    {
        EXPECT_FALSE(GetWindowLongPtrW(dialog->Window(), GWL_STYLE) & WS_CLIPCHILDREN);
    }
}

TEST_F(Templates, FontIsSegoeUIAtNinePoints)
{
    for (const TemplateDialog* dialog : m_all)
    {
        const HWND window = dialog->Window();
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
        const HDC dc = GetDC(window);
        EXPECT_STREQ(L"Segoe UI", font.lfFaceName);
        EXPECT_EQ(-MulDiv(9, GetDeviceCaps(dc, LOGPIXELSY), 72), font.lfHeight);
        EXPECT_EQ(FW_NORMAL, font.lfWeight);
        ReleaseDC(window, dc);
    }
}

TEST_F(Templates, CaptionButtonsAreTransparentAndHaveANameForScreenReaders)
{
    for (const HWND button : {m_form.Item(IDC_FORM_MINIMISE), m_form.Item(IDC_FORM_CLOSE_BOX),
                              m_settings.Item(IDC_SETTINGS_CLOSE_BOX), m_deletion.Item(IDC_DELETE_CLOSE_BOX)})
    {
        EXPECT_NE(L"", TextOf(button));
        EXPECT_TRUE(GetWindowLongPtrW(button, GWL_EXSTYLE) & WS_EX_TRANSPARENT) << NumberOf(button);
    }
}

// The third value and its whole text, of which one is hidden, stand one after the other.
TEST_F(Templates, ATextStandsDirectlyBeforeEveryListComboAndEditToNameIt)
{
    const std::set<std::wstring> named{ListBox, ListView, ComboBox, Edit};
    for (const TemplateDialog* dialog : {&m_page, &m_settings, &m_deletion})
    {
        for (const HWND child : dialog->Children())
        {
            if (named.contains(ClassOf(child)) && NumberOf(child) != IDC_SPARE_EDIT &&
                NumberOf(child) != IDC_INFO_VALUE_2_WHOLE)
            {
                EXPECT_EQ(Static, ClassOf(GetWindow(child, GW_HWNDPREV))) << NumberOf(child);
            }
        }
    }
    EXPECT_EQ(IDC_HEADING_DATES, NumberOf(GetWindow(m_page.Item(IDC_DATE_LIST), GW_HWNDPREV)));
    EXPECT_EQ(IDC_HEADING_ENTRIES, NumberOf(GetWindow(m_page.Item(IDC_RECORD_LIST), GW_HWNDPREV)));
    EXPECT_EQ(IDC_INFO_LABEL_2, NumberOf(GetWindow(m_page.Item(IDC_INFO_VALUE_2), GW_HWNDPREV)));
    EXPECT_EQ(IDC_INFO_VALUE_2, NumberOf(GetWindow(m_page.Item(IDC_INFO_VALUE_2_WHOLE), GW_HWNDPREV)));
}

TEST_F(Templates, TheTabKeyGoesFromTheDatesToTheRecordsAndThenToTheChoiceOfTheLog)
{
    HWND control = m_page.Item(IDC_DATE_LIST);
    for (const int next : {IDC_RECORD_LIST, IDC_LOG_TYPE, IDC_VIEW, IDC_SETTING, IDC_DATE_LIST})
    {
        control = GetNextDlgTabItem(m_page.Window(), control, FALSE);
        EXPECT_EQ(next, NumberOf(control));
    }
}
