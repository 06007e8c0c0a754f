#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace Suite
{

// Owner of one reference to a COM object; empty when there is none.
template <class Interface>
class ComPtr
{
public:
    ComPtr() = default;

    // Adds a reference of its own.
    explicit ComPtr(Interface* object) : m_pObject(object)
    {
        if (m_pObject != nullptr)
        {
            m_pObject->AddRef();
        }
    }

    ComPtr(const ComPtr& other) : ComPtr(other.m_pObject) {}

    ComPtr(ComPtr&& other) noexcept : m_pObject(std::exchange(other.m_pObject, nullptr)) {}

    ~ComPtr() { Reset(); }

    ComPtr& operator=(ComPtr other) noexcept
    {
        std::swap(m_pObject, other.m_pObject);
        return *this;
    }

    // Takes over a reference that the caller owns.
    static ComPtr Attach(Interface* object)
    {
        ComPtr pointer;
        pointer.m_pObject = object;
        return pointer;
    }

    Interface* Get() const { return m_pObject; }

    Interface* operator->() const { return m_pObject; }

    explicit operator bool() const { return m_pObject != nullptr; }

    // The place for a function that returns a reference; the one that was held is released.
    Interface** Put()
    {
        Reset();
        return &m_pObject;
    }

    void** PutVoid() { return reinterpret_cast<void**>(Put()); }

    // Hands the reference over to the caller.
    Interface* Detach() { return std::exchange(m_pObject, nullptr); }

    void Reset()
    {
        if (Interface* const object = std::exchange(m_pObject, nullptr))
        {
            object->Release();
        }
    }

    // Another interface of the object; empty when it has none.
    template <class Other>
    ComPtr<Other> As() const
    {
        ComPtr<Other> other;
        if (m_pObject != nullptr && FAILED(m_pObject->QueryInterface(__uuidof(Other), other.PutVoid())))
        {
            return {};
        }
        return other;
    }

private:
    Interface* m_pObject = nullptr;
};

} // namespace Suite
