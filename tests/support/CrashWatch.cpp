#include "tests/support/CrashWatch.h"

#include <windows.h>

#include <algorithm>
#include <csignal>
#include <cstdio>

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

CrashWatch::CrashWatch(const std::filesystem::path& file)
    : m_file(file.empty() ? nullptr : Suite::OpenShared(file.c_str(), GENERIC_WRITE, CREATE_ALWAYS)),
      m_since(Clock::now().time_since_epoch().count()),
      m_thread(&CrashWatch::AwaitHang, this)
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

void CrashWatch::Begin(std::string_view name, std::string_view input)
{
    m_strName = name;
    m_strInput = input;
    m_since = Clock::now().time_since_epoch().count();
}

// Without the heap, in which the crash may have happened.
void CrashWatch::Tell(const char* what)
{
    DWORD written = 0;
    WriteFile(m_file.get(), m_strInput.data(), static_cast<DWORD>(m_strInput.size()), &written, nullptr);
    char line[200];
    const int length =
        std::snprintf(line, sizeof line, "%.*s: %s\n", static_cast<int>(std::min<std::size_t>(m_strName.size(), 100)),
                      m_strName.data(), what);
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line, static_cast<DWORD>(length), &written, nullptr);
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
