#include "platform/dialog/ComboBox.h"

#include <commctrl.h>

bool CComboBox::Create(DWORD style, const RECT& rect, HWND parent, int id)
{
    return CWnd::Create(WC_COMBOBOXW, {}, style, rect, parent, id);
}

int CComboBox::AddString(const std::wstring& text)
{
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

int CComboBox::InsertString(int index, const std::wstring& text)
{
    return static_cast<int>(SendMessage(CB_INSERTSTRING, index, reinterpret_cast<LPARAM>(text.c_str())));
}

std::wstring CComboBox::GetLBText(int index) const
{
    const LRESULT length = SendMessage(CB_GETLBTEXTLEN, index);
    std::wstring text(length > 0 ? static_cast<std::size_t>(length) : 0, L'\0');
    if (!text.empty())
    {
        SendMessage(CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    }
    return text;
}
