#include "common/VdCommon/VdComn_CreationNames.h"

#include <string_view>

namespace VdCommon
{

namespace
{

bool Prefixed(std::wstring& out, std::wstring_view prefix, const std::wstring& name, const Platform& platform)
{
    if (name.empty() || platform.Error() != 0)
    {
        out.clear();
        return false;
    }
    const bool asItIs = !platform.Is(PlatformWindows2000) || name.find(prefix) != std::wstring::npos;
    out = asItIs ? name : std::wstring(prefix).append(name);
    return true;
}

} // namespace

CreationNames::CreationNames(const std::wstring& name, const Platform& platform)
{
    Global(m_strGlobal, name, platform);
    Local(m_strLocal, name, platform);
}

bool CreationNames::Global(std::wstring& out, const std::wstring& name, const Platform& platform)
{
    return Prefixed(out, L"Global\\", name, platform);
}

bool CreationNames::Local(std::wstring& out, const std::wstring& name, const Platform& platform)
{
    return Prefixed(out, L"Local\\", name, platform);
}

bool GetCreationName(std::wstring& out, const std::wstring& name, const Platform& platform)
{
    out = CreationNames(name, platform).GetLocalName();
    return !out.empty();
}

} // namespace VdCommon
