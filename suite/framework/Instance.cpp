#include "suite/framework/Instance.h"

#include <system_error>

namespace Framework
{

namespace
{

constexpr wchar_t MutexName[] = L"Local\\VdFrwkSvc-Instance";
constexpr wchar_t RunningName[] = L"Local\\VdFrwkSvc-Running";
constexpr wchar_t ExitName[] = L"Local\\VdFrwkSvc-Exit";
constexpr DWORD LongestEnd = 60'000; // milliseconds

Suite::KernelHandle Require(HANDLE handle)
{
    if (handle == nullptr)
    {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "the objects that the service's processes share cannot be made");
    }
    return Suite::KernelHandle(handle);
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

bool Instance::Acquire()
{
    const HANDLE handles[] = {m_mutex.get(), m_running.get()};
    const DWORD which = WaitForMultipleObjects(2, handles, FALSE, LongestEnd);
    m_bOwnsMutex = which == WAIT_OBJECT_0 || which == WAIT_ABANDONED_0;
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
