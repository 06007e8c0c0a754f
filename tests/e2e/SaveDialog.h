#pragma once

#include <windows.h>

#include <string>

// The system's save dialog of an export while it is open. Keys go to its controls by way of its message queue, since
// there is no window manager that would keep it in front.
class SaveDialog
{
public:
    // Waits for the dialog.
    SaveDialog();

    bool IsOpen() const { return m_window != nullptr && IsWindow(m_window); }

    void Type(const std::wstring& text) const;

    // Chooses a filter by its number, from 1 on, with the arrow keys.
    void ChooseType(int index) const;

    // A key in the field of the name.
    void Press(WPARAM key) const;

private:
    HWND m_window;
    HWND m_name;
};
