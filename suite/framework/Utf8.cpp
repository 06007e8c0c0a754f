#include "suite/framework/Utf8.h"

#include <windows.h>

#include <utility>

namespace Framework
{

namespace
{

std::wstring Decode(std::string_view bytes, DWORD flags)
{
    std::wstring wide(bytes.size(), L'\0'); // as long as it can get
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, flags, bytes.data(), static_cast<int>(bytes.size()), wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

} // namespace

std::string Narrow(std::wstring_view text)
{
    std::string narrow(3 * text.size(), '\0'); // as long as it can get
    narrow.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                               narrow.data(), static_cast<int>(narrow.size()), nullptr,
                                                               nullptr)));
    return narrow;
}

std::wstring Wide(std::string_view bytes)
{
    return Decode(bytes, 0);
}

std::optional<std::wstring> WideIfUtf8(std::string_view bytes)
{
    std::wstring wide = Decode(bytes, MB_ERR_INVALID_CHARS);
    return wide.empty() && !bytes.empty() ? std::nullopt : std::optional(std::move(wide));
}

} // namespace Framework
