#pragma once

#include "suite/common/KernelHandle.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string_view>
#include <thread>

// Tells when the program crashes, aborts itself or does one thing for longer than 20 seconds, and ends it with status
// 3. One at a time.
class CrashWatch
{
public:
    // The input of the thing that crashed is left in this file, which must not be open elsewhere; in none by default.
    explicit CrashWatch(const std::filesystem::path& file = {});
    ~CrashWatch();
    CrashWatch(const CrashWatch&) = delete;
    CrashWatch& operator=(const CrashWatch&) = delete;

    // The next thing begins. Its name and its input must stay as they are until the next call.
    void Begin(std::string_view name, std::string_view input = {});

    [[noreturn]] void Tell(const char* what);

private:
    void AwaitHang();

    using Clock = std::chrono::steady_clock;

    const Suite::KernelHandle m_file;
    std::string_view m_strName;
    std::string_view m_strInput;
    std::atomic<Clock::rep> m_since;
    std::atomic<bool> m_bEnds = false;
    std::thread m_thread;
};
