#pragma once

#include "suite/framework/ObjectTable.h"
#include "suite/framework/Trace.h"

#include <new>
#include <system_error>

namespace Framework
{

// Implements IUnknown for an object with these interfaces that a client holds. Made with new, with one reference; the
// last Release deletes it.
template <class First, class... Others>
class ComObject : public First, public Others..., protected HeldObject
{
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        if (object == nullptr)
        {
            return E_POINTER;
        }
        *object = nullptr;
        if (iid == __uuidof(IUnknown) || iid == __uuidof(First))
        {
            *object = static_cast<First*>(this);
        }
        else
        {
            ((iid == __uuidof(Others) ? static_cast<void>(*object = static_cast<Others*>(this)) : void()), ...);
        }
        if (*object == nullptr)
        {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++m_nReferences; }

    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_nReferences;
        if (left == 0)
        {
            delete this;
        }
        return left;
    }

protected:
    explicit ComObject(ObjectTable& table) : HeldObject(table, static_cast<First*>(this)) {}

    virtual ~ComObject() = default;
};

// Runs a method of an interface, which returns an HRESULT; what it throws becomes one.
template <class Work>
HRESULT WithoutExceptions(Work work) noexcept
{
    try
    {
        return work();
    }
    catch (const std::bad_alloc&)
    {
        return E_OUTOFMEMORY;
    }
    catch (const std::system_error& error)
    {
        Trace(error.what());
        return HRESULT_FROM_WIN32(static_cast<DWORD>(error.code().value()));
    }
    catch (const std::exception& error)
    {
        Trace(error.what());
        return E_FAIL;
    }
}

} // namespace Framework
