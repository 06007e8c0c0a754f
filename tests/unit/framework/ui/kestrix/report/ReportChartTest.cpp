// Where the parts of the chart stand, by numbers worked out by hand.

#include "framework/ui/kestrix/report/ReportChart.h"

#include "tests/support/StandingScale.h"
#include "tests/unit/framework/ui/kestrix/report/UsualSettings.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace
{

using Place = std::pair<LONG, LONG>;
using Places = std::vector<Place>;

constexpr LONG Smallest = std::numeric_limits<LONG>::min();

Place Of(POINT point)
{
    return {point.x, point.y};
}

template <class Points>
Places AllOf(const Points& points)
{
    Places places;
    for (const POINT point : points)
    {
        places.push_back(Of(point));
    }
    return places;
}

// A chart with the usual settings, whose area is 541 by 251 pixels, of 7 days.
class ReportChartTest : public ::testing::Test
{
protected:
    ReportChartTest()
    {
        m_chart.m_settings = UsualSettings;
        m_chart.m_nReportSpan = 7;
        SetChartArea(m_chart, {52, 146, 728, 465});
    }

    Places Corners() const
    {
        return AllOf(
            std::array{m_chart.m_ptTopLeft, m_chart.m_ptTopRight, m_chart.m_ptOrigin, m_chart.m_ptBottomRight});
    }

    Places PointsOf(const ReportSeries& series) const
    {
        std::vector<POINT> points{{1, 1}};
        SetSeriesPoints(m_chart, AxesOf(m_chart), series, points);
        return AllOf(points);
    }

    std::vector<ReportTick> Ticks() const { return TicksOf(m_chart, AxesOf(m_chart), 20); }

    ReportChart m_chart;
};

} // namespace

TEST_F(ReportChartTest, TheAreaIsTheFrameWithoutFractionsOfItsCoordinates)
{
    // 52 + 26; 146 + 2 * trunc(11.68); 728 - trunc(109.2); 465 - trunc(46.5)
    EXPECT_EQ(Corners(), (Places{{78, 168}, {619, 168}, {78, 419}, {619, 419}}));
}

TEST_F(ReportChartTest, TheProductsOfNegativeCoordinatesAreCutTowardZero)
{
    SetChartArea(m_chart, {-1001, -103, -303, -29});
    // -1001 - 500; -103 - 2 * 8; -303 + 45; -29 + 2
    EXPECT_EQ(Corners(), (Places{{-1501, -119}, {-258, -119}, {-1501, -27}, {-258, -27}}));
}

TEST_F(ReportChartTest, WithoutFractionsTheAreaIsTheFrame)
{
    m_chart.m_settings.m_dXLeftOffset = m_chart.m_settings.m_dYLeftOffset = 0;
    m_chart.m_settings.m_dXRightOffset = m_chart.m_settings.m_dYRightOffset = 0;
    SetChartArea(m_chart, {52, 146, 728, 465});
    EXPECT_EQ(Corners(), (Places{{52, 146}, {728, 146}, {52, 465}, {728, 465}}));
}

TEST_F(ReportChartTest, FractionsThatLeadOutOfAllCoordinatesDoNoHarm)
{
    for (const double fraction :
         {1e300, -1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
    {
        m_chart.m_settings.m_dXLeftOffset = m_chart.m_settings.m_dXAixScale = m_chart.m_settings.m_dYAixScale =
            fraction;
        SetChartArea(m_chart, {52, 146, 728, 465});
        EXPECT_EQ(m_chart.m_ptTopLeft.x, Smallest + 52);
        EXPECT_EQ(Ticks().size(), 3u);
        EXPECT_EQ(PointsOf({1, 2}).size(), 2u);
    }
}

TEST_F(ReportChartTest, TheDotOfTheLegendStandsLeftOfItsAnchorAndAboveItsMiddle)
{
    EXPECT_EQ(Of(LegendDot(m_chart.m_settings, {35, 43, 38, 64})), Place(15, 48)); // 107 / 2 is 53
    EXPECT_EQ(Of(LegendDot(m_chart.m_settings, {0, -4, 3, -3})), Place(-20, -8));  // -7 / 2 is -3
}

TEST_F(ReportChartTest, ArrowsAndTitlesStandAtTheEndsOfTheAxes)
{
    const ReportAxes axes = AxesOf(m_chart);
    EXPECT_EQ(axes.m_nAxisXLength, 541);
    EXPECT_EQ(axes.m_nAxisYLength, 251);
    EXPECT_EQ(AllOf(axes.xArrow), (Places{{609, 415}, {619, 419}, {609, 423}}));
    EXPECT_EQ(AllOf(axes.yArrow), (Places{{74, 178}, {78, 168}, {82, 178}}));
    EXPECT_EQ(Of(axes.xTitle), Place(639, 414));
    EXPECT_EQ(Of(axes.yTitle), Place(53, 148));
}

TEST_F(ReportChartTest, DistancesInPixelsGrowWithTheScaleOfTheScreenAndFractionsDoNot)
{
    const StandingScale scale(192);
    EXPECT_EQ(Of(LegendDot(m_chart.m_settings, {70, 86, 76, 128})), Place(30, 97));
    const ReportAxes axes = AxesOf(m_chart);
    EXPECT_EQ(axes.m_nAxisXLength, 541) << "of the frame, which the template has scaled";
    EXPECT_EQ(AllOf(axes.xArrow), (Places{{599, 411}, {619, 419}, {599, 427}}));
    EXPECT_EQ(AllOf(axes.yArrow), (Places{{70, 188}, {78, 168}, {86, 188}}));
    EXPECT_EQ(Of(axes.xTitle), Place(659, 409));
    EXPECT_EQ(Of(axes.yTitle), Place(28, 128));
    const ReportTick tick = Ticks().at(0);
    EXPECT_EQ(Of(tick.head), Place(222, 411));
    EXPECT_EQ(Of(tick.label), Place(202, 427)) << "its shift comes scaled";
}

TEST_F(ReportChartTest, OfSevenDaysThreeTicksAreLabelledTwoFourAndSix)
{
    const std::vector<ReportTick> ticks = Ticks();
    ASSERT_EQ(ticks.size(), 3u);
    EXPECT_EQ(ticks[0].days, 2u);
    EXPECT_EQ(ticks[1].days, 4u);
    EXPECT_EQ(ticks[2].days, 6u);
    // 541 * i * 0.8 / 3 is 144.3, 288.5 and 432.8
    EXPECT_EQ(AllOf(std::array{ticks[0].foot, ticks[1].foot, ticks[2].foot}),
              (Places{{222, 419}, {366, 419}, {510, 419}}));
    EXPECT_EQ(AllOf(std::array{ticks[0].head, ticks[2].head}), (Places{{222, 415}, {510, 415}}));
    EXPECT_EQ(AllOf(std::array{ticks[0].label, ticks[2].label}), (Places{{202, 423}, {490, 423}}));
}

TEST_F(ReportChartTest, WithAnXAixScaleOfOneTheLastTickFallsOnTheEndOfTheAxisUnderTheArrow)
{
    m_chart.m_settings.m_dXAixScale = 1.0;
    EXPECT_EQ(Of(Ticks().back().foot), Of(m_chart.m_ptBottomRight));
}

TEST_F(ReportChartTest, WithoutIntervalsThereAreNoTicksAndNoPoints)
{
    m_chart.m_settings.m_nAxisXNumber = 0;
    EXPECT_TRUE(Ticks().empty());
    EXPECT_TRUE(PointsOf({}).empty());
}

TEST_F(ReportChartTest, TheGreatestCountStandsAtTheSquareOfYAixScaleAndTheMostRecentIntervalNearTheOrigin)
{
    m_chart.m_counts.m_nMaxCount = 10;
    // trunc(0.64 * 251) is 160, half of it 80
    EXPECT_EQ(PointsOf({10, 5, 0}), (Places{{222, 259}, {366, 339}, {510, 419}}));
}

TEST_F(ReportChartTest, OneIntervalHasOnePointAtTheShareOfTheAxisThatTheDataTakes)
{
    m_chart.m_settings.m_nAxisXNumber = 1;
    m_chart.m_counts.m_nMaxCount = 1;
    EXPECT_EQ(PointsOf({1}), (Places{{510, 259}}));
}

TEST_F(ReportChartTest, AnAxisYNumberOfZeroIsTakenAsOneAndNoneChangesTheChart)
{
    m_chart.m_counts.m_nMaxCount = 10;
    for (const std::uint32_t number : {0u, 1u, 2u, 7u})
    {
        m_chart.m_settings.m_nAxisYNumber = number;
        EXPECT_EQ(PointsOf({10, 5, 0}), (Places{{222, 259}, {366, 339}, {510, 419}})) << number;
    }
}

// The products of a great count are modulo 2 to the 32: 4,000,000,000 * 251 * 3 is 1,227,925,504 there, and three times
// the maximum 3,410,065,408.
TEST_F(ReportChartTest, AGreatCountStandsWhereProductsOf32BitsPutIt)
{
    m_chart.m_counts.m_nMaxCount = 4'000'000'000;
    EXPECT_EQ(PointsOf({4'000'000'000}), (Places{{222, 419}}));
    m_chart.m_settings.m_nAxisYNumber = 4;
    m_chart.m_counts.m_nMaxCount = 1u << 30; // times 4 is 0
    EXPECT_EQ(PointsOf({1u << 30}).size(), 1u);
}

TEST_F(ReportChartTest, AFrameThatIsAllOffsetsHasAnAxisThatRunsBack)
{
    SetChartArea(m_chart, {800, 100, 1200, 500}); // 1200 to 1020
    m_chart.m_counts.m_nMaxCount = 1;
    EXPECT_EQ(AxesOf(m_chart).m_nAxisXLength, -180);
    EXPECT_EQ(PointsOf({0, 0, 0}), (Places{{1152, 450}, {1104, 450}, {1056, 450}}));
}

TEST_F(ReportChartTest, EachLineHasAColourAndADotOfItsOwn)
{
    std::set<COLORREF> colours;
    LONG number = 0;
    for (const ReportLineLook& look : ReportLooks())
    {
        colours.insert(look.colour);
        (m_chart.*look.legend).x = ++number;
    }
    EXPECT_EQ(colours.size(), 5u);
    EXPECT_EQ(m_chart.m_ptLegendVirus.x, 1);
    EXPECT_EQ(m_chart.m_ptLegendSuspicious.x, 2);
    EXPECT_EQ(m_chart.m_ptLegendSpyware.x, 3);
    EXPECT_EQ(m_chart.m_ptLegendWeb.x, 4);
    EXPECT_EQ(m_chart.m_ptLegendDataPrevention.x, 5);
}
