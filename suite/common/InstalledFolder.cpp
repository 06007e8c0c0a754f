#include "suite/common/InstalledFolder.h"

#include <windows.h>

#include <string>

namespace Suite
{

namespace
{

constexpr wchar_t Key[] = L"Software\\Veldrane\\Zeptara";
constexpr wchar_t Value[] = L"InstalledFolder";

LSTATUS Read(wchar_t* text, DWORD& bytes)
{
    return RegGetValueW(HKEY_LOCAL_MACHINE, Key, Value, RRF_RT_REG_SZ, nullptr, text, &bytes);
}

} // namespace

std::optional<std::filesystem::path> InstalledFolder()
{
    DWORD bytes = 0;
    if (Read(nullptr, bytes) != ERROR_SUCCESS)
    {
        return std::nullopt;
    }
    std::wstring text;
    LSTATUS status;
    do
    {
        text.resize(bytes / sizeof(wchar_t));
        status = Read(text.data(), bytes);
    } while (status == ERROR_MORE_DATA);             // it grew in between
    text.resize(wcsnlen(text.c_str(), text.size())); // the terminator was counted
    if (status != ERROR_SUCCESS || text.empty())
    {
        return std::nullopt;
    }
    return text;
}

} // namespace Suite
