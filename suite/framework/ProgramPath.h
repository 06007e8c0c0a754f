#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace Framework
{

// Where the program of this process lies.
inline std::filesystem::path ProgramPath()
{
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) == path.size())
    {
        path.resize(path.size() * 2);
    }
    path.resize(length);
    return path;
}

} // namespace Framework
