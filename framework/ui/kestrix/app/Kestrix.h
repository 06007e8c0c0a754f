#pragma once

#include "common/VdCommon/VdComn_MuiResource.h"
#include "platform/dialog/DialogFramework.h"

#include <cstdint>
#include <string>

class CKestrixDlg;

// The application: the first thing that runs, and the owner of all that lives as long as the process.
// It reads its command line, runs the form as a modal dialog and ends with it.
class CKestrixApp : public CWinApp
{
public:
    CKestrixApp();

    // Always false: the process has no other loop than that of the form, and goes straight on to ExitInstance.
    BOOL InitInstance() override;
    int ExitInstance() override;

    // Cuts the command line into its six fields and fills the members below. False, with nothing changed, for a line
    // that is empty or has too few fields.
    bool ParseCommandLine();

    // The internal log type of a command code, LogTypeNone for a code without a log. Text that is no number counts as
    // 0.
    static std::uint32_t GetLogTypeFromCommandLine(const std::wstring& text);

    // The days that a report covers.
    std::uint32_t GetReportSpan();

    std::wstring m_strLogPath;    // path or pattern of the daily files when the records come from files
    std::wstring m_strLocalIp;    // shown by the firewall log in place of the local address
    std::uint32_t m_nLogType = 0; // internal log type
    bool m_bIsLocal = false;      // records come from the database; false: from daily files
    bool m_bLogOnly = false;      // the form has the viewer page only
    std::uint32_t m_nReportSpan = 0;
    CKestrixDlg* m_pLogDlg = nullptr; // the viewer page while there is one; not owned

private:
    VdCommon::Library::MuiResource m_MuiResource;
};
