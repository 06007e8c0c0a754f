#pragma once

#include "platform/dialog/Wnd.h"

#include <commctrl.h>

// A strip of tabs. Indices count from 0; -1 stands for none.
class CTabCtrl : public CWnd
{
public:
    using CWnd::Create;
    bool Create(DWORD style, const RECT& rect, HWND parent, int id);

    int InsertItem(int index, const std::wstring& text); // returns the index; -1 when refused
    std::wstring GetItemText(int index) const;           // at most 260 characters
    RECT GetItemRect(int index) const;                   // in client coordinates; empty for no such tab

    int GetItemCount() const { return static_cast<int>(SendMessage(TCM_GETITEMCOUNT)); }

    int GetCurSel() const { return m_hWnd != nullptr ? static_cast<int>(SendMessage(TCM_GETCURSEL)) : -1; }

    int SetCurSel(int index) { return static_cast<int>(SendMessage(TCM_SETCURSEL, index)); } // notifies nobody

    void SetCurFocus(int index) { SendMessage(TCM_SETCURFOCUS, index); } // notifies the parent

    SIZE SetItemSize(SIZE size); // returns the size before

    int SetMinTabWidth(int width) { return static_cast<int>(SendMessage(TCM_SETMINTABWIDTH, 0, width)); }

    int HitTest(TCHITTESTINFO& hit) const;

    // From the strip's rectangle to the area of its pages, or back when larger is true.
    void AdjustRect(bool larger, RECT& rect) const;
};
