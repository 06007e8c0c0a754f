#pragma once

#include "framework/ui/kestrix/controls/BmpPalette.h"

#include <cstdint>
#include <memory>
#include <string>

// A picture in memory that does not depend on the screen: header, colour table and pixel rows, which run upward.
// Files from outside are checked against their own length before a pixel is touched.
class CDIBitmap
{
public:
    CDIBitmap() = default;
    virtual ~CDIBitmap() = default;
    CDIBitmap(const CDIBitmap&) = delete;
    CDIBitmap& operator=(const CDIBitmap&) = delete;

    // Drawing does nothing without a picture.
    //
    // At natural size, from a point of the picture on: source is the lower left corner of what is shown, and its y
    // counts from the bottom row up. What lies outside of the picture is left as it is.
    virtual void DrawDIB(HDC dc, const RECT& target, POINT source) const;

    // Stretched; rows and columns that do not fit are left out.
    virtual void DrawDIB(HDC dc, int x, int y, int width, int height) const;

    // At natural size.
    virtual void DrawDIB(HDC dc, int x, int y) const;

    // From a bitmap file of 1, 4, 8, 16, 24 or 32 bits a pixel, not compressed; the handle is one with a position, and
    // stays the caller's. False, and no picture, when there is no such file, or it is cut short or contradicts itself.
    // A picture whose rows run downward is turned over.
    virtual bool Load(const std::wstring& fileName);
    virtual bool Load(HANDLE file);

    // Writes a bitmap file with a full colour table. False without a picture, or when the file cannot be written.
    // An attached picture counts as one without padding although the system has padded it: its rows are moved when
    // they do not end at a multiple of four bytes, and the file shows them slanted.
    virtual bool Save(const std::wstring& fileName);
    virtual bool Save(HANDLE file);

    // Copies a bitmap, which must not be selected into a device context: with 24 bits a pixel when it has more than 8.
    // False, and no picture, when that is not possible.
    bool Attach(HDC dc, HBITMAP bitmap);

    void Clear() noexcept; // no picture any longer

    bool IsLoaded() const noexcept { return m_pInfo != nullptr; }

    int GetWidth() const noexcept { return IsLoaded() ? m_pInfo->bmiHeader.biWidth : 0; }

    int GetHeight() const noexcept { return IsLoaded() ? m_pInfo->bmiHeader.biHeight : 0; }

    int GetBitCount() const noexcept { return IsLoaded() ? m_pInfo->bmiHeader.biBitCount : 0; }

    // The palette of a picture with 8 bits a pixel or fewer; null for any other.
    const CBmpPalette* GetPalette() const noexcept { return m_pPalette.get(); }

private:
    void ReadBitmap(HDC dc, HBITMAP bitmap);
    void ReadFile(HANDLE file);
    void MakePalette();
    void Pad() noexcept;
    void TurnOver() noexcept;
    void PrepareToDraw(HDC dc) const;
    const BITMAPINFO* Info() const noexcept;

    std::unique_ptr<FullBitmapInfo> m_pInfo; // null together with the rows
    std::unique_ptr<BYTE[]> m_pBits;
    std::unique_ptr<CBmpPalette> m_pPalette;
    bool m_bPadded = false; // the rows end at multiples of four bytes
};
