#include "tests/support/Picture.h"
#include "tests/ui/gallery/SkinDialog.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

// Neither is a multiple of the test picture's 16 by 12 pixels; the second is smaller.
constexpr SIZE Large{53, 41};
constexpr SIZE Small{11, 7};

struct Mode
{
    BackgroundMode mode;
    const char* name;
};

constexpr Mode Modes[] = {
    {BackgroundMode::Tiled, "tiled"},
    {BackgroundMode::Stretched, "stretched"},
    {BackgroundMode::Centred, "centred"},
    {BackgroundMode::TopRight, "top-right"},
    {BackgroundMode::BottomLeft, "bottom-left"},
    {BackgroundMode::BottomRight, "bottom-right"},
    {static_cast<BackgroundMode>(6), "tiled"},
    {static_cast<BackgroundMode>(0xFFFFFFFF), "tiled"},
};

// The dialog paints its controls' places too: it is empty here.
Picture PictureOfDialog(SIZE size, const std::function<void(CSkinDialog&)>& prepare)
{
    CSkinDialog dialog(size);
    dialog.RemoveControls();
    prepare(dialog);
    return PictureOf(dialog);
}

Picture Background(BackgroundMode mode, SIZE size)
{
    return PictureOfDialog(size,
                           [mode](CSkinDialog& dialog) { EXPECT_TRUE(dialog.SetBackground(IDB_SKIN_PICTURE, mode)); });
}

// The colours of the test picture at its own places.
Picture TestPicture()
{
    return Background(BackgroundMode::Tiled, {16, 12});
}

} // namespace

TEST(BackgroundModes, EachPlacesAnImageSmallerThanTheWindow)
{
    for (const auto& [mode, name] : Modes)
    {
        EXPECT_PICTURE(Background(mode, Large), std::string(name) + "-large");
    }
}

TEST(BackgroundModes, EachPlacesAnImageLargerThanTheWindow)
{
    for (const auto& [mode, name] : Modes)
    {
        EXPECT_PICTURE(Background(mode, Small), std::string(name) + "-small");
    }
}

TEST(BackgroundModes, TilingCoversAWindowThatIsNoMultipleOfTheBitmapWithCutTilesRightAndBelow)
{
    const Picture picture = Background(BackgroundMode::Tiled, Large);
    const Picture tile = TestPicture();
    for (int y = 0; y < Large.cy; ++y)
    {
        for (int x = 0; x < Large.cx; ++x)
        {
            ASSERT_EQ(tile.At(x % 16, y % 12), picture.At(x, y)) << x << ", " << y;
        }
    }
}

TEST(BackgroundModes, CentredWithABitmapLargerThanTheWindowPlacesItAtANegativePosition)
{
    const Picture tile = TestPicture();
    // (11 - 16) / 2 and (7 - 12) / 2 are -2 in whole numbers
    EXPECT_EQ(tile.Part({2, 2, 2 + Small.cx, 2 + Small.cy}), Background(BackgroundMode::Centred, Small));
}

TEST(BackgroundModes, WhatTheImageLeavesFreeHasTheSystemsBackground)
{
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(face, Background(BackgroundMode::Centred, Large).At(0, 0));
    EXPECT_EQ(face, Background(BackgroundMode::TopRight, Large).At(0, 20));
    EXPECT_EQ(face, Background(BackgroundMode::BottomLeft, Large).At(40, 0));
    EXPECT_EQ(face, Background(BackgroundMode::BottomRight, Large).At(0, 0));
}

TEST(BackgroundModes, WithoutABackgroundTheBasePaints)
{
    const Picture plain = PictureOfDialog(Large, [](CSkinDialog&) {});
    EXPECT_EQ(Picture(Large.cx, Large.cy, GetSysColor(COLOR_BTNFACE)), plain);
}

TEST(BackgroundModes, ABitmapThatIsMissingLeavesTheBasesPainting)
{
    const Picture picture = PictureOfDialog(Large,
                                            [](CSkinDialog& dialog)
                                            {
                                                EXPECT_TRUE(dialog.SetBackground(IDB_SKIN_PICTURE));
                                                EXPECT_FALSE(dialog.SetBackground(9999));
                                            });
    EXPECT_EQ(Picture(Large.cx, Large.cy, GetSysColor(COLOR_BTNFACE)), picture);
}

TEST(BackgroundModes, ABackgroundWithAPaletteIsPaintedInItsColours)
{
    const Picture picture =
        PictureOfDialog({4, 2}, [](CSkinDialog& dialog) { EXPECT_TRUE(dialog.SetBackground(IDB_SKIN_INDEXED)); });
    EXPECT_EQ(RGB(255, 0, 0), picture.At(0, 0));
    EXPECT_EQ(RGB(0, 255, 0), picture.At(1, 0));
    EXPECT_EQ(RGB(255, 255, 255), picture.At(0, 1));
}

TEST(FurtherImages, AllFiveStandAtTheirPlaces)
{
    EXPECT_PICTURE(PictureOfDialog({60, 50},
                                   [](CSkinDialog& dialog)
                                   {
                                       dialog.SetBackground(IDB_SKIN_INDEXED);
                                       EXPECT_TRUE(dialog.SetImage(0, IDB_SKIN_PICTURE, {2, 3}));
                                       EXPECT_TRUE(dialog.SetImage(1, IDB_SKIN_PICTURE, {20, 17}));
                                       EXPECT_TRUE(dialog.SetImage(2, IDB_SKIN_PICTURE, {-5, 20}));
                                       EXPECT_TRUE(dialog.SetImage(3, IDB_SKIN_PICTURE));
                                       EXPECT_TRUE(dialog.SetImage(4, IDB_SKIN_PICTURE));
                                   }),
                   "all");
}

TEST(FurtherImages, EachIsShownWithoutTheOthers)
{
    for (std::size_t image = 0; image < 5; ++image)
    {
        EXPECT_PICTURE(PictureOfDialog({60, 50},
                                       [image](CSkinDialog& dialog)
                                       {
                                           dialog.SetBackground(IDB_SKIN_INDEXED);
                                           EXPECT_TRUE(dialog.SetImage(image, IDB_SKIN_PICTURE, {9, 14}));
                                       }),
                       "image-" + std::to_string(image + 1));
    }
}

TEST(FurtherImages, ALaterOneCoversAnEarlierOne)
{
    const Picture picture = PictureOfDialog({20, 20},
                                            [](CSkinDialog& dialog)
                                            {
                                                dialog.SetBackground(IDB_SKIN_PICTURE);
                                                dialog.SetImage(0, IDB_SKIN_INDEXED, {0, 0});
                                                dialog.SetImage(1, IDB_SKIN_INDEXED, {1, 0});
                                            });
    EXPECT_EQ(RGB(255, 0, 0), picture.At(0, 0));
    EXPECT_EQ(RGB(255, 0, 0), picture.At(1, 0)) << "the second one's first pixel";
}

TEST(FurtherImages, OneThatIsMissingTakesTheOneBeforeAway)
{
    const auto prepare = [](CSkinDialog& dialog)
    {
        dialog.SetBackground(IDB_SKIN_INDEXED);
        EXPECT_TRUE(dialog.SetImage(3, IDB_SKIN_PICTURE));
        EXPECT_FALSE(dialog.SetImage(3, 9999));
    };
    const Picture without = PictureOfDialog(Large, [](CSkinDialog& dialog) { dialog.SetBackground(IDB_SKIN_INDEXED); });
    EXPECT_EQ(without, PictureOfDialog(Large, prepare));
}

TEST(FurtherImages, NoneIsShownWithoutABackground)
{
    const Picture picture =
        PictureOfDialog(Large, [](CSkinDialog& dialog) { EXPECT_TRUE(dialog.SetImage(0, IDB_SKIN_PICTURE)); });
    EXPECT_EQ(Picture(Large.cx, Large.cy, GetSysColor(COLOR_BTNFACE)), picture);
}
