#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Loading of language resource files. Windows has these two functions in a library of its development kit alone.
namespace VdCommon::Library
{

// The head of the resource of type "MUI" and identifier 1, the resource configuration data of a file whose texts lie in
// files by language. Little-endian; offsets of further tables follow.
struct MuiConfiguration
{
    static constexpr std::uint32_t Signature = 0xFECDFECD;

    std::uint32_t signature;
    std::uint32_t size; // of the whole resource, in bytes
    std::uint32_t version;
    std::uint32_t pathType;
    std::uint32_t fileType;
    std::uint32_t systemAttributes;
    std::uint32_t ultimateFallbackLocation;
    std::array<std::uint8_t, 16> serviceChecksum;
    std::array<std::uint8_t, 16> checksum; // the same in a language neutral file and in the files that belong to it
};

static_assert(sizeof(MuiConfiguration) == 60);
static_assert(offsetof(MuiConfiguration, serviceChecksum) == 28);
static_assert(offsetof(MuiConfiguration, checksum) == 44);

// The languages of the user interface in which resources are looked for.
struct UiLanguages
{
    LANGID user;
    LANGID system;
};

// The default languages of this user and this system.
UiLanguages DefaultUiLanguages() noexcept;

// Opens the resources of a file. A file without a "MUI" resource is taken as it stands. For a file with one, the first
// candidate of MuiCandidates whose checksum agrees is opened in its place.
// convention: how the folder of a language is named, MUI_LANGUAGE_NAME ("en-US") or MUI_LANGUAGE_ID ("0409").
// language: 0 for the default languages, else the one language that is looked for besides none.
// Returns a module for resource functions alone, which the caller gives back to FreeMUILibrary; or null, with a last
// error: 87 a wrong argument, 15100 (ERROR_MUI_FILE_NOT_FOUND) no candidate fits, else that of the opening.
HMODULE LoadMUILibrary(const wchar_t* fileName, DWORD convention, LANGID language,
                       const UiLanguages& defaults = DefaultUiLanguages());

// Releases what LoadMUILibrary returned. Returns whether the platform did so; else its last error stands.
bool FreeMUILibrary(HMODULE module) noexcept;

// The places of the resources of a language neutral file, the first to be tried first: for each language a folder of
// its name beside the file, the file's folder, such a folder in the current folder, the current folder. language 0
// stands for the user's default, the system's default, en-US and no language, in this order.
std::vector<std::wstring> MuiCandidates(const std::wstring& fileName, DWORD convention, LANGID language,
                                        const UiLanguages& defaults);

} // namespace VdCommon::Library
