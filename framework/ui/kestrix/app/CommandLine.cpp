// The command line: target %| log type %| local address %| log path %| unused %| number

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/logs/LogKinds.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <iterator>

namespace
{

constexpr std::wstring_view Separator = L"%|";

// A target is compared up to this length, more than the literal has: the whole field counts.
constexpr wchar_t LocalTarget[] = L"LocalLog";
constexpr std::size_t TargetLimit = 18;

enum FieldIndex
{
    TargetField,
    LogTypeField,
    LocalAddressField,
    LogPathField,
    UnusedField,
    NumberField,
    FieldCount,
};

// Cuts the line at its first five separators; what follows them is the last field. False when one is missing.
bool CutFields(const std::wstring& line, std::array<std::wstring, FieldCount>& fields)
{
    std::size_t start = 0;
    for (int i = 0; i < FieldCount - 1; ++i)
    {
        const std::size_t found = line.find(Separator, start);
        if (found == line.npos)
        {
            return false;
        }
        fields[i] = line.substr(start, found - start);
        start = found + Separator.size();
    }
    fields[NumberField] = line.substr(start);
    return true;
}

} // namespace

bool CKestrixApp::ParseCommandLine()
{
    VD_TRACE(Flow, L"param: %s", m_strCmdLine);
    if (m_strCmdLine.empty())
    {
        VD_TRACE(Error, L"[ZptLog] CmdLine length = 0");
        return false;
    }
    std::array<std::wstring, FieldCount> fields;
    if (!CutFields(m_strCmdLine, fields))
    {
        VD_TRACE(Error, L"[ZptLog] No separater in CmdLine. [%s]", m_strCmdLine);
        return false;
    }
    const std::wstring& strTarget = fields[TargetField];
    m_strLocalIp = fields[LocalAddressField];
    m_strLogPath = fields[LogPathField];
    m_bLogOnly = true;

    // The number was the report span once; the settings of the framework have replaced it.
    m_nReportSpan = static_cast<std::uint32_t>(VdCommon::WideToInteger(fields[NumberField]));
    m_nReportSpan = GetReportSpan();

    m_bIsLocal = _wcsnicmp(strTarget.c_str(), LocalTarget, TargetLimit) == 0;
    VD_TRACE(Info, L"m_bIsLocal in command line: [%d], strTarget[%s] ZPT_LOG_TARGET_LOCAL[%s]", m_bIsLocal, strTarget,
             LocalTarget);
    VD_TRACE(Info, L"Log type in command line: [%s]", fields[LogTypeField]);
    m_nLogType = GetLogTypeFromCommandLine(fields[LogTypeField]);
    return true;
}

std::uint32_t CKestrixApp::GetLogTypeFromCommandLine(const std::wstring& text)
{
    const auto kind = std::ranges::find(LogKinds(), VdCommon::WideToInteger(text), &LogKind::commandCode);
    return kind == LogKinds().end() ? LogTypeNone : kind->type;
}
