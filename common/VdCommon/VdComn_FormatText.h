#pragma once

#include <cstdint>
#include <ctime>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

// Texts of the language file that have places for values. A translator may have written other conversions there than
// the values are for; a call with such a text must not read what is no argument, or write anywhere.
namespace VdCommon::String
{

// A value for a place in a text.
using TextArgument = std::variant<std::wstring, std::int32_t, std::uint32_t>;

// The text with the arguments in the places of its conversions, in their order, as wprintf writes them: %s for a text,
// %d, %i, %u, %x, %X and %o for a number, with flags, and width and precision of at most two digits.
//
// A place with any other conversion takes its argument without a form, %s, %d or %u; one without an argument left
// becomes nothing. Arguments that have no place are left out. A percent sign that converts nothing stays.
// Throws Exception* when memory is missing.
std::wstring FormatText(std::wstring_view text, std::initializer_list<TextArgument> arguments);

// The date in the form of the pattern, as wcsftime writes it; in that of ISO 8601 (2026-11-20) with a pattern that the
// C library does not know, or whose outcome is longer than 127 characters.
std::wstring FormatDate(const std::wstring& pattern, const std::tm& date);

} // namespace VdCommon::String
