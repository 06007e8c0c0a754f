#pragma once

#include "suite/framework/Apartment.h"
#include "tests/e2e/Process.h"
#include "tests/e2e/ServiceSession.h"

#include <atomic>
#include <functional>
#include <stdexcept>
#include <thread>

// A client of the service in a thread of its own, with one call, which has begun when the constructor returns.
class ClientThread
{
public:
    using Call = std::function<HRESULT(IVdFrwkLocalController&)>;

    explicit ClientThread(Call call) : m_call(std::move(call)), m_thread([this] { Run(); })
    {
        WaitUntil([this] { return m_bCalls.load(); });
    }

    ~ClientThread() { m_thread.join(); }

    ClientThread(const ClientThread&) = delete;
    ClientThread& operator=(const ClientThread&) = delete;

    // What the service answered, or the system when it was gone.
    HRESULT Result() const
    {
        WaitUntil([this] { return m_result != E_PENDING; });
        return m_result;
    }

private:
    void Run()
    {
        const Framework::Apartment apartment;
        try
        {
            const auto controller = Connect();
            m_bCalls = true;
            m_result = m_call(*controller.Get());
        }
        catch (const std::runtime_error&)
        {
            m_result = E_FAIL;
            m_bCalls = true;
        }
    }

    const Call m_call;
    std::atomic<bool> m_bCalls = false;
    std::atomic<HRESULT> m_result = E_PENDING;
    std::thread m_thread; // last, since it uses the others
};
