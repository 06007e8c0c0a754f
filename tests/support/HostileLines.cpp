#include "tests/support/HostileLines.h"

#include <string_view>
#include <utility>

namespace
{

using namespace std::string_view_literals;

constexpr std::size_t BeyondComplete = 3; // how many tokens more than a complete line has are tried in any case
constexpr std::size_t ManyBars = 300;
constexpr std::size_t LongToken = 100'000;

constexpr std::wstring_view Words[] = {L"word"sv, L"two words"sv, L"103015"sv,      L"C:\\Users\\a user\\file.exe"sv,
                                       L"1"sv,    L"0"sv,         L"\x65E5\x672C"sv};

constexpr std::wstring_view Hostile[] = {
    // numbers
    L"0"sv,
    L"1"sv,
    L"-1"sv,
    L"+1"sv,
    L"--1"sv,
    L" 1"sv,
    L"\t1"sv,
    L"1 "sv,
    L"1x"sv,
    L"x1"sv,
    L"01"sv,
    L"007"sv,
    L"1.5"sv,
    L"1e3"sv,
    L"0x1"sv,
    L"0X10"sv,
    L"0x"sv,
    L"1F"sv,
    L"ffffffff"sv,
    L"0xfffffffff"sv,
    L"2147483647"sv,
    L"2147483648"sv,
    L"-2147483648"sv,
    L"-2147483649"sv,
    L"4294967295"sv,
    L"4294967296"sv,
    L"4294967297"sv,
    L"-4294967295"sv,
    L"18446744073709551615"sv,
    L"18446744073709551617"sv,
    L"99999999999999999999999999"sv,
    L"\xFF11"sv,
    L"\x0661"sv,
    // times
    L"1"sv,
    L"12"sv,
    L"123"sv,
    L"1234"sv,
    L"235959"sv,
    L"240000"sv,
    L"12:34:56"sv,
    L"\xD83D\xDE00\xD83D\xDE00"sv,
    // escapes and quotes
    L"%"sv,
    L"%%"sv,
    L"%I"sv,
    L"%I%x"sv,
    L"a%Ib%%c"sv,
    L"%x%I%"sv,
    L"\""sv,
    L"\"\""sv,
    L"%s%n%d"sv,
    L"\\"sv,
    // what is no text
    L"\0"sv,
    L"1\0002"sv,
    L"\0001"sv,
    L"\xD800"sv,
    L"\xDC00"sv,
    L"1\xD800"sv,
    L"\xDC00\xD800"sv,
    L"\xFEFF"sv,
    L"\xFFFF"sv,
    L"\r"sv,
    L"\n"sv,
    L"\r\n"sv,
    L"a\r\nb"sv,
    L" "sv,
    L"  "sv,
    L"\x3000"sv,
};

std::wstring Joined(const std::vector<std::wstring>& tokens)
{
    std::wstring line;
    for (const std::wstring& token : tokens)
    {
        line += (&token == tokens.data() ? L"" : L"|") + token;
    }
    return line;
}

} // namespace

std::span<const std::wstring_view> HostileTokens()
{
    return Hostile;
}

HostileLines::HostileLines(std::uint32_t seed, LineShape shape) : m_shape(std::move(shape)), m_random(seed) {}

std::wstring HostileLines::Next()
{
    const std::size_t planned = 2 * (m_shape.tokens + BeyondComplete);
    return m_nLine < planned ? PlannedLine() : LineOfChance();
}

// In turn a line that ends after token n, with nothing of the next one, and a complete line whose token n is empty.
std::wstring HostileLines::PlannedLine()
{
    const std::size_t number = m_nLine / 2;
    const bool isCut = m_nLine % 2 == 0;
    ++m_nLine;
    std::vector<std::wstring> tokens = GoodTokens(isCut ? number : m_shape.tokens + BeyondComplete);
    if (!isCut)
    {
        tokens[number].clear();
    }
    return Joined(tokens);
}

std::wstring HostileLines::LineOfChance()
{
    if (OneIn(200))
    {
        return std::wstring(OneIn(2) ? ManyBars : m_shape.tokens - 1, L'|');
    }
    const bool isHostile = OneIn(3);
    std::vector<std::wstring> tokens = GoodTokens(CountOfChance());
    for (std::size_t number = 0; number < tokens.size(); ++number)
    {
        if (isHostile ? !OneIn(3) : OneIn(15))
        {
            tokens[number] = Token(number);
        }
    }
    if (OneIn(1000) && !tokens.empty())
    {
        tokens[Below(tokens.size())].assign(LongToken, OneIn(2) ? L'1' : L'x');
    }
    std::wstring line = Joined(tokens);
    if (OneIn(12))
    {
        line.resize(Below(line.size() + 1));
    }
    return OneIn(12) ? line + L"\r\n" : line;
}

// Mostly a complete line, with or without the last token, which one of the two forms of most kinds lacks.
std::size_t HostileLines::CountOfChance()
{
    switch (Below(8))
    {
    case 0:
        return Below(m_shape.tokens + 1);
    case 1:
        return m_shape.tokens + Below(BeyondComplete + 1);
    case 2:
    case 3:
        return m_shape.tokens - 1;
    default:
        return m_shape.tokens;
    }
}

std::vector<std::wstring> HostileLines::GoodTokens(std::size_t count)
{
    std::vector<std::wstring> tokens;
    for (std::size_t number = 0; number < count; ++number)
    {
        tokens.push_back(GoodToken(number));
    }
    return tokens;
}

std::wstring HostileLines::GoodToken(std::size_t number)
{
    const auto found = m_shape.values.find(number);
    return found == m_shape.values.end() ? std::wstring(Words[Below(std::size(Words))])
                                         : found->second[Below(found->second.size())];
}

std::wstring HostileLines::Token(std::size_t number)
{
    switch (Below(6))
    {
    case 0:
        return {};
    case 1:
        return GoodToken(number) + std::wstring(Hostile[Below(std::size(Hostile))]);
    case 2:
        return std::wstring(Hostile[Below(std::size(Hostile))]) + GoodToken(number);
    default:
        return std::wstring(Hostile[Below(std::size(Hostile))]);
    }
}

std::size_t HostileLines::Below(std::size_t limit)
{
    return m_random() % limit;
}
