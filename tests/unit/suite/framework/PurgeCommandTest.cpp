#include "suite/framework/PurgeCommand.h"

#include <gtest/gtest.h>

using namespace Framework;

TEST(PurgeCommandTest, EveryPurgeTypeNamesItsKind)
{
    struct Row
    {
        std::uint32_t purgeType;
        std::uint32_t kind;
    };

    // The purge types of the thirteen logs, in the order of the logs, and their query sub types.
    constexpr Row Rows[] = {{1, 2}, {0, 11}, {4, 5},   {3, 6},   {2, 7},   {5, 9},  {10, 4},
                            {7, 8}, {8, 3},  {11, 10}, {12, 13}, {13, 12}, {14, 14}};
    for (const Row& row : Rows)
    {
        EXPECT_EQ(ReadPurgeCommand({20261114u, 61204u, row.purgeType}), (PurgeCommand{row.kind, 20261114}));
    }
}

TEST(PurgeCommandTest, ATypeOfNoLogIsRefused)
{
    for (const std::uint32_t type : {6u, 9u, 15u, 0xFFFFFFFFu})
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
