#include "framework/ui/kestrix/controls/CornerRegion.h"

#include "resource/resource.h"

namespace
{

constexpr COLORREF CutAway = RGB(255, 255, 255);

// A corner bitmap, selected into a context of its own so that its pixels can be read.
class CCorner
{
public:
    CCorner(HDC dc, UINT bitmap) : m_dc(CreateCompatibleDC(dc))
    {
        m_bitmap.LoadBitmap(bitmap);
        m_selected = SelectObject(m_dc.get(), m_bitmap);
    }

    ~CCorner() { SelectObject(m_dc.get(), m_selected); }

    CCorner(const CCorner&) = delete;
    CCorner& operator=(const CCorner&) = delete;

    SIZE GetSize() const { return m_bitmap.GetSize(); }

    // Nothing is cut away outside of the bitmap.
    bool IsCutAway(int x, int y) const
    {
        return m_bitmap.GetSafeHandle() != nullptr && GetPixel(m_dc.get(), x, y) == CutAway;
    }

private:
    const UniqueMemoryDC m_dc;
    CBitmap m_bitmap;
    HGDIOBJ m_selected = nullptr;
};

// The bounds are inclusive: the last column and row asked for lie outside of a corner of the scanned size.
void CutCorner(HRGN shape, const CCorner& corner, SIZE scanned, POINT place)
{
    for (int y = 0; y <= scanned.cy; ++y)
    {
        for (int x = 0; x <= scanned.cx; ++x)
        {
            if (corner.IsCutAway(x, y))
            {
                CRgn pixel;
                pixel.CreateRectRgn({place.x + x, place.y + y, place.x + x + 1, place.y + y + 1});
                CombineRgn(shape, shape, pixel, RGN_XOR);
            }
        }
    }
}

} // namespace

CRgn MakeCornerRegion(HDC dc, SIZE client)
{
    const CCorner topLeft(dc, IDB_CORNER_TOP_LEFT);
    const CCorner topRight(dc, IDB_CORNER_TOP_RIGHT);
    const CCorner bottomLeft(dc, IDB_CORNER_BOTTOM_LEFT);
    const CCorner bottomRight(dc, IDB_CORNER_BOTTOM_RIGHT);
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
