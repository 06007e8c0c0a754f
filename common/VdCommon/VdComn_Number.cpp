#include "common/VdCommon/VdComn_Number.h"

#include <windows.h>

#include <cwctype>
#include <limits>

namespace VdCommon
{

namespace
{

constexpr unsigned NoDigit = 36; // above every base

// The zero of each script that the C library's wide conversions read besides ASCII; its nine other digits follow it.
constexpr wchar_t ScriptZeros[] = {0x0660, 0x06F0, 0x0966, 0x09E6, 0x0A66, 0x0AE6, 0x0B66, 0x0C66, 0x0CE6,
                                   0x0D66, 0x0E50, 0x0ED0, 0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10};

constexpr bool IsAsciiSpace(wchar_t c) noexcept
{
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

bool IsWideSpace(wchar_t c) noexcept
{
    return IsAsciiSpace(c) || (c > 0x7F && std::iswspace(c) != 0);
}

constexpr unsigned WideDigit(wchar_t c) noexcept
{
    if (c < ScriptZeros[0])
    {
        return c >= L'0' && c <= L'9' ? static_cast<unsigned>(c - L'0') : NoDigit;
    }
    for (const wchar_t zero : ScriptZeros)
    {
        if (c >= zero && c <= zero + 9)
        {
            return static_cast<unsigned>(c - zero);
        }
    }
    return NoDigit;
}

constexpr unsigned NarrowDigit(char c) noexcept
{
    if (c >= '0' && c <= '9')
    {
        return static_cast<unsigned>(c - '0');
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'z' ? static_cast<unsigned>(lower - 'a' + 10) : NoDigit;
}

// One character in the 8-bit code page of the system, which may have a look-alike for it; 0 where it becomes more than
// one byte.
char Narrow(wchar_t c) noexcept
{
    if (c <= 0x7F)
    {
        return static_cast<char>(c);
    }
    char bytes[8];
    return ::WideCharToMultiByte(CP_ACP, 0, &c, 1, bytes, sizeof bytes, nullptr, nullptr) == 1 ? bytes[0] : '\0';
}

// Takes a sign from the front of the text. Returns whether it was a minus.
template <class ToNarrow>
bool TakeSign(std::wstring_view& text, ToNarrow narrow) noexcept
{
    const auto sign = text.empty() ? L'\0' : narrow(text.front());
    if (sign == '-' || sign == '+')
    {
        text.remove_prefix(1);
    }
    return sign == '-';
}

// Takes the prefix of the number from the front of the text. Returns the base of what follows.
unsigned TakeBase(std::wstring_view& text, int base) noexcept
{
    const bool zero = !text.empty() && Narrow(text.front()) == '0';
    if ((base == 0 || base == 16) && zero && text.size() > 1 && (Narrow(text[1]) | 0x20) == 'x')
    {
        text.remove_prefix(2);
        return 16;
    }
    if (base == 0)
    {
        return zero ? 8 : 10;
    }
    return static_cast<unsigned>(base);
}

} // namespace

std::int32_t AnyWideToInteger(std::wstring_view text) noexcept
{
    while (!text.empty() && IsWideSpace(text.front()))
    {
        text.remove_prefix(1);
    }
    const bool negative = TakeSign(text, [](wchar_t c) { return c; });
    const std::int64_t limit = std::numeric_limits<std::int32_t>::max() + std::int64_t{negative};
    std::int64_t value = 0;
    for (const wchar_t c : text)
    {
        const unsigned digit = WideDigit(c);
        if (digit >= 10)
        {
            break;
        }
        value = value * 10 + digit;
        if (value > limit)
        {
            value = limit;
            break;
        }
    }
    return static_cast<std::int32_t>(negative ? -value : value);
}

std::uint32_t WideToUnsigned(std::wstring_view text, int base) noexcept
{
    while (!text.empty() && IsAsciiSpace(static_cast<unsigned char>(Narrow(text.front()))))
    {
        text.remove_prefix(1);
    }
    const bool negative = TakeSign(text, Narrow);
    const unsigned radix = TakeBase(text, base);
    std::uint64_t value = 0;
    for (const wchar_t c : text)
    {
        const unsigned digit = NarrowDigit(Narrow(c));
        if (digit >= radix)
        {
            break;
        }
        value = value * radix + digit;
        if (value > std::numeric_limits<std::uint32_t>::max())
        {
            value = std::numeric_limits<std::uint32_t>::max();
            break;
        }
    }
    const auto number = static_cast<std::uint32_t>(value);
    return negative ? 0 - number : number;
}

} // namespace VdCommon
