#include "platform/dialog/PopupMenu.h"

void CPopupMenu::Append(UINT id, const std::wstring& text, bool enabled)
{
    AppendMenuW(m_hMenu.get(), MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED), id, text.c_str());
}

void CPopupMenu::AppendSeparator()
{
    AppendMenuW(m_hMenu.get(), MF_SEPARATOR, 0, nullptr);
}

UINT CPopupMenu::Track(HWND owner, POINT place) const
{
    return static_cast<UINT>(
        TrackPopupMenu(m_hMenu.get(), TPM_RIGHTBUTTON | TPM_RETURNCMD, place.x, place.y, 0, owner, nullptr));
}
