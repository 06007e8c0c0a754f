#include "suite/VdDbg/Utf8.h"

#include <windows.h>

#include <limits>
#include <stdexcept>

namespace VdDbg
{

namespace
{

// A UTF-16 unit takes three bytes at most; a pair of them takes four.
constexpr std::size_t BytesPerUnit = 3;
constexpr std::size_t LongestText = std::numeric_limits<int>::max() / BytesPerUnit;

} // namespace

std::string Utf8(std::wstring_view text)
{
    if (text.size() > LongestText)
    {
        throw std::length_error("the line is too long for UTF-8");
    }
    std::string bytes(text.size() * BytesPerUnit, '\0');
    const int written = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                            static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(written));
    return bytes;
}

} // namespace VdDbg
