#include "suite/framework/RuleWords.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Framework;

namespace
{

using Words = std::vector<std::wstring>;

struct Spelling
{
    const wchar_t* text;
    const wchar_t* word;
};

constexpr Spelling Spellings[] = {
    {L"", L"-"},
    {L"-", L"\"-\""},
    {L"--", L"--"},
    {L"C:\\Windows\\a.exe", L"C:\\Windows\\a.exe"},
    {L"C:\\Program Files\\a.exe", L"\"C:\\Program Files\\a.exe\""},
    {L" ", L"\" \""},
    {L"\"", L"\"\"\"\""},
    {L"say \"a\"", L"\"say \"\"a\"\"\""},
    {L"50% off", L"\"50%% off\""},
    {L"%0041", L"%%0041"},
    {L"#1", L"#1"},
    {L"a=b", L"a=b"},
    {L"Правило", L"Правило"},
    {L"\xD83C\xDF89", L"\xD83C\xDF89"}, // both halves of a character
    {L"a\xD83Cz", L"a%D83Cz"},          // the first half alone
    {L"\xDF89\xD83C", L"%DF89%D83C"},   // in the wrong order
    {L"tab\tline\r\n", L"tab%0009line%000D%000A"},
    {L"\x202Ereversed", L"%202Ereversed"},
    {L"\xFEFF\xFFFF", L"%FEFF%FFFF"},
};

} // namespace

TEST(RuleWordsTest, EveryTextHasAWordThatIsReadAsTheText)
{
    for (const Spelling& spelling : Spellings)
    {
        EXPECT_EQ(WordOf(spelling.text), spelling.word);
        EXPECT_EQ(SplitWords(spelling.word), Words{spelling.text}) << spelling.word;
    }
}

TEST(RuleWordsTest, EveryUnitOfATextComesBack)
{
    constexpr unsigned many = 64;
    for (unsigned first = 0; first <= 0xFFFF; first += many)
    {
        std::wstring text;
        for (unsigned unit = std::max(first, 1u); unit < first + many; ++unit)
        {
            text += static_cast<wchar_t>(unit);
        }
        EXPECT_EQ(SplitWords(WordOf(text)), Words{text}) << first;
    }
}

TEST(RuleWordsTest, BlanksPartWordsAndAreNoWord)
{
    EXPECT_EQ(SplitWords(L""), Words());
    EXPECT_EQ(SplitWords(L" \t "), Words());
    EXPECT_EQ(SplitWords(L"\ta  \"b c\"\t- d"), (Words{L"a", L"b c", L"", L"d"}));
    EXPECT_EQ(SplitWords(L"\"\" \" \""), (Words{L"", L" "}));
}

TEST(RuleWordsTest, AQuoteInsideAWordIsALetterAndDigitsOfAUnitMayBeSmall)
{
    EXPECT_EQ(SplitWords(L"a\"b %20ac"), (Words{L"a\"b", L"\x20AC"}));
}

TEST(RuleWordsTest, WhatIsNoWordIsRefused)
{
    for (const wchar_t* const line :
         {L"\"a", L"\"", L"\"a\"\"", L"\"a\"b", L"%", L"100%", L"%0", L"%004", L"%0000", L"%00G0", L"\"% \"",
          L"%\x0130"
          L"041"})
    {
        EXPECT_THROW(SplitWords(line), BadLine) << line;
    }
}

// It was taken, and then written as %0000, which is refused: a list that was printed could not be loaded.
TEST(RuleWordsTest, ANulIsRefusedAsItsEscapeIs)
{
    using namespace std::string_view_literals;
    for (const std::wstring_view line : {L"\0"sv, L"a\0b"sv, L"\"a\0\""sv})
    {
        EXPECT_THROW(SplitWords(line), BadLine);
    }
}

TEST(RuleWordsTest, LettersOfEastAsiaAndPairsTakeTwoPlaces)
{
    EXPECT_EQ(WidthOf(L""), 0u);
    EXPECT_EQ(WidthOf(L"a Я"), 3u);
    EXPECT_EQ(WidthOf(L"写真 한"), 7u);
    EXPECT_EQ(WidthOf(L"\xD83C\xDF89!"), 3u);
}
