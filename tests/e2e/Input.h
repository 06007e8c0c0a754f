#pragma once

#include <windows.h>

#include <initializer_list>

// The hands of a user on the windows of another process.

// The answer of a window; throws std::runtime_error when none comes.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// A press and a release of the left mouse button, near the left end of a place or of the whole window.
void ClickAt(HWND window, const RECT& place);
void ClickOn(HWND window);

// A press and a release of a key.
void PressKeyIn(HWND window, WORD key);

// Presses these keys of the machine, one while those before are held, in the window in front, which this one becomes.
void PressKeysOfMachine(HWND window, std::initializer_list<WORD> keys);

// An access key, while the window has the focus.
void PressAltAnd(wchar_t letter, HWND window);

// The control of the thread of this window that has the focus; null when none has.
HWND FocusBeside(HWND window);
