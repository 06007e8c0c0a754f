#include "framework/ui/kestrix/controls/BitmapPixels.h"

CBitmapPixels::CBitmapPixels(HBITMAP bitmap)
{
    BITMAP whole{};
    if (bitmap == nullptr || GetObjectW(bitmap, sizeof whole, &whole) == 0)
    {
        return;
    }
    std::vector<DWORD> pixels(static_cast<std::size_t>(whole.bmWidth) * static_cast<std::size_t>(whole.bmHeight));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, whole.bmWidth, -whole.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    if (GetDIBits(CMemoryDC(), bitmap, 0, static_cast<UINT>(whole.bmHeight), pixels.data(), &info, DIB_RGB_COLORS) ==
        whole.bmHeight)
    {
        m_size = {whole.bmWidth, whole.bmHeight};
        m_arrPixels.swap(pixels);
    }
}

COLORREF CBitmapPixels::At(int x, int y) const
{
    if (x < 0 || x >= m_size.cx || y < 0 || y >= m_size.cy)
    {
        return CLR_INVALID;
    }
    const DWORD pixel =
        m_arrPixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_size.cx) + static_cast<std::size_t>(x)];
    return RGB(GetBValue(pixel), GetGValue(pixel), GetRValue(pixel)); // red and blue have changed places in it
}
