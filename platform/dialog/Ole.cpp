#include "platform/dialog/Ole.h"

#include "platform/dialog/FrameworkState.h"

#include <ole2.h>

BOOL AfxOleInit()
{
    FrameworkState& state = GetFrameworkState();
    if (!state.bOleOpen)
    {
        state.bOleOpen = SUCCEEDED(OleInitialize(nullptr));
    }
    return state.bOleOpen;
}

void AfxOleTerm() noexcept
{
    FrameworkState& state = GetFrameworkState();
    if (state.bOleOpen)
    {
        state.bOleOpen = false;
        OleUninitialize();
    }
}
