// How lines become records: the two readers, the splitter and the parser of one line.

#include "common/OrlDbMg.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/logs/FindCharacter.h"
#include "framework/ui/kestrix/logs/LogFileReader.h"
#include "framework/ui/kestrix/logs/TextLineStream.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/DialogFramework.h"
#include "platform/dialog/OleDateTime.h"
#include "resource/resource.h"

#include <algorithm>
#include <new>

namespace
{

constexpr wchar_t FieldDelimiter = L'|';
constexpr std::wstring_view LineEnd = L"\r\n";

std::wstring_view TextOf(const OrlWideString& string)
{
    const wchar_t* const text = string.capacity < OrlInlineCapacity ? string.inlineText : string.text;
    return {text, static_cast<std::size_t>(string.length)};
}

// The day of the date from its first to its last second; the first day of year 1, which has no records, for a date
// that is none.
OrlPeriod DayOf(const COleDateTime& date)
{
    SYSTEMTIME given{};
    if (!date.GetAsSystemTime(given))
    {
        given.wYear = given.wMonth = given.wDay = 1;
    }
    OrlPeriod day{};
    day.from.wYear = given.wYear;
    day.from.wMonth = given.wMonth;
    day.from.wDay = given.wDay;
    day.to = day.from;
    day.to.wHour = 23;
    day.to.wMinute = 59;
    day.to.wSecond = 59;
    return day;
}

} // namespace

bool CZPTLogBase::ReadLogW(const std::wstring& path)
{
    VD_TRACE(Info, L"[Enter]CZPTLogBase::ReadLogW");
    LogFileReader reader;
    if (!reader.Open(path, GetReadLimit()))
    {
        return false;
    }
    std::wstring_view line;
    while (reader.NextLine(line) && PutRecode(line, AnyLine))
    {
    }
    VD_TRACE(Info, L"[Leave]CZPTLogBase::ReadLogW");
    return true;
}

bool CZPTLogBase::ReadLogFile(const std::wstring& path, int kind)
{
    TextLineStream stream;
    if (!stream.Open(path, GetReadLimit()))
    {
        VD_TRACE(Info, L"[LogView] Could not open log file (%s)", path);
        return false;
    }
    std::wstring line;
    while (stream.ReadLine(line) && PutRecode(line, kind))
    {
    }
    if (stream.Failed())
    {
        VD_TRACE(Info, L"[LogView] Could not open log file (%s)", path);
        return false;
    }
    return true;
}

bool CZPTLogBase::ReadLogDBMgr(const COleDateTime& date)
{
    static constexpr wchar_t name[] = L"CZPTLogBase::ReadLogDBMgr";
    VD_TRACE(Flow, L"[Enter] %s()...", name);
    const bool done = [&]
    {
        if (m_pIDBManagerProvider == nullptr)
        {
            VD_TRACE(Error, L"*** CZPTLogBase::ReadLogDBMgr() - m_pIDBManagerProvider is NULL.");
            return false;
        }
        const OrlPeriod day = DayOf(date);
        std::uint32_t subType = 0;
        if (!ConvertLogExtToQueryValueSubType(m_strExt, subType))
        {
            VD_TRACE(Error, L"*** CZPTLogBase::ReadLogDBMgr() - ConvertLogExtToQueryValueSubType() failed.");
            return false;
        }
        void* pvecReadLog = nullptr;
        const HRESULT result =
            m_pIDBManagerProvider->QueryValue(OrlKindEventLog, OrlQueryRecords, subType, &pvecReadLog, 0, &day);
        if (FAILED(result))
        {
            VD_TRACE(Error, L"*** CZPTLogBase::ReadLogDBMgr() - m_pIDBManagerProvider->QueryValue() failed. [0x%08x]",
                     result);
            return false;
        }
        return PutEntries(static_cast<const OrlVector<OrlLogEntry>*>(pvecReadLog));
    }();
    VD_TRACE(Flow, L"[Leave] %s()...", name);
    return done;
}

bool CZPTLogBase::PutEntries(const OrlVector<OrlLogEntry>* entries)
{
    if (entries == nullptr)
    {
        VD_TRACE(Flow, L"*** CZPTLogBase::ReadLogDBMgr() - pvecReadLog is NULL.");
        return false;
    }
    if (entries->first == entries->last)
    {
        VD_TRACE(Flow, L"*** CZPTLogBase::ReadLogDBMgr() - No records output.");
        return true;
    }
    const bool allPut =
        std::all_of(entries->first, entries->last,
                    [this](const OrlLogEntry& entry) { return PutRecode(TextOf(entry.line), AnyLine); });
    if (!allPut)
    {
        VD_TRACE(Error, L"*** CZPTLogBase::ReadLogDBMgr() - PutRecode() failed.");
    }
    return allPut;
}

bool CZPTLogBase::PutRecode(std::wstring_view line, int kind)
{
    VD_TRACE(Flow, L"[Enter]CZPTLogBase::PutRecode()...");
    LogRec* record = nullptr;
    try
    {
        record = NewRecord(m_Memory);
        record->strData.reserve(m_nFieldCount);
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
    try
    {
        if (!ParseRecord(*record, line, kind))
        {
            return false;
        }
        m_nFieldCount = record->strData.size();
        m_arrRecord.push_back(record);
    }
    catch (const std::bad_alloc&)
    {
        ShowMessageBox(AfxGetModalOwner(), LoadText(IDS_OUT_OF_MEMORY), LoadText(IDS_OUT_OF_MEMORY_CAPTION),
                       MB_ICONWARNING);
        return false;
    }
    VD_TRACE(Flow, L"[Leave]CZPTLogBase::PutRecode()...");
    return true;
}

LogRec* CZPTLogBase::NewRecord(RecordMemory& memory) const
{
    return MakeRecord<LogRec>(memory);
}

bool CZPTLogBase::ParseRecord(LogRec& record, std::wstring_view line, int kind)
{
    m_arrToken.clear();
    std::size_t count = Token(line, m_arrToken, FieldDelimiter, kind);
    m_bRecordDone = false;
    for (std::size_t i = 0; i < count; ++i)
    {
        MakeRecode(i, m_arrToken[i], record);
    }
    if (!m_bRecordDone)
    {
        m_bRecordDone = true;
        VD_TRACE(Error, L"CZPTLogBase::PutRecode() - Parsed Result: Log format is invalid!");
        return false;
    }
    // A short record gets its missing list columns by the number of its tokens, not of its fields.
    for (; count <= m_arrColumn.size() + 1; ++count)
    {
        record.Append({});
    }
    MakeRecodeEOL(record);
    return true;
}

std::size_t CZPTLogBase::Token(std::wstring_view line, std::vector<std::wstring_view>& tokens, wchar_t delimiter,
                               int kind)
{
    if (line.empty())
    {
        return 0;
    }
    const std::size_t before = tokens.size();
    const wchar_t* const end = line.data() + line.size();
    const wchar_t* start = line.data();
    ForEachCharacter(start, end, delimiter,
                     [&](const wchar_t* found)
                     {
                         tokens.emplace_back(start, found);
                         start = found + 1;
                     });
    std::wstring_view last(start, end);
    if (line.ends_with(LineEnd))
    {
        // A line of a stream keeps as many characters as the whole line has without three: this cuts nothing unless
        // the last token begins within the first three characters.
        last = kind == StreamLine ? last.substr(0, line.size() - std::min<std::size_t>(line.size(), 3))
                                  : last.substr(0, last.size() - std::min(last.size(), LineEnd.size()));
        VD_TRACE(Flow, L"*** CZPTLogBase::Token() - Removed return character. strTemp = [%s]", last);
    }
    VD_TRACE(Flow, L"*** CZPTLogBase::Token() - strTemp = [%s]", last);
    tokens.push_back(last);
    return tokens.size() - before;
}

void CZPTLogBase::MakeRecode(std::size_t, std::wstring_view token, LogRec& record)
{
    record.Append(token);
    m_bRecordDone = true;
}

void CZPTLogBase::MakeRecodeEOL(LogRec&) {}

bool CZPTLogBase::GetQueryValueSubType(std::uint32_t& subType)
{
    return ConvertLogExtToQueryValueSubType(m_strExt, subType);
}

bool CZPTLogBase::ConvertLogExtToQueryValueSubType(std::wstring_view name, std::uint32_t& subType)
{
    const std::wstring_view extension = name.substr(name.size() - std::min<std::size_t>(name.size(), 3));
    const auto found = std::ranges::find(LogKinds(), extension, &LogKind::extension);
    if (found == LogKinds().end())
    {
        subType = 0;
        VD_TRACE(Flow,
                 L"*** CZPTLogBase::ConvertLogExtToQueryValueSubType - Convert LogExt is not valid. _tszFileExt = %s.",
                 extension);
        return false;
    }
    subType = found->querySubType;
    VD_TRACE(Flow, L"*** CZPTLogBase::ConvertLogExtToQueryValueSubType - *_pdwEventType = %u, _tszFileExt = %s.",
             subType, extension);
    return true;
}
