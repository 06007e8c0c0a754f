// The form's Export button: asks for a file and has the log write what the page has loaded.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Wow64FsRedir.h"
#include "framework/ui/kestrix/app/ExportTarget.h"
#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/FileDialog.h"
#include "platform/dialog/ResourceText.h"
#include "platform/dialog/WinApp.h"
#include "resource/resource.h"

#include <optional>

namespace
{

constexpr wchar_t DefaultExtension[] = L"CSV";
constexpr DWORD DialogFlags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST;

// The trace lines around the flow, however it is left.
class FlowTrace
{
public:
    FlowTrace() { VD_TRACE(Flow, L"[Enter] %s()...", Name); }

    ~FlowTrace() { VD_TRACE(Flow, L"[Leave] %s()...", Name); }

    FlowTrace(const FlowTrace&) = delete;
    FlowTrace& operator=(const FlowTrace&) = delete;

private:
    static constexpr wchar_t Name[] = L"CLogFormDlg::OnBnClickedBtnExport";
};

// Lets a 32-bit process on a 64-bit system see the real folders. The library comes from the 32-bit folder, where it
// can't be found any more once redirection is off.
void ShowRealFolders(CWow64FsRedir& redirection)
{
    if (redirection.IsWow64())
    {
        redirection.LoadSystemLibrary(L"setupapi.dll");
        redirection.Disable();
    }
}

// Asks for the file until the user takes a path, and a long one a second time; nothing when the dialog is cancelled.
std::optional<std::wstring> AskForPath(CFileDialog& dialog)
{
    while (dialog.DoModal() == IDOK)
    {
        const DWORD filter = dialog.GetFilterIndex();
        std::wstring path = WithFilterExtension(WithExtensionSpelt(dialog.GetPathName(), filter), filter);
        if (path.size() < MAX_PATH || AfxMessageBox(LoadText(IDS_EXPORT_LONG_PATH), MB_YESNO) == IDYES)
        {
            return path;
        }
    }
    return std::nullopt;
}

} // namespace

void CLogFormDlg::OnBnClickedBtnExport()
{
    const FlowTrace trace;
    CSortListCtrl& list = m_LogPage.RecordList();
    if (list.GetItemCount() == 0)
    {
        AfxMessageBox(LoadText(IDS_EXPORT_NO_ENTRIES));
        list.SetFocus();
        return;
    }
    const std::wstring date = m_LogPage.SelectedDate();
    const std::wstring folder = DocumentsFolder();
    CWow64FsRedir redirection;
    ShowRealFolders(redirection);
    CFileDialog dialog(DefaultExtension, DialogFlags, LoadText(IDS_EXPORT_FILTER), m_hWnd);
    dialog.m_strTitle = LoadText(IDS_EXPORT_DIALOG_TITLE);
    dialog.m_strInitialFolder = folder;
    const std::optional<std::wstring> path = AskForPath(dialog);
    if (!path)
    {
        return;
    }
    list.SetFocus();

    std::uint32_t error = 0;
    bool done = false;
    {
        const CWaitCursor wait;
        // The writer keeps this thread to itself, so the hole that the dialog leaves is painted before. A million
        // records are written long before the system takes the window for hung, so nothing is done against that.
        RedrawWindow(RDW_UPDATENOW | RDW_ALLCHILDREN);
        CZPTLogBase* const log = m_LogPage.Log(); // another one than before, when a purge ended meanwhile
        done = log != nullptr && log->ExportLog(*path, m_nLogType, date.c_str(), m_strLocalIp.c_str(), &error);
    }
    if (!done)
    {
        AfxMessageBox(LoadText(error == CZPTLogBase::ExportDiskFull ? IDS_EXPORT_DISK_FULL : IDS_EXPORT_FAILED));
        list.SetFocus();
    }
}
