#include "framework/ui/kestrix/logs/TokenReaders.h"

#include "common/VdCommon/VdComn_DelimiterChanger.h"
#include "common/VdCommon/VdComn_Number.h"

#include <algorithm>
#include <charconv>
#include <limits>

std::wstring ClockText(std::wstring_view token)
{
    const std::size_t hours = std::min<std::size_t>(token.size(), 2);
    std::wstring text(token.substr(0, hours));
    text += L':';
    text += token.substr(hours, 2);
    return text;
}

std::uint32_t CodeOf(std::wstring_view token)
{
    return static_cast<std::uint32_t>(VdCommon::WideToInteger(token));
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
