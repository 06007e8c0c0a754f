#pragma once

#include "framework/ui/kestrix/controls/OwnerDrawBtnFramework.h"

// A push button with a face of one bitmap, stretched to its size, and an icon and a text on it. Without a face, and in
// high contrast, it is filled with its background colour; in high contrast a line stands for the edge of the face.
class CExtendButton : public COwnerDrawBtnFramework
{
public:
    // Load a face from the language file and stretch it to the size that the button has now: after a change of the
    // size, or of border or key colour, call them again. What is in the key colour is cut out of the button's shape.
    // The button has a face from the first bitmap on that is found; a state whose bitmap is missing draws none.
    // False when the bitmap is missing.
    bool SetNormalBitmap(UINT bitmap, BOOL redraw = TRUE) { return LoadFace(m_Normal, bitmap, redraw); }

    bool SetHotBitmap(UINT bitmap, BOOL redraw = TRUE) { return LoadFace(m_Hot, bitmap, redraw); }

    bool SetLockedBitmap(UINT bitmap, BOOL redraw = TRUE) { return LoadFace(m_Locked, bitmap, redraw); }

    void SetBorder(int border) { m_nBorder = border; } // the fixed corners of the faces, in pixels at 96 dots an inch

    void SetKeyColour(COLORREF colour) { m_crKey = colour; }

    // A locked button shows the locked face and does not react to the mouse and the space key.
    void SetLocked(bool locked);

    void SetClickableWhenLocked(bool clickable) { m_bClickableWhenLocked = clickable; }

    void SetLockedFont(const CFont* font); // stays the caller's; null is the parent's font

    // The icon of the disabled button, from the language file, in the size of small icons. False when it is missing.
    bool SetThirdIcon(UINT icon);

    // The icon above the text and not beside it; margin before the icon and gap after it, in pixels at 96 dots an
    // inch. A text beside a margin of 0 is centred.
    void SetLayout(bool vertical, int margin, int gap);

    void SetFrame(bool frame); // the classic frame, above the face too

    void DrawOwnerButton(HDC dc, const RECT& rect, const OwnerButtonState& state) override;
    void RefreshButton() override;
    void DrawBackground(HDC dc, const RECT& rect, const OwnerButtonState& state) override;
    virtual void FillBackground(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawTransparent(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawImageButton(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawFrame(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawText(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawIcon(HDC dc, const RECT& rect, const OwnerButtonState& state);
    virtual void DrawFocus(HDC dc, const RECT& rect, const OwnerButtonState& state);

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    // One look of the button, in its size. No shape: the whole rectangle.
    struct Face
    {
        CBitmap bitmap;
        CRgn shape;
    };

    void OnMouseButton(UINT keys, POINT point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);

    bool LoadFace(Face& face, UINT bitmap, BOOL redraw);
    const Face& FaceFor(const OwnerButtonState& state) const;
    bool ShowsFace() const;

    bool SwallowsInput() const { return m_bLocked && !m_bClickableWhenLocked; }

    BOOL m_bVertical = FALSE;
    int m_nMargin = 8;
    int m_nGap = 8;
    BOOL m_bHasFrame = TRUE;
    UniqueIcon m_hThirdIcon;
    COLORREF m_crKey = RGB(255, 0, 0);
    BOOL m_bHasBitmap = FALSE;
    Face m_Normal;
    Face m_Locked;
    Face m_Hot;
    const CFont* m_pLockedFont = nullptr; // not owned
    bool m_bLocked = false;
    int m_nBorder = 13;
    bool m_bClickableWhenLocked = false;
};
