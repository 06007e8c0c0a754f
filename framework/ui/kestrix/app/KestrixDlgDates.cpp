// The page's list of dates: where they come from, and loading the date that is selected.

#include "common/OrlDbMg.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_String.h"
#include "framework/ui/kestrix/app/DailyFiles.h"
#include "framework/ui/kestrix/app/DateRange.h"
#include "framework/ui/kestrix/app/KestrixDlg.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"

namespace
{

constexpr int AtEnd = -1;
constexpr std::size_t PathRoom = 260; // a path must fit with its terminator
constexpr int Noon = 12;

// A day as the number that an entry of the date list carries: YYYYMMDD. 0 for a date that is none.
LPARAM NumberOf(const COleDateTime& date)
{
    SYSTEMTIME time{};
    return date.GetAsSystemTime(time) ? time.wYear * 10'000 + time.wMonth * 100 + time.wDay : 0;
}

COleDateTime DateOf(int number)
{
    return {number / 10'000, number / 100 % 100, number % 100, 0, 0, 0};
}

} // namespace

void CKestrixDlg::FillDate()
{
    VD_TRACE(Flow, L"[Enter] CKestrixDlg::FillDate()");
    const CWaitCursor wait;
    m_DateList.ResetContent();
    if (m_bIsLocal ? FillDateFromProvider() : FillDateFromFiles())
    {
        VD_TRACE(Flow, L"[Leave] CKestrixDlg::FillDate()");
    }
}

// False when there is nothing to list, for a reason that is traced.
bool CKestrixDlg::FillDateFromProvider()
{
    if (m_pIDBManagerProvider == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixDlg::FillDate() - m_pIDBManagerProvider is NULL.");
        return false;
    }
    std::uint32_t subType = 0;
    if (!m_pLogData->GetQueryValueSubType(subType))
    {
        VD_TRACE(Error, L"*** CKestrixDlg::FillDate() - m_pLogData->GetQueryValueSubType() failed.");
        return false;
    }
    const OrlDayListRequest request{.period = {}, .flag = OrlDayListFlag, .zero = {}, .zeroTail = 0};
    void* answer = nullptr;
    const HRESULT status =
        m_pIDBManagerProvider->QueryValue(OrlKindEventLog, OrlQueryDays, subType, &answer, 0, &request);
    if (FAILED(status))
    {
        VD_TRACE(Error, L"*** CKestrixDlg::FillDate() - m_pIDBManagerProvider->QueryValue() failed. [0x%08x]", status);
        return false;
    }
    const auto* const days = static_cast<const OrlVector<OrlDayEntry>*>(answer);
    if (days == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixDlg::FillDate() - pvecLogDate is NULL.");
        return false;
    }
    if (days->first == days->last)
    {
        VD_TRACE(Flow, L"*** CKestrixDlg::FillDate() - No records output.");
        return false;
    }
    for (const OrlDayEntry* entry = days->first; entry < days->last; ++entry)
    {
        AddDay(entry->day);
    }
    return true;
}

// In the order of the provider.
void CKestrixDlg::AddDay(const SYSTEMTIME& day)
{
    std::wstring digits;
    VdCommon::String::Format(digits, L"%4u%02u%02u%02u%02u%02u", day.wYear, day.wMonth, day.wDay, day.wHour,
                             day.wMinute, day.wSecond);
    VD_TRACE(Flow, L"*** CKestrixDlg::ConvertSystemTimeToDateTimeString() - Converted Result: _tsDateTime = %s",
             digits);
    const COleDateTime date(day.wYear, day.wMonth, day.wDay, Noon, 0, 0);
    if (date.GetStatus() != COleDateTime::valid)
    {
        return;
    }
    const std::wstring text = date.Format(VAR_DATEVALUEONLY);
    VD_TRACE(Flow, L"*** CKestrixDlg::FillDate() - Datetime string to be filled : %s", text);
    if (m_bLogOnly)
    {
        AddEntry(AtEnd, text, date);
    }
}

// The day stands beside its text, since a text cannot be read back in every region: not at all where it ends with a
// dot or holds marks of its direction, and with day and month exchanged where the user has chosen another form.
void CKestrixDlg::AddEntry(int index, const std::wstring& text, const COleDateTime& date)
{
    const int entry = m_DateList.InsertString(index, text);
    m_DateList.SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(entry), NumberOf(date));
}

// The day of an entry at its midnight. One that carries none is read from its text; false when that is no date.
bool CKestrixDlg::GetEntryDate(int index, COleDateTime& date) const
{
    const auto number = static_cast<int>(m_DateList.SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(index)));
    if (number > 0)
    {
        date = DateOf(number);
        return true;
    }
    return date.ParseDateTime(m_DateList.GetText(index), LOCALE_NOUSEROVERRIDE);
}

bool CKestrixDlg::FillDateFromFiles()
{
    m_nLogFileBytes = 0;
    m_mapLogFiles.clear();
    VD_TRACE(Info, L"strPath: %s", m_strLogPath);
    for (const DailyFile& file : FindDailyFiles(m_strLogPath))
    {
        if (m_bLogOnly || IsDateInDayRange(file.date, 0, m_nReportSpan))
        {
            InsertDate(file.date, file.size);
        }
    }
    return true;
}

// Newest first: the date goes before the first entry that is older.
void CKestrixDlg::InsertDate(const COleDateTime& date, std::uint32_t size)
{
    int index = 0;
    for (const int count = m_DateList.GetCount(); index < count; ++index)
    {
        COleDateTime other;
        if (GetEntryDate(index, other) && other < date)
        {
            break;
        }
    }
    const std::wstring text = date.Format(VAR_DATEVALUEONLY);
    AddEntry(index, text, date);
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
    if (m_bIsLocal)
    {
        const bool selected = m_DateList.GetCurSel() != LB_ERR;
        m_DeleteButton.EnableWindow(selected);
        m_ExportButton.EnableWindow(selected);
    }
    VD_TRACE(Info, L"before CKestrixDlg::GetLogFileName() ");
    COleDateTime date;
    if (!(m_bIsLocal ? GetLogFileName(date) : HasUsablePath()))
    {
        m_pLogData->ClearLog();
        m_ExportButton.EnableWindow(false);
        return;
    }
    m_ExportButton.EnableWindow(true);
    m_pLogData->ClearLog();
    m_RecordList.SetRedraw(FALSE);
    if (!m_bIsLocal)
    {
        m_pLogData->ReadLogW(m_strLogPath);
    }
    else if (!m_pLogData->ReadLogDBMgr(date))
    {
        VD_TRACE(Error, L"*** CKestrixDlg::OnSelchangeLogDate() - m_pLogData->ReadLogDBMgr() failed.");
        return; // the list stays unpainted until the next day that loads
    }
    m_pLogData->SetListLog();
    ShowFreshList();
    if (HasLongInfo())
    {
        ShowShortInfo();
    }
    VD_TRACE(Flow, L"[Leave]CKestrixDlg::OnSelchangeLogDate() ");
}

// The selected date; false when there is none or its text is no date.
bool CKestrixDlg::GetLogFileName(COleDateTime& date) const
{
    const int selected = m_DateList.GetCurSel();
    return selected != LB_ERR && GetEntryDate(selected, date);
}

bool CKestrixDlg::HasUsablePath() const
{
    if (!m_strLogPath.empty() && m_strLogPath.size() < PathRoom)
    {
        return true;
    }
    const DWORD status = m_strLogPath.empty() ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER;
    VD_TRACE(Error, L"VdCommon::String::CopyTString() failed: 0x%08X", status);
    return false;
}

// A fresh list stands newest first, in descending order of its first column.
void CKestrixDlg::ShowFreshList()
{
    m_nListSortColumn = 0;
    m_nListSortUp = 0;
    m_RecordList.SortHeader().SetSortArrow(m_nListSortColumn, m_nListSortUp);
    if (!m_pLogData->IsNewestFirst())
    {
        m_RecordList.SortItems(m_pLogData->m_pfnCompareDn, 0);
    }
    m_RecordList.SetRedraw(TRUE);
    if (!IsWindowVisible())
    {
        m_RecordList.MeasureRows();
    }
    m_RecordList.Invalidate();
}
