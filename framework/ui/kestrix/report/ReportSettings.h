#pragma once

#include <cstdint>

// How the chart stands in its frame and is drawn. Fractions are of coordinates and not of widths, distances are
// pixels at 96 dots an inch.
struct ReportSettings
{
    double m_dXLeftOffset = 0;  // of the frame's left coordinate, added to it
    double m_dYLeftOffset = 0;  // of the frame's top coordinate, added twice
    double m_dXRightOffset = 0; // of the frame's right coordinate, taken off it
    double m_dYRightOffset = 0; // of the frame's bottom coordinate, taken off it
    double m_dXAixScale = 0;    // the share of the X axis that the data takes
    double m_dYAixScale = 0;    // its square is the share of the Y axis

    std::uint32_t m_nTitleLegendXOffset = 0; // a dot of the legend: left of its anchor
    std::uint32_t m_nTitleLegendYOffset = 0; // above the anchor's middle
    std::uint32_t m_nAxisXNumber = 0;        // intervals of the report, and marks on the X axis
    std::uint32_t m_nAxisYNumber = 0;        // a factor above and below the line of a fraction
    std::uint32_t m_nArrowXOffset = 0;       // length of an arrow head
    std::uint32_t m_nArrowYOffset = 0;       // half its width
    std::uint32_t m_nArrowXTitleXOffset = 0; // title of the X axis: right of the end of its axis
    std::uint32_t m_nArrowXTitleYOffset = 0; // above it
    std::uint32_t m_nArrowYTitleXOffset = 0; // title of the Y axis: left of the end of its axis
    std::uint32_t m_nArrowYTitleYOffset = 0; // above it
};

// The settings as the registry has them, with a default for each that is missing.
ReportSettings ReadReportSettings();
