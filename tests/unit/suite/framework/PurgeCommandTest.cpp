#include "suite/framework/PurgeCommand.h"

#include "suite/database/LogKinds.h"

#include <gtest/gtest.h>

using namespace Framework;

TEST(PurgeCommandTest, EveryPurgeTypeNamesItsKind)
{
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        EXPECT_EQ(ReadPurgeCommand({20261114u, 61204u, kind.purgeType}), (PurgeCommand{kind.subType, 20261114}));
    }
    EXPECT_EQ(ReadPurgeCommand({20261114u, 61204u, 12u}), (PurgeCommand{13, 20261114}));
}

TEST(PurgeCommandTest, ATypeOfNoLogIsRefused)
{
    for (const std::uint32_t type : {6u, 9u, 1000u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(ReadPurgeCommand({20261114u, 0u, type}), std::nullopt) << type;
    }
}

TEST(PurgeCommandTest, ADateThatIsNoneIsRefused)
{
    for (const std::uint32_t date : {0u, 20261131u, 20260229u, 20261301u, 20261100u, 16001231u, 4294967295u})
    {
        EXPECT_EQ(ReadPurgeCommand({date, 0u, 1u}), std::nullopt) << date;
    }
    EXPECT_TRUE(ReadPurgeCommand({20240229u, 0u, 1u}));
}

TEST(PurgeCommandTest, ATimeThatIsNoneIsRefused)
{
    for (const std::uint32_t time : {240000u, 6000u, 60u, 4294967295u})
    {
        EXPECT_EQ(ReadPurgeCommand({20261114u, time, 1u}), std::nullopt) << time;
    }
    EXPECT_TRUE(ReadPurgeCommand({20261114u, 235959u, 1u}));
}

TEST(PurgeCommandTest, OtherElementsAreRefused)
{
    EXPECT_EQ(ReadPurgeCommand({}), std::nullopt);
    EXPECT_EQ(ReadPurgeCommand({20261114u, 0u}), std::nullopt);
    EXPECT_EQ(ReadPurgeCommand({20261114u, 0u, 1u, 0u}), std::nullopt);
    EXPECT_EQ(ReadPurgeCommand({20261114u, 0u, std::uint16_t{1}}), std::nullopt);
}
