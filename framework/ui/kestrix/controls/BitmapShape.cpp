#include "framework/ui/kestrix/controls/BitmapShape.h"

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
    BITMAP whole{};
    GetObjectW(bitmap, sizeof whole, &whole);
    const UniqueMemoryDC dc(CreateCompatibleDC(nullptr));
    const CSelectObject selected(dc.get(), bitmap);
    for (int y = 0; y < whole.bmHeight; ++y)
    {
        for (int x = 0; x < whole.bmWidth; ++x)
        {
            const int start = x;
            while (x < whole.bmWidth && GetPixel(dc.get(), x, y) == hole)
            {
                ++x;
            }
            if (x > start)
            {
                Cut(shape, {whole.bmWidth, whole.bmHeight}, {start, y, x, y + 1});
            }
        }
    }
    return shape;
}
