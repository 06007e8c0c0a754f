#include "resource/resource.h"
#include "tests/unit/resource/BuiltBitmap.h"
#include "tests/unit/resource/BuiltFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace
{

constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Black = RGB(0, 0, 0);
constexpr int ListIconSize = 16;
constexpr int LogIcons = 6;

int Brightness(COLORREF colour)
{
    return (GetRValue(colour) * 30 + GetGValue(colour) * 59 + GetBValue(colour) * 11) / 100;
}

// The drawing of one log icon without its colours: what is dark, pixel by pixel.
std::vector<bool> Shape(const Bitmap& strip, int icon)
{
    std::vector<bool> dark;
    for (int y = 0; y < ListIconSize; ++y)
    {
        for (int x = 0; x < ListIconSize; ++x)
        {
            dark.push_back(Brightness(strip.At(icon * ListIconSize + x, y)) < 190);
        }
    }
    return dark;
}

bool TouchesTheMask(const Bitmap& strip, int x, int y)
{
    return (x % ListIconSize > 0 && strip.At(x - 1, y) == White) ||
           (x % ListIconSize < ListIconSize - 1 && strip.At(x + 1, y) == White) ||
           (y > 0 && strip.At(x, y - 1) == White) || (y < ListIconSize - 1 && strip.At(x, y + 1) == White);
}

// Widths of the pictures of an icon, from its directory; 0 stands for 256 there.
std::set<int> IconSizes(unsigned number)
{
    const auto directory = ResourceBytes(BuiltLanguageFile(), number, MAKEINTRESOURCEW(14));
    constexpr std::size_t Header = 6;
    constexpr std::size_t Entry = 14;
    std::set<int> sizes;
    for (std::size_t at = Header; at + Entry <= directory.size(); at += Entry)
    {
        sizes.insert(directory[at] == 0 ? 256 : directory[at]);
    }
    return sizes;
}

} // namespace

TEST(LogIcons, AreSixSquaresOf16PixelsAnd24Bits)
{
    const Bitmap strip = ReadBitmap(IDB_LOG_ICONS);
    EXPECT_EQ(LogIcons * ListIconSize, strip.width);
    EXPECT_EQ(ListIconSize, strip.height);
    EXPECT_EQ(24, strip.depth);
}

TEST(LogIcons, WhiteIsOutsideOnly)
{
    const Bitmap strip = ReadBitmap(IDB_LOG_ICONS);
    for (int icon = 0; icon < LogIcons; ++icon)
    {
        // From the edge of the square to the middle of its row, white does not come back.
        for (int y = 0; y < ListIconSize; ++y)
        {
            bool drawn = false;
            for (int x = 0; x < ListIconSize / 2; ++x)
            {
                const bool white = strip.At(icon * ListIconSize + x, y) == White;
                EXPECT_FALSE(drawn && white) << "icon " << icon << " at " << x << ", " << y;
                drawn = drawn || !white;
            }
        }
        EXPECT_NE(White, strip.At(icon * ListIconSize + ListIconSize / 2, ListIconSize / 2)) << icon;
    }
}

TEST(LogIcons, HaveNoPaleFringeAgainstTheMask)
{
    const Bitmap strip = ReadBitmap(IDB_LOG_ICONS);
    for (int y = 0; y < strip.height; ++y)
    {
        for (int x = 0; x < strip.width; ++x)
        {
            if (strip.At(x, y) != White && TouchesTheMask(strip, x, y))
            {
                EXPECT_LT(Brightness(strip.At(x, y)), 160) << x << ", " << y;
            }
        }
    }
}

TEST(LogIcons, DifferWithoutTheirColours)
{
    const Bitmap strip = ReadBitmap(IDB_LOG_ICONS);
    for (int one = 0; one < LogIcons; ++one)
    {
        for (int other = one + 1; other < LogIcons; ++other)
        {
            const auto first = Shape(strip, one);
            const auto second = Shape(strip, other);
            int different = 0;
            for (std::size_t i = 0; i < first.size(); ++i)
            {
                different += first[i] != second[i];
            }
            EXPECT_GE(different, 20) << one << " and " << other;
        }
    }
}

TEST(ScaledBitmaps, AreOfTheirScaledSizeAndDepthInEveryScale)
{
    for (const unsigned number :
         {IDB_LOG_ICONS, IDB_FIREWALL_ICONS, IDB_FRAME_LEFT, IDB_FRAME_RIGHT, IDB_FRAME_BOTTOM, IDB_CORNER_TOP_LEFT,
          IDB_CORNER_TOP_RIGHT, IDB_CORNER_BOTTOM_LEFT, IDB_CORNER_BOTTOM_RIGHT, IDB_BUTTON_FACE, IDB_TAB_SELECTED,
          IDB_CLOSE, IDB_CLOSE_HOT, IDB_DIALOG_CLOSE_HOT, IDB_MINIMISE, IDB_MINIMISE_HOT, IDB_ARROW_UP, IDB_ARROW_DOWN})
    {
        const Bitmap plain = ReadBitmap(number);
        for (const int percent : {125, 150, 200, 300})
        {
            const Bitmap scaled = ReadBitmap(static_cast<unsigned>(percent) * 100 + number);
            EXPECT_EQ((plain.width * percent + 50) / 100, scaled.width) << number << " at " << percent;
            EXPECT_EQ((plain.height * percent + 50) / 100, scaled.height) << number << " at " << percent;
            EXPECT_EQ(plain.depth, scaled.depth) << number << " at " << percent;
        }
    }
}

TEST(HeaderArrows, AreBlackOnWhiteInAColourTable)
{
    for (const unsigned number : {IDB_ARROW_UP, IDB_ARROW_DOWN})
    {
        const Bitmap arrow = ReadBitmap(number);
        EXPECT_EQ(9, arrow.width);
        EXPECT_EQ(5, arrow.height);
        EXPECT_EQ(4, arrow.depth) << "colours are mapped in a table of 16 only";
        EXPECT_EQ(25, std::ranges::count(arrow.pixels, Black)) << number;
        EXPECT_EQ(20, std::ranges::count(arrow.pixels, White)) << number;
    }
}

TEST(HeaderArrows, PointUpAndDown)
{
    const Bitmap up = ReadBitmap(IDB_ARROW_UP);
    const Bitmap down = ReadBitmap(IDB_ARROW_DOWN);
    EXPECT_EQ(White, up.At(0, 0));
    EXPECT_EQ(Black, up.At(0, 4));
    EXPECT_EQ(Black, down.At(0, 0));
    EXPECT_EQ(White, down.At(0, 4));
}

TEST(ProgramIcon, HasTheSizesThatWindowsAsksFor)
{
    EXPECT_EQ((std::set<int>{16, 20, 24, 32, 40, 48, 64, 96, 256}), IconSizes(IDI_KESTRIX));
}

TEST(HandCursor, HasItsHotSpotAtTheFingertipInEverySize)
{
    for (const auto& [size, tip] : {std::pair{32, 9u}, {40, 11u}, {48, 14u}, {64, 18u}, {96, 27u}})
    {
        SCOPED_TRACE(size);
        const auto cursor = static_cast<HCURSOR>(
            LoadImageW(BuiltLanguageFile(), MAKEINTRESOURCEW(IDC_HAND_CURSOR), IMAGE_CURSOR, size, size, 0));
        ASSERT_NE(nullptr, cursor);
        ICONINFO info{};
        ASSERT_TRUE(GetIconInfo(cursor, &info));
        DeleteObject(info.hbmMask);
        DeleteObject(info.hbmColor);
        DestroyCursor(cursor);
        EXPECT_FALSE(info.fIcon);
        EXPECT_EQ(tip, info.xHotspot);
        EXPECT_EQ(0u, info.yHotspot);
    }
}
