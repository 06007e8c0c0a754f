#pragma once

#include "platform/dialog/SystemLibrary.h"

#include <windows.h>

#include <cstdint>

namespace VdCommon
{

// A library that is looked up at run time and may lack some of its functions.
class DynLib
{
public:
    using LoadFunction = HMODULE(WINAPI*)(const wchar_t*);

    DynLib() = default;
    DynLib(const DynLib&) = delete;
    DynLib& operator=(const DynLib&) = delete;
    virtual ~DynLib();

    // Whether every function of the derived class was found.
    virtual bool IsBound() const noexcept;
    // With `load` true looks the functions up, with false zeroes their pointers. Returns whether all were found.
    virtual bool Bind(bool load) noexcept;

    // Loads the file, unless `load` says otherwise a library of the system, and owns it. Codes in `error` (may be
    // null): 5010 a module is held already, else the platform's.
    bool Load(const wchar_t* fileName, std::uint32_t* error = nullptr,
              LoadFunction load = ::LoadSystemLibrary) noexcept;
    // Forgets the functions and the module, which is freed if it is owned.
    void Unload() noexcept;

    HMODULE Module() const noexcept { return m_hModule; }

protected:
    HMODULE m_hModule = nullptr;
    std::uint32_t m_nOwned = 0; // 1 when the module is this object's to free
    bool m_bBound = false;
};

// The functions of kernel32.dll that not every Windows has; a missing one is null.
class Kernel32 : public DynLib
{
public:
    ~Kernel32() override;
    bool Bind(bool load) noexcept override;

    DWORD(WINAPI* m_pfnRegisterServiceProcess)(DWORD, DWORD) = nullptr;
    decltype(&::IsWow64Process) m_pfnIsWow64Process = nullptr;
    decltype(&::Wow64DisableWow64FsRedirection) m_pfnWow64DisableWow64FsRedirection = nullptr;
    decltype(&::Wow64RevertWow64FsRedirection) m_pfnWow64RevertWow64FsRedirection = nullptr;
    decltype(&::GetSystemWow64DirectoryA) m_pfnGetSystemWow64DirectoryA = nullptr;
    decltype(&::GetSystemWow64DirectoryW) m_pfnGetSystemWow64DirectoryW = nullptr;
};

} // namespace VdCommon
