#include "framework/ui/kestrix/controls/StretchBitmap.h"

#include "tests/support/LiveHandles.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/BitmapFile.h"

#include <gtest/gtest.h>

namespace
{

constexpr SIZE SourceSize{40, 35};
constexpr int Border = 13;

// Tells of each pixel of a source where it stood.
COLORREF ColourAt(int x, int y)
{
    return RGB(5 * x + 1, 5 * y + 1, 200);
}

int ColumnOf(COLORREF colour)
{
    return (GetRValue(colour) - 1) / 5;
}

int RowOf(COLORREF colour)
{
    return (GetGValue(colour) - 1) / 5;
}

// The bytes of a bitmap of 24 bits a pixel, rows from below.
std::string MakeSource(SIZE size)
{
    BitmapFile source(size.cx, size.cy, 24);
    const std::size_t stride = source.rows.size() / static_cast<std::size_t>(size.cy);
    for (int y = 0; y < size.cy; ++y)
    {
        char* pixel = source.rows.data() + stride * static_cast<std::size_t>(size.cy - 1 - y);
        for (int x = 0; x < size.cx; ++x)
        {
            const COLORREF colour = ColourAt(x, y);
            *pixel++ = static_cast<char>(GetBValue(colour));
            *pixel++ = static_cast<char>(GetGValue(colour));
            *pixel++ = static_cast<char>(GetRValue(colour));
        }
    }
    return source.ResourceBytes();
}

CBitmap Stretch(const std::string& source, SIZE size, int border)
{
    return StretchBitmap(BitmapResource(std::as_bytes(std::span(source))), size, border);
}

// The pixels of the stretched source.
Picture Stretched(SIZE from, SIZE to, int border)
{
    const CBitmap result = Stretch(MakeSource(from), to, border);
    EXPECT_EQ(result.GetSize().cx, to.cx);
    EXPECT_EQ(result.GetSize().cy, to.cy);
    return PictureOf(to,
                     [&](HDC dc)
                     {
                         const UniqueMemoryDC memory(CreateCompatibleDC(dc));
                         const CSelectObject selected(memory.get(), result);
                         BitBlt(dc, 0, 0, to.cx, to.cy, memory.get(), 0, 0, SRCCOPY);
                     });
}

// Whether a column (or row) of the result is the one that the nine parts ask for: fixed ones exactly, stretched ones
// from the middle and in their order.
void ExpectAxis(int at, int size, int source, int before, int from, int border)
{
    if (at < border)
    {
        EXPECT_EQ(source, at);
    }
    else if (at >= size - border)
    {
        EXPECT_EQ(source, from - (size - at));
    }
    else
    {
        EXPECT_GE(source, at == border ? border : before);
        EXPECT_LT(source, from - border);
    }
}

void ExpectNineParts(const Picture& picture, SIZE from, int borderX, int borderY)
{
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            SCOPED_TRACE(testing::Message() << "pixel " << x << ", " << y);
            const COLORREF colour = picture.At(x, y);
            ASSERT_EQ(colour, ColourAt(ColumnOf(colour), RowOf(colour))) << "no pixel of the source";
            const int left = x > 0 ? ColumnOf(picture.At(x - 1, y)) : 0;
            const int above = y > 0 ? RowOf(picture.At(x, y - 1)) : 0;
            ExpectAxis(x, picture.Width(), ColumnOf(colour), left, from.cx, borderX);
            ExpectAxis(y, picture.Height(), RowOf(colour), above, from.cy, borderY);
            if (testing::Test::HasFailure())
            {
                return; // the first pixel says it
            }
        }
    }
}

} // namespace

TEST(StretchBitmapTest, CornersAreCopiedEdgesStretchAlongTheirLengthAndTheMiddleBothWays)
{
    const Picture picture = Stretched(SourceSize, {100, 60}, Border);
    ExpectNineParts(picture, SourceSize, Border, Border);
    // The whole middle of the source is spread over the whole middle of the result.
    EXPECT_EQ(ColumnOf(picture.At(13, 30)), 13);
    EXPECT_EQ(ColumnOf(picture.At(86, 30)), 26);
    EXPECT_EQ(RowOf(picture.At(50, 13)), 13);
    EXPECT_EQ(RowOf(picture.At(50, 46)), 21);
}

TEST(StretchBitmapTest, TheSizeOfTheSourceGivesACopy)
{
    const Picture picture = Stretched(SourceSize, SourceSize, Border);
    for (int y = 0; y < SourceSize.cy; ++y)
    {
        for (int x = 0; x < SourceSize.cx; ++x)
        {
            ASSERT_EQ(picture.At(x, y), ColourAt(x, y)) << x << ", " << y;
        }
    }
}

TEST(StretchBitmapTest, ASmallerSizeShrinksTheMiddleAlone)
{
    ExpectNineParts(Stretched(SourceSize, {30, 27}, Border), SourceSize, Border, Border);
}

TEST(StretchBitmapTest, TwiceTheBorderLeavesTheFourCorners)
{
    ExpectNineParts(Stretched(SourceSize, {26, 26}, Border), SourceSize, Border, Border);
}

TEST(StretchBitmapTest, AnotherBorderMovesTheCuts)
{
    ExpectNineParts(Stretched(SourceSize, {90, 80}, 4), SourceSize, 4, 4);
}

TEST(StretchBitmapTest, WithoutABorderTheWholeIsStretched)
{
    for (const int border : {0, -5})
    {
        ExpectNineParts(Stretched(SourceSize, {80, 70}, border), SourceSize, 0, 0);
    }
}

TEST(StretchBitmapTest, LessThanTwiceTheBorderKeepsTheOutsideOfEachCorner)
{
    ExpectNineParts(Stretched(SourceSize, {20, 11}, Border), SourceSize, 10, 5);
    ExpectNineParts(Stretched(SourceSize, {1, 1}, Border), SourceSize, 0, 0);
}

TEST(StretchBitmapTest, ASourceWithoutAMiddleGivesUpOneRingOfItsCornersForIt)
{
    const SIZE from{26, 26};
    ExpectNineParts(Stretched(from, {50, 40}, Border), from, 12, 12);
    const SIZE pixel{1, 1};
    ExpectNineParts(Stretched(pixel, {9, 9}, Border), pixel, 0, 0);
}

TEST(StretchBitmapTest, NoSourceOrAnEmptySizeGivesNoBitmap)
{
    EXPECT_EQ(Stretch({}, {10, 10}, Border).GetSafeHandle(), nullptr);
    const std::string source = MakeSource(SourceSize);
    EXPECT_EQ(Stretch(source, {0, 10}, Border).GetSafeHandle(), nullptr);
    EXPECT_EQ(Stretch(source, {10, 0}, Border).GetSafeHandle(), nullptr);
    EXPECT_EQ(Stretch(source, {-3, 10}, Border).GetSafeHandle(), nullptr);
}

TEST(StretchBitmapTest, NothingIsLeftBehind)
{
    const std::string source = MakeSource(SourceSize);
    Stretch(source, {80, 30}, Border); // what the framework keeps for later
    const long bitmaps = LiveHandles::Of(HandleKind::Bitmap);
    const long contexts = LiveHandles::Of(HandleKind::MemoryDC);
    {
        const CBitmap result = Stretch(source, {80, 30}, Border);
        EXPECT_EQ(LiveHandles::Of(HandleKind::Bitmap), bitmaps + 1);
    }
    EXPECT_EQ(LiveHandles::Of(HandleKind::Bitmap), bitmaps);
    EXPECT_EQ(LiveHandles::Of(HandleKind::MemoryDC), contexts);
}
