#include "framework/ui/kestrix/report/KxReportDlg.h"

#include "common/Frwk_Utility.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_FormatText.h"
#include "framework/ui/kestrix/controls/FontStyle.h"
#include "framework/ui/kestrix/controls/MinimisedIcon.h"
#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "framework/ui/kestrix/report/ReportChartPaint.h"
#include "framework/ui/kestrix/report/ReportCollector.h"
#include "framework/ui/kestrix/report/ReportHost.h"
#include "resource/DialogTexts.h"
#include "resource/resource.h"

#include <algorithm>

namespace
{

constexpr UINT NoText = 0;

} // namespace

struct CKxReportDlg::Line
{
    ReportLine line;
    UINT control;
    CColorText CKxReportDlg::*label;
    UINT anchor;   // of its dot in the legend
    UINT texts[2]; // for its total, or for the totals of its two sorts of events
    const wchar_t* clickTrace;
};

const std::array<CKxReportDlg::Line, ReportLineCount>& CKxReportDlg::Lines()
{
    static constexpr std::array<Line, ReportLineCount> lines{{
        {ReportLine::Virus,
         IDC_REPORT_VIRUS,
         &CKxReportDlg::m_stVirus,
         IDC_REPORT_ANCHOR_VIRUS,
         {IDS_REPORT_VIRUS, NoText},
         L"Click Virus Spyware Report Line"},
        {ReportLine::SuspiciousChange,
         IDC_REPORT_SUSPICIOUS,
         &CKxReportDlg::m_stSuspicious,
         IDC_REPORT_ANCHOR_SUSPICIOUS,
         {IDS_REPORT_SUSPICIOUS_BLOCKED, IDS_REPORT_SUSPICIOUS_ALLOWED},
         L"Click Suspicious Change Report Line"},
        {ReportLine::Spyware,
         IDC_REPORT_SPYWARE,
         &CKxReportDlg::m_stSpyware,
         IDC_REPORT_ANCHOR_SPYWARE,
         {IDS_REPORT_SPYWARE_DETECTED, IDS_REPORT_SPYWARE_OTHER},
         L"Click Spyware Report Line"},
        {ReportLine::Web,
         IDC_REPORT_WEB,
         &CKxReportDlg::m_stWeb,
         IDC_REPORT_ANCHOR_WEB,
         {IDS_REPORT_WEB, NoText},
         L"Click Web Report Line"},
        {ReportLine::DataPrevention,
         IDC_REPORT_DATA_PREVENTION,
         &CKxReportDlg::m_stDataPrevention,
         IDC_REPORT_ANCHOR_DATA_PREVENTION,
         {IDS_REPORT_DATA_PREVENTION, NoText},
         L"Click Data Prevention Line"},
    }};
    return lines;
}

CKxReportDlg::CKxReportDlg() : CBitmapDialog(IDD_REPORT_PAGE) {}

const MessageMap& CKxReportDlg::Map()
{
    static constexpr auto rows = MessageRows(
        On::Message<WM_PAINT, &CKxReportDlg::OnPaint>, On::Message<WM_QUERYDRAGICON, &CKxReportDlg::OnQueryDragIcon>,
        On::Message<WM_SETCURSOR, &CKxReportDlg::OnSetCursor>,
        On::Control<STN_CLICKED, IDC_REPORT_VIRUS, &CKxReportDlg::OnStnClickedVirus>,
        On::Control<STN_CLICKED, IDC_REPORT_SUSPICIOUS, &CKxReportDlg::OnStnClickedSuspicious>,
        On::Control<STN_CLICKED, IDC_REPORT_SPYWARE, &CKxReportDlg::OnStnClickedSpyware>,
        On::Control<STN_CLICKED, IDC_REPORT_WEB, &CKxReportDlg::OnStnClickedWeb>,
        On::Control<STN_CLICKED, IDC_REPORT_DATA_PREVENTION, &CKxReportDlg::OnStnClickedDataPrevention>);
    static constexpr MessageMap map{rows, &CBitmapDialog::Map};
    return map;
}

void CKxReportDlg::DoDataExchange(CDataExchange& exchange)
{
    CBitmapDialog::DoDataExchange(exchange);
    for (const Line& line : Lines())
    {
        DDX_Control(exchange, static_cast<int>(line.control), this->*line.label);
    }
    DDX_Control(exchange, IDC_REPORT_NO_DATA, m_stNoData);
    DDX_Text(exchange, IDC_REPORT_PAGE_TITLE, m_strTitle);
}

BOOL CKxReportDlg::OnInitDialog()
{
    CBitmapDialog::OnInitDialog();
    SetBackground(IDB_BACKGROUND);
    m_SolidBrush.CreateSolidBrush(SkinColour::Ground);
    m_bSolidBackground = true;
    m_hIcon = LoadMinimisedIcon(IDI_KESTRIX);
    m_hHand = LoadCursorImage(IDC_HAND_CURSOR);
    m_chart.m_strAxisXTitle = LoadText(IDS_REPORT_X_TITLE);
    m_chart.m_strAxisYTitle = LoadText(IDS_REPORT_Y_TITLE);
    if (m_pParentForm == nullptr)
    {
        return FALSE;
    }
    m_chart.m_settings = ReadReportSettings();
    SetPlaces();
    if (GetFont() == nullptr)
    {
        return TRUE;
    }
    const CWaitCursor wait;
    ShowTitle();
    Collect();
    bool bold = false; // the chart's text is not
    bool italic = false;
    CFontStyle().GetFontStyle(bold, italic, m_nFontSize);
    MakeChartFont(FW_DONTCARE, italic);
    ShowLines();
    if (TotalCount() == 0)
    {
        ShowNoDataNotice();
    }
    return TRUE;
}

// The frame's rectangle is that on the screen, which the form knows when it makes the page; the anchors' are those in
// the page.
void CKxReportDlg::SetPlaces()
{
    SetChartArea(m_chart, CWindow(GetDlgItem(IDC_REPORT_FRAME)).GetWindowRect());
    for (std::size_t i = 0; i < ReportLineCount; ++i)
    {
        m_chart.*ReportLooks()[i].legend = LegendDot(m_chart.m_settings, AnchorRect(Lines()[i].anchor));
    }
}

RECT CKxReportDlg::AnchorRect(UINT anchor) const
{
    RECT place = CWindow(GetDlgItem(static_cast<int>(anchor))).GetWindowRect();
    ScreenToClient(place);
    return place;
}

void CKxReportDlg::ShowTitle()
{
    m_strTitle = VdCommon::String::FormatText(LoadText(IDS_REPORT_PAGE_TITLE), {m_strProductName});
    UpdateData(false);
}

void CKxReportDlg::Collect()
{
    CReportFolder files(Frwk::Utility::GetLogFolder());
    m_chart.m_nReportSpan = m_nReportSpan;
    m_chart.m_counts = CReportCollector(files, m_nReportSpan, m_chart.m_settings.m_nAxisXNumber).Collect();
}

std::wstring CKxReportDlg::LineText(const Line& line, const ReportLineCounts& counts) const
{
    using VdCommon::String::FormatText;
    if (line.texts[1] == NoText)
    {
        return FormatText(LoadText(line.texts[0]), {m_chart.m_counts.*counts.total});
    }
    return FormatText(LoadText(line.texts[0]), {m_chart.m_counts.*counts.sorts[0].total}) + L" " +
           FormatText(LoadText(line.texts[1]), {m_chart.m_counts.*counts.sorts[1].total});
}

void CKxReportDlg::ShowLines()
{
    for (std::size_t i = 0; i < ReportLineCount; ++i)
    {
        CColorText& label = this->*Lines()[i].label;
        label.SetText(LineText(Lines()[i], ReportLines()[i]));
        label.SetFontLook({.height = m_nFontSize, .underline = true});
        label.ShowFocus(true);
        label.SetTextColour(SkinColour::Link, COLOR_HOTLIGHT);
        label.EnableHover(true);
        label.SetAlignment(CColorText::Horizontal::Left, CColorText::Vertical::Centre);
    }
}

void CKxReportDlg::ShowNoDataNotice()
{
    MakeChartFont(FW_BOLD, false);
    m_stNoData.SetText(VdCommon::String::FormatText(LoadText(IDS_REPORT_NO_DATA), {m_strProductName}));
    m_stNoData.SetTextFont(&m_fontChart);
    m_stNoData.SetBackground(SkinColour::Ground, true);
    m_stNoData.SetAlignment(CColorText::Horizontal::Centre, CColorText::Vertical::WrappedTop);
    m_stNoData.ShowWindow(SW_SHOW);
}

// In the face that the language file chooses for headings.
void CKxReportDlg::MakeChartFont(LONG weight, bool italic)
{
    LOGFONTW font{};
    font.lfHeight = Scaled(m_nFontSize);
    font.lfWeight = weight;
    font.lfItalic = italic;
    font.lfCharSet = DEFAULT_CHARSET;
    if (const std::wstring& face = LoadText(IDS_HEADING_FACE); face.size() < LF_FACESIZE)
    {
        std::ranges::copy(face, font.lfFaceName);
    }
    m_fontChart.CreateFontIndirect(font);
}

void CKxReportDlg::OnPaint()
{
    if (IsIconic())
    {
        PaintMinimisedIcon(*this, m_hIcon.get());
        return;
    }
    {
        const CPaintDC dc(m_hWnd);
        DrawReportChart(dc, m_chart, m_fontChart);
    }
    Default();
}

HCURSOR CKxReportDlg::OnQueryDragIcon()
{
    return m_hIcon.get();
}

BOOL CKxReportDlg::OnSetCursor(HWND window, UINT, UINT)
{
    const auto control = static_cast<UINT>(::GetDlgCtrlID(window));
    if (std::ranges::find(Lines(), control, &Line::control) == Lines().end())
    {
        return static_cast<BOOL>(Default());
    }
    ::SetCursor(m_hHand.get());
    return TRUE;
}

void CKxReportDlg::ShowLog(ReportLine line)
{
    VD_TRACE(Flow, std::ranges::find(Lines(), line, &Line::line)->clickTrace);
    if (m_pParentForm != nullptr)
    {
        m_pParentForm->ShowLog(KindOfReportLine(line).type);
    }
}
