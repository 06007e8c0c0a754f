#pragma once

#include "framework/ui/kestrix/report/ReportSettings.h"

// The settings of a chart without any in the registry.
inline constexpr ReportSettings UsualSettings{.m_dXLeftOffset = 0.5,
                                              .m_dYLeftOffset = 0.08,
                                              .m_dXRightOffset = 0.15,
                                              .m_dYRightOffset = 0.1,
                                              .m_dXAixScale = 0.8,
                                              .m_dYAixScale = 0.8,
                                              .m_nTitleLegendXOffset = 20,
                                              .m_nTitleLegendYOffset = 5,
                                              .m_nAxisXNumber = 3,
                                              .m_nAxisYNumber = 3,
                                              .m_nArrowXOffset = 10,
                                              .m_nArrowYOffset = 4,
                                              .m_nArrowXTitleXOffset = 20,
                                              .m_nArrowXTitleYOffset = 5,
                                              .m_nArrowYTitleXOffset = 25,
                                              .m_nArrowYTitleYOffset = 20};
