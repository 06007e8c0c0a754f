#include "common/Frwk_EventSinkHandler.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "platform/dialog/ComAdvise.h"

namespace Frwk::Interface
{

HRESULT EventSinkHandler::Initialize()
{
    VD_TRACE(Flow, L"[Enter] EventSinkHandler::Initialize()...");
    HRESULT hr = EventDone;
    if (Wants(LocalConnection | SessionConnection))
    {
        hr = m_pLocalController.CoCreateInstance(CLSID_VdFrwkLocalController);
        if (FAILED(hr))
        {
            VD_TRACE(Error,
                     L"*** EventSinkHandler::::Initialize() - this->m_pLocalController.CoCreateInstance() failed. "
                     L"[0x%08x]",
                     hr);
            return hr;
        }
        CComPtr<IUnknown> own;
        hr = GetOwnUnknown(own);
        if (FAILED(hr))
        {
            VD_TRACE(Error, L"*** EventSinkHandler::::Initialize() - this->QueryInterface() failed. [0x%08x]", hr);
            return hr;
        }
        hr = Connect(own.get());
        own.reset();
        connected = true; // a connection that was refused does not close the other
    }
    VD_TRACE(Flow, L"[Leave] EventSinkHandler::Initialize()...[0x%08x]", hr);
    return hr;
}

HRESULT EventSinkHandler::Uninitialize()
{
    VD_TRACE(Flow, L"[Enter] EventSinkHandler::Uninitialize()...");
    CComPtr<IUnknown> own;
    HRESULT hr = GetOwnUnknown(own);
    if (FAILED(hr))
    {
        VD_TRACE(Error, L"*** EventSinkHandler::::Uninitialize() - this->QueryInterface() failed. [0x%08x]", hr);
        ForceDisconnect();
        return hr;
    }
    hr = Disconnect();
    own.reset();
    m_pLocalController.reset();
    ForceDisconnect();
    VD_TRACE(Flow, L"[Leave] EventSinkHandler::Uninitialize()...[0x%08x]", hr);
    return hr;
}

HRESULT EventSinkHandler::Connect(IUnknown* own)
{
    HRESULT hr = EventDone;
    if (Wants(LocalConnection))
    {
        hr = ::AtlAdvise(m_pLocalController.get(), own, __uuidof(IVdFrwkLocalEvents), &m_nLocalCookie);
        if (FAILED(hr))
        {
            VD_TRACE(Error,
                     L"*** EventSinkHandler::::Initialize() - ::AtlAdvise(IID_IVdFrwkLocalEvents) failed. [0x%08x]",
                     hr);
        }
    }
    if (Wants(SessionConnection))
    {
        hr = ::AtlAdvise(m_pLocalController.get(), own, __uuidof(IVdFrwkSessionEvents), &m_nSessionCookie);
        if (FAILED(hr))
        {
            VD_TRACE(Error,
                     L"*** EventSinkHandler::::Initialize() - ::AtlAdvise(IID_IVdFrwkSessionEvents) failed. [0x%08x]",
                     hr);
        }
    }
    return hr;
}

HRESULT EventSinkHandler::Disconnect()
{
    HRESULT hr = EventDone;
    if (Wants(LocalConnection))
    {
        hr = ::AtlUnadvise(m_pLocalController.get(), __uuidof(IVdFrwkLocalEvents), m_nLocalCookie);
        if (FAILED(hr))
        {
            VD_TRACE(Error,
                     L"*** EventSinkHandler::::Uninitialize() - ::AtlUnadvise(IID_IVdFrwkLocalEvents) failed. "
                     L"[0x%08x]",
                     hr);
        }
    }
    if (Wants(SessionConnection))
    {
        hr = ::AtlUnadvise(m_pLocalController.get(), __uuidof(IVdFrwkSessionEvents), m_nSessionCookie);
        if (FAILED(hr))
        {
            VD_TRACE(Error,
                     L"*** EventSinkHandler::::Uninitialize() - ::AtlUnadvise(IID_IVdFrwkSessionEvents) failed. "
                     L"[0x%08x]",
                     hr);
        }
    }
    return hr;
}

// Lets no stub of this object outlive a service that died.
void EventSinkHandler::ForceDisconnect()
{
    CComPtr<IUnknown> own;
    const HRESULT hr = GetOwnUnknown(own);
    if (FAILED(hr))
    {
        VD_TRACE(Error, L"*** EventSinkHandler::ForceDisconnect() - this->QueryInterface() was failed. [0x%08x]", hr);
        return;
    }
    ::CoDisconnectObject(own.get(), 0);
}

HRESULT EventSinkHandler::GetOwnUnknown(CComPtr<IUnknown>& own)
{
    return own.QueryFrom(static_cast<IVdFrwkLocalEvents*>(this));
}

HRESULT EventSinkHandler::OnCommand(const Event& event)
{
    return Wants(CommandEvents) ? OnCommandEvents(event) : EventNotWanted;
}

HRESULT EventSinkHandler::OnProfile(const Event& event)
{
    return Wants(ProfileEvents) ? OnProfileEvents(event) : EventNotWanted;
}

HRESULT EventSinkHandler::OnStatus(const Event& event)
{
    return Wants(StatusEvents) ? OnStatusEvents(event) : EventNotWanted;
}

HRESULT EventSinkHandler::OnProperty(const Event& event)
{
    return Wants(PropertyEvents) ? OnPropertyEvents(event) : EventNotWanted;
}

HRESULT EventSinkHandler::OnSession(const Event& event)
{
    return Wants(SessionEvents) ? OnSessionEvents(event) : EventNotWanted;
}

HRESULT EventSinkHandler::OnDetection(const Event& event)
{
    return Wants(DetectionEvents) ? OnDetectionEvents(event) : EventNotWanted;
}

HRESULT EventSinkHandler::OnCommandEvents(const Event&)
{
    return EventNotWanted;
}

HRESULT EventSinkHandler::OnProfileEvents(const Event&)
{
    return EventNotWanted;
}

HRESULT EventSinkHandler::OnStatusEvents(const Event&)
{
    return EventNotWanted;
}

HRESULT EventSinkHandler::OnPropertyEvents(const Event&)
{
    return EventNotWanted;
}

HRESULT EventSinkHandler::OnSessionEvents(const Event&)
{
    return EventNotWanted;
}

HRESULT EventSinkHandler::OnDetectionEvents(const Event&)
{
    return EventNotWanted;
}

} // namespace Frwk::Interface
