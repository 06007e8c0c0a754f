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
std::wstring_view TokenAt(const std::vector<std::wstring_view>& tokens, std::size_t number)
{
    return number < tokens.size() ? tokens[number] : std::wstring_view();
}

// A number in decimal, or in hexadecimal with "0x" before it; 0 for anything else.
unsigned long SourceOf(const std::vector<std::wstring_view>& tokens)
{
    return std::wcstoul(std::wstring(TokenAt(tokens, SourceToken)).c_str(), nullptr, 0);
}

} // namespace

std::vector<std::wstring_view> TokensOf(std::wstring_view line)
{
    std::vector<std::wstring_view> tokens;
    for (std::size_t bar = line.find(Bar); bar != line.npos; bar = line.find(Bar))
    {
        tokens.push_back(line.substr(0, bar));
        line.remove_prefix(bar + 1);
    }
    tokens.push_back(line);
    return tokens;
}

const LineForm* FormOfLine(const LogKind& kind, const std::vector<std::wstring_view>& tokens)
{
    const unsigned long source = SourceOf(tokens);
    const auto form = std::ranges::find_if(kind.forms, [source](const LineForm& row)
                                           { return row.firstSource <= source && source <= row.lastSource; });
    return form == kind.forms.end() ? nullptr : &*form;
}

std::wstring DatabaseForm(std::uint32_t kind, std::wstring_view line)
{
    std::wstring form(line);
    const LogKind* const known = FindKindOfSubType(kind);
    if (known == nullptr)
    {
        return form;
    }
    const std::vector<std::wstring_view> tokens = TokensOf(line);
    const LineForm* const expected = FormOfLine(*known, tokens);
    if (expected != nullptr && tokens.size() < expected->tokens.size() && expected->tokens[tokens.size()].mayLack)
    {
        form.append(expected->tokens.size() - tokens.size(), Bar);
    }
    return form;
}

std::uint32_t TimeOfLine(std::uint32_t kind, std::wstring_view line)
{
    constexpr std::size_t digits = 6;
    constexpr std::uint32_t latest = 235959;
    const LogKind* const known = FindKindOfSubType(kind);
    const std::wstring_view token = TokenAt(TokensOf(line), known != nullptr ? known->timeToken : 1).substr(0, digits);
    const auto isDigit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
    if (token.size() < digits || !std::ranges::all_of(token, isDigit))
    {
        return 0;
    }
    return std::min(latest, static_cast<std::uint32_t>(std::stoul(std::wstring(token))));
}

} // namespace EventLog
