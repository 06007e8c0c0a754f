#include "framework/ui/kestrix/controls/RichColorImageList.h"

#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

namespace
{

constexpr UINT IconStrip = 134;
constexpr COLORREF White = RGB(255, 255, 255);

} // namespace

TEST(RichColorImageListTest, TheIconsOfTheLogsAreAStripOfImages16PixelsWideAndAsTallAsTheBitmap)
{
    const LanguageFile language;
    CBitmap strip;
    ASSERT_TRUE(strip.LoadBitmap(IconStrip));
    CRichColorImageList images;
    ASSERT_TRUE(images.CreateFromBitmap(IconStrip, 16, White));
    EXPECT_EQ(images.GetImageCount(), strip.GetSize().cx / 16);
    EXPECT_GE(images.GetImageCount(), 4) << "the virus log uses icons 0 to 3";
    int width = 0;
    int height = 0;
    ASSERT_TRUE(ImageList_GetIconSize(images.GetSafeHandle(), &width, &height));
    EXPECT_EQ(width, 16);
    EXPECT_EQ(height, strip.GetSize().cy);
}

TEST(RichColorImageListTest, TheImagesHave24BitColourOrMoreAndAMask)
{
    const LanguageFile language;
    CRichColorImageList images;
    ASSERT_TRUE(images.CreateFromBitmap(IconStrip, 16, White));
    IMAGEINFO info{};
    ASSERT_TRUE(ImageList_GetImageInfo(images.GetSafeHandle(), 0, &info));
    BITMAP bitmap{};
    ASSERT_NE(GetObjectW(info.hbmImage, sizeof bitmap, &bitmap), 0);
    EXPECT_GE(bitmap.bmBitsPixel, 24);
    EXPECT_NE(info.hbmMask, nullptr);
}

TEST(RichColorImageListTest, WhiteIsNotDrawn)
{
    const LanguageFile language;
    CRichColorImageList images;
    ASSERT_TRUE(images.CreateFromBitmap(IconStrip, 16, White));
    const COLORREF background = RGB(10, 20, 30);
    const UniqueMemoryDC dc(CreateCompatibleDC(nullptr));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, 16, -16, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const UniqueBitmap bitmap(CreateDIBSection(dc.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const HGDIOBJ before = SelectObject(dc.get(), bitmap.get());
    const UniqueBrush brush(CreateSolidBrush(background));
    const RECT all{0, 0, 16, 16};
    for (int image = 0; image < images.GetImageCount(); ++image)
    {
        FillRect(dc.get(), &all, brush.get());
        ASSERT_TRUE(images.Draw(dc.get(), image, {0, 0}));
        int untouched = 0;
        int drawn = 0;
        for (int i = 0; i < 16 * 16; ++i)
        {
            const COLORREF pixel = GetPixel(dc.get(), i % 16, i / 16);
            (pixel == background ? untouched : drawn) += 1;
        }
        EXPECT_GT(untouched, 0) << image;
        EXPECT_GT(drawn, 20) << image;
        EXPECT_EQ(GetPixel(dc.get(), 0, 0), background) << image << ": the corner of every icon is outside of it";
    }
    SelectObject(dc.get(), before);
}

TEST(RichColorImageListTest, WithoutTheBitmapTheListIsEmpty)
{
    const LanguageFile language;
    CRichColorImageList images;
    EXPECT_FALSE(images.CreateFromBitmap(9999, 16, White));
    EXPECT_EQ(images.GetSafeHandle(), nullptr);
    EXPECT_EQ(images.GetImageCount(), 0);
}
