#include "framework/ui/kestrix/controls/BitmapResource.h"

#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/BitmapFile.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace
{

constexpr SIZE Size{5, 3};
constexpr RECT Whole{0, 0, Size.cx, Size.cy};

BitmapResource ResourceOf(const std::string& bytes)
{
    return BitmapResource(std::as_bytes(std::span(bytes)));
}

// What the system makes of the same bytes.
Picture Expected(const BitmapFile& file)
{
    const std::string bytes = file.ResourceBytes();
    const auto* const info = reinterpret_cast<const BITMAPINFO*>(bytes.data());
    const char* const rows = bytes.data() + bytes.size() - file.rows.size();
    return PictureOf(Size, [&](HDC dc)
                     { SetDIBitsToDevice(dc, 0, 0, Size.cx, Size.cy, 0, 0, 0, Size.cy, rows, info, DIB_RGB_COLORS); });
}

Picture DrawnPart(const BitmapResource& resource, const RECT& target, const RECT& part)
{
    return PictureOf({target.right, target.bottom}, [&](HDC dc) { resource.Draw(dc, target, part); });
}

// Whether a bitmap of 5 by 3 pixels is one after this change.
bool IsBitmap(const std::function<void(BitmapFile&)>& spoil, WORD bitCount = 24)
{
    BitmapFile file(Size.cx, Size.cy, bitCount);
    spoil(file);
    return !ResourceOf(file.ResourceBytes()).IsEmpty();
}

} // namespace

TEST(BitmapResourceTest, EveryDepthIsDrawnAsTheSystemDrawsIt)
{
    for (const WORD depth : {1, 4, 8, 16, 24, 32})
    {
        const BitmapFile file(Size.cx, Size.cy, depth);
        const std::string bytes = file.ResourceBytes();
        const BitmapResource resource = ResourceOf(bytes);
        ASSERT_FALSE(resource.IsEmpty()) << depth;
        EXPECT_EQ(resource.GetSize().cx, Size.cx);
        EXPECT_EQ(resource.GetSize().cy, Size.cy);
        EXPECT_EQ(DrawnPart(resource, Whole, Whole), Expected(file)) << depth;
    }
}

TEST(BitmapResourceTest, APartIsToldFromTheTop)
{
    const BitmapFile file(Size.cx, Size.cy, 24);
    const std::string bytes = file.ResourceBytes();
    const Picture whole = Expected(file);
    EXPECT_EQ(DrawnPart(ResourceOf(bytes), {0, 0, 2, 1}, {1, 0, 3, 1}), whole.Part({1, 0, 3, 1}));
    EXPECT_EQ(DrawnPart(ResourceOf(bytes), {0, 0, 3, 2}, {2, 1, 5, 3}), whole.Part({2, 1, 5, 3}));
}

TEST(BitmapResourceTest, ALargerTargetIsFilledWithThePart)
{
    const BitmapFile file(Size.cx, Size.cy, 24);
    const std::string bytes = file.ResourceBytes();
    const COLORREF pixel = Expected(file).At(3, 1);
    EXPECT_EQ(DrawnPart(ResourceOf(bytes), {0, 0, 20, 10}, {3, 1, 4, 2}), Picture(20, 10, pixel));
}

TEST(BitmapResourceTest, ANumberOfTheLanguageFileGivesItsBitmap)
{
    const LanguageFile language;
    const BitmapResource resource(IDB_BUTTON_FACE);
    CBitmap loaded;
    ASSERT_TRUE(loaded.LoadBitmap(IDB_BUTTON_FACE));
    EXPECT_EQ(resource.GetSize().cx, loaded.GetSize().cx);
    EXPECT_EQ(resource.GetSize().cy, loaded.GetSize().cy);
}

TEST(BitmapResourceTest, AMissingOneIsEmptyAndDrawsNothing)
{
    const LanguageFile language;
    const BitmapResource resource(9999);
    EXPECT_TRUE(resource.IsEmpty());
    EXPECT_EQ(resource.GetSize().cx, 0);
    EXPECT_EQ(resource.GetSize().cy, 0);
    EXPECT_EQ(DrawnPart(resource, Whole, Whole), Picture(Size.cx, Size.cy, RGB(255, 255, 255)));
}

TEST(BitmapResourceTest, ABitmapThatIsCutOffAnywhereIsEmpty)
{
    for (const WORD depth : {4, 24})
    {
        const std::string bytes = BitmapFile(Size.cx, Size.cy, depth).ResourceBytes();
        for (std::size_t length = 0; length < bytes.size(); ++length)
        {
            ASSERT_TRUE(ResourceOf(bytes.substr(0, length)).IsEmpty()) << depth << ", " << length;
        }
    }
}

TEST(BitmapResourceTest, AHeaderThatPromisesMoreThanThereIsGivesNone)
{
    EXPECT_TRUE(IsBitmap([](BitmapFile&) {}));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { ++file.header.biHeight; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biHeight = std::numeric_limits<LONG>::max(); }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biWidth += 2; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biWidth = std::numeric_limits<LONG>::max(); }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biBitCount = 32; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biBitCount = 0xFFFF; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biClrUsed = 1; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biClrUsed = 0xFFFFFFFF; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biSize = 0xFFFFFFFF; }));
}

TEST(BitmapResourceTest, NoSizeGivesNone)
{
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biWidth = 0; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biWidth = -5; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biHeight = 0; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biSize = sizeof(BITMAPCOREHEADER); }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biSize = 0; }));
}

TEST(BitmapResourceTest, ADepthThatNoBitmapHasGivesNone)
{
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biBitCount = 0; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile&) {}, 33));
    EXPECT_FALSE(IsBitmap([](BitmapFile&) {}, 64));
}

TEST(BitmapResourceTest, AShortColourTableIsTakenAsLongAsItSays)
{
    BitmapFile file(Size.cx, Size.cy, 8);
    file.header.biClrUsed = 3;
    file.table.resize(3);
    file.rows.assign(file.rows.size(), '\2');
    const std::string bytes = file.ResourceBytes();
    EXPECT_EQ(DrawnPart(ResourceOf(bytes), Whole, Whole), Picture(Size.cx, Size.cy, RGB(2, 2, 2)));
}

TEST(BitmapResourceTest, ABitmapMayNameTheBitsOfItsColoursBehindOrInItsHeader)
{
    constexpr COLORREF green = RGB(0, 255, 0);
    BitmapFile file(Size.cx, Size.cy, 16);
    file.header.biCompression = BI_BITFIELDS;
    file.table = {{0, 0xF8, 0, 0}, {0xE0, 0x07, 0, 0}, {0x1F, 0, 0, 0}}; // as words: 0xF800, 0x07E0, 0x001F
    for (std::size_t i = 0; i < file.rows.size(); i += 2)
    {
        file.rows[i] = '\xE0';
        file.rows[i + 1] = '\x07';
    }
    const std::string behind = file.ResourceBytes();
    EXPECT_EQ(DrawnPart(ResourceOf(behind), Whole, Whole), Picture(Size.cx, Size.cy, green));

    file.header.biSize = sizeof(BITMAPV4HEADER); // goes on with the masks
    file.table.resize((sizeof(BITMAPV4HEADER) - sizeof(BITMAPINFOHEADER)) / sizeof(RGBQUAD));
    const std::string inside = file.ResourceBytes();
    EXPECT_EQ(DrawnPart(ResourceOf(inside), Whole, Whole), Picture(Size.cx, Size.cy, green));
}

TEST(BitmapResourceTest, RowsFromTheTopAndPackedRowsAreNotRead)
{
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biHeight = -Size.cy; }));
    EXPECT_FALSE(IsBitmap([](BitmapFile& file) { file.header.biCompression = BI_RLE8; }, 8));
}
