#include "suite/framework/LocalCalendar.h"

#include "suite/framework/Day.h"
#include "tests/support/ImportPatch.h"

#include <gtest/gtest.h>

extern "C" decltype(&::GetLocalTime) __imp_GetLocalTime;

namespace
{

SYSTEMTIME g_clock{};

void ReadTheClock(SYSTEMTIME* time)
{
    *time = g_clock;
}

} // namespace

TEST(LocalCalendarTest, ADayBeginsAtLocalMidnightAndLastsThroughTheChangesOfTheClock)
{
    struct Case
    {
        SYSTEMTIME clock; // year, month, day of the week, day, hour, minute, second, millisecond
        std::uint32_t day;
    };

    constexpr Case cases[] = {
        {{2026, 11, 6, 14, 23, 59, 59, 999}, 20261114},
        {{2026, 11, 0, 15, 0, 0, 0, 0}, 20261115},
        {{2026, 12, 4, 31, 23, 59, 59, 999}, 20261231},
        {{2027, 1, 5, 1, 0, 0, 0, 0}, 20270101},
        // before and after the hour that is left out, and in the one that comes twice
        {{2026, 3, 0, 29, 1, 59, 59, 999}, 20260329},
        {{2026, 3, 0, 29, 3, 0, 0, 0}, 20260329},
        {{2026, 10, 0, 25, 2, 59, 59, 999}, 20261025},
        {{2026, 10, 0, 25, 2, 0, 0, 0}, 20261025},
    };
    const ImportPatch patch(__imp_GetLocalTime, &ReadTheClock);
    for (const Case& row : cases)
    {
        g_clock = row.clock;
        EXPECT_EQ(Framework::DayOf(Framework::LocalCalendar().Today()), row.day);
    }
}
