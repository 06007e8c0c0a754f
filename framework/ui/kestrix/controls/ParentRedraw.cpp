#include "framework/ui/kestrix/controls/ParentRedraw.h"

void InvalidateParentUnder(const CWindow& control)
{
    CWindow parent(control.GetParent());
    RECT area = control.GetWindowRect();
    parent.ScreenToClient(area);
    parent.InvalidateRect(area);
}

void RedrawThroughParent(CWindow& control)
{
    control.Invalidate();
    control.RedrawWindow(RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    InvalidateParentUnder(control);
    CWindow(control.GetParent()).UpdateWindow();
}
