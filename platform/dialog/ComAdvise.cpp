#include "platform/dialog/ComAdvise.h"

#include "platform/dialog/ComPtr.h"

#include <ocidl.h>

namespace
{

HRESULT FindPoint(IUnknown* source, REFIID eventInterface, CComPtr<IConnectionPoint>& point) noexcept
{
    if (source == nullptr)
    {
        return E_INVALIDARG;
    }
    CComPtr<IConnectionPointContainer> container;
    HRESULT hr = container.QueryFrom(source);
    if (SUCCEEDED(hr))
    {
        hr = container->FindConnectionPoint(eventInterface, point.put());
    }
    return SUCCEEDED(hr) && !point ? E_POINTER : hr;
}

} // namespace

HRESULT AtlAdvise(IUnknown* source, IUnknown* sink, REFIID eventInterface, DWORD* cookie) noexcept
{
    CComPtr<IConnectionPoint> point;
    const HRESULT hr = FindPoint(source, eventInterface, point);
    return SUCCEEDED(hr) ? point->Advise(sink, cookie) : hr;
}

HRESULT AtlUnadvise(IUnknown* source, REFIID eventInterface, DWORD cookie) noexcept
{
    CComPtr<IConnectionPoint> point;
    const HRESULT hr = FindPoint(source, eventInterface, point);
    return SUCCEEDED(hr) ? point->Unadvise(cookie) : hr;
}
