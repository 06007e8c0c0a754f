#include "framework/ui/kestrix/controls/SkinColours.h"

#include "framework/ui/kestrix/controls/Scale.h"
#include "platform/dialog/GdiObjects.h"

bool IsHighContrast() noexcept
{
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

COLORREF SkinOrSystem(COLORREF skin, int system) noexcept
{
    return IsHighContrast() ? GetSysColor(system) : skin;
}

void DrawFocusMark(HDC dc, const RECT& rect, COLORREF colour, int system) noexcept
{
    constexpr int LineWidth = 1; // pixel
    CBrush brush;
    brush.CreateSolidBrush(SkinOrSystem(colour, system));
    RECT ring = rect;
    for (int i = 0; i < Scaled(LineWidth) && !IsRectEmpty(&ring); ++i)
    {
        FrameRect(dc, &ring, brush);
        InflateRect(&ring, -1, -1);
    }
}
