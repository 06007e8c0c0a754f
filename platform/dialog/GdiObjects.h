#pragma once

#include "platform/dialog/UniqueHandle.h"

// The base of the drawing objects: owns the handle, which may be none, and deletes it with the object.
template <class Unique>
class CGdiObject
{
public:
    using Handle = typename Unique::Handle;

    Handle GetSafeHandle() const noexcept { return m_handle.get(); }

    operator Handle() const noexcept { return m_handle.get(); }

    // Deletes what is held and owns this one; a stock object may be given, since deleting it does nothing.
    bool Attach(Handle handle) noexcept
    {
        m_handle.reset(handle);
        return handle != nullptr;
    }

    [[nodiscard]] Handle Detach() noexcept { return m_handle.release(); }

    void DeleteObject() noexcept { m_handle.reset(); }

private:
    Unique m_handle;
};

// The functions that make an object delete the one before; false, and no object, when the system refuses.

class CFont : public CGdiObject<UniqueFont>
{
public:
    bool CreateFontIndirect(const LOGFONTW& font) noexcept { return Attach(::CreateFontIndirectW(&font)); }

    bool GetLogFont(LOGFONTW& font) const noexcept { return ::GetObjectW(*this, sizeof font, &font) != 0; }
};

class CBrush : public CGdiObject<UniqueBrush>
{
public:
    bool CreateSolidBrush(COLORREF color) noexcept { return Attach(::CreateSolidBrush(color)); }

    // The brush keeps a copy of the bitmap.
    bool CreatePatternBrush(HBITMAP pattern) noexcept { return Attach(::CreatePatternBrush(pattern)); }
};

class CPen : public CGdiObject<UniquePen>
{
public:
    bool CreatePen(int style, int width, COLORREF color) noexcept { return Attach(::CreatePen(style, width, color)); }
};

class CRgn : public CGdiObject<UniqueRegion>
{
public:
    bool CreateRectRgn(const RECT& rect) noexcept { return Attach(::CreateRectRgnIndirect(&rect)); }

    bool CreateRoundRectRgn(const RECT& rect, int width, int height) noexcept
    {
        return Attach(::CreateRoundRectRgn(rect.left, rect.top, rect.right, rect.bottom, width, height));
    }
};

class CPalette : public CGdiObject<UniquePalette>
{
public:
    bool CreatePalette(const LOGPALETTE& palette) noexcept { return Attach(::CreatePalette(&palette)); }
};

class CBitmap : public CGdiObject<UniqueBitmap>
{
public:
    // From the resource module: LoadBitmap for the screen, LoadDibSection with its pixels as stored,
    // LoadMappedBitmap with one colour of its colour table replaced by another (of 16 colours or fewer).
    bool LoadBitmap(UINT id) noexcept;
    bool LoadDibSection(UINT id) noexcept;
    bool LoadMappedBitmap(UINT id, COLORMAP map) noexcept;

    bool CreateCompatibleBitmap(HDC dc, int width, int height) noexcept
    {
        return Attach(::CreateCompatibleBitmap(dc, width, height));
    }

    // Of 32 bits a pixel, rows from the top.
    bool CreateDibSection(SIZE size) noexcept;

    SIZE GetSize() const noexcept; // in pixels; 0, 0 without a bitmap
};
