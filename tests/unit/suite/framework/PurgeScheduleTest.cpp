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
    EXPECT_EQ(DuePurge({0, 1}, std::nullopt, Today), 20261119u);
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

TEST(PurgeScheduleTest, MoreDaysThanThereWereTakeNothing)
{
    EXPECT_EQ(DuePurge({0xFFFFFFFF, 1}, std::nullopt, Today), std::nullopt);
    EXPECT_EQ(DuePurge({200'000, 1}, std::nullopt, Today), std::nullopt);
}
