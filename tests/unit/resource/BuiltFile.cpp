#include "tests/unit/resource/BuiltFile.h"

#include <filesystem>
#include <stdexcept>

namespace
{

// The build's language file: below bin/ in a folder that holds this program, however deep the program lies.
std::filesystem::path BuiltLanguageFilePath()
{
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    for (std::filesystem::path folder = program; folder.has_relative_path(); folder = folder.parent_path())
    {
        const auto file = folder.parent_path() / "bin/resource/en-US/Kestrix.exe.mui";
        if (std::filesystem::exists(file))
        {
            return file;
        }
    }
    throw std::runtime_error("The language file is not built. Build the target Kestrix_mui.");
}

} // namespace

HMODULE BuiltLanguageFile()
{
    static const HMODULE module = LoadLibraryExW(BuiltLanguageFilePath().c_str(), nullptr,
                                                 LOAD_LIBRARY_AS_IMAGE_RESOURCE | LOAD_LIBRARY_AS_DATAFILE);
    if (module == nullptr)
    {
        throw std::runtime_error("The language file cannot be loaded, error " + std::to_string(GetLastError()));
    }
    return module;
}

std::wstring LanguageText(unsigned number)
{
    wchar_t text[4097]{};
    const int length = LoadStringW(BuiltLanguageFile(), number, text, static_cast<int>(std::size(text)));
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
