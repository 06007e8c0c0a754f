#include "framework/ui/kestrix/controls/DIBitmap.h"

#include "tests/support/AllocationWatch.h"
#include "tests/support/Picture.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WriteDouble.h"
#include "tests/ui/framework/ui/kestrix/controls/BitmapFile.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

class DIBitmapFileTest : public ::testing::Test
{
protected:
    std::wstring Write(const std::string& bytes) const
    {
        const std::wstring path = m_folder.File(L"picture.bmp");
        WriteBytes(path, bytes);
        return path;
    }

    bool Load(const std::string& bytes) { return m_picture.Load(Write(bytes)); }

    // A sound 24-bit file of 5 by 3 pixels after this change.
    bool LoadSpoilt(const std::function<void(BitmapFile&)>& spoil, WORD bitCount = 24)
    {
        BitmapFile file(5, 3, bitCount);
        spoil(file);
        return Load(file.Bytes());
    }

    const TemporaryFolder m_folder;
    CDIBitmap m_picture;
};

Picture DrawnFile(const CDIBitmap& picture)
{
    return PictureOf({picture.GetWidth(), picture.GetHeight()}, [&](HDC dc) { picture.DrawDIB(dc, 0, 0); });
}

} // namespace

TEST_F(DIBitmapFileTest, EveryDepthIsLoadedWithItsSize)
{
    for (const WORD depth : {1, 4, 8, 16, 24, 32})
    {
        ASSERT_TRUE(Load(BitmapFile(5, 3, depth).Bytes())) << depth;
        EXPECT_EQ(5, m_picture.GetWidth());
        EXPECT_EQ(3, m_picture.GetHeight());
        EXPECT_EQ(depth, m_picture.GetBitCount());
        EXPECT_EQ(depth <= 8, m_picture.GetPalette() != nullptr) << depth;
        DrawnFile(m_picture); // reads all of it: the debug build's guard pages watch
    }
}

TEST_F(DIBitmapFileTest, EveryDepthIsDrawnInItsColours)
{
    BitmapFile one(8, 1, 1);
    one.rows = std::string("\xA0\0\0\0", 4);
    ASSERT_TRUE(Load(one.Bytes()));
    EXPECT_EQ(RGB(255, 255, 255), DrawnFile(m_picture).At(0, 0));
    EXPECT_EQ(RGB(0, 0, 0), DrawnFile(m_picture).At(1, 0));

    BitmapFile four(2, 1, 4);
    four.table[5] = {10, 20, 30, 0};
    four.rows = std::string("\x5F\0\0\0", 4);
    ASSERT_TRUE(Load(four.Bytes()));
    EXPECT_EQ(RGB(30, 20, 10), DrawnFile(m_picture).At(0, 0));

    BitmapFile sixteen(2, 1, 16);
    sixteen.rows = std::string("\x1F\x00\x00\x7C", 4); // five bits each, blue lowest
    ASSERT_TRUE(Load(sixteen.Bytes()));
    EXPECT_EQ(RGB(0, 0, 255), DrawnFile(m_picture).At(0, 0));
    EXPECT_EQ(RGB(255, 0, 0), DrawnFile(m_picture).At(1, 0));

    BitmapFile deepest(1, 1, 32);
    deepest.rows = std::string("\x01\x02\x03\x00", 4);
    ASSERT_TRUE(Load(deepest.Bytes()));
    EXPECT_EQ(RGB(3, 2, 1), DrawnFile(m_picture).At(0, 0));
}

TEST_F(DIBitmapFileTest, APictureThatNamesTheBitsOfItsColoursIsDrawnInThem)
{
    BitmapFile file(1, 1, 16);
    file.header.biCompression = BI_BITFIELDS;
    file.rows = std::string("\x00\xF8\0\0", 4);
    file.fileHeader.bfOffBits += 12;
    const std::string masks("\0\xF8\0\0\xE0\x07\0\0\x1F\0\0\0", 12); // 5, 6 and 5 bits
    std::string bytes = file.Bytes();
    bytes.insert(54, masks);
    ASSERT_TRUE(Load(bytes));
    EXPECT_EQ(RGB(255, 0, 0), DrawnFile(m_picture).At(0, 0));
    ASSERT_TRUE(m_picture.Save(m_folder.File(L"saved.bmp")));
    CDIBitmap again;
    ASSERT_TRUE(again.Load(m_folder.File(L"saved.bmp")));
    EXPECT_EQ(DrawnFile(m_picture), DrawnFile(again));
}

TEST_F(DIBitmapFileTest, APictureWhoseRowsRunDownwardIsTurnedOver)
{
    for (const WORD depth : {1, 8, 24})
    {
        BitmapFile upward(5, 4, depth);
        BitmapFile downward(5, -4, depth);
        const std::size_t stride = upward.rows.size() / 4;
        downward.rows.clear();
        for (std::size_t row = 4; row-- > 0;)
        {
            downward.rows += upward.rows.substr(row * stride, stride);
        }
        ASSERT_TRUE(Load(upward.Bytes()));
        const Picture expected = DrawnFile(m_picture);
        ASSERT_TRUE(Load(downward.Bytes()));
        EXPECT_EQ(4, m_picture.GetHeight());
        EXPECT_EQ(expected, DrawnFile(m_picture)) << depth;
    }
}

TEST_F(DIBitmapFileTest, AnythingButABitmapFileIsRefused)
{
    EXPECT_FALSE(m_picture.Load(m_folder.File(L"missing.bmp")));
    EXPECT_FALSE(Load(""));
    EXPECT_FALSE(Load("B"));
    EXPECT_FALSE(LoadSpoilt([](BitmapFile& file) { file.fileHeader.bfType = 0x4D43; }));
    EXPECT_FALSE(m_picture.IsLoaded());
}

TEST_F(DIBitmapFileTest, AnotherKindOfHeaderIsRefused)
{
    for (const DWORD size : {0u, 12u, 39u, 41u, 108u, 124u, 0xFFFFFFFFu})
    {
        EXPECT_FALSE(LoadSpoilt([size](BitmapFile& file) { file.header.biSize = size; })) << size;
    }
}

TEST_F(DIBitmapFileTest, AFileCutShortAnywhereIsRefused)
{
    for (const WORD depth : {1, 8, 24})
    {
        const std::string whole = BitmapFile(5, 3, depth).Bytes();
        for (std::size_t length = 0; length < whole.size(); length += length < 60 ? 1 : 7)
        {
            EXPECT_FALSE(Load(whole.substr(0, length))) << depth << " bits, " << length << " bytes";
        }
        EXPECT_FALSE(Load(whole.substr(0, whole.size() - 1))) << depth;
        EXPECT_TRUE(Load(whole)) << depth;
        EXPECT_TRUE(Load(whole + "more")) << depth;
    }
}

TEST_F(DIBitmapFileTest, ASizeThatTheFileDoesNotHoldIsRefused)
{
    for (const LONG size : {0L, -1L, 6L, 1000L, 0x10000L, 0x7FFFFFFFL, -0x7FFFFFFFL - 1})
    {
        EXPECT_FALSE(LoadSpoilt([size](BitmapFile& file) { file.header.biWidth = size; })) << "width " << size;
    }
    for (const LONG size : {0L, 4L, -4L, 0x10000L, 0x7FFFFFFFL, -0x7FFFFFFFL - 1})
    {
        EXPECT_FALSE(LoadSpoilt([size](BitmapFile& file) { file.header.biHeight = size; })) << "height " << size;
    }
    const auto makeHuge = [](BitmapFile& file)
    {
        file.header.biWidth = 1; // rows of 4 bytes, together 2 to the power of 32 and 4 more
        file.header.biHeight = 0x40000001;
    };
    EXPECT_FALSE(LoadSpoilt(makeHuge, 32));
}

TEST_F(DIBitmapFileTest, AnOffsetThatLiesIsRefused)
{
    for (const DWORD offset : {0u, 13u, 53u, 55u, 1000u, 0x7FFFFFFFu, 0xFFFFFFFFu})
    {
        EXPECT_FALSE(LoadSpoilt([offset](BitmapFile& file) { file.fileHeader.bfOffBits = offset; })) << offset;
    }
    EXPECT_FALSE(LoadSpoilt([](BitmapFile& file) { file.fileHeader.bfOffBits -= 4; }, 8)) << "into the colour table";
}

TEST_F(DIBitmapFileTest, ACountOfColoursThatLiesIsRefused)
{
    for (const DWORD count : {257u, 1000u, 0x40000000u, 0xFFFFFFFFu})
    {
        for (const WORD depth : {1, 4, 8, 24})
        {
            EXPECT_FALSE(LoadSpoilt([count](BitmapFile& file) { file.header.biClrUsed = count; }, depth)) << count;
        }
    }
    EXPECT_FALSE(LoadSpoilt([](BitmapFile& file) { file.header.biClrUsed = 3; }, 1));
    EXPECT_FALSE(LoadSpoilt([](BitmapFile& file) { file.header.biClrUsed = 17; }, 4));
}

TEST_F(DIBitmapFileTest, UnknownDepthsPlanesAndCompressionsAreRefused)
{
    for (const WORD depth : {0, 2, 3, 5, 15, 48, 64, 0xFFFF})
    {
        EXPECT_FALSE(LoadSpoilt([depth](BitmapFile& file) { file.header.biBitCount = depth; })) << depth;
    }
    EXPECT_FALSE(LoadSpoilt([](BitmapFile& file) { file.header.biPlanes = 2; }));
    for (const DWORD compression : {BI_RLE8, BI_RLE4, BI_BITFIELDS, BI_JPEG, BI_PNG, 77L})
    {
        EXPECT_FALSE(LoadSpoilt([compression](BitmapFile& file) { file.header.biCompression = compression; }))
            << compression;
    }
}

TEST_F(DIBitmapFileTest, TheImageSizeOfTheHeaderIsNotNeeded)
{
    for (const DWORD size : {0u, 1u, 0xFFFFFFFFu})
    {
        EXPECT_TRUE(LoadSpoilt([size](BitmapFile& file) { file.header.biSizeImage = size; }));
        EXPECT_EQ(Picture(1, 1, DrawnFile(m_picture).At(0, 2)), DrawnFile(m_picture).Part({0, 2, 1, 3}));
    }
}

TEST_F(DIBitmapFileTest, AColourTableOfFewerEntriesIsEnoughAndSetsThePalette)
{
    BitmapFile file(4, 1, 8);
    file.table.resize(3);
    file.header.biClrUsed = 3;
    file.fileHeader.bfOffBits = 54 + 12;
    file.rows = std::string("\0\1\2\xFF", 4); // the last has no colour
    ASSERT_TRUE(Load(file.Bytes()));
    EXPECT_EQ(3u, GetPaletteEntries(*m_picture.GetPalette(), 0, 0, nullptr));
    EXPECT_EQ(RGB(2, 2, 2), DrawnFile(m_picture).At(2, 0));
}

TEST_F(DIBitmapFileTest, AFailureLeavesNoPicture)
{
    ASSERT_TRUE(Load(BitmapFile(5, 3, 8).Bytes()));
    EXPECT_FALSE(Load("no bitmap"));
    EXPECT_FALSE(m_picture.IsLoaded());
    EXPECT_EQ(0, m_picture.GetWidth());
    EXPECT_EQ(nullptr, m_picture.GetPalette());
}

TEST_F(DIBitmapFileTest, ARefusalTakesNoMemoryForThePixels)
{
    const std::wstring path = Write(BitmapFile(0x1000, 1, 24).Bytes().substr(0, 100));
    AllocationWatch watch;
    watch.FailAbove(8192); // an attempt for more would throw
    EXPECT_FALSE(m_picture.Load(path));
}

TEST_F(DIBitmapFileTest, APictureWithoutRoomInMemoryIsRefused)
{
    const std::wstring path = Write(BitmapFile(400, 100, 24).Bytes());
    AllocationWatch watch;
    watch.FailAbove(100'000);
    EXPECT_FALSE(m_picture.Load(path));
    EXPECT_FALSE(m_picture.IsLoaded());
}

TEST_F(DIBitmapFileTest, AFileIsReadFromItsPositionOn)
{
    ASSERT_TRUE(Load(BitmapFile(5, 3, 8).Bytes()));
    const Picture expected = DrawnFile(m_picture);
    const std::wstring path = Write("twelve bytes" + BitmapFile(5, 3, 8).Bytes());
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(file);
    SetFilePointer(file.get(), 12, nullptr, FILE_BEGIN);
    ASSERT_TRUE(m_picture.Load(file.get()));
    EXPECT_EQ(expected, DrawnFile(m_picture));
}

TEST_F(DIBitmapFileTest, ASavedPictureIsTheSameFileAgain)
{
    for (const WORD depth : {1, 4, 8, 16, 24, 32})
    {
        const std::string bytes = BitmapFile(5, 3, depth).Bytes();
        ASSERT_TRUE(Load(bytes));
        ASSERT_TRUE(m_picture.Save(m_folder.File(L"saved.bmp")));
        EXPECT_EQ(bytes, ReadBytes(m_folder.File(L"saved.bmp"))) << depth;
    }
}

TEST_F(DIBitmapFileTest, ASavedFileHasAFullColourTable)
{
    BitmapFile file(4, 1, 4);
    file.table.resize(2);
    file.header.biClrUsed = 2;
    file.fileHeader.bfOffBits = 54 + 8;
    ASSERT_TRUE(Load(file.Bytes()));
    ASSERT_TRUE(m_picture.Save(m_folder.File(L"saved.bmp")));
    EXPECT_EQ(54u + 16 * 4 + 4, ReadBytes(m_folder.File(L"saved.bmp")).size());
}

TEST_F(DIBitmapFileTest, SavingFailsWithoutAPictureAndWhereNothingCanBeWritten)
{
    EXPECT_FALSE(m_picture.Save(m_folder.File(L"saved.bmp")));
    EXPECT_FALSE(std::filesystem::exists(m_folder.File(L"saved.bmp")));
    ASSERT_TRUE(Load(BitmapFile(5, 3, 24).Bytes()));
    EXPECT_FALSE(m_picture.Save(m_folder.File(L"no folder\\saved.bmp")));
    const HalfWrites full;
    EXPECT_FALSE(m_picture.Save(m_folder.File(L"saved.bmp")));
}
