#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <string>

// A menu that comes up at a place of the screen.
class CPopupMenu
{
public:
    CPopupMenu() : m_hMenu(CreatePopupMenu()) {}

    // An item with this number, which is not 0; one that is not enabled is grayed.
    void Append(UINT id, const std::wstring& text, bool enabled);

    void AppendSeparator();

    // Lets the user choose; 0 when nothing was chosen. Messages of all windows are dispatched meanwhile.
    UINT Track(HWND owner, POINT place) const;

private:
    UniqueMenu m_hMenu;
};
