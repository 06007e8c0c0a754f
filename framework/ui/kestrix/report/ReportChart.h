#pragma once

#include "framework/ui/kestrix/report/ReportCounts.h"
#include "framework/ui/kestrix/report/ReportSettings.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// Everything that a chart is drawn from, in the coordinates of the page.
struct ReportChart
{
    ReportSettings m_settings;
    std::uint32_t m_nReportSpan = 0; // days
    ReportCounts m_counts;

    // The area that the axes span.
    POINT m_ptTopLeft{};
    POINT m_ptTopRight{};
    POINT m_ptOrigin{};
    POINT m_ptBottomRight{};

    // Where the dots of the legend stand.
    POINT m_ptLegendVirus{};
    POINT m_ptLegendSuspicious{};
    POINT m_ptLegendSpyware{};
    POINT m_ptLegendWeb{};
    POINT m_ptLegendDataPrevention{};

    std::wstring m_strAxisXTitle;
    std::wstring m_strAxisYTitle;
};

// How a line looks in the chart.
struct ReportLineLook
{
    COLORREF colour;
    POINT ReportChart::*legend;
};

// The looks of the lines, in the order of the lines.
std::span<const ReportLineLook, ReportLineCount> ReportLooks() noexcept;

// Sets the corners of the area from the frame's rectangle and the settings.
void SetChartArea(ReportChart& chart, const RECT& frame);

// Where the dot of the legend stands whose anchor has this rectangle.
POINT LegendDot(const ReportSettings& settings, const RECT& anchor);

// The lengths of the axes, and what stands at their ends.
struct ReportAxes
{
    LONG m_nAxisXLength = 0;
    LONG m_nAxisYLength = 0;
    std::array<POINT, 3> xArrow{}; // one side, the tip, the other side
    std::array<POINT, 3> yArrow{};
    POINT xTitle{};
    POINT yTitle{};
};

ReportAxes AxesOf(const ReportChart& chart);

// A mark on the X axis.
struct ReportTick
{
    std::uint32_t days; // back from today
    POINT label;
    POINT foot; // on the axis
    POINT head;
};

// The marks from the origin outward. labelShift: pixels that a label begins left of its mark.
std::vector<ReportTick> TicksOf(const ReportChart& chart, const ReportAxes& axes, LONG labelShift);

// Sets the points of a series, those of the most recent interval first.
void SetSeriesPoints(const ReportChart& chart, const ReportAxes& axes, const ReportSeries& series,
                     std::vector<POINT>& points);
