#pragma once

#include <windows.h>

#include <cstdint>

// Sizes in pixels are told for 96 dots an inch, in the code, in settings and in the language file. These make of them
// what they are on the screen, where they are used. A line of one pixel stays one, as in the controls of the system.

// Rounded, a half away from 0. At 96 dots an inch every number stays what it is.
int Scaled(int pixels) noexcept;
SIZE Scaled(SIZE pixels) noexcept;

// A bitmap of the language file is drawn in several scales, each under a number of its own.
struct ScaledArt
{
    UINT number;
    int percent; // of its size at 96 dots an inch

    // The size in which it stands on the screen, from its own in pixels.
    SIZE SizeOnScreen(SIZE size) const noexcept;
};

// The scales of the drawings, in percent; resource/art.py draws them.
inline constexpr int ArtScales[] = {100, 125, 150, 200, 300};

// The number of a bitmap in one of these scales.
constexpr UINT ArtNumber(UINT bitmap, int percent) noexcept
{
    return percent == 100 ? bitmap : static_cast<UINT>(percent) * 100 + bitmap;
}

// Which of them stands for a bitmap on this screen: the smallest that is not smaller than the screen's scale, or else
// the largest. Scales that the language file lacks are passed over.
ScaledArt ArtOf(UINT bitmap) noexcept;
