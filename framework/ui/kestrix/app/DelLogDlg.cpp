#include "framework/ui/kestrix/app/DelLogDlg.h"

#include "common/VdCommon/VdComn_FormatText.h"
#include "framework/ui/kestrix/app/ProductName.h"
#include "resource/DialogTexts.h"
#include "resource/resource.h"

#include <algorithm>

namespace
{

constexpr std::uint64_t BytesOfAKilobyte = 1024;

std::wstring SizeText(std::uint64_t bytes)
{
    const std::uint64_t kilobytes = (bytes + BytesOfAKilobyte - 1) / BytesOfAKilobyte;
    return VdCommon::String::FormatText(LoadText(IDS_DELETE_SIZE), {static_cast<std::uint32_t>(kilobytes)});
}

} // namespace

CDelLogDlg::CDelLogDlg() : CSmallDialog({IDD_DELETE, IDC_DELETE_HEADING, IDS_DELETE_HEADING, IDC_DELETE_CLOSE_BOX}) {}

const MessageMap& CDelLogDlg::Map()
{
    static constexpr auto rows =
        MessageRows(On::Control<CBN_SELCHANGE, IDC_DELETE_DATE, &CDelLogDlg::OnSelchangeDelDate>,
                    On::Command<IDC_DELETE_CLOSE_BOX, &CDelLogDlg::OnCancel>);
    static constexpr MessageMap map{rows, &CSmallDialog::Map};
    return map;
}

void CDelLogDlg::DoDataExchange(CDataExchange& exchange)
{
    CSmallDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_DELETE_DATE, m_DateCombo);
}

BOOL CDelLogDlg::OnInitDialog()
{
    CSmallDialog::OnInitDialog();
    m_strSizeText = SizeText(static_cast<std::uint32_t>(m_nTotalBytes));
    FillDates();
    OnSelchangeDelDate();
    return TRUE;
}

// The days come along with their texts. The page may list other days before the user has chosen one, since another
// program can have entries deleted meanwhile; the day that is chosen stays the one that was read here.
void CDelLogDlg::FillDates()
{
    m_DateCombo.ResetContent();
    for (int index = 0; index < m_pDateList->GetCount(); ++index)
    {
        m_DateCombo.SetItemData(m_DateCombo.AddString(m_pDateList->GetText(index)), m_pDateList->GetItemData(index));
    }
    m_DateCombo.SetCurSel(std::max(m_pDateList->GetCurSel(), 0));
}

// The dates below the selected one are taken for older ones, which are deleted with it.
void CDelLogDlg::OnSelchangeDelDate()
{
    std::uint64_t bytes = 0;
    for (int index = m_DateCombo.GetCurSel(); index < m_DateCombo.GetCount(); ++index)
    {
        const auto file = m_mapLogFiles.find(m_DateCombo.GetLBText(index));
        bytes += file == m_mapLogFiles.end() ? 0 : file->second;
    }
    m_strSizeText = SizeText(bytes);
}

bool CDelLogDlg::Confirm()
{
    const std::wstring product = GetProductName();
    SetWindowText(product);
    return ShowMessageBox(m_hWnd, LoadText(IDS_DELETE_QUESTION), product, MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}

void CDelLogDlg::OnOK()
{
    if (!Confirm())
    {
        m_DateCombo.SetFocus();
        return;
    }
    m_nDateIndex = m_DateCombo.GetCurSel();
    m_strDate = m_DateCombo.GetLBText(m_nDateIndex);
    m_nDateData = m_DateCombo.GetItemData(m_nDateIndex);
    m_nDateCount = m_DateCombo.GetCount();
    CSmallDialog::OnOK();
}
