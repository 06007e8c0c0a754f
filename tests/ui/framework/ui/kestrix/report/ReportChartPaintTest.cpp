// The chart as it is drawn.

#include "framework/ui/kestrix/report/ReportChartPaint.h"

#include "tests/support/LanguageFile.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/Ground.h"
#include "tests/unit/framework/ui/kestrix/report/UsualSettings.h"

#include <gtest/gtest.h>

#include <numeric>

namespace
{

constexpr SIZE Size{460, 200};

// A chart of 7 days, in a font whose pixels are black or white.
class ReportChartPaintTest : public ::testing::Test
{
protected:
    ReportChartPaintTest()
    {
        m_chart.m_settings = UsualSettings;
        m_chart.m_ptTopLeft = {40, 50};
        m_chart.m_ptTopRight = {360, 50};
        m_chart.m_ptOrigin = {40, 170};
        m_chart.m_ptBottomRight = {360, 170};
        LONG x = 0;
        for (const ReportLineLook& look : ReportLooks())
        {
            m_chart.*look.legend = {x += 20, 12};
        }
        m_chart.m_nReportSpan = 7;
        m_chart.m_strAxisXTitle = L"Days ago";
        m_chart.m_strAxisYTitle = L"Events";
    }

    // Gives the lines, in their order, these series; a line without one has no events.
    void SetSeries(const std::vector<ReportSeries>& all)
    {
        ReportCounts& counts = m_chart.m_counts;
        for (std::size_t i = 0; i < all.size(); ++i)
        {
            counts.*ReportLines()[i].series = all[i];
            counts.*ReportLines()[i].total = std::accumulate(all[i].begin(), all[i].end(), 0u);
            const std::uint32_t max = all[i].empty() ? 0 : *std::ranges::max_element(all[i]);
            counts.m_nMaxCount = std::max(counts.m_nMaxCount, max);
        }
    }

    void SetAllSeries() { SetSeries({{10, 2, 6}, {1, 8, 3}, {4, 4, 9}, {7, 0, 1}, {2, 5, 5}}); }

    Picture Draw() const
    {
        return PictureOf(Size, [&](HDC dc) { DrawReportChart(dc, m_chart, m_ground.m_font); });
    }

    const LanguageFile m_language;
    ReportChart m_chart;
    const Ground m_ground; // has the font
};

} // namespace

TEST_F(ReportChartPaintTest, WithoutEventsTheDotsOfTheLegendStandAloneInTheColoursOfTheirLines)
{
    const Picture picture = Draw();
    for (const ReportLineLook& look : ReportLooks())
    {
        const POINT dot = m_chart.*look.legend;
        EXPECT_EQ(picture.At(dot.x, dot.y), look.colour);
    }
    EXPECT_PICTURE(picture, "no-data");
}

TEST_F(ReportChartPaintTest, OneSeriesIsDrawnAndThoseWithoutEventsAreNot)
{
    SetSeries({{0, 0, 0}, {}, {}, {12, 3, 0}, {}});
    EXPECT_PICTURE(Draw(), "one-series");
}

TEST_F(ReportChartPaintTest, AllSeriesCanBeToldApart)
{
    SetAllSeries();
    EXPECT_PICTURE(Draw(), "all-series");
}

TEST_F(ReportChartPaintTest, OneIntervalHasDotsAndNoLines)
{
    m_chart.m_settings.m_nAxisXNumber = 1;
    SetSeries({{10}, {1}, {4}, {7}, {2}});
    EXPECT_PICTURE(Draw(), "one-interval");
}

TEST_F(ReportChartPaintTest, TwoIntervalsAreJoinedByALine)
{
    m_chart.m_settings.m_nAxisXNumber = 2;
    SetSeries({{10, 10}});
    const ReportAxes axes = AxesOf(m_chart);
    std::vector<POINT> points;
    SetSeriesPoints(m_chart, axes, m_chart.m_counts.m_vecVirus, points);
    ASSERT_EQ(points.size(), 2u);
    EXPECT_EQ(Draw().At((points[0].x + points[1].x) / 2, points[0].y), RGB(0, 0, 255));
}

TEST_F(ReportChartPaintTest, TenIntervalsStandApart)
{
    m_chart.m_settings.m_nAxisXNumber = 10;
    m_chart.m_nReportSpan = 30;
    SetSeries(
        {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, {}, {9, 9, 0, 0, 9, 9, 0, 0, 9, 9}, {}, {5, 4, 5, 4, 5, 4, 5, 4, 5, 4}});
    EXPECT_PICTURE(Draw(), "ten-intervals");
}

TEST_F(ReportChartPaintTest, WithAnXAixScaleOfOneTheLastTickIsUnderTheArrow)
{
    m_chart.m_settings.m_dXAixScale = 1.0;
    SetAllSeries();
    EXPECT_PICTURE(Draw(), "x-scale-of-one");
}

TEST_F(ReportChartPaintTest, ASingleEventStandsAsHighAsAnyGreatestNumber)
{
    SetSeries({{0, 1, 0}});
    EXPECT_PICTURE(Draw(), "one-event");
}

TEST_F(ReportChartPaintTest, FourThousandMillionEventsAreDrawn)
{
    SetSeries({{4'000'000'000, 1, 2'000'000'000}});
    EXPECT_PICTURE(Draw(), "four-thousand-million-events");
}

TEST_F(ReportChartPaintTest, LongTitlesAreDrawnFromTheirPlaceOn)
{
    m_chart.m_strAxisXTitle = L"Days before the present one";
    m_chart.m_strAxisYTitle = L"Events that were counted in each of the intervals";
    SetAllSeries();
    EXPECT_PICTURE(Draw(), "long-titles");
}

TEST_F(ReportChartPaintTest, WhatIsSetInTheDeviceContextIsAsBeforeAndNothingIsLeftBehind)
{
    SetAllSeries();
    const CMemoryDC dc;
    ::SetTextColor(dc, RGB(1, 2, 3));
    const auto objects = [&]
    {
        return std::array{::GetCurrentObject(dc, OBJ_PEN), ::GetCurrentObject(dc, OBJ_BRUSH),
                          ::GetCurrentObject(dc, OBJ_FONT)};
    };
    const auto before = objects();
    const auto live = std::accumulate(LiveHandles::s_nCounts.begin(), LiveHandles::s_nCounts.end(), 0L);
    DrawReportChart(dc, m_chart, m_ground.m_font);
    EXPECT_EQ(objects(), before);
    EXPECT_EQ(::GetTextColor(dc), RGB(1, 2, 3));
    EXPECT_EQ(std::accumulate(LiveHandles::s_nCounts.begin(), LiveHandles::s_nCounts.end(), 0L), live);
}
