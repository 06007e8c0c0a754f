#pragma once

#include "suite/common/ComPtr.h"
#include "suite/framework/ComObject.h"
#include "suite/framework/Service.h"

#include <ocidl.h>

namespace Framework
{

// Where clients advise their sinks of one event interface on a local controller. The sinks are the controller's: they
// are let go with it.
class ConnectionPoint : public ComObject<IConnectionPoint>
{
public:
    ConnectionPoint(Service& service, Suite::ComPtr<IConnectionPointContainer> controller, const IID& iid);

    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

private:
    Service& m_service;
    const Suite::ComPtr<IConnectionPointContainer> m_controller;
    const IID m_iid;
};

} // namespace Framework
