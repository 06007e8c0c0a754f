#include "platform/dialog/Semaphore.h"

#include <gtest/gtest.h>

namespace
{

const std::wstring Name = L"kestrix-test-semaphore-" + std::to_wstring(GetCurrentProcessId());

TEST(SemaphoreTest, GivesOutItsCountsAndNoMore)
{
    CSemaphore semaphore(2, 2, Name);
    EXPECT_TRUE(semaphore.Lock(0));
    EXPECT_TRUE(semaphore.Lock(0));
    EXPECT_FALSE(semaphore.Lock(0));
    EXPECT_TRUE(semaphore.Unlock());
    EXPECT_TRUE(semaphore.Lock(0));
}

TEST(SemaphoreTest, TakesNoMoreBackThanItsMaximum)
{
    CSemaphore semaphore(1, 1, Name);
    EXPECT_FALSE(semaphore.Unlock());
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_TOO_MANY_POSTS));
}

TEST(SemaphoreTest, TheNameSharesTheCountsOfTheFirst)
{
    CSemaphore first(1, 1, Name);
    CSemaphore second(9, 9, Name);
    EXPECT_TRUE(second.Lock(0));
    EXPECT_FALSE(first.Lock(0));
    EXPECT_TRUE(first.Unlock());
    EXPECT_TRUE(first.Lock(10));
}

TEST(SemaphoreTest, ItsEndGivesNothingBack)
{
    CSemaphore first(1, 1, Name);
    {
        CSemaphore second(1, 1, Name);
        ASSERT_TRUE(second.Lock(0));
    }
    EXPECT_FALSE(first.Lock(0));
}

TEST(SemaphoreTest, CountsThatDoNotFitAreRefusedWithTheSystemsCode)
{
    try
    {
        CSemaphore impossible(2, 1, Name);
        FAIL() << "it was made";
    }
    catch (const CAtlException& failure)
    {
        EXPECT_EQ(failure.m_hr, HRESULT_FROM_WIN32(ERROR_INVALID_PARAMETER));
    }
}

TEST(SemaphoreTest, ANameOfAnotherKindOfObjectIsRefused)
{
    const UniqueKernelHandle mutex(CreateMutexW(nullptr, FALSE, Name.c_str()));
    EXPECT_THROW(CSemaphore(1, 1, Name), CAtlException);
}

} // namespace
