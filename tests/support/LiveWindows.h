#pragma once

#include <windows.h>

#include <iterator>
#include <set>
#include <string>

// The classes of the windows that this thread has, those in others included.
inline std::multiset<std::wstring> LiveWindows()
{
    std::multiset<std::wstring> classes;
    const auto add = [](HWND window, LPARAM to) -> BOOL
    {
        const auto addOne = [](HWND each, LPARAM all) -> BOOL
        {
            wchar_t name[64]{};
            GetClassNameW(each, name, static_cast<int>(std::size(name)));
            reinterpret_cast<std::multiset<std::wstring>*>(all)->insert(name);
            return TRUE;
        };
        EnumChildWindows(window, addOne, to);
        return addOne(window, to);
    };
    EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&classes));
    return classes;
}
