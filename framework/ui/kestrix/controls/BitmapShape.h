#pragma once

#include "platform/dialog/DialogFramework.h"

// The region of all pixels of a bitmap but those of one colour. No region when no pixel has the colour: then the shape
// is the whole.
CRgn MakeBitmapShape(HBITMAP bitmap, COLORREF hole);
