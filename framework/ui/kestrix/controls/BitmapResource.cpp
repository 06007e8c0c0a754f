#include "framework/ui/kestrix/controls/BitmapResource.h"

#include "framework/ui/kestrix/controls/BitmapRows.h"

BitmapResource::BitmapResource(std::span<const std::byte> bytes) noexcept
{
    if (bytes.size() < sizeof(BITMAPINFOHEADER))
    {
        return;
    }
    const auto* const info = reinterpret_cast<const BITMAPINFO*>(bytes.data());
    const BITMAPINFOHEADER& header = info->bmiHeader;
    const DWORD rowBytes = BitmapRows::AllBytes(header);
    if (header.biSize < sizeof header || header.biHeight < 0 || rowBytes == 0 || !BitmapRows::HasPlainRows(header))
    {
        return;
    }
    const std::uint64_t rows = header.biSize + BitmapRows::ColourBytes(header);
    if (rows < bytes.size() && rowBytes <= bytes.size() - rows)
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
