#pragma once

#include "suite/framework/Utf8.h"
#include "tests/fuzz/Harness.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <random>

namespace Fuzz
{

using namespace std::string_view_literals;

// Makes inputs from others: pieces between separators are emptied, doubled, exchanged and replaced by words of the
// harness and by hostile tokens; bytes become numbers at which sizes and counts change their sign or wrap; ranges go,
// come twice or come from another input. The same for the same seed and inputs.
class Mutator
{
public:
    Mutator(const Harness& harness, std::uint32_t seed) : m_harness(harness), m_random(seed)
    {
        const auto inUnits = [&](std::wstring_view text)
        { return harness.form == Form::Utf16 ? std::wstring(text) : UnitsOf(Framework::Narrow(text), harness.form); };
        std::ranges::transform(Pieces(harness.words, L' '), std::back_inserter(m_words), inUnits);
        std::ranges::transform(Pieces(HostileTokens, L'|'), std::back_inserter(m_hostileTokens), inUnits);
    }

    // A changed copy of one of these, of which there must be one at least. Mostly a small change: a reader that refuses
    // an input at once says nothing of what comes after.
    std::wstring Next(const std::vector<std::wstring>& inputs)
    {
        std::wstring text = inputs[Below(inputs.size())];
        const std::wstring& other = inputs[Below(inputs.size())];
        std::size_t changes = 1;
        while (changes < 20 && !OneIn(2))
        {
            ++changes;
        }
        for (; changes > 0; --changes)
        {
            ChangeOnce(text, other);
        }
        text.resize(std::min(text.size(), MostUnits));
        return text;
    }

private:
    static constexpr std::size_t MostUnits = 8 * 1024; // of an input
    static constexpr std::size_t HeadBytes = 64;       // where most sizes and counts stand
    static constexpr std::size_t LongRun = 2000;       // units; the longest line has a few more

    static constexpr std::uint32_t Numbers[] = {
        0,   1,   2,   3,   4,      7,      8,      15,          16,          17,          32,          64,
        127, 128, 255, 256, 0x7FFF, 0x8000, 0xFFFF, 0x0001'0000, 0x7FFF'FFFF, 0x8000'0000, 0xFFFF'FFF0, 0xFFFF'FFFF};

    // Numbers, times, escapes and quotes, and what is no text, in every form that readers of tokens tell apart or
    // should not, with a bar between them.
    static constexpr std::wstring_view HostileTokens =
        L"0|1|-1|+1|--1| 1|\t1|1 |1x|x1|01|007|1.5|1e3|0x1|0X10|0x|1F|ffffffff|0xfffffffff|2147483647|2147483648|"
        L"-2147483648|-2147483649|4294967295|4294967296|4294967297|-4294967295|18446744073709551615|"
        L"18446744073709551617|"
        L"99999999999999999999999999|\xFF11|\x0661|"
        L"12|123|1234|235959|240000|12:34:56|\xD83D\xDE00\xD83D\xDE00|"
        L"%|%%|%I|%I%x|a%Ib%%c|%x%I%|\"|\"\"|%s%n%d|\\|"
        L"\0|1\0002|\0001|\xD800|\xDC00|1\xD800|\xDC00\xD800|\xFEFF|\xFFFF|\r|\n|\r\n|a\r\nb| |  |\x3000"sv;

    void ChangeOnce(std::wstring& text, const std::wstring& other)
    {
        if (m_harness.form != Form::Utf16 && OneIn(m_harness.form == Form::Bytes ? 2 : 8))
        {
            return ChangeNumber(text);
        }
        const auto [begin, length] = Part(text);
        const auto [from, count] = Part(other);
        switch (Below(12))
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
            text.replace(begin, length, other.substr(from, count));
            break;
        case 4:
            text.insert(begin + length, other.substr(from, 500));
            break;
        case 5:
        case 6:
            text.replace(begin, length, Counterpart(text, begin));
            break;
        case 7:
            text.erase(begin, OneIn(4) ? text.npos : text.find(L'\n', begin) - begin);
            break;
        case 8:
            text.insert(begin, OneIn(30) ? (LongRun >> Below(4)) + Below(100) : 1 + Below(8), UnitOfChance());
            break;
        case 9:
            text.replace(begin, 1, 1, UnitOfChance());
            break;
        case 10:
            text.insert(begin + Below(length + 1), Word());
            break;
        default:
            text.replace(begin, length, Word());
        }
    }

    // One, two or four bytes, or a single bit.
    void ChangeNumber(std::wstring& bytes)
    {
        if (bytes.empty())
        {
            return;
        }
        const std::size_t place = Below(OneIn(2) ? std::min(bytes.size(), HeadBytes) : bytes.size());
        if (OneIn(3))
        {
            bytes[place] ^= static_cast<wchar_t>(1 << Below(8));
            return;
        }
        const std::uint32_t number = Numbers[Below(std::size(Numbers))];
        const std::size_t count = std::min(bytes.size() - place, std::size_t{1} << Below(3));
        for (std::size_t i = 0; i < count; ++i)
        {
            bytes[place + i] = number >> (8 * i) & 0xFF;
        }
    }

    // Mostly a piece, each as likely as any other, however long it is: one begins after every separator.
    std::pair<std::size_t, std::size_t> Part(const std::wstring& text)
    {
        std::size_t begin = Below(text.size() + 1);
        if (m_harness.form == Form::Bytes || OneIn(4))
        {
            return {begin, Below(std::min<std::size_t>(text.size() - begin, OneIn(4) ? text.size() : 8) + 1)};
        }
        while (begin > 0 && !IsSeparator(text[begin - 1]))
        {
            begin = Below(text.size() + 1);
        }
        const std::size_t end = text.find_first_of(m_harness.separators, begin);
        return {begin, std::min(end, text.size()) - begin};
    }

    // The piece in the same place of another line, empty where that line has fewer.
    std::wstring Counterpart(const std::wstring& text, std::size_t begin)
    {
        const auto lineOf = [&text](std::size_t place) { return place == 0 ? 0 : text.rfind(L'\n', place - 1) + 1; };
        const auto endOf = [&](std::size_t place)
        { return std::min(text.find_first_of(m_harness.separators, place), text.size()); };
        std::size_t place = lineOf(Below(text.size() + 1));
        for (std::size_t before = lineOf(begin); endOf(before) < begin; before = endOf(before) + 1)
        {
            place = endOf(place);
            if (place == text.size() || text[place] == L'\n')
            {
                return {};
            }
            ++place;
        }
        return text.substr(place, endOf(place) - place);
    }

    const std::wstring& Word()
    {
        const std::vector<std::wstring>& words = OneIn(3) ? m_hostileTokens : m_words;
        return words[Below(words.size())];
    }

    wchar_t UnitOfChance()
    {
        constexpr std::wstring_view usual = L"0123456789aAxX|%I\"-+ \t\r\n\0.:/\\,;=#"sv;
        switch (Below(4))
        {
        case 0:
            if (!m_harness.separators.empty())
            {
                return m_harness.separators[Below(m_harness.separators.size())];
            }
            [[fallthrough]];
        case 1:
            return static_cast<wchar_t>(m_random() & (m_harness.form == Form::Utf16 ? 0xFFFF : 0xFF));
        default:
            return usual[Below(usual.size())];
        }
    }

    std::size_t Below(std::size_t limit) { return m_random() % limit; }

    bool IsSeparator(wchar_t unit) const { return m_harness.separators.find(unit) != std::wstring_view::npos; }

    bool OneIn(std::size_t count) { return Below(count) == 0; }

    const Harness& m_harness;
    std::vector<std::wstring> m_words; // in units, as the tokens
    std::vector<std::wstring> m_hostileTokens;
    std::mt19937 m_random;
};

} // namespace Fuzz
