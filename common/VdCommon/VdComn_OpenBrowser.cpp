#include "common/VdCommon/VdComn_OpenBrowser.h"

#include <cstdint>

namespace VdCommon
{

namespace
{

// ShellExecute's results up to this one are error codes.
constexpr std::intptr_t LastShellError = 32;

// Begins in the system's folder: without a folder the program would be looked for in the current one.
bool Open(ShellExecuteFunction execute, const wchar_t* file, const wchar_t* argument) noexcept
{
    wchar_t folder[MAX_PATH] = {};
    if (::GetSystemDirectoryW(folder, MAX_PATH) == 0)
    {
        return false;
    }
    const HINSTANCE result = execute(nullptr, L"open", file, argument, folder, SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(result) > LastShellError;
}

} // namespace

bool OpenWebPage(const std::wstring& address, ShellExecuteFunction execute) noexcept
{
    return !address.empty() &&
           (Open(execute, L"iexplore.exe", address.c_str()) || Open(execute, address.c_str(), nullptr));
}

} // namespace VdCommon
