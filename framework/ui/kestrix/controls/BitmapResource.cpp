#include "framework/ui/kestrix/controls/BitmapResource.h"

#include "framework/ui/kestrix/controls/BitmapRows.h"

#include <cstdint>

namespace
{

constexpr WORD DeepestPixel = 32; // bits

// Whether the rows can be counted and drawn as they are.
bool IsPlain(const BITMAPINFOHEADER& header)
{
    const bool isPacked = header.biCompression != BI_RGB && header.biCompression != BI_BITFIELDS;
    const bool hasDepth = header.biBitCount > 0 && header.biBitCount <= DeepestPixel;
    return header.biSize >= sizeof header && header.biWidth > 0 && header.biHeight > 0 && hasDepth && !isPacked;
}

std::uint64_t ColourBytes(const BITMAPINFOHEADER& header)
{
    const std::uint64_t colours =
        header.biClrUsed != 0 ? header.biClrUsed : BitmapRows::TableEntries(header.biBitCount);
    const bool hasMasks = header.biSize == sizeof header && header.biCompression == BI_BITFIELDS;
    return colours * sizeof(RGBQUAD) + (hasMasks ? BitmapRows::MaskBytes : 0);
}

std::uint64_t RowBytes(const BITMAPINFOHEADER& header)
{
    return BitmapRows::PaddedBytes(static_cast<std::uint64_t>(header.biWidth), header.biBitCount) *
           static_cast<std::uint64_t>(header.biHeight);
}

} // namespace

BitmapResource::BitmapResource(std::span<const std::byte> bytes) noexcept
{
    if (bytes.size() < sizeof(BITMAPINFOHEADER))
    {
        return;
    }
    const auto* const info = reinterpret_cast<const BITMAPINFO*>(bytes.data());
    const BITMAPINFOHEADER& header = info->bmiHeader;
    if (!IsPlain(header))
    {
        return;
    }
    const std::uint64_t rows = header.biSize + ColourBytes(header);
    if (rows < bytes.size() && RowBytes(header) <= bytes.size() - rows)
    {
        m_pInfo = info;
        m_pRows = bytes.data() + rows;
    }
}

SIZE BitmapResource::GetSize() const noexcept
{
    return IsEmpty() ? SIZE{} : SIZE{m_pInfo->bmiHeader.biWidth, m_pInfo->bmiHeader.biHeight};
}

void BitmapResource::Draw(HDC dc, const RECT& target, const RECT& part) const noexcept
{
    if (IsEmpty())
    {
        return;
    }
    const int fromBelow = m_pInfo->bmiHeader.biHeight - part.bottom;
    StretchDIBits(dc, target.left, target.top, target.right - target.left, target.bottom - target.top, part.left,
                  fromBelow, part.right - part.left, part.bottom - part.top, m_pRows, m_pInfo, DIB_RGB_COLORS, SRCCOPY);
}
