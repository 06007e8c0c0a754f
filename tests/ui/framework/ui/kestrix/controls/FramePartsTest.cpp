// The parts of the skin frame, put together in windows of several sizes.

#include "framework/ui/kestrix/controls/SkinFrame.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/Picture.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF Behind = RGB(255, 0, 255);

class FrameParts : public ::testing::Test
{
protected:
    Picture Frame(SIZE size, FrameTop top) const
    {
        return PictureOf(
            size, [&](HDC dc) { DrawSkinFrame(dc, size, top); }, RGB(255, 255, 255));
    }

    const LanguageFile m_language;
};

} // namespace

TEST_F(FrameParts, FitEachOtherInAWindowOfAnySize)
{
    EXPECT_PICTURE(Frame({200, 120}, FrameTop::Stretched), "form-200");
    EXPECT_PICTURE(Frame({97, 83}, FrameTop::Stretched), "form-97");
    EXPECT_PICTURE(Frame({200, 120}, FrameTop::Cut), "small-200");
}

TEST_F(FrameParts, CloseTheWindowAllAround)
{
    for (const SIZE size : {SIZE{200, 120}, SIZE{97, 83}, SIZE{301, 99}})
    {
        const Picture frame = Frame(size, FrameTop::Stretched);
        const COLORREF line = frame.At(0, 50);
        for (int x = 8; x < size.cx - 8; ++x)
        {
            ASSERT_EQ(line, frame.At(x, 0)) << x;
            ASSERT_EQ(line, frame.At(x, size.cy - 1)) << x;
        }
        for (int y = 8; y < size.cy - 8; ++y)
        {
            ASSERT_EQ(line, frame.At(0, y)) << y;
            ASSERT_EQ(line, frame.At(size.cx - 1, y)) << y;
        }
    }
}

TEST_F(FrameParts, AreTheSameOnBothSides)
{
    const Picture frame = Frame({101, 90}, FrameTop::Stretched);
    for (int y = 0; y < frame.Height(); ++y)
    {
        for (int x = 0; x < 50; ++x)
        {
            ASSERT_EQ(frame.At(x, y), frame.At(100 - x, y)) << x << ", " << y;
        }
    }
}

TEST_F(FrameParts, StandUnderTheWindowsShape)
{
    EXPECT_PICTURE(PictureOf({120, 90},
                             [](HDC dc)
                             {
                                 DrawSkinFrame(dc, {120, 90}, FrameTop::Stretched);
                                 const CRgn shape = MakeCornerRegion({120, 90});
                                 CRgn outside;
                                 outside.CreateRectRgn({0, 0, 120, 90});
                                 CombineRgn(outside, outside, shape, RGN_DIFF);
                                 CBrush brush;
                                 brush.CreateSolidBrush(Behind);
                                 FillRgn(dc, outside, brush);
                             }),
                   "shaped");
}
