#include "tests/fuzz/Watch.h"

#include "tests/fuzz/KeptInputs.h"

#include <windows.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <iostream>

namespace Fuzz
{

namespace
{

constexpr std::chrono::seconds LongestRead(20);
constexpr std::chrono::milliseconds Pause(200);
constexpr UINT CrashStatus = 3;
constexpr ULONG RoomOfHandler = 256 * 1024; // of the stack, for the handler of an overflow of it

Watch* g_pWatch = nullptr;

LONG WINAPI TellException(EXCEPTION_POINTERS* pointers)
{
    char what[80];
    std::snprintf(what, sizeof what, "exception %08lx at %p", pointers->ExceptionRecord->ExceptionCode,
                  pointers->ExceptionRecord->ExceptionAddress);
    g_pWatch->Tell(what);
}

// Library checks end here, and exceptions that nobody takes.
void TellAbort(int)
{
    g_pWatch->Tell("the program aborted itself");
}

} // namespace

Watch::Watch(const Harness& harness)
    : m_harness(harness), m_since(Clock::now().time_since_epoch().count()), m_thread(&Watch::AwaitHang, this)
{
    g_pWatch = this;
    ULONG room = RoomOfHandler;
    SetThreadStackGuarantee(&room);
    SetUnhandledExceptionFilter(&TellException);
    std::signal(SIGABRT, &TellAbort);
}

Watch::~Watch()
{
    m_bEnds = true;
    m_thread.join();
    std::signal(SIGABRT, SIG_DFL);
    SetUnhandledExceptionFilter(nullptr);
    g_pWatch = nullptr;
}

void Watch::Begin(std::string_view input)
{
    m_input = input;
    m_since = Clock::now().time_since_epoch().count();
}

void Watch::Tell(const char* what)
{
    std::cout << m_harness.name << ": " << what << "; the input is in " << LeaveInput(m_harness, m_input).string()
              << std::endl;
    TerminateProcess(GetCurrentProcess(), CrashStatus);
    std::abort();
}

void Watch::AwaitHang()
{
    while (!m_bEnds)
    {
        std::this_thread::sleep_for(Pause);
        if (Clock::now().time_since_epoch() - Clock::duration(m_since.load()) > LongestRead)
        {
            Tell("reads for longer than 20 seconds");
        }
    }
}

} // namespace Fuzz
