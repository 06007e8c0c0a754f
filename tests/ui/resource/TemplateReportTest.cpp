// Where the controls of the report page stand, and that the chart fits. The page is made at the origin of the
// screen, so the chart's frame has the same coordinates there and in the page.

#include "framework/ui/kestrix/report/ReportChart.h"
#include "resource/resource.h"
#include "tests/ui/resource/TemplateDialog.h"
#include "tests/unit/framework/ui/kestrix/report/UsualSettings.h"

#include <array>
#include <set>

namespace
{

// A line of the report and the anchor of its dot.
struct Row
{
    int line;
    int anchor;
};

constexpr std::array Rows{
    Row{IDC_REPORT_VIRUS, IDC_REPORT_ANCHOR_VIRUS},
    Row{IDC_REPORT_SUSPICIOUS, IDC_REPORT_ANCHOR_SUSPICIOUS},
    Row{IDC_REPORT_SPYWARE, IDC_REPORT_ANCHOR_SPYWARE},
    Row{IDC_REPORT_WEB, IDC_REPORT_ANCHOR_WEB},
    Row{IDC_REPORT_DATA_PREVENTION, IDC_REPORT_ANCHOR_DATA_PREVENTION},
};

constexpr int DotRadius = 4;

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

TEST_F(Templates, TheChartOfTheReportLiesInsideItsFrameWithItsLabels)
{
    const RECT frame = m_report.Place(IDC_REPORT_FRAME);
    ReportChart chart;
    chart.m_settings = UsualSettings;
    SetChartArea(chart, frame);
    const ReportAxes axes = AxesOf(chart);
    EXPECT_TRUE(
        Holds(frame, {chart.m_ptTopLeft.x, chart.m_ptTopLeft.y, chart.m_ptBottomRight.x, chart.m_ptBottomRight.y}));
    for (const ReportTick& tick : TicksOf(chart, axes, 20))
    {
        EXPECT_TRUE(Holds(frame, TextRect(tick.label, HeadingTextSize(L"30"))));
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
