#include "common/VdCommon/VdComn_Synchronize.h"

#include "tests/support/LiveHandles.h"
#include "tests/unit/common/VdCommon/AccessList.h"
#include "tests/unit/common/VdCommon/MutexHolder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <type_traits>
#include <vector>

namespace
{

using VdCommon::Synchronize::Base;
using VdCommon::Synchronize::CriticalSection;
using VdCommon::Synchronize::Mutex;
using VdCommon::Synchronize::SingleLock;

long LiveKernelHandles()
{
    return LiveHandles::Of(HandleKind::Kernel);
}

// What `operation` gives on a thread of its own.
template <class Operation>
std::uint32_t OnAnotherThread(Operation operation)
{
    std::uint32_t result = 0;
    std::thread([&] { result = operation(); }).join();
    return result;
}

// Tries the lock on a thread of its own and gives it back.
std::uint32_t Try(Base& lock)
{
    return OnAnotherThread(
        [&]
        {
            const std::uint32_t result = lock.Lock();
            if (result == WAIT_OBJECT_0)
            {
                lock.Unlock();
            }
            return result;
        });
}

TEST(CriticalSection, EightThreadsCountWithoutLoss)
{
    constexpr int Threads = 8;
    constexpr int Turns = 2'000;
    CriticalSection lock;
    volatile int count = 0;
    const UniqueKernelHandle start(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    std::vector<std::thread> threads;
    for (int thread = 0; thread < Threads; ++thread)
    {
        threads.emplace_back(
            [&]
            {
                ::WaitForSingleObject(start.get(), INFINITE);
                for (int turn = 0; turn < Turns; ++turn)
                {
                    const SingleLock guard(&lock);
                    const int seen = count;
                    ::SwitchToThread(); // opens the way for a thread that is not kept out
                    count = seen + 1;
                }
            });
    }
    ::SetEvent(start.get());
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(count, Threads * Turns);
}

TEST(CriticalSection, LockGives0AndUnlockLetsTheNextThreadIn)
{
    CriticalSection lock;
    EXPECT_EQ(lock.Lock(), 0u);
    lock.Unlock();
    EXPECT_EQ(Try(lock), WAIT_OBJECT_0);
}

// Notes its calls.
class NotingLock : public Base
{
public:
    std::uint32_t Lock() noexcept override
    {
        ++locked;
        return WAIT_TIMEOUT;
    }

    void Unlock() noexcept override { ++unlocked; }

    int locked = 0;
    int unlocked = 0;
};

TEST(SingleLock, LocksWhenBuiltAndUnlocksWhenItGoes)
{
    NotingLock lock;
    {
        const SingleLock<> guard(&lock);
        EXPECT_EQ(lock.locked, 1);
        EXPECT_EQ(lock.unlocked, 0);
    }
    EXPECT_EQ(lock.locked, 1);
    EXPECT_EQ(lock.unlocked, 1);
}

TEST(SingleLock, UnlocksWhenAnExceptionPasses)
{
    NotingLock lock;
    EXPECT_THROW(
        {
            const SingleLock<> guard(&lock);
            throw std::runtime_error("passes");
        },
        std::runtime_error);
    EXPECT_EQ(lock.unlocked, 1);
}

TEST(SingleLock, CriticalSectionIsFreeForOthersAfterAnException)
{
    CriticalSection lock;
    EXPECT_THROW(
        {
            const SingleLock guard(&lock);
            throw std::runtime_error("passes");
        },
        std::runtime_error);
    EXPECT_EQ(Try(lock), WAIT_OBJECT_0);
}

TEST(SingleLock, IsAPointerToALockWithAVirtualDestructorOnly)
{
    static_assert(std::has_virtual_destructor_v<SingleLock<>> && std::has_virtual_destructor_v<Base>);
    static_assert(sizeof(SingleLock<>) == 2 * sizeof(void*));
    static_assert(sizeof(SingleLock<CriticalSection>) == 2 * sizeof(void*));
    static_assert(!std::is_copy_constructible_v<SingleLock<>> && !std::is_copy_constructible_v<CriticalSection>);

    NotingLock lock;
    Base* const base = &lock;
    SingleLock<>* const guard = new SingleLock(base);
    delete guard;
    EXPECT_EQ(lock.unlocked, 1);
}

TEST(SingleLock, DoesNotLookAtTheResultOfTheWait)
{
    Mutex mutex(0);
    ASSERT_TRUE(mutex.Create(MutexHolder::UniqueName(), false, true));
    EXPECT_EQ(OnAnotherThread(
                  [&]
                  {
                      const SingleLock guard(&mutex); // not held: the wait timed out
                      return 1u;
                  }),
              1u);
    EXPECT_EQ(Try(mutex), WAIT_TIMEOUT) << "the guard gave away what it did not hold";
    mutex.Unlock();
}

TEST(Mutex, FirstExclusiveCreationSucceeds)
{
    ::SetLastError(ERROR_ALREADY_EXISTS); // of an earlier call, and none of Create's business
    Mutex mutex;
    EXPECT_TRUE(mutex.Create(MutexHolder::UniqueName(), true, false));
}

TEST(Mutex, ExclusiveOneHasTheAccessListOfKind11AndASharedOneThatOfKind12)
{
    for (const bool exclusive : {true, false})
    {
        SCOPED_TRACE(exclusive);
        const std::wstring name = MutexHolder::UniqueName();
        Mutex mutex;
        ASSERT_TRUE(mutex.Create(name, exclusive, false));
        const UniqueKernelHandle opened(::OpenMutexW(READ_CONTROL, FALSE, (L"Local\\" + name).c_str()));
        ASSERT_TRUE(opened);
        const std::vector<AccessEntry> entries = AccessListOfObject(opened.get());
        EXPECT_EQ(entries.size(), 7u);
        for (const AccessEntry& entry : entries)
        {
            EXPECT_EQ(entry.mask, exclusive ? 0x100001u : 0x1F0001u) << entry;
        }
    }
}

TEST(Mutex, NameLiesInTheSession)
{
    const std::wstring name = MutexHolder::UniqueName();
    Mutex mutex;
    ASSERT_TRUE(mutex.Create(name, true, false));
    const UniqueKernelHandle opened(::OpenMutexW(SYNCHRONIZE, FALSE, (L"Local\\" + name).c_str()));
    EXPECT_TRUE(opened);
    const UniqueKernelHandle global(::OpenMutexW(SYNCHRONIZE, FALSE, (L"Global\\" + name).c_str()));
    EXPECT_FALSE(global);
}

TEST(Mutex, ExclusiveCreationFailsWhileAnotherProcessHoldsTheNameAndLeavesNoHandle)
{
    const std::wstring name = MutexHolder::UniqueName();
    MutexHolder other({name, true, false});
    const long handles = LiveKernelHandles();
    Mutex mutex(0);
    EXPECT_FALSE(mutex.Create(name, true, false));
    EXPECT_EQ(LiveKernelHandles(), handles);
    EXPECT_EQ(mutex.Lock(), WAIT_FAILED);

    EXPECT_TRUE(other.End());
    EXPECT_TRUE(mutex.Create(name, true, false)) << "the refusal left something behind";
}

TEST(Mutex, AnotherProcessIsRefusedWhileThisOneHoldsTheNameExclusively)
{
    const std::wstring name = MutexHolder::UniqueName();
    Mutex mutex;
    ASSERT_TRUE(mutex.Create(name, true, false));
    EXPECT_FALSE(MutexHolder({name, true, false}).End());
    EXPECT_FALSE(MutexHolder({name, true, true}).End());
}

TEST(Mutex, ExclusiveCreationFailsOnASharedNameToo)
{
    const std::wstring name = MutexHolder::UniqueName();
    MutexHolder other({name, false, false});
    Mutex mutex;
    EXPECT_FALSE(mutex.Create(name, true, false));
    EXPECT_TRUE(other.End());
}

TEST(Mutex, NonExclusiveCreationOfAnExistingNameOpensIt)
{
    for (const bool exclusive : {false, true})
    {
        SCOPED_TRACE(exclusive ? "made exclusively" : "made to share");
        const std::wstring name = MutexHolder::UniqueName();
        MutexHolder other({name, exclusive, true});
        Mutex mutex(0);
        EXPECT_TRUE(mutex.Create(name, false, false));
        EXPECT_EQ(mutex.Lock(), WAIT_TIMEOUT) << "not the mutex that the other process owns";
        EXPECT_TRUE(other.End());
    }
}

TEST(Mutex, NonExclusiveCreationDoesNotTakeAnExistingMutexAtOnce)
{
    const std::wstring name = MutexHolder::UniqueName();
    Mutex first(0);
    Mutex second(0);
    ASSERT_TRUE(first.Create(name, false, false));
    ASSERT_TRUE(second.Create(name, false, true));
    EXPECT_EQ(Try(first), WAIT_OBJECT_0);
}

TEST(Mutex, CreationFailsWhileAHandleIsHeldAndKeepsIt)
{
    const std::wstring name = MutexHolder::UniqueName();
    Mutex mutex(0);
    ASSERT_TRUE(mutex.Create(name, false, false));
    EXPECT_FALSE(mutex.Create(MutexHolder::UniqueName(), false, false));
    EXPECT_FALSE(mutex.Create(name, false, false));
    EXPECT_FALSE(mutex.Create(L"", false, false));
    EXPECT_EQ(mutex.Lock(), WAIT_OBJECT_0);
    mutex.Unlock();
}

TEST(Mutex, CreationFailsForAnEmptyName)
{
    const long handles = LiveKernelHandles();
    Mutex mutex;
    EXPECT_FALSE(mutex.Create(L"", true, false));
    EXPECT_FALSE(mutex.Create(L"", false, false));
    EXPECT_EQ(LiveKernelHandles(), handles);
}

TEST(Mutex, CreationFailsWhereTheNameBelongsToAnotherKindOfObject)
{
    const std::wstring name = MutexHolder::UniqueName();
    const UniqueKernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, (L"Local\\" + name).c_str()));
    ASSERT_TRUE(event);
    const long handles = LiveKernelHandles();
    Mutex mutex;
    EXPECT_FALSE(mutex.Create(name, true, false));
    EXPECT_FALSE(mutex.Create(name, false, false));
    EXPECT_EQ(LiveKernelHandles(), handles);
}

TEST(Mutex, InitialOwnerHoldsItAtOnce)
{
    Mutex owned(0);
    ASSERT_TRUE(owned.Create(MutexHolder::UniqueName(), true, true));
    EXPECT_EQ(Try(owned), WAIT_TIMEOUT);
    owned.Unlock();
    EXPECT_EQ(Try(owned), WAIT_OBJECT_0);
}

TEST(Mutex, WithoutInitialOwnerItIsFree)
{
    Mutex mutex(0);
    ASSERT_TRUE(mutex.Create(MutexHolder::UniqueName(), true, false));
    EXPECT_EQ(Try(mutex), WAIT_OBJECT_0);
}

TEST(Mutex, LockWaitsAsLongAsItWasTold)
{
    constexpr std::uint32_t Milliseconds = 50;
    const std::wstring name = MutexHolder::UniqueName();
    MutexHolder other({name, false, true});
    Mutex mutex(Milliseconds);
    ASSERT_TRUE(mutex.Create(name, false, false));
    const ULONGLONG start = ::GetTickCount64();
    EXPECT_EQ(mutex.Lock(), WAIT_TIMEOUT);
    EXPECT_GE(::GetTickCount64() - start + 16, Milliseconds); // 16: the grain of the clock
}

TEST(Mutex, LockWithoutALimitWaitsUntilTheOtherThreadUnlocks)
{
    Mutex mutex;
    ASSERT_TRUE(mutex.Create(MutexHolder::UniqueName(), false, true));
    std::uint32_t result = WAIT_FAILED;
    const UniqueKernelHandle begun(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    bool unlocked = false;
    bool seenUnlocked = false;
    std::thread waiting(
        [&]
        {
            ::SetEvent(begun.get());
            result = mutex.Lock();
            seenUnlocked = unlocked;
            mutex.Unlock();
        });
    EXPECT_EQ(::WaitForSingleObject(begun.get(), 60'000), WAIT_OBJECT_0);
    unlocked = true;
    mutex.Unlock();
    waiting.join();
    EXPECT_EQ(result, WAIT_OBJECT_0);
    EXPECT_TRUE(seenUnlocked);
}

TEST(Mutex, LockTellsThatTheOwningProcessEndedWithoutReleasing)
{
    const std::wstring name = MutexHolder::UniqueName();
    MutexHolder other({name, false, true});
    Mutex mutex(0);
    ASSERT_TRUE(mutex.Create(name, false, false));
    EXPECT_EQ(mutex.Lock(), WAIT_TIMEOUT);
    EXPECT_TRUE(other.End());
    EXPECT_EQ(mutex.Lock(), WAIT_ABANDONED);
    mutex.Unlock();
    EXPECT_EQ(mutex.Lock(), WAIT_OBJECT_0);
    mutex.Unlock();
}

TEST(Mutex, LockWithoutAMutexFails)
{
    Mutex mutex(0);
    EXPECT_EQ(mutex.Lock(), WAIT_FAILED);
}

TEST(Mutex, EndClosesTheHandleButDoesNotRelease)
{
    const std::wstring name = MutexHolder::UniqueName();
    const long handles = LiveKernelHandles();
    Mutex other(0);
    {
        Mutex owned;
        ASSERT_TRUE(owned.Create(name, false, true));
        ASSERT_TRUE(other.Create(name, false, false));
    }
    EXPECT_EQ(LiveKernelHandles(), handles + 1);
    EXPECT_EQ(Try(other), WAIT_TIMEOUT) << "released at the end of the owner's object";
    other.Unlock(); // this thread has it still
    EXPECT_EQ(Try(other), WAIT_OBJECT_0);
}

TEST(Mutex, NameIsFreeAfterTheEndOfItsLastObject)
{
    const std::wstring name = MutexHolder::UniqueName();
    {
        Mutex mutex;
        ASSERT_TRUE(mutex.Create(name, true, false));
        EXPECT_FALSE(Mutex().Create(name, true, false));
    }
    EXPECT_TRUE(Mutex().Create(name, true, false));
}

} // namespace
