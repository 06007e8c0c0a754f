#pragma once

#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <functional>
#include <string>
#include <thread>

// Somebody who takes the same step again and again, in a thread and a single-threaded apartment of his own, until he is
// told to stop or a step throws.
struct Worker
{
    Worker(std::string theName, std::function<void(int)> theStep)
        : name(std::move(theName)), step(std::move(theStep)), m_thread([this] { Run(); })
    {
    }

    ~Worker() { m_thread.join(); }

    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // How long the step lasts that is not over, in milliseconds.
    ULONGLONG InStep() const { return hasEnded ? 0 : GetTickCount64() - m_nSince; }

    const std::string name;
    const std::function<void(int)> step; // gets its number, from 0 on
    std::string fault;                   // what the last step threw; to be read after the end
    std::atomic<bool> stops = false;
    std::atomic<bool> hasEnded = false;
    std::atomic<int> steps = 0;
    std::atomic<ULONGLONG> longest = 0; // milliseconds of a step that is over

private:
    static constexpr DWORD Pause = 20; // milliseconds between two steps, so that there is room for the others

    void Run()
    {
        CoInitialize(nullptr);
        try
        {
            for (; !stops; ++steps, Sleep(Pause))
            {
                m_nSince = GetTickCount64();
                step(steps);
                longest = std::max<ULONGLONG>(longest, GetTickCount64() - m_nSince);
            }
        }
        catch (const std::exception& error)
        {
            fault = error.what();
        }
        CoUninitialize();
        hasEnded = true;
    }

    std::atomic<ULONGLONG> m_nSince = GetTickCount64();
    std::thread m_thread; // last, since it uses the others
};
