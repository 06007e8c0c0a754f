#pragma once

#include <string_view>

namespace Samples
{

// A category of the web filter, as the service framework lists it and as the URL filter log names it.
struct UrlCategory
{
    std::wstring_view key;
    std::wstring_view name;
};

inline constexpr UrlCategory UrlCategories[] = {
    {L"03", L"Adult content"}, {L"11", L"Gambling"},        {L"16", L"Online games"},     {L"24", L"Social networks"},
    {L"29", L"Web mail"},      {L"33", L"File sharing"},    {L"39", L"Proxy services"},   {L"45", L"Advertisements"},
    {L"51", L"Dating"},        {L"62", L"Streaming media"}, {L"71", L"Newly registered"}, {L"80", L"Spyware sites"},
};

} // namespace Samples
