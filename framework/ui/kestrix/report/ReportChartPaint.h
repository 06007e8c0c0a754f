#pragma once

#include "framework/ui/kestrix/report/ReportChart.h"

// Draws the chart onto the surface of its page: the dots of the legend, and, when there are events, axes and lines.
// What is set in the device context is as before afterwards.
void DrawReportChart(HDC dc, const ReportChart& chart, HFONT font);
