#include "platform/dialog/OleMessageFilter.h"

namespace
{

constexpr DWORD GiveUp = static_cast<DWORD>(-1);
constexpr DWORD RetryAtOnce = 0;

} // namespace

bool COleMessageFilter::Register() noexcept
{
    return SUCCEEDED(CoRegisterMessageFilter(this, nullptr));
}

void COleMessageFilter::Revoke() noexcept
{
    CoRegisterMessageFilter(nullptr, nullptr);
}

HRESULT COleMessageFilter::QueryInterface(REFIID id, void** object) noexcept
{
    if (id != __uuidof(IUnknown) && id != __uuidof(IMessageFilter))
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IMessageFilter*>(this);
    AddRef();
    return S_OK;
}

DWORD COleMessageFilter::HandleInComingCall(DWORD, HTASK, DWORD, INTERFACEINFO*) noexcept
{
    return SERVERCALL_ISHANDLED;
}

DWORD COleMessageFilter::RetryRejectedCall(HTASK, DWORD waited, DWORD rejection) noexcept
{
    return rejection == SERVERCALL_RETRYLATER && waited <= m_nRetryReply ? RetryAtOnce : GiveUp;
}

DWORD COleMessageFilter::MessagePending(HTASK, DWORD, DWORD) noexcept
{
    return PENDINGMSG_WAITNOPROCESS;
}
