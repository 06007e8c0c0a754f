#include "framework/ui/kestrix/app/page/PageMenus.h"

#include "framework/ui/kestrix/app/page/PageCommands.h"
#include "platform/dialog/ListCtrl.h"
#include "platform/dialog/PopupMenu.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <span>

namespace
{

struct MenuItem
{
    PageCommand command;
    UINT text;
    UINT key;         // text of the keys that do the same; 0: there are none
    bool beginsGroup; // a line separates it from the items above
};

constexpr MenuItem EntryMenu[] = {
    {PageCommand::CopyEntry, IDS_MENU_COPY, IDS_KEYS_COPY, false},
    {PageCommand::CopyEntryWithHeadings, IDS_MENU_COPY_WITH_HEADINGS, IDS_KEYS_COPY_WITH_HEADINGS, false},
    {PageCommand::CopyDetails, IDS_MENU_COPY_DETAILS, 0, false},
    {PageCommand::Find, IDS_MENU_FIND, IDS_KEYS_FIND, true},
    {PageCommand::AllowProgram, IDS_MENU_ALLOW, 0, true},
};

constexpr MenuItem ValueMenu[] = {
    {PageCommand::CopyValue, IDS_MENU_COPY, IDS_KEYS_COPY, false},
    {PageCommand::CopyDetails, IDS_MENU_COPY_DETAILS, 0, false},
};

// An item is known by its place, counted from 1.
CPopupMenu MakeMenu(std::span<const MenuItem> items, const CPageCommands& commands)
{
    CPopupMenu menu;
    UINT id = 0;
    for (const MenuItem& item : items)
    {
        ++id;
        if (!commands.IsOffered(item.command))
        {
            continue;
        }
        if (item.beginsGroup)
        {
            menu.AppendSeparator();
        }
        const std::wstring key = item.key == 0 ? std::wstring() : L"\t" + LoadText(item.key);
        menu.Append(id, LoadText(item.text) + key, commands.CanRun(item.command));
    }
    return menu;
}

std::span<const MenuItem> ItemsOf(PagePlace part)
{
    switch (part)
    {
    case PagePlace::Entries:
        return EntryMenu;
    case PagePlace::Details:
        return ValueMenu;
    case PagePlace::Elsewhere:
        break;
    }
    return {};
}

// Of a list below its focused row, which comes into sight for that; at the corner of one without.
POINT PlaceInList(const CWindow& control)
{
    CListCtrl list;
    list.Attach(control);
    RECT row{};
    if (const int focused = list.GetNextItem(-1, LVNI_FOCUSED); focused != -1)
    {
        list.EnsureVisible(focused);
        row.left = LVIR_LABEL;
        list.SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(focused), reinterpret_cast<LPARAM>(&row));
    }
    list.ClientToScreen(row);
    return {row.left, row.bottom};
}

POINT PlaceInWindow(const CWindow& control)
{
    const RECT place = control.GetWindowRect();
    return {place.left, place.bottom};
}

} // namespace

void ShowPageMenu(HWND window, POINT point, CPageCommands& commands)
{
    const PagePlace place = commands.PlaceOf(window);
    const std::span<const MenuItem> items = ItemsOf(place);
    if (items.empty())
    {
        return;
    }
    CWindow control(window);
    if ((control.GetStyle() & WS_TABSTOP) != 0)
    {
        control.SetFocus();
    }
    if (point.x == ByKeyboard.x && point.y == ByKeyboard.y)
    {
        point = place == PagePlace::Entries ? PlaceInList(control) : PlaceInWindow(control);
    }
    if (const UINT chosen = MakeMenu(items, commands).Track(control, point); chosen != 0)
    {
        commands.Run(items[chosen - 1].command);
    }
}
