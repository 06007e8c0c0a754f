#pragma once

#include "platform/dialog/Wnd.h"

// A list box of texts. Indices count from 0; -1 (LB_ERR) stands for none.
class CListBox : public CWnd
{
public:
    using CWnd::Create;
    bool Create(DWORD style, const RECT& rect, HWND parent, int id);

    int AddString(const std::wstring& text);               // returns the index
    int InsertString(int index, const std::wstring& text); // index -1: at the end
    std::wstring GetText(int index) const;                 // empty for an entry that does not exist

    DWORD_PTR GetItemData(int index) const { return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, index)); }

    void SetItemData(int index, DWORD_PTR data) { SendMessage(LB_SETITEMDATA, index, static_cast<LPARAM>(data)); }

    int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT)); }

    int GetCurSel() const { return m_hWnd != nullptr ? static_cast<int>(SendMessage(LB_GETCURSEL)) : LB_ERR; }

    int SetCurSel(int index) { return static_cast<int>(SendMessage(LB_SETCURSEL, index)); }

    void ResetContent() { SendMessage(LB_RESETCONTENT); }
};
