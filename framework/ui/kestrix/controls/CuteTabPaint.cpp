#include "framework/ui/kestrix/controls/CuteTabCtrl.h"
#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinColours.h"

#include <array>

namespace
{

// In pixels.
constexpr int EndDistance = 20; // of one or two tabs from the ends of the strip
constexpr int LeastGap = 2;
constexpr int BelowText = 2;
constexpr SIZE FocusInset{5, 2}; // of the focus in the place of the text; none at its bottom

void Line(HDC dc, LONG fromX, LONG fromY, LONG toX, LONG toY)
{
    ::MoveToEx(dc, fromX, fromY, nullptr);
    ::LineTo(dc, toX, toY); // the end is left out
}

// A bitmap over a rectangle, seen through a region. Without a bitmap nothing is drawn.
void StretchThrough(HDC dc, const CRgn& region, const CBitmap& bitmap, const RECT& rect)
{
    const SIZE size = bitmap.GetSize();
    const CMemoryDC source;
    ::SelectObject(source, bitmap);
    const CSaveDC keep(dc);
    ::SelectClipRgn(dc, region);
    ::SetStretchBltMode(dc, COLORONCOLOR);
    ::StretchBlt(dc, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, source, 0, 0, size.cx,
                 size.cy, SRCCOPY);
}

} // namespace

// The buttons that scroll the tabs when they have no room; null when all tabs have.
HWND CCuteTabCtrl::ScrollButtons() const
{
    const CWindow child(::GetWindow(m_hWnd, GW_CHILD));
    return (child.GetStyle() & WS_VISIBLE) != 0 ? child.GetSafeHwnd() : nullptr;
}

void CCuteTabCtrl::OnPaint()
{
    const RECT client = GetClientRect();
    const CWindow buttons(ScrollButtons());
    if (buttons != nullptr && GetItemCount() > 0)
    {
        InvalidateRect({client.left, client.top, client.right, GetItemRect(0).bottom + 1}); // and the buttons with it
    }
    const CPaintDC dc(m_hWnd);
    CMemDC memory(dc, client);
    const COLORREF background = SkinOrSystem(m_colours.background, COLOR_BTNFACE);
    FillSolidRect(memory, client, background);
    DrawTabs(memory, client);
    if (buttons != nullptr)
    {
        RECT place = buttons.GetWindowRect();
        ScreenToClient(place);
        FillSolidRect(dc, {place.left, client.top, client.right, client.bottom}, background);
        memory.LimitTo({client.left, client.top, place.left, client.bottom});
    }
}

// Where the tabs are drawn: apart from each other, and from the ends of the strip when they are few.
std::vector<RECT> CCuteTabCtrl::DrawnTabs() const
{
    std::vector<RECT> tabs(static_cast<std::size_t>(GetItemCount()));
    for (std::size_t i = 0; i < tabs.size(); ++i)
    {
        tabs[i] = GetItemRect(static_cast<int>(i));
    }
    if (tabs.size() == 1 || tabs.size() == 2)
    {
        tabs.front().left += Scaled(EndDistance);
    }
    if (tabs.size() == 2)
    {
        tabs.back().right -= Scaled(EndDistance);
    }
    for (std::size_t i = 1; i < tabs.size(); ++i)
    {
        if (const LONG gap = tabs[i].left - tabs[i - 1].right; gap < Scaled(LeastGap))
        {
            ::OffsetRect(&tabs[i], Scaled(LeastGap) - gap, 0);
        }
    }
    return tabs;
}

void CCuteTabCtrl::DrawTabs(HDC dc, const RECT& client) const
{
    const std::vector<RECT> tabs = DrawnTabs();
    if (tabs.empty())
    {
        return;
    }
    CPen border;
    border.CreatePen(PS_SOLID, 1, SkinOrSystem(m_colours.border, COLOR_BTNTEXT));
    const CSelectObject pen(dc, border);
    const CSelectObject brush(dc, ::GetStockObject(NULL_BRUSH));
    DrawFrame(dc, client, tabs);
    if (tabs.size() == 1)
    {
        return;
    }
    const int selected = GetCurSel();
    LONG previousRight = 0;
    for (int i = 0; const RECT& tab : tabs)
    {
        DrawTab(dc, tab, i == selected, previousRight);
        DrawTabText(dc, tab, i, i == selected);
        previousRight = tab.right;
        ++i;
    }
}

// The frame of the pages. Its top has an opening from the first to the last tab, where each tab draws its own piece.
void CCuteTabCtrl::DrawFrame(HDC dc, const RECT& client, const std::vector<RECT>& tabs) const
{
    const LONG top = tabs.front().bottom;
    const LONG right = client.right - 1;
    const LONG bottom = client.bottom - 1;
    const bool isClosed = tabs.size() == 1;
    const LONG openFrom = isClosed ? right : tabs.front().left;
    const LONG openTo = isClosed ? right : tabs.back().right - 1;
    const std::array<POINT, 6> outline{
        {{openFrom, top}, {client.left, top}, {client.left, bottom}, {right, bottom}, {right, top}, {openTo, top}}};
    ::Polyline(dc, outline.data(), static_cast<int>(outline.size()));
}

void CCuteTabCtrl::DrawTab(HDC dc, const RECT& tab, bool selected, LONG previousRight) const
{
    const auto [left, top, right, bottom] = tab;
    const LONG lastQuarter = bottom - (bottom - top) / 4;
    const int radius = Scaled(m_nCornerRadius);
    const int corner = 2 * radius; // the system takes diameters
    ::RoundRect(dc, left, top, right, bottom, corner, corner);

    CBitmap face;
    if (!IsHighContrast() && face.LoadBitmap(ArtOf(selected ? m_nSelectedBitmap : m_nNormalBitmap).number))
    {
        CRgn inside;
        inside.CreateRoundRectRgn({left + 1, top, right, lastQuarter}, corner, corner);
        StretchThrough(dc, inside, face, tab);
        inside.CreateRectRgn({left + 1, top + radius, right - 1, bottom});
        StretchThrough(dc, inside, face, tab);
    }

    Line(dc, left, lastQuarter, left, bottom + 1);
    Line(dc, right - 1, lastQuarter, right - 1, bottom + 1);
    if (!selected)
    {
        Line(dc, right - 1, bottom, left - 1, bottom);
    }
    if (previousRight != 0)
    {
        Line(dc, left, bottom, previousRight - 1, bottom);
    }
}

void CCuteTabCtrl::DrawTabText(HDC dc, const RECT& tab, int index, bool selected) const
{
    const bool isEnabled = IsWindowEnabled();
    const int distance = Scaled(m_nCornerRadius) / 4;
    RECT place{tab.left + distance, tab.top + distance, tab.right - distance, tab.bottom - Scaled(BelowText)};
    const CSelectObject font(dc, selected ? m_fontSelected : m_fontNormal);
    const COLORREF colour = selected ? m_colours.selectedText : m_colours.normalText;
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, isEnabled ? SkinOrSystem(colour, COLOR_BTNTEXT) : ::GetSysColor(COLOR_GRAYTEXT));
    ::DrawTextW(dc, GetItemText(index).c_str(), -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    if (selected && isEnabled && m_bFocus)
    {
        const SIZE inset = Scaled(FocusInset);
        const RECT focus{place.left + inset.cx, place.top + inset.cy, place.right - inset.cx, place.bottom};
        DrawFocusMark(dc, focus);
    }
}
