#include "suite/samples/Deck.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace Samples
{

TEST(DeckTest, EachRoundBringsEveryRowAsOftenAsItsCopies)
{
    static constexpr Card<int> Table[] = {{3, 7}, {1, 8}, {2, 9}};
    Random random(5);
    Deck<int> deck(Table, random);
    for (int round = 0; round < 4; ++round)
    {
        std::map<int, int> seen;
        for (int i = 0; i < 6; ++i)
        {
            ++seen[deck.Draw()];
        }
        EXPECT_EQ(seen, (std::map<int, int>{{7, 3}, {8, 1}, {9, 2}})) << "round " << round;
    }
}

TEST(DeckTest, RoundsAreShuffledDifferently)
{
    static constexpr int Table[] = {1, 2, 3, 4, 5, 6, 7, 8};
    Random random(5);
    Deck<int> deck(Table, random);
    std::string first;
    std::string second;
    for (int i = 0; i < 8; ++i)
    {
        first += std::to_string(deck.Draw());
    }
    for (int i = 0; i < 8; ++i)
    {
        second += std::to_string(deck.Draw());
    }
    EXPECT_NE(first, second);
    EXPECT_NE(first, "87654321");
}

TEST(RandomTest, TheStreamOfASeedIsFixed)
{
    // The published first numbers of this generator for the seed 0.
    Random random(0);
    EXPECT_EQ(random.Next(), 0xE220A8397B1DCDAFu);
    EXPECT_EQ(random.Next(), 0x6E789E6AA1B965F4u);
    EXPECT_EQ(random.Next(), 0x06C45D188009454Fu);
}

TEST(RandomTest, BelowReachesEveryNumberUnderTheBoundAndNoOther)
{
    Random random(1);
    std::map<std::uint32_t, int> seen;
    for (int i = 0; i < 7000; ++i)
    {
        ++seen[random.Below(7)];
    }
    EXPECT_EQ(seen.size(), 7u);
    EXPECT_EQ(seen.rbegin()->first, 6u);
    for (const auto& [number, count] : seen)
    {
        EXPECT_NEAR(count, 1000, 150) << number;
    }
    EXPECT_EQ(random.Below(0), 0u);
    EXPECT_EQ(random.Below(1), 0u);
}

} // namespace Samples
