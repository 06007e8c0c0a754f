#include "tests/support/Picture.h"

#include "platform/dialog/DeviceContext.h"
#include "platform/dialog/Window.h"

#include <stdexcept>

namespace
{

// A whole window with all its children, whatever its style says about clipping them.
class WholeWindowDC : public CDC
{
public:
    explicit WholeWindowDC(HWND window) : CDC(GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE)), m_hWnd(window) {}

    ~WholeWindowDC() { ReleaseDC(m_hWnd, m_hDC); }

private:
    const HWND m_hWnd;
};

// A bitmap of 32 bits a pixel, rows from the top, selected into a memory context.
class Canvas
{
public:
    explicit Canvas(SIZE size) : m_size(size), m_dc(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        m_bitmap.Attach(CreateDIBSection(m_dc.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        if (bits == nullptr)
        {
            throw std::runtime_error("no bitmap for a picture of this size");
        }
        m_pBits = static_cast<const RGBQUAD*>(bits);
        m_old = SelectObject(m_dc.get(), m_bitmap);
    }

    ~Canvas() { SelectObject(m_dc.get(), m_old); }

    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC DC() const { return m_dc.get(); }

    Picture Pixels() const
    {
        GdiFlush();
        Picture picture(m_size.cx, m_size.cy, 0);
        const RGBQUAD* next = m_pBits;
        for (int y = 0; y < m_size.cy; ++y)
        {
            for (int x = 0; x < m_size.cx; ++x, ++next)
            {
                picture.Set(x, y, RGB(next->rgbRed, next->rgbGreen, next->rgbBlue));
            }
        }
        return picture;
    }

private:
    const SIZE m_size;
    const UniqueMemoryDC m_dc;
    CBitmap m_bitmap;
    const RGBQUAD* m_pBits = nullptr;
    HGDIOBJ m_old = nullptr;
};

void MarkOutsideOfShape(HWND window, Picture& picture)
{
    CRgn shape;
    shape.CreateRectRgn({});
    if (GetWindowRgn(window, shape) == ERROR)
    {
        return; // the window has no shape of its own
    }
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            if (!PtInRegion(shape, x, y))
            {
                picture.Set(x, y, OutsideOfShape);
            }
        }
    }
}

} // namespace

Picture::Picture(int width, int height, COLORREF colour)
    : m_nWidth(width), m_nHeight(height), m_arrPixels(static_cast<std::size_t>(width) * height, colour)
{
}

std::size_t Picture::Index(int x, int y) const
{
    if (x < 0 || x >= m_nWidth || y < 0 || y >= m_nHeight)
    {
        throw std::out_of_range("outside of the picture: " + std::to_string(x) + ", " + std::to_string(y));
    }
    return static_cast<std::size_t>(y) * m_nWidth + x;
}

Picture Picture::Part(const RECT& part) const
{
    Picture copy(part.right - part.left, part.bottom - part.top, 0);
    for (int y = 0; y < copy.Height(); ++y)
    {
        for (int x = 0; x < copy.Width(); ++x)
        {
            copy.Set(x, y, At(part.left + x, part.top + y));
        }
    }
    return copy;
}

Picture PictureOf(HWND window)
{
    const RECT place = CWindow(window).GetWindowRect();
    const SIZE size{place.right - place.left, place.bottom - place.top};
    if (size.cx <= 0 || size.cy <= 0)
    {
        throw std::runtime_error("there is no window, or it has no area");
    }
    if (!IsWindowVisible(window))
    {
        ShowWindow(window, SW_SHOWNA);
    }
    CWindow(window).RedrawWindow(RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
    const Canvas canvas(size);
    const WholeWindowDC screen(window);
    BitBlt(canvas.DC(), 0, 0, size.cx, size.cy, screen, 0, 0, SRCCOPY);
    Picture picture = canvas.Pixels();
    MarkOutsideOfShape(window, picture);
    return picture;
}

Picture PictureOf(SIZE size, const std::function<void(HDC)>& draw, COLORREF ground)
{
    const Canvas canvas(size);
    CBrush brush;
    brush.CreateSolidBrush(ground);
    const RECT all{0, 0, size.cx, size.cy};
    FillRect(canvas.DC(), &all, brush);
    draw(canvas.DC());
    return canvas.Pixels();
}
