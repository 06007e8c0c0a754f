#include "suite/framework/Instance.h"

#include "suite/framework/ProgramPath.h"

#include <tlhelp32.h>

#include <string>
#include <system_error>

namespace Framework
{

namespace
{

constexpr wchar_t MutexName[] = L"Local\\VdFrwkSvc-Instance";
constexpr wchar_t RunningName[] = L"Local\\VdFrwkSvc-Running";
constexpr wchar_t ExitName[] = L"Local\\VdFrwkSvc-Exit";

Suite::KernelHandle Require(HANDLE handle)
{
    if (handle == nullptr)
    {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "the objects that the service's processes share cannot be made");
    }
    return Suite::KernelHandle(handle);
}

// The numbers of the other processes of this program, with a blank before each.
std::string OtherProcesses()
{
    std::string numbers;
    const std::wstring program = ProgramPath().filename().wstring();
    const Suite::KernelHandle all = Suite::OwnFile(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(all.get(), &entry); more; more = Process32NextW(all.get(), &entry))
    {
        if (_wcsicmp(entry.szExeFile, program.c_str()) == 0 && entry.th32ProcessID != GetCurrentProcessId())
        {
            numbers.append(" ").append(std::to_string(entry.th32ProcessID));
        }
    }
    return numbers;
}

[[noreturn]] void ThrowBlocked()
{
    const std::string others = OtherProcesses();
    const std::string holder =
        others.empty() ? "A program other than the service" : "A service that takes no clients, process" + others + ",";
    throw InstanceBlocked(holder + " holds the mutex Local\\VdFrwkSvc-Instance, so the service cannot start. End that "
                                   "program, or sign out and in again.");
}

} // namespace

Instance::Instance()
    : m_mutex(Require(CreateMutexW(nullptr, FALSE, MutexName))),
      m_running(Require(CreateEventW(nullptr, TRUE, FALSE, RunningName))),
      m_exit(Require(CreateEventW(nullptr, FALSE, FALSE, ExitName)))
{
}

Instance::~Instance()
{
    if (m_bOwnsMutex)
    {
        SetRunning(false);
        ReleaseMutex(m_mutex.get());
    }
}

bool Instance::Acquire(std::chrono::milliseconds longestWait)
{
    const HANDLE handles[] = {m_mutex.get(), m_running.get()};
    const DWORD which = WaitForMultipleObjects(2, handles, FALSE, static_cast<DWORD>(longestWait.count()));
    m_bOwnsMutex = which == WAIT_OBJECT_0 || which == WAIT_ABANDONED_0;
    if (which == WAIT_TIMEOUT)
    {
        ThrowBlocked();
    }
    return m_bOwnsMutex;
}

void Instance::SetRunning(bool isRunning)
{
    isRunning ? SetEvent(m_running.get()) : ResetEvent(m_running.get());
}

bool Instance::RequestExit()
{
    const Suite::KernelHandle exit(OpenEventW(EVENT_MODIFY_STATE, FALSE, ExitName));
    return exit && SetEvent(exit.get());
}

} // namespace Framework
