#include "framework/ui/kestrix/report/KxReportDlg.h"

#include "resource/resource.h"

namespace
{

constexpr COLORREF PageColour = RGB(255, 255, 255);

} // namespace

CKxReportDlg::CKxReportDlg() : CBitmapDialog(IDD_REPORT_PAGE) {}

BOOL CKxReportDlg::OnInitDialog()
{
    CBitmapDialog::OnInitDialog();
    SetBackground(IDB_BACKGROUND);
    m_SolidBrush.CreateSolidBrush(PageColour);
    m_bSolidBackground = true;
    return TRUE;
}
