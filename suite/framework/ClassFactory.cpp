#include "suite/framework/ClassFactory.h"

#include "suite/framework/Controller.h"

namespace Framework
{

HRESULT ClassFactory::QueryInterface(REFIID iid, void** object)
{
    if (object == nullptr)
    {
        return E_POINTER;
    }
    const bool isOurs = iid == __uuidof(IUnknown) || iid == __uuidof(IClassFactory);
    *object = isOurs ? static_cast<IClassFactory*>(this) : nullptr;
    if (!isOurs)
    {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG ClassFactory::AddRef()
{
    return ++m_nReferences;
}

ULONG ClassFactory::Release()
{
    const ULONG left = --m_nReferences;
    if (left == 0)
    {
        delete this;
    }
    return left;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object)
{
    return WithoutExceptions(
        [&]
        {
            if (object == nullptr)
            {
                return E_POINTER;
            }
            *object = nullptr;
            if (outer != nullptr)
            {
                return CLASS_E_NOAGGREGATION;
            }
            const auto controller = Suite::ComPtr<IVdFrwkLocalController>::Attach(new Controller(m_service));
            return controller->QueryInterface(iid, object);
        });
}

HRESULT ClassFactory::LockServer(BOOL lock)
{
    if (lock)
    {
        m_service.Objects().Lock();
    }
    else
    {
        m_service.Objects().Unlock();
    }
    return S_OK;
}

} // namespace Framework
