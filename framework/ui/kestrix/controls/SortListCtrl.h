#pragma once

#include "framework/ui/kestrix/controls/SortHeaderCtrl.h"
#include "platform/dialog/DialogFramework.h"

// A report list whose header shows by which column and in which direction it is sorted.
class CSortListCtrl : public CListCtrl
{
public:
    // Takes the header over, so that a list from a dialog template shows the arrows with no further call.
    void PreSubclassWindow() override;

    CSortHeaderCtrl& SortHeader() { return m_Header; }

    // For a list that is filled before it is shown: it then stands ready, with its scroll bars as long as they will be.
    void MeasureRows();

private:
    CSortHeaderCtrl m_Header;
};
