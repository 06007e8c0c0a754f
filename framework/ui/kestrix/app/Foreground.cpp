#include "framework/ui/kestrix/app/Foreground.h"

namespace
{

constexpr UINT AnswerLimit = 500; // milliseconds

// This thread shares the input state of another while the object lives, and so may take the foreground from it.
class AttachedInput
{
public:
    // Nothing is shared with a thread that does not answer, or with this one.
    explicit AttachedInput(HWND window)
    {
        const DWORD thread = ::GetWindowThreadProcessId(window, nullptr);
        DWORD_PTR answer = 0;
        if (::SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, AnswerLimit, &answer) != 0 &&
            thread != ::GetCurrentThreadId() && ::AttachThreadInput(::GetCurrentThreadId(), thread, TRUE))
        {
            m_thread = thread;
        }
    }

    ~AttachedInput()
    {
        if (m_thread != 0)
        {
            ::AttachThreadInput(::GetCurrentThreadId(), m_thread, FALSE);
        }
    }

    AttachedInput(const AttachedInput&) = delete;
    AttachedInput& operator=(const AttachedInput&) = delete;

private:
    DWORD m_thread = 0;
};

// The system protects the foreground for this time after the user's last input; off while the object lives.
class NoForegroundLock
{
public:
    NoForegroundLock()
    {
        ::SystemParametersInfoW(SPI_GETFOREGROUNDLOCKTIMEOUT, 0, &m_milliseconds, 0);
        Set(0);
    }

    ~NoForegroundLock()
    {
        if (m_milliseconds != 0)
        {
            Set(m_milliseconds);
        }
    }

    NoForegroundLock(const NoForegroundLock&) = delete;
    NoForegroundLock& operator=(const NoForegroundLock&) = delete;

private:
    static void Set(DWORD milliseconds)
    {
        // The value itself travels in the place of a pointer.
        ::SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0,
                                reinterpret_cast<void*>(static_cast<ULONG_PTR>(milliseconds)), 0);
    }

    DWORD m_milliseconds = 0;
};

} // namespace

void ForceToFront(HWND window)
{
    const AttachedInput attached(::GetForegroundWindow());
    const NoForegroundLock noLock;
    ::BringWindowToTop(window);
    ::SetForegroundWindow(window);
    ::SetFocus(window);
}
