#include "framework/ui/kestrix/controls/ClickText.h"

#include "framework/ui/kestrix/controls/LabelClick.h"
#include "framework/ui/kestrix/controls/SkinColours.h"

#include <algorithm>

const MessageMap& CClickText::Map()
{
    static constexpr auto rows =
        MessageRows(On::Message<WM_PAINT, &CClickText::OnPaint>, On::Message<WM_SETTEXT, &CClickText::OnSetText>,
                    On::Message<WM_ENABLE, &CClickText::OnEnable>, On::Message<WM_SETFOCUS, &CClickText::OnFocusChange>,
                    On::Message<WM_KILLFOCUS, &CClickText::OnFocusChange>, On::Message<WM_KEYUP, &CClickText::OnKeyUp>);
    static constexpr MessageMap map{rows, &CStatic::Map};
    return map;
}

void CClickText::SetClickable(bool clickable)
{
    m_bClickable = clickable;
    UpdateTabStop();
}

void CClickText::UpdateTabStop()
{
    const bool stop = WantsKeyboard() && !GetWindowText().empty();
    ModifyStyle(stop ? 0 : WS_TABSTOP, stop ? WS_TABSTOP : 0);
}

// The whole label anew, since the mark of the focus stands on it.
void CClickText::OnPaint()
{
    Invalidate(false);
    Default();
    if (::GetFocus() != m_hWnd || !IsTabStop())
    {
        return;
    }
    const CClientDC dc(m_hWnd);
    const CSelectObject font(dc, GetFont());
    DrawFocusMark(dc, FocusRect(dc));
}

// The text from its first to its last column of pixels, the label's height.
RECT CClickText::FocusRect(HDC dc) const
{
    const std::wstring text = GetWindowText();
    SIZE size{};
    ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    RECT focus = GetClientRect();
    focus.right = std::min(focus.right, size.cx + 1);
    return focus;
}

// The system paints a new text at once, without the focus.
LRESULT CClickText::OnSetText(const wchar_t*)
{
    const LRESULT result = Default();
    UpdateTabStop();
    Invalidate();
    return result;
}

void CClickText::OnEnable(bool)
{
    Default();
    Invalidate();
}

void CClickText::OnFocusChange(HWND)
{
    Default();
    Invalidate();
}

void CClickText::OnKeyUp(UINT key, UINT, UINT)
{
    if (key == VK_SPACE && m_bClickable && IsTabStop())
    {
        PostLabelClick(*this);
    }
    Default();
}
