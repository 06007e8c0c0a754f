#include "common/VdCommon/VdComn_DelimiterChanger.h"

#include <gtest/gtest.h>

namespace
{

using VdCommon::DelimiterChanger;

std::wstring Decoded(std::wstring_view text)
{
    std::wstring out = L"before";
    EXPECT_EQ(DelimiterChanger().Decode(out, text), 0);
    return out;
}

TEST(DelimiterChanger, EmptyTextGivesMinus1AndLeavesTheOutput)
{
    std::wstring out = L"before";
    EXPECT_EQ(DelimiterChanger().Decode(out, L""), -1);
    EXPECT_EQ(out, L"before");
}

TEST(DelimiterChanger, TextWithoutEscapeIsCopied)
{
    EXPECT_EQ(Decoded(L"C:\\folder|file \x0416"), L"C:\\folder|file \x0416");
}

TEST(DelimiterChanger, SeparatorEscapeBetweenLetters)
{
    EXPECT_EQ(Decoded(L"a%Ib"), L"a|b");
}

TEST(DelimiterChanger, DoubledMarkBehindADigit)
{
    EXPECT_EQ(Decoded(L"5%%"), L"5%");
}

TEST(DelimiterChanger, EscapesOfBothKindsInARow)
{
    EXPECT_EQ(Decoded(L"%I%%%I%%%%"), L"|%|%%");
}

TEST(DelimiterChanger, SmallIIsNoEscape)
{
    EXPECT_EQ(Decoded(L"a%ib"), L"aib");
}

TEST(DelimiterChanger, BrokenEscapeAsTheFirstIsRemovedAndTheCharacterBehindStays)
{
    EXPECT_EQ(Decoded(L"a%xb"), L"axb");
    EXPECT_EQ(Decoded(L"%x%yz"), L"xyz");
}

TEST(DelimiterChanger, BrokenEscapeBehindASeparatorGivesTheSeparatorAgain)
{
    // The stale replacement also swallows the character after the mark.
    EXPECT_EQ(Decoded(L"a%Ib%xc"), L"a|b|c");
}

TEST(DelimiterChanger, BrokenEscapeBehindADoubledMarkGivesTheMarkAgain)
{
    EXPECT_EQ(Decoded(L"a%%b%xc%yd"), L"a%b%c%d");
}

TEST(DelimiterChanger, LastGoodEscapeIsTheOneRepeated)
{
    EXPECT_EQ(Decoded(L"%%%I%x."), L"%||.");
}

TEST(DelimiterChanger, MarkAtTheVeryEndIsDropped)
{
    EXPECT_EQ(Decoded(L"abc%"), L"abc");
    EXPECT_EQ(Decoded(L"%"), L"");
}

TEST(DelimiterChanger, MarkAtTheVeryEndIsDroppedBehindAGoodEscapeToo)
{
    EXPECT_EQ(Decoded(L"a%Ib%"), L"a|b");
    EXPECT_EQ(Decoded(L"%%%"), L"%");
}

TEST(DelimiterChanger, ReplacementIsForgottenBetweenCalls)
{
    const DelimiterChanger changer;
    std::wstring out;
    EXPECT_EQ(changer.Decode(out, L"%I"), 0);
    EXPECT_EQ(changer.Decode(out, L"%x"), 0);
    EXPECT_EQ(out, L"x");
}

TEST(DelimiterChanger, OutputKeepsItsMemoryFromFieldToField)
{
    const DelimiterChanger changer;
    std::wstring out(200, L' ');
    const std::size_t room = out.capacity();
    EXPECT_EQ(changer.Decode(out, L"a field of the usual length, with %I and %% in it"), 0);
    EXPECT_EQ(out.capacity(), room);
    EXPECT_EQ(out, L"a field of the usual length, with | and % in it");
}

TEST(DelimiterChanger, TextThatIsPartOfALineEndsWhereItEnds)
{
    const std::wstring_view line = L"one%|two%I";
    EXPECT_EQ(Decoded(line.substr(0, 4)), L"one");
}

} // namespace
