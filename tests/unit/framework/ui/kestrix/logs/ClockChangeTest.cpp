// Calendar seconds and days in Pacific time, where summer time lasts from 8 March to 1 November 2026.

#include "framework/ui/kestrix/logs/CalendarSeconds.h"
#include "framework/ui/kestrix/logs/DateRange.h"

#include <gtest/gtest.h>

TEST(ClockChangeTest, ATimeIsEightHoursBehindUniversalTimeInWinterAndSevenInSummer)
{
    EXPECT_EQ(CalendarSeconds({2026, 1, 0, 1, 12, 0, 0, 0}), 1767297600); // 20:00 universal time
    EXPECT_EQ(CalendarSeconds({2026, 7, 0, 1, 12, 0, 0, 0}), 1782932400); // 19:00
}

// From noon to noon is 25 hours over the end of summer time, on 1 November 2026, and 23 over its beginning, on 8 March:
// that is less than a day.
TEST(ClockChangeTest, TheHoursBetweenTheNoonsCountOverAChange)
{
    const COleDateTime summerEnds(2026, 11, 1, 9, 30, 0);
    EXPECT_TRUE(IsDateInDayRange({2026, 10, 31, 12, 0, 0}, 1, 2, summerEnds));
    EXPECT_TRUE(IsDateInDayRange({2026, 10, 30, 12, 0, 0}, 2, 3, summerEnds));
    const COleDateTime summerBegins(2026, 3, 8, 9, 30, 0);
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 7, 12, 0, 0}, 0, 1, summerBegins));
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 6, 12, 0, 0}, 1, 2, summerBegins));
}

TEST(ClockChangeTest, WithinSummerTimeEachDayCounts)
{
    const COleDateTime today(2026, 3, 10, 9, 30, 0);
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 9, 12, 0, 0}, 1, 2, today));
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 8, 12, 0, 0}, 2, 3, today));
}
