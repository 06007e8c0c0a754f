#include "framework/ui/kestrix/logs/DateRange.h"

#include "platform/dialog/Exceptions.h"

#include <gtest/gtest.h>

namespace
{

constexpr std::uint32_t AllDays = 0xFFFFFFFF;

const COleDateTime Today(2026, 11, 21, 9, 30, 0);

bool IsInRange(const COleDateTime& date, std::uint32_t startDay, std::uint32_t endDay)
{
    return IsDateInDayRange(date, startDay, endDay, Today);
}

HRESULT StatusOfDate(const COleDateTime& date)
{
    try
    {
        IsInRange(date, 0, AllDays);
        return S_OK;
    }
    catch (const CAtlException& exception)
    {
        return exception;
    }
}

} // namespace

TEST(DateRangeTest, TodayIsDayZeroAtWhateverHour)
{
    EXPECT_TRUE(IsInRange({2026, 11, 21, 0, 0, 0}, 0, 1));
    EXPECT_TRUE(IsInRange({2026, 11, 21, 23, 59, 59}, 0, 1));
    EXPECT_FALSE(IsInRange({2026, 11, 21, 12, 0, 0}, 1, 2));
}

TEST(DateRangeTest, TheStartBelongsToTheRangeAndTheEndDoesNot)
{
    EXPECT_TRUE(IsInRange({2026, 11, 14, 12, 0, 0}, 7, 8));
    EXPECT_FALSE(IsInRange({2026, 11, 14, 12, 0, 0}, 0, 7));
    EXPECT_FALSE(IsInRange({2026, 11, 14, 12, 0, 0}, 8, 20));
}

TEST(DateRangeTest, ADateInTheFutureLiesInNoRange)
{
    EXPECT_FALSE(IsInRange({2026, 11, 22, 12, 0, 0}, 0, AllDays));
    EXPECT_FALSE(IsInRange({2027, 1, 1, 12, 0, 0}, 0, 1000));
}

TEST(DateRangeTest, AnEmptyRangeHoldsNothing)
{
    EXPECT_FALSE(IsInRange({2026, 11, 21, 12, 0, 0}, 0, 0));
    EXPECT_FALSE(IsInRange({2026, 11, 20, 12, 0, 0}, 5, 1));
}

TEST(DateRangeTest, ADateBefore1900OrAnInvalidOneIsRefused)
{
    EXPECT_EQ(StatusOfDate({1899, 12, 31, 12, 0, 0}), static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(StatusOfDate({2026, 2, 30, 12, 0, 0}), static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(StatusOfDate({}), static_cast<HRESULT>(0x80004005));
}

TEST(DateRangeTest, ADateThatTheCalendarCannotCountIsRefused)
{
    EXPECT_EQ(StatusOfDate({1900, 1, 1, 12, 0, 0}), static_cast<HRESULT>(0x80070057));
    EXPECT_EQ(StatusOfDate({9999, 12, 31, 12, 0, 0}), static_cast<HRESULT>(0x80070057));
}
