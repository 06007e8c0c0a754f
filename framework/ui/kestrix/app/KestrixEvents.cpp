// The application's event sink.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/app/Kestrix.h"

#include <new>

bool CKestrixApp::InitializeEventObject()
{
    VD_TRACE(Flow, L"[Enter] CKestrixApp::InitializeEventObject()...");
    m_pEventSinkObject.reset(new (std::nothrow) CKestrixEventSinkObject(m_Module, *this));
    if (m_pEventSinkObject == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitializeEventObject() - this->m_pEventSinkObject was invalid.");
        return false;
    }
    const HRESULT hr = m_pEventSinkObject->Initialize();
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CKestrixApp::InitializeEventObject() - this->m_pEventSinkObject->Initialize() failed. "
                 L"[0x%08x]",
                 hr);
        return false;
    }
    VD_TRACE(Flow, L"[Leave] CKestrixApp::InitializeEventObject()...");
    return true;
}

bool CKestrixApp::UninitializeEventObject()
{
    VD_TRACE(Flow, L"[Enter] CKestrixApp::UninitializeEventObject()...");
    if (m_pEventSinkObject == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixApp::UninitializeEventObject() - this->m_pEventSinkObject was invalid.");
        return false;
    }
    const HRESULT hr = m_pEventSinkObject->Uninitialize();
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CKestrixApp::UninitializeEventObject() - this->m_pEventSinkObject->Uninitialize() failed. "
                 L"[0x%08x]",
                 hr);
        return false;
    }
    VD_TRACE(Flow, L"[Leave] CKestrixApp::UninitializeEventObject()...");
    return true;
}
