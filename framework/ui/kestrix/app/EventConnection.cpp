#include "framework/ui/kestrix/app/EventConnection.h"

#include "common/VdCommon/VdComn_DebugLog.h"

#include <new>

CEventConnection::~CEventConnection()
{
    if (m_bConnected)
    {
        m_pEventSinkObject->Uninitialize();
    }
}

bool CEventConnection::Connect()
{
    VD_TRACE(Flow, L"[Enter] CKestrixApp::InitializeEventObject()...");
    m_pEventSinkObject.reset(new (std::nothrow) CKestrixEventSinkObject(m_Module, m_Host));
    if (m_pEventSinkObject == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitializeEventObject() - this->m_pEventSinkObject was invalid.");
        return false;
    }
    const HRESULT hr = m_pEventSinkObject->Initialize();
    m_bConnected = SUCCEEDED(hr);
    if (!m_bConnected)
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

bool CEventConnection::Disconnect()
{
    VD_TRACE(Flow, L"[Enter] CKestrixApp::UninitializeEventObject()...");
    if (m_pEventSinkObject == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixApp::UninitializeEventObject() - this->m_pEventSinkObject was invalid.");
        return false;
    }
    m_bConnected = false;
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
