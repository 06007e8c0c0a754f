#pragma once

#include "framework/ui/kestrix/controls/ClickText.h"

#include <string>

// What is selected in an edit; empty when nothing is.
std::wstring SelectionIn(const CWindow& edit);

// A text whose parts the user can select and copy: a read-only edit, which the class paints as the system paints a
// label as long as it has not the keyboard. It may show a shorter text then, and shows all of it to whom selects in it.
// While it is clickable it stays that label with the keyboard too, and a press of the mouse is a click. Its context
// menu is the parent's.
class CValueText : public CClickText
{
public:
    // How the label is drawn, as DT_... flags; on one line with dots at the end at first.
    void SetLabelFormat(UINT format) { m_nLabelFormat = format; }

    // Sets what the label shows, and the whole text where that is another one.
    void SetTexts(const std::wstring& label, const std::wstring& whole);

    std::wstring WholeText() const;

    // What is selected, or the whole text when nothing is.
    std::wstring TextToCopy() const;

    static constexpr UINT OneLine = DT_SINGLELINE | DT_EXPANDTABS | DT_NOPREFIX;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void PreSubclassWindow() override;

    bool WantsKeyboard() const override { return true; }

private:
    void OnPaint();
    LRESULT OnSetText(const wchar_t* text);
    void OnSetFocus(HWND other);
    void OnKillFocus(HWND other);
    void OnLButtonDown(UINT keys, POINT point);
    void OnLButtonDblClk(UINT keys, POINT point);
    BOOL OnSetCursor(HWND window, UINT hitTest, UINT mouse);
    LRESULT OnNcHitTest(WPARAM, LPARAM);
    void OnContextMenu(HWND window, POINT point);

    void FollowFocus();

    // Whether the user can select in it now.
    bool IsOpen() const { return ::GetFocus() == m_hWnd && !IsClickable(); }

    UINT m_nLabelFormat = OneLine | DT_END_ELLIPSIS;
    std::wstring m_strLabel; // these two are empty unless they differ
    std::wstring m_strWhole;
};
