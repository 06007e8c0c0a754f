#include "framework/ui/kestrix/controls/RowSort.h"

#include "tests/support/Seed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <stdexcept>
#include <vector>

namespace
{

using Keys = std::vector<int>;

// What a row is sorted by, and where it stood.
struct Item
{
    int key;
    std::size_t place;
};

constexpr LPARAM Up = 1;
constexpr LPARAM Down = -1;

class RowSortTest : public ::testing::Test
{
protected:
    RowSortTest() { s_asked = 0; }

    // Sorts rows with these keys and compares them with a stable sort by the same order.
    void ExpectSorted(const Keys& keys, LPARAM way)
    {
        std::vector<Item> items;
        for (const int key : keys)
        {
            items.push_back({key, items.size()});
        }
        std::vector<ListRow> rows = RowsOf(items);
        std::vector<ListRow> expected = rows;
        std::ranges::stable_sort(expected, [way](const ListRow& first, const ListRow& second)
                                 { return Compare(first.data, second.data, way) < 0; });
        s_asked = 0;
        SortRows(rows, &Compare, way);
        ASSERT_TRUE(std::ranges::equal(rows, expected, {}, &ListRow::data, &ListRow::data)) << rows.size() << " rows";
        ASSERT_TRUE(std::ranges::equal(rows, expected, {}, &ListRow::image, &ListRow::image));
    }

    static std::vector<ListRow> RowsOf(const std::vector<Item>& items)
    {
        std::vector<ListRow> rows;
        for (const Item& item : items)
        {
            rows.push_back({.data = reinterpret_cast<LPARAM>(&item), .image = static_cast<int>(item.place)});
        }
        return rows;
    }

    static int CALLBACK Compare(LPARAM first, LPARAM second, LPARAM way)
    {
        ++s_asked;
        const int left = reinterpret_cast<const Item*>(first)->key;
        const int right = reinterpret_cast<const Item*>(second)->key;
        return static_cast<int>(way) * (left < right ? -7 : left > right ? 7 : 0);
    }

    static inline std::size_t s_asked = 0; // how often the order was asked for
};

Keys Made(std::size_t count, const std::function<int(std::size_t)>& key)
{
    Keys keys;
    while (keys.size() < count)
    {
        keys.push_back(key(keys.size()));
    }
    return keys;
}

} // namespace

TEST_F(RowSortTest, AnyRowsStandInTheOrderOfTheCallbackAndEqualOnesAsTheyStood)
{
    std::mt19937 random(Seed());
    for (const std::size_t count : {0, 1, 2, 3, 15, 16, 17, 33, 100, 511, 512, 513, 1'000, 6'000})
    {
        for (const int texts : {1, 2, 3, 10, 250, 5'000, 1'000'000})
        {
            const Keys keys = Made(count, [&](std::size_t) { return static_cast<int>(random() % texts); });
            ExpectSorted(keys, Up);
            ExpectSorted(keys, Down);
        }
    }
}

TEST_F(RowSortTest, PartsThatAreInOrderAlreadyAreMergedWhateverTheirLength)
{
    std::mt19937 random(Seed());
    for (int round = 0; round < 60; ++round)
    {
        Keys keys;
        while (keys.size() < 3'000)
        {
            const int start = static_cast<int>(random() % 10'000);
            const int step = static_cast<int>(random() % 5) - 2;
            for (int i = static_cast<int>(random() % 300); i >= 0; --i)
            {
                keys.push_back(start + i / 3 * step);
            }
        }
        ExpectSorted(keys, round % 2 == 0 ? Up : Down);
    }
}

// A day stands newest first when it is loaded, and in the opposite order after a click on its first column.
TEST_F(RowSortTest, RowsInOrderEitherWayAreFoundSoByOneQuestionForEachTwoNeighbours)
{
    constexpr std::size_t count = 10'000;
    const Keys ascending = Made(count, [](std::size_t i) { return static_cast<int>(i / 7); });
    for (const LPARAM way : {Up, Down})
    {
        ExpectSorted(ascending, way);
        EXPECT_EQ(s_asked, count - 1);
    }
    ExpectSorted(Keys(count, 5), Up);
    EXPECT_EQ(s_asked, count - 1);
}

TEST_F(RowSortTest, AColumnOfFewTextsIsSortedInTheNumberOfItsTexts)
{
    constexpr std::size_t count = 20'000;
    std::mt19937 random(Seed());

    const struct
    {
        unsigned texts;
        double questions; // a row at most
    } cases[] = {{2, 2.2}, {8, 4.2}, {60, 6.5}};

    for (const auto& expected : cases)
    {
        ExpectSorted(Made(count, [&](std::size_t) { return static_cast<int>(random() % expected.texts); }), Up);
        EXPECT_LT(static_cast<double>(s_asked), expected.questions * count) << expected.texts << " texts";
    }
}

TEST_F(RowSortTest, AColumnOfManyTextsTakesNoMoreQuestionsThanAStableSort)
{
    std::mt19937 random(Seed());
    const Keys keys = Made(20'000, [&](std::size_t) { return static_cast<int>(random()); });
    ExpectSorted(keys, Up);
    const std::size_t asked = s_asked;
    std::vector<int> sorted = keys;
    std::size_t askedByStableSort = 0;
    std::ranges::stable_sort(sorted,
                             [&](int first, int second)
                             {
                                 ++askedByStableSort;
                                 return first < second;
                             });
    EXPECT_LE(static_cast<double>(asked), 1.02 * static_cast<double>(askedByStableSort));
}

// Of two such parts the second may end with the text with which the first begins.
TEST_F(RowSortTest, APartThatBelongsBeforeAnotherButForATextOfBothIsMerged)
{
    ExpectSorted(Made(1'000, [](std::size_t i) { return static_cast<int>(i < 500 ? i + 500 : i - 499); }), Up);
}

// Seldom texts beside a few frequent ones show after the sample has promised few, more of them than 16 bits can count.
TEST_F(RowSortTest, ManyTextsThatTheSampleMissedAreSortedAllTheSame)
{
    constexpr std::size_t count = 70'000;
    constexpr std::size_t stepOfTheSample = 137;
    ExpectSorted(
        Made(count, [](std::size_t i) { return i % stepOfTheSample == 0 ? 1 : static_cast<int>(i * 7'919 % count); }),
        Up);
}

// An order that is none, as of records too short for the column, must not lose a row.
TEST_F(RowSortTest, EveryRowIsStillThereAfterAnOrderThatContradictsItself)
{
    std::vector<Item> items(5'000);
    std::vector<ListRow> rows = RowsOf(items);
    static std::mt19937 random;
    random.seed(Seed());
    SortRows(
        rows, [](LPARAM, LPARAM, LPARAM) { return static_cast<int>(random() % 3) - 1; }, 0);
    std::vector<ListRow> expected = RowsOf(items);
    std::ranges::sort(rows, {}, &ListRow::data);
    EXPECT_TRUE(std::ranges::equal(rows, expected, {}, &ListRow::data, &ListRow::data));
}

TEST_F(RowSortTest, EveryRowIsStillThereWhenTheCallbackThrows)
{
    const struct
    {
        unsigned texts;
        LPARAM question; // at which the callback throws
    } cases[] = {{3, 1}, {3, 300}, {3, 4'000}, {100'000, 1}, {100'000, 4'000}, {100'000, 12'000}, {100'000, 40'000}};

    std::mt19937 random(Seed());
    for (const auto& thrown : cases)
    {
        std::vector<Item> items(5'000);
        std::ranges::for_each(items, [&](Item& item) { item.key = static_cast<int>(random() % thrown.texts); });
        std::vector<ListRow> rows = RowsOf(items);
        const auto throwAtLast = [](LPARAM first, LPARAM second, LPARAM question)
        {
            return s_asked == static_cast<std::size_t>(question) ? throw std::out_of_range("short")
                                                                 : Compare(first, second, Up);
        };
        s_asked = 0;
        EXPECT_ANY_THROW(SortRows(rows, throwAtLast, thrown.question)) << thrown.texts << " texts";
        std::ranges::sort(rows, {}, &ListRow::data);
        const std::vector<ListRow> expected = RowsOf(items);
        EXPECT_TRUE(std::ranges::equal(rows, expected, {}, &ListRow::data, &ListRow::data)) << thrown.question;
    }
}
