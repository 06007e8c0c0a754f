#pragma once

#include "platform/dialog/OleDateTime.h"

#include <cstdint>

// Whether a local date lies at least startDay and less than endDay days back from today, both counted from noon to
// noon; a date in the future lies in no range. Throws CAtlException: E_FAIL for a date before 1900 or one that is not
// valid, E_INVALIDARG for one that the calendar cannot count.
bool IsDateInDayRange(const COleDateTime& date, std::uint32_t startDay, std::uint32_t endDay,
                      const COleDateTime& today = COleDateTime::Now());
