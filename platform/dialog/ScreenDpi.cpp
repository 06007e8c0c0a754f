#include "platform/dialog/ScreenDpi.h"

#include "platform/dialog/DeviceContext.h"
#include "platform/dialog/FrameworkState.h"

int AfxGetScreenDpi() noexcept
{
    int& dpi = GetFrameworkState().screenDpi;
    if (dpi == 0)
    {
        const int asked = ::GetDeviceCaps(CMemoryDC(), LOGPIXELSX);
        dpi = asked > 0 ? asked : USER_DEFAULT_SCREEN_DPI;
    }
    return dpi;
}

void AfxSetScreenDpi(int dpi) noexcept
{
    GetFrameworkState().screenDpi = dpi;
}
