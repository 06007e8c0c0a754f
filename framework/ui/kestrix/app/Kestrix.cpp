#include "framework/ui/kestrix/app/Kestrix.h"

#include "common/Frwk_Utility.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Number.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/app/CommandLine.h"
#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "framework/ui/kestrix/app/ReportSpan.h"
#include "resource/resource.h"

#include <commctrl.h>

namespace
{

constexpr wchar_t AppName[] = L"Kestrix";

constexpr wchar_t TraceKey[] = L"Software\\Veldrane\\Zeptara\\17\\DebugLog";
constexpr wchar_t TraceLibraryFolder[] = L".\\";

constexpr DWORD RetryForEver = static_cast<DWORD>(-1);

} // namespace

CKestrixApp::CKestrixApp() : CWinApp(AppName) {}

CKestrixApp::~CKestrixApp() = default;

BOOL CKestrixApp::InitInstance()
{
    if (!LoadResources() || !StartUserInterface())
    {
        return FALSE;
    }
    VdCommon::DebugLog::Instance().Initialize(AppName, VdCommon::Storage::Key::InRegistry(HKEY_LOCAL_MACHINE, TraceKey),
                                              TraceLibraryFolder);
    VD_TRACE(Flow, L"[InitInstance] ...Enter...");
    if (!CheckInstance())
    {
        VD_TRACE(Info, L"[InitInstance] Failed, Instance has already existed");
        CSingleInstance::BringOtherForward();
        return FALSE;
    }
    VD_TRACE(Info, L"cmd param: [%s]", m_strCmdLine);
    if (!ParseCommandLine())
    {
        VD_TRACE(Error, L"[InitInstance] Invalid Command Line: [%s]", m_strCmdLine);
        return FALSE;
    }
    if (!InitializeEventObject())
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitInstance() - this->InitializeEventObject() failed.");
    }
    const CRunningCount::Answer count = m_RunningCount.Take(m_pszAppName);
    if (count == CRunningCount::Answer::NameInUse)
    {
        AfxMessageBox(LoadText(IDS_NAME_IN_USE), MB_ICONERROR);
    }
    if (count == CRunningCount::Answer::NameInUse || count == CRunningCount::Answer::LimitIsShown)
    {
        return FALSE;
    }
    if (const HRESULT hr = InitializeOrlDbMgLibrary(); FAILED(hr))
    {
        VD_TRACE(Error, L"*** CKestrixApp::InitInstance() - InitializeOrlDbMgLibrary() failed. [0x%08x]", hr);
        return FALSE;
    }
    RunForm(count == CRunningCount::Answer::LimitReached);
    return FALSE;
}

// The language of the installation when it tells one. The debug log does not exist yet.
bool CKestrixApp::LoadResources()
{
    if (const std::wstring language = Frwk::Utility::GetLangName(); !language.empty())
    {
        m_MuiResource.SetLanguage(language);
    }
    if (!m_MuiResource.Load())
    {
        OutputDebugStringW(L"Failed to load MUI resource");
        return false;
    }
    AfxSetResourceHandle(m_MuiResource.Module());
    return true;
}

// No AfxEnableControlContainer: the dialogs of the program host no OLE controls.
bool CKestrixApp::StartUserInterface()
{
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    CWinApp::InitInstance();
    if (!AfxOleInit())
    {
        return false;
    }
    AfxOleGetMessageFilter().SetRetryReply(RetryForEver);
    m_nThreadID = GetCurrentThreadId();
    return true;
}

bool CKestrixApp::CheckInstance()
{
    return m_SingleInstance.Take();
}

bool CKestrixApp::ParseCommandLine()
{
    VD_TRACE(Flow, L"param: %s", m_strCmdLine);
    if (m_strCmdLine.empty())
    {
        VD_TRACE(Error, L"[ZptLog] CmdLine length = 0");
        return false;
    }
    const std::optional<CommandLine> line = CutCommandLine(m_strCmdLine);
    if (!line)
    {
        VD_TRACE(Error, L"[ZptLog] No separater in CmdLine. [%s]", m_strCmdLine);
        return false;
    }
    m_strLocalIp = line->localAddress;
    m_strLogPath = line->logPath;
    m_bLogOnly = true;

    // The number was the report span once; the settings of the framework have replaced it.
    m_nReportSpan = static_cast<std::uint32_t>(VdCommon::WideToInteger(line->number));
    m_nReportSpan = GetReportSpan();

    m_bIsLocal = IsLocalTarget(line->target);
    VD_TRACE(Info, L"m_bIsLocal in command line: [%d], strTarget[%s] ZPT_LOG_TARGET_LOCAL[%s]", m_bIsLocal,
             line->target, LocalTarget);
    VD_TRACE(Info, L"Log type in command line: [%s]", line->logType);
    m_nLogType = GetLogTypeFromCommandLine(line->logType);
    return true;
}

std::uint32_t CKestrixApp::GetLogTypeFromCommandLine(const std::wstring& text)
{
    return LogTypeOfCode(text);
}

std::uint32_t CKestrixApp::GetReportSpan()
{
    return QueryReportSpan();
}

bool CKestrixApp::InitializeEventObject()
{
    return m_Events.Connect();
}

bool CKestrixApp::UninitializeEventObject()
{
    return m_Events.Disconnect();
}

HRESULT CKestrixApp::InitializeOrlDbMgLibrary()
{
    return m_DatabaseLibrary.Start(m_pIDBManagerProvider);
}

HRESULT CKestrixApp::UnInitializeOrlDbMgLibrary()
{
    return m_DatabaseLibrary.Stop(m_pIDBManagerProvider);
}

void CKestrixApp::RunForm(bool limitReached)
{
    CLogFormDlg form;
    form.m_strLogPath = m_strLogPath;
    form.m_strLocalIp = m_strLocalIp;
    form.m_bMaxCountReached = limitReached;
    form.m_nLogType = m_nLogType;
    form.m_bIsLocal = m_bIsLocal;
    form.m_bLogOnly = m_bLogOnly;
    form.m_nReportSpan = m_nReportSpan;
    form.m_pPageHost = this;

    // Nobody reaches the form and its page through the application when they go, whichever way.
    struct MainWindow
    {
        CKestrixApp& app;

        ~MainWindow()
        {
            app.m_pMainWnd = nullptr;
            app.m_pLogDlg = nullptr;
        }
    };

    const MainWindow main{*this};
    m_pMainWnd = &form;
    const INT_PTR nResponse = form.DoModal();
    if (nResponse != IDOK && nResponse != IDCANCEL)
    {
        VD_TRACE(Error,
                 L"*** CKestrixApp::InitInstance() - CLogFormDlg.DoModal() failed. nResponse = [%d], "
                 L"GetLastError = [0x%08x]",
                 static_cast<int>(nResponse), GetLastError());
    }
}

IDBManagerProvider* CKestrixApp::TakePage(CKestrixDlg& page)
{
    m_pLogDlg = &page;
    return m_pIDBManagerProvider;
}

// Nothing is cleaned up: the framework goes away, and whatever waits for it would wait for ever.
void CKestrixApp::Exit()
{
    ExitProcess(0);
}

void CKestrixApp::RefreshPage()
{
    if (m_pLogDlg != nullptr && m_pLogDlg->GetSafeHwnd() != nullptr)
    {
        m_pLogDlg->RefreshLog(CKestrixDlg::AnyReason);
    }
}

BOOL CKestrixApp::OnCommand(UINT command)
{
    if (command != ID_HELP)
    {
        return CWinApp::OnCommand(command);
    }
    CLogFormDlg::extHtmlHelp(0);
    return TRUE;
}

int CKestrixApp::ExitInstance()
{
    if (!UninitializeEventObject())
    {
        VD_TRACE(Error, L"*** CKestrixApp::ExitInstance() - this->UninitializeEventObject() failed.");
    }
    m_RunningCount.GiveBack();
    if (const HRESULT hr = UnInitializeOrlDbMgLibrary(); FAILED(hr))
    {
        VD_TRACE(Error, L"*** CKestrixApp::ExitInstance() - UnInitializeOrlDbMgLibrary() failed. [0x%08x]", hr);
    }
    VD_TRACE(Flow, L"[Leave] CKestrixApp::ExitInstance()...");
    VD_TRACE(Info, L"***Kestrix.exe was terminated.");
    VdCommon::DebugLog::Instance().Uninitialize();
    return CWinApp::ExitInstance();
}
