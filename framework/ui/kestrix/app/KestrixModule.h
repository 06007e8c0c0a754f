#pragma once

#include <atomic>

// The program as a holder of COM objects: it counts those of its own that others may call. It serves none to them.
class CKestrixModule
{
public:
    void Lock() noexcept { ++m_nLocks; }

    void Unlock() noexcept { --m_nLocks; }

    long GetLockCount() const noexcept { return m_nLocks; }

private:
    std::atomic<long> m_nLocks = 0;
};
