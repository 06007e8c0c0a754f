#include "framework/ui/kestrix/app/RunningCount.h"

#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::vector<std::wstring>;
using Answer = CRunningCount::Answer;

constexpr wchar_t CountKey[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";
constexpr wchar_t Name[] = L"RunningCountTest";

constexpr wchar_t CountReached[] = L"[InitInstance] Executing Log UI reached to Max count.";
constexpr wchar_t CountBoxExists[] = L"[InitInstance] message-box has already existed.";

class RunningCountTest : public ::testing::Test
{
protected:
    void Allow(std::uint32_t viewers) const { m_registry.SetNumber(CountKey, L"MaxLogCount", viewers); }

    // The counts that are left of a semaphore that stands already.
    static int Left()
    {
        CSemaphore semaphore(1, 1, Name);
        int left = 0;
        while (semaphore.Lock(0))
        {
            ++left;
        }
        for (int i = 0; i < left; ++i)
        {
            semaphore.Unlock();
        }
        return left;
    }

    const RegistrySandbox m_registry;
    const TraceRecorder m_trace;
    CRunningCount m_count;
};

} // namespace

TEST_F(RunningCountTest, WithoutASettingFourteenMayRunAndThisIsOneOfThem)
{
    EXPECT_EQ(m_count.Take(Name), Answer::Taken);
    EXPECT_EQ(Left(), 13);
    EXPECT_EQ(m_trace.Texts(), Texts{});
}

TEST_F(RunningCountTest, AMaxLogCountOfZeroBehavesAsFourteen)
{
    Allow(0);
    EXPECT_EQ(m_count.Take(Name), Answer::Taken);
    EXPECT_EQ(Left(), 13);
}

TEST_F(RunningCountTest, AMaxLogCountThatNoSemaphoreCanHoldIsAsManyAsOneCan)
{
    Allow(0xFFFFFFFF);
    EXPECT_EQ(m_count.Take(Name), Answer::Taken);
}

TEST_F(RunningCountTest, TheCountIsGivenBackOnceAndWithTheObjectAtTheLatest)
{
    Allow(2);
    const CSemaphore keptAlive(2, 2, Name);
    {
        CRunningCount count;
        ASSERT_EQ(count.Take(Name), Answer::Taken);
        ASSERT_EQ(m_count.Take(Name), Answer::Taken);
        EXPECT_EQ(Left(), 0);
        count.GiveBack();
        EXPECT_EQ(Left(), 1);
    }
    EXPECT_EQ(Left(), 1);
    {
        CRunningCount count;
        ASSERT_EQ(count.Take(Name), Answer::Taken);
    }
    EXPECT_EQ(Left(), 1);
}

TEST_F(RunningCountTest, TheFirstBeyondTheLimitIsToSaySoAndTheNextIsNot)
{
    Allow(1);
    CRunningCount first;
    ASSERT_EQ(first.Take(Name), Answer::Taken);
    EXPECT_EQ(m_count.Take(Name), Answer::LimitReached);
    EXPECT_EQ(m_trace.Texts(), Texts{CountReached});
    {
        CRunningCount next;
        EXPECT_EQ(next.Take(Name), Answer::LimitIsShown);
        EXPECT_EQ(m_trace.Texts(), (Texts{CountReached, CountReached, CountBoxExists}));
    }
    m_count.GiveBack(); // the message is gone
    EXPECT_EQ(m_count.Take(Name), Answer::LimitReached);
    m_count.GiveBack();
    EXPECT_EQ(Left(), 0) << "nothing was given back that had not been taken";
}

// Error lines of our own stood in the trace.
TEST_F(RunningCountTest, ACountThatAnotherHasGivenBackIsNoError)
{
    Allow(1);
    ASSERT_EQ(m_count.Take(Name), Answer::Taken);
    CSemaphore other(1, 1, Name);
    ASSERT_TRUE(other.Unlock());
    m_count.GiveBack();
    EXPECT_EQ(m_trace.Errors(), Texts{});
}

TEST_F(RunningCountTest, ALimitWhoseMutexCannotBeMadeIsReachedAllTheSame)
{
    Allow(1);
    CRunningCount first;
    ASSERT_EQ(first.Take(Name), Answer::Taken);
    const UniqueKernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, L"ZPTLOG_MUTEX_MAXCNT")); // takes the name
    EXPECT_EQ(m_count.Take(Name), Answer::LimitReached);
    EXPECT_EQ(m_trace.Texts(), Texts{CountReached});
}

TEST_F(RunningCountTest, ANameThatAnotherKindOfObjectHasCountsNothing)
{
    const UniqueKernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, Name));
    EXPECT_EQ(m_count.Take(Name), Answer::NameInUse);
    m_count.GiveBack();
    EXPECT_EQ(m_trace.Texts(), Texts{});
}
