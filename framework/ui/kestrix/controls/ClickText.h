#pragma once

#include "platform/dialog/DialogFramework.h"

// A label whose click (SS_NOTIFY) the keyboard makes too. The system paints it, in the look that the dialog gives it.
// While it is clickable and has a text, the Tab key comes to it, a rectangle around the text shows the focus, and Space
// clicks. Otherwise it is a label as any other.
class CClickText : public CStatic
{
public:
    // Whether a click does something now; not at first.
    void SetClickable(bool clickable);

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    bool IsClickable() const { return m_bClickable; }

    // Whether there is any use for the keyboard in a label that has a text.
    virtual bool WantsKeyboard() const { return m_bClickable; }

    LRESULT OnSetText(const wchar_t* text);

private:
    void OnPaint();
    void OnEnable(bool enabled);
    void OnFocusChange(HWND other);
    void OnKeyUp(UINT key, UINT repeat, UINT flags);

    bool IsTabStop() const { return (GetStyle() & WS_TABSTOP) != 0; }

    void UpdateTabStop();
    RECT FocusRect(HDC dc) const;

    bool m_bClickable = false;
};
