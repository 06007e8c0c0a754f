#pragma once

#include <windows.h>

#include <string_view>

// Puts the text on the clipboard in place of what is there. Another program may have the clipboard open, as a rule for
// a moment: that one is waited for, a fifth of a second at most. False, and the clipboard as it was, when it cannot be
// had or there is no memory. The window becomes the clipboard's owner; text ends at its first null for those who paste
// it.
bool PutTextOnClipboard(HWND owner, std::wstring_view text);
