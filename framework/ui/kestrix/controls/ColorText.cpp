#include "framework/ui/kestrix/controls/ColorText.h"

#include "framework/ui/kestrix/controls/LabelClick.h"
#include "framework/ui/kestrix/controls/ParentRedraw.h"

const MessageMap& CColorText::Map()
{
    static constexpr auto rows = MessageRows(
        On::Message<WM_PAINT, &CColorText::OnPaint>, On::Message<WM_SETTEXT, &CColorText::OnSetText>,
        On::Message<WM_ENABLE, &CColorText::OnEnable>, On::Message<WM_SETFOCUS, &CColorText::OnSetFocus>,
        On::Message<WM_KILLFOCUS, &CColorText::OnKillFocus>,
        On::Message<WM_UPDATEUISTATE, &CColorText::OnUpdateUiState>,
        On::Message<WM_LBUTTONDOWN, &CColorText::OnLButtonDown>, On::Message<WM_LBUTTONUP, &CColorText::OnLButtonUp>,
        On::Message<WM_LBUTTONDBLCLK, &CColorText::OnLButtonDblClk>, On::Message<WM_KEYUP, &CColorText::OnKeyUp>,
        On::Message<WM_MOUSEMOVE, &CColorText::OnMouseMove>, On::Message<WM_MOUSEHOVER, &CColorText::OnMouseHover>,
        On::Message<WM_MOUSELEAVE, &CColorText::OnMouseLeave>, On::Message<WM_SETCURSOR, &CColorText::OnSetCursor>);
    static constexpr MessageMap map{rows, &CStatic::Map};
    return map;
}

void CColorText::PreSubclassWindow()
{
    CStatic::PreSubclassWindow();
    m_strText = GetWindowText();
}

// What is not filled stands on what was there before: smoothed characters in another colour would keep their old rim.
void CColorText::Repaint()
{
    Invalidate();
    if (!m_bFill || m_nBackground == NoColour)
    {
        InvalidateParentUnder(*this);
    }
}

void CColorText::SetAlignment(Horizontal horizontal, Vertical vertical)
{
    m_horizontal = horizontal;
    m_vertical = vertical;
    Repaint();
}

void CColorText::SetBackground(COLORREF colour, bool fill)
{
    m_nBackground = colour;
    m_bFill = fill;
    Repaint();
}

void CColorText::SetFrame(COLORREF colour, bool show)
{
    m_nFrameColour = colour;
    m_bShowFrame = show;
    Repaint();
}

void CColorText::SetIcon(HICON icon, SIZE size)
{
    m_hIcon = icon;
    m_iconSize = size;
    Repaint();
}

// Without drawing in between: the system's label paints itself at once, in its own look.
LRESULT CColorText::OnSetText(const wchar_t*)
{
    const bool isShown = (GetStyle() & WS_VISIBLE) != 0; // switching the drawing on would show a hidden label
    if (isShown)
    {
        SetRedraw(false);
    }
    const LRESULT result = Default();
    if (isShown)
    {
        SetRedraw(true);
    }
    m_strText = GetWindowText();
    Invalidate();
    InvalidateParentUnder(*this);
    return result;
}

void CColorText::OnEnable(bool)
{
    Default();
    RedrawThroughParent(*this);
}

void CColorText::OnSetFocus(HWND)
{
    TakeFocus(true);
}

void CColorText::OnKillFocus(HWND)
{
    TakeFocus(false);
}

void CColorText::TakeFocus(bool focus)
{
    m_bFocus = focus;
    Default();
    RedrawThroughParent(*this);
}

// The system's label would paint its own text to show or hide the underline of the accelerator.
void CColorText::OnUpdateUiState(UINT, UINT flags)
{
    if ((flags & UISF_HIDEACCEL) == 0)
    {
        Default();
    }
}

void CColorText::OnLButtonDown(UINT, POINT)
{
    CopyClick(WM_LBUTTONDOWN);
}

void CColorText::OnLButtonUp(UINT, POINT)
{
    CopyClick(WM_LBUTTONUP);
}

void CColorText::OnLButtonDblClk(UINT, POINT)
{
    CopyClick(WM_LBUTTONDBLCLK);
}

void CColorText::CopyClick(UINT message)
{
    CWindow(m_hNotify).PostMessage(message);
    Default();
}

void CColorText::OnKeyUp(UINT key, UINT, UINT)
{
    if (key == VK_SPACE)
    {
        PostLabelClick(*this);
    }
    Default();
}

void CColorText::OnMouseMove(UINT, POINT)
{
    constexpr DWORD HoverTime = 1; // milliseconds
    TRACKMOUSEEVENT track{sizeof track, TME_HOVER | TME_LEAVE, m_hWnd, HoverTime};
    ::TrackMouseEvent(&track);
    Default();
}

void CColorText::OnMouseHover(UINT, POINT)
{
    SetHover(true);
}

void CColorText::OnMouseLeave()
{
    SetHover(false);
}

void CColorText::SetHover(bool hover)
{
    if (m_bHoverEnabled && m_bHover != hover)
    {
        Store(m_bHover, hover);
    }
}

BOOL CColorText::OnSetCursor(HWND, UINT, UINT)
{
    if (m_hCursor == nullptr)
    {
        return static_cast<BOOL>(Default());
    }
    ::SetCursor(m_hCursor);
    return TRUE;
}
