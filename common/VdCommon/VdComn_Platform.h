#pragma once

#include <windows.h>

#include <cstdint>

namespace VdCommon
{

// Selectors of IsPlatform.
constexpr std::uint32_t PlatformWindows2000 = 14; // NT family, major version 5 or more
constexpr std::uint32_t PlatformVista = 18;       // NT family, major version 6 or more

// Whether this system is the platform that the selector names; false for an unknown selector, and for every selector
// when the system's version cannot be read: PlatformError tells that apart. The version is read once in a process.
bool IsPlatform(const std::uint32_t& selector) noexcept;

// 0 when the version of this system could be read, else the platform's error code.
std::uint32_t PlatformError() noexcept;

// What IsPlatform keeps: the version as it was read at construction.
class Platform
{
public:
    using GetVersionFunction = BOOL(WINAPI*)(OSVERSIONINFOW*);

    explicit Platform(GetVersionFunction getVersion = ::GetVersionExW) noexcept;

    bool Is(const std::uint32_t& selector) const noexcept;

    std::uint32_t Error() const noexcept { return m_nError; }

private:
    std::uint32_t m_nFamily = 0; // no platform's, until the version is read
    std::uint32_t m_nMajor = 0;
    std::uint32_t m_nError = 0;
};

} // namespace VdCommon
