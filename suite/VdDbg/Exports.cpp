// The three functions of common/VdDbg.h. No exception leaves them, and they show no message.

#include "common/VdDbg.h"
#include "suite/VdDbg/OpenLogs.h"

namespace
{

// All that is thrown below here says that a text is too large for the memory.
template <class Work>
std::uint32_t WithoutExceptions(Work work) noexcept
{
    try
    {
        return work();
    }
    catch (...)
    {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
}

// The logs that are still open when the library is unloaded are closed then.
VdDbg::OpenLogs& Logs()
{
    static VdDbg::OpenLogs s_logs;
    return s_logs;
}

} // namespace

extern "C"
{
    VdDbgInitializeFunction VdDbgInitialize;
    VdDbgUninitializeFunction VdDbgUninitialize;
    VdDbgTraceFunction VdDbgTrace;

    std::uint32_t VdDbgInitialize(void** handle, const DebugLogConfig* config)
    {
        return WithoutExceptions([=] { return Logs().Open(handle, config); });
    }

    std::uint32_t VdDbgUninitialize(void* handle)
    {
        return WithoutExceptions([=] { return Logs().Close(handle); });
    }

    std::uint32_t VdDbgTrace(void* handle, const SYSTEMTIME* time, const wchar_t* line)
    {
        return WithoutExceptions([=] { return Logs().Trace(handle, time, line); });
    }
}
