#pragma once

#include "framework/ui/kestrix/controls/BitmapDialog.h"
#include "framework/ui/kestrix/controls/ColorText.h"
#include "framework/ui/kestrix/report/ReportChart.h"

#include <array>
#include <cstdint>
#include <string>

class CReportHost;

// The report page, the first tab of a form with a report: how many security events of five kinds there were in the last
// days, one line for each kind, and a chart of them. A click on a line leads to its log. Everything is counted when the
// page is made, and stays.
class CKxReportDlg : public CBitmapDialog
{
public:
    CKxReportDlg();

    BOOL OnInitDialog() override;

    // The events that the report counts.
    std::uint32_t TotalCount() const { return m_chart.m_counts.m_nGrandTotal; }

    // Set by the form before the page is made.
    std::uint32_t m_nReportSpan = 0;      // days
    std::wstring m_strProductName;        // for title and notice
    CReportHost* m_pParentForm = nullptr; // null: the page stays empty

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void DoDataExchange(CDataExchange& exchange) override;

private:
    // A line as the page shows it.
    struct Line;

    // The lines, in the order of the counts.
    static const std::array<Line, ReportLineCount>& Lines();

    void OnPaint();
    HCURSOR OnQueryDragIcon();
    BOOL OnSetCursor(HWND window, UINT hitTest, UINT mouse);

    void OnStnClickedVirus() { ShowLog(ReportLine::Virus); }

    void OnStnClickedSuspicious() { ShowLog(ReportLine::SuspiciousChange); }

    void OnStnClickedSpyware() { ShowLog(ReportLine::Spyware); }

    void OnStnClickedWeb() { ShowLog(ReportLine::Web); }

    void OnStnClickedDataPrevention() { ShowLog(ReportLine::DataPrevention); }

    void ShowLog(ReportLine line);
    void SetPlaces();
    RECT AnchorRect(UINT anchor) const;
    void ShowTitle();
    void Collect();
    std::wstring LineText(const Line& line, const ReportLineCounts& counts) const;
    void ShowLines();
    void ShowNoDataNotice();
    void MakeChartFont(LONG weight, bool italic);

    CColorText m_stVirus;
    CColorText m_stSuspicious;
    CColorText m_stSpyware;
    CColorText m_stWeb;
    CColorText m_stDataPrevention;
    CColorText m_stNoData;
    std::wstring m_strTitle;
    ReportChart m_chart;
    CFont m_fontChart;             // of the chart or, when there is none, of the notice
    std::int32_t m_nFontSize = 12; // pixels
    UniqueIcon m_hIcon;
    UniqueCursor m_hHand;
};
