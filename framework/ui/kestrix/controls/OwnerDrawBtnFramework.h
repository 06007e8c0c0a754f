#pragma once

#include "framework/ui/kestrix/controls/SkinColours.h"
#include "platform/dialog/DialogFramework.h"

// What a button looks like at the moment. The first four come from the system with each request to draw.
struct OwnerButtonState
{
    BOOL selected = FALSE; // pressed
    BOOL focus = FALSE;
    BOOL disabled = FALSE;
    BOOL isDefault = FALSE;
    BOOL hover = FALSE; // the pointer is over the button
};

// The base of the buttons that the program draws. It makes its window an owner-drawn button, which stays one for
// keyboard and screen reader, and keeps what all of them share: hover, cursor, icons, colours, font.
class COwnerDrawBtnFramework : public CButton
{
public:
    // Icons of the language file, in the size of small icons: icon while the button is pressed, focused or under the
    // pointer, greyIcon at rest; 0 is the same one. False when one is missing; the other is taken all the same.
    bool SetIcons(UINT icon, UINT greyIcon = 0);

    // The cursor over the button, from the language file; false, and the system's, when it is missing.
    bool SetOwnCursor(UINT cursor);

    void SetTextColour(COLORREF colour);
    void SetBackgroundColour(COLORREF colour);

    // Stays the caller's and must outlive the use; null is the parent's font.
    void SetButtonFont(const CFont* font);

    // Whether the focus shows; off at first for a flat button.
    void SetFocusDrawn(bool drawn);

    // Keeps the state in item and draws the button.
    virtual void DrawItem(DRAWITEMSTRUCT& item);

    // Draws the whole button into the rectangle.
    virtual void DrawOwnerButton(HDC dc, const RECT& rect, const OwnerButtonState& state) = 0;

    // Brings a changed look to the screen. Runs after each change of hover, focus, press or enabling.
    virtual void RefreshButton();

    virtual void DrawBackground(HDC dc, const RECT& rect, const OwnerButtonState& state) = 0;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void PreSubclassWindow() override;

    void OnMouseButton(UINT keys, POINT point);

    // Paints the button anew, without erasing it first.
    void Redraw();

    // What icons, texts and focus marks of all buttons have in common.

    // Draws the icon of the state at this place, a pressed button's one pixel further right and down. A disabled
    // button shows disabledIcon, or else its icon greyed out.
    void PaintIcon(HDC dc, POINT place, const OwnerButtonState& state, HICON disabledIcon = nullptr) const;

    // Sets colour and font for the text until the context is restored; a null font is the parent's.
    void SelectTextStyle(HDC dc, const OwnerButtonState& state, const CFont* font) const;

    void PaintFocus(HDC dc, RECT rect, const OwnerButtonState& state, COLORREF colour = SkinColour::Focus) const;

    // Copies the bitmap to the rectangle's top left; nothing without a bitmap.
    static void PaintBitmap(HDC dc, const RECT& rect, const CBitmap& bitmap);

    static SIZE IconSize();

    BOOL m_bTransparent = FALSE; // WS_EX_TRANSPARENT
    BOOL m_bFlat = FALSE;        // BS_FLAT
    BOOL m_bDrawFocus = TRUE;
    int m_nIconWidth = 0;
    int m_nIconHeight = 0;
    COLORREF m_crBackground = GetSysColor(COLOR_BTNFACE);
    COLORREF m_crText = GetSysColor(COLOR_BTNTEXT);
    const CFont* m_pFont = nullptr; // not owned
    BOOL m_bOwnCursor = FALSE;
    UINT m_nCursor = 0;     // of the resource module
    UniqueCursor m_hCursor; // made when it is first shown
    BOOL m_bOwnIcons = FALSE;
    UniqueIcon m_hIcon;
    UniqueIcon m_hGreyIcon; // none: m_hIcon at rest too
    OwnerButtonState m_State;

private:
    void OnMouseMove(UINT keys, POINT point);
    void OnMouseLeave();
    BOOL OnSetCursor(HWND window, UINT hitTest, UINT mouse);
    BOOL OnEraseBkgnd(HDC dc);
    void OnFocusChange(HWND other);
    void OnEnable(bool enabled);

    void SetHover(bool hover);
    void DefaultThenRefresh();
    HICON IconFor(const OwnerButtonState& state) const;
};
