#pragma once

#include <cstddef>
#include <string>

// The texts that both kinds of storage make.
namespace VdCommon::Storage
{

// The text, empty for null.
std::wstring TextOf(const wchar_t* text);

// Both parts with one backslash between them, which also stands after the first alone. A null part is skipped.
std::wstring JoinPath(const wchar_t* first, const wchar_t* second);

// A zeroed text of that many characters. Throws Storage::Exception* (6) when memory is missing.
std::wstring AllocateText(std::size_t characters);

} // namespace VdCommon::Storage
