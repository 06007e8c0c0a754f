#pragma once

#include "framework/ui/kestrix/controls/BitmapResource.h"

// A copy of the source in another size, in pixels: four corners of border by border pixels as they are, the edges
// between them stretched along their length, the middle both ways.
// A border wider than half of the size or of the source is cut down, so that corners never overlap and at least one
// row and column of the source is left to stretch. No bitmap without a source or with an empty size.
CBitmap StretchBitmap(const BitmapResource& source, SIZE size, int border);

// Puts a copy of this size in the place of a bitmap of another size. False, and the bitmap as it was, when there is
// none or the system has no room.
bool FitBitmap(CBitmap& bitmap, SIZE size);
