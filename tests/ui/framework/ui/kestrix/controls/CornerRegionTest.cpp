#include "framework/ui/kestrix/controls/CornerRegion.h"

#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/Picture.h"
#include "tests/ui/gallery/SkinDialog.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace
{

constexpr SIZE CornerSize{20, 16};

using Pixels = std::set<std::pair<int, int>>;

// Where the shape differs from the rectangle of the window, inside and one pixel around.
Pixels Toggled(const CRgn& shape, SIZE size)
{
    Pixels pixels;
    for (int y = -1; y <= size.cy; ++y)
    {
        for (int x = -1; x <= size.cx; ++x)
        {
            const bool inRectangle = x >= 0 && y >= 0 && x < size.cx && y < size.cy;
            if ((PtInRegion(shape, x, y) != FALSE) != inRectangle)
            {
                pixels.emplace(x, y);
            }
        }
    }
    return pixels;
}

Pixels Among(const Pixels& pixels, const RECT& area)
{
    Pixels inside;
    for (const auto& [x, y] : pixels)
    {
        if (PtInRect(&area, {x, y}))
        {
            inside.emplace(x, y);
        }
    }
    return inside;
}

// The corner bitmaps of the test program have four sizes: 3 by 3, 5 by 3, 3 by 4 and 7 by 4.
Pixels TestShape()
{
    return Toggled(MakeCornerRegion(CornerSize), CornerSize);
}

} // namespace

TEST(CornerRegion, TheWhiteOfTheTopLeftCornerIsCutAwayAsItStands)
{
    EXPECT_EQ((Pixels{{0, 0}, {1, 0}, {0, 1}}), Among(TestShape(), {-1, -1, 10, 8}));
}

TEST(CornerRegion, TheTopRightCornerIsScannedAcrossTheWidthOfTheTopLeftOneInclusive)
{
    // Its white: columns 0, 3 and 4 of row 0 and column 4 of row 1; columns 0 to 3 are looked at.
    EXPECT_EQ((Pixels{{15, 0}, {18, 0}}), Among(TestShape(), {10, -1, 21, 8}));
}

TEST(CornerRegion, TheBottomLeftCornerStandsOnTheLowerEdge)
{
    EXPECT_EQ((Pixels{{0, 14}, {0, 15}, {1, 15}}), Among(TestShape(), {-1, 8, 10, 17}));
}

TEST(CornerRegion, TheBottomRightCornerIsPlacedAndScannedByTheWidthOfTheTopRightOne)
{
    // Its white: columns 4 and 5 of row 2, and 0, 4, 5 and 6 of row 3; columns 0 to 5 are looked at. Column 5 lies
    // outside of the rectangle, where a toggled pixel is added.
    EXPECT_EQ((Pixels{{19, 14}, {20, 14}, {15, 15}, {19, 15}, {20, 15}}), Among(TestShape(), {10, 8, 21, 17}));
}

TEST(CornerRegion, EachPixelIsToggledSoThatCornersThatOverlapAreWholeAgain)
{
    constexpr SIZE low{3, 3}; // the left corners share their rows
    const Pixels pixels = Toggled(MakeCornerRegion(low), low);
    EXPECT_EQ((Pixels{{0, 0}, {0, 2}}), Among(pixels, {0, 0, 1, 3})) << "row 1 is cut by both";
}

TEST(CornerRegion, WithoutTheBitmapsTheWindowStaysARectangle)
{
    const HMODULE before = AfxGetResourceHandle();
    AfxSetResourceHandle(GetModuleHandleW(L"gdi32.dll"));
    EXPECT_EQ(Pixels{}, TestShape());
    AfxSetResourceHandle(before);
}

TEST(CornerRegion, TheDialogGivesTheShapeToItsWindow)
{
    CSkinDialog dialog(CornerSize);
    dialog.ShapeCorners();
    CRgn shape;
    shape.CreateRectRgn({});
    ASSERT_EQ(COMPLEXREGION, GetWindowRgn(dialog, shape));
    EXPECT_EQ(TestShape(), Toggled(shape, CornerSize));
}

TEST(CornerRegion, TheSkinsCornersAreEqualAndSmall)
{
    CSkinDialog dialog({120, 90});
    const LanguageFile language;
    const Pixels pixels = Toggled(MakeCornerRegion({120, 90}), {120, 90});
    const Pixels corner{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {0, 1}, {1, 1}, {2, 1}, {0, 2}, {1, 2}, {0, 3}, {0, 4}};
    Pixels all;
    for (const auto& [x, y] : corner)
    {
        all.insert({{x, y}, {119 - x, y}, {x, 89 - y}, {119 - x, 89 - y}});
    }
    EXPECT_EQ(all, pixels);
}

TEST(CornerRegion, ShapedWindow)
{
    CSkinDialog dialog({120, 90});
    dialog.RemoveControls();
    const LanguageFile language;
    dialog.SetBackground(IDB_FRAME_TOP);
    dialog.ShapeCorners();
    EXPECT_PICTURE(PictureOf(dialog), "shaped");
}
