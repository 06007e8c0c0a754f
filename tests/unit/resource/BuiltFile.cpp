#include "tests/unit/resource/BuiltFile.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace
{

// The folder of the languages: below bin/ in a folder that holds this program, however deep the program lies.
std::filesystem::path LanguageFolder()
{
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    for (std::filesystem::path folder = program; folder.has_relative_path(); folder = folder.parent_path())
    {
        const auto languages = folder.parent_path() / "bin/resource";
        if (std::filesystem::exists(languages))
        {
            return languages;
        }
    }
    throw std::runtime_error("The language files are not built. Build the target Kestrix_mui.");
}

} // namespace

std::vector<std::wstring> BuiltLanguages()
{
    std::vector<std::wstring> languages;
    for (const auto& entry : std::filesystem::directory_iterator(LanguageFolder()))
    {
        languages.push_back(entry.path().filename().wstring());
    }
    std::ranges::sort(languages);
    languages.emplace_back(PseudoLanguage);
    return languages;
}

std::filesystem::path BuiltLanguageFilePath(const std::wstring& language)
{
    const auto folder = LanguageFolder();
    const auto all = language == PseudoLanguage ? folder.parent_path().parent_path() / "pseudo/resource" : folder;
    const auto file = all / language / "Kestrix.exe.mui";
    if (!std::filesystem::exists(file))
    {
        throw std::runtime_error(file.string() + " is not built. Build the targets Kestrix_mui and Kestrix_pseudo.");
    }
    return file;
}

HMODULE BuiltLanguageFile(const std::wstring& language)
{
    static std::map<std::wstring, HMODULE> modules;
    HMODULE& module = modules[language];
    if (module == nullptr)
    {
        module = LoadLibraryExW(BuiltLanguageFilePath(language).c_str(), nullptr,
                                LOAD_LIBRARY_AS_IMAGE_RESOURCE | LOAD_LIBRARY_AS_DATAFILE);
    }
    if (module == nullptr)
    {
        throw std::runtime_error("The language file cannot be loaded, error " + std::to_string(GetLastError()));
    }
    return module;
}

std::wstring LanguageText(unsigned number, const std::wstring& language)
{
    wchar_t text[4097]{};
    const int length = LoadStringW(BuiltLanguageFile(language), number, text, static_cast<int>(std::size(text)));
    return {text, static_cast<std::size_t>(length)};
}

std::span<const std::uint8_t> ResourceBytes(HMODULE module, unsigned number, const wchar_t* type)
{
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(number), type);
    const HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(module, found);
    if (loaded == nullptr)
    {
        throw std::runtime_error("There is no resource " + std::to_string(number));
    }
    return {static_cast<const std::uint8_t*>(LockResource(loaded)), SizeofResource(module, found)};
}
