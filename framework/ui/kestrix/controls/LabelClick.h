#pragma once

#include "platform/dialog/Window.h"

// Tells the parent of a label that it was clicked, as the system does for a press of the mouse (SS_NOTIFY): at once, or
// after what is being done.
void SendLabelClick(const CWindow& label);
void PostLabelClick(const CWindow& label);
