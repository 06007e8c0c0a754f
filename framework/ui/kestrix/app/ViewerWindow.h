#pragma once

#include <windows.h>

// The window of another viewer, and how it comes to the front: first CheckInstance restores it or, when it is open,
// minimises it; then InitInstance restores it and brings it forward. A window that is restored comes up on top, which
// one that is only asked to come forward by another process does not.

// The top-level window with exactly the form's title; null when there is none, or the title has no text.
HWND FindViewerWindow();

// The first step. window may be null, which is traced.
void RestoreOrMinimise(HWND window);

// The second step. window may be null.
void BringForward(HWND window);
