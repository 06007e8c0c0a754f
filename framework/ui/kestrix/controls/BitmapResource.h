#pragma once

#include "platform/dialog/DialogFramework.h"

#include <cstddef>
#include <span>

// A bitmap as it lies in the language file, drawn from there. To load it into an object of the system first, and to
// select that into a context, takes the system longer than to draw it.
class BitmapResource
{
public:
    // Empty when the language file has none of this number, or one that is broken or of another form than bitmap files
    // have: BITMAPINFO, rows from below, not packed.
    explicit BitmapResource(UINT id) noexcept : BitmapResource(GetResourceBytes(id, RT_BITMAP)) {}

    // The same of a resource's bytes: header, colours, rows. They stay the caller's.
    explicit BitmapResource(std::span<const std::byte> bytes) noexcept;

    bool IsEmpty() const noexcept { return m_pInfo == nullptr; }

    SIZE GetSize() const noexcept; // in pixels; 0, 0 when it is empty

    // Draws this part of it, which must lie inside of it, over the target area, stretched as the context's mode says.
    void Draw(HDC dc, const RECT& target, const RECT& part) const noexcept;

private:
    const BITMAPINFO* m_pInfo = nullptr;
    const std::byte* m_pRows = nullptr;
};
