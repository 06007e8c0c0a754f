#include "platform/dialog/WindowSubclass.h"

#include "platform/dialog/FrameworkState.h"
#include "platform/dialog/UniqueHandle.h"

namespace
{

SubclassedWindow* Find(HWND window) noexcept
{
    auto& windows = GetFrameworkState().subclassedWindows;
    const auto entry = windows.find(window);
    return entry != windows.end() ? &entry->second : nullptr;
}

WNDPROC ProcedureOf(HWND window) noexcept
{
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

void SetProcedure(HWND window, WNDPROC procedure) noexcept
{
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

} // namespace

bool WindowSubclass::Install(HWND window, Handler handler, void* owner)
{
    const bool isOurs = GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
    if (IsInstalled() || !isOurs || OwnerAt(window) != nullptr)
    {
        return false;
    }
    SubclassedWindow* entry = Find(window);
    if (entry == nullptr)
    {
        entry = &GetFrameworkState().subclassedWindows[window];
        entry->original = ProcedureOf(window);
        SetProcedure(window, &Procedure);
    }
    entry->subclass = this;
    m_hWnd = window;
    m_pfnHandler = handler;
    m_pOwner = owner;
    return true;
}

void WindowSubclass::Remove() noexcept
{
    if (!IsInstalled())
    {
        return;
    }
    const LastErrorScope keep;
    SubclassedWindow* const entry = Find(m_hWnd);
    entry->subclass = nullptr;
    if (ProcedureOf(m_hWnd) == &Procedure)
    {
        SetProcedure(m_hWnd, entry->original);
        GetFrameworkState().subclassedWindows.erase(m_hWnd);
    }
    m_hWnd = nullptr;
}

void* WindowSubclass::OwnerAt(HWND window) noexcept
{
    const SubclassedWindow* const entry = Find(window);
    return entry != nullptr && entry->subclass != nullptr ? entry->subclass->m_pOwner : nullptr;
}

LRESULT WindowSubclass::CallOriginal(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    // Without an entry the original stands in the window again, or the window is gone and there is nothing to call.
    const SubclassedWindow* const entry = Find(window);
    const WNDPROC original = entry != nullptr ? entry->original : ProcedureOf(window);
    return original != nullptr ? CallWindowProcW(original, window, message, wParam, lParam) : 0;
}

LRESULT CALLBACK WindowSubclass::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const SubclassedWindow* const entry = Find(window);
    const WindowSubclass* const subclass = entry != nullptr ? entry->subclass : nullptr;
    const LRESULT result = subclass != nullptr
                               ? subclass->m_pfnHandler(subclass->m_pOwner, window, message, wParam, lParam)
                               : CallOriginal(window, message, wParam, lParam);
    // The handler may have ended the object, or put another one before the window: only the table knows.
    if (SubclassedWindow* const last = message == WM_NCDESTROY ? Find(window) : nullptr)
    {
        if (last->subclass != nullptr)
        {
            last->subclass->m_hWnd = nullptr;
        }
        GetFrameworkState().subclassedWindows.erase(window);
    }
    return result;
}
