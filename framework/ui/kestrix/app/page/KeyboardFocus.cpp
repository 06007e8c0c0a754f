#include "framework/ui/kestrix/app/page/KeyboardFocus.h"

#include "platform/dialog/DialogFramework.h"

void KeepFocusUsable(const CWindow& page, CWindow& fallback)
{
    if (!page.IsWindowVisible() || ::GetActiveWindow() != ::GetAncestor(page.GetSafeHwnd(), GA_ROOT))
    {
        return;
    }
    const CWindow focus(::GetFocus());
    if (!focus.IsWindowVisible() || !focus.IsWindowEnabled() || (focus.GetStyle() & WS_TABSTOP) == 0)
    {
        fallback.SetFocus();
    }
}
