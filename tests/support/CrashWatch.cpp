#include "tests/support/CrashWatch.h"

#include <windows.h>

#include <csignal>
#include <cstdio>
#include <utility>

namespace
{

constexpr std::chrono::seconds LongestTime(20);
constexpr std::chrono::milliseconds Pause(200);
constexpr UINT CrashStatus = 3;
constexpr ULONG RoomOfHandler = 256 * 1024; // of the stack, for the handler of an overflow of it

CrashWatch* g_pCrashWatch = nullptr;

LONG WINAPI TellException(EXCEPTION_POINTERS* pointers)
{
    char what[80];
    std::snprintf(what, sizeof what, "exception %08lx at %p", pointers->ExceptionRecord->ExceptionCode,
                  pointers->ExceptionRecord->ExceptionAddress);
    g_pCrashWatch->Tell(what);
}

// Library checks end here, and exceptions that nobody takes.
void TellAbort(int)
{
    g_pCrashWatch->Tell("the program aborted itself");
}

} // namespace

CrashWatch::CrashWatch(std::function<void(const char* what)> tell)
    : m_tell(std::move(tell)), m_since(Clock::now().time_since_epoch().count()), m_thread(&CrashWatch::AwaitHang, this)
{
    g_pCrashWatch = this;
    ULONG room = RoomOfHandler;
    SetThreadStackGuarantee(&room);
    SetUnhandledExceptionFilter(&TellException);
    std::signal(SIGABRT, &TellAbort);
}

CrashWatch::~CrashWatch()
{
    m_bEnds = true;
    m_thread.join();
    std::signal(SIGABRT, SIG_DFL);
    SetUnhandledExceptionFilter(nullptr);
    g_pCrashWatch = nullptr;
}

void CrashWatch::Tell(const char* what)
{
    m_tell(what);
    TerminateProcess(GetCurrentProcess(), CrashStatus);
    std::abort();
}

void CrashWatch::AwaitHang()
{
    while (!m_bEnds)
    {
        std::this_thread::sleep_for(Pause);
        if (Clock::now().time_since_epoch() - Clock::duration(m_since.load()) > LongestTime)
        {
            Tell("longer than 20 seconds");
        }
    }
}
