#pragma once

#include "framework/ui/kestrix/controls/ColorText.h"

#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/Ground.h"

#include <gtest/gtest.h>

inline constexpr int Id = 1007;
inline constexpr RECT Place{20, 20, 180, 60};
inline constexpr DWORD LinkStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | SS_NOTIFY;
inline constexpr COLORREF TextColour = RGB(0, 0, 255);
inline constexpr COLORREF HoverColour = RGB(255, 0, 0);

inline bool Shows(const Picture& picture, COLORREF colour)
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

inline bool HasOtherColourThan(const Picture& picture, COLORREF one, COLORREF other)
{
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            if (picture.At(x, y) != one && picture.At(x, y) != other)
            {
                return true;
            }
        }
    }
    return false;
}

// A link on a ground that is on the screen.
class ColorTextTest : public ::testing::Test
{
protected:
    ColorTextTest()
    {
        m_text.Create(L"link", LinkStyle, Place, m_ground, Id);
        m_text.SetTextColour(TextColour);
        m_ground.Show();
        m_ground.m_arrReached.clear();
    }

    Picture Seen() { return PictureOf(m_ground); }

    // What stands on the screen, with nothing painted anew.
    Picture OnScreen()
    {
        return PictureOf({Place.right, Place.bottom},
                         [this](HDC dc)
                         {
                             const CClientDC screen(m_ground);
                             BitBlt(dc, 0, 0, Place.right, Place.bottom, screen, 0, 0, SRCCOPY);
                         });
    }

    void Hover() { m_text.SendMessage(WM_MOUSEHOVER); }

    void Leave() { m_text.SendMessage(WM_MOUSELEAVE); }

    bool IsInvalid() const { return GetUpdateRect(m_text, nullptr, FALSE); }

    bool IsGroundInvalidUnderTheText() const
    {
        RECT area{};
        RECT common{};
        return GetUpdateRect(m_ground, &area, FALSE) && IntersectRect(&common, &area, &Place) &&
               EqualRect(&common, &Place);
    }

    Ground m_ground;
    CColorText m_text;
};
