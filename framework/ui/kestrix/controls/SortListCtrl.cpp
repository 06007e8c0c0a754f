#include "framework/ui/kestrix/controls/SortListCtrl.h"

void CSortListCtrl::PreSubclassWindow()
{
    CListCtrl::PreSubclassWindow();
    m_Header.SubclassWindow(GetHeaderCtrl());
}
