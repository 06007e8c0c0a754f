#include "framework/ui/kestrix/controls/LabelClick.h"

namespace
{

WPARAM ClickOf(const CWindow& label)
{
    return MAKEWPARAM(static_cast<WORD>(::GetDlgCtrlID(label)), STN_CLICKED);
}

} // namespace

void SendLabelClick(const CWindow& label)
{
    ::SendMessageW(label.GetParent(), WM_COMMAND, ClickOf(label), reinterpret_cast<LPARAM>(label.GetSafeHwnd()));
}

void PostLabelClick(const CWindow& label)
{
    ::PostMessageW(label.GetParent(), WM_COMMAND, ClickOf(label), reinterpret_cast<LPARAM>(label.GetSafeHwnd()));
}
