#include "framework/ui/kestrix/controls/SkinFrame.h"

#include "framework/ui/kestrix/controls/BitmapResource.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "resource/resource.h"

#include <algorithm>

namespace
{

// A bitmap of the language file.
class Part
{
public:
    explicit Part(UINT number) : m_bitmap(number) {}

    int Width() const { return m_bitmap.GetSize().cx; }

    int Height() const { return m_bitmap.GetSize().cy; }

    void Stretch(HDC dc, int x, int y, int width, int height) const
    {
        m_bitmap.Draw(dc, {x, y, x + width, y + height}, {0, 0, Width(), Height()});
    }

    // As much of it as there is in this size.
    void Copy(HDC dc, int x, int y, int width, int height) const
    {
        const int right = std::min(width, Width());
        const int bottom = std::min(height, Height());
        m_bitmap.Draw(dc, {x, y, x + right, y + bottom}, {0, 0, right, bottom});
    }

private:
    const BitmapResource m_bitmap;
};

// The caption and the lines of the frame in the colours of the system.
void DrawSystemFrame(HDC dc, SIZE client)
{
    const int top = Part(IDB_FRAME_TOP).Height();
    const COLORREF line = GetSysColor(COLOR_BTNTEXT);
    FillSolidRect(dc, {0, 0, client.cx, top}, GetSysColor(COLOR_ACTIVECAPTION));
    Draw3dRect(dc, {0, 0, client.cx, client.cy}, line, line);
}

} // namespace

void DrawSkinFrame(HDC dc, SIZE client, FrameTop frameTop)
{
    if (IsHighContrast())
    {
        return DrawSystemFrame(dc, client);
    }
    const CSaveDC saved(dc);
    SetStretchBltMode(dc, COLORONCOLOR);
    const Part top(IDB_FRAME_TOP);
    const Part left(IDB_FRAME_LEFT);
    const Part bottom(IDB_FRAME_BOTTOM);
    const Part right(IDB_FRAME_RIGHT);
    if (frameTop == FrameTop::Cut)
    {
        top.Copy(dc, 0, 0, client.cx, client.cy);
    }
    else
    {
        top.Stretch(dc, 0, 0, client.cx, top.Height());
    }
    left.Stretch(dc, 0, 0, left.Width(), client.cy);
    bottom.Stretch(dc, 0, client.cy - bottom.Height(), client.cx, bottom.Height());
    right.Stretch(dc, client.cx - right.Width(), 0, right.Width(), client.cy);
    Part(IDB_CORNER_TOP_LEFT).Copy(dc, 0, 0, left.Width(), top.Height());
    Part(IDB_CORNER_TOP_RIGHT).Copy(dc, client.cx - right.Width(), 0, right.Width(), top.Height());
    // Its place comes from the width of the side, as that of the drawn corner always has.
    Part(IDB_CORNER_BOTTOM_LEFT).Copy(dc, 0, client.cy - left.Width(), left.Width(), bottom.Height());
    Part(IDB_CORNER_BOTTOM_RIGHT)
        .Copy(dc, client.cx - right.Width(), client.cy - bottom.Height(), right.Width(), bottom.Height());
}
