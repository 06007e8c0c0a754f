#include "framework/ui/kestrix/controls/OwnerDrawBtnFramework.h"

#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinColours.h"

namespace
{

// In pixels.
constexpr int FocusInset = 3;   // between the button's edge and the focus rectangle
constexpr int PressedShift = 1; // of the icon of a pressed button, right and down

} // namespace

const MessageMap& COwnerDrawBtnFramework::Map()
{
    using Self = COwnerDrawBtnFramework;
    static constexpr auto rows =
        MessageRows(On::ReflectedMessage<WM_DRAWITEM, &Self::DrawItem>, On::Message<WM_MOUSEMOVE, &Self::OnMouseMove>,
                    On::Message<WM_MOUSELEAVE, &Self::OnMouseLeave>, On::Message<WM_SETCURSOR, &Self::OnSetCursor>,
                    On::Message<WM_ERASEBKGND, &Self::OnEraseBkgnd>, On::Message<WM_SETFOCUS, &Self::OnFocusChange>,
                    On::Message<WM_KILLFOCUS, &Self::OnFocusChange>, On::Message<WM_LBUTTONDOWN, &Self::OnMouseButton>,
                    On::Message<WM_LBUTTONUP, &Self::OnMouseButton>,
                    On::Message<WM_LBUTTONDBLCLK, &Self::OnMouseButton>, On::Message<WM_ENABLE, &Self::OnEnable>);
    static constexpr MessageMap map{rows, &CButton::Map};
    return map;
}

void COwnerDrawBtnFramework::PreSubclassWindow()
{
    m_bTransparent = (GetExStyle() & WS_EX_TRANSPARENT) != 0;
    m_bFlat = (GetStyle() & BS_FLAT) != 0;
    if (m_bFlat)
    {
        m_bDrawFocus = FALSE;
    }
    ModifyStyle(BS_TYPEMASK, BS_OWNERDRAW);
    CButton::PreSubclassWindow();
}

bool COwnerDrawBtnFramework::SetIcons(UINT icon, UINT greyIcon)
{
    const SIZE size = IconSize();
    m_hIcon = LoadIconImage(icon, size);
    m_hGreyIcon = greyIcon != 0 ? LoadIconImage(greyIcon, size) : UniqueIcon();
    m_bOwnIcons = m_hIcon || m_hGreyIcon;
    m_nIconWidth = m_bOwnIcons ? size.cx : 0;
    m_nIconHeight = m_bOwnIcons ? size.cy : 0;
    Redraw();
    return m_hIcon && (m_hGreyIcon || greyIcon == 0);
}

bool COwnerDrawBtnFramework::SetOwnCursor(UINT cursor)
{
    m_hCursor.reset();
    m_nCursor = cursor;
    m_bOwnCursor = !GetResourceBytes(cursor, RT_GROUP_CURSOR).empty();
    return m_bOwnCursor;
}

void COwnerDrawBtnFramework::SetTextColour(COLORREF colour)
{
    m_crText = colour;
    Redraw();
}

void COwnerDrawBtnFramework::SetBackgroundColour(COLORREF colour)
{
    m_crBackground = colour;
    Redraw();
}

void COwnerDrawBtnFramework::SetButtonFont(const CFont* font)
{
    m_pFont = font;
    Redraw();
}

void COwnerDrawBtnFramework::SetFocusDrawn(bool drawn)
{
    m_bDrawFocus = drawn;
    Redraw();
}

void COwnerDrawBtnFramework::DrawItem(DRAWITEMSTRUCT& item)
{
    m_State.selected = (item.itemState & ODS_SELECTED) != 0;
    m_State.focus = (item.itemState & ODS_FOCUS) != 0;
    m_State.disabled = (item.itemState & ODS_DISABLED) != 0;
    m_State.isDefault = (item.itemState & ODS_DEFAULT) != 0;
    DrawOwnerButton(item.hDC, item.rcItem, m_State);
}

void COwnerDrawBtnFramework::RefreshButton()
{
    UpdateWindow();
}

void COwnerDrawBtnFramework::Redraw()
{
    Invalidate(false);
    RefreshButton();
}

// With the button held down and not hovering, the press began elsewhere: the pointer only passes.
void COwnerDrawBtnFramework::OnMouseMove(UINT keys, POINT)
{
    if (!m_State.hover)
    {
        if ((keys & MK_LBUTTON) != 0)
        {
            return;
        }
        SetHover(true);
        if (!TrackMouseLeave())
        {
            SetHover(false); // nobody would tell when it ends
        }
    }
    Default();
}

void COwnerDrawBtnFramework::OnMouseLeave()
{
    SetHover(false);
    Default();
}

void COwnerDrawBtnFramework::SetHover(bool hover)
{
    m_State.hover = hover;
    Redraw();
}

BOOL COwnerDrawBtnFramework::OnSetCursor(HWND, UINT, UINT)
{
    if (m_bOwnCursor && m_State.hover && !m_hCursor)
    {
        m_hCursor = LoadCursorImage(m_nCursor); // not before: most buttons of a dialog never see the pointer
        m_bOwnCursor = static_cast<bool>(m_hCursor);
    }
    if (m_bOwnCursor && m_State.hover)
    {
        SetCursor(m_hCursor.get());
        return TRUE;
    }
    return static_cast<BOOL>(Default());
}

// The ground of a transparent button is what its parent shows.
BOOL COwnerDrawBtnFramework::OnEraseBkgnd(HDC)
{
    return m_bTransparent ? TRUE : static_cast<BOOL>(Default());
}

void COwnerDrawBtnFramework::OnFocusChange(HWND)
{
    DefaultThenRefresh();
}

void COwnerDrawBtnFramework::OnMouseButton(UINT, POINT)
{
    DefaultThenRefresh();
}

void COwnerDrawBtnFramework::OnEnable(bool)
{
    DefaultThenRefresh();
}

// A click may end the window, and this object with it.
void COwnerDrawBtnFramework::DefaultThenRefresh()
{
    const HWND window = m_hWnd;
    Default();
    if (FromHandlePermanent(window) == this)
    {
        RefreshButton();
    }
}

HICON COwnerDrawBtnFramework::IconFor(const OwnerButtonState& state) const
{
    const bool atRest = !state.disabled && !state.hover && !state.selected && !state.focus;
    return atRest && m_hGreyIcon ? m_hGreyIcon.get() : m_hIcon.get();
}

void COwnerDrawBtnFramework::PaintIcon(HDC dc, POINT place, const OwnerButtonState& state, HICON disabledIcon) const
{
    const bool hasDisabledIcon = state.disabled && disabledIcon != nullptr;
    const HICON icon = hasDisabledIcon ? disabledIcon : IconFor(state);
    if (icon == nullptr)
    {
        return;
    }
    const int shift = state.selected ? Scaled(PressedShift) : 0;
    const UINT look = state.disabled && !hasDisabledIcon ? DSS_DISABLED : DSS_NORMAL;
    DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(icon), 0, place.x + shift, place.y + shift, m_nIconWidth,
               m_nIconHeight, DST_ICON | look);
}

void COwnerDrawBtnFramework::SelectTextStyle(HDC dc, const OwnerButtonState& state, const CFont* font) const
{
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, state.disabled ? GetSysColor(COLOR_GRAYTEXT) : m_crText);
    const HFONT used = font != nullptr ? font->GetSafeHandle() : CWindow(GetParent()).GetFont();
    if (used != nullptr)
    {
        SelectObject(dc, used);
    }
}

void COwnerDrawBtnFramework::PaintFocus(HDC dc, RECT rect, const OwnerButtonState& state, COLORREF colour) const
{
    if (m_bDrawFocus && state.focus)
    {
        InflateRect(&rect, -Scaled(FocusInset), -Scaled(FocusInset));
        DrawFocusMark(dc, rect, colour);
    }
}

void COwnerDrawBtnFramework::PaintBitmap(HDC dc, const RECT& rect, const CBitmap& bitmap)
{
    if (bitmap.GetSafeHandle() == nullptr)
    {
        return;
    }
    const CMemoryDC from;
    SelectObject(from, bitmap);
    const SIZE size = bitmap.GetSize();
    BitBlt(dc, rect.left, rect.top, size.cx, size.cy, from, 0, 0, SRCCOPY);
}

SIZE COwnerDrawBtnFramework::IconSize()
{
    return {GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)};
}
