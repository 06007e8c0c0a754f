#include "suite/VdDbg/LogName.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace VdDbg
{

namespace
{

constexpr std::wstring_view Separators = L"\\/";
constexpr std::wstring_view FolderInTemp = L"Zeptara";
constexpr std::wstring_view DefaultExtension = L"log";

// The longest path of Windows, in characters with the terminator.
constexpr std::size_t LongestPath = 32768;

// The text of a setting; one that fills its field to the end needs no terminator to be read.
template <std::size_t Size>
std::wstring Text(const wchar_t (&field)[Size])
{
    return {field, std::find(field, std::end(field), L'\0')};
}

std::wstring TemporaryFolder()
{
    std::array<wchar_t, MAX_PATH + 1> path{};
    const DWORD length = GetTempPathW(static_cast<DWORD>(path.size()), path.data());
    return std::wstring(path.data(), length) + std::wstring(FolderInTemp);
}

// The program's file name without folder and extension.
std::wstring ProgramName()
{
    std::wstring path(LongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    const std::wstring file = path.substr(path.find_last_of(Separators) + 1);
    return file.substr(0, file.find_last_of(L'.'));
}

// A relative path belongs to the folder in which the process works now, wherever it goes later.
std::wstring Absolute(const std::wstring& path)
{
    std::wstring full(LongestPath, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    full.resize(length < full.size() ? length : 0);
    return full.empty() ? path : full;
}

std::wstring Folder(const DebugLogConfig& config)
{
    std::wstring folder = Text(config.logFolder);
    folder = folder.empty() ? TemporaryFolder() : Absolute(folder);
    if (Separators.find(folder.back()) == std::wstring_view::npos)
    {
        folder += L'\\';
    }
    return folder;
}

std::wstring File(const DebugLogConfig& config)
{
    for (const std::wstring& name : {Text(config.logFile), Text(config.moduleName)})
    {
        if (!name.empty())
        {
            return name;
        }
    }
    return ProgramName();
}

std::wstring Extension(const DebugLogConfig& config)
{
    const std::wstring extension = Text(config.logExtension);
    return L"." + (extension.empty() ? std::wstring(DefaultExtension) : extension);
}

} // namespace

LogName::LogName(const DebugLogConfig& config)
    : m_strStem(VdDbg::Folder(config) + Text(config.logPrefix) + File(config)), m_strExtension(Extension(config))
{
}

std::wstring LogName::Folder() const
{
    return m_strStem.substr(0, m_strStem.find_last_of(Separators));
}

std::wstring LogName::Discarded() const
{
    return m_strStem + L".old." + std::to_wstring(GetCurrentProcessId()) + L"." +
           std::to_wstring(GetCurrentThreadId()) + L"." + std::to_wstring(GetTickCount64()) + m_strExtension;
}

} // namespace VdDbg
