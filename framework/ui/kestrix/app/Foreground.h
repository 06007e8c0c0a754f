#pragma once

#include <windows.h>

// Brings a window of this process in front of those of other processes, also where the system would only let it flash.
void ForceToFront(HWND window);
