#include "platform/dialog/ListCtrl.h"

#include <array>

namespace
{

constexpr std::size_t LongestItemText = 1024; // with the terminator

} // namespace

bool CListCtrl::Create(DWORD style, const RECT& rect, HWND parent, int id)
{
    return CWnd::Create(WC_LISTVIEWW, {}, style, rect, parent, id);
}

int CListCtrl::InsertColumn(int column, const std::wstring& title, int format, int width)
{
    LVCOLUMNW insert{};
    insert.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
    insert.fmt = format;
    insert.cx = width;
    insert.pszText = const_cast<wchar_t*>(title.c_str());
    insert.iSubItem = column;
    return m_hWnd != nullptr
               ? static_cast<int>(SendMessage(LVM_INSERTCOLUMNW, column, reinterpret_cast<LPARAM>(&insert)))
               : -1;
}

int CListCtrl::InsertItem(const LVITEMW& item)
{
    return m_hWnd != nullptr ? static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item))) : -1;
}

std::wstring CListCtrl::GetItemText(int item, int column) const
{
    std::array<wchar_t, LongestItemText> text{};
    LVITEMW get{};
    get.iSubItem = column;
    get.pszText = text.data();
    get.cchTextMax = static_cast<int>(text.size());
    SendMessage(LVM_GETITEMTEXTW, item, reinterpret_cast<LPARAM>(&get));
    return get.pszText; // the list may answer with a text of its own instead of copying it
}

LPARAM CListCtrl::GetItemData(int item) const
{
    LVITEMW get{};
    get.mask = LVIF_PARAM;
    get.iItem = item;
    return SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&get)) ? get.lParam : 0;
}

bool CListCtrl::SetItemData(int item, LPARAM data)
{
    LVITEMW set{};
    set.mask = LVIF_PARAM;
    set.iItem = item;
    set.lParam = data;
    return SendMessage(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&set));
}

UINT CListCtrl::GetItemState(int item, UINT mask) const
{
    return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, item, mask));
}

bool CListCtrl::SetItemState(int item, UINT state, UINT mask)
{
    LVITEMW set{};
    set.state = state;
    set.stateMask = mask;
    return SendMessage(LVM_SETITEMSTATE, item, reinterpret_cast<LPARAM>(&set));
}

HIMAGELIST CListCtrl::SetImageList(HIMAGELIST images, int kind)
{
    ModifyStyle(0, LVS_SHAREIMAGELISTS);
    return reinterpret_cast<HIMAGELIST>(SendMessage(LVM_SETIMAGELIST, kind, reinterpret_cast<LPARAM>(images)));
}
