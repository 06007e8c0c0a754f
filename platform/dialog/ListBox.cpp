#include "platform/dialog/ListBox.h"

#include <commctrl.h>

bool CListBox::Create(DWORD style, const RECT& rect, HWND parent, int id)
{
    return CWnd::Create(WC_LISTBOXW, {}, style, rect, parent, id);
}

int CListBox::AddString(const std::wstring& text)
{
    return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

int CListBox::InsertString(int index, const std::wstring& text)
{
    return static_cast<int>(SendMessage(LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(text.c_str())));
}

std::wstring CListBox::GetText(int index) const
{
    const LRESULT length = SendMessage(LB_GETTEXTLEN, index);
    std::wstring text(length > 0 ? static_cast<std::size_t>(length) : 0, L'\0');
    if (!text.empty())
    {
        SendMessage(LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    }
    return text;
}
