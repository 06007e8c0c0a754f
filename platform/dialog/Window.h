#pragma once

#include <windows.h>

#include <string>

// A window's handle with the operations that everybody needs. It owns nothing and sees no message.
// Without a window (a null handle) every operation does nothing and returns what is empty.
class CWindow
{
public:
    CWindow() = default;

    explicit CWindow(HWND window) : m_hWnd(window) {}

    HWND GetSafeHwnd() const { return m_hWnd; }

    operator HWND() const { return m_hWnd; }

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }

    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    std::wstring GetWindowText() const;
    bool SetWindowText(const std::wstring& text);

    // A control of this window; null when it has none of this number.
    HWND GetDlgItem(int id) const { return m_hWnd != nullptr ? ::GetDlgItem(m_hWnd, id) : nullptr; }

    HWND GetParent() const { return ::GetParent(m_hWnd); }

    std::wstring GetDlgItemText(int id) const { return CWindow(GetDlgItem(id)).GetWindowText(); }

    bool SetDlgItemText(int id, const std::wstring& text) { return CWindow(GetDlgItem(id)).SetWindowText(text); }

    bool ShowWindow(int show) { return ::ShowWindow(m_hWnd, show); }

    bool IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }

    bool EnableWindow(bool enable = true) { return ::EnableWindow(m_hWnd, enable); }

    bool IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }

    bool IsIconic() const { return ::IsIconic(m_hWnd); }

    HWND SetFocus() { return m_hWnd != nullptr ? ::SetFocus(m_hWnd) : nullptr; }

    RECT GetWindowRect() const; // screen coordinates; empty without a window
    RECT GetClientRect() const;
    void ScreenToClient(RECT& rect) const;
    void ClientToScreen(RECT& rect) const;
    bool MoveWindow(const RECT& rect, bool repaint = true); // in the parent's client coordinates

    bool SetWindowPos(HWND after, const RECT& rect, UINT flags);

    void Invalidate(bool erase = true);
    void InvalidateRect(const RECT& rect, bool erase = true);

    void UpdateWindow() { ::UpdateWindow(m_hWnd); }

    void RedrawWindow(UINT flags = RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);

    // Has the system post WM_MOUSELEAVE once, when the pointer has left the client area. False when it refuses.
    bool TrackMouseLeave() const;

    void SetRedraw(bool redraw = true) { SendMessage(WM_SETREDRAW, redraw); }

    HFONT GetFont() const { return reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)); } // stays the window's

    void SetFont(HFONT font, bool redraw = true); // stays the caller's
    HICON SetIcon(HICON icon, bool big);          // returns the icon before; both stay the caller's

    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }

    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)); }

    // Takes bits out and puts bits in. False when nothing had to change.
    bool ModifyStyle(DWORD remove, DWORD add);
    bool ModifyStyleEx(DWORD remove, DWORD add);

protected:
    HWND m_hWnd = nullptr;
};
