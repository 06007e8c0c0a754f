#include "tests/fuzz/Watch.h"

#include "tests/fuzz/KeptInputs.h"
#include "tests/support/TemporaryFolder.h"

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
    : m_harness(harness),
      m_crashPath(FindingsFolder() / (std::string(harness.name) + ".crash")),
      m_crashFile((TakeLastCrash(), Suite::OwnFile(CreateFileW(m_crashPath.c_str(), GENERIC_WRITE, 0, nullptr,
                                                               CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)))),
      m_since(Clock::now().time_since_epoch().count()),
      m_thread(&Watch::AwaitHang, this)
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
    m_crashFile.reset();
    std::error_code none;
    std::filesystem::remove(m_crashPath, none);
}

// An empty file is that of a watch that was ended with its program.
void Watch::TakeLastCrash() const
{
    std::error_code none;
    if (std::filesystem::file_size(m_crashPath, none) > 0 && !none)
    {
        std::cout << m_harness.name << ": the last run crashed; the input is in "
                  << LeaveInput(m_harness, ReadBytes(m_crashPath.wstring())).string() << std::endl;
    }
}

void Watch::Begin(std::string_view input)
{
    m_input = input;
    m_since = Clock::now().time_since_epoch().count();
}

// Without the heap, in which the crash may have happened.
void Watch::Tell(const char* what)
{
    DWORD written = 0;
    WriteFile(m_crashFile.get(), m_input.data(), static_cast<DWORD>(m_input.size()), &written, nullptr);
    char line[200];
    const int length =
        std::snprintf(line, sizeof line, "%.40s: %s; the next run leaves the input in the build folder\n",
                      m_harness.name.data(), what);
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line, static_cast<DWORD>(length), &written, nullptr);
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
