#pragma once

#include <string>
#include <string_view>

namespace VdDbg
{

// The text as UTF-8; a surrogate without its other half becomes U+FFFD.
// Throws std::length_error for more characters than an int counts.
std::string Utf8(std::wstring_view text);

} // namespace VdDbg
