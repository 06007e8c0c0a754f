#pragma once

#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <algorithm>
#include <vector>

// The form under the user's fingers. Everything but PressKey is for the steps of the form.
class KeysFormTest : public FormTest
{
protected:
    static void PressKey(HWND target, WPARAM key)
    {
        ::PostMessageW(target, WM_KEYDOWN, key, 1);
        ::PostMessageW(target, WM_KEYUP, key, 1);
    }

    // Offers a message to the windows, as the message loop does. True: it is dealt with.
    static bool IsTranslated(MSG& message)
    {
        for (HWND window = message.hwnd; window != nullptr; window = ::GetParent(window))
        {
            CWnd* const object = CWnd::FromHandlePermanent(window);
            if (object != nullptr && object->PreTranslateMessage(message))
            {
                return true;
            }
        }
        return false;
    }

    static bool TakesKeys(HWND control)
    {
        const CWindow window(control);
        return window.IsWindowVisible() && window.IsWindowEnabled() && (window.GetStyle() & WS_TABSTOP) != 0;
    }

    HWND PageItem(UINT control) const { return m_form.Page()->GetDlgItem(static_cast<int>(control)); }

    // Selects the first record, as the arrow keys do.
    void ShowFirstRecord() const
    {
        const HWND list = PageItem(IDC_RECORD_LIST);
        ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        ::PostMessageW(list, WM_KEYUP, VK_UP, 1);
    }

    // The controls that the Tab key visits, from the first on until it comes to one again. No key is pressed here: the
    // focus goes when another program comes to the front meanwhile.
    std::vector<int> WalkTabs() const
    {
        std::vector<int> way;
        HWND control = ::GetNextDlgTabItem(m_form, nullptr, FALSE);
        while (control != nullptr && std::ranges::count(way, ::GetDlgCtrlID(control)) == 0)
        {
            way.push_back(::GetDlgCtrlID(control));
            control = ::GetNextDlgTabItem(m_form, control, FALSE);
        }
        return way;
    }
};
