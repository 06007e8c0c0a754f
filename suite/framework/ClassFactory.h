#pragma once

#include "suite/framework/Service.h"

#include <windows.h>

#include <unknwn.h>

#include <atomic>

namespace Framework
{

// Makes local controllers. Made with new, with one reference. Whoever holds it does not keep the process; a lock does.
class ClassFactory : public IClassFactory
{
public:
    // The service must outlive it.
    explicit ClassFactory(Service& service) : m_service(service) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    STDMETHODIMP LockServer(BOOL lock) override;

private:
    virtual ~ClassFactory() = default;

    std::atomic<ULONG> m_nReferences = 1;
    Service& m_service;
};

} // namespace Framework
