// That the texts of every language fit the places where they are shown, and the pseudo language's too, which are longer
// than any. Each is measured in the font that it is shown in.

#include "common/VdCommon/VdComn_FormatText.h"
#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "framework/ui/kestrix/report/ReportChart.h"
#include "resource/DialogTexts.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/ListWindow.h"
#include "tests/support/VisibleText.h"
#include "tests/ui/resource/TemplateDialog.h"
#include "tests/unit/framework/ui/kestrix/report/UsualSettings.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace
{

constexpr std::uint32_t GreatestNumber = 0xFFFFFFFF;
constexpr wchar_t Product[] = L"Zeptara Security";

// The texts that stand in the captions of the detail rows.
constexpr std::array CaptionTexts{57,  84,  87,  89,  100, 101, 173, 192, 193, 218, 220, 229, 346, 416, 417, 419,
                                  427, 429, 430, 431, 434, 478, 486, 487, 488, 549, 550, 551, 574, 618, 765, 1318};

// A line of the report and the texts of which it is made.
struct ReportRow
{
    int line;
    std::array<unsigned, 2> texts; // 0: none
};

constexpr std::array ReportRows{
    ReportRow{IDC_REPORT_VIRUS, {IDS_REPORT_VIRUS, 0}},
    ReportRow{IDC_REPORT_SUSPICIOUS, {IDS_REPORT_SUSPICIOUS_BLOCKED, IDS_REPORT_SUSPICIOUS_ALLOWED}},
    ReportRow{IDC_REPORT_SPYWARE, {IDS_REPORT_SPYWARE_DETECTED, IDS_REPORT_SPYWARE_OTHER}},
    ReportRow{IDC_REPORT_WEB, {IDS_REPORT_WEB, 0}},
    ReportRow{IDC_REPORT_DATA_PREVENTION, {IDS_REPORT_DATA_PREVENTION, 0}},
};

// The texts of a log's column that stand for codes, and its width in pixels.
struct CodeColumn
{
    const char* log;
    int width;
    std::vector<unsigned> texts;
};

const std::array CodeColumns{
    CodeColumn{"virus", 150, {30, 317, 800, 801, 802, 803, 804, 805, 806, 807, 808, 809}},
    CodeColumn{"spyware", 150, {300, 301, 302, 303, 316, 317, 800, 801, 806, 807, 808, 809, 810, 811, 812, 813}},
    CodeColumn{"update", 120, {406, 408, 760, 761, 762, 763}},
    CodeColumn{"data prevention", 150, {436, 437}},
    CodeColumn{"system cleanup", 150, {379, 380}},
    CodeColumn{"vulnerabilities, name", 150, {328}},
    CodeColumn{"vulnerabilities, risk", 125, {331, 332, 333, 334, 335, 336, 361}},
    CodeColumn{"suspicious changes", 100, {103, 300, 301, 302, 303}},
    CodeColumn{"scans", 357, {93, 94, 95, 96, 97}},
    CodeColumn{"URL filter", 120, {422, 423}},
    CodeColumn{"system tuner", 257, {110, 111, 112, 113, 114, 115, 116, 117, 118, 119, 120, 121, 122, 123}},
    CodeColumn{"skipped tasks", 257, {221, 222, 223}},
    CodeColumn{"firewall, protocol", 45, {357, 493, 494, 495, 496}},
    CodeColumn{"firewall, addresses", 90, {176}},
    CodeColumn{"firewall, ports", 50, {489}},
};

// The first and the last of texts that stand for codes in the values of the detail rows.
constexpr std::array DetailTexts{
    std::pair{50u, 50u},   std::pair{52u, 52u},   std::pair{58u, 59u},     std::pair{103u, 125u}, std::pair{144u, 156u},
    std::pair{170u, 170u}, std::pair{176u, 176u}, std::pair{182u, 182u},   std::pair{224u, 226u}, std::pair{299u, 312u},
    std::pair{316u, 317u}, std::pair{337u, 350u}, std::pair{357u, 371u},   std::pair{490u, 541u}, std::pair{568u, 573u},
    std::pair{767u, 769u}, std::pair{800u, 814u}, std::pair{1319u, 1321u},
};

// A text as it is shown where a mark stands for an access key.
std::wstring WithoutMark(std::wstring text)
{
    std::erase(text, L'&');
    return text;
}

std::wstring WithGreatestNumber(unsigned text)
{
    return text == 0 ? L"" : VdCommon::String::FormatText(Text(text), {GreatestNumber});
}

// The titles of a list's columns with their widths in pixels.
std::vector<std::pair<std::wstring, int>> ColumnsOf(HWND list)
{
    std::vector<std::pair<std::wstring, int>> columns;
    wchar_t title[256]{};
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = title;
    column.cchTextMax = static_cast<int>(std::size(title));
    while (SendMessageW(list, LVM_GETCOLUMNW, columns.size(), reinterpret_cast<LPARAM>(&column)))
    {
        columns.emplace_back(title, column.cx);
    }
    return columns;
}

class TextsFitTest : public ::testing::TestWithParam<std::wstring>
{
protected:
    static void TearDownTestSuite() { Dialogs().clear(); }

    TextsFitTest() : m_language(BuiltLanguageFilePath(GetParam()).wstring()) {}

    bool IsPseudo() const { return GetParam() == PseudoLanguage; }

    // taken: pixels of the control that are no room for text.
    static void ExpectHeadingFits(const TemplateDialog& dialog, int control, const std::wstring& text, int taken = 0)
    {
        EXPECT_LE(HeadingTextSize(text, FW_BOLD).cx, Width(dialog.Place(control)) - taken) << control;
    }

    static void ExpectChoiceFits(const TemplateDialog& dialog, int combo, unsigned text)
    {
        const int arrow = GetSystemMetrics(SM_CXVSCROLL) + 8; // and the edges
        EXPECT_LE(TextSize(dialog.Item(combo), Text(text)).cx, Width(dialog.Place(combo)) - arrow) << text;
    }

private:
    // Those of a language are made once for all tests.
    static std::map<std::wstring, TemplateDialogs>& Dialogs()
    {
        static std::map<std::wstring, TemplateDialogs> dialogs;
        return dialogs;
    }

    const LanguageFile m_language;

protected:
    const TemplateDialogs& m_templates = Dialogs().try_emplace(GetParam(), GetParam()).first->second;
    const TemplateDialog& m_form = m_templates.m_form;
    const TemplateDialog& m_page = m_templates.m_page;
    const TemplateDialog& m_report = m_templates.m_report;
    const TemplateDialog& m_settings = m_templates.m_settings;
    const TemplateDialog& m_deletion = m_templates.m_deletion;
};

INSTANTIATE_TEST_SUITE_P(Language, TextsFitTest, ::testing::ValuesIn(BuiltLanguages()),
                         [](const auto& language)
                         {
                             std::string name(language.param.begin(), language.param.end());
                             std::erase(name, '-');
                             return name;
                         });

} // namespace

// A face that lacks a character shows a box, which is narrower than what it stands for.
TEST_P(TextsFitTest, TheFontHasTheCharactersOfEastAsia)
{
    const HWND control = m_page.Item(IDC_INFO_LABEL_0);
    const int em = MulDiv(9, 96, 72);
    for (const wchar_t* text : {L"\u6f22\u5b57", L"\u30ed\u30b0", L"\u65e5\u5fd7"})
    {
        for (const LONG weight : {FW_NORMAL, FW_BOLD})
        {
            EXPECT_GE(TextSize(control, text, weight).cx, 2 * (em - 1)) << "install the fonts of tools/packages.txt";
        }
    }
}

TEST_P(TextsFitTest, CaptionsFitTheControlsOfTheTemplates)
{
    constexpr int boxAndGap = 20; // pixels
    constexpr int icon = 32;
    for (const TemplateDialog* dialog : m_templates.m_all)
    {
        for (const HWND child : dialog->Children())
        {
            if ((GetWindowLongPtrW(child, GWL_EXSTYLE) & WS_EX_TRANSPARENT) != 0)
            {
                continue; // pictures, whose texts are not drawn
            }
            const bool bold = NumberOf(child) == IDC_ALLOW_LABEL;
            if (bold && IsPseudo())
            {
                continue; // values of other logs take the room on its left
            }
            const SIZE size = TextSize(child, WithoutMark(TextOf(child)), bold ? FW_BOLD : FW_NORMAL);
            const int taken = NumberOf(child) == IDC_SETTINGS_PURGE ? boxAndGap
                              : NumberOf(child) == IDC_FORM_HELP    ? icon
                                                                    : 0;
            const int room = Width(dialog->Place(child)) - taken;
            EXPECT_LE(size.cx, room) << NumberOf(child);
        }
    }
}

TEST_P(TextsFitTest, CaptionsOfTheDetailRowsOfEveryLogFitInBold)
{
    const HWND caption = m_page.Item(IDC_INFO_LABEL_0);
    for (const int number : CaptionTexts)
    {
        EXPECT_LE(TextSize(caption, Text(static_cast<unsigned>(number)), FW_BOLD).cx, Width(m_page.Place(caption)))
            << number;
    }
}

TEST_P(TextsFitTest, HeadingsFit)
{
    constexpr int frame = 4; // pixels around the headings of the page
    ExpectHeadingFits(m_form, IDC_FORM_HEADING, Text(IDS_FORM_TITLE));
    ExpectHeadingFits(m_form, IDC_FORM_HEADING, Text(IDS_FORM_TITLE_WITH_REPORT));
    ExpectHeadingFits(m_page, IDC_HEADING_DATES, WithoutMark(Text(IDS_HEADING_DATES)), 2 * frame);
    ExpectHeadingFits(m_page, IDC_HEADING_ENTRIES, WithoutMark(Text(IDS_HEADING_ENTRIES)), 2 * frame);
    ExpectHeadingFits(m_page, IDC_HEADING_DETAILS, Text(IDS_HEADING_DETAILS), 2 * frame);
    ExpectHeadingFits(m_settings, IDC_SETTINGS_HEADING, Text(IDS_SETTINGS_HEADING));
    ExpectHeadingFits(m_deletion, IDC_DELETE_HEADING, Text(IDS_DELETE_HEADING));
    ExpectHeadingFits(m_report, IDC_REPORT_PAGE_TITLE,
                      VdCommon::String::FormatText(Text(IDS_REPORT_PAGE_TITLE), {Product}));
}

TEST_P(TextsFitTest, NotesOfASearchFitBesideTheHeadingInWhichTheyStand)
{
    const RECT heading = m_page.Place(IDC_HEADING_ENTRIES);
    const RECT note = m_page.Place(IDC_SEARCH_NOTE);
    EXPECT_TRUE(Holds(heading, note));
    const int room = note.left - heading.left - 2 * 4; // pixels, without the frame of the heading
    EXPECT_LE(HeadingTextSize(WithoutMark(Text(IDS_HEADING_ENTRIES)), FW_BOLD).cx, room);
    for (const unsigned text : {IDS_SEARCH_NOTHING, IDS_SEARCH_NO_OTHER, IDS_SEARCH_FROM_TOP, IDS_SEARCH_FROM_BOTTOM})
    {
        ExpectHeadingFits(m_page, IDC_SEARCH_NOTE, Text(text));
    }
}

TEST_P(TextsFitTest, EntriesOfTheChoicesFit)
{
    for (const LogKind& kind : LogKinds())
    {
        ExpectChoiceFits(m_page, IDC_LOG_TYPE, kind.choice);
    }
    for (const unsigned span :
         {IDS_KEEP_7_DAYS, IDS_KEEP_14_DAYS, IDS_KEEP_30_DAYS, IDS_KEEP_45_DAYS, IDS_KEEP_60_DAYS})
    {
        ExpectChoiceFits(m_settings, IDC_SETTINGS_FREQUENCY, span);
    }
}

TEST_P(TextsFitTest, TitlesOfTheTabsFit)
{
    constexpr int edges = 10; // pixels that the focus leaves free on both sides
    for (const unsigned title : {IDS_TAB_LOGS, IDS_TAB_REPORT})
    {
        EXPECT_LE(TextSize(m_form.Item(IDC_FORM_TAB), Text(title), FW_BOLD).cx,
                  std::stoi(Text(IDS_TAB_WIDTH)) - 2 * edges)
            << title;
    }
}

// The widths of the columns are the same in every language. They leave no room for much longer titles, so the pseudo
// language is left out.
TEST_P(TextsFitTest, TitlesOfTheColumnsOfEveryLogFit)
{
    if (IsPseudo())
    {
        return;
    }
    for (const LogKind& kind : LogKinds())
    {
        ListWindow window;
        const auto log = CreateLog(kind.type);
        log->SetListCtrl(&window.m_list);
        log->SetListColumn();
        const auto columns = ColumnsOf(window.m_list.GetSafeHwnd());
        EXPECT_FALSE(columns.empty()) << kind.type;
        const auto margin = static_cast<int>(window.m_list.SortHeader().SendMessage(HDM_GETBITMAPMARGIN));
        for (const auto& [title, width] : columns)
        {
            EXPECT_LE(TextSize(m_page.Item(IDC_RECORD_LIST), title).cx, width - 2 * margin)
                << kind.type << ": " << Visible(title);
        }
    }
}

TEST_P(TextsFitTest, TextsOfCodesFitTheirColumns)
{
    constexpr int margin = 4; // pixels on both sides of a cell
    if (IsPseudo())
    {
        return;
    }
    for (const CodeColumn& column : CodeColumns)
    {
        for (const unsigned text : column.texts)
        {
            EXPECT_LE(TextSize(m_page.Item(IDC_RECORD_LIST), Text(text)).cx, column.width - 2 * margin)
                << column.log << ": " << text;
        }
    }
}

TEST_P(TextsFitTest, TextsOfCodesFitTheRowsOfTheDetailPane)
{
    const HWND value = m_page.Item(IDC_INFO_VALUE_0_TEXT);
    for (const auto& [first, last] : DetailTexts)
    {
        for (unsigned text = first; text <= last; ++text)
        {
            EXPECT_LE(TextSize(value, LoadText(text)).cx, Width(m_page.Place(value))) << text;
        }
    }
    for (const unsigned text : CodeColumns[0].texts) // the action taken second
    {
        EXPECT_LE(TextSize(value, Text(text)).cx, Width(m_page.Place(IDC_INFO_VALUE_5))) << text;
    }
}

TEST_P(TextsFitTest, LinesOfTheReportHaveRoomForTheGreatestNumbers)
{
    for (const ReportRow& row : ReportRows)
    {
        const std::wstring text = WithGreatestNumber(row.texts[0]) + L" " + WithGreatestNumber(row.texts[1]);
        const SIZE size = HeadingTextSize(text);
        EXPECT_LE(size.cx, Width(m_report.Place(row.line))) << row.line;
        EXPECT_LE(size.cy, Height(m_report.Place(row.line))) << row.line;
    }
}

TEST_P(TextsFitTest, TitlesOfTheChartStandInsideItsFrame)
{
    const RECT frame = m_report.Place(IDC_REPORT_FRAME);
    ReportChart chart;
    chart.m_settings = UsualSettings;
    SetChartArea(chart, frame);
    const ReportAxes axes = AxesOf(chart);
    EXPECT_TRUE(Holds(frame, TextRect(axes.xTitle, HeadingTextSize(Text(IDS_REPORT_X_TITLE)))));
    EXPECT_TRUE(Holds(frame, TextRect(axes.yTitle, HeadingTextSize(Text(IDS_REPORT_Y_TITLE)))));
}

TEST_P(TextsFitTest, TheNoticeOfAnEmptyReportFits)
{
    const RECT place = m_report.Place(IDC_REPORT_NO_DATA);
    const SIZE line = HeadingTextSize(VdCommon::String::FormatText(Text(IDS_REPORT_NO_DATA), {Product}), FW_BOLD);
    const int lines = Height(place) / line.cy;
    EXPECT_LE(line.cx, (lines - 1) * Width(place)) << "it wraps at blanks, so one line is left as a reserve";
}

TEST_P(TextsFitTest, LabelsOfTheReportBelowItFit)
{
    constexpr int greatestCount = 9999999; // of a year
    const std::wstring total =
        VdCommon::String::FormatText(Text(IDS_REPORT_TOTAL), {std::uint32_t{greatestCount}, L"2026-12-30"});
    ExpectHeadingFits(m_form, IDC_FORM_REPORT_TITLE, Text(IDS_REPORT_TITLE));
    EXPECT_LE(HeadingTextSize(total).cx, Width(m_form.Place(IDC_FORM_REPORT_TOTAL)));
}

TEST_P(TextsFitTest, NoTwoAccessKeysOfFormAndPageAreTheSame)
{
    std::vector<std::wstring> texts{Text(IDS_HEADING_DATES), Text(IDS_HEADING_ENTRIES)};
    for (const TemplateDialog* dialog : {&m_form, &m_page})
    {
        for (const HWND child : dialog->Children())
        {
            texts.push_back(TextOf(child));
        }
    }
    std::set<wchar_t> keys;
    for (const std::wstring& text : texts)
    {
        if (const auto mark = text.find(L'&'); mark != std::wstring::npos)
        {
            EXPECT_TRUE(keys.insert(static_cast<wchar_t>(towupper(text.at(mark + 1)))).second) << Visible(text);
        }
    }
    EXPECT_EQ(11u, keys.size()) << "five buttons of the form, three of the page, and the texts before three controls";
}
