#pragma once

#include "platform/dialog/Window.h"

// Tells the parent of a label (SS_NOTIFY) that it was clicked, as a press of the mouse does.
void PostLabelClick(const CWindow& label);
