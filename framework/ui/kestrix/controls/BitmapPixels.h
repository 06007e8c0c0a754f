#pragma once

#include "platform/dialog/DialogFramework.h"

#include <vector>

// The colours of a bitmap's pixels, read all at once: asking the system for one by one takes as long as for thousands.
class CBitmapPixels
{
public:
    // Without a bitmap, or with one that cannot be read now, there are no pixels.
    explicit CBitmapPixels(HBITMAP bitmap);

    SIZE GetSize() const { return m_size; }

    // CLR_INVALID outside of the bitmap.
    COLORREF At(int x, int y) const;

private:
    SIZE m_size{};
    std::vector<DWORD> m_arrPixels; // 0x00RRGGBB, rows from the top
};
