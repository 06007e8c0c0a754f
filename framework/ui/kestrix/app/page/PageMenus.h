#pragma once

#include <windows.h>

class CPageCommands;

// The point that the system tells of when a context menu is asked for by a key.
inline constexpr POINT ByKeyboard{-1, -1};

// Shows the context menu of a control of the page and does what the user chooses; the control gets the keyboard. The
// menu comes up at this point of the screen. Controls without a menu are left alone.
void ShowPageMenu(HWND window, POINT point, CPageCommands& commands);
