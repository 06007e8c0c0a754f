#include "framework/ui/kestrix/app/DatabaseLibrary.h"

#include "common/Frwk_Utility.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_FolderName.h"

namespace
{

constexpr auto LibraryNotLoaded = static_cast<HRESULT>(0x80040240);
constexpr auto NoProvider = static_cast<HRESULT>(0x80040205);

} // namespace

HRESULT CDatabaseLibrary::Start(IDBManagerProvider*& provider)
{
    VD_TRACE(Flow, L"[Enter] %s()...", L"CKestrixApp::InitializeOrlDbMgLibrary");
    const HRESULT hr = Load(provider);
    VD_TRACE(Flow, L"[Leave] %s()...", L"CKestrixApp::InitializeOrlDbMgLibrary");
    return hr;
}

HRESULT CDatabaseLibrary::Load(IDBManagerProvider*& provider)
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
    const HRESULT hr = InitializeLibrary(provider);
    if (FAILED(hr))
    {
        cOrlDbMgLib.Uninitialize();
        return hr;
    }
    return OrlSuccess;
}

HRESULT CDatabaseLibrary::InitializeLibrary(IDBManagerProvider*& provider)
{
    HRESULT hr = cOrlDbMgLib.Orl_Initialize(0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitializeOrlDbMgLibrary() - cOrlDbMgLib.Orl_Initialize() failed. [0x%08x]",
                 hr);
        return hr;
    }
    hr = MakeProvider(provider);
    if (FAILED(hr))
    {
        cOrlDbMgLib.Orl_Uninitialize(0, 0);
    }
    return hr;
}

HRESULT CDatabaseLibrary::MakeProvider(IDBManagerProvider*& provider)
{
    IDBManagerProvider* made = nullptr;
    HRESULT hr = cOrlDbMgLib.Orl_CreateFunction(&made, 0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CKestrixApp::InitializeOrlDbMgLibrary() - cOrlUtilLib.Orl_CreateFunction() failed. [0x%08x]",
                 hr);
        return hr;
    }
    if (made == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitializeOrlDbMgLibrary() - pIFunctionProvider was invalid.");
        return NoProvider;
    }
    hr = StartProvider(*made);
    if (FAILED(hr))
    {
        cOrlDbMgLib.Orl_FreeFunction(0, 0, 0);
        return hr;
    }
    provider = made;
    return hr;
}

HRESULT CDatabaseLibrary::StartProvider(IDBManagerProvider& provider)
{
    const HRESULT hr = provider.Initialize(0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CKestrixApp::InitializeOrlDbMgLibrary() - pIFunctionProvider->Initialize() failed. [0x%08x]",
                 hr);
        provider.Uninitialize(0, 0);
    }
    return hr;
}

HRESULT CDatabaseLibrary::Stop(IDBManagerProvider*& provider)
{
    VD_TRACE(Flow, L"[Enter] %s()...", L"CKestrixApp::UnInitializeOrlDbMgLibrary");
    const HRESULT hr = EndProvider(provider);
    VD_TRACE(Flow, L"[Leave] %s()...", L"CKestrixApp::UnInitializeOrlDbMgLibrary");
    return hr;
}

HRESULT CDatabaseLibrary::EndProvider(IDBManagerProvider*& provider)
{
    if (provider == nullptr)
    {
        VD_TRACE(Error, L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - m_pIDBManagerProvider is NULL.");
        return OrlSuccess;
    }
    const HRESULT hr = provider->Uninitialize(0, 0);
    if (FAILED(hr))
    {
        VD_TRACE(Error,
                 L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - m_pIDBManagerProvider->Uninitialize() failed. "
                 L"[0x%08x]",
                 hr);
        return hr;
    }
    provider = nullptr;
    if (!cOrlDbMgLib.IsBound())
    {
        VD_TRACE(Error, L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - cOrlDbMgLib is not initialized.");
        return OrlSuccess;
    }
    return Unload();
}

HRESULT CDatabaseLibrary::Unload()
{
    HRESULT hr = cOrlDbMgLib.Orl_FreeFunction(0, 0, 0);
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
