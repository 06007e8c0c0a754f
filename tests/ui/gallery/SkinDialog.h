#pragma once

#include "framework/ui/kestrix/controls/BitmapDialog.h"
#include "tests/support/CommonControls.h"
#include "tests/ui/gallery/SkinResources.h"

// A bitmap dialog with nothing of its own, which opens to tests what its pages use. Its templates and test bitmaps are
// those of Skin.rc, in the program itself; with a LanguageFile, made after the dialog, the viewer's own are shown.
class CSkinDialog : public CBitmapDialog
{
public:
    // A popup with controls, or with a parent an empty page in it; of this size in pixels and not yet visible.
    explicit CSkinDialog(SIZE size, CWnd* parent = nullptr) : CBitmapDialog(0)
    {
        RegisterCommonControls();
        Create(parent != nullptr ? IDD_SKIN_PAGE : IDD_SKIN_TEST, parent);
        SetWindowPos(nullptr, {0, 0, size.cx, size.cy}, SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE);
    }

    // Takes the controls of the popup away, so that nothing but the background shows.
    void RemoveControls()
    {
        while (const HWND control = ::GetWindow(m_hWnd, GW_CHILD))
        {
            ::DestroyWindow(control);
        }
    }

    void ShapeCorners() { SetCornerRegion(0); }

    using CBitmapDialog::m_bSolidBackground;
    using CBitmapDialog::m_SolidBrush;
    using CBitmapDialog::m_ToolTip;
    using CBitmapDialog::SetBackground;
    using CBitmapDialog::SetControlFont;
    using CBitmapDialog::SetControlToolTip;
    using CBitmapDialog::SetImage;
    using CBitmapDialog::SetTextColour;
};
