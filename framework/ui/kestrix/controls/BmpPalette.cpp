#include "framework/ui/kestrix/controls/BmpPalette.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr WORD PaletteVersion = 0x300;

// The system's LOGPALETTE with room for all entries.
struct FullLogPalette
{
    LOGPALETTE head;
    PALETTEENTRY more[std::size(FullBitmapInfo{}.bmiColors) - 1];
};

DWORD ColourCount(const BITMAPINFOHEADER& header)
{
    const DWORD count = header.biClrUsed != 0 ? header.biClrUsed : 1u << header.biBitCount;
    return std::min<DWORD>(count, std::size(FullBitmapInfo{}.bmiColors));
}

} // namespace

CBmpPalette::CBmpPalette(const FullBitmapInfo& info)
{
    FullLogPalette palette{};
    palette.head.palVersion = PaletteVersion;
    palette.head.palNumEntries = static_cast<WORD>(ColourCount(info.bmiHeader));
    for (WORD i = 0; i < palette.head.palNumEntries; ++i)
    {
        const RGBQUAD& colour = info.bmiColors[i];
        PALETTEENTRY& entry = i == 0 ? palette.head.palPalEntry[0] : palette.more[i - 1];
        entry = {colour.rgbRed, colour.rgbGreen, colour.rgbBlue, 0};
    }
    CreatePalette(palette.head);
}
