#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Framework
{

// The text as UTF-8; a surrogate without its other half becomes U+FFFD.
std::string Narrow(std::wstring_view text);

// The text of these bytes; what is no UTF-8 becomes U+FFFD.
std::wstring Wide(std::string_view bytes);

// The text of these bytes; nothing when they are no UTF-8.
std::optional<std::wstring> WideIfUtf8(std::string_view bytes);

} // namespace Framework
