#pragma once

#include "common/VdCommon/VdComn_Library.h"

#include <windows.h>

#include <array>
#include <string>

namespace VdCommon::Library
{

// The language resource file of the program: every text, template and picture. First looked for as
// FOLDER\LANGUAGE\PROGRAM.mui beside the program, then as PROGRAM.mui next to it.
class MuiResource : public Base
{
public:
    using ModulePathFunction = DWORD(WINAPI*)(HMODULE, wchar_t*, DWORD);

    // modulePath: returns the program's own full path, in the manner of GetModuleFileName.
    explicit MuiResource(ModulePathFunction modulePath = ::GetModuleFileNameW) noexcept;
    // Releases the file.
    ~MuiResource() override;

    // The sub-folder of the language, "en-US" unless set; cut to 84 characters.
    void SetLanguage(const std::wstring& language) noexcept;

    const wchar_t* Language() const noexcept { return m_szLanguage.data(); }

    // The folder of the languages, "resource" unless set; cut to 260 characters.
    void SetFolder(const std::wstring& folder) noexcept;

    // Whether the second place is tried; it is unless set.
    void SetUseFallback(bool useFallback) noexcept { m_bUseFallback = useFallback; }

    // Finds and opens the file in place of one that is held; Module() is then the handle for all resources.
    // Returns false when neither place has it, or the program's path has 260 characters or more.
    bool Load();

private:
    bool LoadFrom(const std::wstring& path);

    ModulePathFunction m_pfnModulePath;
    std::array<wchar_t, 85> m_szLanguage;
    bool m_bUseFallback = true;
    std::array<wchar_t, 261> m_szFolder;
};

} // namespace VdCommon::Library
