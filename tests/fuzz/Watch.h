#pragma once

#include "tests/fuzz/Harness.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace Fuzz
{

// Watches the input that is read: when the program crashes at it, or reads longer than any input may take, the input is
// left in the build folder and told, and the program ends with status 3. One at a time.
class Watch
{
public:
    explicit Watch(const Harness& harness);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    // Before an input is read. It must stay as it is until the next call.
    void Begin(std::string_view input);

    // What the watched input did.
    [[noreturn]] void Tell(const char* what);

private:
    void AwaitHang();

    using Clock = std::chrono::steady_clock;

    const Harness& m_harness;
    std::string_view m_input{};
    std::atomic<Clock::rep> m_since;
    std::atomic<bool> m_bEnds = false;
    std::thread m_thread;
};

} // namespace Fuzz
