#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>

namespace VdCommon
{

using ShellExecuteFunction = decltype(&::ShellExecuteW);

// Shows a web page: in Internet Explorer, or where that cannot be started in whatever the system opens the address
// with. Both start in the system's folder. Returns whether one of the two started; false for an empty address, with
// nothing tried.
bool OpenWebPage(const std::wstring& address, ShellExecuteFunction execute = ::ShellExecuteW) noexcept;

// The browser as an object of its user; what it does is OpenWebPage.
class VdOpenBrowser
{
public:
    virtual ~VdOpenBrowser() = default;
};

} // namespace VdCommon
