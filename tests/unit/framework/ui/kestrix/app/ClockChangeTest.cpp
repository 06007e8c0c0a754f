// Calendar seconds and days in Pacific time, where summer time lasts from 8 March to 1 November 2026.

#include "framework/ui/kestrix/app/CalendarSeconds.h"
#include "framework/ui/kestrix/app/DateRange.h"
#include "platform/dialog/OleDateTime.h"
#include "tests/support/ImportPatch.h"

#include <gtest/gtest.h>

extern "C" decltype(&::GetLocalTime) __imp_GetLocalTime;

namespace
{

// The clock of the test stands at half past nine on the day that the test sets.
class ClockChangeTest : public ::testing::Test
{
protected:
    static void SetToday(WORD year, WORD month, WORD day) { s_now = {year, month, 0, day, 9, 30, 0, 0}; }

private:
    static void WINAPI Now(SYSTEMTIME* time) { *time = s_now; }

    static inline SYSTEMTIME s_now;

    const ImportPatch<decltype(&::GetLocalTime)> m_clock{__imp_GetLocalTime, &Now};
};

} // namespace

TEST_F(ClockChangeTest, ATimeIsEightHoursBehindUniversalTimeInWinterAndSevenInSummer)
{
    EXPECT_EQ(CalendarSeconds({2026, 1, 0, 1, 12, 0, 0, 0}), 1767297600); // 20:00 universal time
    EXPECT_EQ(CalendarSeconds({2026, 7, 0, 1, 12, 0, 0, 0}), 1782932400); // 19:00
}

// From noon to noon is 25 hours over the end of summer time, on 1 November 2026, and 23 over its beginning, on 8 March:
// that is less than a day.
TEST_F(ClockChangeTest, TheHoursBetweenTheNoonsCountOverAChange)
{
    SetToday(2026, 11, 1);
    EXPECT_TRUE(IsDateInDayRange({2026, 10, 31, 12, 0, 0}, 1, 2));
    EXPECT_TRUE(IsDateInDayRange({2026, 10, 30, 12, 0, 0}, 2, 3));
    SetToday(2026, 3, 8);
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 7, 12, 0, 0}, 0, 1));
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 6, 12, 0, 0}, 1, 2));
}

TEST_F(ClockChangeTest, WithinSummerTimeEachDayCounts)
{
    SetToday(2026, 3, 10);
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 9, 12, 0, 0}, 1, 2));
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 8, 12, 0, 0}, 2, 3));
}
