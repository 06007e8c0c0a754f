#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace Framework
{

// A thread that does one piece of work after the other, in the order in which they were posted. An exception ends the
// piece of work that throws it. The destructor returns when all is done.
class Worker
{
public:
    Worker();
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Post(std::function<void()> work);

private:
    void Run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_queue;
    bool m_bEnding = false;
    std::thread m_thread; // last, since it uses the others
};

} // namespace Framework
