#include "suite/framework/ConnectionPoint.h"

#include "suite/framework/ComEnumerator.h"

#include <olectl.h>

#include <utility>

namespace Framework
{

namespace
{

struct Connections
{
    using Interface = IEnumConnections;
    using Item = CONNECTDATA;
    using Stored = AdvisedSink;

    static CONNECTDATA Give(const AdvisedSink& advised)
    {
        return {Suite::ComPtr(advised.sink).Detach(), advised.cookie};
    }
};

} // namespace

ConnectionPoint::ConnectionPoint(Service& service, Suite::ComPtr<IConnectionPointContainer> controller, const IID& iid)
    : ComObject(service.Objects()), m_service(service), m_controller(std::move(controller)), m_iid(iid)
{
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid)
{
    if (iid == nullptr)
    {
        return E_POINTER;
    }
    *iid = m_iid;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container)
{
    if (container == nullptr)
    {
        return E_POINTER;
    }
    *container = Suite::ComPtr(m_controller).Detach();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie)
{
    return WithoutExceptions(
        [&]
        {
            if (sink == nullptr || cookie == nullptr)
            {
                return E_POINTER;
            }
            *cookie = 0;
            Suite::ComPtr<IUnknown> listener;
            if (FAILED(sink->QueryInterface(m_iid, listener.PutVoid())))
            {
                return CONNECT_E_CANNOTCONNECT;
            }
            *cookie = m_service.Events().Advise(m_controller.Get(), m_iid, std::move(listener));
            return S_OK;
        });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie)
{
    return m_service.Events().Unadvise(m_controller.Get(), m_iid, cookie) ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections)
{
    return WithoutExceptions(
        [&]
        {
            if (connections == nullptr)
            {
                return E_POINTER;
            }
            *connections = nullptr;
            *connections = new ComEnumerator<Connections>(m_table, m_service.Events().Sinks(m_controller.Get(), m_iid));
            return S_OK;
        });
}

} // namespace Framework
