// The application's binding to the event-log database library. What was started is stopped in the reverse order, also
// when a later step fails.

#include "common/Frwk_Utility.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_FolderName.h"
#include "framework/ui/kestrix/app/Kestrix.h"

#include <utility>

namespace
{

constexpr auto LibraryNotLoaded = static_cast<HRESULT>(0x80040240);
constexpr auto NoProvider = static_cast<HRESULT>(0x80040205);

} // namespace

HRESULT CKestrixApp::InitializeOrlDbMgLibrary()
{
    VD_TRACE(Flow, L"[Enter] %s()...", L"CKestrixApp::InitializeOrlDbMgLibrary");
    const HRESULT hr = StartOrlDbMgLibrary();
    VD_TRACE(Flow, L"[Leave] %s()...", L"CKestrixApp::InitializeOrlDbMgLibrary");
    return hr;
}

HRESULT CKestrixApp::StartOrlDbMgLibrary()
{
    if (cOrlDbMgLib.IsBound())
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitializeOrlDbMgLibrary() - cOrlDbMgLib.Initialize() already initialized.");
        return OrlSuccess;
    }
    const std::wstring folder = VdCommon::WithSeparator(Frwk::Utility::GetInstalledFolder());
    if (!cOrlDbMgLib.Initialize(folder))
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitializeOrlDbMgLibrary() - cOrlDbMgLib.Initialize() failed. [%s]", folder);
        return LibraryNotLoaded;
    }
    HRESULT hr = cOrlDbMgLib.Orl_Initialize(0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitializeOrlDbMgLibrary() - cOrlDbMgLib.Orl_Initialize() failed. [0x%08x]",
                 hr);
        cOrlDbMgLib.Uninitialize();
        return hr;
    }
    IDBManagerProvider* provider = nullptr;
    hr = MakeProvider(provider);
    if (SUCCEEDED(hr))
    {
        hr = StartProvider(*provider);
    }
    if (FAILED(hr))
    {
        cOrlDbMgLib.Orl_Uninitialize(0, 0);
        cOrlDbMgLib.Uninitialize();
        return hr;
    }
    m_pIDBManagerProvider = provider;
    return OrlSuccess;
}

// Gives a provider when it succeeds.
HRESULT CKestrixApp::MakeProvider(IDBManagerProvider*& provider)
{
    const HRESULT hr = cOrlDbMgLib.Orl_CreateFunction(&provider, 0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CKestrixApp::InitializeOrlDbMgLibrary() - cOrlUtilLib.Orl_CreateFunction() failed. [0x%08x]",
                 hr);
        return hr;
    }
    if (provider == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitializeOrlDbMgLibrary() - pIFunctionProvider was invalid.");
        return NoProvider;
    }
    return hr;
}

// Frees a provider that does not start.
HRESULT CKestrixApp::StartProvider(IDBManagerProvider& provider)
{
    const HRESULT hr = provider.Initialize(0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CKestrixApp::InitializeOrlDbMgLibrary() - pIFunctionProvider->Initialize() failed. [0x%08x]",
                 hr);
        provider.Uninitialize(0, 0);
        cOrlDbMgLib.Orl_FreeFunction(0, 0, 0);
    }
    return hr;
}

HRESULT CKestrixApp::UnInitializeOrlDbMgLibrary()
{
    VD_TRACE(Flow, L"[Enter] %s()...", L"CKestrixApp::UnInitializeOrlDbMgLibrary");
    const HRESULT hr = StopOrlDbMgLibrary();
    VD_TRACE(Flow, L"[Leave] %s()...", L"CKestrixApp::UnInitializeOrlDbMgLibrary");
    return hr;
}

HRESULT CKestrixApp::StopOrlDbMgLibrary()
{
    if (m_pIDBManagerProvider == nullptr)
    {
        VD_TRACE(Error, L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - m_pIDBManagerProvider is NULL.");
        return OrlSuccess;
    }
    HRESULT hr = m_pIDBManagerProvider->Uninitialize(0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - m_pIDBManagerProvider->Uninitialize() failed. "
                 L"[0x%08x]",
                 hr);
        return hr;
    }
    m_pIDBManagerProvider = nullptr;
    if (!cOrlDbMgLib.IsBound())
    {
        VD_TRACE(Error, L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - cOrlDbMgLib is not initialized.");
        return OrlSuccess;
    }
    hr = cOrlDbMgLib.Orl_FreeFunction(0, 0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - cOrlDbMgLib.Orl_FreeFunction() failed. "
                 L"[0x%08x]",
                 hr);
        return hr;
    }
    hr = cOrlDbMgLib.Orl_Uninitialize(0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - cOrlDbMgLib.Orl_Uninitialize() failed. "
                 L"[0x%08x]",
                 hr);
        return hr;
    }
    if (!cOrlDbMgLib.Uninitialize())
    {
        VD_TRACE(Error, L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - cOrlDbMgLib.Uninitialize() failed.");
    }
    return OrlSuccess;
}
