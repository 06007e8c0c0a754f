#include "framework/ui/kestrix/report/ReportChart.h"

#include "framework/ui/kestrix/controls/Scale.h"

#include <algorithm>
#include <limits>

namespace
{

constexpr ReportLineLook Looks[ReportLineCount] = {
    {RGB(165, 42, 42), &ReportChart::m_ptLegendVirus},
    {RGB(100, 149, 237), &ReportChart::m_ptLegendSuspicious},
    {RGB(218, 165, 32), &ReportChart::m_ptLegendSpyware},
    {RGB(0, 139, 139), &ReportChart::m_ptLegendWeb},
    {RGB(72, 61, 139), &ReportChart::m_ptLegendDataPrevention},
};

// In pixels.
constexpr int TickLabelDistance = 4; // below the axis
constexpr int TickHeight = 4;

// The number without its fraction; the smallest one for what does not fit, as the processor has it.
LONG Truncated(double number)
{
    using Limits = std::numeric_limits<LONG>;
    const bool fits = number > double{Limits::min()} - 1 && number < double{Limits::max()} + 1;
    return fits ? static_cast<LONG>(number) : Limits::min();
}

// Sums and products of coordinates are those of 32 bits: whatever the settings are, none overflows into another type.
LONG Sum(std::int64_t left, std::int64_t right)
{
    return static_cast<LONG>(left + right);
}

LONG Difference(std::int64_t left, std::int64_t right)
{
    return static_cast<LONG>(left - right);
}

LONG Product(std::int64_t left, std::int64_t right)
{
    return static_cast<LONG>(left * right);
}

// A distance of the settings.
LONG OnScreen(std::uint32_t pixels)
{
    return Scaled(static_cast<int>(pixels));
}

// How far right of the origin the interval of this number stands, counted from 1.
LONG DistanceOfInterval(const ReportSettings& settings, const ReportAxes& axes, std::uint32_t number)
{
    return Truncated(Product(axes.m_nAxisXLength, number) * settings.m_dXAixScale / settings.m_nAxisXNumber);
}

// How far above the origin a count stands. The products of whole numbers are modulo 2 to the 32.
LONG HeightOfCount(const ReportChart& chart, const ReportAxes& axes, std::uint32_t count)
{
    const double scale = chart.m_settings.m_dYAixScale;
    const std::uint32_t factor = std::max(chart.m_settings.m_nAxisYNumber, std::uint32_t{1});
    const std::uint32_t above = count * static_cast<std::uint32_t>(axes.m_nAxisYLength) * factor;
    const std::uint32_t below = factor * chart.m_counts.m_nMaxCount;
    return Truncated(above * scale * scale / below);
}

} // namespace

std::span<const ReportLineLook, ReportLineCount> ReportLooks() noexcept
{
    return Looks;
}

void SetChartArea(ReportChart& chart, const RECT& frame)
{
    const ReportSettings& settings = chart.m_settings;
    const LONG left = Sum(frame.left, Truncated(frame.left * settings.m_dXLeftOffset));
    const LONG top = Sum(frame.top, 2 * std::int64_t{Truncated(frame.top * settings.m_dYLeftOffset)});
    const LONG right = Difference(frame.right, Truncated(frame.right * settings.m_dXRightOffset));
    const LONG bottom = Difference(frame.bottom, Truncated(frame.bottom * settings.m_dYRightOffset));
    chart.m_ptTopLeft = {left, top};
    chart.m_ptTopRight = {right, top};
    chart.m_ptOrigin = {left, bottom};
    chart.m_ptBottomRight = {right, bottom};
}

POINT LegendDot(const ReportSettings& settings, const RECT& anchor)
{
    const std::int64_t middle = (std::int64_t{anchor.top} + anchor.bottom) / 2;
    return {Difference(anchor.left, OnScreen(settings.m_nTitleLegendXOffset)),
            Difference(middle, OnScreen(settings.m_nTitleLegendYOffset))};
}

ReportAxes AxesOf(const ReportChart& chart)
{
    const ReportSettings& settings = chart.m_settings;
    const POINT right = chart.m_ptBottomRight;
    const POINT top = chart.m_ptTopLeft;
    const std::int64_t length = OnScreen(settings.m_nArrowXOffset);
    const std::int64_t width = OnScreen(settings.m_nArrowYOffset);
    const LONG xBase = Difference(right.x, length);
    const LONG yBase = Sum(top.y, length);
    return {
        .m_nAxisXLength = Difference(right.x, chart.m_ptOrigin.x),
        .m_nAxisYLength = Difference(chart.m_ptOrigin.y, top.y),
        .xArrow = {{{xBase, Difference(right.y, width)}, right, {xBase, Sum(right.y, width)}}},
        .yArrow = {{{Difference(top.x, width), yBase}, top, {Sum(top.x, width), yBase}}},
        .xTitle = {Sum(right.x, OnScreen(settings.m_nArrowXTitleXOffset)),
                   Difference(right.y, OnScreen(settings.m_nArrowXTitleYOffset))},
        .yTitle = {Difference(top.x, OnScreen(settings.m_nArrowYTitleXOffset)),
                   Difference(top.y, OnScreen(settings.m_nArrowYTitleYOffset))},
    };
}

std::vector<ReportTick> TicksOf(const ReportChart& chart, const ReportAxes& axes, LONG labelShift)
{
    const std::uint32_t count = chart.m_settings.m_nAxisXNumber;
    const POINT origin = chart.m_ptOrigin;
    std::vector<ReportTick> ticks;
    for (std::uint32_t i = 1; i <= count; ++i)
    {
        const LONG x = Sum(origin.x, DistanceOfInterval(chart.m_settings, axes, i));
        ticks.push_back({.days = chart.m_nReportSpan / count * i,
                         .label = {Difference(x, labelShift), Sum(origin.y, Scaled(TickLabelDistance))},
                         .foot = {x, origin.y},
                         .head = {x, Difference(origin.y, Scaled(TickHeight))}});
    }
    return ticks;
}

void SetSeriesPoints(const ReportChart& chart, const ReportAxes& axes, const ReportSeries& series,
                     std::vector<POINT>& points)
{
    points.clear();
    std::uint32_t number = 0;
    for (const std::uint32_t count : series)
    {
        ++number;
        points.push_back({Sum(chart.m_ptOrigin.x, DistanceOfInterval(chart.m_settings, axes, number)),
                          Difference(chart.m_ptOrigin.y, HeightOfCount(chart, axes, count))});
    }
}
