#pragma once

#include <cstdint>
#include <string_view>

// The numbers in the fields of a record, read as the C library reads them, from a text without a terminator.
namespace VdCommon
{

// The decimal number at the start of the text, as wcstol reads it: after leading white space and one sign, up to the
// first character that is no digit. 0 where there is no digit; a number out of range becomes the nearest one in range.
std::int32_t WideToInteger(std::wstring_view text) noexcept;

// The same as strtoul reads the text narrowed to the 8-bit code page of the system. base: 10; 16, where "0x" may stand
// in front; 0, where "0x" in front means 16, a "0" in front 8, and anything else 10. A minus sign negates, modulo 2 to
// the 32. What does not fit counts as the largest number, to which the sign applies as well.
std::uint32_t WideToUnsigned(std::wstring_view text, int base) noexcept;

} // namespace VdCommon
