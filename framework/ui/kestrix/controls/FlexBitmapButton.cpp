#include "framework/ui/kestrix/controls/FlexBitmapButton.h"

#include "framework/ui/kestrix/controls/SkinColours.h"
#include "framework/ui/kestrix/controls/StretchBitmap.h"

namespace
{

constexpr int AtRest = 0;
constexpr int UnderPointer = 1;

} // namespace

bool CFlexBitmapButton::SetBitmaps(UINT normal, UINT hover)
{
    const bool hasNormal = Load(m_arrImages[AtRest], normal);
    const bool hasHover = Load(m_arrImages[UnderPointer], hover);
    m_bHasBitmap = hasNormal || hasHover;
    Redraw();
    return hasNormal && hasHover;
}

bool CFlexBitmapButton::Load(Image& image, UINT id)
{
    const RECT client = GetClientRect();
    const BitmapResource source(id);
    image.id = id;
    image.sliced = StretchBitmap(source, {client.right, client.bottom}, Scaled(m_nBorder));
    return !source.IsEmpty();
}

void CFlexBitmapButton::SetKeyColour(COLORREF colour)
{
    m_crKey = colour;
    Redraw();
}

void CFlexBitmapButton::SetName(const std::wstring& name)
{
    m_bTextIsName = true;
    SetWindowText(name);
}

void CFlexBitmapButton::DrawOwnerButton(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    if (IsRectEmpty(&rect))
    {
        return;
    }
    const CMemDC memory(dc, rect);
    if (m_bTransparent)
    {
        DrawParent(memory, rect);
    }
    else
    {
        FillSolidRect(memory, rect, m_crBackground);
    }
    DrawBackground(memory, rect, state);
    if (m_bOwnIcons)
    {
        DrawIcon(memory, rect, state);
    }
    DrawText(memory, rect, state);
    DrawFocus(memory, rect, state);
}

// What the parent paints below the button. The button is hidden meanwhile, so that the parent may paint there. A parent
// that has its buttons painted anew with itself cannot start this painting again then; and as the others are painted
// before this button shows again, they cannot either: two such buttons would else call each other up for ever.
void CFlexBitmapButton::DrawParent(HDC dc, const RECT& rect)
{
    const HWND parent = GetParent();
    RECT area = rect;
    MapWindowPoints(m_hWnd, parent, reinterpret_cast<POINT*>(&area), 2);
    if ((GetStyle() & WS_VISIBLE) != 0)
    {
        SetRedraw(false);
        ::RedrawWindow(parent, &area, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        ::RedrawWindow(parent, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        SetRedraw(true);
    }
    const CClientDC below(parent);
    BitBlt(dc, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, below, area.left, area.top,
           SRCCOPY);
}

void CFlexBitmapButton::DrawBackground(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    if (m_captionSign && IsHighContrast())
    {
        RECT place = rect;
        DrawFrameControl(dc, &place, DFC_CAPTION, *m_captionSign | (state.selected ? DFCS_PUSHED : 0));
        return;
    }
    DrawBitmap(dc, rect, state);
}

void CFlexBitmapButton::DrawBitmap(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    if (!m_bHasBitmap)
    {
        return;
    }
    if (state.hover)
    {
        DrawTransparent(dc, rect, state);
    }
    else
    {
        FillBackground(dc, rect, state);
    }
}

void CFlexBitmapButton::FillBackground(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    DrawImageButton(dc, rect, state, AtRest);
}

void CFlexBitmapButton::DrawTransparent(HDC dc, const RECT& rect, const OwnerButtonState&)
{
    PaintBitmap(dc, rect, m_arrImages[UnderPointer].sliced);
}

void CFlexBitmapButton::DrawImageButton(HDC dc, const RECT& rect, const OwnerButtonState&, int image)
{
    const CBitmap& bitmap = m_arrImages.at(static_cast<std::size_t>(image)).sliced;
    if (bitmap.GetSafeHandle() == nullptr)
    {
        return;
    }
    const CMemoryDC from;
    SelectObject(from, bitmap);
    const SIZE size = bitmap.GetSize();
    GdiTransparentBlt(dc, rect.left, rect.top, size.cx, size.cy, from, 0, 0, size.cx, size.cy, m_crKey);
}

// Behind the icon, or in the middle of a button without one.
void CFlexBitmapButton::DrawText(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    if (m_bTextIsName)
    {
        return;
    }
    const std::wstring text = GetWindowText();
    RECT place = rect;
    UINT format = DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;
    if (m_bOwnIcons)
    {
        place.left += Scaled(m_nMargin) + m_nIconWidth + Scaled(m_nGap);
    }
    else
    {
        format |= DT_CENTER;
    }
    const CSaveDC saved(dc);
    SelectTextStyle(dc, state, m_pFont);
    ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place, format);
}

void CFlexBitmapButton::DrawIcon(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    const int height = rect.bottom - rect.top;
    PaintIcon(dc, {rect.left + Scaled(m_nMargin), rect.top + (height - m_nIconHeight) / 2}, state);
}

void CFlexBitmapButton::DrawFocus(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    PaintFocus(dc, rect, state, m_captionSign ? SkinColour::TitleFocus : SkinColour::Focus);
}
