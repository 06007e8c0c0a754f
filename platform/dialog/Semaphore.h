#pragma once

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/UniqueHandle.h"

#include <string>

// A count that processes share by its name. The end of the object gives back nothing: who has taken a count unlocks.
class CSemaphore
{
public:
    // Makes the semaphore with this initial and maximum count, or opens the one of that name, whose counts stay. Throws
    // CAtlException with the system's code when that is not possible.
    CSemaphore(LONG initialCount, LONG maximumCount, const std::wstring& name)
        : m_handle(CreateSemaphoreW(nullptr, initialCount, maximumCount, name.c_str()))
    {
        if (!m_handle)
        {
            AtlThrow(HRESULT_FROM_WIN32(GetLastError()));
        }
    }

    // Takes one count, waiting for it up to the limit in milliseconds. False when there was none.
    bool Lock(DWORD limit = INFINITE) noexcept { return WaitForSingleObject(m_handle.get(), limit) == WAIT_OBJECT_0; }

    // Gives one count back. False when all are there already.
    bool Unlock() noexcept { return ReleaseSemaphore(m_handle.get(), 1, nullptr); }

private:
    UniqueKernelHandle m_handle;
};
