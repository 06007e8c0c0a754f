#pragma once

#include "common/VdCommon/VdComn_Library.h"
#include "common/VdDbg.h"

namespace VdCommon::Library
{

// The suite's trace library and the log that is open in it.
class VdDbg : public Wrapper
{
public:
    // Loads the library of this folder (empty: wherever the platform finds it) unless it is loaded already, and binds
    // it. False when that failed.
    bool Load(const std::wstring& folder);

    // Opens a log with these settings; false, and the library unloaded, when it refuses.
    bool OpenLog(const DebugLogConfig& config);

    // Closes the log and unloads the library; nothing when it is not bound.
    void CloseLog();

    // Hands a finished line over; false when there is no log or the library refused.
    bool WriteLine(const SYSTEMTIME& time, const wchar_t* line);

    bool Bind(bool load, std::uint32_t* error) override;

private:
    VdDbgInitializeFunction* m_pfnInitialize = nullptr;
    VdDbgUninitializeFunction* m_pfnUninitialize = nullptr;
    VdDbgTraceFunction* m_pfnTrace = nullptr;
    void* m_pTrace = nullptr; // the library's handle of the log
};

} // namespace VdCommon::Library
