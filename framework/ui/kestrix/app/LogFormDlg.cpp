#include "framework/ui/kestrix/app/LogFormDlg.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/app/Foreground.h"
#include "framework/ui/kestrix/app/Help.h"
#include "framework/ui/kestrix/app/ProductName.h"
#include "framework/ui/kestrix/app/PushButtonSkin.h"
#include "framework/ui/kestrix/controls/MinimisedIcon.h"
#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinFrame.h"
#include "resource/resource.h"

#include <optional>

namespace
{

// What the system would draw and the skin draws instead.
constexpr DWORD RemovedStyle = WS_CAPTION | WS_MINIMIZEBOX | DS_MODALFRAME;
constexpr DWORD RemovedExStyle = WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE;

constexpr std::int32_t NoTabOffset = 0;
constexpr std::int32_t TabWidth = 110; // in pixels
constexpr int TabHeight = 20;
constexpr int NoTab = -1;
constexpr int ReportTab = 0; // of a form with a report
constexpr int LogTab = 1;

constexpr TabColours FormTabColours{.border = RGB(192, 201, 218)}; // that of the frames in the page

// Has a window that is not seen yet stand at the origin of the screen's coordinates until the object goes. There they
// are those of the report page as well, which is made at the top left of the form: its chart stands in the page where
// its frame stands on the screen.
class AtScreenOrigin
{
public:
    explicit AtScreenOrigin(CWindow window) : m_window(window), m_place(window.GetWindowRect()) { MoveTo({0, 0}); }

    ~AtScreenOrigin() { MoveTo({m_place.left, m_place.top}); }

    AtScreenOrigin(const AtScreenOrigin&) = delete;
    AtScreenOrigin& operator=(const AtScreenOrigin&) = delete;

private:
    void MoveTo(POINT place)
    {
        m_window.SetWindowPos(nullptr, {place.x, place.y, place.x, place.y},
                              SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    CWindow m_window;
    const RECT m_place;
};

} // namespace

CLogFormDlg::CLogFormDlg() : CFramedDialog(IDD_LOG_FORM), m_strProductName(GetProductName()) {}

const MessageMap& CLogFormDlg::Map()
{
    static constexpr auto rows = MessageRows(
        On::Message<WM_PAINT, &CLogFormDlg::OnPaint>, On::Message<WM_QUERYDRAGICON, &CLogFormDlg::OnQueryDragIcon>,
        On::Message<WM_ACTIVATE, &CLogFormDlg::OnActivate>, On::Message<WM_HELP, &CLogFormDlg::OnHelpKey>,
        On::Message<WM_ENABLE, &CLogFormDlg::OnEnable>,
        On::Command<IDC_FORM_MINIMISE, &CLogFormDlg::OnBnClickedMinimise>,
        On::Command<IDC_FORM_CLOSE_BOX, &CLogFormDlg::OnCancel>, On::Command<IDC_FORM_CLOSE, &CLogFormDlg::OnCancel>,
        On::Command<ID_HELP, &CLogFormDlg::OnHelp>, On::Command<IDC_FORM_HELP, &CLogFormDlg::OnBnClickedBtnHelp>,
        On::Command<IDC_FORM_EXPORT, &CLogFormDlg::OnBnClickedBtnExport>,
        On::Command<IDC_FORM_DELETE, &CLogFormDlg::OnBnClickedBtnDelete>);
    static constexpr MessageMap map{rows, &CFramedDialog::Map};
    return map;
}

void CLogFormDlg::PreSubclassWindow()
{
    if (m_hWnd != nullptr)
    {
        const DWORD style = GetStyle();
        const DWORD exStyle = GetExStyle();
        VD_TRACE(Info, L"CLogFormDlg::PreSubclassWindow: style=%08X, style_ex=%08X", style, exStyle);
        VD_TRACE(Info, L"CLogFormDlg::PreSubclassWindow: New style=%08X, Style_ex=%08X", style & ~RemovedStyle,
                 exStyle & ~RemovedExStyle);
        ModifyStyle(RemovedStyle, 0);
        ModifyStyleEx(RemovedExStyle, 0);
    }
    CFramedDialog::PreSubclassWindow();
}

void CLogFormDlg::DoDataExchange(CDataExchange& exchange)
{
    CFramedDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_FORM_TAB, m_Tab);
    DDX_Control(exchange, IDC_FORM_HEADING, m_Heading);
    DDX_Control(exchange, IDC_FORM_REPORT_TITLE, m_ReportTitle);
    DDX_Control(exchange, IDC_FORM_REPORT_TOTAL, m_ReportTotal);
    DDX_Control(exchange, IDC_FORM_MINIMISE, m_MinimiseButton);
    DDX_Control(exchange, IDC_FORM_CLOSE_BOX, m_CloseBoxButton);
    DDX_Control(exchange, IDC_FORM_HELP, m_HelpButton);
    DDX_Control(exchange, IDC_FORM_CLOSE, m_CloseButton);
    DDX_Control(exchange, IDC_FORM_EXPORT, m_ExportButton);
    DDX_Control(exchange, IDC_FORM_DELETE, m_DeleteButton);
}

BOOL CLogFormDlg::OnInitDialog()
{
    CFramedDialog::OnInitDialog();
    ForceToFront(m_hWnd);
    SetIcons();
    HandValuesToPages();
    if (m_bMaxCountReached)
    {
        m_strProductName = GetProductName();
        ShowMessageBox(nullptr, LoadText(IDS_TOO_MANY_VIEWERS), m_strProductName, MB_ICONINFORMATION);
        OnCancel();
        return FALSE;
    }
    CreatePages();
    SetTitle();
    if (!m_bLogOnly)
    {
        SetReportLabels();
    }
    SetCaptionButton(m_CloseBoxButton, IDB_CLOSE, IDB_CLOSE_HOT, DFCS_CAPTIONCLOSE);
    SetCaptionButton(m_MinimiseButton, IDB_MINIMISE, IDB_MINIMISE_HOT, DFCS_CAPTIONMIN);
    for (CExtendButton* const button : {&m_CloseButton, &m_ExportButton, &m_DeleteButton})
    {
        SetSkin(*button, true);
    }
    SetSkin(m_HelpButton, false);
    m_HelpButton.SetIcons(IDI_HELP_BUTTON);
    return TRUE;
}

void CLogFormDlg::OnShown()
{
    m_LogPage.LoadWhenShown();
}

void CLogFormDlg::SetIcons()
{
    m_hBigIcon = LoadMinimisedIcon(IDI_KESTRIX);
    m_hSmallIcon = LoadIconImage(IDI_KESTRIX, {::GetSystemMetrics(SM_CXSMICON), ::GetSystemMetrics(SM_CYSMICON)});
    SetIcon(m_hSmallIcon.get(), false); // first: without one the system makes it from the big one
    SetIcon(m_hBigIcon.get(), true);
}

void CLogFormDlg::HandValuesToPages()
{
    m_LogPage.m_strLogPath = m_strLogPath;
    m_LogPage.m_strLocalIp = m_strLocalIp;
    m_LogPage.m_nLogType = m_nLogType;
    m_LogPage.m_bIsLocal = m_bIsLocal;
    m_LogPage.m_bLogOnly = m_bLogOnly;
    m_LogPage.m_nReportSpan = m_nReportSpan;
    m_LogPage.m_pParentForm = this;
    m_LogPage.m_bLoadWhenShown = true;
    m_LogPage.m_pHost = m_pPageHost;
    m_LogPage.SetFormButtons(m_ExportButton, m_DeleteButton);
    m_ReportPage.m_nReportSpan = m_nReportSpan;
    m_ReportPage.m_strProductName = m_strProductName;
    m_ReportPage.m_pParentForm = this;
}

void CLogFormDlg::CreatePages()
{
    std::optional<AtScreenOrigin> origin;
    if (!m_bLogOnly)
    {
        origin.emplace(*this);
        m_Tab.AddPage(IDS_TAB_REPORT, m_ReportPage, IDD_REPORT_PAGE);
    }
    m_Tab.AddPage(IDS_TAB_LOGS, m_LogPage, IDD_LOG_PAGE);
    m_Tab.CreatePages(LoadNumber(IDS_TAB_OFFSET, NoTabOffset));
    origin.reset();
    SetTabLook();
    m_Tab.SetCurFocus(0);
    if (m_bLogOnly)
    {
        m_Tab.ModifyStyle(WS_TABSTOP, 0); // there is nothing to choose
    }
    else
    {
        CWindow(m_LogPage.GetDlgItem(IDC_SETTING)).ShowWindow(SW_HIDE);
    }
}

void CLogFormDlg::SetTabLook()
{
    m_hHand = LoadCursorImage(IDC_HAND_CURSOR);
    m_Tab.SetCursor(m_hHand.get());
    const int width = Scaled(LoadNumber(IDS_TAB_WIDTH, TabWidth));
    m_Tab.ModifyStyle(0, TCS_FIXEDWIDTH);
    m_Tab.SetItemSize({width, Scaled(TabHeight)});
    m_Tab.SetMinTabWidth(width);
    m_Tab.KeepPagesBelowTabs();
    m_Tab.SetColours(FormTabColours);
    m_Tab.SetBitmaps(IDB_TAB, IDB_TAB_SELECTED);
    LOGFONTW normal{};
    if (::GetObjectW(GetFont(), sizeof normal, &normal) != 0)
    {
        LOGFONTW selected = normal;
        normal.lfWeight = FW_NORMAL;
        selected.lfWeight = FW_BOLD;
        m_Tab.SetFonts(normal, selected);
    }
    m_Tab.Invalidate();
}

// A second process looks for the title of a form without a report.
void CLogFormDlg::SetTitle()
{
    const std::wstring& title = LoadText(m_bLogOnly ? IDS_FORM_TITLE : IDS_FORM_TITLE_WITH_REPORT);
    SetWindowText(title);
    SetHeading(m_Heading, title);
}

// The frame is drawn straight onto the window, over what stands in it; so those controls paint themselves again.
void CLogFormDlg::OnPaint()
{
    if (IsIconic())
    {
        PaintMinimisedIcon(*this, m_hBigIcon.get());
        return;
    }
    m_Heading.Invalidate();
    m_MinimiseButton.Invalidate();
    m_CloseBoxButton.Invalidate();
    {
        const CPaintDC validated(m_hWnd);
    }
    const RECT client = GetClientRect();
    DrawSkinFrame(CClientDC(m_hWnd), {client.right, client.bottom}, FrameTop::Stretched);
    Default();
}

HCURSOR CLogFormDlg::OnQueryDragIcon()
{
    return m_hBigIcon.get();
}

void CLogFormDlg::OnBnClickedMinimise()
{
    ShowWindow(SW_MINIMIZE);
}

void CLogFormDlg::OnOK()
{
    CFramedDialog::OnOK();
}

void CLogFormDlg::OnCancel()
{
    CFramedDialog::OnCancel();
}

// The control that had the keyboard when the form lost it gets it back, and may have been disabled meanwhile.
LRESULT CLogFormDlg::OnActivate(WPARAM how, LPARAM)
{
    const LRESULT result = Default();
    const bool isMinimised = HIWORD(how) != 0;
    if (LOWORD(how) != WA_INACTIVE && !isMinimised)
    {
        m_LogPage.KeepFocusUsable();
    }
    return result;
}

// A modal dialog has come or gone.
void CLogFormDlg::OnEnable(bool enabled)
{
    Default();
    m_LogPage.EnableFinder(enabled);
}

// F1
LRESULT CLogFormDlg::OnHelpKey(WPARAM, LPARAM)
{
    SendMessage(WM_COMMAND, ID_HELP);
    return TRUE;
}

void CLogFormDlg::OnHelp()
{
    extHtmlHelp(0);
}

// What has the keyboard on the tab of the report is hidden from now on.
void CLogFormDlg::ShowLog(std::uint32_t logType)
{
    m_LogPage.ShowLog(logType);
    m_Tab.SetCurFocus(LogTab);
    m_LogPage.KeepFocusUsable();
}

// Beside a report the tab decides.
UINT CLogFormDlg::HelpNumber() const
{
    const int tab = m_Tab.GetCurSel();
    if (m_bLogOnly || tab == LogTab)
    {
        return HelpNumberOfLog(m_LogPage.m_nLogType, m_bLogOnly);
    }
    return tab == ReportTab ? HelpNumberOfReport : 0;
}

void CLogFormDlg::OnBnClickedBtnHelp()
{
    const UINT nHelpID = HelpNumber();
    VD_TRACE(Info, L"CLogFormDlg::OnBnClickedBtnHelp()  nHelpID[%d]", nHelpID);
    extHtmlHelp(nHelpID);
}

void CLogFormDlg::extHtmlHelp(UINT id)
{
    VD_TRACE(Flow, L"[Enter] CLogFormDlg::extHtmlHelp()...");
    ShowHelpTopic(id);
    VD_TRACE(Flow, L"[Leave] CLogFormDlg::extHtmlHelp()...");
}

BOOL CLogFormDlg::PreTranslateMessage(MSG& message)
{
    if (m_LogPage.RunKeyBeside(message) || (message.message == WM_KEYDOWN && TranslateKeyDown(message)))
    {
        return TRUE;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_SPACE)
    {
        return CFramedDialog::PreTranslateMessage(message);
    }
    if (message.message == WM_KEYUP && message.wParam == VK_TAB)
    {
        m_Tab.ShowSelectedPage();
        return TRUE;
    }
    if (m_ToolTip.GetSafeHwnd() != nullptr)
    {
        m_ToolTip.RelayEvent(message);
    }
    return CDialog::PreTranslateMessage(message);
}

// Enter and Escape do nothing; Space on the tabs changes to the other one.
bool CLogFormDlg::TranslateKeyDown(const MSG& message)
{
    switch (message.wParam)
    {
    case VK_RETURN:
    case VK_ESCAPE:
        return true;
    case VK_SPACE:
        return message.hwnd == m_Tab.GetSafeHwnd() && TranslateTabSpace();
    default:
        return false;
    }
}

bool CLogFormDlg::TranslateTabSpace()
{
    const int selected = m_Tab.GetCurSel();
    if (selected != NoTab)
    {
        m_Tab.SetCurFocus(selected == ReportTab ? LogTab : ReportTab);
    }
    return true;
}
