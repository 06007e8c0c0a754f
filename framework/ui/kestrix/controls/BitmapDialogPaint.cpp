// What a bitmap dialog paints behind its controls.

#include "framework/ui/kestrix/controls/BitmapDialog.h"

#include "framework/ui/kestrix/controls/SkinColours.h"
#include "framework/ui/kestrix/controls/StretchBitmap.h"

namespace
{

bool LoadPicture(CDIBitmap& picture, HWND window, UINT bitmap)
{
    CBitmap source;
    const CClientDC dc(window);
    const ScaledArt art = ArtOf(bitmap);
    picture.Clear();
    return source.LoadDibSection(art.number) && FitBitmap(source, art.SizeOnScreen(source.GetSize())) &&
           picture.Attach(dc, source);
}

constexpr bool LeavesRoom(BackgroundMode mode)
{
    return mode >= BackgroundMode::Centred && mode <= BackgroundMode::BottomRight;
}

} // namespace

bool CBitmapDialog::SetBackground(UINT bitmap, BackgroundMode mode)
{
    m_nBackgroundMode = mode;
    Invalidate();
    return LoadPicture(m_bmpBackground, m_hWnd, bitmap);
}

bool CBitmapDialog::SetImage(std::size_t image, UINT bitmap, POINT place)
{
    if (image < m_arrImagePlaces.size())
    {
        m_arrImagePlaces[image] = {Scaled(place.x), Scaled(place.y)};
    }
    const std::uint32_t flag = 1u << image;
    const bool loaded = LoadPicture(m_arrImages.at(image), m_hWnd, bitmap);
    m_nImageFlags = loaded ? m_nImageFlags | flag : m_nImageFlags & ~flag;
    Invalidate();
    return loaded;
}

bool CBitmapDialog::ShowsBackground() const
{
    return m_bmpBackground.IsLoaded() && !IsHighContrast();
}

BOOL CBitmapDialog::OnEraseBkgnd(HDC dc)
{
    if (!ShowsBackground())
    {
        const auto erased = static_cast<BOOL>(Default());
        m_FocusRing.Draw(*this, dc);
        return erased;
    }
    if (LeavesRoom(m_nBackgroundMode))
    {
        Default();
    }
    const RECT client = GetClientRect();
    DrawBackground(dc, {client.right, client.bottom});
    DrawImages(dc, {client.right, client.bottom});
    m_FocusRing.Draw(*this, dc);
    return TRUE;
}

void CBitmapDialog::DrawBackground(HDC dc, SIZE client) const
{
    const int right = client.cx - m_bmpBackground.GetWidth();
    const int bottom = client.cy - m_bmpBackground.GetHeight();
    switch (m_nBackgroundMode)
    {
    case BackgroundMode::Stretched:
        return m_bmpBackground.DrawDIB(dc, 0, 0, client.cx, client.cy);
    case BackgroundMode::Centred:
        return m_bmpBackground.DrawDIB(dc, right / 2, bottom / 2);
    case BackgroundMode::TopRight:
        return m_bmpBackground.DrawDIB(dc, right, 0);
    case BackgroundMode::BottomLeft:
        return m_bmpBackground.DrawDIB(dc, 0, bottom);
    case BackgroundMode::BottomRight:
        return m_bmpBackground.DrawDIB(dc, right, bottom);
    default:
        return DrawTiles(dc, client);
    }
}

// As a brush: one by one, a form takes more than a thousand pictures, 20 ms a time, several times at each start.
void CBitmapDialog::DrawTiles(HDC dc, SIZE client) const
{
    CBitmap tile;
    tile.CreateCompatibleBitmap(dc, m_bmpBackground.GetWidth(), m_bmpBackground.GetHeight());
    {
        const CMemoryDC memory;
        SelectObject(memory, tile);
        m_bmpBackground.DrawDIB(memory, 0, 0);
    }
    CBrush tiles;
    tiles.CreatePatternBrush(tile);
    POINT origin{}; // of the context may be anywhere, that of a brush is in device coordinates
    LPtoDP(dc, &origin, 1);
    const CSaveDC saved(dc);
    SetBrushOrgEx(dc, origin.x, origin.y, nullptr);
    const RECT area{0, 0, client.cx, client.cy};
    FillRect(dc, &area, tiles);
}

void CBitmapDialog::DrawImages(HDC dc, SIZE client) const
{
    const std::array<POINT, Images> places{
        m_arrImagePlaces[0],
        m_arrImagePlaces[1],
        m_arrImagePlaces[2],
        POINT{client.cx - m_arrImages[3].GetWidth(), 0},
        POINT{0, client.cy - m_arrImages[4].GetHeight()},
    };
    for (std::size_t i = 0; i < Images; ++i)
    {
        if ((m_nImageFlags & 1u << i) != 0)
        {
            m_arrImages[i].DrawDIB(dc, places[i].x, places[i].y);
        }
    }
}
