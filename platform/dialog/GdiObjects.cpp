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

bool CBitmap::CreateDibSection(SIZE size) noexcept
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    return Attach(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
}

SIZE CBitmap::GetSize() const noexcept
{
    BITMAP bitmap{};
    ::GetObjectW(*this, sizeof bitmap, &bitmap);
    return {bitmap.bmWidth, bitmap.bmHeight};
}
