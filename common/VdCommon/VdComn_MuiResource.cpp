#include "common/VdCommon/VdComn_MuiResource.h"

#include "common/VdCommon/VdComn_MuiLibrary.h"
#include "common/VdCommon/VdComn_String.h"

namespace VdCommon::Library
{

MuiResource::MuiResource(ModulePathFunction modulePath) noexcept : m_pfnModulePath(modulePath)
{
    SetLanguage(L"en-US");
    SetFolder(L"resource");
}

MuiResource::~MuiResource()
{
    if (m_hModule.get() != nullptr)
    {
        FreeMUILibrary(m_hModule.release());
    }
}

void MuiResource::SetLanguage(const std::wstring& language) noexcept
{
    String::CopyTString(m_szLanguage.data(), m_szLanguage.size(), language.c_str());
}

void MuiResource::SetFolder(const std::wstring& folder) noexcept
{
    String::CopyTString(m_szFolder.data(), m_szFolder.size(), folder.c_str());
}

bool MuiResource::Load()
{
    std::array<wchar_t, MAX_PATH> room{};
    const DWORD length = m_pfnModulePath(nullptr, room.data(), MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
    {
        return false;
    }
    const std::wstring program(room.data(), length);
    const std::size_t nameAt = program.find_last_of(L'\\') + 1;
    if (nameAt == 0)
    {
        return false;
    }
    const std::wstring file = program.substr(nameAt) + L".mui";
    return LoadFrom(program.substr(0, nameAt) + m_szFolder.data() + L'\\' + m_szLanguage.data() + L'\\' + file) ||
           (m_bUseFallback && LoadFrom(program + L".mui"));
}

bool MuiResource::LoadFrom(const std::wstring& path)
{
    ::OutputDebugStringW(path.c_str());
    Free();
    const HMODULE module = LoadMUILibrary(path.c_str(), MUI_LANGUAGE_NAME, 0);
    if (module == nullptr)
    {
        return false;
    }
    m_hModule.reset(module);
    return true;
}

} // namespace VdCommon::Library
