#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What lines of a kind look like when all is well.
struct LineShape
{
    std::size_t tokens; // of a complete line in its longest form

    // Values that the class tells apart, by the number of the token. Other tokens get a word.
    std::map<std::size_t, std::vector<std::wstring>> values;
};

// Numbers, times, escapes and what is no text, in every form that readers of tokens tell apart or should not.
std::span<const std::wstring_view> HostileTokens();

// Lines that a log must survive and tell apart: of the right shape, too short and too long, cut anywhere, with empty
// tokens, hundreds of bars, numbers of every size and form, zeros, lone surrogates and tokens of 100,000 characters.
// First comes, once each, a line cut after every token and one that lacks the text of every token; then lines of
// chance, the same for the same seed.
class HostileLines
{
public:
    HostileLines(std::uint32_t seed, LineShape shape);

    std::wstring Next();

private:
    std::size_t Below(std::size_t limit);

    bool OneIn(std::size_t count) { return Below(count) == 0; }

    std::wstring GoodToken(std::size_t number);
    std::wstring Token(std::size_t number);
    std::vector<std::wstring> GoodTokens(std::size_t count);
    std::wstring PlannedLine();
    std::wstring LineOfChance();
    std::size_t CountOfChance();

    LineShape m_shape;
    std::mt19937 m_random;
    std::size_t m_nLine = 0;
};
