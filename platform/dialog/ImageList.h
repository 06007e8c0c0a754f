#pragma once

#include "platform/dialog/UniqueHandle.h"

// Owns an image list. A control that is given the handle does not own it: the object must outlive the control's use.
class CImageList
{
public:
    CImageList() = default;
    virtual ~CImageList() = default;

    // Images of width by height; flags ILC_...; room for initial images, growing by grow. Deletes the list before.
    bool Create(int width, int height, UINT flags, int initial, int grow) noexcept;

    // Adds the images of a strip, with mask as the colour that is not drawn. Returns the first's index; -1 when
    // refused.
    int Add(HBITMAP strip, COLORREF mask) noexcept;

    bool Draw(HDC dc, int image, POINT point, UINT style = ILD_NORMAL) const noexcept;
    int GetImageCount() const noexcept;

    HIMAGELIST GetSafeHandle() const noexcept { return m_hImageList.get(); }

private:
    UniqueImageList m_hImageList;
};
