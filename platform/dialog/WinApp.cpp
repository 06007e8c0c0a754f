#include "platform/dialog/WinApp.h"

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/FrameworkState.h"
#include "platform/dialog/MessageLoop.h"
#include "platform/dialog/Ole.h"

#include <utility>

CWinApp::CWinApp(std::wstring name) : m_pszAppName(std::move(name))
{
    GetFrameworkState().pApp = this;
}

CWinApp::~CWinApp()
{
    GetFrameworkState().pApp = nullptr;
}

int CWinApp::Run()
{
    int exitCode = 0;
    RunMessageLoop(
        nullptr, [] { return false; }, exitCode);
    return exitCode;
}

void CWinApp::OnHandlerException(const std::exception_ptr& exception)
{
    ShowHandlerException(exception);
}

CWinApp* AfxGetApp() noexcept
{
    return GetFrameworkState().pApp;
}

namespace
{

// InitInstance and Run; an exception of either is reported and returns -1.
int RunApplication(CWinApp& app, const wchar_t* commandLine)
{
    try
    {
        app.m_strCmdLine = commandLine != nullptr ? commandLine : L"";
        return app.InitInstance() ? app.Run() : 0;
    }
    catch (...)
    {
        ReportHandlerException(std::current_exception());
        return -1;
    }
}

int EndApplication(CWinApp& app)
{
    try
    {
        return app.ExitInstance();
    }
    catch (...)
    {
        ReportHandlerException(std::current_exception());
        return -1;
    }
}

} // namespace

int AfxWinMain(HINSTANCE, const wchar_t* commandLine, int show)
{
    CWinApp* const app = AfxGetApp();
    if (app == nullptr)
    {
        return -1;
    }
    app->m_nShow = show;
    app->m_nExitCode = RunApplication(*app, commandLine);
    const int exitCode = EndApplication(*app);
    AfxOleTerm();
    return exitCode;
}

HWND AfxGetModalOwner() noexcept
{
    const CWinApp* const app = AfxGetApp();
    const HWND main = app != nullptr && app->m_pMainWnd != nullptr ? app->m_pMainWnd->GetSafeHwnd() : nullptr;
    // What stands modal above the main window has disabled it. The dialog that asks for a text to find stands beside
    // it.
    if (main == nullptr || ::IsWindowEnabled(main))
    {
        return main;
    }
    // The last popup may be a dialog that is hidden already and not yet gone.
    const HWND popup = ::GetLastActivePopup(main);
    return ::IsWindowVisible(popup) && ::IsWindowEnabled(popup) ? popup : main;
}

int AfxMessageBox(const std::wstring& text, UINT flags)
{
    const CWinApp* const app = AfxGetApp();
    return ShowMessageBox(AfxGetModalOwner(), text, app != nullptr ? app->m_pszAppName : std::wstring(), flags);
}

int ShowMessageBox(HWND owner, const std::wstring& text, const std::wstring& title, UINT flags)
{
    return ::MessageBoxW(owner, text.c_str(), title.c_str(), flags);
}
