#pragma once

#include "platform/dialog/DialogFramework.h"

#include <cstdint>
#include <string>

// A label that paints its own text, over whatever its parent painted unless it is given a ground. It can be a link:
// hot under the pointer, with a cursor of its own, reached by the Tab key (WS_TABSTOP) and pressed with Space. A link
// needs SS_NOTIFY to see the mouse. A setter that changes what is shown has the label painted anew.
class CColorText : public CStatic
{
public:
    static constexpr COLORREF NoColour = CLR_INVALID;

    enum class Horizontal
    {
        Left,
        Centre,
        Right,
    };

    // WrappedTop breaks the text into lines, the others show one line.
    enum class Vertical
    {
        WrappedTop,
        Top,
        Centre,
        Bottom,
    };

    struct FontLook
    {
        std::int32_t height = 12; // in pixels at 96 dots an inch, as the font takes it
        std::int32_t weight = FW_NORMAL;
        bool italic = false;
        bool underline = false;
        bool strikeOut = false;
        std::wstring faceName{}; // the parent's when empty, or with 32 characters or more
    };

    // The text that is shown is the window's: of the template first, then what this or SetWindowText sets.
    void SetText(const std::wstring& text) { SetWindowText(text); }

    const std::wstring& GetText() const { return m_strText; }

    // In high contrast the colour of the system with this number, COLOR_..., takes its place.
    void SetTextColour(COLORREF colour, int system = COLOR_BTNTEXT)
    {
        m_nSystemTextColour = system;
        Store(m_nTextColour, colour);
    }

    // The hot colour stands under the pointer while hovering is enabled.
    void SetHoverColour(COLORREF colour) { Store(m_nHoverColour, colour); }

    void EnableHover(bool enable) { Store(m_bHoverEnabled, enable); }

    void SetAlignment(Horizontal horizontal, Vertical vertical);

    // The font is made from the parent's with this look, at each painting.
    void SetFontLook(const FontLook& look) { Store(m_look, look); }

    // A font to use as it is instead; null for none. It stays the caller's and must outlive its use.
    void SetTextFont(const CFont* font) { Store(m_pFont, font); }

    // NoColour is transparent. fill: the whole label and not only what is behind the characters.
    void SetBackground(COLORREF colour, bool fill);

    void SetFrame(COLORREF colour, bool show);

    // Shown in the middle instead of the text; null shows the text. The icon stays the caller's.
    void SetIcon(HICON icon, SIZE size);

    // Whether the focus is marked.
    void ShowFocus(bool show) { Store(m_bShowFocus, show); }

    // Gets a copy of each mouse click, with zero arguments; null for none.
    void SetNotifyWindow(HWND window) { m_hNotify = window; }

    // Shown over the label; null for the usual one. The cursor stays the caller's.
    void SetCursor(HCURSOR cursor) { m_hCursor = cursor; }

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void PreSubclassWindow() override;

private:
    template <class T>
    void Store(T& field, const T& value)
    {
        field = value;
        Repaint();
    }

    void Repaint();

    void OnPaint();
    LRESULT OnSetText(const wchar_t* text);
    void OnEnable(bool enabled);
    void OnSetFocus(HWND other);
    void OnKillFocus(HWND other);
    void OnUpdateUiState(UINT action, UINT flags);
    void OnLButtonDown(UINT keys, POINT point);
    void OnLButtonUp(UINT keys, POINT point);
    void OnLButtonDblClk(UINT keys, POINT point);
    void OnKeyUp(UINT key, UINT repeat, UINT flags);
    void OnMouseMove(UINT keys, POINT point);
    void OnMouseHover(UINT keys, POINT point);
    void OnMouseLeave();
    BOOL OnSetCursor(HWND window, UINT hitTest, UINT mouse);

    bool HasFrame() const { return m_bShowFrame && m_nFrameColour != NoColour; }

    void MakeFont(CFont& font) const;
    UINT TextFormat() const;
    void PaintGround(HDC dc, const RECT& client) const;
    void PaintIcon(HDC dc, const RECT& client) const;
    void PaintText(HDC dc, const RECT& client) const;
    RECT FocusRect(HDC dc, const RECT& client) const;
    void SetHover(bool hover);
    void CopyClick(UINT message);
    void TakeFocus(bool focus);

    COLORREF m_nTextColour = ::GetSysColor(COLOR_BTNTEXT);
    int m_nSystemTextColour = COLOR_BTNTEXT;
    COLORREF m_nHoverColour = RGB(255, 0, 0);
    std::wstring m_strText;
    FontLook m_look;
    Horizontal m_horizontal = Horizontal::Centre;
    Vertical m_vertical = Vertical::WrappedTop;
    bool m_bShowFocus = false;
    COLORREF m_nBackground = NoColour;
    bool m_bFill = false;
    HWND m_hNotify = nullptr;
    COLORREF m_nFrameColour = NoColour;
    bool m_bShowFrame = false;
    HICON m_hIcon = nullptr;
    SIZE m_iconSize{};
    bool m_bHover = false;
    bool m_bHoverEnabled = false;
    const CFont* m_pFont = nullptr;
    HCURSOR m_hCursor = nullptr;
    bool m_bFocus = false;
};
