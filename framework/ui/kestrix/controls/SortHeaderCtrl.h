#pragma once

#include "platform/dialog/DialogFramework.h"

// The header of a sorted list: one arrow, on the column by which the list is sorted.
class CSortHeaderCtrl : public CHeaderCtrl
{
public:
    // Shows the up arrow on the column for ascending 1, the down arrow for any other value, and clears all others.
    // A column that does not exist clears all arrows.
    void SetSortArrow(int column, int ascending);

    // Makes the arrow images at the first call, and hands them to the header at every call.
    void SetArrowImages();

private:
    int AddArrow(CBitmap& bitmap, UINT id);

    CImageList m_ArrowImages;
    CBitmap m_bmpUp;
    CBitmap m_bmpDown;
    int m_nUpImage = -1;
    int m_nDownImage = -1;
    int m_nSortColumn = -1;
    int m_nAscending = 1;
};
