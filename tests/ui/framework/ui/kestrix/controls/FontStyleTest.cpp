#include "framework/ui/kestrix/controls/FontStyle.h"

#include "platform/dialog/ModuleState.h"
#include "platform/dialog/ResourceText.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

namespace
{

constexpr UINT StyleText = 77;

struct Style
{
    bool bold;
    bool italic;
    std::int32_t size;

    bool operator==(const Style&) const = default;

    friend void PrintTo(const Style& style, std::ostream* out)
    {
        *out << (style.bold ? "bold " : "") << (style.italic ? "italic " : "") << style.size;
    }
};

// What is read from a text, beginning with these values.
Style Read(const std::wstring& text, Style style)
{
    // Texts are kept after the first look; this one stands for that of the file until the file is closed.
    const_cast<std::wstring&>(LoadText(StyleText)) = text;
    CFontStyle().GetFontStyle(style.bold, style.italic, style.size);
    return style;
}

class FontStyleTest : public ::testing::Test
{
protected:
    // Whether a text changes nothing, whatever stood there before.
    static ::testing::AssertionResult IsRefused(const std::wstring& text)
    {
        for (const Style before : {Style{true, false, -3}, Style{false, true, 99}})
        {
            if (!(Read(text, before) == before))
            {
                return ::testing::AssertionFailure()
                       << "it was read as " << ::testing::PrintToString(Read(text, before));
            }
        }
        return ::testing::AssertionSuccess();
    }

    LanguageFile m_language;
};

} // namespace

TEST_F(FontStyleTest, TheStyleOfTheLanguageFileIsRead)
{
    Style style{false, true, 0};
    CFontStyle().GetFontStyle(style.bold, style.italic, style.size);
    const auto digit = [](bool value) { return value ? L"1," : L"0,"; };
    EXPECT_EQ(digit(style.bold) + std::wstring(digit(style.italic)) + std::to_wstring(style.size), Text(StyleText));
}

TEST_F(FontStyleTest, OneZeroTwelveIsBoldNotItalicAndOfSize12)
{
    EXPECT_EQ(Read(L"1,0,12", {false, true, 0}), (Style{true, false, 12}));
}

TEST_F(FontStyleTest, ADigitOtherThanZeroMeansYes)
{
    EXPECT_EQ(Read(L"0,9,8", {true, false, 0}), (Style{false, true, 8}));
    EXPECT_EQ(Read(L"7,2,8", {false, false, 0}), (Style{true, true, 8}));
}

TEST_F(FontStyleTest, TheSizeIsADecimalOfUpTo31Bits)
{
    EXPECT_EQ(Read(L"0,0,0", {true, true, 5}), (Style{false, false, 0}));
    EXPECT_EQ(Read(L"0,0,007", {true, true, 5}), (Style{false, false, 7}));
    EXPECT_EQ(Read(L"0,0,2147483647", {true, true, 5}), (Style{false, false, 2147483647}));
}

TEST_F(FontStyleTest, AnEmptyTextLeavesBoldItalicAndSizeUnchanged)
{
    EXPECT_TRUE(IsRefused(L""));
}

TEST_F(FontStyleTest, AMissingTextLeavesBoldItalicAndSizeUnchanged)
{
    AfxSetResourceHandle(nullptr); // the test program has no texts
    Style style{true, false, 9};
    CFontStyle().GetFontStyle(style.bold, style.italic, style.size);
    EXPECT_EQ(style, (Style{true, false, 9}));
}

TEST_F(FontStyleTest, ATextWhoseSecondCharacterIsNoCommaIsRefused)
{
    EXPECT_TRUE(IsRefused(L"12,0,9"));
    EXPECT_TRUE(IsRefused(L"1;0,9"));
}

TEST_F(FontStyleTest, ATextWhoseFourthCharacterIsNoCommaIsRefused)
{
    EXPECT_TRUE(IsRefused(L"1,10,9"));
    EXPECT_TRUE(IsRefused(L"1,0;9"));
    EXPECT_TRUE(IsRefused(L"1,,0,9"));
}

TEST_F(FontStyleTest, ATextThatEndsTooSoonIsRefused)
{
    for (const wchar_t* const text : {L"1", L"1,", L"1,0", L"1,0,"})
    {
        EXPECT_TRUE(IsRefused(text)) << text;
    }
}

TEST_F(FontStyleTest, ATextWithSomethingElseThanDigitsIsRefused)
{
    for (const wchar_t* const text : {L"x,0,9", L"1,x,9", L"1,0,x", L"1,0,9x", L"1,0,9,", L"1,0, 9", L" 1,0,9",
                                      L"1,0,-9", L"1,0,+9", L"1,0,9 ", L"\x0661,0,9", L"1,0,0x9"})
    {
        EXPECT_TRUE(IsRefused(text)) << text;
    }
    EXPECT_TRUE(IsRefused(std::wstring(L"1,0,9\0", 6)));
}

TEST_F(FontStyleTest, ASizeBeyond31BitsIsRefused)
{
    EXPECT_TRUE(IsRefused(L"1,0,2147483648"));
    EXPECT_TRUE(IsRefused(L"1,0,99999999999999999999"));
}
