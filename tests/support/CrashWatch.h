#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

// Tells when the program crashes, aborts itself or does one thing for longer than 20 seconds, and ends it with status
// 3. One at a time.
class CrashWatch
{
public:
    // The function gets what happened; there may be no heap any more.
    explicit CrashWatch(std::function<void(const char* what)> tell);
    ~CrashWatch();
    CrashWatch(const CrashWatch&) = delete;
    CrashWatch& operator=(const CrashWatch&) = delete;

    // The next thing begins.
    void Begin() { m_since = Clock::now().time_since_epoch().count(); }

    [[noreturn]] void Tell(const char* what);

private:
    void AwaitHang();

    using Clock = std::chrono::steady_clock;

    const std::function<void(const char* what)> m_tell;
    std::atomic<Clock::rep> m_since;
    std::atomic<bool> m_bEnds = false;
    std::thread m_thread;
};
