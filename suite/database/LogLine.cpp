#include "suite/database/LogLine.h"

#include "suite/database/LogKinds.h"

#include <algorithm>
#include <cwchar>

namespace EventLog
{

namespace
{

constexpr wchar_t Bar = L'|';
constexpr std::size_t SourceToken = 2;

// The token with this number, counted from 0; empty when the line ends before it.
std::wstring_view TokenOf(std::wstring_view line, std::size_t number)
{
    for (; number > 0; --number)
    {
        const std::size_t bar = line.find(Bar);
        if (bar == line.npos)
        {
            return {};
        }
        line.remove_prefix(bar + 1);
    }
    return line.substr(0, line.find(Bar));
}

// A number in decimal, or in hexadecimal with "0x" before it; 0 for anything else.
unsigned long SourceOf(std::wstring_view line)
{
    return std::wcstoul(std::wstring(TokenOf(line, SourceToken)).c_str(), nullptr, 0);
}

} // namespace

std::wstring DatabaseForm(std::uint32_t kind, std::wstring_view line)
{
    std::wstring form(line);
    const LogKind* const known = FindKindOfSubType(kind);
    if (known == nullptr)
    {
        return form;
    }
    const unsigned long source = SourceOf(line);
    const auto file = std::ranges::find_if(known->fileForms, [source](const FileForm& row)
                                           { return row.firstSource <= source && source <= row.lastSource; });
    if (file != known->fileForms.end() && std::ranges::count(line, Bar) + 1 == file->tokens)
    {
        form += Bar;
    }
    return form;
}

std::uint32_t TimeOfLine(std::uint32_t kind, std::wstring_view line)
{
    constexpr std::size_t digits = 6;
    constexpr std::uint32_t latest = 235959;
    const LogKind* const known = FindKindOfSubType(kind);
    const std::wstring_view token = TokenOf(line, known != nullptr ? known->timeToken : 1).substr(0, digits);
    const auto isDigit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
    if (token.size() < digits || !std::ranges::all_of(token, isDigit))
    {
        return 0;
    }
    return std::min(latest, static_cast<std::uint32_t>(std::stoul(std::wstring(token))));
}

} // namespace EventLog
