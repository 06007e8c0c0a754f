#include "common/VdCommon/VdComn_ByteArray.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace
{

using VdCommon::ByteArray;

constexpr std::uint32_t Untouched = 12345;

TEST(ByteArray, IsEmptyAtFirst)
{
    const ByteArray bytes;
    EXPECT_EQ(bytes.Data(), nullptr);
    EXPECT_EQ(bytes.Size(), 0u);
}

TEST(ByteArray, AllocatesAZeroedBlock)
{
    ByteArray bytes;
    std::uint32_t error = Untouched;
    EXPECT_TRUE(bytes.Allocate(1000, &error));
    EXPECT_EQ(error, 0u);
    ASSERT_EQ(bytes.Size(), 1000u);
    EXPECT_TRUE(std::all_of(bytes.Data(), bytes.Data() + 1000, [](std::uint8_t byte) { return byte == 0; }));
    bytes.Data()[999] = 1;
}

TEST(ByteArray, AllocateTwiceFailsWith5010TheSecondTime)
{
    ByteArray bytes;
    std::uint32_t error = Untouched;
    ASSERT_TRUE(bytes.Allocate(4));
    const std::uint8_t* const block = bytes.Data();
    EXPECT_FALSE(bytes.Allocate(8, &error));
    EXPECT_EQ(error, 5010u);
    EXPECT_EQ(bytes.Data(), block);
    EXPECT_EQ(bytes.Size(), 4u);
}

TEST(ByteArray, BlockThatIsThereCountsBeforeASizeOfZero)
{
    ByteArray bytes;
    std::uint32_t error = Untouched;
    ASSERT_TRUE(bytes.Allocate(4));
    EXPECT_FALSE(bytes.Allocate(0, &error));
    EXPECT_EQ(error, 5010u);
}

TEST(ByteArray, SizeOfZeroFailsWith160)
{
    ByteArray bytes;
    std::uint32_t error = Untouched;
    EXPECT_FALSE(bytes.Allocate(0, &error));
    EXPECT_EQ(error, 160u);
    EXPECT_TRUE(bytes.Allocate(1, &error));
}

TEST(ByteArray, NoMemoryFailsWith6AndLeavesItEmpty)
{
    ByteArray bytes;
    for (const std::uint64_t size : {std::uint64_t{1} << 60, std::uint64_t{1} << 63})
    {
        std::uint32_t error = Untouched;
        EXPECT_FALSE(bytes.Allocate(size, &error));
        EXPECT_EQ(error, 6u);
        EXPECT_EQ(bytes.Data(), nullptr);
        EXPECT_EQ(bytes.Size(), 0u);
    }
}

TEST(ByteArray, FailuresNeedNoErrorCode)
{
    ByteArray bytes;
    EXPECT_FALSE(bytes.Allocate(0));
    EXPECT_TRUE(bytes.Allocate(1));
    EXPECT_FALSE(bytes.Allocate(1));
}

TEST(ByteArray, FreeEmptiesItForANewBlock)
{
    ByteArray bytes;
    ASSERT_TRUE(bytes.Allocate(4));
    bytes.Free();
    EXPECT_EQ(bytes.Data(), nullptr);
    EXPECT_EQ(bytes.Size(), 0u);
    EXPECT_TRUE(bytes.Allocate(2));
    EXPECT_EQ(bytes.Size(), 2u);
}

TEST(ByteArray, MovesTheBlockAndLeavesTheSourceEmpty)
{
    ByteArray source;
    ASSERT_TRUE(source.Allocate(3));
    const std::uint8_t* const block = source.Data();
    ByteArray target(std::move(source));
    EXPECT_EQ(target.Data(), block);
    EXPECT_EQ(target.Size(), 3u);
    EXPECT_TRUE(source.Allocate(5)); // empty again

    target = std::move(source);
    EXPECT_EQ(target.Size(), 5u);
    EXPECT_EQ(source.Data(), nullptr);
    EXPECT_EQ(source.Size(), 0u);

    target = ByteArray();
    EXPECT_EQ(target.Data(), nullptr);
    EXPECT_EQ(target.Size(), 0u);
}

} // namespace
