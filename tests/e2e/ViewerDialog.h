#pragma once

#include "tests/e2e/Viewer.h"

// A dialog or message box of the viewer, driven from outside.
class ViewerDialog
{
public:
    // Waits for a visible window of the viewer that has this control; throws std::runtime_error when none comes.
    ViewerDialog(const Viewer& viewer, int control);

    HWND Item(int control) const { return GetDlgItem(m_window, control); }

    bool IsOpen() const { return IsWindowVisible(m_window) != FALSE; }

    bool WaitUntilClosed() const;

    // With the mouse.
    void Click(int control) const;
    void ChooseByClick(int comboBox, int index) const;

    // With the keyboard: to whatever control has the focus, for which it waits.
    void Press(WORD key) const;
    void PressAccessKey(wchar_t letter) const;

    bool WaitForFocus(int control) const;

    int ChoiceOf(int comboBox) const;
    bool IsChecked(int checkBox) const;

private:
    HWND WaitForAnyFocus() const;

    const Viewer& m_viewer;
    HWND m_window = nullptr;
};
