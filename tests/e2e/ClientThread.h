#pragma once

#include "suite/framework/Apartment.h"
#include "tests/e2e/ServiceSession.h"

#include <chrono>
#include <functional>
#include <future>
#include <semaphore>

// A client of the service in a thread of its own, with one call, which has begun when the constructor returns.
class ClientThread
{
public:
    using Call = std::function<HRESULT(IVdFrwkLocalController&)>;

    explicit ClientThread(Call call)
        : m_result(std::async(std::launch::async, &ClientThread::Run, this, std::move(call)))
    {
        m_hasBegun.try_acquire_for(Patience); // and not a moment longer: a short call may be over then
    }

    // What the service answered, or the system when it was gone; E_PENDING when no answer comes. Throws
    // std::runtime_error when there was no service to call.
    HRESULT Result() const
    {
        const bool isThere = m_result.wait_for(Patience) == std::future_status::ready;
        return isThere ? m_result.get() : E_PENDING;
    }

private:
    static constexpr std::chrono::seconds Patience{30};

    HRESULT Run(const Call& call)
    {
        const Framework::Apartment apartment;
        const auto controller = Connect();
        m_hasBegun.release();
        return call(*controller.Get());
    }

    std::counting_semaphore<1> m_hasBegun{0};
    const std::shared_future<HRESULT> m_result; // last, since its thread uses the other
};
