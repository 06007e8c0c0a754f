#include "framework/ui/kestrix/controls/DIBitmap.h"

#include "tests/support/Picture.h"
#include "tests/ui/gallery/SkinResources.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF Ground = RGB(9, 8, 7);

// The test picture: 16 by 12 pixels with four different quarters.
class DIBitmapTest : public ::testing::Test
{
protected:
    DIBitmapTest()
    {
        CBitmap bitmap;
        bitmap.LoadDibSection(IDB_SKIN_PICTURE);
        m_picture.Attach(CClientDC(nullptr), bitmap);
    }

    Picture Drawn(SIZE size, const std::function<void(HDC)>& draw) const { return PictureOf(size, draw, Ground); }

    Picture Whole() const
    {
        return Drawn({16, 12}, [this](HDC dc) { m_picture.DrawDIB(dc, 0, 0); });
    }

    CDIBitmap m_picture;
};

} // namespace

TEST_F(DIBitmapTest, IsDrawnAtNaturalSize)
{
    const Picture picture = Drawn({30, 20}, [this](HDC dc) { m_picture.DrawDIB(dc, 5, 3); });
    EXPECT_EQ(Whole(), picture.Part({5, 3, 21, 15}));
    EXPECT_EQ(Ground, picture.At(4, 3));
    EXPECT_EQ(Ground, picture.At(21, 14));
    EXPECT_EQ(Ground, picture.At(5, 2));
    EXPECT_EQ(Ground, picture.At(5, 15));
}

TEST_F(DIBitmapTest, IsStretchedByRepeatingItsPixels)
{
    const Picture picture = Drawn({40, 30}, [this](HDC dc) { m_picture.DrawDIB(dc, 4, 2, 32, 24); });
    const Picture whole = Whole();
    for (int y = 0; y < 24; ++y)
    {
        for (int x = 0; x < 32; ++x)
        {
            ASSERT_EQ(whole.At(x / 2, y / 2), picture.At(4 + x, 2 + y)) << x << ", " << y;
        }
    }
    EXPECT_EQ(Ground, picture.At(3, 2));
    EXPECT_EQ(Ground, picture.At(36, 25));
}

TEST_F(DIBitmapTest, IsShrunkByLeavingPixelsOut)
{
    const Picture picture = Drawn({8, 6}, [this](HDC dc) { m_picture.DrawDIB(dc, 0, 0, 8, 6); });
    const Picture whole = Whole();
    for (int y = 0; y < 6; ++y)
    {
        for (int x = 0; x < 8; ++x)
        {
            const COLORREF colour = picture.At(x, y);
            EXPECT_TRUE(colour == whole.At(2 * x, 2 * y) || colour == whole.At(2 * x + 1, 2 * y + 1) ||
                        colour == whole.At(2 * x, 2 * y + 1) || colour == whole.At(2 * x + 1, 2 * y))
                << "a mixed colour at " << x << ", " << y;
        }
    }
}

TEST_F(DIBitmapTest, APartIsMeasuredFromTheBottomOfThePicture)
{
    const Picture picture = Drawn({20, 20}, [this](HDC dc) { m_picture.DrawDIB(dc, {3, 4, 10, 9}, {6, 2}); });
    // Columns 6 to 12; rows 2 to 6 from the bottom are rows 5 to 9 from the top.
    EXPECT_EQ(Whole().Part({6, 5, 13, 10}), picture.Part({3, 4, 10, 9}));
    EXPECT_EQ(Ground, picture.At(2, 4));
    EXPECT_EQ(Ground, picture.At(10, 8));
    EXPECT_EQ(Ground, picture.At(3, 3));
    EXPECT_EQ(Ground, picture.At(3, 9));
}

TEST_F(DIBitmapTest, APartOutsideOfThePictureIsLeftAsItIs)
{
    const Picture picture = Drawn({30, 30}, [this](HDC dc) { m_picture.DrawDIB(dc, {0, 0, 30, 30}, {-4, -5}); });
    EXPECT_EQ(Whole(), picture.Part({4, 13, 20, 25}));
    EXPECT_EQ(Ground, picture.At(3, 13));
    EXPECT_EQ(Ground, picture.At(20, 13));
    EXPECT_EQ(Ground, picture.At(4, 25));
    EXPECT_EQ(Picture(5, 5, Ground), Drawn({5, 5},
                                           [this](HDC dc) {
                                               m_picture.DrawDIB(dc, {0, 0, 5, 5}, {1000, 1000});
                                           }));
}

TEST_F(DIBitmapTest, DrawingLeavesTheContextAsItWas)
{
    CBitmap bitmap;
    bitmap.LoadDibSection(IDB_SKIN_INDEXED);
    CDIBitmap indexed;
    ASSERT_TRUE(indexed.Attach(CClientDC(nullptr), bitmap));
    Drawn({10, 10},
          [&](HDC dc)
          {
              SetStretchBltMode(dc, BLACKONWHITE);
              const HGDIOBJ palette = GetCurrentObject(dc, OBJ_PAL);
              indexed.DrawDIB(dc, 0, 0);
              indexed.DrawDIB(dc, 0, 0, 5, 5);
              indexed.DrawDIB(dc, {0, 0, 5, 5}, {0, 0});
              EXPECT_EQ(BLACKONWHITE, GetStretchBltMode(dc));
              EXPECT_EQ(palette, GetCurrentObject(dc, OBJ_PAL));
              RECT clip{};
              EXPECT_EQ(SIMPLEREGION, GetClipBox(dc, &clip));
              EXPECT_EQ(10, clip.right);
          });
}

TEST_F(DIBitmapTest, WithoutAPictureNothingIsDrawn)
{
    const CDIBitmap none;
    const Picture picture = Drawn({10, 10},
                                  [&](HDC dc)
                                  {
                                      none.DrawDIB(dc, 0, 0);
                                      none.DrawDIB(dc, 0, 0, 5, 5);
                                      none.DrawDIB(dc, {0, 0, 5, 5}, {0, 0});
                                  });
    EXPECT_EQ(Picture(10, 10, Ground), picture);
}
