#include "common/VdCommon/VdComn_DebugLog.h"

#include "common/VdCommon/VdComn_DebugLogSettings.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "common/VdCommon/VdComn_String.h"

#include <cstdarg>
#include <string_view>

namespace VdCommon
{

namespace
{

using Guard = Synchronize::SingleLock<Synchronize::CriticalSection>;

constexpr std::size_t LongestFileName = std::size_t{1} << 30; // a name of that many units or more is left out

const wchar_t* TagOf(TraceLevel level)
{
    switch (level)
    {
    case TraceLevel::Flow:
        return L".w.";
    case TraceLevel::Info:
        return L"@@@";
    case TraceLevel::Error:
        return L"!!!";
    }
    return L"???";
}

// The part after the last path separator, in the thread's ANSI code page. False for a name that cannot be widened.
bool WidenBaseName(const char* sourceFile, std::wstring& name)
{
    if (sourceFile == nullptr)
    {
        return false;
    }
    std::string_view base(sourceFile);
    if (const std::size_t separator = base.find_last_of("\\/"); separator != base.npos)
    {
        base.remove_prefix(separator + 1);
    }
    if (base.size() >= LongestFileName)
    {
        return false;
    }
    if (base.empty())
    {
        return true; // nothing to widen, which the platform would call a failure
    }
    const int length = static_cast<int>(base.size());
    const int wide = ::MultiByteToWideChar(CP_THREAD_ACP, 0, base.data(), length, nullptr, 0);
    name.resize(static_cast<std::size_t>(wide));
    return wide != 0 && ::MultiByteToWideChar(CP_THREAD_ACP, 0, base.data(), length, name.data(), wide) != 0;
}

} // namespace

DebugLog& DebugLog::Instance() noexcept
{
    static DebugLog log;
    return log;
}

bool DebugLog::Passes(TraceLevel level, bool& answer) noexcept
{
    {
        const Guard guard(&m_stateLock);
        if (!m_bInitialized)
        {
            answer = false;
            return false;
        }
    }
    {
        const Guard guard(&m_stateLock);
        if (!m_bEnabled)
        {
            answer = true;
            return false;
        }
    }
    const Guard guard(&m_stateLock);
    answer = false;
    return (m_nLevelMask & static_cast<std::uint32_t>(level)) != 0;
}

bool DebugLog::Initialize(const std::wstring& moduleName, const Storage::Key& settingsKey,
                          const std::wstring& libraryFolder)
{
    const Guard traceGuard(&m_traceLock);
    m_strModuleName = moduleName;
    DebugLogConfig config{};
    if (!ReadSettings(settingsKey, config))
    {
        return false;
    }
    if (MustOpenLibrary() && !(m_library.Load(libraryFolder) && m_library.OpenLog(config)))
    {
        return false;
    }
    const Guard stateGuard(&m_stateLock);
    m_bInitialized = true;
    return true;
}

bool DebugLog::ReadSettings(const Storage::Key& settingsKey, DebugLogConfig& config)
{
    DebugLogSettings settings;
    if (!ReadDebugLogSettings(settingsKey, m_strModuleName, settings))
    {
        return false;
    }
    config = settings.config;
    const Guard guard(&m_stateLock);
    if (!settings.enabled)
    {
        m_bInitialized = true;
    }
    m_bEnabled = settings.enabled;
    m_nLevelMask = settings.levelMask;
    return true;
}

// Not when tracing is off, nor when the library is open from an earlier start.
bool DebugLog::MustOpenLibrary() noexcept
{
    const Guard guard(&m_stateLock);
    return !m_bInitialized && m_bEnabled;
}

bool DebugLog::Uninitialize()
{
    const Guard traceGuard(&m_traceLock);
    {
        const Guard stateGuard(&m_stateLock);
        if (!m_bInitialized)
        {
            return false;
        }
    }
    m_library.CloseLog();
    const Guard stateGuard(&m_stateLock);
    m_bInitialized = false;
    m_bEnabled = false;
    m_nLevelMask = 0;
    return true;
}

bool DebugLog::Write(const char* sourceFile, std::uint32_t line, TraceLevel level, const wchar_t* format, ...)
{
    std::wstring message;
    try
    {
        std::size_t size = 0;
        for (bool written = false; !written;)
        {
            std::va_list arguments;
            va_start(arguments, format);
            written = String::FormatV(message, size, format, arguments);
            va_end(arguments);
        }
    }
    catch (String::Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        message.clear();
    }
    SYSTEMTIME time{};
    ::GetLocalTime(&time);
    const std::wstring text = ComposeLine(time, level, message, sourceFile, line);
    const Guard guard(&m_traceLock);
    return m_library.WriteLine(time, text.c_str());
}

// Returns an empty line when the memory for it is missing.
std::wstring DebugLog::ComposeLine(const SYSTEMTIME& time, TraceLevel level, const std::wstring& message,
                                   const char* sourceFile, std::uint32_t line) const
{
    try
    {
        std::wstring stamp;
        String::Format(stamp, L"%02d/%02d/%04d %02d:%02d:%02d.%03d", time.wDay, time.wMonth, time.wYear, time.wHour,
                       time.wMinute, time.wSecond, time.wMilliseconds);
        std::wstring identity;
        String::Format(identity, L" %04x:%04x %3s <%s> ", ::GetCurrentProcessId(), ::GetCurrentThreadId(), TagOf(level),
                       m_strModuleName.c_str());
        std::wstring name;
        const wchar_t* const baseName = WidenBaseName(sourceFile, name) ? name.c_str() : nullptr;
        std::wstring origin;
        String::Format(origin, L" - %s(%lu)\r\n", baseName, static_cast<unsigned long>(line));
        return stamp + identity + message + origin;
    }
    catch (String::Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        return {};
    }
}

} // namespace VdCommon
