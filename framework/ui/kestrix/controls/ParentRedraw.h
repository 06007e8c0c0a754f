#pragma once

#include "platform/dialog/Window.h"

// A control that paints without a ground of its own shows what its parent painted under it, so that the parent has to
// paint there again before the control looks different.

// Asks the parent to paint the area under the control anew, when it next paints.
void InvalidateParentUnder(const CWindow& control);

// Paints the control at once, and the parent's area under it, where the parent does not leave its controls out.
void RedrawThroughParent(CWindow& control);
