#include "framework/ui/kestrix/app/page/DateList.h"

#include "common/OrlDbMg.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_String.h"
#include "framework/ui/kestrix/app/page/DayNumber.h"
#include "framework/ui/kestrix/logs/DailyFiles.h"
#include "framework/ui/kestrix/logs/DateRange.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/OleDateTime.h"
#include "platform/dialog/WinApp.h"

namespace
{

constexpr int AtEnd = -1;
constexpr int Noon = 12;

DayNumber NumberOf(const COleDateTime& date)
{
    SYSTEMTIME time{};
    return date.GetAsSystemTime(time) ? DayNumberOf(time) : NoDay;
}

} // namespace

void CDateList::Fill(const DaySource& source)
{
    VD_TRACE(Flow, L"[Enter] CKestrixDlg::FillDate()");
    const CWaitCursor wait;
    ResetContent();
    if (!source.isLocal)
    {
        FillFromFiles(source);
    }
    else if (!FillFromProvider(source))
    {
        return;
    }
    VD_TRACE(Flow, L"[Leave] CKestrixDlg::FillDate()");
}

// False when there is nothing to list, for a reason that is traced.
bool CDateList::FillFromProvider(const DaySource& source)
{
    if (source.provider == nullptr)
    {
        VD_TRACE(Error, L"*** CKestrixDlg::FillDate() - m_pIDBManagerProvider is NULL.");
        return false;
    }
    std::uint32_t subType = 0;
    if (!source.log.GetQueryValueSubType(subType))
    {
        VD_TRACE(Error, L"*** CKestrixDlg::FillDate() - m_pLogData->GetQueryValueSubType() failed.");
        return false;
    }
    const OrlDayListRequest request{.period = {}, .flag = OrlDayListFlag, .zero = {}, .zeroTail = 0};
    void* answer = nullptr;
    const HRESULT status = source.provider->QueryValue(OrlKindEventLog, OrlQueryDays, subType, &answer, 0, &request);
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
        AddDay(entry->day, source.all);
    }
    return true;
}

// In the order of the provider.
void CDateList::AddDay(const SYSTEMTIME& day, bool isListed)
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
    if (isListed)
    {
        AddEntry(AtEnd, text, date);
    }
}

// The day stands beside its text, since a text cannot be read back in every region: not at all where it ends with a
// dot or holds marks of its direction, and with day and month exchanged where the user has chosen another form.
void CDateList::AddEntry(int index, const std::wstring& text, const COleDateTime& date)
{
    SetItemData(InsertString(index, text), NumberOf(date));
}

// The day of an entry at its midnight. One that carries none is read from its text; false when that is no date.
bool CDateList::GetEntryDate(int index, COleDateTime& date) const
{
    if (const DayNumber day = GetItemData(index); day != NoDay)
    {
        date = COleDateTime(StartOfDay(day));
        return true;
    }
    return date.ParseDateTime(GetText(index), LOCALE_NOUSEROVERRIDE);
}

bool CDateList::GetSelectedDate(COleDateTime& date) const
{
    const int selected = GetCurSel();
    return selected != LB_ERR && GetEntryDate(selected, date);
}

void CDateList::FillFromFiles(const DaySource& source)
{
    m_nLogFileBytes = 0;
    m_mapLogFiles.clear();
    VD_TRACE(Info, L"strPath: %s", source.path);
    ForEachDailyFile(source.path,
                     [&](const DailyFile& file)
                     {
                         if (source.all || IsDateInDayRange(file.date, 0, source.span))
                         {
                             InsertDate(file.date, file.size);
                         }
                     });
}

// Newest first: the date goes before the first entry that is older.
void CDateList::InsertDate(const COleDateTime& date, std::uint32_t size)
{
    int index = 0;
    for (const int count = GetCount(); index < count; ++index)
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
