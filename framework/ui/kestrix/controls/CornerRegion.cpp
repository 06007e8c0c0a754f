#include "framework/ui/kestrix/controls/CornerRegion.h"

#include "framework/ui/kestrix/controls/BitmapPixels.h"
#include "framework/ui/kestrix/controls/StretchBitmap.h"
#include "resource/resource.h"

namespace
{

constexpr COLORREF CutAway = RGB(255, 255, 255);

CBitmapPixels LoadCorner(UINT bitmap)
{
    constexpr int noBorder = 0;
    const BitmapResource corner(bitmap);
    return CBitmapPixels(StretchBitmap(corner, corner.GetSize(), noBorder));
}

// The bounds are inclusive: the last column and row asked for lie outside of a corner of the scanned size.
void CutCorner(HRGN shape, const CBitmapPixels& corner, SIZE scanned, POINT place)
{
    for (int y = 0; y <= scanned.cy; ++y)
    {
        for (int x = 0; x <= scanned.cx; ++x)
        {
            if (corner.At(x, y) == CutAway)
            {
                CRgn pixel;
                pixel.CreateRectRgn({place.x + x, place.y + y, place.x + x + 1, place.y + y + 1});
                CombineRgn(shape, shape, pixel, RGN_XOR);
            }
        }
    }
}

} // namespace

CRgn MakeCornerRegion(SIZE client)
{
    const CBitmapPixels topLeft = LoadCorner(IDB_CORNER_TOP_LEFT);
    const CBitmapPixels topRight = LoadCorner(IDB_CORNER_TOP_RIGHT);
    const CBitmapPixels bottomLeft = LoadCorner(IDB_CORNER_BOTTOM_LEFT);
    const CBitmapPixels bottomRight = LoadCorner(IDB_CORNER_BOTTOM_RIGHT);
    const LONG right = client.cx - topRight.GetSize().cx;

    CRgn shape;
    shape.CreateRectRgn({0, 0, client.cx, client.cy});
    // The two on the right are scanned across the width of another corner; all four are of one size.
    CutCorner(shape, topLeft, topLeft.GetSize(), {0, 0});
    CutCorner(shape, topRight, {topLeft.GetSize().cx, topRight.GetSize().cy}, {right, 0});
    CutCorner(shape, bottomLeft, bottomLeft.GetSize(), {0, client.cy - bottomLeft.GetSize().cy});
    CutCorner(shape, bottomRight, {topRight.GetSize().cx, bottomRight.GetSize().cy},
              {right, client.cy - bottomRight.GetSize().cy});
    return shape;
}
