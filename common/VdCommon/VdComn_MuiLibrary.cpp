#include "common/VdCommon/VdComn_MuiLibrary.h"

#include "common/VdCommon/VdComn_Platform.h"
#include "common/VdCommon/VdComn_String.h"
#include "platform/dialog/UniqueHandle.h"

#include <cstring>

namespace VdCommon::Library
{

namespace
{

constexpr LANGID EnglishUnitedStates = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
constexpr LANGID NoLanguage = 0;
constexpr WORD ConfigurationId = 1;

HMODULE OpenResources(const wchar_t* fileName) noexcept
{
    const DWORD flags = IsPlatform(PlatformVista) ? LOAD_LIBRARY_AS_IMAGE_RESOURCE : LOAD_LIBRARY_AS_DATAFILE;
    return ::LoadLibraryExW(fileName, nullptr, flags);
}

HRSRC FindConfiguration(HMODULE module) noexcept
{
    return ::FindResourceW(module, MAKEINTRESOURCEW(ConfigurationId), L"MUI");
}

// Returns false for a file without resource configuration data, or with data that is none.
bool ReadConfiguration(HMODULE module, MuiConfiguration& configuration) noexcept
{
    const HRSRC resource = FindConfiguration(module);
    if (resource == nullptr || ::SizeofResource(module, resource) < sizeof configuration)
    {
        return false;
    }
    const void* const data = ::LockResource(::LoadResource(module, resource));
    if (data == nullptr)
    {
        return false;
    }
    std::memcpy(&configuration, data, sizeof configuration);
    return configuration.signature == MuiConfiguration::Signature;
}

// The name of a language's folder; empty for no language and for one that this system does not know.
std::wstring LanguageFolder(LANGID language, DWORD convention)
{
    std::wstring name;
    if (language == NoLanguage)
    {
        return name;
    }
    if (convention == MUI_LANGUAGE_ID)
    {
        String::Format(name, L"%04X", static_cast<unsigned>(language));
        return name;
    }
    wchar_t text[LOCALE_NAME_MAX_LENGTH] = {};
    ::LCIDToLocaleName(MAKELCID(language, SORT_DEFAULT), text, LOCALE_NAME_MAX_LENGTH, 0);
    return name.assign(text);
}

void AddPlaces(std::vector<std::wstring>& places, const std::wstring& folder, const std::wstring& language,
               const std::wstring& file)
{
    if (!language.empty())
    {
        places.push_back(folder + language + L'\\' + file);
    }
    places.push_back(folder + file);
}

UniqueModule OpenCandidate(const std::wstring& place, const MuiConfiguration& wanted) noexcept
{
    UniqueModule module(OpenResources(place.c_str()));
    MuiConfiguration found{};
    if (module.get() != nullptr && (!ReadConfiguration(module.get(), found) || found.checksum != wanted.checksum))
    {
        module.reset();
    }
    return module;
}

} // namespace

UiLanguages DefaultUiLanguages() noexcept
{
    return {::GetUserDefaultUILanguage(), ::GetSystemDefaultUILanguage()};
}

std::vector<std::wstring> MuiCandidates(const std::wstring& fileName, DWORD convention, LANGID language,
                                        const UiLanguages& defaults)
{
    const std::wstring current = L".\\";
    const std::size_t nameAt = fileName.find_last_of(L'\\') + 1; // 0 where there is no folder
    const std::wstring folder = nameAt == 0 ? current : fileName.substr(0, nameAt);
    const std::wstring file = fileName.substr(nameAt) + L".mui";

    std::vector<LANGID> languages{defaults.user, defaults.system, EnglishUnitedStates, NoLanguage};
    if (language != 0)
    {
        languages = {language, NoLanguage};
    }
    std::vector<std::wstring> places;
    for (const LANGID one : languages)
    {
        const std::wstring languageFolder = LanguageFolder(one, convention);
        AddPlaces(places, folder, languageFolder, file);
        AddPlaces(places, current, languageFolder, file);
    }
    return places;
}

HMODULE LoadMUILibrary(const wchar_t* fileName, DWORD convention, LANGID language, const UiLanguages& defaults)
{
    if (fileName == nullptr || (convention != MUI_LANGUAGE_NAME && convention != MUI_LANGUAGE_ID))
    {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    UniqueModule file(OpenResources(fileName));
    if (file.get() == nullptr || FindConfiguration(file.get()) == nullptr)
    {
        return file.release();
    }
    MuiConfiguration wanted{};
    if (ReadConfiguration(file.get(), wanted))
    {
        for (const std::wstring& place : MuiCandidates(fileName, convention, language, defaults))
        {
            if (UniqueModule candidate = OpenCandidate(place, wanted); candidate.get() != nullptr)
            {
                return candidate.release();
            }
        }
    }
    file.reset();
    ::SetLastError(ERROR_MUI_FILE_NOT_FOUND);
    return nullptr;
}

bool FreeMUILibrary(HMODULE module) noexcept
{
    return ::FreeLibrary(module) != FALSE;
}

} // namespace VdCommon::Library
