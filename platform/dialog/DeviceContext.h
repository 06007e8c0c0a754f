#pragma once

#include "platform/dialog/GdiObjects.h"

#include <optional>

// A device context to draw on with the functions of the system; the derived classes say what on, and give it back.
class CDC
{
public:
    explicit CDC(HDC dc) noexcept : m_hDC(dc) {}

    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    HDC GetSafeHdc() const noexcept { return m_hDC; }

    operator HDC() const noexcept { return m_hDC; }

protected:
    ~CDC() = default;
    HDC m_hDC;
};

// The client area of a window, outside of WM_PAINT.
class CClientDC : public CDC
{
public:
    explicit CClientDC(HWND window) noexcept : CDC(::GetDC(window)), m_hWnd(window) {}

    ~CClientDC() { ::ReleaseDC(m_hWnd, m_hDC); }

private:
    const HWND m_hWnd;
};

// The part of a window that needs painting; for handlers of WM_PAINT. Validates the window.
class CPaintDC : public CDC
{
public:
    explicit CPaintDC(HWND window) noexcept : CDC(nullptr), m_hWnd(window) { m_hDC = ::BeginPaint(window, &m_paint); }

    ~CPaintDC() { ::EndPaint(m_hWnd, &m_paint); }

private:
    const HWND m_hWnd;
    PAINTSTRUCT m_paint{};
};

// A context in memory, in the form of the screen's, as new: nothing is selected into it. What the owner selects or sets
// need not be put back. To make one takes longer than most drawing, so the framework keeps those that go.
class CMemoryDC : public CDC
{
public:
    CMemoryDC() noexcept;
    ~CMemoryDC();

private:
    UniqueMemoryDC m_dc; // none where the system has no room: nothing is drawn then
};

// Draws an area of a target in memory, in the target's own coordinates, and copies it over when the object goes.
// Where the system has no room for the picture, drawing goes straight to the target.
class CMemDC : public CDC
{
public:
    CMemDC(HDC target, const RECT& area) noexcept;
    ~CMemDC();

    // Copies only this part of the area at the end; an empty part copies nothing.
    void LimitTo(const RECT& part) noexcept { m_part = part; }

private:
    const HDC m_hTarget;
    RECT m_part;
    CBitmap m_bitmap;
    std::optional<CMemoryDC> m_memory;
};

// Selects an object into a device context, and what was selected before when the scope ends. Null selects nothing.
class CSelectObject
{
public:
    CSelectObject(HDC dc, HGDIOBJ object) noexcept
        : m_hDC(dc), m_hOld(object != nullptr ? ::SelectObject(dc, object) : nullptr)
    {
    }

    ~CSelectObject()
    {
        if (m_hOld != nullptr)
        {
            ::SelectObject(m_hDC, m_hOld);
        }
    }

    CSelectObject(const CSelectObject&) = delete;
    CSelectObject& operator=(const CSelectObject&) = delete;

private:
    const HDC m_hDC;
    const HGDIOBJ m_hOld;
};

// Selects a palette into a device context, and the one before when the scope ends. inBackground: the colours of the
// window in front go first.
class CSelectPalette
{
public:
    CSelectPalette(HDC dc, HPALETTE palette, bool inBackground) noexcept
        : m_hDC(dc), m_hOld(::SelectPalette(dc, palette, inBackground))
    {
    }

    ~CSelectPalette()
    {
        if (m_hOld != nullptr)
        {
            ::SelectPalette(m_hDC, m_hOld, TRUE);
        }
    }

    CSelectPalette(const CSelectPalette&) = delete;
    CSelectPalette& operator=(const CSelectPalette&) = delete;

private:
    const HDC m_hDC;
    const HPALETTE m_hOld;
};

// Everything that is set in a device context (objects, colours, modes, clipping) is as before when the scope ends.
class CSaveDC
{
public:
    explicit CSaveDC(HDC dc) noexcept : m_hDC(dc), m_nState(::SaveDC(dc)) {}

    ~CSaveDC() { ::RestoreDC(m_hDC, m_nState); }

    CSaveDC(const CSaveDC&) = delete;
    CSaveDC& operator=(const CSaveDC&) = delete;

private:
    const HDC m_hDC;
    const int m_nState;
};

// Fills a rectangle with one colour; the context's own brush stays as it is.
void FillSolidRect(HDC dc, const RECT& rect, COLORREF colour) noexcept;

// The frame of one pixel inside of the rectangle's edges. The corners bottom left and top right have the second colour.
void Draw3dRect(HDC dc, const RECT& rect, COLORREF topLeft, COLORREF bottomRight) noexcept;
