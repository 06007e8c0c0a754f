#pragma once

#include "suite/framework/Apartment.h"
#include "tests/e2e/Process.h"
#include "tests/e2e/ServiceSession.h"

#include <atomic>
#include <functional>
#include <future>
#include <stdexcept>

// A client of the service in a thread of its own, with one call, which has begun when the constructor returns.
class ClientThread
{
public:
    using Call = std::function<HRESULT(IVdFrwkLocalController&)>;

    explicit ClientThread(Call call)
        : m_result(std::async(std::launch::async, &ClientThread::Run, this, std::move(call)))
    {
        WaitUntil([this] { return m_bCalls.load(); });
    }

    // What the service answered, or the system when it was gone; E_PENDING when no answer comes.
    HRESULT Result() const
    {
        const bool isThere = m_result.wait_for(std::chrono::seconds(30)) == std::future_status::ready;
        return isThere ? m_result.get() : E_PENDING;
    }

private:
    HRESULT Run(const Call& call)
    {
        const Framework::Apartment apartment;
        try
        {
            const auto controller = Connect();
            m_bCalls = true;
            return call(*controller.Get());
        }
        catch (const std::runtime_error&)
        {
            m_bCalls = true;
            return E_FAIL;
        }
    }

    std::atomic<bool> m_bCalls = false;
    const std::shared_future<HRESULT> m_result; // last, since its thread uses the other
};
