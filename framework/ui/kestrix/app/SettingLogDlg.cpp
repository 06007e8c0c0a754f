#include "framework/ui/kestrix/app/SettingLogDlg.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/logs/EventLogKey.h"
#include "resource/DialogTexts.h"
#include "resource/resource.h"

#include <algorithm>
#include <iterator>

namespace
{

struct Choice
{
    UINT text;
    std::uint32_t days;
};

constexpr Choice Choices[] = {
    {IDS_KEEP_7_DAYS, 7},   {IDS_KEEP_14_DAYS, 14}, {IDS_KEEP_30_DAYS, 30},
    {IDS_KEEP_45_DAYS, 45}, {IDS_KEEP_60_DAYS, 60},
};

constexpr std::uint32_t DefaultDays = 30;
constexpr std::uint32_t PurgeIsOn = 1; // of the flag

// The first choice for a number that is none of them.
int IndexOf(std::uint32_t days)
{
    const auto found = std::ranges::find(Choices, days, &Choice::days);
    return found == std::end(Choices) ? 0 : static_cast<int>(found - std::begin(Choices));
}

std::uint32_t Setting(const wchar_t* name, std::uint32_t fallback)
{
    return VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, EventLogKey, name, fallback);
}

} // namespace

CSettingLogDlg::CSettingLogDlg()
    : CSmallDialog({IDD_SETTINGS, IDC_SETTINGS_HEADING, IDS_SETTINGS_HEADING, IDC_SETTINGS_CLOSE_BOX})
{
}

const MessageMap& CSettingLogDlg::Map()
{
    static constexpr auto rows = MessageRows(On::Command<IDC_SETTINGS_CLOSE_BOX, &CSettingLogDlg::OnCancel>,
                                             On::Command<IDOK, &CSettingLogDlg::OnBnClickedOk>);
    static constexpr MessageMap map{rows, &CSmallDialog::Map};
    return map;
}

void CSettingLogDlg::DoDataExchange(CDataExchange& exchange)
{
    CSmallDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_SETTINGS_FREQUENCY, m_FrequencyCombo);
    DDX_Control(exchange, IDC_SETTINGS_PURGE, m_PurgeCheck);
}

BOOL CSettingLogDlg::OnInitDialog()
{
    CSmallDialog::OnInitDialog();
    for (const Choice& choice : Choices)
    {
        m_FrequencyCombo.SetItemData(m_FrequencyCombo.AddString(LoadText(choice.text)), choice.days);
    }
    const std::uint32_t days = Setting(L"EventLogPurgeFre", DefaultDays);
    const std::uint32_t flag = Setting(L"EventLogPurgeFlag", PurgeIsOn);
    VD_TRACE(Info, L"CSettingLogDlg::OnInitDialog()  LogPurgeFre[%d], LogFlag[%d]", days, flag);
    m_PurgeCheck.SetCheck(flag == PurgeIsOn ? BST_CHECKED : BST_UNCHECKED);
    m_FrequencyCombo.SetCurSel(IndexOf(days));
    return TRUE;
}

void CSettingLogDlg::OnBnClickedOk()
{
    m_nPurgeIndex = m_FrequencyCombo.GetCurSel();
    m_nPurgeFre = static_cast<std::uint32_t>(m_FrequencyCombo.GetItemData(m_nPurgeIndex));
    m_nPurgeFlag = static_cast<std::uint32_t>(m_PurgeCheck.GetCheck());
    OnOK();
}
