#include "framework/ui/kestrix/app/LogFormDlg.h"

#include "framework/ui/kestrix/app/ProductName.h"
#include "resource/resource.h"

namespace
{

constexpr COLORREF FormColour = RGB(255, 255, 255);

// They are pictures alone and come with the skin.
constexpr UINT UnskinnedButtons[] = {IDC_FORM_MINIMISE, IDC_FORM_CLOSE_BOX};

UniqueIcon LoadIconOf(int width, int height)
{
    return UniqueIcon(static_cast<HICON>(LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDI_KESTRIX), IMAGE_ICON,
                                                    GetSystemMetrics(width), GetSystemMetrics(height), 0)));
}

} // namespace

CLogFormDlg::CLogFormDlg() : CBitmapDialog(IDD_LOG_FORM) {}

const MessageMap& CLogFormDlg::Map()
{
    static constexpr auto rows = MessageRows(On::Message<WM_LBUTTONDOWN, &CLogFormDlg::OnLButtonDown>,
                                             On::Command<IDC_FORM_EXPORT, &CLogFormDlg::OnBnClickedBtnExport>,
                                             On::Command<IDC_FORM_CLOSE, &CLogFormDlg::OnCancel>);
    static constexpr MessageMap map{rows, &CBitmapDialog::Map};
    return map;
}

BOOL CLogFormDlg::OnInitDialog()
{
    CBitmapDialog::OnInitDialog();
    SetBackground(IDB_BACKGROUND);
    m_SolidBrush.CreateSolidBrush(FormColour);
    SetIcons();
    SetWindowText(LoadText(IDS_FORM_TITLE));
    SetDlgItemText(IDC_FORM_HEADING, LoadText(IDS_FORM_TITLE));
    SetControlFont(IDC_FORM_HEADING, FW_BOLD);
    for (const UINT control : UnskinnedButtons)
    {
        CWindow(GetDlgItem(static_cast<int>(control))).ShowWindow(SW_HIDE);
    }
    if (m_bMaxCountReached)
    {
        ShowMessageBox(nullptr, LoadText(IDS_TOO_MANY_VIEWERS), GetProductName(), MB_ICONINFORMATION);
        OnCancel();
        return FALSE;
    }
    CreatePage();
    return TRUE;
}

// The whole client area drags the window, which has no caption.
void CLogFormDlg::OnLButtonDown(UINT, POINT point)
{
    Default();
    PostMessage(WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(point.x, point.y));
}

void CLogFormDlg::SetIcons()
{
    m_hBigIcon = LoadIconOf(SM_CXICON, SM_CYICON);
    m_hSmallIcon = LoadIconOf(SM_CXSMICON, SM_CYSMICON);
    SetIcon(m_hBigIcon.get(), true);
    SetIcon(m_hSmallIcon.get(), false);
}

// The page takes the place of the tab control, which has one page and so no tabs to show.
void CLogFormDlg::CreatePage()
{
    m_LogPage.m_strLogPath = m_strLogPath;
    m_LogPage.m_strLocalIp = m_strLocalIp;
    m_LogPage.m_nLogType = m_nLogType;
    m_LogPage.m_bIsLocal = m_bIsLocal;
    m_LogPage.m_bLogOnly = m_bLogOnly;
    m_LogPage.m_nReportSpan = m_nReportSpan;
    m_LogPage.m_pParentForm = this;
    m_LogPage.SetFormButtons(GetDlgItem(IDC_FORM_EXPORT), GetDlgItem(IDC_FORM_DELETE));

    CWindow tab(GetDlgItem(IDC_FORM_TAB));
    RECT area = tab.GetWindowRect();
    ScreenToClient(area);
    tab.ShowWindow(SW_HIDE);
    if (m_LogPage.Create(IDD_LOG_PAGE, this))
    {
        m_LogPage.SetWindowPos(tab, area, SWP_SHOWWINDOW);
    }
}
