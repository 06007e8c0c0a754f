#pragma once

#include "platform/dialog/DialogFramework.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

// The events by which the windows of this thread tell a screen reader that something is to be said, while the object
// lives.
class AlertRecorder
{
public:
    static constexpr DWORD LiveRegionChanged = 0x8019;

    struct Event
    {
        DWORD event;
        HWND window;
        std::wstring text;
        bool isVisible;
        HCURSOR cursor;
    };

    AlertRecorder()
    {
        s_events = &m_events;
        for (std::size_t i = 0; i < m_hooks.size(); ++i)
        {
            m_hooks[i] = ::SetWinEventHook(Heard[i], Heard[i], AfxGetInstanceHandle(), &Hear, ::GetCurrentProcessId(),
                                           ::GetCurrentThreadId(), WINEVENT_INCONTEXT);
        }
    }

    ~AlertRecorder() { std::ranges::for_each(m_hooks, ::UnhookWinEvent); }

    AlertRecorder(const AlertRecorder&) = delete;
    AlertRecorder& operator=(const AlertRecorder&) = delete;

    const std::vector<Event>& Events() const { return m_events; }

private:
    static constexpr std::array<DWORD, 2> Heard{LiveRegionChanged, EVENT_SYSTEM_ALERT};

    static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG, LONG, DWORD, DWORD)
    {
        const CWindow source(window);
        s_events->push_back({event, window, source.GetWindowText(), source.IsWindowVisible(), ::GetCursor()});
    }

    static inline std::vector<Event>* s_events = nullptr;

    std::vector<Event> m_events;
    std::array<HWINEVENTHOOK, 2> m_hooks{};
};
