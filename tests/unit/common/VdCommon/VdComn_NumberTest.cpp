#include "common/VdCommon/VdComn_Number.h"

#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using VdCommon::WideToInteger;
using VdCommon::WideToUnsigned;

constexpr int Bases[] = {0, 10, 16};

std::string Shown(const std::wstring& text)
{
    return ::testing::PrintToString(text);
}

void CompareWithLibrary(const std::wstring& text)
{
    ASSERT_EQ(static_cast<std::uint32_t>(WideToInteger(text)), Plain::Number(text)) << Shown(text);
    for (const int base : Bases)
    {
        ASSERT_EQ(WideToUnsigned(text, base), Plain::NarrowedNumber(text, base)) << Shown(text) << " base " << base;
    }
}

TEST(WideToInteger, EmptyTextAndTextWithoutDigitAreZero)
{
    for (const wchar_t* const text : {L"", L" ", L"-", L"+", L"abc", L"-x", L"+-5", L"- 5", L"|7"})
    {
        EXPECT_EQ(WideToInteger(text), 0) << Shown(text);
    }
}

TEST(WideToInteger, StopsAtTheFirstWrongCharacter)
{
    EXPECT_EQ(WideToInteger(L"12ab34"), 12);
    EXPECT_EQ(WideToInteger(L"0x10"), 0);
    EXPECT_EQ(WideToInteger(L"7.9"), 7);
    EXPECT_EQ(WideToInteger(std::wstring_view(L"1\0002", 3)), 1);
}

TEST(WideToInteger, LeadingWhiteSpaceAndSign)
{
    EXPECT_EQ(WideToInteger(L" \t\n\v\f\r42"), 42);
    EXPECT_EQ(WideToInteger(L"  -42"), -42);
    EXPECT_EQ(WideToInteger(L"+42"), 42);
    EXPECT_EQ(WideToInteger(L"000000000000000000042"), 42);
}

TEST(WideToInteger, OutOfRangeBecomesTheNearestInRange)
{
    EXPECT_EQ(WideToInteger(L"2147483647"), INT32_MAX);
    EXPECT_EQ(WideToInteger(L"2147483648"), INT32_MAX);
    EXPECT_EQ(WideToInteger(L"4294967297"), INT32_MAX);
    EXPECT_EQ(WideToInteger(L"99999999999999999999999999999999"), INT32_MAX);
    EXPECT_EQ(WideToInteger(L"-2147483648"), INT32_MIN);
    EXPECT_EQ(WideToInteger(L"-2147483649"), INT32_MIN);
    EXPECT_EQ(WideToInteger(L"-99999999999999999999999999999999"), INT32_MIN);
}

TEST(WideToInteger, FieldOfALineEndsWhereItEnds)
{
    const std::wstring_view line = L"1234567";
    EXPECT_EQ(WideToInteger(line.substr(2, 3)), 345);
}

TEST(WideToUnsigned, PrefixTellsTheBase)
{
    EXPECT_EQ(WideToUnsigned(L"0x1F", 0), 0x1Fu);
    EXPECT_EQ(WideToUnsigned(L"0X1f", 16), 0x1Fu);
    EXPECT_EQ(WideToUnsigned(L"1f", 16), 0x1Fu);
    EXPECT_EQ(WideToUnsigned(L"017", 0), 15u);
    EXPECT_EQ(WideToUnsigned(L"08", 0), 0u);
    EXPECT_EQ(WideToUnsigned(L"17", 0), 17u);
    EXPECT_EQ(WideToUnsigned(L"017", 10), 17u);
    EXPECT_EQ(WideToUnsigned(L"0x17", 10), 0u);
    EXPECT_EQ(WideToUnsigned(L" -0x10", 0), 0xFFFFFFF0u);
}

TEST(WideToUnsigned, PrefixWithoutDigitsIsZero)
{
    for (const int base : Bases)
    {
        EXPECT_EQ(WideToUnsigned(L"0x", base), 0u);
        EXPECT_EQ(WideToUnsigned(L"0xg", base), 0u);
        EXPECT_EQ(WideToUnsigned(L"x1", base), 0u);
        EXPECT_EQ(WideToUnsigned(L"", base), 0u);
        EXPECT_EQ(WideToUnsigned(L"0", base), 0u);
    }
}

TEST(WideToUnsigned, MinusNegates)
{
    EXPECT_EQ(WideToUnsigned(L"-1", 10), 0xFFFFFFFFu);
    EXPECT_EQ(WideToUnsigned(L"-4294967295", 10), 1u);
}

TEST(WideToUnsigned, TooLargeBecomesTheLargest)
{
    EXPECT_EQ(WideToUnsigned(L"4294967295", 10), 0xFFFFFFFFu);
    EXPECT_EQ(WideToUnsigned(L"4294967296", 10), 0xFFFFFFFFu);
    EXPECT_EQ(WideToUnsigned(L"123456789012345678901234567890", 10), 0xFFFFFFFFu);
    EXPECT_EQ(WideToUnsigned(L"0x100000000", 0), 0xFFFFFFFFu);
}

TEST(WideToUnsigned, FieldOfALineEndsWhereItEnds)
{
    const std::wstring_view line = L"0x123456";
    EXPECT_EQ(WideToUnsigned(line.substr(0, 4), 16), 0x12u);
    EXPECT_EQ(WideToUnsigned(line.substr(0, 1), 0), 0u);
    EXPECT_EQ(WideToUnsigned(line.substr(0, 2), 0), 0u);
}

TEST(Numbers, AgreeWithTheCLibraryAtTheEdges)
{
    const std::vector<std::wstring> numbers{L"0",
                                            L"1",
                                            L"9",
                                            L"10",
                                            L"007",
                                            L"2147483646",
                                            L"2147483647",
                                            L"2147483648",
                                            L"4294967294",
                                            L"4294967295",
                                            L"4294967296",
                                            L"4294967297",
                                            L"0xFFFFFFFF",
                                            L"0x100000000",
                                            L"0x7fffffff",
                                            L"037777777777",
                                            L"040000000000",
                                            L"9223372036854775807",
                                            L"9223372036854775808",
                                            L"18446744073709551615",
                                            L"18446744073709551616",
                                            L"99999999999999999999999",
                                            L"ffffffff",
                                            L"g",
                                            L"0x",
                                            L"0xx1",
                                            L"00x1",
                                            L"1e5",
                                            L"1 2",
                                            L"\x0661\x0662",
                                            L"\xFF11\xFF12"};
    for (const std::wstring& number : numbers)
    {
        for (const wchar_t* const front :
             {L"", L"-", L"+", L" ", L" -", L"\t+", L"--", L"+-", L"- ", L"\x00A0", L"\x3000"})
        {
            for (const wchar_t* const behind : {L"", L" ", L"x", L"|1"})
            {
                CompareWithLibrary(front + number + behind);
            }
        }
    }
}

TEST(Numbers, AgreeWithTheCLibraryForEveryCharacterAroundADigit)
{
    for (unsigned code = 1; code <= 0xFFFF; ++code)
    {
        const std::wstring c(1, static_cast<wchar_t>(code));
        CompareWithLibrary(c + L"7");
        CompareWithLibrary(L"7" + c + L"3");
        if (HasFatalFailure())
        {
            FAIL() << std::hex << code;
        }
    }
}

} // namespace
