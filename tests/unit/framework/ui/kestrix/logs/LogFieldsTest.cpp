#include "framework/ui/kestrix/logs/LogFields.h"

#include <gtest/gtest.h>

TEST(LogFieldsTest, TheClockTextIsHoursAndMinutesOfATimeToken)
{
    EXPECT_EQ(ClockText(L"103015"), L"10:30");
    EXPECT_EQ(ClockText(L"0005"), L"00:05");
    EXPECT_EQ(ClockText(L"ab|cd"), L"ab:|c");
}

TEST(LogFieldsTest, AShortTimeTokenLeavesOutWhatItLacks)
{
    EXPECT_EQ(ClockText(L"103"), L"10:3");
    EXPECT_EQ(ClockText(L"10"), L"10:");
    EXPECT_EQ(ClockText(L"1"), L"1:");
    EXPECT_EQ(ClockText(L""), L":");
}
