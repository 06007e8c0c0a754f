#include "framework/ui/kestrix/app/Kestrix.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/app/LogFormDlg.h"

#include <commctrl.h>

namespace
{

constexpr wchar_t AppName[] = L"Kestrix";

constexpr wchar_t TraceKey[] = L"Software\\Veldrane\\Zeptara\\17\\DebugLog";
constexpr wchar_t TraceLibraryFolder[] = L".\\";

} // namespace

CKestrixApp::CKestrixApp() : CWinApp(AppName) {}

BOOL CKestrixApp::InitInstance()
{
    if (!m_MuiResource.Load())
    {
        OutputDebugStringW(L"Failed to load MUI resource");
        return FALSE;
    }
    AfxSetResourceHandle(m_MuiResource.Module());

    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    CWinApp::InitInstance();
    if (!AfxOleInit())
    {
        return FALSE;
    }
    VdCommon::DebugLog::Instance().Initialize(AppName, VdCommon::Storage::Key::InRegistry(HKEY_LOCAL_MACHINE, TraceKey),
                                              TraceLibraryFolder);
    VD_TRACE(Flow, L"[InitInstance] ...Enter...");

    VD_TRACE(Info, L"cmd param: [%s]", m_strCmdLine);
    if (!ParseCommandLine())
    {
        VD_TRACE(Error, L"[InitInstance] Invalid Command Line: [%s]", m_strCmdLine);
        return FALSE;
    }

    CLogFormDlg form;
    form.m_strLogPath = m_strLogPath;
    form.m_strLocalIp = m_strLocalIp;
    form.m_nLogType = m_nLogType;
    form.m_bIsLocal = m_bIsLocal;
    form.m_bLogOnly = m_bLogOnly;
    form.m_nReportSpan = m_nReportSpan;
    m_pMainWnd = &form;
    const INT_PTR nResponse = form.DoModal();
    if (nResponse != IDOK && nResponse != IDCANCEL)
    {
        VD_TRACE(Error,
                 L"*** CKestrixApp::InitInstance() - CLogFormDlg.DoModal() failed. nResponse = [%d], "
                 L"GetLastError = [0x%08x]",
                 static_cast<int>(nResponse), GetLastError());
    }
    m_pMainWnd = nullptr;
    m_pLogDlg = nullptr;
    return FALSE;
}

int CKestrixApp::ExitInstance()
{
    VD_TRACE(Flow, L"[Leave] CKestrixApp::ExitInstance()...");
    VD_TRACE(Info, L"***Kestrix.exe was terminated.");
    VdCommon::DebugLog::Instance().Uninitialize();
    return CWinApp::ExitInstance();
}
