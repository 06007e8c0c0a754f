#include "platform/dialog/Ole.h"

#include "platform/dialog/FrameworkState.h"

#include <ole2.h>

BOOL AfxOleInit()
{
    FrameworkState& state = GetFrameworkState();
    if (state.bOleOpen)
    {
        return TRUE;
    }
    if (FAILED(OleInitialize(nullptr)))
    {
        return FALSE;
    }
    state.bOleOpen = true;
    if (!state.oleMessageFilter.Register())
    {
        AfxOleTerm();
    }
    return state.bOleOpen;
}

void AfxOleTerm() noexcept
{
    FrameworkState& state = GetFrameworkState();
    if (state.bOleOpen)
    {
        state.bOleOpen = false;
        state.oleMessageFilter.Revoke();
        OleUninitialize();
    }
}

COleMessageFilter& AfxOleGetMessageFilter() noexcept
{
    return GetFrameworkState().oleMessageFilter;
}
