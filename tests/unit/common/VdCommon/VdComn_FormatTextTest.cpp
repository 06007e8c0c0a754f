// Texts of the language file whose places do not fit the values. Such a text once went to the C library as it was: a
// click on the link of a threat read arguments that nobody had given, and the viewer was gone.

#include "common/VdCommon/VdComn_FormatText.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using VdCommon::String::FormatDate;
using VdCommon::String::FormatText;
using VdCommon::String::TextArgument;

struct Case
{
    std::wstring_view text;
    TextArgument argument;
    std::wstring_view expected;
};

void ExpectAll(std::initializer_list<Case> cases)
{
    for (const Case& each : cases)
    {
        EXPECT_EQ(FormatText(each.text, {each.argument}), each.expected) << ::testing::PrintToString(each.text);
    }
}

std::tm AFriday()
{
    std::tm date{};
    date.tm_year = 2026 - 1900;
    date.tm_mon = 10;
    date.tm_mday = 20;
    date.tm_wday = 5;
    return date;
}

constexpr std::uint32_t Largest = 4'294'967'295;

} // namespace

TEST(FormatText, ConversionsThatFitAreWrittenAsByPrintf)
{
    ExpectAll({
        {L"Target: %s", L"C:\\a", L"Target: C:\\a"},
        {L"%5s|", L"ab", L"   ab|"},
        {L"%-5s|", L"ab", L"ab   |"},
        {L"%.1s|", L"ab", L"a|"},
        {L"ICMP type %d", -1, L"ICMP type -1"},
        {L"%+04i", 7, L"+007"},
        {L"%u KB", Largest, L"4294967295 KB"},
        {L"%#x %%", 255u, L"0xff %"},
        {L"%3.2u", 1u, L" 01"},
    });
}

TEST(FormatText, ArgumentsStandInTheOrderOfTheirPlaces)
{
    EXPECT_EQ(FormatText(L"%u events since %s", {3u, L"today"}), L"3 events since today");
    EXPECT_EQ(FormatText(L"since %s: %u", {3u, L"today"}), L"since 3: today") << "told apart by nothing but the order";
}

TEST(FormatText, APlaceOfAnotherKindTakesTheArgumentAsItIs)
{
    ExpectAll({
        {L"<%d>", L"name", L"<name>"},
        {L"<%n>", L"name", L"<name>"},
        {L"<%c>", L"name", L"<name>"},
        {L"<%S>", L"name", L"<name>"},
        {L"<%hs>", L"name", L"<name>"},
        {L"<%p>", L"name", L"<name>"},
        {L"<%s>", -7, L"<-7>"},
        {L"<%5s>", Largest, L"<4294967295>"},
        {L"<%f>", 7u, L"<7>"},
        {L"<%I64d>", -7, L"<-7>"},
        {L"<%lld>", -7, L"<-7>"},
        {L"<%n>", 7u, L"<7>"},
    });
}

TEST(FormatText, PlacesWithoutAnArgumentBecomeNothing)
{
    EXPECT_EQ(FormatText(L"name=%s%s%n%d", {L"worm"}), L"name=worm");
    EXPECT_EQ(FormatText(L"%s%s", {}), L"");
}

TEST(FormatText, ArgumentsWithoutAPlaceAreLeftOut)
{
    EXPECT_EQ(FormatText(L"Viruses", {7u}), L"Viruses");
    EXPECT_EQ(FormatText(L"%u events", {7u, L"today"}), L"7 events");
    EXPECT_EQ(FormatText(L"", {7u}), L"");
}

TEST(FormatText, PositionsAndWidthsAmongTheArgumentsTakeTheNextArgumentAsItIs)
{
    ExpectAll({
        {L"<%1$s>", L"name", L"<name>"},
        {L"<%2$d>", 7, L"<7>"},
        {L"<%*d>", 7, L"<7>"},
        {L"<%.*s>", L"name", L"<name>"},
        {L"<%-*.*s>", L"name", L"<name>"},
    });
}

// The room for a text grows with it, so that a width of all digits would take minutes and all memory.
TEST(FormatText, AWidthOrPrecisionOfMoreThanTwoDigitsIsNone)
{
    ExpectAll({
        {L"<%999999999d>", 7, L"<7>"},
        {L"<%.999999999d>", 7, L"<7>"},
        {L"<%100s>", L"name", L"<name>"},
        {L"<%100.1s>", L"name", L"<name>"},
    });
    EXPECT_EQ(FormatText(L"%99s", {L"x"}).size(), 99u);
}

TEST(FormatText, APercentSignThatConvertsNothingStays)
{
    ExpectAll({
        {L"100%", L"name", L"100%"},
        {L"%", L"name", L"%"},
        {L"%5", L"name", L"%5"},
        {L"%\x00E4 %s", L"name", L"%\x00E4 name"},
        {L"%%s", L"name", L"%s"},
        {L"%%%s%%", L"name", L"%name%"},
    });
}

TEST(FormatText, PercentSignsOfAnArgumentAreItsOwn)
{
    ExpectAll({{L"<%s>", L"%s%n", L"<%s%n>"}});
}

TEST(FormatText, LongTextsComeOutWhole)
{
    const std::wstring name(5000, L'n');
    EXPECT_EQ(FormatText(L"<%s>", {name}), L"<" + name + L">");
}

TEST(FormatDate, ThePatternOfTheLanguageFileIsTaken)
{
    EXPECT_EQ(FormatDate(L"%d.%m.%Y", AFriday()), L"20.11.2026");
    EXPECT_EQ(FormatDate(L"%d%%", AFriday()), L"20%");
}

// The C library ends the process for them, or writes nothing.
TEST(FormatDate, APatternThatCannotBeUsedGivesTheDateInTheFormOfIso8601)
{
    for (const std::wstring& pattern :
         {std::wstring(L"%"), std::wstring(L"%d %"), std::wstring(L"%Q"), std::wstring(L"%s"), std::wstring(L"%5d"),
          std::wstring(L"%#d"), std::wstring(L"%n"), std::wstring(L"%%%"), std::wstring(), std::wstring(128, L'x')})
    {
        EXPECT_EQ(FormatDate(pattern, AFriday()), L"2026-11-20") << ::testing::PrintToString(pattern);
    }
    EXPECT_EQ(FormatDate(std::wstring(127, L'x'), AFriday()), std::wstring(127, L'x'));
}
