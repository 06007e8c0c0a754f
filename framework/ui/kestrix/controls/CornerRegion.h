#pragma once

#include "platform/dialog/DialogFramework.h"

// The shape of a window with this client area: what is white in the four corner bitmaps of the frame is cut away. A
// corner that the language file does not have stays square.
CRgn MakeCornerRegion(SIZE client);
