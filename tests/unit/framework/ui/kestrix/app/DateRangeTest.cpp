#include "framework/ui/kestrix/app/DateRange.h"

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/OleDateTime.h"
#include "tests/support/ImportPatch.h"

#include <gtest/gtest.h>

extern "C" decltype(&::GetLocalTime) __imp_GetLocalTime;

namespace
{

constexpr std::uint32_t AllDays = 0xFFFFFFFF;

// The clock of the test stands at half past nine on 21 November 2026.
class DateRangeTest : public ::testing::Test
{
protected:
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
    static void WINAPI Now(SYSTEMTIME* time) { *time = {2026, 11, 6, 21, 9, 30, 0, 0}; }

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
