#include "framework/ui/kestrix/report/ReportChartPaint.h"

#include "common/VdCommon/VdComn_FormatText.h"
#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "platform/dialog/DialogFramework.h"
#include "resource/DialogTexts.h"
#include "resource/resource.h"

namespace
{

constexpr COLORREF SeriesColour = RGB(0, 0, 255);
// In pixels.
constexpr int LineWidth = 1;
constexpr int DotRadius = 4;
constexpr std::int32_t TickLabelShift = 20;

void DrawLine(HDC dc, POINT from, POINT to)
{
    ::MoveToEx(dc, from.x, from.y, nullptr);
    ::LineTo(dc, to.x, to.y);
}

void DrawTextAt(HDC dc, POINT place, const std::wstring& text)
{
    ::TextOutW(dc, place.x, place.y, text.c_str(), static_cast<int>(text.size()));
}

// Outlined by the pen of the device context.
void DrawDot(HDC dc, POINT middle, HBRUSH brush)
{
    const CSelectObject selected(dc, brush);
    const int radius = Scaled(DotRadius);
    ::Ellipse(dc, middle.x - radius, middle.y - radius, middle.x + radius, middle.y + radius);
}

void DrawLegend(HDC dc, const ReportChart& chart)
{
    for (const ReportLineLook& look : ReportLooks())
    {
        CBrush brush;
        brush.CreateSolidBrush(look.colour);
        DrawDot(dc, chart.*look.legend, brush);
    }
}

void DrawAxes(HDC dc, const ReportChart& chart, const ReportAxes& axes)
{
    DrawLine(dc, chart.m_ptOrigin, chart.m_ptTopLeft);
    DrawLine(dc, chart.m_ptOrigin, chart.m_ptBottomRight);
    for (const auto& arrow : {axes.xArrow, axes.yArrow})
    {
        DrawLine(dc, arrow[1], arrow[0]);
        DrawLine(dc, arrow[1], arrow[2]);
    }
    DrawTextAt(dc, axes.xTitle, chart.m_strAxisXTitle);
    DrawTextAt(dc, axes.yTitle, chart.m_strAxisYTitle);
}

void DrawTicks(HDC dc, const ReportChart& chart, const ReportAxes& axes)
{
    for (const ReportTick& tick : TicksOf(chart, axes, Scaled(LoadNumber(IDS_REPORT_TICK_SHIFT, TickLabelShift))))
    {
        const std::wstring label = VdCommon::String::FormatText(LoadText(IDS_REPORT_TICK), {tick.days});
        DrawTextAt(dc, tick.label, label);
        DrawLine(dc, tick.foot, tick.head);
    }
}

void DrawSeries(HDC dc, const std::vector<POINT>& points, COLORREF colour)
{
    if (points.size() > 1)
    {
        ::Polyline(dc, points.data(), static_cast<int>(points.size()));
    }
    CBrush brush;
    brush.CreateSolidBrush(colour);
    for (const POINT point : points)
    {
        DrawDot(dc, point, brush);
    }
}

void DrawAllSeries(HDC dc, const ReportChart& chart, const ReportAxes& axes)
{
    CPen pen;
    pen.CreatePen(PS_SOLID, Scaled(LineWidth), SkinOrSystem(SeriesColour, COLOR_BTNTEXT));
    const CSelectObject selected(dc, pen);
    std::vector<POINT> points;
    for (std::size_t i = 0; i < ReportLineCount; ++i)
    {
        const ReportLineCounts& line = ReportLines()[i];
        if (chart.m_counts.*line.total != 0)
        {
            SetSeriesPoints(chart, axes, chart.m_counts.*line.series, points);
            DrawSeries(dc, points, ReportLooks()[i].colour);
        }
    }
}

} // namespace

void DrawReportChart(HDC dc, const ReportChart& chart, HFONT font)
{
    const CSaveDC keep(dc);
    const COLORREF text = SkinOrSystem(SkinColour::Text, COLOR_BTNTEXT);
    CPen pen;
    pen.CreatePen(PS_SOLID, Scaled(LineWidth), text);
    const CSelectObject line(dc, pen);
    DrawLegend(dc, chart);
    if (chart.m_counts.m_nMaxCount == 0)
    {
        return;
    }
    const CSelectObject selected(dc, font);
    ::SetTextColor(dc, text);
    ::SetBkColor(dc, SkinOrSystem(SkinColour::Ground, COLOR_BTNFACE));
    const ReportAxes axes = AxesOf(chart);
    DrawAxes(dc, chart, axes);
    DrawTicks(dc, chart, axes);
    DrawAllSeries(dc, chart, axes);
}
