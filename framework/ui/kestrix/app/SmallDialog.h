#pragma once

#include "framework/ui/kestrix/app/FramedDialog.h"
#include "framework/ui/kestrix/controls/ColorText.h"
#include "framework/ui/kestrix/controls/ExtendButton.h"
#include "framework/ui/kestrix/controls/FlexBitmapButton.h"

// A small dialog before the form: a heading and a close button in the top of its frame, and OK and Cancel.
class CSmallDialog : public CFramedDialog
{
public:
    BOOL OnInitDialog() override;

protected:
    // What each template has its own numbers for.
    struct Numbers
    {
        UINT dialog;
        UINT heading;     // control
        UINT headingText; // text
        UINT closeBox;    // control, the button in the frame
    };

    explicit CSmallDialog(const Numbers& numbers) : CFramedDialog(numbers.dialog), m_numbers(numbers) {}

    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void DoDataExchange(CDataExchange& exchange) override;

private:
    void OnPaint();

    const Numbers m_numbers;
    CColorText m_Heading;
    CExtendButton m_OkButton;
    CExtendButton m_CancelButton;
    CFlexBitmapButton m_CloseBoxButton;
};
