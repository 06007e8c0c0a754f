#include "framework/ui/kestrix/app/KestrixDlg.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/app/DailyFiles.h"
#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "resource/resource.h"

#include <algorithm>
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

struct HeadingText
{
    UINT control;
    UINT text;
};

constexpr HeadingText Headings[] = {
    {IDC_HEADING_DATES, IDS_HEADING_DATES},
    {IDC_HEADING_ENTRIES, IDS_HEADING_ENTRIES},
    {IDC_HEADING_DETAILS, IDS_HEADING_DETAILS},
};

constexpr COLORREF LinkColour = RGB(0, 0, 255);
constexpr COLORREF PageColour = RGB(255, 255, 255);
constexpr std::size_t PathRoom = 260; // a path must fit with its terminator

// A cell's text and what a longer one keeps of its two ends.
constexpr std::size_t CellLength = 255;
constexpr std::size_t CellEnd = 125;
constexpr std::wstring_view CellDots = L".....";

constexpr std::uint32_t LastCellImage = 8; // a record with a higher image shows no text

// The highest column that is served.
int LastColumn(std::uint32_t logType)
{
    return logType == LogTypeFirewall ? 5 : logType == LogTypeUrlFilter ? 3 : 2;
}

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
}

BOOL CKestrixDlg::OnInitDialog()
{
    const CWaitCursor wait;
    VD_TRACE(Flow, L"[Enter] %s()...", L"CKestrixDlg::OnInitDialog");
    CBitmapDialog::OnInitDialog();
    m_SolidBrush.CreateSolidBrush(PageColour);
    SetHeadings();
    SetFonts();
    m_rcInfoValue = CWindow(GetDlgItem(IDC_INFO_VALUE_0_TEXT)).GetWindowRect();
    for (const UINT hidden : {IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_0_LINK, IDC_ALLOW, IDC_ALLOW_LABEL})
    {
        ShowInfo(hidden, false);
    }
    if (auto* const app = dynamic_cast<CKestrixApp*>(AfxGetApp()))
    {
        app->m_pLogDlg = this;
    }

    const LogClass* const logClass = FindLogClass(m_nLogType);
    if (logClass == nullptr)
    {
        return FALSE;
    }
    CreateLog(*logClass);
    FillDate();
    if (m_DateList.GetCount() == 0 && !m_bIsLocal)
    {
        ShowLogMessage(LoadText(HasForeignLogFile(m_strLogPath) ? IDS_NOT_A_LOG_FILE : IDS_NO_LOG_FILE));
        OnCancel();
        return FALSE;
    }
    m_DateList.SetCurSel(0);
    OnSelchangeLogDate();
    FillLogTypeCombo();
    SelectLogType(m_nLogType);
    if (!m_bIsLocal)
    {
        CWindow(GetDlgItem(IDC_SETTING)).EnableWindow(false);
    }
    return TRUE;
}

void CKestrixDlg::SetHeadings()
{
    for (const HeadingText& heading : Headings)
    {
        SetDlgItemText(heading.control, LoadText(heading.text));
        SetControlFont(heading.control, FW_BOLD);
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

void CKestrixDlg::CreateLog(const LogClass& logClass)
{
    m_pLogData = logClass.create();
    ShowInfo(logClass.firstRow == FirstInfoRow::Link ? IDC_INFO_VALUE_0_LINK : IDC_INFO_VALUE_0_TEXT, true);
    m_pLogData->m_bUseDBMgr = m_bIsLocal;
    m_pLogData->m_pIDBManagerProvider = m_pIDBManagerProvider;
    m_pLogData->SetListCtrl(&m_RecordList);
    m_pLogData->SetInfoDialog(this);
    m_pLogData->SetListColumn();
    m_pLogData->SetInfoLabel();
}

void CKestrixDlg::FillDate()
{
    VD_TRACE(Flow, L"[Enter] CKestrixDlg::FillDate()");
    const CWaitCursor wait;
    m_DateList.ResetContent();
    if (!m_bIsLocal)
    {
        m_nLogFileBytes = 0;
        m_mapLogFiles.clear();
        VD_TRACE(Info, L"strPath: %s", m_strLogPath);
        for (const DailyFile& file : FindDailyFiles(m_strLogPath))
        {
            InsertDate(file.date, file.size);
        }
    }
    VD_TRACE(Flow, L"[Leave] CKestrixDlg::FillDate()");
}

// Newest first: the date goes before the first entry that is older.
void CKestrixDlg::InsertDate(const COleDateTime& date, std::uint32_t size)
{
    int index = 0;
    for (const int count = m_DateList.GetCount(); index < count; ++index)
    {
        COleDateTime other;
        if (other.ParseDateTime(m_DateList.GetText(index)) && other < date)
        {
            break;
        }
    }
    const std::wstring text = date.Format(VAR_DATEVALUEONLY);
    m_DateList.InsertString(index, text);
    m_mapLogFiles[text] = size;
    m_nLogFileBytes += size;
}

void CKestrixDlg::OnSelchangeLogDate()
{
    VD_TRACE(Flow, L"[Enter]CKestrixDlg::OnSelchangeLogDate() ");
    const CWaitCursor wait;
    m_nSortColumn = -1;
    m_bSortToggle = false;
    if (m_pLogData == nullptr)
    {
        return;
    }
    VD_TRACE(Info, L"before CKestrixDlg::GetLogFileName() ");
    if (m_bIsLocal) // no date comes from the database yet, so none is selected
    {
        m_pLogData->ClearLog();
        return;
    }
    if (m_strLogPath.empty() || m_strLogPath.size() >= PathRoom)
    {
        const DWORD status = m_strLogPath.empty() ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER;
        VD_TRACE(Error, L"VdCommon::String::CopyTString() failed: 0x%08X", status);
        m_pLogData->ClearLog();
        return;
    }
    m_pLogData->ClearLog();
    m_RecordList.SetRedraw(FALSE);
    m_pLogData->ReadLogW(m_strLogPath);
    m_pLogData->SetListLog();
    ShowFreshList();
    if (HasLongInfo())
    {
        ShowShortInfo();
    }
    VD_TRACE(Flow, L"[Leave]CKestrixDlg::OnSelchangeLogDate() ");
}

// A fresh list stands newest first, in descending order of its first column.
void CKestrixDlg::ShowFreshList()
{
    m_nListSortColumn = 0;
    m_nListSortUp = 0;
    m_RecordList.SortHeader().SetSortArrow(m_nListSortColumn, m_nListSortUp);
    m_RecordList.SortItems(m_pLogData->m_pfnCompareDn, 0);
    m_RecordList.SetRedraw(TRUE);
    m_RecordList.Invalidate();
}

void CKestrixDlg::OnGetDispInfoLogList(NMLVDISPINFOW& info)
{
    const auto* const record = reinterpret_cast<const LogRec*>(info.item.lParam);
    if ((info.item.mask & LVIF_TEXT) == 0 || record == nullptr || m_pLogData == nullptr || m_DateList.GetCount() == 0 ||
        record->nImage > LastCellImage || info.item.cchTextMax <= 0)
    {
        return;
    }
    std::wstring text;
    if (static_cast<std::size_t>(info.item.iSubItem) < record->strData.size())
    {
        if (info.item.iSubItem > LastColumn(m_nLogType))
        {
            return;
        }
        m_pLogData->GetColumnText(record, text, info.item.iSubItem);
        text = ShortenDisplayText(text);
    }
    const std::size_t room = std::min(CellLength, static_cast<std::size_t>(info.item.cchTextMax) - 1);
    info.item.pszText[text.copy(info.item.pszText, room)] = L'\0';
}

std::wstring CKestrixDlg::ShortenDisplayText(const std::wstring& text)
{
    if (text.size() <= CellLength)
    {
        return text;
    }
    return text.substr(0, CellEnd).append(CellDots).append(text, text.size() - CellEnd);
}

void CKestrixDlg::OnClickLogList(NMITEMACTIVATE&)
{
    ShowSelectedRecord();
}

void CKestrixDlg::ShowSelectedRecord()
{
    VD_TRACE(Flow, L"[Enter]CKestrixDlg::OnClickLogList()...");
    const int selected = m_RecordList.GetNextItem(-1, LVNI_SELECTED);
    if (selected == -1 || m_pLogData == nullptr)
    {
        return;
    }
    auto* const record = reinterpret_cast<LogRec*>(m_RecordList.GetItemData(selected));
    if (record == nullptr)
    {
        VD_TRACE(Error, L"CKestrixDlg::OnClickLogList() - pLogData is NULL.");
        return;
    }
    m_pLogData->SetLogInfo(record);
    if (HasLongInfo())
    {
        ShowShortInfo();
    }
    VD_TRACE(Flow, L"[Leave]CKestrixDlg::OnClickLogList()...");
}

void CKestrixDlg::OnColumnClickLogList(NMLISTVIEW& click)
{
    m_bSortToggle = click.iSubItem == m_nSortColumn && !m_bSortToggle;
    m_nSortColumn = click.iSubItem;
    m_nListSortColumn = m_nSortColumn;
    m_nListSortUp = m_bSortToggle ? 0 : 1;
    m_RecordList.SortHeader().SetSortArrow(m_nListSortColumn, m_nListSortUp);
    if (m_pLogData == nullptr)
    {
        return;
    }
    m_RecordList.SortItems(m_bSortToggle ? m_pLogData->m_pfnCompareDn : m_pLogData->m_pfnCompareUp, m_nSortColumn);
}

void CKestrixDlg::OnStnClickedMoreInfo()
{
    const auto* const log = dynamic_cast<const CZPTLogVir*>(m_pLogData.get());
    if (log == nullptr)
    {
        return;
    }
    ShowInfo(IDC_INFO_VALUE_2, false);
    SetDlgItemText(IDC_INFO_VALUE_2_WHOLE, log->GetInfoText());
    ShowInfo(IDC_INFO_VALUE_2_WHOLE, true);
}

bool CKestrixDlg::HasLongInfo() const
{
    return m_nLogType == LogTypeVirus || m_nLogType == LogTypeSpyware || m_nLogType == LogTypeVst;
}

void CKestrixDlg::ShowShortInfo()
{
    ShowInfo(IDC_INFO_VALUE_2, true);
    ShowInfo(IDC_INFO_VALUE_2_WHOLE, false);
}

BOOL CKestrixDlg::PreTranslateMessage(MSG& message)
{
    if (message.message == WM_KEYUP && message.hwnd == m_RecordList.GetSafeHwnd() &&
        (message.wParam == VK_UP || message.wParam == VK_DOWN))
    {
        ShowSelectedRecord();
    }
    return CBitmapDialog::PreTranslateMessage(message);
}

void CKestrixDlg::SetInfoRow(std::size_t row, const std::wstring& caption, bool visible)
{
    SetDlgItemText(InfoLabels[row], caption);
    SetDlgItemText(InfoValues[row], {});
    ShowInfo(InfoLabels[row], visible);
    ShowInfo(InfoValues[row], visible);
}

void CKestrixDlg::SetInfoText(UINT control, const std::wstring& text)
{
    SetDlgItemText(control, text);
}

void CKestrixDlg::SetInfoToolTip(UINT control, const std::wstring& text)
{
    SetControlToolTip(control, text);
}

void CKestrixDlg::ShowInfo(UINT control, bool show)
{
    CWindow(GetDlgItem(static_cast<int>(control))).ShowWindow(show ? SW_SHOW : SW_HIDE);
}
