#pragma once

#include "framework/ui/kestrix/controls/SortListCtrl.h"
#include "tests/support/CommonControls.h"

// A hidden window with a report list in it, made and taken over as the page does with that of its template.
class ListWindow : public CWnd
{
public:
    static constexpr int ListId = 1006;

    ListWindow()
    {
        RegisterCommonControls();
        static constexpr RECT frame{0, 0, 640, 480};
        CWnd::Create(L"STATIC", {}, WS_POPUP, frame, nullptr, 0);
        // The list is visible, since a hidden one may be without its header.
        CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDATA, 0, 0,
                        600, 400, m_hWnd, reinterpret_cast<HMENU>(std::intptr_t{ListId}), AfxGetInstanceHandle(),
                        nullptr);
        m_list.SubclassDlgItem(ListId, m_hWnd);
    }

    CSortListCtrl m_list;
};
