#pragma once

#include "platform/dialog/Window.h"

#include <dlgs.h>

#include <string>

// The system's dialog that asks for a text to look for, under the user's hands. Its controls have the same numbers in
// every language.
class FindDialogKit
{
public:
    // The dialog that stands before this top-level window; without a window when there is none.
    explicit FindDialogKit(HWND owner)
    {
        Search search{owner, nullptr};
        ::EnumThreadWindows(::GetWindowThreadProcessId(owner, nullptr), &TakeWhenOwned,
                            reinterpret_cast<LPARAM>(&search));
        m_dialog = CWindow(search.found);
    }

    bool IsOpen() const { return ::IsWindow(m_dialog) && m_dialog.IsWindowVisible(); }

    CWindow Window() const { return m_dialog; }

    CWindow TextField() const { return Item(edt1); }

    std::wstring Text() const { return TextField().GetWindowText(); }

    bool IsChecked(int button) const { return Item(button).SendMessage(BM_GETCHECK) == BST_CHECKED; }

    void Type(const std::wstring& text) const { TextField().SetWindowText(text); }

    void Click(int button) const { Item(button).SendMessage(BM_CLICK); }

    void FindNext() const { m_dialog.SendMessage(WM_COMMAND, IDOK); }

    void Cancel() const { m_dialog.SendMessage(WM_COMMAND, IDCANCEL); }

    static constexpr int WholeWords = chx1;
    static constexpr int MatchCase = chx2;
    static constexpr int Up = rad1;
    static constexpr int Down = rad2;

private:
    struct Search
    {
        HWND owner;
        HWND found;
    };

    static BOOL CALLBACK TakeWhenOwned(HWND window, LPARAM lParam)
    {
        auto& search = *reinterpret_cast<Search*>(lParam);
        if (::GetWindow(window, GW_OWNER) == search.owner && ::GetDlgItem(window, edt1) != nullptr)
        {
            search.found = window;
        }
        return search.found == nullptr;
    }

    CWindow Item(int control) const { return CWindow(m_dialog.GetDlgItem(control)); }

    CWindow m_dialog;
};
