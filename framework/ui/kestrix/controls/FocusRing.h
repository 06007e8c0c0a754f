#pragma once

#include "platform/dialog/Window.h"

// A ring around the control of a dialog that has the focus, for those that the system draws: lists, combo boxes, edits.
// It is part of the dialog's ground; what stands close to the control covers its part of it.
class CFocusRing
{
public:
    // Looks at a message of the dialog: a control tells by one that it gets or loses the focus.
    void Follow(CWindow dialog, UINT message, WPARAM wParam, LPARAM lParam);

    void Draw(CWindow dialog, HDC dc) const;

private:
    HWND m_hControl = nullptr; // none: no such control has the focus
};
