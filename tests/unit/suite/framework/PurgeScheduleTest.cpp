#include "suite/framework/PurgeSchedule.h"

#include <gtest/gtest.h>

using namespace Framework;
using namespace std::chrono_literals;

namespace
{

constexpr auto Today = 2026y / 11 / 20;

} // namespace

TEST(PurgeScheduleTest, TheDayOfTheSetAgeStaysAndTheOneBeforeGoes)
{
    EXPECT_EQ(DuePurge({7, 1}, std::nullopt, Today), 20261112u);
    EXPECT_EQ(DuePurge({30, 1}, std::nullopt, 2026y / 3 / 1), 20260129u);
    EXPECT_EQ(DuePurge({1, 1}, std::nullopt, Today), 20261118u);
    EXPECT_EQ(DuePurge({36'525, 1}, std::nullopt, Today), 19261119u);
}

TEST(PurgeScheduleTest, OnlyTheFlagOneSwitchesItOn)
{
    EXPECT_EQ(DuePurge({7, 0}, std::nullopt, Today), std::nullopt);
    EXPECT_EQ(DuePurge({7, 2}, std::nullopt, Today), std::nullopt);
}

TEST(PurgeScheduleTest, OnceADay)
{
    EXPECT_EQ(DuePurge({7, 1}, 20261120, Today), std::nullopt);
    EXPECT_EQ(DuePurge({7, 1}, 20261119, Today), 20261112u);
}

TEST(PurgeScheduleTest, APurgeThatAWrongClockNotedAheadHoldsNobodyUp)
{
    EXPECT_EQ(DuePurge({7, 1}, 20361120, Today), 20261112u);
}

// A retention of 0 that somebody had written into the registry took all but the events of the day.
TEST(PurgeScheduleTest, SettingsThatMakeNoSenseTakeNothing)
{
    for (const std::uint32_t days : {0u, 36'526u, 200'000u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(DuePurge({days, 1}, std::nullopt, Today), std::nullopt) << days;
    }
}
