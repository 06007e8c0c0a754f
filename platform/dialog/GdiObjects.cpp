#include "platform/dialog/GdiObjects.h"

#include "platform/dialog/ModuleState.h"

namespace
{

HBITMAP LoadBitmapImage(UINT id, UINT flags) noexcept
{
    return static_cast<HBITMAP>(::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, flags));
}

} // namespace

bool CBitmap::LoadBitmap(UINT id) noexcept
{
    return Attach(LoadBitmapImage(id, LR_DEFAULTCOLOR));
}

bool CBitmap::LoadDibSection(UINT id) noexcept
{
    return Attach(LoadBitmapImage(id, LR_CREATEDIBSECTION));
}

bool CBitmap::LoadMappedBitmap(UINT id, COLORMAP map) noexcept
{
    return Attach(::CreateMappedBitmap(AfxGetResourceHandle(), id, 0, &map, 1));
}

SIZE CBitmap::GetSize() const noexcept
{
    BITMAP bitmap{};
    ::GetObjectW(*this, sizeof bitmap, &bitmap);
    return {bitmap.bmWidth, bitmap.bmHeight};
}
