#pragma once

#include "platform/dialog/DialogFramework.h"

// The icon that a window which was minimised shows by itself.

// An icon of the language file in the size for that.
UniqueIcon LoadMinimisedIcon(UINT icon);

// Paints the icon in the middle of the window, on a ground that the window erases; for handlers of WM_PAINT.
void PaintMinimisedIcon(const CWindow& window, HICON icon);
