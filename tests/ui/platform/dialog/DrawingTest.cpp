#include "platform/dialog/DeviceContext.h"
#include "platform/dialog/ImageList.h"

#include "tests/support/LiveHandles.h"
#include "tests/ui/platform/dialog/TestResources.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

#include <deque>

namespace
{

constexpr COLORREF Black = RGB(0, 0, 0);
constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Red = RGB(255, 0, 0);

// A picture in memory of 20 by 10 pixels, black.
class Picture
{
public:
    Picture()
    {
        const CClientDC screen(nullptr);
        m_dc.reset(CreateCompatibleDC(screen));
        m_bitmap.CreateCompatibleBitmap(screen, 20, 10);
        m_old = SelectObject(m_dc.get(), m_bitmap);
        PatBlt(m_dc.get(), 0, 0, 20, 10, BLACKNESS);
    }

    ~Picture() { SelectObject(m_dc.get(), m_old); }

    HDC Get() const { return m_dc.get(); }

    COLORREF At(int x, int y) const { return GetPixel(m_dc.get(), x, y); }

private:
    UniqueMemoryDC m_dc;
    CBitmap m_bitmap;
    HGDIOBJ m_old = nullptr;
};

void Fill(HDC dc, const RECT& rect, COLORREF color)
{
    CBrush brush;
    brush.CreateSolidBrush(color);
    FillRect(dc, &rect, brush);
}

TEST(DrawingTest, ASelectionEndsWithItsScope)
{
    const Picture picture;
    const HGDIOBJ before = GetCurrentObject(picture.Get(), OBJ_PEN);
    CPen pen;
    ASSERT_TRUE(pen.CreatePen(PS_SOLID, 1, Red));
    {
        const CSelectObject outer(picture.Get(), pen);
        EXPECT_EQ(pen.GetSafeHandle(), GetCurrentObject(picture.Get(), OBJ_PEN));
        const CSelectObject nothing(picture.Get(), nullptr);
        EXPECT_EQ(pen.GetSafeHandle(), GetCurrentObject(picture.Get(), OBJ_PEN));
    }
    EXPECT_EQ(before, GetCurrentObject(picture.Get(), OBJ_PEN));
}

TEST(DrawingTest, ASavedContextIsAsBefore)
{
    const Picture picture;
    SetTextColor(picture.Get(), Red);
    {
        const CSaveDC saved(picture.Get());
        SetTextColor(picture.Get(), White);
        SetBkMode(picture.Get(), TRANSPARENT);
    }
    EXPECT_EQ(Red, GetTextColor(picture.Get()));
    EXPECT_EQ(OPAQUE, GetBkMode(picture.Get()));
}

TEST(DrawingTest, MemoryReachesTheTargetAtTheEndAndInItsCoordinates)
{
    const Picture picture;
    {
        const CMemDC memory(picture.Get(), {5, 2, 15, 8});
        Fill(memory, {5, 2, 15, 8}, White);
        Fill(memory, {7, 3, 9, 5}, Red);
        EXPECT_EQ(Black, picture.At(6, 2)); // not yet
    }
    EXPECT_EQ(White, picture.At(5, 2));
    EXPECT_EQ(Red, picture.At(7, 3));
    EXPECT_EQ(White, picture.At(14, 7));
    EXPECT_EQ(Black, picture.At(15, 7));
    EXPECT_EQ(Black, picture.At(4, 2));
}

TEST(DrawingTest, MemoryMayBeCopiedInPart)
{
    const Picture picture;
    {
        CMemDC memory(picture.Get(), {0, 0, 20, 10});
        Fill(memory, {0, 0, 20, 10}, White);
        memory.LimitTo({0, 0, 8, 10});
    }
    EXPECT_EQ(White, picture.At(7, 9));
    EXPECT_EQ(Black, picture.At(8, 9));
}

TEST(DrawingTest, AnEmptyAreaIsDrawnToTheTargetItself)
{
    const Picture picture;
    const CMemDC memory(picture.Get(), {});
    EXPECT_EQ(picture.Get(), memory.GetSafeHdc());
}

TEST(DrawingTest, AMemoryContextIsAsNewEachTime)
{
    const Picture picture;
    {
        const CMemoryDC dc;
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(picture.Get(), 8, 8));
        SelectObject(dc, bitmap);
        SetTextColor(dc, Red);
        SetBkMode(dc, TRANSPARENT);
        SetWindowOrgEx(dc, 5, 5, nullptr);
        IntersectClipRect(dc, 0, 0, 1, 1);
        SaveDC(dc); // and never restored
        SetBkColor(dc, Red);
    }
    const CMemoryDC dc;
    BITMAP bitmap{};
    GetObjectW(GetCurrentObject(dc, OBJ_BITMAP), sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, 1);
    EXPECT_EQ(GetTextColor(dc), Black);
    EXPECT_EQ(GetBkColor(dc), White);
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    POINT origin{};
    GetWindowOrgEx(dc, &origin);
    EXPECT_EQ(origin.x, 0);
    CRgn clip;
    clip.CreateRectRgn({});
    EXPECT_EQ(GetClipRgn(dc, clip), 0) << "it has a clip region";
}

TEST(DrawingTest, MemoryContextsInUseAtOnceAreDifferentOnes)
{
    const CMemoryDC first;
    const CMemoryDC second;
    EXPECT_NE(first.GetSafeHdc(), nullptr);
    EXPECT_NE(second.GetSafeHdc(), nullptr);
    EXPECT_NE(first.GetSafeHdc(), second.GetSafeHdc());
}

TEST(DrawingTest, AFewMemoryContextsAreKeptAndMoreAreNot)
{
    constexpr int many = 50;
    constexpr int kept = 4;
    const auto useAtOnce = [](int count) { std::deque<CMemoryDC>(static_cast<std::size_t>(count)).clear(); };
    useAtOnce(many);
    const long spare = LiveHandles::Of(HandleKind::MemoryDC);
    useAtOnce(kept);
    EXPECT_EQ(LiveHandles::Of(HandleKind::MemoryDC), spare);
    useAtOnce(many);
    EXPECT_EQ(LiveHandles::Of(HandleKind::MemoryDC), spare);
    EXPECT_EQ(spare, kept);
}

TEST(DrawingTest, ASolidRectangleHasOneColourAndLeavesTheBrushAlone)
{
    const Picture picture;
    SetDCBrushColor(picture.Get(), White);
    FillSolidRect(picture.Get(), {5, 2, 15, 8}, Red);
    EXPECT_EQ(Red, picture.At(5, 2));
    EXPECT_EQ(Red, picture.At(14, 7));
    EXPECT_EQ(Black, picture.At(15, 7));
    EXPECT_EQ(Black, picture.At(14, 8));
    EXPECT_EQ(White, GetDCBrushColor(picture.Get()));
}

TEST(DrawingTest, AFrameOfTwoColoursIsOnePixelWideAndInsideOfItsRectangle)
{
    const Picture picture;
    Draw3dRect(picture.Get(), {5, 2, 15, 8}, White, Red);
    EXPECT_EQ(White, picture.At(5, 2));
    EXPECT_EQ(White, picture.At(13, 2));
    EXPECT_EQ(White, picture.At(5, 6));
    EXPECT_EQ(Red, picture.At(14, 2));
    EXPECT_EQ(Red, picture.At(14, 7));
    EXPECT_EQ(Red, picture.At(5, 7));
    EXPECT_EQ(Black, picture.At(6, 3));
    EXPECT_EQ(Black, picture.At(13, 6));
    EXPECT_EQ(Black, picture.At(4, 2));
    EXPECT_EQ(Black, picture.At(15, 7));
}

TEST(DrawingTest, AnEmptyFrameDrawsNothing)
{
    const Picture picture;
    for (const RECT& empty : {RECT{5, 5, 5, 8}, RECT{5, 5, 8, 5}, RECT{8, 8, 5, 5}})
    {
        Draw3dRect(picture.Get(), empty, White, Red);
    }
    for (int x = 0; x < 20; ++x)
    {
        for (int y = 0; y < 10; ++y)
        {
            ASSERT_EQ(Black, picture.At(x, y)) << x << ", " << y;
        }
    }
}

TEST(DrawingTest, PaintingValidatesTheWindowAndGivesTheAreaToPaint)
{
    PlainWindow window;
    ShowWindow(window.Get(), SW_SHOWNA);
    UpdateWindow(window.Get());
    const RECT part{3, 4, 30, 20};
    InvalidateRect(window.Get(), &part, FALSE);
    {
        const CPaintDC paint(window.Get());
        EXPECT_NE(nullptr, paint.GetSafeHdc());
        RECT area{};
        EXPECT_NE(NULLREGION, GetClipBox(paint.GetSafeHdc(), &area));
        EXPECT_EQ(3, area.left);
        EXPECT_EQ(20, area.bottom);
    }
    EXPECT_FALSE(GetUpdateRect(window.Get(), nullptr, FALSE));
}

TEST(DrawingTest, AnObjectIsDeletedByItsSuccessorAndWithItsOwner)
{
    const long before = LiveHandles::Of(HandleKind::Brush);
    {
        CBrush brush;
        EXPECT_EQ(nullptr, brush.GetSafeHandle());
        brush.CreateSolidBrush(Red);
        const HBRUSH first = brush;
        brush.CreateSolidBrush(White);
        EXPECT_EQ(0u, GetObjectType(first));
        EXPECT_EQ(before + 1, LiveHandles::Of(HandleKind::Brush));
    }
    EXPECT_EQ(before, LiveHandles::Of(HandleKind::Brush));
}

TEST(DrawingTest, AStockObjectOutlivesItsOwner)
{
    const auto hollow = static_cast<HBRUSH>(GetStockObject(HOLLOW_BRUSH));
    {
        CBrush brush;
        EXPECT_TRUE(brush.Attach(hollow));
    }
    EXPECT_EQ(static_cast<DWORD>(OBJ_BRUSH), GetObjectType(hollow));
}

TEST(DrawingTest, AFontKeepsItsDescription)
{
    LOGFONTW font{};
    font.lfHeight = -13;
    font.lfWeight = FW_BOLD;
    CFont bold;
    ASSERT_TRUE(bold.CreateFontIndirect(font));
    LOGFONTW read{};
    ASSERT_TRUE(bold.GetLogFont(read));
    EXPECT_EQ(-13, read.lfHeight);
    EXPECT_EQ(FW_BOLD, read.lfWeight);
    EXPECT_FALSE(CFont().GetLogFont(read));
}

TEST(DrawingTest, ABitmapIsLoadedInThreeWays)
{
    CBitmap bitmap;
    EXPECT_EQ(0, bitmap.GetSize().cx);
    ASSERT_TRUE(bitmap.LoadBitmap(IDB_TEST_STRIP));
    EXPECT_EQ(4, bitmap.GetSize().cx);
    EXPECT_EQ(2, bitmap.GetSize().cy);

    ASSERT_TRUE(bitmap.LoadDibSection(IDB_TEST_STRIP));
    DIBSECTION section{};
    EXPECT_EQ(static_cast<int>(sizeof section), GetObjectW(bitmap, sizeof section, &section));
    EXPECT_EQ(24, section.dsBm.bmBitsPixel);

    EXPECT_FALSE(bitmap.LoadBitmap(9999));
    EXPECT_EQ(nullptr, bitmap.GetSafeHandle()); // the one before is gone
}

TEST(DrawingTest, ADibSectionHas32BitsAPixelAndItsRowsFromTheTop)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateDibSection({3, 2}));
    EXPECT_EQ(bitmap.GetSize().cx, 3);
    EXPECT_EQ(bitmap.GetSize().cy, 2);
    const CMemoryDC dc;
    SelectObject(dc, bitmap);
    SetPixel(dc, 2, 0, Red);
    GdiFlush();
    DIBSECTION section{};
    ASSERT_EQ(static_cast<int>(sizeof section), GetObjectW(bitmap, sizeof section, &section));
    EXPECT_EQ(32, section.dsBm.bmBitsPixel);
    EXPECT_EQ(0xFF0000u, static_cast<const DWORD*>(section.dsBm.bmBits)[2]);
    EXPECT_FALSE(CBitmap().CreateDibSection({0, 2}));
}

TEST(DrawingTest, AColourOfTheTableIsReplacedWhenTheBitmapIsMapped)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadMappedBitmap(IDB_TEST_COLOR_TABLE, {Black, Red}));
    const Picture picture;
    const CSelectObject selected(picture.Get(), bitmap);
    EXPECT_EQ(Red, picture.At(0, 0));
    EXPECT_EQ(White, picture.At(1, 0));
}

TEST(DrawingTest, AnImageListHoldsTheImagesOfAStrip)
{
    const long before = LiveHandles::Of(HandleKind::ImageList);
    {
        CImageList images;
        CBitmap strip;
        ASSERT_TRUE(strip.LoadBitmap(IDB_TEST_STRIP));
        EXPECT_EQ(-1, images.Add(strip, White)); // no list yet
        EXPECT_EQ(0, images.GetImageCount());
        ASSERT_TRUE(images.Create(2, 2, ILC_COLOR24 | ILC_MASK, 0, 2));
        EXPECT_EQ(0, images.Add(strip, White));
        EXPECT_EQ(2, images.GetImageCount());
        EXPECT_EQ(-1, images.Add(nullptr, White));

        const Picture picture;
        Fill(picture.Get(), {0, 0, 20, 10}, Red);
        EXPECT_TRUE(images.Draw(picture.Get(), 1, {4, 5}));
        EXPECT_EQ(Black, picture.At(4, 5));
        EXPECT_EQ(Red, picture.At(5, 5)); // the mask's colour is not drawn
        EXPECT_FALSE(images.Draw(picture.Get(), 7, {0, 0}));
    }
    EXPECT_EQ(before, LiveHandles::Of(HandleKind::ImageList));
}

} // namespace
