#include "platform/dialog/ListRowRoom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace
{

constexpr std::size_t Rows = 10'000;
constexpr std::size_t GrownBy = 10; // rows
constexpr std::size_t Growths = 2 * Rows / GrownBy;

void Release(void* block)
{
    HeapFree(GetProcessHeap(), 0, block);
}

// Keeps its rows in the process's heap as a list control does: four blocks for a row, and two arrays that grow by ten
// rows at a time.
class ListModel
{
public:
    ListModel() = default;

    ~ListModel()
    {
        std::ranges::for_each(m_blocks, Release);
        Release(m_rows.place);
        Release(m_numbers.place);
    }

    ListModel(const ListModel&) = delete;
    ListModel& operator=(const ListModel&) = delete;

    void Fill()
    {
        m_blocks.reserve(4 * Rows);
        for (std::size_t row = 0; row < Rows; ++row)
        {
            for (const std::size_t bytes : {64, 48, 128, 32})
            {
                m_blocks.push_back(HeapAlloc(GetProcessHeap(), 0, bytes));
            }
            if (row % GrownBy == 0)
            {
                Grow(m_rows, row + GrownBy);
                Grow(m_numbers, row + GrownBy);
            }
        }
    }

    std::size_t Moves() const { return m_moves; }

private:
    struct Array
    {
        void* place = HeapAlloc(GetProcessHeap(), 0, sizeof(void*));
    };

    void Grow(Array& array, std::size_t rows)
    {
        void* const old = array.place;
        array.place = HeapReAlloc(GetProcessHeap(), 0, old, rows * sizeof(void*));
        m_moves += array.place != old;
    }

    Array m_rows;
    Array m_numbers;
    std::vector<void*> m_blocks;
    std::size_t m_moves = 0;
};

std::size_t MovesOfAListWithRoomFor(std::size_t rows)
{
    const ListRowRoom room(rows);
    ListModel list;
    list.Fill();
    return list.Moves();
}

// What is in use in the process's heap.
std::size_t BlocksInUse()
{
    std::size_t blocks = 0;
    HeapLock(GetProcessHeap());
    for (PROCESS_HEAP_ENTRY entry{}; HeapWalk(GetProcessHeap(), &entry);)
    {
        blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
    }
    HeapUnlock(GetProcessHeap());
    return blocks;
}

TEST(ListRowRoomTest, WithRoomForTheRowsTheArraysOfAListHardlyMove)
{
    EXPECT_LT(MovesOfAListWithRoomFor(Rows), Growths / 10); // without room it is nearly half of them
}

TEST(ListRowRoomTest, GivesAllThatItTookBack)
{
    const std::size_t before = BlocksInUse();
    {
        const ListRowRoom room(Rows);
        EXPECT_GT(BlocksInUse(), before);
    }
    EXPECT_EQ(BlocksInUse(), before);
}

TEST(ListRowRoomTest, NoRowsTakeNothing)
{
    const std::size_t before = BlocksInUse();
    const ListRowRoom room(0);
    EXPECT_EQ(BlocksInUse(), before);
}

} // namespace
