#include "framework/ui/kestrix/controls/BitmapShape.h"

#include "framework/ui/kestrix/controls/BitmapPixels.h"

namespace
{

void Cut(CRgn& shape, SIZE size, const RECT& run)
{
    if (shape.GetSafeHandle() == nullptr)
    {
        shape.CreateRectRgn({0, 0, size.cx, size.cy});
    }
    CRgn hole;
    hole.CreateRectRgn(run);
    CombineRgn(shape, shape, hole, RGN_DIFF);
}

} // namespace

CRgn MakeBitmapShape(HBITMAP bitmap, COLORREF hole)
{
    CRgn shape;
    const CBitmapPixels pixels(bitmap);
    const SIZE size = pixels.GetSize();
    for (int y = 0; y < size.cy; ++y)
    {
        for (int x = 0; x < size.cx; ++x)
        {
            const int start = x;
            while (x < size.cx && pixels.At(x, y) == hole)
            {
                ++x;
            }
            if (x > start)
            {
                Cut(shape, size, {start, y, x, y + 1});
            }
        }
    }
    return shape;
}
