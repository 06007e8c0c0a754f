#pragma once

#include "common/VdCommon/VdComn_MuiResource.h"
#include "framework/ui/kestrix/app/DatabaseLibrary.h"
#include "framework/ui/kestrix/app/EventConnection.h"
#include "framework/ui/kestrix/app/RunningCount.h"
#include "framework/ui/kestrix/app/SingleInstance.h"
#include "framework/ui/kestrix/app/page/PageHost.h"
#include "platform/dialog/DialogFramework.h"

#include <cstdint>
#include <string>

// The application: the first thing that runs, and the owner of all that lives as long as the process.
// It reads its command line, runs the form as a modal dialog and ends with it.
class CKestrixApp : public CWinApp, public CPageHost, public CEventHost
{
public:
    CKestrixApp();
    ~CKestrixApp() override;

    // Always false: the process has no other loop than that of the form, and goes straight on to ExitInstance.
    BOOL InitInstance() override;

    // Undoes what InitInstance has come to, however far that is.
    int ExitInstance() override;

    // Help that no window has answered.
    BOOL OnCommand(UINT command) override;

    // Whether this process is the only viewer of its session, which it stays until the object goes. If not, the window
    // of the other one is restored when it was minimised, and minimised when it was not: InitInstance brings it
    // forward.
    bool CheckInstance();

    // Cuts the command line into its six fields and fills the members below. False, with nothing changed, for a line
    // that is empty or has too few fields. A product that shows the report switches m_bLogOnly off after it.
    virtual bool ParseCommandLine();

    // The internal log type of a command code, LogTypeNone for a code without a log. Text that is no number counts as
    // 0.
    static std::uint32_t GetLogTypeFromCommandLine(const std::wstring& text);

    // The days that a report covers, as the service framework says: 3 to 30, and 7 for any other answer or none.
    std::uint32_t GetReportSpan();

    // Makes the event sink and connects it. False when that fails; the program works without events.
    bool InitializeEventObject();

    // Disconnects the sink, which stays for late events. False when there is none or it fails.
    bool UninitializeEventObject();

    // Loads the database library and starts its provider. On a failure nothing of it is left running; a second call
    // does nothing and succeeds.
    HRESULT InitializeOrlDbMgLibrary();

    // The reverse; it stops at the first failure. Success when there is no provider.
    HRESULT UnInitializeOrlDbMgLibrary();

    std::wstring m_strLogPath;    // path or pattern of the daily files when the records come from files
    std::wstring m_strLocalIp;    // shown by the firewall log in place of the local address
    std::uint32_t m_nLogType = 0; // internal log type
    bool m_bIsLocal = false;      // records come from the database; false: from daily files
    bool m_bLogOnly = false;      // the form has the viewer page only
    std::uint32_t m_nReportSpan = 0;
    CKestrixDlg* m_pLogDlg = nullptr; // the viewer page while there is one; not owned

private:
    // CPageHost: the page is m_pLogDlg until the form goes.
    IDBManagerProvider* TakePage(CKestrixDlg& page) override;

    // CEventHost
    void Exit() override;
    void RefreshPage() override;

    bool LoadResources();
    bool StartUserInterface();
    void RunForm(bool limitReached);

    // What still stands when the application goes ends in the reverse of this order.
    CSingleInstance m_SingleInstance;
    CEventConnection m_Events{*this};
    CRunningCount m_RunningCount;
    VdCommon::Library::MuiResource m_MuiResource;
    CDatabaseLibrary m_DatabaseLibrary;

public:
    IDBManagerProvider* m_pIDBManagerProvider = nullptr; // belongs to the library; null while there is none
};
