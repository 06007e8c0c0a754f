#include "common/VdCommon/VdComn_Wow64FsRedir.h"

#include <string>

namespace
{

// A library that is being initialised by another thread refuses to load: worth a short wait, but no long one.
constexpr int LoadRetries = 10;
constexpr DWORD LoadRetryMilliseconds = 10;

void LoadPatiently(VdCommon::DynLib& library, const wchar_t* fileName, VdCommon::DynLib::LoadFunction load) noexcept
{
    std::uint32_t error = 0;
    for (int retries = 0; !library.Load(fileName, &error, load); ++retries)
    {
        if (error != ERROR_DLL_INIT_FAILED || retries == LoadRetries)
        {
            return;
        }
        ::Sleep(LoadRetryMilliseconds);
    }
}

} // namespace

CWow64FsRedir::CWow64FsRedir(VdCommon::DynLib::LoadFunction load) noexcept
{
    LoadPatiently(m_kernel32, L"kernel32.dll", load);
    m_kernel32.Bind(true);
    BOOL answer = FALSE;
    if (m_kernel32.m_pfnIsWow64Process != nullptr && m_kernel32.m_pfnIsWow64Process(::GetCurrentProcess(), &answer))
    {
        m_bIsWow64 = answer != FALSE;
    }
}

CWow64FsRedir::~CWow64FsRedir()
{
    if (m_bDisabled && m_kernel32.m_pfnWow64RevertWow64FsRedirection != nullptr &&
        m_kernel32.m_pfnWow64RevertWow64FsRedirection(m_pSaved))
    {
        m_bDisabled = false;
    }
    m_kernel32.Unload();
}

bool CWow64FsRedir::LoadSystemLibrary(const wchar_t* fileName)
{
    wchar_t folder[MAX_PATH] = {};
    if (!m_bIsWow64 || m_kernel32.m_pfnGetSystemWow64DirectoryW == nullptr)
    {
        return false;
    }
    const UINT length = m_kernel32.m_pfnGetSystemWow64DirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
    {
        return false;
    }
    std::wstring path(folder, length);
    if (path.back() != L'\\')
    {
        path += L'\\';
    }
    return m_library.Load(path.append(fileName).c_str(), nullptr, ::LoadLibraryW);
}

bool CWow64FsRedir::Disable() noexcept
{
    if (m_bIsWow64 && !m_bDisabled && m_kernel32.m_pfnWow64DisableWow64FsRedirection != nullptr)
    {
        m_bDisabled = m_kernel32.m_pfnWow64DisableWow64FsRedirection(&m_pSaved) != FALSE;
    }
    return m_bDisabled;
}
