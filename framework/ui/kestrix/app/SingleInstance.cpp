#include "framework/ui/kestrix/app/SingleInstance.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <string>

namespace
{

constexpr wchar_t InstanceMutexName[] = L"FRWK_MUTEX_KESTRIX";

// The top-level window with exactly the form's title; null when there is none, or the title has no text.
HWND FindViewerWindow()
{
    const std::wstring title = LoadText(IDS_FORM_TITLE);
    return title.empty() ? nullptr : ::FindWindowW(nullptr, title.c_str());
}

void RestoreOrMinimise(HWND window)
{
    if (window == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixApp::CheckInstance() - Cannot find existed window handle!!");
        return;
    }
    VD_TRACE(Info, L"*** CKestrixApp::CheckInstance() - Restore iconic dialog...");
    ::ShowWindow(window, ::IsIconic(window) ? SW_RESTORE : SW_SHOWMINNOACTIVE);
    ::SetForegroundWindow(window);
}

} // namespace

bool CSingleInstance::Take()
{
    VD_TRACE(Flow, L"[Enter] CKestrixApp::CheckInstance()...");
    const bool isOnly = m_InstanceMutex.Create(InstanceMutexName, true, false);
    if (!isOnly)
    {
        VD_TRACE(Info, L"local mutex has already existed.");
        RestoreOrMinimise(FindViewerWindow());
    }
    VD_TRACE(Flow, L"[Leave] CKestrixApp::CheckInstance()...");
    return isOnly;
}

void CSingleInstance::BringOtherForward()
{
    const HWND window = FindViewerWindow();
    if (window == nullptr)
    {
        return;
    }
    VD_TRACE(Info, L"instance is found");
    if (::IsIconic(window))
    {
        ::ShowWindow(window, SW_RESTORE);
    }
    ::SetForegroundWindow(window);
}
