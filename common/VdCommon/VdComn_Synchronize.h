#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <windows.h>

#include <concepts>
#include <cstdint>
#include <string>

namespace VdCommon::Synchronize
{

// A lock, as a scope guard sees it.
class Base
{
public:
    Base() = default;
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    virtual ~Base() = default;

    // Returns the result of the platform's wait: 0 (WAIT_OBJECT_0) when the lock is held from now on.
    virtual std::uint32_t Lock() noexcept = 0;
    virtual void Unlock() noexcept = 0;
};

// A lock among the threads of this process. No thread may take one twice: callers do not count on the platform's
// re-entrance. Inline and final, since an idle trace call is to cost what its locks cost and nothing else.
class CriticalSection final : public Base
{
public:
    CriticalSection() noexcept { ::InitializeCriticalSection(&m_section); }

    ~CriticalSection() override { ::DeleteCriticalSection(&m_section); }

    std::uint32_t Lock() noexcept override
    {
        ::EnterCriticalSection(&m_section);
        return WAIT_OBJECT_0;
    }

    void Unlock() noexcept override { ::LeaveCriticalSection(&m_section); }

private:
    CRITICAL_SECTION m_section;
};

// A lock among processes. Its end closes the handle but does not release it: what the thread still holds stays taken
// until the thread ends.
class Mutex final : public Base
{
public:
    explicit Mutex(std::uint32_t waitMilliseconds = INFINITE) noexcept : m_nWaitMilliseconds(waitMilliseconds) {}

    // Makes or opens the mutex of this name in the session. `exclusive`: only the first creation in the session
    // succeeds. `initialOwner`: a mutex made here is held by this thread at once; one that was there already is not.
    // Returns false, and holds no more than before, for an object that has its mutex, for an empty name and when the
    // platform refuses.
    bool Create(const std::wstring& name, const bool& exclusive, const bool& initialOwner);

    // Further results: 0x80 (WAIT_ABANDONED) held, left by a thread that ended; 0x102 (WAIT_TIMEOUT) not held;
    // 0xFFFFFFFF (WAIT_FAILED) there is no mutex.
    std::uint32_t Lock() noexcept override;
    void Unlock() noexcept override;

private:
    UniqueKernelHandle m_hMutex;
    std::uint32_t m_nWaitMilliseconds;
};

// Holds a lock from its own begin to its end; the lock must outlive it. The result of the wait is not looked at: a
// mutex with a limited wait may pass without being held. Deduced from a final class, as in SingleLock guard(&m_lock),
// its calls are no virtual ones; SingleLock<> takes any lock.
template <std::derived_from<Base> LockType = Base>
class SingleLock
{
public:
    explicit SingleLock(LockType* lock) noexcept : m_pLock(lock) { m_pLock->Lock(); }

    SingleLock(const SingleLock&) = delete;
    SingleLock& operator=(const SingleLock&) = delete;

    virtual ~SingleLock() { m_pLock->Unlock(); }

private:
    LockType* m_pLock;
};

} // namespace VdCommon::Synchronize
