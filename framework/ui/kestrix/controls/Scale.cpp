#include "framework/ui/kestrix/controls/Scale.h"

#include "platform/dialog/ModuleState.h"
#include "platform/dialog/ScreenDpi.h"

namespace
{

constexpr int Whole = 100; // percent

// Beyond 32 bits the result is that of 32 bits.
constexpr int Ratio(int number, int multiplier, int divisor) noexcept
{
    const std::int64_t half = number < 0 ? -divisor / 2 : divisor / 2;
    return static_cast<int>((std::int64_t{number} * multiplier + half) / divisor);
}

} // namespace

int Scaled(int pixels) noexcept
{
    return Ratio(pixels, AfxGetScreenDpi(), USER_DEFAULT_SCREEN_DPI);
}

SIZE Scaled(SIZE pixels) noexcept
{
    return {Scaled(pixels.cx), Scaled(pixels.cy)};
}

SIZE ScaledArt::SizeOnScreen(SIZE size) const noexcept
{
    return {Scaled(Ratio(size.cx, Whole, percent)), Scaled(Ratio(size.cy, Whole, percent))};
}

ScaledArt ArtOf(UINT bitmap) noexcept
{
    const int dpi = AfxGetScreenDpi();
    ScaledArt found{bitmap, Whole};
    for (const int percent : ArtScales)
    {
        if (found.percent * USER_DEFAULT_SCREEN_DPI >= dpi * Whole)
        {
            break;
        }
        if (const UINT number = ArtNumber(bitmap, percent); !GetResourceBytes(number, RT_BITMAP).empty())
        {
            found = {number, percent};
        }
    }
    return found;
}
