#include "suite/database/LineRules.h"

#include "suite/database/LogKinds.h"
#include "suite/database/LogLine.h"

#include <algorithm>

namespace EventLog
{

namespace
{

constexpr std::size_t MostShown = 40; // characters of a token in a message

// The value of a digit, letters included; a large number for any other character.
unsigned DigitOf(wchar_t c)
{
    const wchar_t small = c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
    const int digit = c >= L'0' && c <= L'9' ? c - L'0' : small >= L'a' && small <= L'z' ? small - L'a' + 10 : 99;
    return static_cast<unsigned>(digit);
}

// The number that these digits write; nothing when there is none, another character or more than 32 bits.
std::optional<std::int64_t> NumberOf(std::wstring_view digits, unsigned base)
{
    std::int64_t number = 0;
    for (const wchar_t c : digits)
    {
        number = number * base + DigitOf(c);
        if (DigitOf(c) >= base || number > UINT32_MAX)
        {
            return std::nullopt;
        }
    }
    return digits.empty() ? std::nullopt : std::optional(number);
}

bool HasHexadecimalMark(std::wstring_view token)
{
    return token.starts_with(L"0x") || token.starts_with(L"0X");
}

bool IsNumber(std::wstring_view token, const TokenForm& form)
{
    const bool negative = token.starts_with(L'-');
    const std::optional<std::int64_t> number =
        NumberOf(negative || token.starts_with(L'+') ? token.substr(1) : token, 10);
    const std::int64_t value = negative ? -number.value_or(0) : number.value_or(0);
    return number && form.least <= value && value <= form.most;
}

// Two digits for each of hours, minutes and, where there are more than four, seconds.
bool IsTime(std::wstring_view token, bool withSeconds)
{
    if ((token.size() != 4 || withSeconds) && token.size() != 6)
    {
        return false;
    }
    const std::optional<std::int64_t> digits = NumberOf(token, 10);
    const std::int64_t time = digits.value_or(0) * (token.size() == 4 ? 100 : 1);
    return digits && time / 10000 < 24 && time / 100 % 100 < 60 && time % 100 < 60;
}

bool Follows(std::wstring_view token, const TokenForm& form)
{
    switch (form.rule)
    {
    case Rule::Any:
        return true;
    case Rule::Minutes:
    case Rule::Seconds:
        return IsTime(token, form.rule == Rule::Seconds);
    case Rule::Number:
        return IsNumber(token, form);
    case Rule::Source:
        return NumberOf(HasHexadecimalMark(token) ? token.substr(2) : token, HasHexadecimalMark(token) ? 16 : 10)
            .has_value();
    case Rule::Hexadecimal:
        return NumberOf(HasHexadecimalMark(token) ? token.substr(2) : token, 16).has_value();
    }
    return false;
}

// What a token should be.
std::wstring WantOf(const TokenForm& form)
{
    switch (form.rule)
    {
    case Rule::Minutes:
        return L"a time of day as HHMM or HHMMSS";
    case Rule::Seconds:
        return L"a time of day as HHMMSS";
    case Rule::Hexadecimal:
        return L"a number of 32 bits in hexadecimal";
    case Rule::Source:
        return L"a number of 32 bits, in decimal or as 0x and hexadecimal digits";
    default:
        return form.least == INT32_MIN
                   ? L"a whole number of 32 bits"
                   : L"a number from " + std::to_wstring(form.least) + L" to " + std::to_wstring(form.most);
    }
}

std::wstring NameOf(std::size_t number, const TokenForm& form)
{
    const std::wstring name = L"token " + std::to_wstring(number + 1);
    return form.name.empty() ? name : name + L" (" + std::wstring(form.name) + L")";
}

std::wstring Quoted(std::wstring_view token)
{
    const std::wstring_view shown = token.substr(0, MostShown);
    return L"\"" + std::wstring(shown) + (shown.size() < token.size() ? L"...\"" : L"\"");
}

} // namespace

std::optional<std::wstring> FaultOfLine(const LogKind& kind, std::wstring_view line)
{
    const std::vector<std::wstring_view> tokens = TokensOf(line);
    const LineForm* const form = FormOfLine(kind, tokens);
    if (form == nullptr)
    {
        return L"has the source " + Quoted(tokens.size() > 2 ? tokens[2] : L"") + L", which no record of this log has";
    }
    for (std::size_t i = 0; i < form->tokens.size(); ++i)
    {
        const TokenForm& token = form->tokens[i];
        if (i >= tokens.size())
        {
            return token.mayLack ? std::nullopt : std::optional(L"ends before " + NameOf(i, token));
        }
        if (!Follows(tokens[i], token) && !(tokens[i].empty() && token.mayBeEmpty))
        {
            return L"has " + Quoted(tokens[i]) + L" as " + NameOf(i, token) + L", which is to be " + WantOf(token);
        }
    }
    return std::nullopt;
}

} // namespace EventLog
