#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

// The numbers in the fields of a record, read as the C library reads them, from a text without a terminator.
namespace VdCommon
{

// The decimal number at the start of the text, as wcstol reads it: after leading white space and one sign, up to the
// first character that is no digit. 0 where there is no digit; a number out of range becomes the nearest one in range.
inline std::int32_t WideToInteger(std::wstring_view text) noexcept;

// The same as strtoul reads the text narrowed to the 8-bit code page of the system. base: 10; 16, where "0x" may stand
// in front; 0, where "0x" in front means 16, a "0" in front 8, and anything else 10. A minus sign negates, modulo 2 to
// the 32. What does not fit counts as the largest number, to which the sign applies as well.
std::uint32_t WideToUnsigned(std::wstring_view text, int base) noexcept;

// WideToInteger for texts of any form.
std::int32_t AnyWideToInteger(std::wstring_view text) noexcept;

// Inline for the numbers that fill nearly all fields: nothing but digits, and too few to be out of range.
std::int32_t WideToInteger(std::wstring_view text) noexcept
{
    std::int32_t number = 0;
    bool plain = text.size() <= std::numeric_limits<std::int32_t>::digits10;
    for (std::size_t i = 0; plain && i < text.size(); ++i)
    {
        plain = text[i] >= L'0' && text[i] <= L'9';
        number = number * 10 + (text[i] - L'0');
    }
    return plain ? number : AnyWideToInteger(text);
}

} // namespace VdCommon
