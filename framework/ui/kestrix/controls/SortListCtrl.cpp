#include "framework/ui/kestrix/controls/SortListCtrl.h"

void CSortListCtrl::PreSubclassWindow()
{
    CListCtrl::PreSubclassWindow();
    m_Header.SubclassWindow(GetHeaderCtrl());
}

// A list measures its rows when it is painted for the first time, here onto nothing. On the screen it would paint its
// scroll bar twice more for that.
void CSortListCtrl::MeasureRows()
{
    const CMemoryDC nothing;
    SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(nothing.GetSafeHdc()), PRF_CLIENT);
}
