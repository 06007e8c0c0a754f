#include "platform/dialog/ImageList.h"

bool CImageList::Create(int width, int height, UINT flags, int initial, int grow) noexcept
{
    m_hImageList.reset(::ImageList_Create(width, height, flags, initial, grow));
    return static_cast<bool>(m_hImageList);
}

int CImageList::Add(HBITMAP strip, COLORREF mask) noexcept
{
    return m_hImageList && strip != nullptr ? ::ImageList_AddMasked(m_hImageList.get(), strip, mask) : -1;
}

bool CImageList::Draw(HDC dc, int image, POINT point, UINT style) const noexcept
{
    return ::ImageList_Draw(m_hImageList.get(), image, dc, point.x, point.y, style);
}

int CImageList::GetImageCount() const noexcept
{
    return m_hImageList ? ::ImageList_GetImageCount(m_hImageList.get()) : 0;
}
