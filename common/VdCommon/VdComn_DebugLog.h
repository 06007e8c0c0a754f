#pragma once

#include "common/VdCommon/VdComn_Synchronize.h"
#include "common/VdCommon/VdComn_TraceArgument.h"
#include "common/VdCommon/VdComn_VdDbg.h"

#include <cstdint>
#include <string>

namespace VdCommon
{

namespace Storage
{
struct Key;
}

// The levels of a trace line, bits of the level setting; each call names exactly one.
enum class TraceLevel : std::uint32_t
{
    Flow = 1,    // entering and leaving an operation
    Info = 16,   // information
    Error = 256, // failures
};

// The process-wide trace facility. Settings say whether tracing is on and which levels pass; a line that passes is
// composed here and handed to the trace library, which alone touches the log file. Any thread may trace at any time.
// The order of the locks is m_traceLock before m_stateLock.
class DebugLog
{
public:
    // The one log of the process.
    static DebugLog& Instance() noexcept;

    DebugLog() = default;
    DebugLog(const DebugLog&) = delete;
    DebugLog& operator=(const DebugLog&) = delete;

    // Reads the settings below the key and, with tracing on, opens the trace library of libraryFolder. moduleName
    // stands in every line. True also with tracing off; false, and no line is written, for a kind of key that does not
    // exist and for a library that is missing or refuses.
    bool Initialize(const std::wstring& moduleName, const Storage::Key& settingsKey, const std::wstring& libraryFolder);

    // Ends tracing; false when it had not begun.
    bool Uninitialize();

    // Writes one line in the manner of wprintf: numbers, and wide texts (pointers, strings and views) for %s. The
    // arguments are looked at only when the line passes. Returns true when it was written or tracing is off, false
    // before the start, for a masked level and when the library refused; never throws.
    template <class... Arguments>
    bool Trace(const char* sourceFile, std::uint32_t line, TraceLevel level, const wchar_t* format,
               const Arguments&... arguments) noexcept
    {
        bool answer = false;
        if (!Passes(level, answer))
        {
            return answer;
        }
        try
        {
            return Write(sourceFile, line, level, format, TraceArgument<Arguments>(arguments).Value()...);
        }
        catch (...)
        {
            return false;
        }
    }

private:
    bool Passes(TraceLevel level, bool& answer) noexcept;
    bool Write(const char* sourceFile, std::uint32_t line, TraceLevel level, const wchar_t* format, ...);
    bool ReadSettings(const Storage::Key& settingsKey, DebugLogConfig& config);
    bool MustOpenLibrary() noexcept;
    std::wstring ComposeLine(const SYSTEMTIME& time, TraceLevel level, const std::wstring& message,
                             const char* sourceFile, std::uint32_t line) const;

    bool m_bInitialized = false; // the start has concluded, also with tracing off
    bool m_bEnabled = false;
    std::uint32_t m_nLevelMask = 0;
    Synchronize::CriticalSection m_stateLock; // guards the three above
    std::wstring m_strModuleName;
    Library::VdDbg m_library;
    Synchronize::CriticalSection m_traceLock; // guards the library
};

} // namespace VdCommon

// One trace line from this place of the source: VD_TRACE(Flow, L"[Enter] %s()...", L"CClass::Operation").
#define VD_TRACE(level, ...)                                                                                           \
    (::VdCommon::DebugLog::Instance().Trace(__FILE__, __LINE__, ::VdCommon::TraceLevel::level, __VA_ARGS__))
