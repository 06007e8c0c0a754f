// The page's list of records: the texts of its cells, the selected record, and sorting by a click on a header.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/app/KestrixDlg.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "resource/resource.h"

#include <algorithm>
#include <string_view>

namespace
{

// A cell's text and what a longer one keeps of its two ends.
constexpr std::size_t CellLength = 255;
constexpr std::size_t CellEnd = 125;
constexpr std::wstring_view CellDots = L".....";

constexpr std::uint32_t LastCellImage = 8; // a record with a higher image shows no text

// Whether a cut before this place would part one character into its two halves.
bool IsInsideCharacter(const std::wstring& text, std::size_t place)
{
    return IS_LOW_SURROGATE(text[place]) && IS_HIGH_SURROGATE(text[place - 1]);
}

} // namespace

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
        if (info.item.iSubItem > Kind()->lastColumn)
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
    const std::size_t head = IsInsideCharacter(text, CellEnd) ? CellEnd - 1 : CellEnd;
    const std::size_t tail = text.size() - CellEnd;
    return text.substr(0, head).append(CellDots).append(text, IsInsideCharacter(text, tail) ? tail + 1 : tail);
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

bool CKestrixDlg::HasLongInfo() const
{
    return Kind() != nullptr && Kind()->hasWholeInfo;
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
