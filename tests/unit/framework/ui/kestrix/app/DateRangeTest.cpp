#include "framework/ui/kestrix/app/DateRange.h"

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/OleDateTime.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/PacificTime.h"

#include <gtest/gtest.h>

extern "C" decltype(&::GetLocalTime) __imp_GetLocalTime;

namespace
{

constexpr std::uint32_t AllDays = 0xFFFFFFFF;

// The clock of the test stands at half past nine on 21 November 2026, or another day that the test sets.
class DateRangeTest : public ::testing::Test
{
protected:
    DateRangeTest() { SetToday(2026, 11, 21); }

    static void SetToday(WORD year, WORD month, WORD day) { s_now = {year, month, 0, day, 9, 30, 0, 0}; }

    static HRESULT StatusOf(const COleDateTime& date)
    {
        try
        {
            IsDateInDayRange(date, 0, AllDays);
            return S_OK;
        }
        catch (const CAtlException& exception)
        {
            return exception;
        }
    }

private:
    static void WINAPI Now(SYSTEMTIME* time) { *time = s_now; }

    static inline SYSTEMTIME s_now;

    const ImportPatch<decltype(&::GetLocalTime)> m_clock{__imp_GetLocalTime, &Now};
};

} // namespace

TEST_F(DateRangeTest, TodayIsDayZeroAtWhateverHour)
{
    EXPECT_TRUE(IsDateInDayRange({2026, 11, 21, 0, 0, 0}, 0, 1));
    EXPECT_TRUE(IsDateInDayRange({2026, 11, 21, 23, 59, 59}, 0, 1));
    EXPECT_FALSE(IsDateInDayRange({2026, 11, 21, 12, 0, 0}, 1, 2));
}

TEST_F(DateRangeTest, TheStartBelongsToTheRangeAndTheEndDoesNot)
{
    EXPECT_TRUE(IsDateInDayRange({2026, 11, 14, 12, 0, 0}, 7, 8));
    EXPECT_FALSE(IsDateInDayRange({2026, 11, 14, 12, 0, 0}, 0, 7));
    EXPECT_FALSE(IsDateInDayRange({2026, 11, 14, 12, 0, 0}, 8, 20));
}

TEST_F(DateRangeTest, ADateInTheFutureLiesInNoRange)
{
    EXPECT_FALSE(IsDateInDayRange({2026, 11, 22, 12, 0, 0}, 0, AllDays));
    EXPECT_FALSE(IsDateInDayRange({2027, 1, 1, 12, 0, 0}, 0, 1000));
}

TEST_F(DateRangeTest, AnEmptyRangeHoldsNothing)
{
    EXPECT_FALSE(IsDateInDayRange({2026, 11, 21, 12, 0, 0}, 0, 0));
    EXPECT_FALSE(IsDateInDayRange({2026, 11, 20, 12, 0, 0}, 5, 1));
}

// From noon to noon is 25 hours over the end of summer time, on 1 November 2026, and 23 over its beginning, on 8 March:
// that is less than a day.
TEST_F(DateRangeTest, InAZoneThatChangesItsClockTheHoursBetweenTheNoonsCount)
{
    const PacificTime zone;
    SetToday(2026, 11, 1);
    EXPECT_TRUE(IsDateInDayRange({2026, 10, 31, 12, 0, 0}, 1, 2));
    EXPECT_TRUE(IsDateInDayRange({2026, 10, 30, 12, 0, 0}, 2, 3));
    SetToday(2026, 3, 8);
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 7, 12, 0, 0}, 0, 1));
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 6, 12, 0, 0}, 1, 2));
}

TEST_F(DateRangeTest, WithinSummerTimeEachDayCounts)
{
    const PacificTime zone;
    SetToday(2026, 3, 10);
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 9, 12, 0, 0}, 1, 2));
    EXPECT_TRUE(IsDateInDayRange({2026, 3, 8, 12, 0, 0}, 2, 3));
}

TEST_F(DateRangeTest, ADateBefore1900OrAnInvalidOneIsRefused)
{
    EXPECT_EQ(StatusOf({1899, 12, 31, 12, 0, 0}), static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(StatusOf({2026, 2, 30, 12, 0, 0}), static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(StatusOf({}), static_cast<HRESULT>(0x80004005));
}

TEST_F(DateRangeTest, ADateThatTheCalendarCannotCountIsRefused)
{
    EXPECT_EQ(StatusOf({1900, 1, 1, 12, 0, 0}), static_cast<HRESULT>(0x80070057));
    EXPECT_EQ(StatusOf({9999, 12, 31, 12, 0, 0}), static_cast<HRESULT>(0x80070057));
}
