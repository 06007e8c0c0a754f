#include "platform/dialog/Window.h"

bool CWindow::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    // Without a window it would go to the thread.
    return m_hWnd != nullptr && ::PostMessageW(m_hWnd, message, wParam, lParam);
}

std::wstring CWindow::GetWindowText() const
{
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(m_hWnd)), L'\0');
    const int length = ::GetWindowTextW(m_hWnd, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool CWindow::SetWindowText(const std::wstring& text)
{
    return ::SetWindowTextW(m_hWnd, text.c_str());
}

RECT CWindow::GetWindowRect() const
{
    RECT rect{};
    ::GetWindowRect(m_hWnd, &rect);
    return rect;
}

RECT CWindow::GetClientRect() const
{
    RECT rect{};
    ::GetClientRect(m_hWnd, &rect);
    return rect;
}

void CWindow::ScreenToClient(RECT& rect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
}

void CWindow::ClientToScreen(RECT& rect) const
{
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(&rect), 2);
}

bool CWindow::MoveWindow(const RECT& rect, bool repaint)
{
    return ::MoveWindow(m_hWnd, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, repaint);
}

bool CWindow::SetWindowPos(HWND after, const RECT& rect, UINT flags)
{
    return ::SetWindowPos(m_hWnd, after, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, flags);
}

// For the three below a null handle would mean the whole desktop.

void CWindow::Invalidate(bool erase)
{
    if (IsWindowVisible())
    {
        ::InvalidateRect(m_hWnd, nullptr, erase);
    }
}

void CWindow::InvalidateRect(const RECT& rect, bool erase)
{
    if (IsWindowVisible())
    {
        ::InvalidateRect(m_hWnd, &rect, erase);
    }
}

void CWindow::RedrawWindow(UINT flags)
{
    if (m_hWnd != nullptr)
    {
        ::RedrawWindow(m_hWnd, nullptr, nullptr, flags);
    }
}

bool CWindow::TrackMouseLeave() const
{
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, m_hWnd, 0};
    return ::TrackMouseEvent(&track);
}

void CWindow::SetFont(HFONT font, bool redraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw && IsWindowVisible());
}

HICON CWindow::SetIcon(HICON icon, bool big)
{
    return reinterpret_cast<HICON>(
        SendMessage(WM_SETICON, big ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(icon)));
}

namespace
{

bool ModifyStyleBits(HWND window, int index, DWORD remove, DWORD add)
{
    const auto before = static_cast<DWORD>(::GetWindowLongPtrW(window, index));
    const DWORD after = (before & ~remove) | add;
    if (after == before)
    {
        return false;
    }
    ::SetWindowLongPtrW(window, index, static_cast<LONG_PTR>(after));
    return true;
}

} // namespace

bool CWindow::ModifyStyle(DWORD remove, DWORD add)
{
    return ModifyStyleBits(m_hWnd, GWL_STYLE, remove, add);
}

bool CWindow::ModifyStyleEx(DWORD remove, DWORD add)
{
    return ModifyStyleBits(m_hWnd, GWL_EXSTYLE, remove, add);
}
