#include "framework/ui/kestrix/logs/CalendarSeconds.h"

#include "platform/dialog/Exceptions.h"

#include <gtest/gtest.h>

namespace
{

HRESULT StatusOf(const SYSTEMTIME& time)
{
    try
    {
        CalendarSeconds(time);
        return S_OK;
    }
    catch (const CAtlException& exception)
    {
        return exception;
    }
}

constexpr auto Failure = static_cast<HRESULT>(0x80004005);

} // namespace

TEST(CalendarSeconds, EveryFieldDownToTheSecondsCountsAndTheMillisecondsDoNot)
{
    const std::int64_t start = CalendarSeconds({2026, 1, 0, 1, 12, 0, 0, 0});
    EXPECT_EQ(CalendarSeconds({2026, 1, 0, 1, 12, 0, 1, 999}), start + 1);
    EXPECT_EQ(CalendarSeconds({2026, 1, 0, 1, 12, 1, 0, 0}), start + 60);
    EXPECT_EQ(CalendarSeconds({2026, 1, 0, 1, 13, 0, 0, 0}), start + 3600);
    EXPECT_EQ(CalendarSeconds({2026, 1, 0, 2, 12, 0, 0, 0}), start + SecondsOfADay);
    EXPECT_EQ(CalendarSeconds({2026, 1, 6, 1, 12, 0, 0, 0}), start) << "the day of the week";
}

TEST(CalendarSeconds, AYearBefore1900OrAFieldOutOfRangeIsRefused)
{
    for (const SYSTEMTIME& time : {SYSTEMTIME{1899, 12, 0, 31, 12, 0, 0, 0},
                                   {2026, 0, 0, 1, 12, 0, 0, 0},
                                   {2026, 13, 0, 1, 12, 0, 0, 0},
                                   {2026, 11, 0, 0, 12, 0, 0, 0},
                                   {2026, 11, 0, 31, 12, 0, 0, 0},
                                   {2026, 2, 0, 29, 12, 0, 0, 0}})
    {
        EXPECT_EQ(StatusOf(time), Failure) << time.wYear << " " << time.wMonth << " " << time.wDay;
    }
    EXPECT_EQ(StatusOf({2024, 2, 0, 29, 12, 0, 0, 0}), S_OK);
}

TEST(CalendarSeconds, ATimeThatTheCalendarCannotCountIsMinusOne)
{
    EXPECT_EQ(CalendarSeconds({1900, 1, 0, 1, 12, 0, 0, 0}), -1);
    EXPECT_EQ(CalendarSeconds({9999, 12, 0, 31, 12, 0, 0, 0}), -1);
}
