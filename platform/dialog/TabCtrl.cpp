#include "platform/dialog/TabCtrl.h"

#include <array>

namespace
{

constexpr std::size_t LongestTabText = 261; // with the terminator

} // namespace

bool CTabCtrl::Create(DWORD style, const RECT& rect, HWND parent, int id)
{
    return CWnd::Create(WC_TABCONTROLW, {}, style, rect, parent, id);
}

int CTabCtrl::InsertItem(int index, const std::wstring& text)
{
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(text.c_str());
    return m_hWnd != nullptr ? static_cast<int>(SendMessage(TCM_INSERTITEMW, index, reinterpret_cast<LPARAM>(&item)))
                             : -1;
}

std::wstring CTabCtrl::GetItemText(int index) const
{
    std::array<wchar_t, LongestTabText> text{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessage(TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
    return item.pszText; // the control may answer with a text of its own instead of copying it
}

RECT CTabCtrl::GetItemRect(int index) const
{
    RECT rect{};
    SendMessage(TCM_GETITEMRECT, index, reinterpret_cast<LPARAM>(&rect));
    return rect;
}

SIZE CTabCtrl::SetItemSize(SIZE size)
{
    const LRESULT before = SendMessage(TCM_SETITEMSIZE, 0, MAKELPARAM(size.cx, size.cy));
    return {LOWORD(before), HIWORD(before)};
}

int CTabCtrl::HitTest(TCHITTESTINFO& hit) const
{
    return m_hWnd != nullptr ? static_cast<int>(SendMessage(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit))) : -1;
}

void CTabCtrl::AdjustRect(bool larger, RECT& rect) const
{
    SendMessage(TCM_ADJUSTRECT, larger, reinterpret_cast<LPARAM>(&rect));
}
