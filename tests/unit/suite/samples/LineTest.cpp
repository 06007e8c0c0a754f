#include "suite/samples/Line.h"

#include "tests/unit/suite/samples/SampleFiles.h"

namespace Samples
{

TEST(LineTest, FieldsAreSeparatedByBars)
{
    Line line;
    line.Text(L"a").Number(-1056964606).Hexadecimal(0x10000000).Text(L"b");
    EXPECT_EQ(line.Whole(), L"a|-1056964606|0x10000000|b");
}

TEST(LineTest, EmptyFieldsKeepTheirPlaceAtBothEndsAndInTheMiddle)
{
    Line line;
    line.Empty().Text(L"a").Empty().Text(L"b").Empty();
    EXPECT_EQ(line.Whole(), L"|a||b|");
}

TEST(LineTest, DateAndTimeAreDigitsWithoutSeparators)
{
    using namespace std::chrono;
    Line line;
    line.Day(year(2024) / February / 29).Time(0).Time(9 * 3600 + 5 * 60 + 7).Time(86399);
    EXPECT_EQ(line.Whole(), L"20240229|000000|090507|235959");
    EXPECT_EQ(DateText(year(987) / January / 2), L"09870102");
}

TEST(LineTest, ClearStartsANewLine)
{
    Line line;
    line.Text(L"a").Text(L"b").Clear();
    line.Text(L"c");
    EXPECT_EQ(line.Whole(), L"c");
}

TEST(LineTest, EscapedFieldsHoldNoBarAndDoubledPercentSigns)
{
    EXPECT_EQ(Escape(L""), L"");
    EXPECT_EQ(Escape(L"a|b"), L"a%Ib");
    EXPECT_EQ(Escape(L"50%"), L"50%%");
    EXPECT_EQ(Escape(L"%I|%%"), L"%%I%I%%%%");
    Line line;
    line.Escaped(L"|").Text(L"%").Escaped(L"%");
    EXPECT_EQ(line.Whole(), L"%I|%|%%");
}

TEST(LineTest, EscapedTextComesBackWhole)
{
    for (const std::wstring text : {L"", L"|", L"%", L"%I", L"%%I", L"||%%", L"a|b%Ic%%d", L"счёт|🎉 50%"})
    {
        EXPECT_EQ(Unescape(Escape(text)), text);
    }
}

} // namespace Samples
