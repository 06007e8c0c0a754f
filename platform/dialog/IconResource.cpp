#include "platform/dialog/IconResource.h"

#include "platform/dialog/ModuleState.h"

UniqueIcon LoadIconImage(UINT id, SIZE size) noexcept
{
    return UniqueIcon(static_cast<HICON>(
        ::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_ICON, size.cx, size.cy, LR_DEFAULTCOLOR)));
}

UniqueCursor LoadCursorImage(UINT id) noexcept
{
    return UniqueCursor(static_cast<HCURSOR>(
        ::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_CURSOR, 0, 0, LR_DEFAULTSIZE)));
}
