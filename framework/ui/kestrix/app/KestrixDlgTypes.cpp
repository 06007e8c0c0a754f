// The page's choice of logs: the entries of the type combo, the switch to another log, and the titles of messages.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/app/DailyFiles.h"
#include "framework/ui/kestrix/app/KestrixDlg.h"
#include "framework/ui/kestrix/app/ProductName.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "resource/resource.h"

namespace
{

constexpr wchar_t InstallerKey[] = L"Software\\Veldrane\\Zeptara\\17\\Installer";

constexpr UINT InfoControls[] = {
    IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2,
    IDC_INFO_VALUE_3,      IDC_INFO_VALUE_4,      IDC_INFO_VALUE_5, IDC_INFO_VALUE_6,
};

bool IsInstalled(const LogKind& kind)
{
    return kind.installedValue == nullptr ||
           VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, InstallerKey, kind.installedValue, 0U) != 0;
}

} // namespace

void CKestrixDlg::FillLogTypeCombo()
{
    if (m_pParentForm == nullptr)
    {
        return;
    }
    for (const LogKind& kind : LogKinds())
    {
        if (!IsInstalled(kind))
        {
            continue;
        }
        const int index = m_TypeCombo.AddString(LoadText(kind.choice));
        m_TypeCombo.SetItemData(index, kind.type);
        m_mapTypeIndex[kind.type] = static_cast<std::uint32_t>(index);
    }
}

// A type that has no entry selects the first one.
void CKestrixDlg::SelectLogType(std::uint32_t type)
{
    const auto found = m_mapTypeIndex.find(type);
    m_TypeCombo.SetCurSel(found == m_mapTypeIndex.end() ? 0 : static_cast<int>(found->second));
}

// The values of the detail pane without texts and tips.
void CKestrixDlg::ClearInfo()
{
    for (const UINT value : InfoControls)
    {
        SetInfo(value, {}, {});
    }
}

void CKestrixDlg::OnBnClickedBtnView()
{
    VD_TRACE(Flow, L"[Enter] CKestrixDlg::OnBnClickedBtnView()");
    Invalidate();
    if (!m_bIsLocal)
    {
        ShowMessageBox(GetSafeHwnd(), LoadText(IDS_ONLY_THIS_FILE), GetProductName(), MB_ICONINFORMATION);
        VD_TRACE(Flow, L"[Leave] CKestrixDlg::OnBnClickedBtnView()");
        return;
    }
    const auto type = static_cast<std::uint32_t>(m_TypeCombo.GetItemData(m_TypeCombo.GetCurSel()));
    if (type == m_nLogType)
    {
        return;
    }
    m_nLogType = type;
    if (m_nLogType > LogTypeNone)
    {
        return;
    }
    ClearInfo();
    ShowInfo(IDC_ALLOW, false);
    ShowInfo(IDC_ALLOW_LABEL, false);
    ShowShortInfo();
    RefreshLog(AnyReason);
    VD_TRACE(Flow, L"[Leave] CKestrixDlg::OnBnClickedBtnView()");
}

// The rows point to the log's records, and so go with it.
void CKestrixDlg::RemoveLog()
{
    m_RecordList.DeleteAllItems();
    m_pLogData.reset();
}

void CKestrixDlg::RefreshLog(int)
{
    const CWaitCursor wait;
    CWindow(GetDlgItem(IDC_INFO_VALUE_0_LINK)).EnableWindow();
    ShowInfo(IDC_INFO_VALUE_0_LINK, false);
    PlaceFirstText(1);
    ShowInfo(IDC_INFO_VALUE_0_TEXT, false);
    RemoveLog();
    if (!MakeLog())
    {
        return;
    }
    for (int column = m_RecordList.SortHeader().GetItemCount(); column > 0; --column)
    {
        m_RecordList.DeleteColumn(0);
    }
    SetUpLog();
    FillDate();
    ShowFirstDate();
    KeepFocusUsable();
}

// Loads the newest date. A path of files without any is told to the user and cancels the page: false.
bool CKestrixDlg::ShowFirstDate()
{
    if (m_DateList.GetCount() == 0 && !m_bIsLocal)
    {
        ShowLogMessage(LoadText(HasForeignLogFile(m_strLogPath) ? IDS_NOT_A_LOG_FILE : IDS_NO_LOG_FILE));
        OnCancel();
        return false;
    }
    m_DateList.SetCurSel(0);
    OnSelchangeLogDate();
    return true;
}

void CKestrixDlg::ShowLogMessage(const std::wstring& text) const
{
    const LogKind* const kind = FindLogKind(m_nLogType);
    const std::wstring title = kind == nullptr ? std::wstring() : LoadText(kind->messageTitle);
    ShowMessageBox(nullptr, text, title, MB_ICONINFORMATION);
}
