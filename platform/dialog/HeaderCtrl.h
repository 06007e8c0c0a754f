#pragma once

#include "platform/dialog/Wnd.h"

#include <commctrl.h>

// The column headers of a list view.
class CHeaderCtrl : public CWnd
{
public:
    int GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }

    // item.mask says what is read or written. False for a column that does not exist.
    bool GetItem(int column, HDITEMW& item) const
    {
        return SendMessage(HDM_GETITEMW, column, reinterpret_cast<LPARAM>(&item));
    }

    bool SetItem(int column, const HDITEMW& item)
    {
        return SendMessage(HDM_SETITEMW, column, reinterpret_cast<LPARAM>(&item));
    }

    // The images stay the caller's; returns the list before.
    HIMAGELIST SetImageList(HIMAGELIST images)
    {
        return reinterpret_cast<HIMAGELIST>(
            SendMessage(HDM_SETIMAGELIST, HDSIL_NORMAL, reinterpret_cast<LPARAM>(images)));
    }

    HIMAGELIST GetImageList() const
    {
        return reinterpret_cast<HIMAGELIST>(SendMessage(HDM_GETIMAGELIST, HDSIL_NORMAL));
    }
};
