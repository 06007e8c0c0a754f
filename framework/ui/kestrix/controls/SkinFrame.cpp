#include "framework/ui/kestrix/controls/SkinFrame.h"

#include "resource/resource.h"

namespace
{

// A bitmap of the language file in a context of its own.
class Part
{
public:
    Part(HDC dc, UINT number) : m_dc(CreateCompatibleDC(dc))
    {
        m_bitmap.LoadBitmap(number);
        m_before = SelectObject(m_dc.get(), m_bitmap);
    }

    ~Part() { SelectObject(m_dc.get(), m_before); }

    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    int Width() const { return m_bitmap.GetSize().cx; }

    int Height() const { return m_bitmap.GetSize().cy; }

    void Stretch(HDC dc, int x, int y, int width, int height) const
    {
        StretchBlt(dc, x, y, width, height, m_dc.get(), 0, 0, Width(), Height(), SRCCOPY);
    }

    void Copy(HDC dc, int x, int y, int width, int height) const
    {
        BitBlt(dc, x, y, width, height, m_dc.get(), 0, 0, SRCCOPY);
    }

private:
    const UniqueMemoryDC m_dc;
    CBitmap m_bitmap;
    HGDIOBJ m_before = nullptr;
};

} // namespace

void DrawSkinFrame(HDC dc, SIZE client, FrameTop frameTop)
{
    const Part top(dc, IDB_FRAME_TOP);
    const Part left(dc, IDB_FRAME_LEFT);
    const Part bottom(dc, IDB_FRAME_BOTTOM);
    const Part right(dc, IDB_FRAME_RIGHT);
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
    Part(dc, IDB_CORNER_TOP_LEFT).Copy(dc, 0, 0, left.Width(), top.Height());
    Part(dc, IDB_CORNER_TOP_RIGHT).Copy(dc, client.cx - right.Width(), 0, right.Width(), top.Height());
    // Its place comes from the width of the side, as that of the drawn corner always has.
    Part(dc, IDB_CORNER_BOTTOM_LEFT).Copy(dc, 0, client.cy - left.Width(), left.Width(), bottom.Height());
    Part(dc, IDB_CORNER_BOTTOM_RIGHT)
        .Copy(dc, client.cx - right.Width(), client.cy - bottom.Height(), right.Width(), bottom.Height());
}
