#include "common/VdCommon/VdComn_OpenBrowser.h"

#include <cstdint>

namespace VdCommon
{

namespace
{

// ShellExecute's results up to this one are error codes.
constexpr std::intptr_t LastShellError = 32;

bool Open(ShellExecuteFunction execute, const wchar_t* file, const wchar_t* argument) noexcept
{
    const HINSTANCE result = execute(nullptr, L"open", file, argument, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(result) > LastShellError;
}

} // namespace

bool OpenWebPage(const std::wstring& address, ShellExecuteFunction execute) noexcept
{
    return !address.empty() &&
           (Open(execute, L"iexplore.exe", address.c_str()) || Open(execute, address.c_str(), nullptr));
}

} // namespace VdCommon
