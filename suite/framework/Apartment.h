#pragma once

#include <windows.h>

#include <objbase.h>

namespace Framework
{

// The calling thread is in the multithreaded apartment while the object lives.
class Apartment
{
public:
    Apartment() : m_hr(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}

    ~Apartment()
    {
        if (SUCCEEDED(m_hr))
        {
            CoUninitialize();
        }
    }

    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

    // S_OK, or what CoInitializeEx said.
    HRESULT Result() const { return m_hr; }

private:
    const HRESULT m_hr;
};

} // namespace Framework
