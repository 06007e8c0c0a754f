#include "common/VdCommon/VdComn_VdDbg.h"

#include "common/VdCommon/VdComn_FolderName.h"

#include <utility>

namespace VdCommon::Library
{

namespace
{

constexpr wchar_t FileName[] = L"VdDbg64.dll";

} // namespace

bool VdDbg::Load(const std::wstring& folder)
{
    return InitializeLibrary(WithSeparator(folder) + FileName, nullptr);
}

bool VdDbg::Bind(bool load, std::uint32_t* error)
{
    return BindLibrary(load, error, Export{L"VdDbgInitialize", &m_pfnInitialize},
                       Export{L"VdDbgUninitialize", &m_pfnUninitialize}, Export{L"VdDbgTrace", &m_pfnTrace});
}

bool VdDbg::OpenLog(const DebugLogConfig& config)
{
    void* handle = nullptr;
    if (m_pfnInitialize(&handle, &config) != 0 || handle == nullptr)
    {
        UnInitializeLibrary(nullptr);
        return false;
    }
    m_pTrace = handle;
    return true;
}

void VdDbg::CloseLog()
{
    if (IsBound())
    {
        m_pfnUninitialize(std::exchange(m_pTrace, nullptr));
        UnInitializeLibrary(nullptr);
    }
}

bool VdDbg::WriteLine(const SYSTEMTIME& time, const wchar_t* line)
{
    return m_pfnTrace != nullptr && m_pfnTrace(m_pTrace, &time, line) == 0;
}

} // namespace VdCommon::Library
