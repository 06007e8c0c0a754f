#include "framework/ui/kestrix/controls/ExtendButton.h"

#include "framework/ui/kestrix/controls/BitmapShape.h"
#include "framework/ui/kestrix/controls/ParentRedraw.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "framework/ui/kestrix/controls/StretchBitmap.h"

namespace
{

constexpr COLORREF Black = RGB(0, 0, 0);

// Draws a frame of two system colours and moves the rectangle to its inside.
void DrawEdgePair(HDC dc, RECT& rect, int topLeft, int bottomRight)
{
    Draw3dRect(dc, rect, GetSysColor(topLeft), GetSysColor(bottomRight));
    InflateRect(&rect, -1, -1);
}

void DrawBlackFrame(HDC dc, RECT& rect)
{
    Draw3dRect(dc, rect, Black, Black);
    InflateRect(&rect, -1, -1);
}

int TextHeight(HDC dc, const std::wstring& text, RECT place, UINT format)
{
    return ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place, format | DT_CALCRECT);
}

} // namespace

const MessageMap& CExtendButton::Map()
{
    static constexpr auto rows = MessageRows(On::Message<WM_LBUTTONDOWN, &CExtendButton::OnMouseButton>,
                                             On::Message<WM_LBUTTONUP, &CExtendButton::OnMouseButton>,
                                             On::Message<WM_LBUTTONDBLCLK, &CExtendButton::OnMouseButton>,
                                             On::Message<WM_KEYDOWN, &CExtendButton::OnKeyDown>);
    static constexpr MessageMap map{rows, &COwnerDrawBtnFramework::Map};
    return map;
}

bool CExtendButton::LoadFace(Face& face, UINT bitmap, BOOL redraw)
{
    const BitmapResource source(bitmap);
    const RECT client = GetClientRect();
    face.bitmap = StretchBitmap(source, {client.right, client.bottom}, Scaled(m_nBorder));
    face.shape = MakeBitmapShape(face.bitmap, m_crKey);
    m_bHasBitmap = m_bHasBitmap || !source.IsEmpty();
    if (redraw)
    {
        Redraw();
    }
    return !source.IsEmpty();
}

void CExtendButton::SetLocked(bool locked)
{
    m_bLocked = locked;
    if (SwallowsInput() && m_hWnd != nullptr && GetCapture() == m_hWnd)
    {
        ReleaseCapture(); // the release of the mouse button would not reach the press that waits for it
    }
    Redraw();
}

void CExtendButton::SetLockedFont(const CFont* font)
{
    m_pLockedFont = font;
    Redraw();
}

bool CExtendButton::SetThirdIcon(UINT icon)
{
    m_hThirdIcon = LoadIconImage(icon, IconSize());
    Redraw();
    return static_cast<bool>(m_hThirdIcon);
}

void CExtendButton::SetLayout(bool vertical, int margin, int gap)
{
    m_bVertical = vertical;
    m_nMargin = margin;
    m_nGap = gap;
    Redraw();
}

void CExtendButton::SetFrame(bool frame)
{
    m_bHasFrame = frame;
    Redraw();
}

void CExtendButton::OnMouseButton(UINT keys, POINT point)
{
    if (!SwallowsInput())
    {
        COwnerDrawBtnFramework::OnMouseButton(keys, point);
    }
}

void CExtendButton::OnKeyDown(UINT key, UINT, UINT)
{
    if (key != VK_SPACE || !SwallowsInput())
    {
        Default();
    }
}

const CExtendButton::Face& CExtendButton::FaceFor(const OwnerButtonState& state) const
{
    if (m_bLocked)
    {
        return m_Locked;
    }
    return state.hover ? m_Hot : m_Normal;
}

bool CExtendButton::ShowsFace() const
{
    return m_bHasBitmap && !IsHighContrast();
}

void CExtendButton::DrawOwnerButton(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    if (IsRectEmpty(&rect))
    {
        return;
    }
    const CMemDC memory(dc, rect);
    // What is not drawn shows what was there.
    BitBlt(memory, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, dc, rect.left, rect.top,
           SRCCOPY);
    const CSaveDC saved(memory);
    if (const HRGN shape = FaceFor(state).shape; shape != nullptr && ShowsFace())
    {
        ExtSelectClipRgn(memory, shape, RGN_AND);
    }
    SetBkMode(memory, TRANSPARENT);
    DrawBackground(memory, rect, state);
    if (m_bOwnIcons)
    {
        DrawIcon(memory, rect, state);
    }
    DrawText(memory, rect, state);
    DrawFocus(memory, rect, state);
}

// A transparent button needs the parent to paint below it.
void CExtendButton::RefreshButton()
{
    InvalidateParentUnder(*this);
}

void CExtendButton::DrawBackground(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    if (ShowsFace())
    {
        DrawImageButton(dc, rect, state);
    }
    else if (m_bTransparent)
    {
        DrawTransparent(dc, rect, state);
    }
    else
    {
        FillBackground(dc, rect, state);
    }
    if (m_bHasFrame)
    {
        DrawFrame(dc, rect, state);
    }
    else if (m_bHasBitmap && !ShowsFace())
    {
        const COLORREF edge = GetSysColor(state.disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
        Draw3dRect(dc, rect, edge, edge);
    }
}

void CExtendButton::FillBackground(HDC dc, const RECT& rect, const OwnerButtonState&)
{
    FillSolidRect(dc, rect, m_crBackground);
}

void CExtendButton::DrawTransparent(HDC, const RECT&, const OwnerButtonState&) {}

void CExtendButton::DrawImageButton(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    PaintBitmap(dc, rect, FaceFor(state).bitmap);
}

// A flat button has a frame while it is pressed only.
void CExtendButton::DrawFrame(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    RECT inner = rect;
    if (m_bFlat)
    {
        if (state.selected)
        {
            DrawEdgePair(dc, inner, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT);
        }
        return;
    }
    if (state.selected)
    {
        DrawBlackFrame(dc, inner);
        DrawEdgePair(dc, inner, COLOR_BTNSHADOW, COLOR_BTNSHADOW);
        return;
    }
    if (state.focus || state.isDefault)
    {
        DrawBlackFrame(dc, inner);
    }
    DrawEdgePair(dc, inner, COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW);
    DrawEdgePair(dc, inner, COLOR_3DLIGHT, COLOR_BTNSHADOW);
}

void CExtendButton::DrawText(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    const std::wstring text = GetWindowText();
    const bool isMultiLine = (GetStyle() & BS_MULTILINE) != 0;
    UINT format = isMultiLine ? DT_WORDBREAK : DT_SINGLELINE | DT_END_ELLIPSIS;
    RECT place = rect;
    const CSaveDC saved(dc);
    SelectTextStyle(dc, state, m_bLocked ? m_pLockedFont : m_pFont);
    if (m_bVertical)
    {
        place.top += Scaled(m_nMargin) + Scaled(m_nGap) + m_nIconHeight;
        format |= DT_CENTER;
    }
    else
    {
        place.left += Scaled(m_nMargin) + Scaled(m_nGap) + m_nIconWidth;
        if (isMultiLine)
        {
            place.top += (rect.bottom - rect.top - TextHeight(dc, text, place, format)) / 2;
        }
        else
        {
            format |= DT_VCENTER | (m_nMargin == 0 ? DT_CENTER : DT_LEFT);
        }
    }
    ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place, format);
}

void CExtendButton::DrawIcon(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    const bool hasText = !GetWindowText().empty();
    POINT place{(rect.right - rect.left - m_nIconWidth) / 2, (rect.bottom - rect.top - m_nIconHeight) / 2};
    if (hasText)
    {
        (m_bVertical ? place.y : place.x) = Scaled(m_nMargin);
    }
    PaintIcon(dc, {rect.left + place.x, rect.top + place.y}, state, m_hThirdIcon.get());
}

void CExtendButton::DrawFocus(HDC dc, const RECT& rect, const OwnerButtonState& state)
{
    if (!m_bLocked)
    {
        PaintFocus(dc, rect, state);
    }
}
