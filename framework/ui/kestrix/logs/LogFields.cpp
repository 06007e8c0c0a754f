#include "framework/ui/kestrix/logs/LogFields.h"

#include <algorithm>

std::wstring ClockText(std::wstring_view token)
{
    const std::size_t hours = std::min<std::size_t>(token.size(), 2);
    std::wstring text(token.substr(0, hours));
    text += L':';
    text += token.substr(hours, 2);
    return text;
}
