#pragma once

#include "common/VdDbg.h"
#include "suite/VdDbg/Log.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

namespace VdDbg
{

// The logs of this process, each under the handle that its user got. Any thread may call at any time; a log that is
// closed while a line is written to it goes when the line is written.
// Results are system error codes: 0 is success, ERROR_INVALID_PARAMETER a missing argument, ERROR_INVALID_HANDLE a
// handle of no open log, all others come from the file.
class OpenLogs
{
public:
    // *handle becomes null when the log cannot be opened.
    std::uint32_t Open(void** handle, const DebugLogConfig* config);
    std::uint32_t Close(void* handle);
    std::uint32_t Trace(void* handle, const SYSTEMTIME* time, const wchar_t* line);

private:
    std::shared_ptr<Log> Find(void* handle);

    std::mutex m_mutex;
    std::map<std::uintptr_t, std::shared_ptr<Log>> m_logs;
    // Handles are numbers, and none is given twice: one that was closed never means another log.
    std::uintptr_t m_nLastHandle = 0;
};

} // namespace VdDbg
