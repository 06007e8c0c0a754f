#include "common/VdCommon/VdComn_DynLib.h"

#include "common/VdCommon/VdComn_ErrorCode.h"
#include "common/VdCommon/VdComn_Procedure.h"
#include "platform/dialog/UniqueHandle.h"

#include <utility>

namespace VdCommon
{

DynLib::~DynLib()
{
    DynLib::Unload();
}

bool DynLib::IsBound() const noexcept
{
    return m_bBound;
}

bool DynLib::Bind(bool load) noexcept
{
    m_bBound = load && m_hModule != nullptr;
    return m_bBound == load;
}

bool DynLib::Load(const wchar_t* fileName, std::uint32_t* error, LoadFunction load) noexcept
{
    if (m_hModule != nullptr)
    {
        return StoreError(error, ERROR_OBJECT_ALREADY_EXISTS);
    }
    m_hModule = load(fileName);
    m_nOwned = m_hModule != nullptr ? 1 : 0;
    return StoreError(error, m_hModule == nullptr ? ::GetLastError() : ERROR_SUCCESS);
}

void DynLib::Unload() noexcept
{
    Bind(false);
    const HMODULE module = std::exchange(m_hModule, nullptr);
    const UniqueModule freed(std::exchange(m_nOwned, 0) != 0 ? module : nullptr);
}

Kernel32::~Kernel32() = default;

bool Kernel32::Bind(bool load) noexcept
{
    const bool done =
        BindExports(m_hModule, load, nullptr, Export{L"RegisterServiceProcess", &m_pfnRegisterServiceProcess},
                    Export{L"IsWow64Process", &m_pfnIsWow64Process},
                    Export{L"Wow64DisableWow64FsRedirection", &m_pfnWow64DisableWow64FsRedirection},
                    Export{L"Wow64RevertWow64FsRedirection", &m_pfnWow64RevertWow64FsRedirection},
                    Export{L"GetSystemWow64DirectoryA", &m_pfnGetSystemWow64DirectoryA},
                    Export{L"GetSystemWow64DirectoryW", &m_pfnGetSystemWow64DirectoryW});
    m_bBound = load && done;
    return done;
}

} // namespace VdCommon
