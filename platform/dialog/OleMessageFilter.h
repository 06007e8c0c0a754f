#pragma once

#include <objbase.h>

#include <atomic>

// How the thread waits for calls that it makes into other processes, and takes those that come in. While it waits,
// input messages stay in the queue. It has no dialogs for a server that is busy or does not respond: a call that the
// server puts off is repeated, up to a limit, and then given up.
class COleMessageFilter final : public IMessageFilter
{
public:
    // How long a call that was put off is repeated, in milliseconds; -1 is for ever. 10 seconds unless set.
    void SetRetryReply(DWORD milliseconds) noexcept { m_nRetryReply = milliseconds; }

    // Makes this the filter of the thread; false when the system refuses, which it does without an apartment.
    bool Register() noexcept;

    // The thread is without a filter again.
    void Revoke() noexcept;

    // IUnknown. The system's references do not own the object.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;

    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++m_nReferences; }

    ULONG STDMETHODCALLTYPE Release() noexcept override { return --m_nReferences; }

    // IMessageFilter
    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD type, HTASK caller, DWORD waited,
                                               INTERFACEINFO* called) noexcept override;
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK server, DWORD waited, DWORD rejection) noexcept override;
    DWORD STDMETHODCALLTYPE MessagePending(HTASK server, DWORD waited, DWORD type) noexcept override;

private:
    std::atomic<ULONG> m_nReferences = 0;
    DWORD m_nRetryReply = 10'000;
};
