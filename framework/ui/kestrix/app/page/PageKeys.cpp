#include "framework/ui/kestrix/app/page/PageKeys.h"

#include "framework/ui/kestrix/app/page/PageCommands.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace
{

constexpr UINT Ctrl = MOD_CONTROL;
constexpr UINT Shift = MOD_SHIFT;
constexpr UINT Nothing = 0;
constexpr std::nullopt_t Anywhere = std::nullopt;

struct PageKey
{
    UINT held; // these of Ctrl, Shift and Alt, and no others
    WPARAM key;
    std::optional<PagePlace> place; // none: wherever the keyboard is
    PageCommand command;
};

constexpr PageKey Keys[] = {
    {Ctrl, 'C', PagePlace::Entries, PageCommand::CopyEntry},
    {Ctrl, VK_INSERT, PagePlace::Entries, PageCommand::CopyEntry},
    {Ctrl | Shift, 'C', PagePlace::Entries, PageCommand::CopyEntryWithHeadings},
    {Ctrl, 'C', PagePlace::Details, PageCommand::CopyValue},
    {Ctrl, VK_INSERT, PagePlace::Details, PageCommand::CopyValue},
    {Ctrl, 'F', Anywhere, PageCommand::Find},
    {Nothing, VK_F3, Anywhere, PageCommand::FindNext},
    {Shift, VK_F3, Anywhere, PageCommand::FindPrevious},
};

UINT IfDown(int key, UINT held)
{
    return ::GetKeyState(key) < 0 ? held : 0;
}

UINT KeysHeld()
{
    return IfDown(VK_CONTROL, MOD_CONTROL) | IfDown(VK_SHIFT, MOD_SHIFT) | IfDown(VK_MENU, MOD_ALT);
}

} // namespace

bool RunPageKey(const MSG& message, CPageCommands& commands)
{
    if (message.message != WM_KEYDOWN)
    {
        return false;
    }
    const PagePlace place = commands.PlaceOf(message.hwnd);
    const UINT held = KeysHeld();
    const auto found = std::ranges::find_if(
        Keys, [&](const PageKey& row)
        { return row.held == held && row.key == message.wParam && row.place.value_or(place) == place; });
    if (found == std::end(Keys))
    {
        return false;
    }
    commands.Run(found->command);
    return true;
}
