#pragma once

#include "resource/DialogTexts.h"
#include "tests/support/FindDialogKit.h"
#include "tests/support/HeldKeys.h"
#include "tests/ui/framework/ui/kestrix/app/KeysFormTest.h"

#include <initializer_list>
#include <string>

// The form's records from the top: "alpha" at C:\a, "gamma" at C:\c, "beta" at C:\b.
class FindFormTest : public KeysFormTest
{
protected:
    HWND List() const { return PageItem(IDC_RECORD_LIST); }

    CWindow Note() const { return CWindow(PageItem(IDC_SEARCH_NOTE)); }

    int SelectedRow() const { return ListView_GetNextItem(List(), -1, LVNI_SELECTED); }

    std::wstring ShownThreat() const { return m_form.Page()->GetDlgItemText(IDC_INFO_VALUE_0_LINK); }

    // A key of the page with what is held down beside it, which the message loop deals with at once.
    void Press(HWND target, WPARAM key, std::initializer_list<int> held = {}) const
    {
        const HeldKeys keys(held);
        MSG message{};
        message.hwnd = target;
        message.message = WM_KEYDOWN;
        message.wParam = key;
        IsTranslated(message);
    }

    FindDialogKit OpenDialog() const
    {
        Press(List(), L'F', {VK_CONTROL});
        return Dialog();
    }

    FindDialogKit Dialog() const { return FindDialogKit(m_form); }

    // Looks for the text once, in the dialog, which is closed then.
    void FindOnce(const std::wstring& text) const
    {
        const FindDialogKit dialog = OpenDialog();
        dialog.Type(text);
        dialog.FindNext();
        dialog.Cancel();
    }

    std::wstring NoteText() const { return Note().IsWindowVisible() ? Note().GetWindowText() : std::wstring(); }

    void Run(const ScriptedForm::Step& step) { EXPECT_EQ(m_form.Run({step}), ScriptedForm::EndedByTest); }
};
