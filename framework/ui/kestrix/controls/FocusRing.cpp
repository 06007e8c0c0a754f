#include "framework/ui/kestrix/controls/FocusRing.h"

#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "platform/dialog/GdiObjects.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace
{

constexpr int RingWidth = 2; // in pixels

// The codes by which a control of this class tells of its focus.
struct FocusCodes
{
    const wchar_t* windowClass;
    WORD gets;
    WORD loses;
};

constexpr FocusCodes Codes[] = {
    {WC_LISTBOXW, LBN_SETFOCUS, LBN_KILLFOCUS},
    {WC_COMBOBOXW, CBN_SETFOCUS, CBN_KILLFOCUS},
    {WC_EDITW, EN_SETFOCUS, EN_KILLFOCUS},
};

struct FocusChange
{
    HWND control;
    bool hasFocus;
};

std::optional<FocusChange> ChangeOfCommand(HWND control, WORD code)
{
    wchar_t name[32]{}; // longer than any of the table
    ::GetClassNameW(control, name, static_cast<int>(std::size(name)));
    const auto codes =
        std::ranges::find_if(Codes, [&](const FocusCodes& row) { return ::lstrcmpiW(row.windowClass, name) == 0; });
    if (codes == std::end(Codes) || (code != codes->gets && code != codes->loses))
    {
        return {};
    }
    return FocusChange{control, code == codes->gets};
}

std::optional<FocusChange> ChangeOfNotification(const NMHDR& notification)
{
    if (notification.code != NM_SETFOCUS && notification.code != NM_KILLFOCUS)
    {
        return {};
    }
    return FocusChange{notification.hwndFrom, notification.code == NM_SETFOCUS};
}

std::optional<FocusChange> ChangeOf(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND)
    {
        return ChangeOfCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
    }
    return message == WM_NOTIFY ? ChangeOfNotification(*reinterpret_cast<const NMHDR*>(lParam)) : std::nullopt;
}

// The four sides of the ring, in the dialog's client coordinates.
std::array<RECT, 4> SidesOf(CWindow dialog, CWindow control)
{
    RECT inside = control.GetWindowRect();
    dialog.ScreenToClient(inside);
    RECT outside = inside;
    InflateRect(&outside, Scaled(RingWidth), Scaled(RingWidth));
    return {{{outside.left, outside.top, outside.right, inside.top},
             {outside.left, inside.bottom, outside.right, outside.bottom},
             {outside.left, inside.top, inside.left, inside.bottom},
             {inside.right, inside.top, outside.right, inside.bottom}}};
}

void InvalidateRing(CWindow dialog, HWND control)
{
    if (!::IsChild(dialog, control))
    {
        return;
    }
    for (const RECT& side : SidesOf(dialog, CWindow(control)))
    {
        dialog.InvalidateRect(side);
    }
}

} // namespace

void CFocusRing::Follow(CWindow dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    const std::optional<FocusChange> change = ChangeOf(message, wParam, lParam);
    if (!change || (!change->hasFocus && change->control != m_hControl))
    {
        return;
    }
    InvalidateRing(dialog, m_hControl);
    m_hControl = change->hasFocus ? change->control : nullptr;
    InvalidateRing(dialog, m_hControl);
}

void CFocusRing::Draw(CWindow dialog, HDC dc) const
{
    if (!::IsChild(dialog, m_hControl))
    {
        return;
    }
    CBrush brush;
    brush.CreateSolidBrush(SkinOrSystem(SkinColour::Focus, COLOR_HIGHLIGHT));
    for (const RECT& side : SidesOf(dialog, CWindow(m_hControl)))
    {
        FillRect(dc, &side, brush);
    }
}
