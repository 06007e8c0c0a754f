#pragma once

#include "platform/dialog/DialogFramework.h"
#include "tests/support/CommonControls.h"

// A plain window that a part of the page takes its controls from, as it takes them from the page.
class PartWindow : public CWnd
{
public:
    PartWindow()
    {
        RegisterCommonControls();
        CWnd::Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE, {0, 0, 640, 480}, nullptr, 0);
    }

    // A visible control of a class of the system, in its place unless the test has none for it.
    CWindow Add(const wchar_t* className, UINT id, DWORD style = 0, const RECT& place = {0, 0, 100, 20})
    {
        return CWindow(CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                                       place.right - place.left, place.bottom - place.top, m_hWnd,
                                       reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), AfxGetInstanceHandle(),
                                       nullptr));
    }

    CDataExchange Exchange() const { return {m_hWnd, false}; }

    CWindow Item(UINT id) const { return CWindow(GetDlgItem(static_cast<int>(id))); }

    // Also of a control in a window that is not shown.
    bool Shows(UINT id) const { return (Item(id).GetStyle() & WS_VISIBLE) != 0; }

    // Where a control stands, in this window's coordinates.
    RECT PlaceOf(UINT id) const
    {
        RECT place = Item(id).GetWindowRect();
        ScreenToClient(place);
        return place;
    }
};
