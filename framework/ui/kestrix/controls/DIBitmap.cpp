#include "framework/ui/kestrix/controls/DIBitmap.h"

#include "framework/ui/kestrix/controls/BitmapRows.h"

#include <new>

const BITMAPINFO* CDIBitmap::Info() const noexcept
{
    return reinterpret_cast<const BITMAPINFO*>(m_pInfo.get());
}

void CDIBitmap::Clear() noexcept
{
    m_pInfo.reset();
    m_pBits.reset();
    m_pPalette.reset();
    m_bPadded = false;
}

// What is set in the context here is set back by the caller.
void CDIBitmap::PrepareToDraw(HDC dc) const
{
    if (m_pPalette != nullptr)
    {
        SelectPalette(dc, *m_pPalette, TRUE);
        RealizePalette(dc);
    }
    SetStretchBltMode(dc, COLORONCOLOR);
}

void CDIBitmap::DrawDIB(HDC dc, const RECT& target, POINT source) const
{
    if (!IsLoaded())
    {
        return;
    }
    const CSaveDC saved(dc);
    PrepareToDraw(dc);
    // The lower left corner of the whole picture stands where the source's corner meets that of the target.
    const int left = target.left - source.x;
    const int top = target.bottom + source.y - GetHeight();
    IntersectClipRect(dc, target.left, target.top, target.right, target.bottom);
    SetDIBitsToDevice(dc, left, top, GetWidth(), GetHeight(), 0, 0, 0, GetHeight(), m_pBits.get(), Info(),
                      DIB_RGB_COLORS);
}

void CDIBitmap::DrawDIB(HDC dc, int x, int y, int width, int height) const
{
    if (!IsLoaded())
    {
        return;
    }
    const CSaveDC saved(dc);
    PrepareToDraw(dc);
    StretchDIBits(dc, x, y, width, height, 0, 0, GetWidth(), GetHeight(), m_pBits.get(), Info(), DIB_RGB_COLORS,
                  SRCCOPY);
}

void CDIBitmap::DrawDIB(HDC dc, int x, int y) const
{
    DrawDIB(dc, {x, y, x + GetWidth(), y + GetHeight()}, {0, 0});
}

bool CDIBitmap::Attach(HDC dc, HBITMAP bitmap)
{
    Clear();
    try
    {
        ReadBitmap(dc, bitmap);
        return true;
    }
    catch (const wchar_t*)
    {
        Clear();
        return false;
    }
}

void CDIBitmap::ReadBitmap(HDC dc, HBITMAP bitmap)
{
    BITMAP source{};
    if (GetObjectW(bitmap, sizeof source, &source) == 0)
    {
        throw L"there is no bitmap\n";
    }
    const bool hasTable = source.bmBitsPixel <= BitmapRows::DeepestWithTable;
    const auto width = static_cast<std::uint64_t>(source.bmWidth);
    const auto height = static_cast<std::uint64_t>(source.bmHeight);

    // A depth of less than 8 gets more room than its rows take.
    m_pBits.reset(new (std::nothrow) BYTE[BitmapRows::PaddedBytes(width, hasTable ? 8 : 24) * height]);
    if (m_pBits == nullptr)
    {
        throw L"could not allocate data storage\n";
    }
    m_pInfo.reset(new (std::nothrow) FullBitmapInfo{});
    if (m_pInfo == nullptr)
    {
        throw L"could not allocate BITMAPINFO struct\n";
    }
    BITMAPINFOHEADER& header = m_pInfo->bmiHeader;
    header.biSize = sizeof header;
    header.biWidth = source.bmWidth;
    header.biHeight = source.bmHeight;
    header.biPlanes = 1;
    header.biBitCount = hasTable ? source.bmBitsPixel : 24;
    header.biCompression = BI_RGB;
    header.biSizeImage = static_cast<DWORD>(BitmapRows::PaddedBytes(width, header.biBitCount) * height);
    const int lines = GetDIBits(dc, bitmap, 0, static_cast<UINT>(header.biHeight), m_pBits.get(),
                                reinterpret_cast<BITMAPINFO*>(m_pInfo.get()), DIB_RGB_COLORS);
    if (lines < header.biHeight)
    {
        throw L"call to GetDIBits did not return full number of requested scan lines\n";
    }
    MakePalette();
    m_bPadded = false;
}

void CDIBitmap::MakePalette()
{
    m_pPalette.reset();
    if (m_pInfo->bmiHeader.biBitCount <= BitmapRows::DeepestWithTable)
    {
        m_pPalette = std::make_unique<CBmpPalette>(*m_pInfo);
    }
}
