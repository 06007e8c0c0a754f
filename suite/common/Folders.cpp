#include "suite/common/Folders.h"

#include <windows.h>

#include <string>

namespace Suite
{

namespace
{

constexpr wchar_t Key[] = L"Software\\Veldrane\\Zeptara";

LSTATUS Read(const wchar_t* value, wchar_t* text, DWORD& bytes)
{
    return RegGetValueW(HKEY_LOCAL_MACHINE, Key, value, RRF_RT_REG_SZ, nullptr, text, &bytes);
}

std::optional<std::filesystem::path> FolderOf(const wchar_t* value)
{
    DWORD bytes = 0;
    if (Read(value, nullptr, bytes) != ERROR_SUCCESS)
    {
        return std::nullopt;
    }
    std::wstring text;
    LSTATUS status;
    do
    {
        text.resize(bytes / sizeof(wchar_t));
        status = Read(value, text.data(), bytes);
    } while (status == ERROR_MORE_DATA);             // it grew in between
    text.resize(wcsnlen(text.c_str(), text.size())); // the terminator was counted
    if (status != ERROR_SUCCESS || text.empty())
    {
        return std::nullopt;
    }
    return text;
}

} // namespace

std::optional<std::filesystem::path> InstalledFolder()
{
    return FolderOf(L"InstalledFolder");
}

std::optional<std::filesystem::path> DataFolder()
{
    const std::optional<std::filesystem::path> folder = FolderOf(L"DataFolder");
    return folder ? folder : InstalledFolder();
}

} // namespace Suite
