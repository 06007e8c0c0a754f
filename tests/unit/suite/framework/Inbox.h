#pragma once

#include "tests/e2e/EventRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

// A sink for the threads of the service: keeps what arrives, and answers with `answer`. While `hangs` is set a call
// does not return. Its end waits for the service to let it go, since the service waits for no client.
class Inbox
{
public:
    explicit Inbox(HRESULT answer = S_OK, bool hangs = false) : m_hrAnswer(answer), m_bHangs(hangs) {}

    ~Inbox()
    {
        LetGo();
        EXPECT_TRUE(WaitUntilReleased());
    }

    Inbox(const Inbox&) = delete;
    Inbox& operator=(const Inbox&) = delete;

    IUnknown* Sink() { return &m_recorder; }

    // Waits for as many events; false when they do not come within 30 s.
    bool WaitFor(std::size_t count)
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(30), [&] { return m_events.size() >= count; });
    }

    std::vector<std::string> Events() const
    {
        const std::lock_guard guard(m_mutex);
        return m_events;
    }

    // The first word of the last event, as a result.
    HRESULT LastResult() const { return static_cast<HRESULT>(m_recorder.LastWord()); }

    // Lets a call that hangs return.
    void LetGo()
    {
        const std::lock_guard guard(m_mutex);
        m_bHangs = false;
        m_changed.notify_all();
    }

    // Waits until the service holds no reference to the sink any more.
    bool WaitUntilReleased()
    {
        for (int i = 0; i < 3000; ++i)
        {
            m_recorder.AddRef();
            if (m_recorder.Release() == 0)
            {
                return true;
            }
            std::unique_lock lock(m_mutex);
            m_changed.wait_for(lock, std::chrono::milliseconds(10));
        }
        return false;
    }

private:
    HRESULT Take(const std::string& event)
    {
        std::unique_lock lock(m_mutex);
        m_events.push_back(event);
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return !m_bHangs; });
        return m_hrAnswer;
    }

    const HRESULT m_hrAnswer;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_bHangs;
    std::vector<std::string> m_events;
    EventRecorder m_recorder{[this](const std::string& event) { return Take(event); }};
};
