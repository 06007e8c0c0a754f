#include "suite/VdDbg/Log.h"

#include "suite/VdDbg/Utf8.h"

namespace VdDbg
{

Log::Log(const DebugLogConfig& config) : m_file(LogName(config), config.robust), m_bDebugger(config.debugger) {}

DWORD Log::Open()
{
    return m_file.Open();
}

DWORD Log::Write(const SYSTEMTIME& time, const wchar_t* line)
{
    if (*line == L'\0')
    {
        return ERROR_SUCCESS;
    }
    if (m_bDebugger)
    {
        OutputDebugStringW(line);
    }
    return m_file.Append(time, Utf8(line));
}

} // namespace VdDbg
