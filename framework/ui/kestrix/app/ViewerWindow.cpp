#include "framework/ui/kestrix/app/ViewerWindow.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "platform/dialog/ModuleState.h"
#include "resource/resource.h"

#include <string>

HWND FindViewerWindow()
{
    const std::wstring title = LoadText(IDS_FORM_TITLE);
    return title.empty() ? nullptr : FindWindowW(nullptr, title.c_str());
}

void RestoreOrMinimise(HWND window)
{
    if (window == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixApp::CheckInstance() - Cannot find existed window handle!!");
        return;
    }
    VD_TRACE(Info, L"*** CKestrixApp::CheckInstance() - Restore iconic dialog...");
    ShowWindow(window, IsIconic(window) ? SW_RESTORE : SW_SHOWMINNOACTIVE);
    SetForegroundWindow(window);
}

void BringForward(HWND window)
{
    if (window == nullptr)
    {
        return;
    }
    VD_TRACE(Info, L"instance is found");
    if (IsIconic(window))
    {
        ShowWindow(window, SW_RESTORE);
    }
    SetForegroundWindow(window);
}
