#pragma once

#include "platform/dialog/Wnd.h"

#include <commctrl.h>

// A list view.
class CListCtrl : public CWnd
{
public:
    using CWnd::Create;
    bool Create(DWORD style, const RECT& rect, HWND parent, int id);

    // format is LVCFMT_LEFT and so on, width in pixels. Returns the column's index; -1 when refused.
    int InsertColumn(int column, const std::wstring& title, int format, int width);

    bool DeleteColumn(int column) { return SendMessage(LVM_DELETECOLUMN, column); }

    int GetColumnWidth(int column) const { return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, column)); }

    bool SetColumnWidth(int column, int width) { return SendMessage(LVM_SETCOLUMNWIDTH, column, MAKELPARAM(width, 0)); }

    HWND GetHeaderCtrl() const { return reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER)); }

    virtual int InsertItem(const LVITEMW& item);          // returns the item's index; -1 when refused
    std::wstring GetItemText(int item, int column) const; // at most 1,023 characters
    LPARAM GetItemData(int item) const;                   // 0 for an item that does not exist
    bool SetItemData(int item, LPARAM data);
    UINT GetItemState(int item, UINT mask) const;
    bool SetItemState(int item, UINT state, UINT mask);

    int GetItemCount() const { return static_cast<int>(SendMessage(LVM_GETITEMCOUNT)); }

    void SetItemCount(int count) { SendMessage(LVM_SETITEMCOUNT, count); } // makes room, adds nothing

    bool DeleteAllItems() { return SendMessage(LVM_DELETEALLITEMS); }

    bool DeleteItem(int item) { return SendMessage(LVM_DELETEITEM, item); }

    bool EnsureVisible(int item) { return SendMessage(LVM_ENSUREVISIBLE, item, FALSE); }

    int GetTopIndex() const { return static_cast<int>(SendMessage(LVM_GETTOPINDEX)); }

    // The next item after from (-1: the first of all) with these LVNI_... flags; -1 when there is none.
    int GetNextItem(int from, UINT flags) const
    {
        return static_cast<int>(SendMessage(LVM_GETNEXTITEM, from, static_cast<LPARAM>(flags)));
    }

    // Sorts by compare(data of one item, data of another, context).
    bool SortItems(PFNLVCOMPARE compare, LPARAM context)
    {
        return SendMessage(LVM_SORTITEMS, context, reinterpret_cast<LPARAM>(compare));
    }

    DWORD GetExtendedStyle() const { return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE)); }

    void SetExtendedStyle(DWORD style) { SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style); }

    // kind is LVSIL_SMALL and so on; returns the list before. With LVS_SHAREIMAGELISTS the images stay the caller's,
    // and this sets that style, so that the list view never destroys an image list that an object owns.
    HIMAGELIST SetImageList(HIMAGELIST images, int kind);
};
