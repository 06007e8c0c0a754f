#pragma once

#include <string>
#include <string_view>

// Any text as one line of a UTF-8 file that a person can read. What cannot stand in a line, or cannot be seen there,
// stands as its code unit in hexadecimal, such as <U+0000>: control characters, marks without a shape, lone surrogates,
// and a blank at either end. A tab stands as <tab>.
std::string Visible(std::wstring_view text);

// The text that stands as this line. Throws std::runtime_error when the line is not UTF-8.
std::wstring FromVisible(std::string_view line);
