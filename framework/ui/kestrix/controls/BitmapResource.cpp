#include "framework/ui/kestrix/controls/BitmapResource.h"

#include "framework/ui/kestrix/controls/BitmapRows.h"

BitmapResource::BitmapResource(std::span<const std::byte> bytes, int percent) noexcept
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
        m_sizeOnScreen = ScaledArt{0, percent}.SizeOnScreen(OwnSize());
    }
}

SIZE BitmapResource::GetSize() const noexcept
{
    return m_sizeOnScreen;
}

void BitmapResource::Draw(HDC dc, const RECT& target, const RECT& part) const noexcept
{
    if (IsEmpty())
    {
        return;
    }
    const SIZE own = OwnSize();
    const int left = MulDiv(part.left, own.cx, m_sizeOnScreen.cx);
    const int right = MulDiv(part.right, own.cx, m_sizeOnScreen.cx);
    const int top = MulDiv(part.top, own.cy, m_sizeOnScreen.cy);
    const int bottom = MulDiv(part.bottom, own.cy, m_sizeOnScreen.cy);
    StretchDIBits(dc, target.left, target.top, target.right - target.left, target.bottom - target.top, left,
                  own.cy - bottom, right - left, bottom - top, m_pRows, m_pInfo, DIB_RGB_COLORS, SRCCOPY);
}
