#include "framework/ui/kestrix/controls/CuteTabCtrl.h"

#include "framework/ui/kestrix/controls/ParentRedraw.h"

const MessageMap& CCuteTabCtrl::Map()
{
    static constexpr auto rows = MessageRows(
        On::Message<WM_PAINT, &CCuteTabCtrl::OnPaint>, On::Message<WM_SETCURSOR, &CCuteTabCtrl::OnSetCursor>,
        On::Message<WM_SETFOCUS, &CCuteTabCtrl::OnSetFocus>, On::Message<WM_KILLFOCUS, &CCuteTabCtrl::OnKillFocus>,
        On::Message<WM_ENABLE, &CCuteTabCtrl::OnEnable>);
    static constexpr MessageMap map{rows, &CTabCtrl::Map};
    return map;
}

void CCuteTabCtrl::PreSubclassWindow()
{
    CTabCtrl::PreSubclassWindow();
    ModifyStyle(0, TCS_OWNERDRAWFIXED);
    LOGFONTW font{};
    if (::GetObjectW(CWindow(GetParent()).GetFont(), sizeof font, &font) != 0)
    {
        SetFonts(font, font);
    }
}

void CCuteTabCtrl::SetBitmaps(UINT normal, UINT selected)
{
    m_nNormalBitmap = normal;
    m_nSelectedBitmap = selected;
    Invalidate();
}

bool CCuteTabCtrl::SetFonts(const LOGFONTW& normal, const LOGFONTW& selected)
{
    CFont first;
    CFont second;
    if (!first.CreateFontIndirect(normal) || !second.CreateFontIndirect(selected))
    {
        return false;
    }
    m_fontNormal.Attach(first.Detach());
    m_fontSelected.Attach(second.Detach());
    Invalidate();
    return true;
}

void CCuteTabCtrl::SetColours(const TabColours& colours)
{
    m_colours = colours;
    Invalidate();
}

void CCuteTabCtrl::SetCornerRadius(int radius)
{
    m_nCornerRadius = radius;
    Invalidate();
}

BOOL CCuteTabCtrl::OnSetCursor(HWND, UINT, UINT)
{
    TCHITTESTINFO hit{};
    hit.flags = TCHT_ONITEM;
    if (m_hCursor == nullptr || !::GetCursorPos(&hit.pt) || !::ScreenToClient(m_hWnd, &hit.pt) || HitTest(hit) < 0)
    {
        return static_cast<BOOL>(Default());
    }
    ::SetCursor(m_hCursor);
    return TRUE;
}

void CCuteTabCtrl::OnSetFocus(HWND)
{
    TakeFocus(true);
}

void CCuteTabCtrl::OnKillFocus(HWND)
{
    TakeFocus(false);
}

void CCuteTabCtrl::TakeFocus(bool focus)
{
    m_bFocus = focus;
    Default();
    RedrawThroughParent(*this);
}

void CCuteTabCtrl::OnEnable(bool)
{
    Default();
    RedrawThroughParent(*this);
}
