#include "common/VdCommon/VdComn_Platform.h"

#include <algorithm>
#include <iterator>

namespace VdCommon
{

namespace
{

struct Requirement
{
    std::uint32_t selector;
    std::uint32_t major; // of the NT family, at least
};

constexpr Requirement Requirements[] = {
    {PlatformWindows2000, 5},
    {PlatformVista, 6},
};

const Platform& ThisPlatform() noexcept
{
    static const Platform platform;
    return platform;
}

} // namespace

Platform::Platform(GetVersionFunction getVersion) noexcept
{
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!getVersion(&version))
    {
        m_nError = ::GetLastError();
        return;
    }
    m_nFamily = version.dwPlatformId;
    m_nMajor = version.dwMajorVersion;
}

bool Platform::Is(const std::uint32_t& selector) const noexcept
{
    return m_nFamily == VER_PLATFORM_WIN32_NT &&
           std::any_of(std::begin(Requirements), std::end(Requirements),
                       [&](const Requirement& requirement)
                       { return requirement.selector == selector && m_nMajor >= requirement.major; });
}

bool IsPlatform(const std::uint32_t& selector) noexcept
{
    return ThisPlatform().Is(selector);
}

std::uint32_t PlatformError() noexcept
{
    return ThisPlatform().Error();
}

} // namespace VdCommon
