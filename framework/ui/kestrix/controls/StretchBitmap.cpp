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

CBitmap StretchBitmap(HBITMAP source, SIZE size, int border)
{
    CBitmap result;
    BITMAP whole{};
    if (source == nullptr || GetObjectW(source, sizeof whole, &whole) == 0 || size.cx <= 0 || size.cy <= 0)
    {
        return result;
    }
    const CClientDC screen(nullptr);
    const UniqueMemoryDC from(CreateCompatibleDC(screen));
    const UniqueMemoryDC to(CreateCompatibleDC(screen));
    if (!from || !to || !result.CreateCompatibleBitmap(screen, size.cx, size.cy))
    {
        return result;
    }
    const CSelectObject selectedSource(from.get(), source);
    const CSelectObject selectedResult(to.get(), result);
    SetStretchBltMode(to.get(), COLORONCOLOR);
    for (const Piece& row : CutAxis(whole.bmHeight, size.cy, border))
    {
        for (const Piece& column : CutAxis(whole.bmWidth, size.cx, border))
        {
            StretchBlt(to.get(), column.to, row.to, column.toLength, row.toLength, from.get(), column.from, row.from,
                       column.fromLength, row.fromLength, SRCCOPY);
        }
    }
    return result;
}
