#include "suite/framework/Instance.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

using namespace Framework;
using namespace std::chrono_literals;

namespace
{

// Another process, as far as the objects tell: a thread of its own.
template <class Work>
void InAnotherThread(Work work)
{
    std::thread(work).join();
}

} // namespace

TEST(InstanceTest, TheFirstIsTheServiceAndOthersKnowOfItAtOnce)
{
    Instance first;
    ASSERT_TRUE(first.Acquire());
    first.SetRunning(true);
    InAnotherThread([] { EXPECT_FALSE(Instance().Acquire(30s)); });
}

TEST(InstanceTest, AfterTheServiceTheNextOneIsIt)
{
    InAnotherThread([] { EXPECT_TRUE(Instance().Acquire()); });
    EXPECT_TRUE(Instance().Acquire());
}

TEST(InstanceTest, AServiceThatEndedIsNotTakenForOneThatRuns)
{
    const Instance waiting; // keeps what the processes share
    {
        Instance ended;
        ASSERT_TRUE(ended.Acquire());
        ended.SetRunning(true);
    }
    Instance starting;
    ASSERT_TRUE(starting.Acquire());
    InAnotherThread([] { EXPECT_THROW(Instance().Acquire(1ms), InstanceBlocked); });
}

// The service waited for a minute, and so did the viewer that had started it, without a window.
TEST(InstanceTest, AMutexThatIsHeldForLongIsReportedWithItsNameAndARemedy)
{
    Instance ending;
    ASSERT_TRUE(ending.Acquire());
    InAnotherThread(
        []
        {
            try
            {
                Instance().Acquire(1ms);
                ADD_FAILURE() << "nothing is thrown";
            }
            catch (const InstanceBlocked& blocked)
            {
                const std::string text = blocked.what();
                EXPECT_TRUE(text.starts_with("A program other than the service holds")) << text;
                EXPECT_NE(text.find("Local\\VdFrwkSvc-Instance"), text.npos) << text;
                EXPECT_NE(text.find("End that program, or sign out"), text.npos) << text;
            }
        });
}
