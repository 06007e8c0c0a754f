#include "suite/VdDbg/LineTime.h"

#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

using VdDbg::DayOf;
using VdDbg::LocalDayOf;
using VdDbg::StampOf;

TEST(VdDbgLineTime, DaysGrowWithTheCalendar)
{
    EXPECT_EQ(DayOf(At(2011, 3, 5)), 20110305U);
    EXPECT_LT(DayOf(At(2011, 3, 31)), DayOf(At(2011, 4, 1)));
    EXPECT_LT(DayOf(At(2011, 12, 31)), DayOf(At(2012, 1, 1)));
    EXPECT_EQ(DayOf(At(2011, 3, 5, 0)), DayOf(At(2011, 3, 5, 23)));
}

TEST(VdDbgLineTime, AStampLiesOnTheLocalDayOfItsTime)
{
    for (WORD month = 1; month <= 12; ++month)
    {
        for (const WORD hour : {WORD{0}, WORD{4}, WORD{23}})
        {
            const SYSTEMTIME time = At(2011, month, 15, hour);
            const auto stamp = StampOf(time);
            ASSERT_TRUE(stamp);
            EXPECT_EQ(LocalDayOf(*stamp), DayOf(time)) << "month " << month << ", hour " << hour;
        }
    }
}

TEST(VdDbgLineTime, LaterTimesHaveLaterStamps)
{
    const auto earlier = StampOf(At(2011, 3, 5, 11));
    const auto later = StampOf(At(2011, 3, 5, 12));
    ASSERT_TRUE(earlier && later);
    EXPECT_LT(CompareFileTime(&*earlier, &*later), 0);
}

TEST(VdDbgLineTime, WhatIsNoTimeHasNoStamp)
{
    EXPECT_FALSE(StampOf(SYSTEMTIME{}));
    EXPECT_FALSE(StampOf(At(2011, 13, 1)));
    EXPECT_FALSE(StampOf(At(2011, 2, 30)));
    EXPECT_FALSE(StampOf(At(2011, 3, 5, 24)));
}
