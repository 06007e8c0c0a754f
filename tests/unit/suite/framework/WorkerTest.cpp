#include "suite/framework/Worker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using Framework::Worker;

TEST(WorkerTest, DoesAllWorkInItsOrderBeforeItGoes)
{
    std::vector<int> done;
    {
        Worker worker;
        for (int i = 0; i < 100; ++i)
        {
            worker.Post([&done, i] { done.push_back(i); });
        }
    }
    ASSERT_EQ(done.size(), 100u);
    EXPECT_TRUE(std::ranges::is_sorted(done));
}

TEST(WorkerTest, WorksInAThreadOfItsOwn)
{
    std::thread::id worked;
    {
        Worker worker;
        worker.Post([&] { worked = std::this_thread::get_id(); });
    }
    EXPECT_NE(worked, std::thread::id());
    EXPECT_NE(worked, std::this_thread::get_id());
}
