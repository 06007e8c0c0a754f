#pragma once

#include <windows.h>

#include <functional>

// Retrieves and dispatches messages until isDone says so, which is asked after each message, or WM_QUIT comes.
// Each message is first offered to PreTranslateMessage of the objects from its window up to top, or up to the desktop
// when top is null. Returns false when WM_QUIT came, with its exit code.
bool RunMessageLoop(HWND top, const std::function<bool()>& isDone, int& exitCode);
