#pragma once

#include "framework/ui/kestrix/controls/DIBitmap.h"
#include "framework/ui/kestrix/controls/FocusRing.h"
#include "platform/dialog/DialogFramework.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>

// Where the background stands. Any other number is Tiled.
enum class BackgroundMode : std::uint32_t
{
    Tiled, // from the top left
    Stretched,
    // These three and the one below leave room, on which the system's own background shows.
    Centred,
    TopRight,
    BottomLeft,
    BottomRight,
};

// The base of every dialog and page: it paints a bitmap behind its controls and up to five more above it, rounds the
// corners of its window, gives single controls a text colour and a font of their own, marks the control that has the
// focus, shows tool tips, and cannot be closed by Enter or Escape. In high contrast it looks as the system paints it.
class CBitmapDialog : public CDialog
{
public:
    explicit CBitmapDialog(UINT templateId);

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG& message) override;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Takes a bitmap of the language file as background. False, and the system's background, when it has none.
    bool SetBackground(UINT bitmap, BackgroundMode mode = BackgroundMode::Tiled);

    // The images above the background. The first three have a place, in pixels of the client area at 96 dots an inch;
    // the fourth stands at the top right, the fifth at the bottom left.
    static constexpr std::size_t Images = 5;

    // Shows a bitmap of the language file as this image, counted from 0. False, and no image, when it has none.
    bool SetImage(std::size_t image, UINT bitmap, POINT place = {});

    // Cuts the corners of the window as the bitmaps of the frame's corners show; the dialog calls it first thing in its
    // OnInitDialog. The identifier is not used.
    void SetCornerRegion(UINT identifier);

    // The dialog's font with another weight, for one control; it lives as long as the dialog's window.
    void SetControlFont(UINT control, LONG weight, bool underlined = false);

    void SetTextColour(UINT control, COLORREF colour) { m_mapTextColour[control] = colour; }

    // Sets the tool tip of a control; an empty text takes it away.
    void SetControlToolTip(UINT control, const std::wstring& text);

    bool m_bSolidBackground = false; // controls with text stand on the solid brush, else on the background
    CBrush m_SolidBrush;
    CToolTipCtrl m_ToolTip;

private:
    BOOL OnEraseBkgnd(HDC dc);
    HBRUSH OnCtlColor(HDC dc, HWND control, UINT kind);
    BOOL OnQueryNewPalette();
    void OnPaletteChanged(HWND cause);
    void OnDestroy();

    bool ShowsBackground() const;
    void DrawBackground(HDC dc, SIZE client) const;
    void DrawTiles(HDC dc, SIZE client) const;
    void DrawImages(HDC dc, SIZE client) const;
    void UseControlLook(HDC dc, HWND control) const;
    bool RealiseBackgroundPalette(bool inBackground);

    CDIBitmap m_bmpBackground;
    BackgroundMode m_nBackgroundMode = BackgroundMode::Tiled;
    CBrush m_HollowBrush;
    std::array<CDIBitmap, Images> m_arrImages;
    std::array<POINT, 3> m_arrImagePlaces{};
    std::uint32_t m_nImageFlags = 0; // bit 0 for the first image, and so on
    std::map<UINT, COLORREF> m_mapTextColour;
    std::map<UINT, CFont> m_mapFont;
    CFocusRing m_FocusRing;
};
