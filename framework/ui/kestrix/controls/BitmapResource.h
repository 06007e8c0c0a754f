#pragma once

#include "framework/ui/kestrix/controls/Scale.h"
#include "platform/dialog/DialogFramework.h"

#include <cstddef>
#include <span>

// A bitmap as it lies in the language file, in the scale that stands for the screen's, drawn from there. To load it
// into an object of the system first, and to select that into a context, takes the system longer than to draw it.
class BitmapResource
{
public:
    // Empty when the language file has none of this number, or one that is broken or of another form than bitmap files
    // have: BITMAPINFO, rows from below, not packed.
    explicit BitmapResource(UINT id) noexcept : BitmapResource(ArtOf(id)) {}

    // The same of a resource's bytes: header, colours, rows. They stay the caller's. percent: the scale that they are
    // of.
    explicit BitmapResource(std::span<const std::byte> bytes, int percent = 100) noexcept;

    bool IsEmpty() const noexcept { return m_pInfo == nullptr; }

    SIZE GetSize() const noexcept; // in which it stands on the screen, in pixels; 0, 0 when it is empty

    // Draws this part of that size, which must lie inside of it, over the target area, stretched as the context's mode
    // says.
    void Draw(HDC dc, const RECT& target, const RECT& part) const noexcept;

private:
    explicit BitmapResource(const ScaledArt& art) noexcept
        : BitmapResource(GetResourceBytes(art.number, RT_BITMAP), art.percent)
    {
    }

    SIZE OwnSize() const noexcept { return {m_pInfo->bmiHeader.biWidth, m_pInfo->bmiHeader.biHeight}; }

    const BITMAPINFO* m_pInfo = nullptr;
    const std::byte* m_pRows = nullptr;
    SIZE m_sizeOnScreen{};
};
