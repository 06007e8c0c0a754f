#pragma once

#include "framework/ui/kestrix/controls/CornerRegion.h"

// How the top part of a frame covers the width of a dialog.
enum class FrameTop
{
    Stretched, // the form
    Cut,       // the small dialogs: the part's left end as it is
};

// Draws the skin frame around a client area of this size from the parts of the language file; a part that is missing is
// left out. Edges are stretched, corners copied pixel by pixel. In high contrast it has the system's colours and no
// parts.
void DrawSkinFrame(HDC dc, SIZE client, FrameTop frameTop);
