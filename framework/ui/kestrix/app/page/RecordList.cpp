#include "framework/ui/kestrix/app/page/RecordList.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include <algorithm>
#include <stdexcept>
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

void CRecordList::SetLog(CZPTLogBase& log, const LogKind& kind)
{
    m_pLogData = &log;
    m_pKind = &kind;
}

void CRecordList::RemoveLog()
{
    DeleteAllItems();
    SetImageList(nullptr, LVSIL_SMALL); // the icons are the log's and end with it
    m_pLogData = nullptr;
    m_pKind = nullptr;
}

void CRecordList::RemoveColumns()
{
    for (int column = SortHeader().GetItemCount(); column > 0; --column)
    {
        DeleteColumn(0);
    }
}

void CRecordList::ForgetClicks()
{
    m_nSortColumn = -1;
    m_bSortToggle = false;
}

bool CRecordList::LoadDay(const COleDateTime& date)
{
    SetRedraw(FALSE);
    if (!m_pLogData->ReadLogDBMgr(date))
    {
        VD_TRACE(Error, L"*** CKestrixDlg::OnSelchangeLogDate() - m_pLogData->ReadLogDBMgr() failed.");
        return false;
    }
    ShowFresh();
    return true;
}

void CRecordList::LoadFile(const std::wstring& path)
{
    SetRedraw(FALSE);
    m_pLogData->ReadLogW(path);
    ShowFresh();
}

// Rows for the records that were read, in descending order of the first column.
void CRecordList::ShowFresh()
{
    m_pLogData->SetListLog();
    ShowArrow(0, 0);
    SortItems(m_pLogData->m_pfnCompareDn, 0);
    SetRedraw(TRUE);
    Invalidate();
}

void CRecordList::AnswerText(NMLVDISPINFOW& info) const
{
    const auto* const record = reinterpret_cast<const LogRec*>(info.item.lParam);
    if ((info.item.mask & LVIF_TEXT) == 0 || record == nullptr || m_pLogData == nullptr ||
        record->nImage > LastCellImage || info.item.cchTextMax <= 0)
    {
        return;
    }
    std::wstring text;
    if (static_cast<std::size_t>(info.item.iSubItem) < record->strData.size())
    {
        if (info.item.iSubItem > m_pKind->lastColumn)
        {
            return;
        }
        text = ShortenDisplayText(CellText(*record, info.item.iSubItem));
    }
    const std::size_t room = std::min(CellLength, static_cast<std::size_t>(info.item.cchTextMax) - 1);
    info.item.pszText[text.copy(info.item.pszText, room)] = L'\0';
}

// Empty where the record lacks the field that its log shows there. The list asks while it paints: an error would come
// back with each painting, and a box about it would bring the next one.
std::wstring CRecordList::CellText(const LogRec& record, int column) const
{
    std::wstring text;
    try
    {
        m_pLogData->GetColumnText(&record, text, column);
    }
    catch (const std::out_of_range&)
    {
        text.clear();
    }
    return text;
}

std::wstring CRecordList::ShortenDisplayText(const std::wstring& text)
{
    if (text.size() <= CellLength)
    {
        return text;
    }
    const std::size_t head = IsInsideCharacter(text, CellEnd) ? CellEnd - 1 : CellEnd;
    const std::size_t tail = text.size() - CellEnd;
    return text.substr(0, head).append(CellDots).append(text, IsInsideCharacter(text, tail) ? tail + 1 : tail);
}

void CRecordList::SortByClick(int column)
{
    m_bSortToggle = column == m_nSortColumn && !m_bSortToggle;
    m_nSortColumn = column;
    ShowArrow(m_nSortColumn, m_bSortToggle ? 0 : 1);
    if (m_pLogData != nullptr)
    {
        const CWaitCursor wait;
        SortHeader().UpdateWindow(); // it shows the click before the rows are sorted
        SortItems(m_bSortToggle ? m_pLogData->m_pfnCompareDn : m_pLogData->m_pfnCompareUp, m_nSortColumn);
    }
}

void CRecordList::ShowArrow(int column, int up)
{
    m_nListSortColumn = column;
    m_nListSortUp = up;
    SortHeader().SetSortArrow(m_nListSortColumn, m_nListSortUp);
}

LogRec* CRecordList::SelectedRecord() const
{
    const int selected = GetNextItem(-1, LVNI_SELECTED);
    if (selected == -1 || m_pLogData == nullptr)
    {
        return nullptr;
    }
    auto* const record = reinterpret_cast<LogRec*>(GetItemData(selected));
    if (record == nullptr)
    {
        VD_TRACE(Error, L"CKestrixDlg::OnClickLogList() - pLogData is NULL.");
    }
    return record;
}
