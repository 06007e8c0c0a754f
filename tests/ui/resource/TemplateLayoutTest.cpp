// Where the controls of the templates stand, and that texts fit them.

#include "framework/ui/kestrix/logs/LogKinds.h"
#include "resource/resource.h"
#include "tests/ui/resource/TemplateDialog.h"
#include "tests/unit/resource/BuiltFile.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <utility>

namespace
{

constexpr std::array Captions{IDC_INFO_LABEL_0, IDC_INFO_LABEL_1, IDC_INFO_LABEL_2, IDC_INFO_LABEL_3,
                              IDC_INFO_LABEL_4, IDC_INFO_LABEL_5, IDC_INFO_LABEL_6};
constexpr std::array Values{IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2, IDC_INFO_VALUE_3,
                            IDC_INFO_VALUE_4,      IDC_INFO_VALUE_5, IDC_INFO_VALUE_6};

// The texts that stand in the captions of the detail rows.
constexpr std::array CaptionTexts{57,  84,  87,  89,  100, 101, 173, 192, 193, 218, 220, 229, 346, 416, 417, 419,
                                  427, 429, 430, 431, 434, 478, 486, 487, 488, 549, 550, 551, 574, 618, 765, 1318};

bool Overlap(const RECT& one, const RECT& other)
{
    RECT common{};
    return IntersectRect(&common, &one, &other) != FALSE;
}

bool Holds(const RECT& outer, const RECT& inner)
{
    RECT all{};
    UnionRect(&all, &outer, &inner);
    return EqualRect(&all, &outer) != FALSE;
}

// Size of a text in a window's own font, or in that font at another weight.
SIZE TextSize(HWND window, const std::wstring& text, LONG weight = FW_NORMAL)
{
    LOGFONTW description{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof description, &description);
    description.lfWeight = weight;
    const HDC dc = GetDC(window);
    const HFONT font = CreateFontIndirectW(&description);
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    DeleteObject(font);
    ReleaseDC(window, dc);
    return size;
}

// Pairs that may overlap: the two forms of a value, and the frame with what it surrounds.
bool MayOverlap(int one, int other)
{
    static const std::set<std::pair<int, int>> pairs{{IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_0_TEXT},
                                                     {IDC_INFO_VALUE_2, IDC_INFO_VALUE_2_WHOLE}};
    return one == IDC_DETAIL_FRAME || other == IDC_DETAIL_FRAME || pairs.contains(std::minmax(one, other));
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

TEST_F(Templates, ControlsOfTheFormLieInsideAndApart)
{
    ExpectNoOverlap(m_form);
}

TEST_F(Templates, ControlsOfThePageLieInsideAndApart)
{
    ExpectNoOverlap(m_page);
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
    for (const TemplateDialog* dialog : {&m_form, &m_page})
    {
        for (const HWND child : dialog->Children())
        {
            if (ClassOf(child) == Button)
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

TEST_F(Templates, TextsOfTheTemplatesFitTheirControls)
{
    for (const TemplateDialog* dialog : {&m_form, &m_page})
    {
        for (const HWND child : dialog->Children())
        {
            if (NumberOf(child) == IDC_FORM_MINIMISE || NumberOf(child) == IDC_FORM_CLOSE_BOX)
            {
                continue; // pictures, whose texts are not drawn
            }
            const bool bold = NumberOf(child) == IDC_ALLOW_LABEL;
            const SIZE size = TextSize(child, TextOf(child), bold ? FW_BOLD : FW_NORMAL);
            EXPECT_LE(size.cx, Width(dialog->Place(child))) << NumberOf(child);
        }
    }
}

TEST_F(Templates, CaptionsOfEveryLogFitInBold)
{
    const HWND caption = m_page.Item(IDC_INFO_LABEL_0);
    for (const int number : CaptionTexts)
    {
        ASSERT_NE(L"", LanguageText(number)) << number;
        EXPECT_LE(TextSize(caption, LanguageText(number), FW_BOLD).cx, Width(m_page.Place(caption))) << number;
    }
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

TEST_F(Templates, TheComboBoxOpensFarEnoughForAllLogs)
{
    RECT open{};
    SendMessageW(m_page.Item(IDC_LOG_TYPE), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&open));
    const LRESULT entry = SendMessageW(m_page.Item(IDC_LOG_TYPE), CB_GETITEMHEIGHT, 0, 0);
    EXPECT_GE(Height(open), std::ssize(LogKinds()) * entry);
}
