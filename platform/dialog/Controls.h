#pragma once

#include "platform/dialog/ComboBox.h"
#include "platform/dialog/HeaderCtrl.h"
#include "platform/dialog/ListBox.h"
#include "platform/dialog/ListCtrl.h"
#include "platform/dialog/TabCtrl.h"
#include "platform/dialog/ToolTipCtrl.h"

class CButton : public CWnd
{
public:
    using CWnd::Create;

    bool Create(const std::wstring& text, DWORD style, const RECT& rect, HWND parent, int id)
    {
        return CWnd::Create(WC_BUTTONW, text, style, rect, parent, id);
    }

    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); } // BST_CHECKED and so on

    void SetCheck(int check) { SendMessage(BM_SETCHECK, check); }
};

class CStatic : public CWnd
{
public:
    using CWnd::Create;

    bool Create(const std::wstring& text, DWORD style, const RECT& rect, HWND parent, int id)
    {
        return CWnd::Create(WC_STATICW, text, style, rect, parent, id);
    }
};

class CEdit : public CWnd
{
public:
    using CWnd::Create;

    bool Create(DWORD style, const RECT& rect, HWND parent, int id)
    {
        return CWnd::Create(WC_EDITW, {}, style, rect, parent, id);
    }

    void SetReadOnly(bool readOnly = true) { SendMessage(EM_SETREADONLY, readOnly); }

    void SetSel(int start, int end) { SendMessage(EM_SETSEL, start, end); } // 0, -1: everything
};
