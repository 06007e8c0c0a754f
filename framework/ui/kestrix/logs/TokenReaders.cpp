#include "framework/ui/kestrix/logs/TokenReaders.h"

#include "common/VdCommon/VdComn_DelimiterChanger.h"

#include <algorithm>
#include <charconv>
#include <limits>

std::wstring ClockText(std::wstring_view token)
{
    constexpr std::size_t hours = 2;
    constexpr std::size_t digits = 4;
    wchar_t text[digits + 1];
    std::size_t length = 0;
    for (const wchar_t digit : token.substr(0, digits))
    {
        if (length == hours)
        {
            text[length++] = L':';
        }
        text[length++] = digit;
    }
    if (length <= hours)
    {
        text[length++] = L':';
    }
    return {text, length};
}

std::wstring DecimalText(std::uint32_t number)
{
    char digits[std::numeric_limits<std::uint32_t>::digits10 + 1];
    return {digits, std::to_chars(digits, std::end(digits), number).ptr};
}

void Unescape(std::wstring_view token, std::wstring& text, std::size_t characters)
{
    text.clear();
    VdCommon::DelimiterChanger().Decode(text, token);
    text.resize(std::min(text.size(), characters));
}

std::wstring_view Bounded(std::wstring_view token, std::size_t characters)
{
    return token.substr(0, characters);
}
