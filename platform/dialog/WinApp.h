#pragma once

#include "platform/dialog/Wnd.h"

#include <exception>
#include <string>

// The command for help, which a window leaves to the application where it has no answer of its own.
inline constexpr UINT ID_HELP = 57670;

// The application. One object at a time; it is what AfxGetApp returns while it lives.
class CWinApp
{
public:
    explicit CWinApp(std::wstring name = {});
    virtual ~CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    virtual BOOL InitInstance() { return TRUE; } // TRUE: go on with Run

    virtual int Run(); // dispatches messages until WM_QUIT; returns its exit code

    virtual int ExitInstance() { return m_nExitCode; }

    // A menu command or a click that no window's map answers. TRUE: it is dealt with.
    virtual BOOL OnCommand(UINT) { return FALSE; }

    // An exception that left a handler. An override takes what it knows, destroys what was thrown as a pointer, and
    // leaves the rest to the base, which calls ShowHandlerException.
    virtual void OnHandlerException(const std::exception_ptr& exception);

    std::wstring m_pszAppName;
    std::wstring m_strCmdLine;   // after the program's name, as wWinMain gets it
    CWnd* m_pMainWnd = nullptr;  // not owned
    DWORD m_nThreadID = 0;       // of the user interface, once that has started
    int m_nShow = SW_SHOWNORMAL; // how the main window is to appear
    int m_nExitCode = 0;         // of Run; 0 when InitInstance gave FALSE, -1 when one of them threw
};

// The application object; null when there is none.
CWinApp* AfxGetApp() noexcept;

// The whole life of the process: InitInstance, Run when it gave TRUE, and always ExitInstance, whose result it returns.
// An exception is reported, and the end goes on. -1 when ExitInstance threw, and when there is no application object.
int AfxWinMain(HINSTANCE instance, const wchar_t* commandLine, int show);

// The window that a box or a modal dialog belongs to: the application's main window or what stands modal above it.
HWND AfxGetModalOwner() noexcept;

// A message box with the application's name as title, owned by AfxGetModalOwner. flags and result: those of MessageBox.
int AfxMessageBox(const std::wstring& text, UINT flags = MB_OK);

// A message box with this owner, which may be null.
int ShowMessageBox(HWND owner, const std::wstring& text, const std::wstring& title, UINT flags);

// The wait cursor while the object lives. Objects may be nested.
class CWaitCursor
{
public:
    CWaitCursor() noexcept : m_hPrevious(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}

    ~CWaitCursor() { SetCursor(m_hPrevious); }

    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

private:
    const HCURSOR m_hPrevious;
};
