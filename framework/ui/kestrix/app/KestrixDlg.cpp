#include "framework/ui/kestrix/app/KestrixDlg.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/app/HeadingLook.h"
#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/app/PushButtonSkin.h"
#include "framework/ui/kestrix/app/page/PageHost.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "resource/resource.h"

#include <iterator>

namespace
{

// The rows of the detail pane. A text shares the place of the first value, the link; the type of the log decides.
constexpr UINT InfoLabels[CLogInfoPage::InfoRows] = {
    IDC_INFO_LABEL_0, IDC_INFO_LABEL_1, IDC_INFO_LABEL_2, IDC_INFO_LABEL_3,
    IDC_INFO_LABEL_4, IDC_INFO_LABEL_5, IDC_INFO_LABEL_6,
};
constexpr UINT InfoValues[CLogInfoPage::InfoRows] = {
    IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2, IDC_INFO_VALUE_3,
    IDC_INFO_VALUE_4,      IDC_INFO_VALUE_5, IDC_INFO_VALUE_6,
};

// A heading and its colours; the frame of the detail pane is a heading without text and ground.
struct Heading
{
    UINT control;
    UINT text;
    COLORREF ground;
    COLORREF frame;
};

constexpr UINT NoText = 0;

constexpr Heading Headings[] = {
    {IDC_HEADING_ENTRIES, IDS_HEADING_ENTRIES, 0xEFEAE8, 0xAC8473},
    {IDC_HEADING_DATES, IDS_HEADING_DATES, 0xEFEAE8, 0xAC8473},
    {IDC_HEADING_DETAILS, IDS_HEADING_DETAILS, 0xE7E2DF, 0xDAC9C0},
    {IDC_DETAIL_FRAME, NoText, CColorText::NoColour, 0xDAC9C0},
};

constexpr COLORREF LinkColour = RGB(0, 0, 255);
constexpr int TallRows = 3;
constexpr COLORREF PageColour = RGB(255, 255, 255);
} // namespace

CKestrixDlg::CKestrixDlg() : CBitmapDialog(IDD_LOG_PAGE) {}

CKestrixDlg::~CKestrixDlg() = default;

const MessageMap& CKestrixDlg::Map()
{
    static constexpr auto rows =
        MessageRows(On::Control<LBN_SELCHANGE, IDC_DATE_LIST, &CKestrixDlg::OnSelchangeLogDate>,
                    On::Notify<LVN_GETDISPINFOW, IDC_RECORD_LIST, &CKestrixDlg::OnGetDispInfoLogList>,
                    On::Notify<NM_CLICK, IDC_RECORD_LIST, &CKestrixDlg::OnClickLogList>,
                    On::Notify<LVN_COLUMNCLICK, IDC_RECORD_LIST, &CKestrixDlg::OnColumnClickLogList>,
                    On::Control<STN_CLICKED, IDC_INFO_VALUE_2, &CKestrixDlg::OnStnClickedMoreInfo>,
                    On::Control<STN_CLICKED, IDC_INFO_VALUE_0_LINK, &CKestrixDlg::OnStnClickedTypesValue>,
                    On::Command<IDC_ALLOW, &CKestrixDlg::OnBnClickedBtnAddRule>,
                    On::Command<IDC_VIEW, &CKestrixDlg::OnBnClickedBtnView>);
    static constexpr MessageMap map{rows, &CBitmapDialog::Map};
    return map;
}

void CKestrixDlg::DoDataExchange(CDataExchange& exchange)
{
    CBitmapDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_DATE_LIST, m_DateList);
    DDX_Control(exchange, IDC_RECORD_LIST, m_RecordList);
    DDX_Control(exchange, IDC_LOG_TYPE, m_TypeCombo);
    DDX_Control(exchange, IDC_INFO_VALUE_0_LINK, m_InfoLink);
    DDX_Control(exchange, IDC_INFO_VALUE_2, m_MoreInfo);
    DDX_Control(exchange, IDC_VIEW, m_ViewButton);
    DDX_Control(exchange, IDC_SETTING, m_SettingButton);
    for (std::size_t i = 0; i < std::size(Headings); ++i)
    {
        DDX_Control(exchange, static_cast<int>(Headings[i].control), m_arrHeading[i]);
    }
}

BOOL CKestrixDlg::OnInitDialog()
{
    const CWaitCursor wait;
    VD_TRACE(Flow, L"[Enter] %s()...", L"CKestrixDlg::OnInitDialog");
    CBitmapDialog::OnInitDialog();
    SetBackground(IDB_BACKGROUND);
    m_SolidBrush.CreateSolidBrush(PageColour);
    m_bSolidBackground = true;
    SetHeadings();
    SetButtons();
    SetFonts();
    m_rcInfoValue = CWindow(GetDlgItem(IDC_INFO_VALUE_0_TEXT)).GetWindowRect();
    for (const UINT hidden : {IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_0_LINK, IDC_ALLOW, IDC_ALLOW_LABEL})
    {
        ShowInfo(hidden, false);
    }
    if (!TakeProvider())
    {
        return FALSE;
    }
    if (!MakeLog())
    {
        return FALSE;
    }
    SetUpLog();
    FillDate();
    if (!ShowFirstDate())
    {
        return FALSE;
    }
    FillLogTypeCombo();
    SelectLogType(m_nLogType);
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

void CKestrixDlg::SetFormButtons(HWND exportButton, HWND deleteButton)
{
    m_ExportButton.Attach(exportButton);
    m_DeleteButton.Attach(deleteButton);
}

// While another window has the keyboard nothing is to be done: the form asks again when it comes back.
void CKestrixDlg::KeepFocusUsable()
{
    if (!IsWindowVisible() || ::GetActiveWindow() != ::GetAncestor(m_hWnd, GA_ROOT))
    {
        return;
    }
    const CWindow focus(::GetFocus());
    if (!focus.IsWindowVisible() || !focus.IsWindowEnabled() || (focus.GetStyle() & WS_TABSTOP) == 0)
    {
        m_RecordList.SetFocus();
    }
}

void CKestrixDlg::SetHeadings()
{
    CColorText::FontLook look = HeadingLook();
    look.weight = FW_BOLD;
    for (std::size_t i = 0; i < std::size(Headings); ++i)
    {
        const Heading& heading = Headings[i];
        CColorText& label = m_arrHeading[i];
        label.SetFontLook(look);
        label.SetBackground(heading.ground, heading.ground != CColorText::NoColour);
        label.SetFrame(heading.frame, true);
        label.SetAlignment(CColorText::Horizontal::Left, CColorText::Vertical::Centre);
        if (heading.text != NoText)
        {
            label.SetText(LoadText(heading.text));
        }
    }
}

void CKestrixDlg::SetButtons()
{
    for (CExtendButton* const button : {&m_ViewButton, &m_SettingButton})
    {
        SetSkin(*button, true);
    }
}

void CKestrixDlg::SetFonts()
{
    for (const UINT label : InfoLabels)
    {
        SetControlFont(label, FW_BOLD);
    }
    SetControlFont(IDC_SPARE_EDIT, FW_BOLD);
    SetControlFont(IDC_ALLOW_LABEL, FW_BOLD);
    SetControlFont(IDC_INFO_VALUE_0_LINK, FW_NORMAL, true);
    SetTextColour(IDC_INFO_VALUE_0_LINK, LinkColour);
}

// Makes the log of the page's type; false when the type has none.
bool CKestrixDlg::MakeLog()
{
    m_pLogData = ::CreateLog(m_nLogType);
    return m_pLogData != nullptr;
}

// What is known of the page's type; null for one without a log.
const LogKind* CKestrixDlg::Kind() const
{
    return FindLogKind(m_nLogType);
}

void CKestrixDlg::SetUpLog()
{
    ShowFirstInfo(Kind()->firstInfo);
    m_InfoLink.SetClickable(Kind()->firstInfo == FirstInfo::Link);
    m_MoreInfo.SetClickable(HasLongInfo());
    m_pLogData->SetLocalAddress(m_strLocalIp);
    m_pLogData->m_bUseDBMgr = m_bIsLocal;
    m_pLogData->m_pIDBManagerProvider = m_pIDBManagerProvider;
    m_pLogData->SetListCtrl(&m_RecordList);
    m_pLogData->SetInfoDialog(this);
    m_pLogData->SetListColumn();
    m_pLogData->SetInfoLabel();
}

// The first value is a link or a text in the same place.
void CKestrixDlg::ShowFirstInfo(FirstInfo how)
{
    switch (how)
    {
    case FirstInfo::Link:
        ShowInfo(IDC_INFO_VALUE_0_LINK, true);
        return;
    case FirstInfo::Text:
        break;
    case FirstInfo::TextOnly:
        CWindow(GetDlgItem(IDC_INFO_VALUE_0_LINK)).EnableWindow(false);
        break;
    case FirstInfo::TallText:
        ShowInfo(IDC_INFO_VALUE_0_LINK, false);
        PlaceFirstText(TallRows);
        break;
    }
    ShowInfo(IDC_INFO_VALUE_0_TEXT, true);
}

// As wide as in the template and this many rows high.
void CKestrixDlg::PlaceFirstText(int rows)
{
    RECT place = m_rcInfoValue;
    ScreenToClient(place);
    place.bottom = place.top + rows * (m_rcInfoValue.bottom - m_rcInfoValue.top);
    CWindow(GetDlgItem(IDC_INFO_VALUE_0_TEXT)).MoveWindow(place);
}

void CKestrixDlg::SetInfoRow(std::size_t row, const std::wstring& caption, bool visible)
{
    const int show = visible ? SW_SHOW : SW_HIDE;
    CWindow label(GetDlgItem(static_cast<int>(InfoLabels[row])));
    CWindow value(GetDlgItem(static_cast<int>(InfoValues[row])));
    label.SetWindowText(caption);
    value.SetWindowText({});
    label.ShowWindow(show);
    value.ShowWindow(show);
}

void CKestrixDlg::SetInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip)
{
    if (row != 0)
    {
        SetInfo(InfoValues[row], text, toolTip);
        return;
    }
    SetInfo(IDC_INFO_VALUE_0_TEXT, text, toolTip);
    ShowInfo(IDC_INFO_VALUE_0_TEXT, true);
    ShowInfo(IDC_INFO_VALUE_0_LINK, false);
}

void CKestrixDlg::SetInfoLink(const std::wstring& text, const std::wstring& toolTip)
{
    SetInfo(IDC_INFO_VALUE_0_LINK, text, toolTip);
    ShowInfo(IDC_INFO_VALUE_0_TEXT, false);
    ShowInfo(IDC_INFO_VALUE_0_LINK, true);
}

void CKestrixDlg::SetInfo(UINT control, const std::wstring& text, const std::wstring& toolTip)
{
    SetDlgItemText(control, text);
    SetControlToolTip(control, toolTip);
}

void CKestrixDlg::ShowInfo(UINT control, bool show)
{
    CWindow(GetDlgItem(static_cast<int>(control))).ShowWindow(show ? SW_SHOW : SW_HIDE);
}
