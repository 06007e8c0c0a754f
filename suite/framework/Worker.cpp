#include "suite/framework/Worker.h"

#include "suite/framework/ComObject.h"

#include <utility>

namespace Framework
{

Worker::Worker() : m_thread([this] { Run(); }) {}

Worker::~Worker()
{
    {
        const std::lock_guard guard(m_mutex);
        m_bEnding = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void Worker::Post(std::function<void()> work)
{
    {
        const std::lock_guard guard(m_mutex);
        m_queue.push_back(std::move(work));
    }
    m_changed.notify_all();
}

void Worker::Run()
{
    std::unique_lock lock(m_mutex);
    while (true)
    {
        m_changed.wait(lock, [this] { return m_bEnding || !m_queue.empty(); });
        if (m_queue.empty())
        {
            return;
        }
        std::function<void()> work = std::move(m_queue.front());
        m_queue.pop_front();
        lock.unlock();
        WithoutExceptions([&work] { return work(), S_OK; });
        work = nullptr; // what it holds goes before the next wait
        lock.lock();
    }
}

} // namespace Framework
