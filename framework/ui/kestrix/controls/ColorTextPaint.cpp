#include "framework/ui/kestrix/controls/ColorText.h"
#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinColours.h"

#include <algorithm>
#include <array>

namespace
{

// In pixels.
constexpr int FrameTextDistance = 4;
constexpr int FocusInset = 2;

// In the order of the alignments.
constexpr std::array<UINT, 3> HorizontalFormats{DT_LEFT, DT_CENTER, DT_RIGHT};
constexpr std::array<UINT, 4> VerticalFormats{DT_TOP, DT_SINGLELINE, DT_SINGLELINE | DT_VCENTER,
                                              DT_SINGLELINE | DT_BOTTOM};

LOGFONTW FontOf(const CWindow& window)
{
    LOGFONTW font{};
    // A window that was given no font draws with the system's.
    if (::GetObjectW(window.GetFont(), sizeof font, &font) == 0)
    {
        ::GetObjectW(::GetStockObject(SYSTEM_FONT), sizeof font, &font);
    }
    return font;
}

} // namespace

void CColorText::OnPaint()
{
    const CPaintDC dc(m_hWnd);
    const CSaveDC keep(dc);
    const RECT client = GetClientRect();
    PaintGround(dc, client);
    if (m_hIcon != nullptr)
    {
        PaintIcon(dc, client);
    }
    else
    {
        PaintText(dc, client);
    }
}

void CColorText::PaintGround(HDC dc, const RECT& client) const
{
    ::SetBkMode(dc, m_nBackground == NoColour ? TRANSPARENT : OPAQUE);
    if (m_nBackground != NoColour)
    {
        if (m_bFill)
        {
            FillSolidRect(dc, client, SkinOrSystem(m_nBackground, COLOR_BTNFACE));
        }
        ::SetBkColor(dc, SkinOrSystem(m_nBackground, COLOR_BTNFACE));
    }
    if (HasFrame())
    {
        const COLORREF frame = SkinOrSystem(m_nFrameColour, COLOR_BTNTEXT);
        Draw3dRect(dc, client, frame, frame);
    }
}

void CColorText::PaintIcon(HDC dc, const RECT& client) const
{
    const LONG x = std::max(0L, (client.right - m_iconSize.cx) / 2);
    const LONG y = std::max(0L, (client.bottom - m_iconSize.cy) / 2);
    ::DrawIconEx(dc, x, y, m_hIcon, m_iconSize.cx, m_iconSize.cy, 0, nullptr, DI_NORMAL);
}

void CColorText::PaintText(HDC dc, const RECT& client) const
{
    CFont own;
    if (m_pFont == nullptr)
    {
        MakeFont(own);
    }
    const CSelectObject font(dc, m_pFont != nullptr ? m_pFont->GetSafeHandle() : own.GetSafeHandle());
    const COLORREF colour = m_bHover && m_bHoverEnabled ? m_nHoverColour : m_nTextColour;
    ::SetTextColor(dc, SkinOrSystem(colour, m_nSystemTextColour));
    RECT place = client;
    place.left += HasFrame() ? Scaled(FrameTextDistance) : 0;
    ::DrawTextW(dc, m_strText.c_str(), -1, &place, TextFormat());
    if (m_bShowFocus && m_bFocus)
    {
        DrawFocusMark(dc, FocusRect(dc, client));
    }
}

void CColorText::MakeFont(CFont& font) const
{
    LOGFONTW made = FontOf(CWindow(GetParent()));
    made.lfHeight = Scaled(m_look.height);
    made.lfWidth = 0;
    made.lfWeight = m_look.weight;
    made.lfEscapement = 0;
    made.lfOrientation = 0;
    made.lfItalic = m_look.italic;
    made.lfUnderline = m_look.underline;
    made.lfStrikeOut = m_look.strikeOut;
    if (!m_look.faceName.empty() && m_look.faceName.size() < LF_FACESIZE)
    {
        std::ranges::fill(made.lfFaceName, L'\0');
        std::ranges::copy(m_look.faceName, made.lfFaceName);
    }
    font.CreateFontIndirect(made);
}

UINT CColorText::TextFormat() const
{
    return DT_WORDBREAK | DT_NOCLIP | HorizontalFormats[static_cast<std::size_t>(m_horizontal)] |
           VerticalFormats[static_cast<std::size_t>(m_vertical)];
}

RECT CColorText::FocusRect(HDC dc, const RECT& client) const
{
    const bool isLeft = m_horizontal == Horizontal::Left;
    if (isLeft && (m_vertical == Vertical::WrappedTop || m_vertical == Vertical::Top))
    {
        RECT extent = client;
        ::DrawTextW(dc, m_strText.c_str(), -1, &extent, TextFormat() | DT_CALCRECT);
        return extent;
    }
    if (isLeft && m_vertical == Vertical::Centre)
    {
        const int inset = Scaled(FocusInset);
        return {client.left, client.top + inset, client.right - inset, client.bottom - inset};
    }
    return client;
}
