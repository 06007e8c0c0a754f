#include "suite/VdDbg/OpenLogs.h"

namespace VdDbg
{

std::uint32_t OpenLogs::Open(void** handle, const DebugLogConfig* config)
{
    if (handle == nullptr)
    {
        return ERROR_INVALID_PARAMETER;
    }
    *handle = nullptr;
    if (config == nullptr)
    {
        return ERROR_INVALID_PARAMETER;
    }
    auto log = std::make_shared<Log>(*config);
    if (const DWORD error = log->Open(); error != ERROR_SUCCESS)
    {
        return error;
    }
    const std::lock_guard guard(m_mutex);
    m_logs.emplace(++m_nLastHandle, std::move(log));
    *handle = reinterpret_cast<void*>(m_nLastHandle);
    return ERROR_SUCCESS;
}

std::uint32_t OpenLogs::Close(void* handle)
{
    const std::lock_guard guard(m_mutex);
    return m_logs.erase(reinterpret_cast<std::uintptr_t>(handle)) == 1 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

std::uint32_t OpenLogs::Trace(void* handle, const SYSTEMTIME* time, const wchar_t* line)
{
    if (time == nullptr || line == nullptr)
    {
        return ERROR_INVALID_PARAMETER;
    }
    const std::shared_ptr<Log> log = Find(handle);
    return log ? log->Write(*time, line) : ERROR_INVALID_HANDLE;
}

std::shared_ptr<Log> OpenLogs::Find(void* handle)
{
    const std::lock_guard guard(m_mutex);
    const auto found = m_logs.find(reinterpret_cast<std::uintptr_t>(handle));
    return found == m_logs.end() ? nullptr : found->second;
}

} // namespace VdDbg
