#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Framework
{

// A line that is no rule; the text says why.
class BadLine : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// What the words of a line say. Blanks part them. A word in quotes may hold blanks, and "" for a quote; - alone is an
// empty text; %% is a percent sign, and %XXXX the UTF-16 unit of these hexadecimal digits. Throws BadLine.
std::vector<std::wstring> SplitWords(std::wstring_view line);

// The word that says this text: in quotes where it must be, and with a number for each unit that nobody could see.
std::wstring WordOf(std::wstring_view text);

// How many places of a line the word takes on a terminal.
std::size_t WidthOf(std::wstring_view word);

inline constexpr std::wstring_view HexDigits = L"0123456789ABCDEFabcdef"; // the first sixteen are written

} // namespace Framework
