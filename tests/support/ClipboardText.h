#pragma once

#include <windows.h>

#include <optional>
#include <string>

// The real clipboard, which another program may have open for a moment.
inline bool OpenClipboardSoon()
{
    for (const ULONGLONG end = GetTickCount64() + 5000; !OpenClipboard(nullptr);)
    {
        if (GetTickCount64() > end)
        {
            return false;
        }
        Sleep(1);
    }
    return true;
}

// The text on the clipboard; nothing when there is none.
inline std::optional<std::wstring> TextOfClipboard()
{
    std::optional<std::wstring> text;
    if (OpenClipboardSoon())
    {
        if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT))
        {
            text = static_cast<const wchar_t*>(GlobalLock(memory));
            GlobalUnlock(memory);
        }
        CloseClipboard();
    }
    return text;
}

inline void ClearClipboard()
{
    if (OpenClipboardSoon())
    {
        EmptyClipboard();
        CloseClipboard();
    }
}
