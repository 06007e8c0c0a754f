#include "framework/ui/kestrix/logs/TokenReaders.h"

#include <gtest/gtest.h>

TEST(TokenReadersTest, TheClockTextIsHoursAndMinutesOfATimeToken)
{
    EXPECT_EQ(ClockText(L"103015"), L"10:30");
    EXPECT_EQ(ClockText(L"0005"), L"00:05");
    EXPECT_EQ(ClockText(L"ab|cd"), L"ab:|c");
}

TEST(TokenReadersTest, AShortTimeTokenLeavesOutWhatItLacks)
{
    EXPECT_EQ(ClockText(L"103"), L"10:3");
    EXPECT_EQ(ClockText(L"10"), L"10:");
    EXPECT_EQ(ClockText(L"1"), L"1:");
    EXPECT_EQ(ClockText(L""), L":");
}

TEST(TokenReadersTest, ACodeIsTheNumberAtTheStartAndANegativeOneWraps)
{
    EXPECT_EQ(CodeOf(L"12"), 12u);
    EXPECT_EQ(CodeOf(L" 7x"), 7u);
    EXPECT_EQ(CodeOf(L"text"), 0u);
    EXPECT_EQ(CodeOf(L"-1"), 0xFFFFFFFFu);
    EXPECT_EQ(CodeOf(L"4294967295"), 0x7FFFFFFFu) << "the conversion is signed and saturates";
}

TEST(TokenReadersTest, AnEscapedTokenBecomesPlainAndAnEmptyOneEmpty)
{
    std::wstring text = L"before";
    Unescape(L"a%Ib%%", text);
    EXPECT_EQ(text, L"a|b%");
    Unescape(L"", text);
    EXPECT_EQ(text, L"");
}

TEST(TokenReadersTest, ABoundedTokenKeepsThatManyCharacters)
{
    EXPECT_EQ(Bounded(L"abcdef", 3), L"abc");
    EXPECT_EQ(Bounded(L"abc", 3), L"abc");
    EXPECT_EQ(Bounded(L"", 3), L"");
}
