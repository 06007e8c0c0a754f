// Where the controls of the templates stand.

#include "framework/ui/kestrix/logs/LogKinds.h"
#include "resource/resource.h"
#include "tests/ui/resource/TemplateDialog.h"
#include "tests/unit/resource/BuiltFile.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace
{

constexpr std::array Captions{IDC_INFO_LABEL_0, IDC_INFO_LABEL_1, IDC_INFO_LABEL_2, IDC_INFO_LABEL_3,
                              IDC_INFO_LABEL_4, IDC_INFO_LABEL_5, IDC_INFO_LABEL_6};
constexpr std::array Values{IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2, IDC_INFO_VALUE_3,
                            IDC_INFO_VALUE_4,      IDC_INFO_VALUE_5, IDC_INFO_VALUE_6};

bool Overlap(const RECT& one, const RECT& other)
{
    RECT common{};
    return IntersectRect(&common, &one, &other) != FALSE;
}

// Pairs that may overlap: the two forms of a value, a heading with the note in it, and a frame with what it surrounds.
bool MayOverlap(int one, int other)
{
    static const std::set<std::pair<int, int>> pairs{{IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_0_TEXT},
                                                     {IDC_INFO_VALUE_2, IDC_INFO_VALUE_2_WHOLE},
                                                     {IDC_HEADING_ENTRIES, IDC_SEARCH_NOTE}};
    static const std::set<int> frames{IDC_DETAIL_FRAME, IDC_REPORT_FRAME};
    return frames.contains(one) || frames.contains(other) || pairs.contains(std::minmax(one, other));
}

void ExpectNoOverlap(const TemplateDialog& dialog)
{
    const auto children = dialog.Children();
    for (std::size_t one = 0; one < children.size(); ++one)
    {
        EXPECT_TRUE(Holds(dialog.Client(), dialog.Place(children[one]))) << NumberOf(children[one]);
        for (std::size_t other = one + 1; other < children.size(); ++other)
        {
            const int first = NumberOf(children[one]);
            const int second = NumberOf(children[other]);
            if (!MayOverlap(first, second))
            {
                EXPECT_FALSE(Overlap(dialog.Place(children[one]), dialog.Place(children[other])))
                    << first << " and " << second;
            }
        }
    }
}

} // namespace

TEST_F(Templates, ControlsLieInsideTheirDialogAndApart)
{
    for (const TemplateDialog* dialog : m_all)
    {
        ExpectNoOverlap(*dialog);
    }
}

TEST_F(Templates, SmallDialogsHaveTheMarginsOfTheForm)
{
    const auto rightMargin = [](const TemplateDialog& dialog, int control)
    { return dialog.Client().right - dialog.Place(control).right; };
    const auto bottomMargin = [](const TemplateDialog& dialog, int control)
    { return dialog.Client().bottom - dialog.Place(control).bottom; };
    const RECT button = m_form.Place(IDC_FORM_CLOSE);
    for (const TemplateDialog* dialog : m_small)
    {
        EXPECT_EQ(rightMargin(*dialog, IDCANCEL), rightMargin(m_form, IDC_FORM_CLOSE));
        EXPECT_NEAR(bottomMargin(*dialog, IDCANCEL), bottomMargin(m_form, IDC_FORM_CLOSE), 1);
        EXPECT_EQ(Width(dialog->Place(IDCANCEL)), Width(button));
        EXPECT_NEAR(Height(dialog->Place(IDCANCEL)), Height(button), 1);
        EXPECT_NEAR(dialog->Place(IDCANCEL).left - dialog->Place(IDOK).right,
                    button.left - m_form.Place(IDC_FORM_DELETE).right, 1);
    }
    for (const auto& [dialog, left, heading, closeBox] :
         {std::tuple{&m_settings, IDC_SETTINGS_PURGE, IDC_SETTINGS_HEADING, IDC_SETTINGS_CLOSE_BOX},
          std::tuple{&m_deletion, IDC_DELETE_DATE, IDC_DELETE_HEADING, IDC_DELETE_CLOSE_BOX}})
    {
        EXPECT_EQ(dialog->Place(left).left, m_form.Place(IDC_FORM_HELP).left);
        EXPECT_EQ(dialog->Place(heading).left, m_form.Place(IDC_FORM_HEADING).left);
        EXPECT_EQ(rightMargin(*dialog, closeBox), rightMargin(m_form, IDC_FORM_CLOSE_BOX));
    }
}

// Their top part is not stretched.
TEST_F(Templates, SmallDialogsAreNoWiderThanTheTopOfTheFrame)
{
    const auto bitmap = ResourceBytes(BuiltLanguageFile(), IDB_FRAME_TOP, MAKEINTRESOURCEW(2));
    BITMAPINFOHEADER header{};
    std::memcpy(&header, bitmap.data(), sizeof header);
    for (const TemplateDialog* dialog : m_small)
    {
        EXPECT_LE(Width(dialog->Client()), header.biWidth);
    }
}

TEST_F(Templates, SmallDialogsStandInTheMiddleOfTheForm)
{
    RECT form{};
    GetWindowRect(m_form.Window(), &form);
    for (const TemplateDialog* dialog : m_small)
    {
        RECT place{};
        GetWindowRect(dialog->Window(), &place);
        EXPECT_NEAR(place.left - form.left, form.right - place.right, 2);
        EXPECT_NEAR(place.top - form.top, form.bottom - place.bottom, 2);
    }
}

TEST_F(Templates, PageFillsTheAreaOfTheTabControl)
{
    const HWND tab = m_form.Item(IDC_FORM_TAB);
    std::wstring title = LanguageText(319 /* the tab of the log page, which no code names yet */);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = title.data();
    SendMessageW(tab, TCM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    RECT area{};
    GetClientRect(tab, &area);
    SendMessageW(tab, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));

    // Dialog units are rounded to pixels, and the height of a tab follows the font.
    EXPECT_NEAR(Width(area), Width(m_page.Client()), 3);
    EXPECT_NEAR(Height(area), Height(m_page.Client()), 6);
}

TEST_F(Templates, SkinnedButtonsAreAtLeast26PixelsWideAndHigh)
{
    for (const TemplateDialog* dialog : m_all)
    {
        for (const HWND child : dialog->Children())
        {
            if (ClassOf(child) == Button && NumberOf(child) != IDC_SETTINGS_PURGE)
            {
                EXPECT_GE(Width(dialog->Place(child)), 26) << NumberOf(child);
                EXPECT_GE(Height(dialog->Place(child)), 26) << NumberOf(child);
            }
        }
    }
}

TEST_F(Templates, RowsOfTheDetailPaneStandInTwoColumnsInsideTheFrame)
{
    const RECT frame = m_page.Place(IDC_DETAIL_FRAME);
    for (std::size_t row = 0; row < Captions.size(); ++row)
    {
        const RECT caption = m_page.Place(Captions[row]);
        const RECT value = m_page.Place(Values[row]);
        EXPECT_TRUE(Holds(frame, caption) && Holds(frame, value)) << row;
        EXPECT_EQ(m_page.Place(Captions[0]).left, caption.left) << row;
        EXPECT_EQ(m_page.Place(Values[0]).left, value.left) << row;
        EXPECT_EQ(caption.top, value.top) << row;
        EXPECT_EQ(caption.bottom, value.bottom) << row;
    }
    EXPECT_TRUE(Holds(frame, m_page.Place(IDC_ALLOW)) && Holds(frame, m_page.Place(IDC_ALLOW_LABEL)));
}

TEST_F(Templates, TheTwoFormsOfTheFirstValueStandInTheSamePlace)
{
    const RECT link = m_page.Place(IDC_INFO_VALUE_0_LINK);
    const RECT text = m_page.Place(IDC_INFO_VALUE_0_TEXT);
    EXPECT_TRUE(EqualRect(&link, &text));
}

TEST_F(Templates, TheFirstValueAtThreeTimesItsHeightCoversTwoRowsAndEndsAboveTheThird)
{
    RECT high = m_page.Place(IDC_INFO_VALUE_0_TEXT);
    high.bottom = high.top + 3 * Height(high);
    EXPECT_TRUE(Holds(high, m_page.Place(IDC_INFO_VALUE_1)));
    EXPECT_TRUE(Overlap(high, m_page.Place(IDC_INFO_VALUE_2)));
    EXPECT_LE(high.bottom, m_page.Place(IDC_INFO_VALUE_3).top);
}

TEST_F(Templates, TheWholeThirdValueCoversItsShortFormAndShowsTwoLines)
{
    const RECT whole = m_page.Place(IDC_INFO_VALUE_2_WHOLE);
    EXPECT_TRUE(Holds(whole, m_page.Place(IDC_INFO_VALUE_2)));
    RECT lines{};
    SendMessageW(m_page.Item(IDC_INFO_VALUE_2_WHOLE), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&lines));
    EXPECT_GE(Height(lines), 2 * TextSize(m_page.Item(IDC_INFO_VALUE_2_WHOLE), L"Xg").cy);
}

TEST_F(Templates, LinesOfTextFitTheRowsOfTheDetailPane)
{
    for (const int number : Values)
    {
        const SIZE line = TextSize(m_page.Item(number), L"Xg");
        EXPECT_LE(line.cy, Height(m_page.Place(number)) + 1) << number;
    }
}

TEST_F(Templates, TheRecordListShowsAllColumnsOfTheFirewallLogBesideAScrollBar)
{
    constexpr int Columns = 50 + 45 + 90 + 50 + 90 + 50;
    RECT client{};
    GetClientRect(m_page.Item(IDC_RECORD_LIST), &client);
    EXPECT_GE(Width(client), Columns + GetSystemMetrics(SM_CXVSCROLL));
}

TEST_F(Templates, TheComboBoxesOpenFarEnoughForAllTheirEntries)
{
    constexpr int spans = 5; // that entries can be kept
    for (const auto& [combo, entries] : {std::pair{m_page.Item(IDC_LOG_TYPE), std::ssize(LogKinds())},
                                         std::pair{m_settings.Item(IDC_SETTINGS_FREQUENCY), std::ptrdiff_t{spans}}})
    {
        RECT open{};
        SendMessageW(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&open));
        EXPECT_GE(Height(open), entries * SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0)) << NumberOf(combo);
    }
}
