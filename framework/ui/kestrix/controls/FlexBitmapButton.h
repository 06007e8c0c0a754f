#pragma once

#include "framework/ui/kestrix/controls/OwnerDrawBtnFramework.h"

#include <array>
#include <optional>

// A button that is a picture with a hole: one colour of it shows what the parent paints below, where the window has
// WS_EX_TRANSPARENT, and else the background colour. Under the pointer a second picture is shown whole.
class CFlexBitmapButton : public COwnerDrawBtnFramework
{
public:
    // Loads both from the language file and stretches them to the size that the button has now; call it again after a
    // change of the size. False when one is missing: nothing is drawn in its place.
    bool SetBitmaps(UINT normal, UINT hover);

    void SetKeyColour(COLORREF colour);

    // Gives a button that is a picture alone a name for screen readers: its window text, not drawn from now on.
    void SetName(const std::wstring& name);

    // For a button in the title bar: the system's sign that stands for its pictures in high contrast, DFCS_CAPTION...
    void SetCaptionSign(UINT sign) { m_captionSign = sign; }

    void DrawOwnerButton(HDC dc, const RECT& rect, const OwnerButtonState& state) override;
    void DrawBackground(HDC dc, const RECT& rect, const OwnerButtonState& state) override;
    virtual void FillBackground(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawTransparent(HDC dc, const RECT& rect, const OwnerButtonState& state);
    // Draws one of the pictures, 0 or 1, without its hole.
    virtual void DrawImageButton(HDC dc, const RECT& rect, const OwnerButtonState& state, int image);
    virtual void DrawText(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawIcon(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawFocus(HDC dc, const RECT& rect, const OwnerButtonState& state);

private:
    struct Image
    {
        UINT id = 0;
        CBitmap sliced; // in the size of the button; none when the language file has none
    };

    bool Load(Image& image, UINT id);
    void DrawBitmap(HDC dc, const RECT& rect, const OwnerButtonState& state);
    void DrawParent(HDC dc, const RECT& rect);

    int m_nMargin = 5; // before the icon, in pixels at 96 dots an inch
    int m_nGap = 5;    // between icon and text
    BOOL m_bHasBitmap = FALSE;
    std::array<Image, 2> m_arrImages; // at rest, under the pointer
    COLORREF m_crKey = RGB(0, 255, 0);
    int m_nBorder = 13; // the fixed corners of the pictures, in pixels at 96 dots an inch
    bool m_bTextIsName = false;
    std::optional<UINT> m_captionSign;
};
