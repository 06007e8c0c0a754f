// The parts of the skin fit each other and their use.

#include "resource/resource.h"
#include "tests/unit/resource/BuiltBitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace
{

constexpr COLORREF PlainWhite = RGB(255, 255, 255);
constexpr COLORREF Key = RGB(0, 255, 0);
constexpr unsigned Corners[] = {IDB_CORNER_TOP_LEFT, IDB_CORNER_TOP_RIGHT, IDB_CORNER_BOTTOM_LEFT,
                                IDB_CORNER_BOTTOM_RIGHT};
constexpr int ButtonBorder = 13;  // what the stretch of a button's face leaves as it is on each side
constexpr int CaptionButton = 26; // the smallest one
constexpr int LogIconSize = 16;

int CountOf(const Bitmap& bitmap, COLORREF colour)
{
    return static_cast<int>(std::ranges::count(bitmap.pixels, colour));
}

int BrightnessOf(COLORREF colour)
{
    return (GetRValue(colour) * 30 + GetGValue(colour) * 59 + GetBValue(colour) * 11) / 100;
}

// The pixels of an icon of the firewall log by their brightness alone.
std::vector<int> GreyIcon(const Bitmap& strip, int icon)
{
    std::vector<int> grey;
    for (int y = 0; y < LogIconSize; ++y)
    {
        for (int x = 0; x < LogIconSize; ++x)
        {
            grey.push_back(BrightnessOf(strip.At(icon * LogIconSize + x, y)));
        }
    }
    return grey;
}

// Whether a pixel belongs to the icon: its outline without colours and inner signs.
std::vector<bool> Outline(const Bitmap& strip, int icon)
{
    std::vector<bool> outline;
    for (const int grey : GreyIcon(strip, icon))
    {
        outline.push_back(grey < 255);
    }
    return outline;
}

template <class Values>
int Differences(const Values& one, const Values& other)
{
    int count = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
    {
        count += one[i] != other[i];
    }
    return count;
}

bool IsOneColour(const Bitmap& bitmap, const RECT& area)
{
    for (int y = area.top; y < area.bottom; ++y)
    {
        for (int x = area.left; x < area.right; ++x)
        {
            if (bitmap.At(x, y) != bitmap.At(area.left, area.top))
            {
                return false;
            }
        }
    }
    return true;
}

} // namespace

TEST(SkinFrame, AllPartsHave24Bits)
{
    for (const unsigned number : {IDB_FRAME_TOP, IDB_FRAME_LEFT, IDB_FRAME_RIGHT, IDB_FRAME_BOTTOM, IDB_BACKGROUND})
    {
        EXPECT_EQ(24, ReadBitmap(number).depth) << number;
    }
}

TEST(SkinFrame, BothSidesAreOfOneWidthWhichIsAlsoTheHeightOfTheBottom)
{
    const int width = ReadBitmap(IDB_FRAME_LEFT).width;
    EXPECT_EQ(width, ReadBitmap(IDB_FRAME_RIGHT).width);
    EXPECT_EQ(width, ReadBitmap(IDB_FRAME_BOTTOM).height);
}

TEST(SkinFrame, CornersAreOfOneSizeAndFillWhereSidesAndTopMeet)
{
    for (const unsigned number : Corners)
    {
        const Bitmap corner = ReadBitmap(number);
        EXPECT_EQ(24, corner.depth);
        EXPECT_EQ(ReadBitmap(IDB_FRAME_LEFT).width, corner.width) << number;
        EXPECT_EQ(ReadBitmap(IDB_FRAME_TOP).height, corner.height) << number;
    }
}

TEST(SkinFrame, StretchedPartsAreTheSameAllAlong)
{
    for (const unsigned number : {IDB_FRAME_TOP, IDB_FRAME_BOTTOM})
    {
        const Bitmap part = ReadBitmap(number);
        for (int y = 0; y < part.height; ++y)
        {
            EXPECT_TRUE(IsOneColour(part, {0, y, part.width, y + 1})) << number << " row " << y;
        }
    }
    for (const unsigned number : {IDB_FRAME_LEFT, IDB_FRAME_RIGHT})
    {
        const Bitmap part = ReadBitmap(number);
        for (int x = 0; x < part.width; ++x)
        {
            EXPECT_TRUE(IsOneColour(part, {x, 0, x + 1, part.height})) << number << " column " << x;
        }
    }
}

TEST(SkinFrame, TheTopIsDarkUnderAWhiteHeadingAndHigherThanItsButtons)
{
    const Bitmap top = ReadBitmap(IDB_FRAME_TOP);
    EXPECT_GE(top.height, CaptionButton + 4);
    EXPECT_GE(top.width, 640) << "a small dialog shows it unstretched";
    for (const COLORREF colour : std::set<COLORREF>(top.pixels.begin(), top.pixels.end()))
    {
        EXPECT_LT(BrightnessOf(colour), 80);
    }
}

TEST(SkinFrame, WhiteIsCutAwayAtTheOuterCornerAloneAndFromAllFourAlike)
{
    constexpr int Radius = 8;
    for (const unsigned number : Corners)
    {
        const Bitmap corner = ReadBitmap(number);
        const bool isLeft = number == IDB_CORNER_TOP_LEFT || number == IDB_CORNER_BOTTOM_LEFT;
        const bool isTop = number == IDB_CORNER_TOP_LEFT || number == IDB_CORNER_TOP_RIGHT;
        EXPECT_EQ(12, CountOf(corner, PlainWhite)) << number;
        for (int y = 0; y < corner.height; ++y)
        {
            for (int x = 0; x < corner.width; ++x)
            {
                const int outerX = isLeft ? x : corner.width - 1 - x;
                const int outerY = isTop ? y : corner.height - 1 - y;
                const bool isOutside = (2 * (Radius - outerX) - 1) * (2 * (Radius - outerX) - 1) +
                                           (2 * (Radius - outerY) - 1) * (2 * (Radius - outerY) - 1) >
                                       4 * Radius * Radius;
                const bool inCorner = outerX < Radius && outerY < Radius;
                EXPECT_EQ(inCorner && isOutside, corner.At(x, y) == PlainWhite) << number << " at " << x << ", " << y;
            }
        }
    }
}

TEST(SkinButtons, TheFaceHasCornersThatStayAndAMiddleToStretch)
{
    const Bitmap face = ReadBitmap(IDB_BUTTON_FACE);
    EXPECT_EQ(24, face.depth);
    EXPECT_GE(face.width, 2 * ButtonBorder + 1);
    EXPECT_GE(face.height, 2 * ButtonBorder + 1);
    for (int y = 0; y < face.height; ++y)
    {
        EXPECT_TRUE(IsOneColour(face, {ButtonBorder - 1, y, face.width - ButtonBorder + 1, y + 1})) << "row " << y;
    }
    for (int x = 0; x < face.width; ++x)
    {
        EXPECT_TRUE(IsOneColour(face, {x, ButtonBorder - 1, x + 1, face.height - ButtonBorder + 1})) << "column " << x;
    }
    EXPECT_GT(BrightnessOf(face.At(ButtonBorder, ButtonBorder)), 220) << "dark text stands on it";
}

TEST(SkinButtons, CaptionButtonsAreLargeEnoughAndOfOneSize)
{
    const Bitmap close = ReadBitmap(IDB_CLOSE);
    EXPECT_GE(close.width, 2 * ButtonBorder + 1);
    for (const unsigned number : {IDB_CLOSE, IDB_CLOSE_HOT, IDB_DIALOG_CLOSE_HOT, IDB_MINIMISE, IDB_MINIMISE_HOT})
    {
        EXPECT_EQ(close.width, ReadBitmap(number).width) << number;
        EXPECT_EQ(close.height, ReadBitmap(number).height) << number;
        EXPECT_EQ(24, ReadBitmap(number).depth) << number;
    }
}

TEST(SkinButtons, CaptionButtonsHaveTheKeyColourAroundTheirSignAndNoOtherGreen)
{
    for (const unsigned number : {IDB_CLOSE, IDB_MINIMISE})
    {
        const Bitmap button = ReadBitmap(number);
        EXPECT_EQ(Key, button.At(0, 0));
        EXPECT_GT(CountOf(button, Key), button.width * button.height / 2) << number;
        EXPECT_LT(CountOf(button, Key), button.width * button.height - 15) << number << " has no sign";
        for (const COLORREF colour : button.pixels)
        {
            const bool isGreenish = GetGValue(colour) > GetRValue(colour) + 60 && GetGValue(colour) > GetBValue(colour);
            EXPECT_EQ(colour == Key, isGreenish) << number << ": an edge is mixed with the key colour";
        }
    }
}

TEST(SkinButtons, HoverPicturesHoldNoKeyColour)
{
    for (const unsigned number : {IDB_CLOSE_HOT, IDB_DIALOG_CLOSE_HOT, IDB_MINIMISE_HOT, IDB_BUTTON_FACE})
    {
        EXPECT_EQ(0, CountOf(ReadBitmap(number), Key)) << number;
    }
}

TEST(SkinTabs, BothAreOfOneSizeAndToldApart)
{
    const Bitmap normal = ReadBitmap(IDB_TAB);
    const Bitmap selected = ReadBitmap(IDB_TAB_SELECTED);
    EXPECT_EQ(normal.width, selected.width);
    EXPECT_EQ(normal.height, selected.height);
    EXPECT_GT(Differences(normal.pixels, selected.pixels), normal.width * normal.height / 2);
    EXPECT_GT(BrightnessOf(normal.At(normal.width / 2, normal.height / 2)), 220) << "dark text stands on it";
    EXPECT_GT(BrightnessOf(selected.At(selected.width / 2, selected.height / 2)), 220);
}

TEST(FirewallIcons, AreFiveSquaresOf16PixelsAnd24Bits)
{
    const Bitmap strip = ReadBitmap(IDB_FIREWALL_ICONS);
    EXPECT_EQ(5 * LogIconSize, strip.width);
    EXPECT_EQ(LogIconSize, strip.height);
    EXPECT_EQ(24, strip.depth);
}

TEST(FirewallIcons, DifferInTheirOutlineAndWithoutTheirColours)
{
    const Bitmap strip = ReadBitmap(IDB_FIREWALL_ICONS);
    for (int one = 0; one < 5; ++one)
    {
        for (int other = one + 1; other < 5; ++other)
        {
            EXPECT_GE(Differences(Outline(strip, one), Outline(strip, other)), 20) << one << " and " << other;
            EXPECT_GE(Differences(GreyIcon(strip, one), GreyIcon(strip, other)), 60) << one << " and " << other;
        }
    }
}

TEST(FirewallIcons, AreNotFilledToTheEdgeOfTheirSquare)
{
    const Bitmap strip = ReadBitmap(IDB_FIREWALL_ICONS);
    for (int icon = 0; icon < 5; ++icon)
    {
        EXPECT_EQ(PlainWhite, strip.At(icon * LogIconSize, 0)) << icon;
        EXPECT_NE(PlainWhite, strip.At(icon * LogIconSize + LogIconSize / 2, LogIconSize / 2)) << icon;
    }
}
