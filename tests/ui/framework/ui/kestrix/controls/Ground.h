#pragma once

#include "platform/dialog/DialogFramework.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/LiveWindows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

// A window to put controls on: it paints a ground of one colour, has a font whose pixels are black or white, and keeps
// every message that it gets.
class Ground : public CWnd
{
public:
    static constexpr COLORREF Colour = RGB(200, 220, 255);

    struct Reached
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };

    explicit Ground(SIZE size = {320, 200}, DWORD style = WS_POPUP)
    {
        CWnd::Create(WC_STATICW, {}, style, {0, 0, size.cx, size.cy}, nullptr, 0, WS_EX_CONTROLPARENT);
        LOGFONTW font{};
        font.lfHeight = -12;
        font.lfCharSet = DEFAULT_CHARSET;
        font.lfQuality = NONANTIALIASED_QUALITY;
        std::ranges::copy(std::wstring_view(L"Liberation Sans"), font.lfFaceName);
        m_font.CreateFontIndirect(font);
        SetFont(m_font, false);
    }

    // Made visible without being activated, and everything painted.
    void Show()
    {
        ShowWindow(SW_SHOWNA);
        PaintNow();
    }

    void PaintNow() { RedrawWindow(RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN); }

    long CountOf(UINT message) const { return std::ranges::count(m_arrReached, message, &Reached::message); }

    // The first of these; a message of zeros when there is none.
    Reached FirstOf(UINT message) const
    {
        const auto found = std::ranges::find(m_arrReached, message, &Reached::message);
        return found != m_arrReached.end() ? *found : Reached{};
    }

    CFont m_font;
    std::vector<Reached> m_arrReached;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows =
            MessageRows(On::Message<WM_ERASEBKGND, &Ground::OnEraseBkgnd>, On::Message<WM_PAINT, &Ground::OnPaint>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_arrReached.push_back({message, wParam, lParam});
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    BOOL OnEraseBkgnd(HDC dc)
    {
        FillSolidRect(dc, GetClientRect(), Colour);
        return TRUE;
    }

    void OnPaint() { const CPaintDC dc(m_hWnd); }
};

// The handles that are owned in the process, of every kind.
inline std::vector<long> OwnedHandles()
{
    return {LiveHandles::s_nCounts.begin(), LiveHandles::s_nCounts.end()};
}

// Uses what is under test a thousand times, and expects no handle and no window to be left behind.
inline void ExpectAThousandToLeaveNothing(const std::function<void()>& useOnce)
{
    useOnce(); // what the system makes once and keeps
    const std::vector<long> handles = OwnedHandles();
    const auto windows = LiveWindows();
    for (int i = 0; i < 1000; ++i)
    {
        useOnce();
    }
    EXPECT_EQ(OwnedHandles(), handles);
    EXPECT_EQ(LiveWindows(), windows);
}
