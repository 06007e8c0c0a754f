#pragma once

#include "platform/dialog/Wnd.h"

// What the sources here put into a message map.
class CProbe : public CWnd
{
public:
    static const MessageMap& Map();

private:
    void OnSize(UINT type, int width, int height);
    void OnTimer(UINT_PTR timer);
    void OnClick();
    void OnColumnClick(NMLISTVIEW& click);
    LRESULT OnAny(WPARAM wParam, LPARAM lParam);
    HBRUSH OnCtlColor(HDC dc, HWND control, UINT kind);
    int OnClickWithResult();
};
