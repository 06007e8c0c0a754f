#pragma once

#include "framework/ui/kestrix/controls/BitmapDialog.h"

class CColorText;
class CFlexBitmapButton;

// A window in the frame of the skin. It has no caption of the system's: a heading and buttons in the top of the frame
// stand for one, and the whole client area drags the window.
class CFramedDialog : public CBitmapDialog
{
public:
    using CBitmapDialog::CBitmapDialog;

    // Gives the window its shape and its background.
    BOOL OnInitDialog() override;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    static void SetHeading(CColorText& heading, const std::wstring& text);

    // Its pictures at rest and under the pointer, and the system's sign in high contrast, DFCS_CAPTION... Its size in
    // pixels is theirs, whatever the font of the dialog is. The text that the template gives it is its name for screen
    // readers and is not drawn.
    void SetCaptionButton(CFlexBitmapButton& button, UINT normal, UINT hot, UINT sign);

private:
    void OnLButtonDown(UINT keys, POINT point);
};
