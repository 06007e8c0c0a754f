#pragma once

#include <windows.h>

#include <functional>
#include <utility>

// Runs a step on the thread's loop, again and again until it says that it is done.
class OnTheLoop
{
public:
    explicit OnTheLoop(std::function<bool()> step) : m_step(std::move(step))
    {
        s_current = this;
        m_nTimer = SetTimer(nullptr, 0, 20, &Tick);
    }

    ~OnTheLoop()
    {
        KillTimer(nullptr, m_nTimer);
        s_current = nullptr;
    }

    OnTheLoop(const OnTheLoop&) = delete;
    OnTheLoop& operator=(const OnTheLoop&) = delete;

    bool IsDone() const { return m_bDone; }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD)
    {
        if (s_current != nullptr && !s_current->m_bDone)
        {
            s_current->m_bDone = s_current->m_step();
        }
    }

    static inline OnTheLoop* s_current = nullptr;

    std::function<bool()> m_step;
    UINT_PTR m_nTimer = 0;
    bool m_bDone = false;
};
