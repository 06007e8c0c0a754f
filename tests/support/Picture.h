#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Pictures of windows and of what is drawn, for comparison with the pictures that the repository keeps in
// tests/ui/pictures/SUITE/NAME.png, where SUITE is the test suite that runs:
//
//     EXPECT_PICTURE(PictureOf(button), "pressed");
//     EXPECT_PICTURE(PictureOf({80, 26}, [&](HDC dc) { DrawFace(dc); }), "face");
//
// On a difference the test fails and leaves the picture (actual) and a map of the pixels (difference) below the
// folder pictures of the build; tools/update-pictures shows them and takes the new ones over.

// Pixels in memory, rows from the top.
class Picture
{
public:
    // All of one colour.
    Picture(int width, int height, COLORREF colour);

    int Width() const { return m_nWidth; }

    int Height() const { return m_nHeight; }

    // Throws std::out_of_range outside of the picture.
    COLORREF At(int x, int y) const { return m_arrPixels.at(Index(x, y)); }

    void Set(int x, int y, COLORREF colour) { m_arrPixels.at(Index(x, y)) = colour; }

    // A part of it; throws std::out_of_range when it is not all inside.
    Picture Part(const RECT& part) const;

    bool operator==(const Picture&) const = default;

private:
    std::size_t Index(int x, int y) const;

    int m_nWidth;
    int m_nHeight;
    std::vector<COLORREF> m_arrPixels;
};

// What is outside of a window's shape in its picture.
constexpr COLORREF OutsideOfShape = RGB(255, 0, 255);

// The window as it stands on the screen, with its frame and all that is in it. A hidden window is shown without being
// activated, and everything is painted anew first. Throws std::runtime_error for what is no window or has no area.
Picture PictureOf(HWND window);

// What the function draws on a ground of this size and colour.
Picture PictureOf(SIZE size, const std::function<void(HDC)>& draw, COLORREF ground = RGB(255, 255, 255));

// Whether the picture is, pixel by pixel, the kept one of this name; its name is a file name in ASCII without ending.
testing::AssertionResult IsKeptPicture(const Picture& picture, const std::string& name);

#define EXPECT_PICTURE(picture, name) EXPECT_TRUE(IsKeptPicture((picture), (name)))
