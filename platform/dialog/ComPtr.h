#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <objbase.h>

namespace HandleKinds
{

struct Interface : NullIsNone<IUnknown*, HandleKind::Interface>
{
    static void Close(IUnknown* p) noexcept { p->Release(); }
};

} // namespace HandleKinds

// The owner of one COM interface: releases it when it goes. It takes over a reference that was counted for it and
// counts none itself; put() is the address for a method that hands an interface out.
template <class T>
class CComPtr
{
public:
    CComPtr() noexcept = default;

    explicit CComPtr(T* object) noexcept : m_object(object) {}

    T* get() const noexcept { return static_cast<T*>(m_object.get()); }

    explicit operator bool() const noexcept { return static_cast<bool>(m_object); }

    // Of an owner that holds something.
    T* operator->() const noexcept { return get(); }

    void reset(T* object = nullptr) noexcept { m_object.reset(object); }

    [[nodiscard]] T* release() noexcept { return static_cast<T*>(m_object.release()); }

    HandleOut<CComPtr, T*> put() noexcept { return {*this, nullptr}; }

    // Makes an object of the class and holds it. On a failure, and E_POINTER is the one of a class that answers with
    // success and no object, nothing is held.
    HRESULT CoCreateInstance(REFCLSID classId, DWORD context = CLSCTX_ALL) noexcept
    {
        reset();
        void* made = nullptr;
        const HRESULT hr = ::CoCreateInstance(classId, nullptr, context, __uuidof(T), &made);
        return Take(hr, made);
    }

    // Asks an object for its interface of this type and holds it; failures as above, E_POINTER also for no object.
    HRESULT QueryFrom(IUnknown* object) noexcept
    {
        reset();
        void* found = nullptr;
        const HRESULT hr = object != nullptr ? object->QueryInterface(__uuidof(T), &found) : E_POINTER;
        return Take(hr, found);
    }

private:
    HRESULT Take(HRESULT hr, void* given) noexcept
    {
        if (FAILED(hr))
        {
            return hr;
        }
        reset(static_cast<T*>(given));
        return given != nullptr ? hr : E_POINTER;
    }

    UniqueHandle<HandleKinds::Interface> m_object;
};
