#include "framework/ui/kestrix/controls/LabelClick.h"

void PostLabelClick(const CWindow& label)
{
    const auto id = static_cast<WORD>(::GetDlgCtrlID(label));
    CWindow(label.GetParent())
        .PostMessage(WM_COMMAND, MAKEWPARAM(id, STN_CLICKED), reinterpret_cast<LPARAM>(label.GetSafeHwnd()));
}
