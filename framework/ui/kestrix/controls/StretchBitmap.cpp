#include "framework/ui/kestrix/controls/StretchBitmap.h"

#include <algorithm>
#include <array>

namespace
{

// A piece of one axis: where it is taken from and where it goes.
struct Piece
{
    int from;
    int fromLength;
    int to;
    int toLength;
};

// Near border, stretched middle, far border.
std::array<Piece, 3> CutAxis(int from, int to, int border)
{
    const int fixed = std::max(0, std::min({border, (from - 1) / 2, to / 2}));
    return {{{0, fixed, 0, fixed},
             {fixed, from - 2 * fixed, fixed, to - 2 * fixed},
             {from - fixed, fixed, to - fixed, fixed}}};
}

} // namespace

CBitmap StretchBitmap(const BitmapResource& source, SIZE size, int border)
{
    CBitmap result;
    if (source.IsEmpty() || size.cx <= 0 || size.cy <= 0 || !result.CreateDibSection(size))
    {
        return result;
    }
    const CMemoryDC dc;
    SelectObject(dc, result);
    SetStretchBltMode(dc, COLORONCOLOR);
    const SIZE whole = source.GetSize();
    for (const Piece& row : CutAxis(whole.cy, size.cy, border))
    {
        for (const Piece& column : CutAxis(whole.cx, size.cx, border))
        {
            source.Draw(dc, {column.to, row.to, column.to + column.toLength, row.to + row.toLength},
                        {column.from, row.from, column.from + column.fromLength, row.from + row.fromLength});
        }
    }
    return result;
}

bool FitBitmap(CBitmap& bitmap, SIZE size)
{
    const SIZE own = bitmap.GetSize();
    if (own.cx == size.cx && own.cy == size.cy)
    {
        return bitmap.GetSafeHandle() != nullptr;
    }
    CBitmap result;
    if (bitmap.GetSafeHandle() == nullptr || !result.CreateDibSection(size))
    {
        return false;
    }
    {
        const CMemoryDC from;
        const CMemoryDC to;
        SelectObject(from, bitmap);
        SelectObject(to, result);
        SetStretchBltMode(to, COLORONCOLOR);
        StretchBlt(to, 0, 0, size.cx, size.cy, from, 0, 0, own.cx, own.cy, SRCCOPY);
    }
    return bitmap.Attach(result.Detach());
}
