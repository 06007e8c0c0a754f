#pragma once

#include "platform/dialog/DialogFramework.h"

// The header of a bitmap with room for the largest colour table, 1,064 bytes; laid out like the system's BITMAPINFO.
struct FullBitmapInfo
{
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[256];
};

static_assert(sizeof(FullBitmapInfo) == 1064);

// The colours of a bitmap of 8 bits a pixel or fewer, for screens of 256 colours.
class CBmpPalette : public CPalette
{
public:
    // The header's count of used colours, or else of all colours of its depth; at most 256 are taken.
    explicit CBmpPalette(const FullBitmapInfo& info);
};
