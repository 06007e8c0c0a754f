// The pictures of tests and their comparison with kept ones.

#include "tests/support/Picture.h"

#include "tests/support/PngFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/gallery/SkinDialog.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

constexpr COLORREF Red = RGB(200, 30, 40);
constexpr COLORREF Blue = RGB(20, 30, 240);

// Seven by five pixels, red, with one in blue.
Picture RedWithBlueAt(int x, int y)
{
    Picture picture(7, 5, Red);
    picture.Set(x, y, Blue);
    return picture;
}

std::string FailureOf(const Picture& picture, const std::string& name)
{
    const testing::AssertionResult result = IsKeptPicture(picture, name);
    EXPECT_FALSE(result);
    return result.message();
}

} // namespace

TEST(PictureTest, TheKeptPictureIsRecognised)
{
    EXPECT_PICTURE(RedWithBlueAt(2, 3), "red-and-blue");
}

TEST(PictureTest, ADifferenceIsToldWithItsCountAndPlaceAndLeavesTwoFiles)
{
    const std::string failure = FailureOf(RedWithBlueAt(5, 4), "red-and-blue");
    EXPECT_NE(std::string::npos, failure.find("2 pixels differ")) << failure;
    EXPECT_NE(std::string::npos, failure.find("within 2, 3 to 6, 5")) << failure;
    EXPECT_NE(std::string::npos, failure.find("tools/update-pictures")) << failure;
    const auto start = failure.find("The picture: ") + 13;
    const std::filesystem::path actual = failure.substr(start, failure.find('\n') - start);
    EXPECT_EQ(RedWithBlueAt(5, 4), ReadPng(actual));
    const auto map = actual.parent_path() / "red-and-blue.difference.png";
    EXPECT_EQ(RGB(255, 0, 0), ReadPng(map).At(5, 4));
    EXPECT_NE(RGB(255, 0, 0), ReadPng(map).At(0, 0));
    // The next comparison that succeeds takes them away.
    EXPECT_PICTURE(RedWithBlueAt(2, 3), "red-and-blue");
    EXPECT_FALSE(exists(actual));
    EXPECT_FALSE(exists(map));
}

TEST(PictureTest, AnotherSizeIsADifference)
{
    const std::string failure = FailureOf(Picture(8, 5, Red), "red-and-blue");
    EXPECT_NE(std::string::npos, failure.find("6 pixels differ")) << failure;
    EXPECT_NE(std::string::npos, failure.find("the new one 8 by 5")) << failure;
    EXPECT_PICTURE(RedWithBlueAt(2, 3), "red-and-blue");
}

TEST(PictureTest, APngFileKeepsEveryPixel)
{
    const TemporaryFolder folder;
    Picture picture(17, 9, 0);
    for (int y = 0; y < 9; ++y)
    {
        for (int x = 0; x < 17; ++x)
        {
            picture.Set(x, y, RGB(x * 15, y * 28, x * y));
        }
    }
    WritePng(folder.Path() / "picture.png", picture);
    EXPECT_EQ(picture, ReadPng(folder.Path() / "picture.png"));
    EXPECT_THROW(ReadPng(folder.Path() / "missing.png"), std::runtime_error);
    WriteBytes(folder.File(L"bad.png"), "no picture");
    EXPECT_THROW(ReadPng(folder.Path() / "bad.png"), std::runtime_error);
    EXPECT_THROW(WritePng(folder.Path() / "missing" / "picture.png", picture), std::runtime_error);
}

TEST(PictureTest, WhatIsOutsideIsRefused)
{
    const Picture picture(7, 5, Red);
    EXPECT_THROW(picture.At(7, 0), std::out_of_range);
    EXPECT_THROW(picture.At(0, -1), std::out_of_range);
    EXPECT_THROW(picture.Part({5, 3, 8, 5}), std::out_of_range);
    EXPECT_EQ(Picture(2, 2, Red), picture.Part({5, 3, 7, 5}));
}

TEST(PictureTest, AWindowIsTakenWithItsChildrenAndWithoutWhatIsOutsideOfItsShape)
{
    CSkinDialog dialog({60, 40});
    dialog.RemoveControls();
    CSkinDialog page({20, 10}, &dialog);
    page.SetBackground(IDB_SKIN_PICTURE);
    page.SetWindowPos(nullptr, {10, 5, 30, 15}, SWP_SHOWWINDOW | SWP_NOZORDER);
    CRgn shape;
    shape.CreateRectRgn({0, 0, 60, 30});
    ASSERT_TRUE(SetWindowRgn(dialog, shape, TRUE));
    static_cast<void>(shape.Detach());
    const Picture picture = PictureOf(dialog);
    EXPECT_EQ(60, picture.Width());
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), picture.At(0, 0));
    EXPECT_EQ(RGB(30, 30, 30), picture.At(10, 5)) << "the rim of the page's bitmap";
    EXPECT_EQ(RGB(200, 40, 40), picture.At(11, 6));
    EXPECT_NE(OutsideOfShape, picture.At(0, 29));
    EXPECT_EQ(OutsideOfShape, picture.At(0, 30));
}

TEST(PictureTest, WhatIsNoWindowIsRefused)
{
    EXPECT_THROW(PictureOf(nullptr), std::runtime_error);
}
