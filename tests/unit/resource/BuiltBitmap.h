#pragma once

#include <windows.h>

#include <vector>

// The pixels of a bitmap of the built language file.
struct Bitmap
{
    int width = 0;
    int height = 0;
    int depth = 0;
    std::vector<COLORREF> pixels; // rows from the top

    COLORREF At(int x, int y) const { return pixels.at(static_cast<std::size_t>(y) * width + x); }
};

// Reads bitmaps of 24 bits, and of 4 bits with a full colour table, from the bottom row up. Throws std::runtime_error
// when there is none of this number.
Bitmap ReadBitmap(unsigned number);
