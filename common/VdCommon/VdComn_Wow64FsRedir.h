#pragma once

#include "common/VdCommon/VdComn_DynLib.h"

// Access to the real system folders for a 32-bit process on 64-bit Windows. In any other process nothing is redirected
// and every operation answers false. Belongs to the thread that made it, whose redirection it restores at its end.
class CWow64FsRedir
{
public:
    // load: loads kernel32.dll; asked again while the library is not ready for it.
    explicit CWow64FsRedir(VdCommon::DynLib::LoadFunction load = ::LoadSystemLibrary) noexcept;
    CWow64FsRedir(const CWow64FsRedir&) = delete;
    CWow64FsRedir& operator=(const CWow64FsRedir&) = delete;
    virtual ~CWow64FsRedir();

    // Whether this process runs under the 32-bit subsystem of a 64-bit system.
    bool IsWow64() const noexcept { return m_bIsWow64; }

    // Loads a library from the system's 32-bit folder and holds it; to be done before redirection is off.
    bool LoadSystemLibrary(const wchar_t* fileName);

    // Switches redirection off for this thread, until this object ends. Returns whether it is off.
    bool Disable() noexcept;

protected:
    VdCommon::Kernel32 m_kernel32;
    bool m_bIsWow64 = false;
    bool m_bDisabled = false;
    void* m_pSaved = nullptr; // what the platform wants back to restore redirection
    VdCommon::DynLib m_library;
};
