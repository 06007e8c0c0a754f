// What is told in pixels at 96 dots an inch, on screens with more of them.

#include "framework/ui/kestrix/controls/Scale.h"

#include "framework/ui/kestrix/controls/RichColorImageList.h"
#include "framework/ui/kestrix/controls/SkinFrame.h"
#include "framework/ui/kestrix/controls/StretchBitmap.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/Picture.h"
#include "tests/support/StandingScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr COLORREF White = RGB(255, 255, 255);

// At which every drawing is used, and some between them and beyond.
constexpr int AllDpi[] = {96, 110, 120, 144, 168, 192, 216, 288, 384};

struct Rounding
{
    int dpi;
    int pixels;
    int result;
};

constexpr Rounding Roundings[] = {
    {96, 1, 1},
    {96, 0, 0},
    {96, -7, -7},
    {96, 13, 13},
    {120, 1, 1},
    {120, 2, 3},
    {120, 27, 34},
    {144, 1, 2},
    {144, -1, -2},
    {144, 27, 41},
    {168, 28, 49},
    {192, 28, 56},
    {192, -3, -6},
    {288, 16, 48},
    {96, std::numeric_limits<int>::max(), std::numeric_limits<int>::max()},
    {96, std::numeric_limits<int>::min(), std::numeric_limits<int>::min()},
};

struct Choice
{
    int dpi;
    int percent;
};

constexpr Choice Choices[] = {{72, 100},  {96, 100},  {97, 125},  {120, 125}, {121, 150}, {144, 150},
                              {145, 200}, {192, 200}, {193, 300}, {288, 300}, {480, 300}};

struct Part
{
    UINT bitmap;
    SIZE size; // at 96 dots an inch
};

constexpr Part Parts[] = {{IDB_CLOSE, {28, 28}},     {IDB_BUTTON_FACE, {27, 27}},   {IDB_CORNER_TOP_LEFT, {8, 36}},
                          {IDB_FRAME_LEFT, {8, 16}}, {IDB_TAB_SELECTED, {110, 20}}, {IDB_FRAME_TOP, {800, 36}}};

class ScaleTest : public testing::Test
{
protected:
    static bool IsDrawn(const Picture& picture, int x, int y) { return picture.At(x, y) != White; }

    const LanguageFile m_language;
};

// All of a window of the skin with its frame, seen through its shape.
Picture ShapedFrame(SIZE size)
{
    return PictureOf(size,
                     [&](HDC dc)
                     {
                         const CRgn shape = MakeCornerRegion(size);
                         SelectClipRgn(dc, shape);
                         DrawSkinFrame(dc, size, FrameTop::Stretched);
                     });
}

} // namespace

TEST_F(ScaleTest, TheProgramsAreAwareOfTheScaleOfTheSystem)
{
    EXPECT_TRUE(IsProcessDPIAware()) << "all programs of the project have one manifest";
}

TEST_F(ScaleTest, PixelsAreRoundedAndAHalfGoesAwayFrom0)
{
    for (const Rounding& rounding : Roundings)
    {
        const StandingScale scale(rounding.dpi);
        EXPECT_EQ(rounding.result, Scaled(rounding.pixels)) << rounding.pixels << " at " << rounding.dpi;
    }
}

TEST_F(ScaleTest, TheNearestDrawingThatIsNotSmallerIsTaken)
{
    for (const Choice& choice : Choices)
    {
        const StandingScale scale(choice.dpi);
        const ScaledArt art = ArtOf(IDB_CLOSE);
        EXPECT_EQ(choice.percent, art.percent) << choice.dpi;
        EXPECT_EQ(choice.percent == 100 ? IDB_CLOSE : choice.percent * 100u + IDB_CLOSE, art.number) << choice.dpi;
    }
}

TEST_F(ScaleTest, ABitmapOfOneColourIsTheSameInEveryScale)
{
    const StandingScale scale(192);
    for (const UINT bitmap : {IDB_BACKGROUND, IDB_FRAME_TOP, IDB_TAB})
    {
        EXPECT_EQ(bitmap, ArtOf(bitmap).number);
        EXPECT_EQ(100, ArtOf(bitmap).percent);
    }
}

TEST_F(ScaleTest, ABitmapThatIsMissingStaysMissing)
{
    const StandingScale scale(192);
    EXPECT_EQ(9999u, ArtOf(9999).number);
    EXPECT_TRUE(BitmapResource(9999).IsEmpty());
}

TEST_F(ScaleTest, EveryBitmapStandsInItsSizeOnEveryScreen)
{
    for (const int dpi : AllDpi)
    {
        const StandingScale scale(dpi);
        for (const Part& part : Parts)
        {
            const SIZE size = BitmapResource(part.bitmap).GetSize();
            EXPECT_EQ(Scaled(part.size.cx), size.cx) << part.bitmap << " at " << dpi;
            EXPECT_EQ(Scaled(part.size.cy), size.cy) << part.bitmap << " at " << dpi;
        }
    }
}

TEST_F(ScaleTest, TheFrameIsTheSameOnBothSidesAtEveryScaleOfTheDrawings)
{
    for (const int percent : ArtScales)
    {
        SCOPED_TRACE(percent);
        const StandingScale scale(96 * percent / 100);
        const SIZE size = Scaled({101, 90});
        const Picture frame = ShapedFrame(size);
        for (int y = 0; y < size.cy; ++y)
        {
            for (int x = 0; x < size.cx / 2; ++x)
            {
                ASSERT_EQ(frame.At(x, y), frame.At(size.cx - 1 - x, y)) << x << ", " << y;
            }
        }
    }
}

TEST_F(ScaleTest, TheFrameIsClosedOnEveryScreen)
{
    for (const int dpi : AllDpi)
    {
        SCOPED_TRACE(dpi);
        const StandingScale scale(dpi);
        const SIZE size = Scaled({101, 90});
        const Picture frame = ShapedFrame(size);
        const COLORREF line = frame.At(size.cx / 2, 0);
        ASSERT_NE(White, line);
        for (int x = Scaled(8); x < size.cx - Scaled(8); ++x)
        {
            ASSERT_EQ(line, frame.At(x, 0)) << x;
            ASSERT_EQ(line, frame.At(x, size.cy - 1)) << x;
        }
        for (int y = Scaled(8); y < size.cy - Scaled(8); ++y)
        {
            ASSERT_EQ(line, frame.At(0, y)) << y;
            ASSERT_EQ(line, frame.At(size.cx - 1, y)) << y;
        }
    }
}

TEST_F(ScaleTest, TheCornersAreAsRoundOnEveryScreen)
{
    for (const int dpi : AllDpi)
    {
        SCOPED_TRACE(dpi);
        const StandingScale scale(dpi);
        const SIZE size = Scaled({101, 90});
        const CRgn shape = MakeCornerRegion(size);
        const int radius = Scaled(8);
        int run = 0; // of the first row that is cut away
        while (!PtInRegion(shape, run, 0))
        {
            ++run;
        }
        EXPECT_NEAR(run, radius - std::sqrt(radius - 0.25), radius / 8.0)
            << "where the circle crosses the middle of the row";
        EXPECT_FALSE(PtInRegion(shape, radius / 5, radius / 5)) << "outside of the circle";
        EXPECT_TRUE(PtInRegion(shape, radius / 2, radius / 2)) << "inside of the circle";
        EXPECT_TRUE(PtInRegion(shape, 0, radius));
    }
}

TEST_F(ScaleTest, ScaledFrame)
{
    for (const int dpi : {144, 192})
    {
        const StandingScale scale(dpi);
        EXPECT_PICTURE(ShapedFrame({150, 120}), "frame-" + std::to_string(dpi));
    }
}

TEST_F(ScaleTest, TheIconsOfTheLogsAreSquaresOnEveryScreenAndDoNotRunIntoEachOther)
{
    for (const int dpi : AllDpi)
    {
        SCOPED_TRACE(dpi);
        const StandingScale scale(dpi);
        CRichColorImageList images;
        ASSERT_TRUE(images.CreateFromBitmap(IDB_LOG_ICONS, 16, White));
        int width = 0;
        int height = 0;
        ASSERT_TRUE(ImageList_GetIconSize(images.GetSafeHandle(), &width, &height));
        EXPECT_EQ(Scaled(16), width);
        EXPECT_EQ(Scaled(16), height);
        EXPECT_EQ(6, images.GetImageCount());
        for (int image = 0; image < images.GetImageCount(); ++image)
        {
            const auto draw = [&](HDC dc) { images.Draw(dc, image, {0, 0}); };
            const Picture icon = PictureOf({width, height}, draw);
            EXPECT_TRUE(IsDrawn(icon, width / 2, height / 4)) << image;
            EXPECT_FALSE(IsDrawn(icon, 0, 0)) << image;
            EXPECT_FALSE(IsDrawn(icon, width - 1, 0)) << image;
        }
    }
}

TEST_F(ScaleTest, ABitmapIsFittedToASizeAndStaysWhenItHasIt)
{
    CBitmap bitmap;
    EXPECT_FALSE(FitBitmap(bitmap, {4, 4})) << "there is none";
    ASSERT_TRUE(bitmap.LoadBitmap(IDB_CLOSE_HOT));
    const HBITMAP before = bitmap;
    EXPECT_TRUE(FitBitmap(bitmap, {28, 28}));
    EXPECT_EQ(before, static_cast<HBITMAP>(bitmap));
    EXPECT_TRUE(FitBitmap(bitmap, {49, 50}));
    EXPECT_EQ(49, bitmap.GetSize().cx);
    EXPECT_EQ(50, bitmap.GetSize().cy);
}
