#pragma once

#include "common/VdCommon/VdComn_Number.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// What log classes read from the tokens of a line.

// The hours and minutes of a time token, which is digits without separators: "103015" gives "10:30". What a shorter
// token lacks is left out.
std::wstring ClockText(std::wstring_view token);

// A code: the decimal number at the start of the token as the C library reads it, a negative one modulo 2 to the 32.
inline std::uint32_t CodeOf(std::wstring_view token)
{
    return static_cast<std::uint32_t>(VdCommon::WideToInteger(token));
}

// The number in decimal digits.
std::wstring DecimalText(std::uint32_t number);

// The plain form of an escaped token, put into text as a buffer of so many characters keeps it; an empty token empties
// it. The token must not lie in text.
void Unescape(std::wstring_view token, std::wstring& text, std::size_t characters = std::wstring::npos);

// The token as a buffer of so many characters keeps it.
std::wstring_view Bounded(std::wstring_view token, std::size_t characters);
