#pragma once

#include <windows.h>

#include <objbase.h>

// COM for the calling thread, for the life of the object; not on a thread that has it in another form.
class ComUse
{
public:
    ComUse() noexcept : m_status(::CoInitialize(nullptr)) {}

    ~ComUse()
    {
        if (SUCCEEDED(m_status))
        {
            ::CoUninitialize();
        }
    }

    ComUse(const ComUse&) = delete;
    ComUse& operator=(const ComUse&) = delete;

    // Negative where the thread has no COM from here.
    HRESULT Status() const noexcept { return m_status; }

private:
    const HRESULT m_status;
};
