// Where the controls of the report page stand, and that chart and texts fit. The page is made at the origin of the
// screen, so the chart's frame has the same coordinates there and in the page.

#include "framework/ui/kestrix/report/ReportChart.h"
#include "resource/DialogTexts.h"
#include "resource/resource.h"
#include "tests/ui/resource/TemplateDialog.h"
#include "tests/unit/framework/ui/kestrix/report/UsualSettings.h"
#include "tests/unit/resource/BuiltFile.h"

#include <array>
#include <cwchar>
#include <set>
#include <string>
#include <utility>

namespace
{

// A line of the report, the anchor of its dot, and the texts of which it is made.
struct Row
{
    int line;
    int anchor;
    std::array<unsigned, 2> texts; // 0: none
};

constexpr std::array Rows{
    Row{IDC_REPORT_VIRUS, IDC_REPORT_ANCHOR_VIRUS, {IDS_REPORT_VIRUS, 0}},
    Row{IDC_REPORT_SUSPICIOUS,
        IDC_REPORT_ANCHOR_SUSPICIOUS,
        {IDS_REPORT_SUSPICIOUS_BLOCKED, IDS_REPORT_SUSPICIOUS_ALLOWED}},
    Row{IDC_REPORT_SPYWARE, IDC_REPORT_ANCHOR_SPYWARE, {IDS_REPORT_SPYWARE_DETECTED, IDS_REPORT_SPYWARE_OTHER}},
    Row{IDC_REPORT_WEB, IDC_REPORT_ANCHOR_WEB, {IDS_REPORT_WEB, 0}},
    Row{IDC_REPORT_DATA_PREVENTION, IDC_REPORT_ANCHOR_DATA_PREVENTION, {IDS_REPORT_DATA_PREVENTION, 0}},
};

constexpr int DotRadius = 4;

// The size of a text in the font of the report, which is 16 pixels high.
SIZE ReportTextSize(const std::wstring& text)
{
    LOGFONTW font{};
    font.lfHeight = 16;
    font.lfCharSet = DEFAULT_CHARSET;
    std::wcscpy(font.lfFaceName, L"Segoe UI");
    return TextSizeIn(font, text);
}

// A text with the greatest number in its place.
std::wstring WithGreatestNumber(unsigned text)
{
    std::wstring filled = text == 0 ? L"" : LanguageText(text);
    const auto place = filled.find(L"%u");
    return place == filled.npos ? filled : filled.replace(place, 2, L"4294967295");
}

RECT TextRect(POINT place, SIZE size)
{
    return {place.x, place.y, place.x + size.cx, place.y + size.cy};
}

} // namespace

TEST_F(Templates, ControlsOfTheReportLieInsideAndApart)
{
    const auto children = m_report.Children();
    for (const HWND one : children)
    {
        EXPECT_TRUE(Holds(m_report.Client(), m_report.Place(one))) << NumberOf(one);
        for (const HWND other : children)
        {
            const std::set pair{NumberOf(one), NumberOf(other)};
            const RECT first = m_report.Place(one);
            const RECT second = m_report.Place(other);
            RECT common{};
            if (one != other && pair != std::set{IDC_REPORT_NO_DATA, IDC_REPORT_FRAME})
            {
                EXPECT_FALSE(IntersectRect(&common, &first, &second)) << NumberOf(one) << " and " << NumberOf(other);
            }
        }
    }
    EXPECT_TRUE(Holds(m_report.Place(IDC_REPORT_FRAME), m_report.Place(IDC_REPORT_NO_DATA)));
}

TEST_F(Templates, TheReportIsAsLargeAsTheViewerPage)
{
    const RECT report = m_report.Client();
    const RECT page = m_page.Client();
    EXPECT_TRUE(EqualRect(&report, &page));
}

TEST_F(Templates, TheChartOfTheReportLiesInsideItsFrameWithItsTitlesAndLabels)
{
    const RECT frame = m_report.Place(IDC_REPORT_FRAME);
    ReportChart chart;
    chart.m_settings = UsualSettings;
    SetChartArea(chart, frame);
    const ReportAxes axes = AxesOf(chart);
    EXPECT_TRUE(
        Holds(frame, {chart.m_ptTopLeft.x, chart.m_ptTopLeft.y, chart.m_ptBottomRight.x, chart.m_ptBottomRight.y}));
    EXPECT_TRUE(Holds(frame, TextRect(axes.xTitle, ReportTextSize(LanguageText(IDS_REPORT_X_TITLE)))));
    EXPECT_TRUE(Holds(frame, TextRect(axes.yTitle, ReportTextSize(LanguageText(IDS_REPORT_Y_TITLE)))));
    for (const ReportTick& tick : TicksOf(chart, axes, 20))
    {
        EXPECT_TRUE(Holds(frame, TextRect(tick.label, ReportTextSize(L"30"))));
    }
    EXPECT_GT(2 * axes.m_nAxisXLength, Width(frame)) << "most of the frame is chart";
    EXPECT_GT(2 * axes.m_nAxisYLength, Height(frame));
}

TEST_F(Templates, TheDotsOfTheReportStandLeftOfTheirLinesInTheirMiddle)
{
    for (const Row& row : Rows)
    {
        const RECT line = m_report.Place(row.line);
        const POINT dot = LegendDot(UsualSettings, m_report.Place(row.anchor));
        EXPECT_GE(dot.x - DotRadius, 8) << row.line;
        EXPECT_LT(dot.x + DotRadius, line.left) << row.line;
        EXPECT_NEAR(dot.y, (line.top + line.bottom) / 2, 2) << row.line;
    }
}

TEST_F(Templates, TheLinesOfTheReportHaveRoomForTheGreatestNumbers)
{
    for (const Row& row : Rows)
    {
        const std::wstring text = WithGreatestNumber(row.texts[0]) + L" " + WithGreatestNumber(row.texts[1]);
        const SIZE size = ReportTextSize(text);
        EXPECT_LE(size.cx, Width(m_report.Place(row.line))) << row.line;
        EXPECT_LE(size.cy, Height(m_report.Place(row.line))) << row.line;
    }
}
