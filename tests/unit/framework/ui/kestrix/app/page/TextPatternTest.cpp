#include "framework/ui/kestrix/app/page/TextPattern.h"

#include "tests/support/Seed.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace
{

using namespace std::string_view_literals;

constexpr bool AnyCase = false;
constexpr bool SameCase = true;
constexpr bool AnyWhere = false;
constexpr bool WholeWords = true;

bool Has(std::wstring_view text, std::wstring_view pattern, bool matchCase = AnyCase, bool wholeWords = AnyWhere)
{
    return TextPattern(pattern, matchCase, wholeWords).IsIn(text);
}

// The plain search: at each place, as the system compares, and with the system's own letters and digits.
bool IsOfWord(wchar_t c)
{
    return ::IsCharAlphaNumericW(c) || c == L'_' || (c >= 0xD800 && c <= 0xDFFF);
}

bool IsBoundary(const std::wstring& text, std::size_t place)
{
    return place == 0 || place == text.size() || !IsOfWord(text[place - 1]) || !IsOfWord(text[place]);
}

bool HasPlainly(const std::wstring& text, const std::wstring& pattern, bool matchCase, bool wholeWords)
{
    const auto length = static_cast<int>(pattern.size());
    for (std::size_t place = 0; length != 0 && place + pattern.size() <= text.size(); ++place)
    {
        if (::CompareStringOrdinal(&text[place], length, pattern.data(), length, !matchCase) == CSTR_EQUAL &&
            (!wholeWords || (IsBoundary(text, place) && IsBoundary(text, place + pattern.size()))))
        {
            return true;
        }
    }
    return false;
}

// Each character as a capital letter.
std::wstring Capitals()
{
    std::wstring letters(0x10000, L'\0');
    std::iota(letters.begin(), letters.end(), L'\0');
    ::CharUpperBuffW(letters.data(), static_cast<DWORD>(letters.size()));
    return letters;
}

std::wstring RandomText(std::mt19937& random, std::size_t longest)
{
    static constexpr std::wstring_view letters = L"abAB _.1\x00E4\x00C4\x03C3\x03C2\x03A3\x6F22\xD83D\xDE00\0"sv;
    std::wstring text(std::uniform_int_distribution<std::size_t>(0, longest)(random), L'\0');
    for (wchar_t& c : text)
    {
        c = letters[std::uniform_int_distribution<std::size_t>(0, letters.size() - 1)(random)];
    }
    return text;
}

} // namespace

TEST(TextPattern, FindsAPartOfATextWhereverItStands)
{
    const TextPattern there(L"worm", AnyCase, AnyWhere);
    const TextPattern nowhere(L"wurm", AnyCase, AnyWhere);
    for (std::size_t before = 0; before < 40; ++before)
    {
        for (std::size_t after = 0; after < 20; ++after)
        {
            const std::wstring text = std::wstring(before, L'w') + L"Worm" + std::wstring(after, L'o');
            EXPECT_TRUE(there.IsIn(text)) << before << ' ' << after;
            EXPECT_FALSE(nowhere.IsIn(text)) << before << ' ' << after;
        }
    }
}

TEST(TextPattern, TheEmptyTextIsNowhere)
{
    EXPECT_FALSE(Has(L"text", L""));
    EXPECT_FALSE(Has(L"", L""));
    EXPECT_FALSE(Has(L"", L"a"));
}

TEST(TextPattern, ATextLongerThanTheOneItIsLookedForInIsNotThere)
{
    EXPECT_TRUE(Has(L"a.exe", L"a.exe"));
    EXPECT_FALSE(Has(L"a.exe", L"a.exe "));
    EXPECT_FALSE(Has(L"a.exe", std::wstring(1'000, L'a')));
}

TEST(TextPattern, ABeginningThatComesTwiceIsFollowedBothTimes)
{
    EXPECT_TRUE(Has(L"ababac", L"abac"));
    EXPECT_TRUE(Has(L"aaaaaaaaaaaaaaaaaaab", L"aab"));
}

TEST(TextPattern, CaseCountsWhenItIsToCount)
{
    const struct
    {
        std::wstring_view text;
        std::wstring_view pattern;
    } pairs[] = {
        {L"Trojan", L"trojan"}, {L"trojan", L"TROJAN"}, {L"\x00C4nderung", L"\x00E4nderung"},
        {L"\x0416", L"\x0436"}, {L"\xFF21", L"\xFF41"},
    };

    for (const auto& pair : pairs)
    {
        EXPECT_TRUE(Has(pair.text, pair.pattern)) << testing::PrintToString(std::wstring(pair.pattern));
        EXPECT_FALSE(Has(pair.text, pair.pattern, SameCase)) << testing::PrintToString(std::wstring(pair.pattern));
        EXPECT_TRUE(Has(pair.text, pair.text, SameCase));
    }
}

// In Turkish the capital of i has a dot; a text is found in the same way wherever it is read.
TEST(TextPattern, TheLanguageOfTheUserDoesNotMatter)
{
    EXPECT_TRUE(Has(L"FILE", L"file"));
    EXPECT_FALSE(Has(L"F\x0130LE", L"file"));
    EXPECT_FALSE(Has(L"Stra\x00DF"
                     L"e",
                     L"strasse"));
}

TEST(TextPattern, EveryCharacterEqualsThoseThatTheSystemTakesForTheSame)
{
    const std::wstring capitals = Capitals();
    for (std::size_t code = 1; code < capitals.size(); ++code)
    {
        const auto c = static_cast<wchar_t>(code);
        EXPECT_EQ(::CompareStringOrdinal(&c, 1, &capitals[code], 1, TRUE), CSTR_EQUAL) << code;
    }
}

// Two forms at most are looked for in another way than three; the system under these tests knows none of three.
TEST(TextPattern, ALetterAtTheBeginningIsFoundInEachOfItsForms)
{
    const std::wstring capitals = Capitals();
    std::vector<std::wstring> forms(capitals.size()); // of each capital letter
    for (std::size_t c = 1; c < capitals.size(); ++c)
    {
        forms[capitals[c]] += static_cast<wchar_t>(c);
    }
    int number = 0;
    for (std::size_t capital = 0; capital < forms.size(); ++capital)
    {
        if (forms[capital].size() < 2 || (forms[capital].size() == 2 && ++number % 200 != 0))
        {
            continue; // making a pattern takes a moment
        }
        const TextPattern pattern(std::wstring{static_cast<wchar_t>(capital), L'x'}, AnyCase, AnyWhere);
        for (const wchar_t form : forms[capital])
        {
            EXPECT_TRUE(pattern.IsIn(std::wstring(12, L'.') + form + L'X')) << unsigned{form};
        }
    }
    EXPECT_GT(number, 500);
}

TEST(TextPattern, ACharacterOfTwoHalvesIsFoundAsAWhole)
{
    EXPECT_TRUE(Has(L"a \xD83D\xDE00 b", L"\xD83D\xDE00"));
    EXPECT_FALSE(Has(L"a \xD83D\xDE01 b", L"\xD83D\xDE00"));
    EXPECT_TRUE(Has(L"\xD842\xDFB7\x91CE", L"\xD842\xDFB7\x91CE", AnyCase, WholeWords));
    EXPECT_FALSE(Has(L"\xD842\xDFB7\x91CE", L"\x91CE", AnyCase, WholeWords)) << "its other character is of the word";
}

TEST(TextPattern, AWholeWordHasNoLetterDigitOrUnderlineBesideIt)
{
    const struct
    {
        std::wstring_view text;
        bool isThere;
    } texts[] = {
        {L"worm", true},        {L"a worm", true},      {L"worm.b", true},     {L"C:\\worm\\", true},
        {L"\"worm\"", true},    {L"worms", false},      {L"bookworm", false},  {L"worm_1", false},
        {L"2worm", false},      {L"\x00E4worm", false}, {L"worms worm", true}, {L"bookworm-worm", true},
        {L"worm\x6F22", false},
    };

    for (const auto& text : texts)
    {
        EXPECT_EQ(Has(text.text, L"worm", AnyCase, WholeWords), text.isThere)
            << testing::PrintToString(std::wstring(text.text));
    }
}

TEST(TextPattern, WhatBeginsOrEndsInNoLetterIsAWholeWordBesideLetters)
{
    EXPECT_TRUE(Has(L"C:\\dir", L"C:\\", AnyCase, WholeWords));
    EXPECT_TRUE(Has(L"a.exe", L".exe", AnyCase, WholeWords));
    EXPECT_FALSE(Has(L"a.exes", L".exe", AnyCase, WholeWords));
}

TEST(TextPattern, RandomTextsAreFoundAsByThePlainSearch)
{
    std::mt19937 random(Seed());
    int found = 0;
    for (int i = 0; i < 100; ++i)
    {
        const std::wstring wanted = RandomText(random, 3);
        const bool matchCase = (i & 1) != 0;
        const bool wholeWords = (i & 2) != 0;
        const TextPattern pattern(wanted, matchCase, wholeWords);
        for (int j = 0; j < 200; ++j)
        {
            const std::wstring text = RandomText(random, 30);
            const bool expected = HasPlainly(text, wanted, matchCase, wholeWords);
            found += expected ? 1 : 0;
            ASSERT_EQ(pattern.IsIn(text), expected) << testing::PrintToString(text) << ' '
                                                    << testing::PrintToString(wanted) << ' ' << matchCase << wholeWords;
        }
    }
    EXPECT_GT(found, 1'000);
}
