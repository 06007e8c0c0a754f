#include "tests/fuzz/Mutator.h"

#include "tests/support/HostileLines.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

namespace Fuzz
{

using namespace std::string_view_literals;

namespace
{

constexpr std::size_t MostBytes = 16 * 1024; // of an input
constexpr std::size_t HeadBytes = 64;        // where most sizes and counts stand
constexpr std::size_t LongRun = 2000;        // units; the longest line has a few more

constexpr std::uint32_t Numbers[] = {
    0,   1,   2,   3,   4,      7,      8,      15,          16,          17,          32,          64,
    127, 128, 255, 256, 0x7FFF, 0x8000, 0xFFFF, 0x0001'0000, 0x7FFF'FFFF, 0x8000'0000, 0xFFFF'FFF0, 0xFFFF'FFFF};

template <class Text>
Text FromBytes(const std::string& bytes)
{
    Text text(bytes.size() / sizeof(typename Text::value_type), 0);
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(typename Text::value_type));
    return text;
}

std::wstring InUnits(std::wstring_view text, const std::wstring&)
{
    return std::wstring(text);
}

std::string InUnits(std::wstring_view text, const std::string&)
{
    std::string narrow(3 * text.size(), '\0');
    narrow.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                               narrow.data(), static_cast<int>(narrow.size()), nullptr,
                                                               nullptr)));
    return narrow;
}

} // namespace

Mutator::Mutator(const Harness& harness, std::uint32_t seed) : m_harness(harness), m_random(seed)
{
    for (std::wstring_view rest = harness.words; !rest.empty();)
    {
        m_words.push_back(rest.substr(0, rest.find(L' ')));
        rest.remove_prefix(std::min(rest.size(), m_words.back().size() + 1));
    }
}

std::string Mutator::Next(const std::vector<std::string>& inputs)
{
    if (m_harness.form != Form::Utf16)
    {
        return Mutated<std::string>(inputs);
    }
    const auto text = Mutated<std::wstring>(inputs);
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

// Mostly a small change: a reader that refuses an input at once says nothing of what comes after.
template <class Text>
Text Mutator::Mutated(const std::vector<std::string>& inputs)
{
    Text text = FromBytes<Text>(inputs[Below(inputs.size())]);
    const Text other = FromBytes<Text>(inputs[Below(inputs.size())]);
    std::size_t changes = 1;
    while (changes < 20 && !OneIn(2))
    {
        ++changes;
    }
    for (; changes > 0; --changes)
    {
        ChangeOnce(text, other);
    }
    text.resize(std::min(text.size(), MostBytes / sizeof(typename Text::value_type)));
    return text;
}

template <class Text>
void Mutator::ChangeOnce(Text& text, const Text& other)
{
    if (m_harness.form != Form::Bytes && !OneIn(4))
    {
        return ChangePiece(text, other);
    }
    if constexpr (std::is_same_v<Text, std::string>)
    {
        if (OneIn(2))
        {
            return ChangeNumber(text);
        }
    }
    ChangeRange(text, other);
}

template <class Text>
void Mutator::ChangePiece(Text& text, const Text& other)
{
    const auto [begin, length] = Piece(text);
    const auto [otherBegin, otherLength] = Piece(other);
    switch (Below(10))
    {
    case 0:
        text.erase(begin, length);
        break;
    case 1:
        text.erase(begin, length + 1); // with its separator
        break;
    case 2:
        text.insert(begin, text.substr(begin, length + 1));
        break;
    case 3:
        text.replace(begin, length, other.substr(otherBegin, otherLength));
        break;
    case 4:
        text.insert(begin + Below(length + 1), Word<Text>());
        break;
    case 5:
        text.insert(begin + length, other.substr(otherBegin, 500));
        break;
    case 6:
        if (OneIn(20))
        {
            text.insert(begin, LongRun + Below(100), UnitOfChance<typename Text::value_type>());
            break;
        }
        [[fallthrough]];
    default:
        text.replace(begin, length, Word<Text>());
    }
}

template <class Text>
void Mutator::ChangeRange(Text& text, const Text& other)
{
    const std::size_t begin = Below(text.size() + 1);
    const std::size_t length = Below(std::min<std::size_t>(text.size() - begin, OneIn(4) ? text.size() : 8) + 1);
    const std::size_t from = Below(other.size() + 1);
    switch (Below(7))
    {
    case 0:
        text.erase(begin, length);
        break;
    case 1:
        text.insert(Below(text.size() + 1), text.substr(begin, length));
        break;
    case 2:
        text.insert(begin, other.substr(from, Below(64)));
        break;
    case 3:
        text.resize(begin);
        break;
    case 4:
        text.insert(begin, 1 + Below(OneIn(20) ? 300 : 8), UnitOfChance<typename Text::value_type>());
        break;
    default:
        if (begin < text.size())
        {
            text[begin] = UnitOfChance<typename Text::value_type>();
        }
    }
}

// One, two or four bytes, or a single bit.
void Mutator::ChangeNumber(std::string& bytes)
{
    if (bytes.empty())
    {
        return;
    }
    const std::size_t place = Below(OneIn(2) ? std::min(bytes.size(), HeadBytes) : bytes.size());
    if (OneIn(3))
    {
        bytes[place] = static_cast<char>(bytes[place] ^ (1 << Below(8)));
        return;
    }
    const std::uint32_t number = Numbers[Below(std::size(Numbers))];
    std::memcpy(bytes.data() + place, &number, std::min(bytes.size() - place, std::size_t{1} << Below(3)));
}

template <class Text>
std::pair<std::size_t, std::size_t> Mutator::Piece(const Text& text)
{
    const auto isSeparator = [this](auto unit)
    { return m_harness.separators.find(static_cast<wchar_t>(unit)) != m_harness.separators.npos; };
    const auto place = text.begin() + static_cast<std::ptrdiff_t>(Below(text.size() + 1));
    const auto begin = std::find_if(std::make_reverse_iterator(place), text.rend(), isSeparator).base();
    const auto end = std::find_if(place, text.end(), isSeparator);
    return {static_cast<std::size_t>(begin - text.begin()), static_cast<std::size_t>(end - begin)};
}

template <class Text>
Text Mutator::Word()
{
    const std::span<const std::wstring_view> hostile = HostileTokens();
    if (m_words.empty() || OneIn(3))
    {
        return InUnits(hostile[Below(hostile.size())], Text());
    }
    return InUnits(m_words[Below(m_words.size())], Text());
}

template <class Unit>
Unit Mutator::UnitOfChance()
{
    constexpr std::wstring_view usual = L"0123456789aAxX|%I\"-+ \t\r\n\0.:/\\,;=#"sv;
    switch (Below(4))
    {
    case 0:
        return static_cast<Unit>(m_random());
    case 1:
        return m_harness.separators.empty()
                   ? static_cast<Unit>(m_random() & 0xFF)
                   : static_cast<Unit>(m_harness.separators[Below(m_harness.separators.size())]);
    default:
        return static_cast<Unit>(usual[Below(usual.size())]);
    }
}

} // namespace Fuzz
