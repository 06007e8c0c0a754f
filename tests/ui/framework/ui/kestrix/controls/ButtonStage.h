#pragma once

#include "framework/ui/kestrix/controls/OwnerDrawBtnFramework.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/ButtonResources.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <functional>
#include <numeric>
#include <string>

// What the tests of the buttons share: a parent to stand on, and ways to draw and to drive a button.

constexpr int ButtonId = 42;
constexpr SIZE ButtonSize{80, 30};

// The parent: its ground comes with the erasing, a stripe at the left with the painting, as the frame of a dialog does.
class ButtonStage : public CWnd
{
public:
    static constexpr COLORREF Ground = RGB(10, 200, 220);
    static constexpr COLORREF Stripe = RGB(250, 220, 10);
    static constexpr int StripeWidth = 30;
    static constexpr RECT Place{20, 10, 20 + ButtonSize.cx,
                                10 + ButtonSize.cy}; // of a button; part of it on the stripe

    explicit ButtonStage(DWORD style = 0)
    {
        LOGFONTW font{};
        font.lfHeight = -13;
        font.lfQuality = NONANTIALIASED_QUALITY; // pixels of text have the text's colour and no other
        wcscpy(font.lfFaceName, L"Liberation Sans");
        m_font.CreateFontIndirect(font);
        Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE | style, {50, 50, 350, 250}, nullptr, 0);
        SetFont(m_font);
    }

    int m_nPaints = 0;
    int m_nClicks = 0;
    int m_nDoubleClicks = 0;
    std::function<void()> m_onClick = [] {};
    std::function<void()> m_onPaint = [] {};

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows =
            MessageRows(On::Message<WM_ERASEBKGND, &ButtonStage::OnEraseBkgnd>,
                        On::Message<WM_PAINT, &ButtonStage::OnPaint>, On::Command<ButtonId, &ButtonStage::OnClick>,
                        On::Control<BN_DOUBLECLICKED, ButtonId, &ButtonStage::OnDoubleClick>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    BOOL OnEraseBkgnd(HDC dc)
    {
        FillSolidRect(dc, GetClientRect(), Ground);
        return TRUE;
    }

    void OnPaint()
    {
        const CPaintDC dc(m_hWnd);
        FillSolidRect(dc, {0, 0, StripeWidth, 1000}, Stripe);
        ++m_nPaints;
        m_onPaint();
    }

    void OnClick()
    {
        ++m_nClicks;
        m_onClick();
    }

    void OnDoubleClick() { ++m_nDoubleClicks; }

    CFont m_font;
};

// A button of either kind with its inside open to the test.
template <class Button>
class OpenButton : public Button
{
public:
    using Button::m_bDrawFocus;
    using Button::m_bFlat;
    using Button::m_bTransparent;
    using Button::m_crBackground;
    using Button::m_crText;
    using Button::m_hCursor;
    using Button::m_nIconHeight;
    using Button::m_nIconWidth;
    using Button::m_State;

    bool Make(HWND parent, const std::wstring& text = {}, DWORD style = 0, DWORD exStyle = 0,
              const RECT& place = ButtonStage::Place)
    {
        return CWnd::Create(WC_BUTTONW, text, WS_CHILD | WS_VISIBLE | style, place, parent, ButtonId, exStyle);
    }

    void RefreshButton() override
    {
        ++m_nRefreshes;
        m_bRefreshedWithoutWindow = this->GetSafeHwnd() == nullptr;
        Button::RefreshButton();
    }

    int m_nRefreshes = 0;
    bool m_bRefreshedWithoutWindow = false; // the last time
};

// What the button draws in a state of the system's, ODS_..., on a ground of its own.
inline Picture PictureInState(COwnerDrawBtnFramework& button, UINT state, COLORREF ground = RGB(255, 255, 255))
{
    const RECT client = button.GetClientRect();
    const auto draw = [&](HDC dc)
    {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_BUTTON;
        item.hwndItem = button;
        item.hDC = dc;
        item.rcItem = client;
        item.itemState = state;
        button.DrawItem(item);
    };
    return PictureOf(SIZE{client.right, client.bottom}, draw, ground);
}

// A picture of the button's size, drawn by the test.
inline Picture Reference(const std::function<void(HDC)>& draw, COLORREF ground = RGB(255, 255, 255))
{
    return PictureOf(ButtonSize, draw, ground);
}

// What the button's text looks like on its background, in the font of the stage, drawn with these arguments of
// DrawText.
template <class Button>
Picture TextOf(const OpenButton<Button>& button, const ButtonStage& stage, const RECT& place, UINT format,
               COLORREF colour)
{
    const auto draw = [&](HDC dc)
    {
        FillSolidRect(dc, button.GetClientRect(), button.m_crBackground);
        const CSelectObject font(dc, stage.GetFont());
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, colour);
        RECT rect = place;
        DrawTextW(dc, button.GetWindowText().c_str(), -1, &rect, format);
    };
    return Reference(draw);
}

// Pictures of one width, one below the other.
inline Picture Stacked(const std::vector<Picture>& pictures)
{
    int height = 0;
    for (const Picture& picture : pictures)
    {
        height += picture.Height();
    }
    Picture all(pictures.at(0).Width(), height, 0);
    int top = 0;
    for (const Picture& picture : pictures)
    {
        for (int y = 0; y < picture.Height(); ++y)
        {
            for (int x = 0; x < picture.Width(); ++x)
            {
                all.Set(x, top + y, picture.At(x, y));
            }
        }
        top += picture.Height();
    }
    return all;
}

inline bool Has(const Picture& picture, COLORREF colour)
{
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            if (picture.At(x, y) == colour)
            {
                return true;
            }
        }
    }
    return false;
}

// Around all pixels of the colour, "left top right bottom"; "0 0 0 0" when there are none.
inline std::wstring PlaceOf(const Picture& picture, COLORREF colour)
{
    RECT place{};
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            const RECT pixel{x, y, x + 1, y + 1};
            if (picture.At(x, y) == colour)
            {
                UnionRect(&place, &place, &pixel);
            }
        }
    }
    return Note(place.left, place.top, place.right, place.bottom);
}

inline long AllLiveHandles()
{
    return std::accumulate(LiveHandles::s_nCounts.begin(), LiveHandles::s_nCounts.end(), 0L);
}

inline void MoveMouseOver(HWND button, UINT keys = 0)
{
    SendMessageW(button, WM_MOUSEMOVE, keys, MAKELPARAM(5, 5));
}

inline void Click(HWND button)
{
    SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
}
