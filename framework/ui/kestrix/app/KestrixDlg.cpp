#include "framework/ui/kestrix/app/KestrixDlg.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/app/ProductName.h"
#include "framework/ui/kestrix/app/PushButtonSkin.h"
#include "framework/ui/kestrix/app/page/PageHost.h"
#include "framework/ui/kestrix/app/page/PurgeFlow.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "resource/resource.h"

#include <utility>

CKestrixDlg::CKestrixDlg() : CBitmapDialog(IDD_LOG_PAGE) {}

CKestrixDlg::~CKestrixDlg() = default;

const MessageMap& CKestrixDlg::Map()
{
    static constexpr auto rows =
        MessageRows(On::Message<WM_SHOWWINDOW, &CKestrixDlg::OnShowWindow>,
                    On::Control<LBN_SELCHANGE, IDC_DATE_LIST, &CKestrixDlg::OnSelchangeLogDate>,
                    On::Notify<LVN_GETDISPINFOW, IDC_RECORD_LIST, &CKestrixDlg::OnGetDispInfoLogList>,
                    On::Notify<NM_CLICK, IDC_RECORD_LIST, &CKestrixDlg::OnClickLogList>,
                    On::Notify<LVN_ITEMCHANGED, IDC_RECORD_LIST, &CKestrixDlg::OnItemChangedLogList>,
                    On::Message<CSelectionFollower::Message, &CKestrixDlg::OnFollowSelection>,
                    On::Message<WM_CONTEXTMENU, &CKestrixDlg::OnContextMenu>,
                    On::Notify<LVN_COLUMNCLICK, IDC_RECORD_LIST, &CKestrixDlg::OnColumnClickLogList>,
                    On::Control<STN_CLICKED, IDC_INFO_VALUE_2, &CKestrixDlg::OnStnClickedMoreInfo>,
                    On::Control<STN_CLICKED, IDC_INFO_VALUE_0_LINK, &CKestrixDlg::OnStnClickedTypesValue>,
                    On::Command<IDC_ALLOW, &CKestrixDlg::OnBnClickedBtnAddRule>,
                    On::Command<IDC_VIEW, &CKestrixDlg::OnBnClickedBtnView>,
                    On::Command<IDC_SETTING, &CKestrixDlg::OnBnClickedBtnSetting>);
    static constexpr MessageMap map{rows, &CBitmapDialog::Map};
    return map;
}

void CKestrixDlg::DoDataExchange(CDataExchange& exchange)
{
    CBitmapDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_DATE_LIST, m_DateList);
    DDX_Control(exchange, IDC_RECORD_LIST, m_RecordList);
    DDX_Control(exchange, IDC_LOG_TYPE, m_TypeCombo);
    m_DetailPane.DoDataExchange(exchange);
    DDX_Control(exchange, IDC_VIEW, m_ViewButton);
    DDX_Control(exchange, IDC_SETTING, m_SettingButton);
    m_Headings.DoDataExchange(exchange);
    m_Finder.DoDataExchange(exchange);
}

BOOL CKestrixDlg::OnInitDialog()
{
    const CWaitCursor wait;
    VD_TRACE(Flow, L"[Enter] %s()...", L"CKestrixDlg::OnInitDialog");
    CBitmapDialog::OnInitDialog();
    SetBackground(IDB_BACKGROUND);
    m_SolidBrush.CreateSolidBrush(SkinColour::Ground);
    m_bSolidBackground = true;
    m_Headings.Start();
    m_Finder.Start();
    SetSkin(m_ViewButton, true);
    SetSkin(m_SettingButton, true);
    SetFonts();
    m_DetailPane.Start();
    bool isShown = false;
    m_Operations.Run([&] { isShown = TakeProvider() && MakeLog() && ShowFirstDate(); });
    if (!isShown)
    {
        return FALSE;
    }
    FillLogTypeCombo();
    m_TypeCombo.Select(m_nLogType);
    if (!m_bIsLocal)
    {
        m_DeleteButton.EnableWindow(false);
        m_SettingButton.EnableWindow(false);
    }
    return TRUE;
}

// Makes the page known to its host and takes the provider from it; false when there is none.
bool CKestrixDlg::TakeProvider()
{
    if (m_pHost != nullptr)
    {
        m_pIDBManagerProvider = m_pHost->TakePage(*this);
    }
    if (m_pIDBManagerProvider == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixDlg::OnInitDialog() - m_pIDBManagerProvider is NULL.");
        return false;
    }
    return true;
}

void CKestrixDlg::SetFonts()
{
    for (const UINT control : CDetailPane::BoldControls())
    {
        SetControlFont(control, FW_BOLD);
    }
    SetControlFont(IDC_INFO_VALUE_0_LINK, FW_NORMAL, true);
    SetTextColour(IDC_INFO_VALUE_0_LINK, SkinColour::Link);
}

// Lists the dates and loads the newest. A path of files without any is told to the user and cancels the page: false.
bool CKestrixDlg::ShowFirstDate()
{
    FillDate();
    if (m_DateList.GetCount() == 0 && !m_bIsLocal)
    {
        ShowLogMessage(LoadText(HasForeignLogFile() ? IDS_NOT_A_LOG_FILE : IDS_NO_LOG_FILE));
        OnCancel();
        return false;
    }
    m_DateList.SetCurSel(0);
    m_bLoadDue = m_bLoadWhenShown && (m_bIsLocal || m_DateList.HasLongFiles());
    if (!m_bLoadDue)
    {
        OnSelchangeLogDate();
    }
    return true;
}

void CKestrixDlg::LoadWhenShown()
{
    m_bLoadWhenShown = false;
    if (std::exchange(m_bLoadDue, false))
    {
        m_Operations.Run([this] { OnSelchangeLogDate(); });
    }
}

void CKestrixDlg::ShowLogMessage(const std::wstring& text) const
{
    const std::wstring title = Kind() == nullptr ? std::wstring() : LoadText(Kind()->messageTitle);
    ShowMessageBox(nullptr, text, title, MB_ICONINFORMATION);
}

void CKestrixDlg::OnSelchangeLogDate()
{
    VD_TRACE(Flow, L"[Enter]CKestrixDlg::OnSelchangeLogDate() ");
    const CWaitCursor wait;
    m_RecordList.ForgetClicks();
    m_Finder.Forget();
    if (Log() == nullptr)
    {
        return;
    }
    if (m_bIsLocal)
    {
        const bool selected = m_DateList.GetCurSel() != LB_ERR;
        m_DeleteButton.EnableWindow(selected);
        m_ExportButton.EnableWindow(selected);
    }
    VD_TRACE(Info, L"before CKestrixDlg::GetLogFileName() ");
    COleDateTime date;
    const bool isLoadable = m_bIsLocal ? GetLogFileName(date) : IsUsablePath(m_strLogPath);
    m_ExportButton.EnableWindow(isLoadable);
    m_ShownLog.Clear();
    if (isLoadable && m_ShownLog.Load(m_bIsLocal, date, m_strLogPath))
    {
        m_DetailPane.ShowShortText();
        VD_TRACE(Flow, L"[Leave]CKestrixDlg::OnSelchangeLogDate() ");
    }
}

void CKestrixDlg::OnGetDispInfoLogList(NMLVDISPINFOW& info)
{
    if (m_DateList.GetCount() != 0)
    {
        m_RecordList.AnswerText(info);
    }
}

BOOL CKestrixDlg::PreTranslateMessage(MSG& message)
{
    m_Follower.NoteInput(message);
    return RunPageKey(message, m_Commands) || CBitmapDialog::PreTranslateMessage(message);
}

void CKestrixDlg::OnStnClickedTypesValue()
{
    VD_TRACE(Info, L"Click Link String Edit");
    if (Kind() != nullptr && Kind()->firstInfo == FirstInfo::Link)
    {
        FollowThreatLink(m_DetailPane.LinkText());
    }
}

void CKestrixDlg::OnBnClickedBtnAddRule()
{
    if (Log() == nullptr || !Kind()->hasAllowRule)
    {
        return;
    }
    const CWaitCursor wait;
    m_Operations.Run(
        [this]
        {
            Log()->AddAllowRule();
            m_DetailPane.DisableAllow();
            KeepFocusUsable();
        });
}

void CKestrixDlg::FillLogTypeCombo()
{
    if (m_pParentForm != nullptr)
    {
        m_TypeCombo.Fill();
    }
}

void CKestrixDlg::OnBnClickedBtnView()
{
    VD_TRACE(Flow, L"[Enter] CKestrixDlg::OnBnClickedBtnView()");
    Invalidate();
    if (!m_bIsLocal)
    {
        ShowMessageBox(GetSafeHwnd(), LoadText(IDS_ONLY_THIS_FILE), GetProductName(), MB_ICONINFORMATION);
    }
    else if (!SwitchTo(m_TypeCombo.SelectedType()))
    {
        return;
    }
    VD_TRACE(Flow, L"[Leave] CKestrixDlg::OnBnClickedBtnView()");
}

// False when the log of this type is shown already, or there is none.
bool CKestrixDlg::SwitchTo(std::uint32_t logType)
{
    if (logType == m_nLogType)
    {
        return false;
    }
    m_nLogType = logType;
    if (m_nLogType > LogTypeNone && Kind() == nullptr)
    {
        return false;
    }
    m_DetailPane.Clear();
    RefreshLog(AnyReason);
    return true;
}

// The service of this computer keeps entries of the database alone.
void CKestrixDlg::OnBnClickedBtnSetting()
{
    if (m_bIsLocal)
    {
        ChangePurgeSettings();
    }
}

// The list shows the records until the service tells that they are gone.
void CKestrixDlg::OnBnClickedBtnDelete()
{
    if (m_bIsLocal && Kind() != nullptr && DeleteEntries(m_DateList, *Kind()))
    {
        m_DetailPane.ClearValues();
        m_DetailPane.ShowShortText();
    }
}

void CKestrixDlg::ShowLog(std::uint32_t logType)
{
    if (SwitchTo(logType))
    {
        m_TypeCombo.Select(m_nLogType);
    }
}

void CKestrixDlg::BuildAnew()
{
    const CWaitCursor wait;
    m_DetailPane.RemoveKind();
    if (MakeLog())
    {
        ShowFirstDate();
        KeepFocusUsable();
    }
}
