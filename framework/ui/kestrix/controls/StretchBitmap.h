#pragma once

#include "platform/dialog/DialogFramework.h"

// A copy of the source in another size, in pixels: four corners of border by border pixels as they are, the edges
// between them stretched along their length, the middle both ways. The copy suits the screen.
// A border wider than half of the size or of the source is cut down, so that corners never overlap and at least one
// row and column of the source is left to stretch. No bitmap without a source or with an empty size.
CBitmap StretchBitmap(HBITMAP source, SIZE size, int border);
