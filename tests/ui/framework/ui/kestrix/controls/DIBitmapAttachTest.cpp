#include "framework/ui/kestrix/controls/DIBitmap.h"

#include "tests/support/AllocationWatch.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Picture.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/gallery/SkinResources.h"

#include <gtest/gtest.h>

#include <cstring>

extern "C" decltype(&::GetDIBits) __imp_GetDIBits;

namespace
{

// A bitmap of this size and depth in memory, whose rows run upward and count their bytes; the table holds greys.
class Section
{
public:
    Section(LONG width, LONG height, WORD depth)
    {
        FullBitmapInfo info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, height, 1, depth, BI_RGB, 0, 0, 0, 0, 0};
        const int count = depth <= 8 ? 1 << depth : 0;
        for (int i = 0; i < count; ++i)
        {
            const auto grey = static_cast<BYTE>(i * 255 / (count - 1));
            info.bmiColors[i] = {grey, grey, grey, 0};
        }
        void* bits = nullptr;
        m_bitmap.Attach(
            CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0));
        auto* const bytes = static_cast<BYTE*>(bits);
        for (std::size_t i = 0; i < (static_cast<std::size_t>(width) * depth + 31) / 32 * 4 * height; ++i)
        {
            bytes[i] = static_cast<BYTE>(i * 11 + 5);
        }
    }

    HBITMAP Get() const { return m_bitmap; }

    Picture Pixels() const
    {
        const SIZE size = m_bitmap.GetSize();
        return PictureOf(size,
                         [&](HDC dc)
                         {
                             const UniqueMemoryDC source(CreateCompatibleDC(dc));
                             const CSelectObject selected(source.get(), m_bitmap);
                             BitBlt(dc, 0, 0, size.cx, size.cy, source.get(), 0, 0, SRCCOPY);
                         });
    }

private:
    CBitmap m_bitmap;
};

Picture Drawn(const CDIBitmap& picture)
{
    return PictureOf({picture.GetWidth(), picture.GetHeight()}, [&](HDC dc) { picture.DrawDIB(dc, 0, 0); });
}

bool Attach(CDIBitmap& picture, HBITMAP bitmap)
{
    return picture.Attach(CClientDC(nullptr), bitmap);
}

} // namespace

TEST(DIBitmapAttach, ADepthOf9AndMoreIsStoredAs24)
{
    for (const WORD depth : {16, 24, 32})
    {
        const Section section(5, 3, depth);
        CDIBitmap picture;
        ASSERT_TRUE(Attach(picture, section.Get())) << depth;
        EXPECT_EQ(24, picture.GetBitCount());
        EXPECT_EQ(nullptr, picture.GetPalette());
        EXPECT_EQ(section.Pixels(), Drawn(picture)) << depth;
    }
}

TEST(DIBitmapAttach, ADepthOf8AndLessStaysAndHasAPalette)
{
    for (const WORD depth : {1, 4, 8})
    {
        const Section section(5, 3, depth);
        CDIBitmap picture;
        ASSERT_TRUE(Attach(picture, section.Get())) << depth;
        EXPECT_EQ(depth, picture.GetBitCount());
        ASSERT_NE(nullptr, picture.GetPalette());
        EXPECT_EQ(1u << depth, GetPaletteEntries(*picture.GetPalette(), 0, 0, nullptr));
        EXPECT_EQ(section.Pixels(), Drawn(picture)) << depth;
    }
}

TEST(DIBitmapAttach, ThePaletteHasTheColoursOfTheTableInRedGreenBlueOrder)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadDibSection(IDB_SKIN_INDEXED));
    CDIBitmap picture;
    ASSERT_TRUE(Attach(picture, bitmap));
    PALETTEENTRY entries[3]{};
    ASSERT_EQ(3u, GetPaletteEntries(*picture.GetPalette(), 0, 3, entries));
    const PALETTEENTRY expected[3]{{255, 0, 0, 0}, {0, 255, 0, 0}, {0, 0, 255, 0}};
    EXPECT_EQ(0, std::memcmp(expected, entries, sizeof expected));
}

TEST(DIBitmapAttach, WhatIsNoBitmapIsRefused)
{
    CDIBitmap picture;
    EXPECT_FALSE(Attach(picture, nullptr));
    EXPECT_FALSE(picture.IsLoaded());
}

TEST(DIBitmapAttach, FewerLinesThanTheHeightAreAFailureThatLeavesNoPicture)
{
    const Section section(5, 3, 24);
    CDIBitmap picture;
    ASSERT_TRUE(Attach(picture, section.Get()));
    const ImportPatch<decltype(&::GetDIBits)> patch(
        __imp_GetDIBits, [](HDC, HBITMAP, UINT, UINT lines, LPVOID, LPBITMAPINFO, UINT) -> int { return lines - 1; });
    EXPECT_FALSE(Attach(picture, section.Get()));
    EXPECT_FALSE(picture.IsLoaded());
}

TEST(DIBitmapAttach, NoMemoryForTheRowsIsAFailureThatLeavesNoPicture)
{
    const Section section(400, 100, 24);
    CDIBitmap picture;
    AllocationWatch watch;
    watch.FailAbove(100'000);
    EXPECT_FALSE(Attach(picture, section.Get()));
    EXPECT_FALSE(picture.IsLoaded());
}

TEST(DIBitmapAttach, NoMemoryForTheHeaderIsAFailureThatLeavesNoPicture)
{
    const Section section(2, 2, 24);
    CDIBitmap picture;
    const CClientDC dc(nullptr);
    AllocationWatch watch;
    // The debug heap takes whole pages for a block, so that only the largest can be told there: none here.
    watch.FailAbove(sizeof(FullBitmapInfo) - 1);
    EXPECT_FALSE(picture.Attach(dc, section.Get()));
    EXPECT_FALSE(picture.IsLoaded());
}

TEST(DIBitmapAttach, SavingAPictureWhoseRowsEndAtMultiplesOfFourBytesKeepsIt)
{
    const TemporaryFolder folder;
    const Section section(4, 3, 24);
    CDIBitmap picture;
    ASSERT_TRUE(Attach(picture, section.Get()));
    ASSERT_TRUE(picture.Save(folder.File(L"saved.bmp")));
    CDIBitmap again;
    ASSERT_TRUE(again.Load(folder.File(L"saved.bmp")));
    EXPECT_EQ(section.Pixels(), Drawn(again));
}

TEST(DIBitmapAttach, SavingOneOfAnotherWidthMovesTheRowsThatTheSystemHasPaddedAlready)
{
    const TemporaryFolder folder;
    const Section section(5, 3, 24); // rows of 15 bytes, padded to 16
    CDIBitmap picture;
    ASSERT_TRUE(Attach(picture, section.Get()));
    const std::wstring first = folder.File(L"first.bmp");
    ASSERT_TRUE(picture.Save(first));
    const std::string rows = ReadBytes(first).substr(54);
    ASSERT_EQ(48u, rows.size());
    // Byte i of the section is 11 i + 5, and the system clears the padding, bytes 15, 31 and 47. The second row now
    // begins with what stood at 15, the third with what stood at 30.
    EXPECT_EQ(static_cast<char>(5), rows[0]);
    EXPECT_EQ('\0', rows[16]);
    EXPECT_EQ(static_cast<char>(16 * 11 + 5), rows[17]);
    EXPECT_EQ(static_cast<char>(30 * 11 + 5), rows[32]);
    EXPECT_EQ(static_cast<char>(44 * 11 + 5), rows[46]);
    const std::wstring second = folder.File(L"second.bmp");
    ASSERT_TRUE(picture.Save(second));
    EXPECT_EQ(ReadBytes(first), ReadBytes(second)) << "the rows move once";
}
