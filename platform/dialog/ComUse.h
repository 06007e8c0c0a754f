#pragma once

#include <windows.h>

#include <objbase.h>

// COM for the calling thread, for the life of the object.
class ComUse
{
public:
    ComUse() : m_isOwn(SUCCEEDED(::CoInitialize(nullptr))) {}

    ~ComUse()
    {
        if (m_isOwn)
        {
            ::CoUninitialize();
        }
    }

    ComUse(const ComUse&) = delete;
    ComUse& operator=(const ComUse&) = delete;

private:
    const bool m_isOwn;
};
