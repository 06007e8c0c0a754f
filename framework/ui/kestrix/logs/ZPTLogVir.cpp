#include "framework/ui/kestrix/logs/ZPTLogVir.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/ThreatSources.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "framework/ui/kestrix/logs/ZPTLogVirCodes.h"
#include "resource/resource.h"

namespace
{

// The fields of a record.
enum Field : std::size_t
{
    FieldTime,
    FieldSource,
    FieldType,
    FieldThreat,
    FieldLocation,
    FieldAction1,
    FieldAction2,
    FieldDetail, // only when it is not empty
};

constexpr int ResultColumn = 1; // shows, and is sorted by, what was done last
constexpr int ThreatColumn = 2;

constexpr UINT Titles[] = {IDS_TITLE_VIRUS, IDS_VIRUS_TITLE_2, IDS_VIRUS_TITLE_3};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_COLUMN_RESULT, 150, FieldAction1, FieldAction1},
    {IDS_COLUMN_THREAT, 125, FieldThreat, FieldThreat},
};

constexpr LogInfoRow InfoRows[] = {
    {IDS_LABEL_THREAT, true, FieldThreat, InfoText::Threat},
    {IDS_LABEL_TYPE, true, FieldType},
    {IDS_LABEL_LOCATION, true, FieldLocation, InfoText::Cut},
    {IDS_LABEL_SOURCE, true, FieldSource},
    {IDS_LABEL_FIRST_ACTION, true, FieldAction1},
    {IDS_LABEL_SECOND_ACTION, true, FieldAction2},
    {IDS_LABEL_DETAIL, true, LastField},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_EXPORT_TIME},          {IDS_EXPORT_SOURCE},
    {IDS_EXPORT_TYPE},          {IDS_COLUMN_THREAT},
    {IDS_EXPORT_LOCATION},      {IDS_EXPORT_FIRST_ACTION},
    {IDS_EXPORT_SECOND_ACTION}, {IDS_LABEL_DETAIL, Colons::AllRemoved},
};

constexpr LogLayout Layout = {
    .type = LogTypeVirus,
    .iconBitmap = IDB_LOG_ICONS,
    .titles = Titles,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

Field ResultField(const LogRec& record)
{
    return record.Field(FieldAction2).empty() ? FieldAction1 : FieldAction2;
}

std::wstring_view ResultText(const LogRec& record)
{
    return record.Field(ResultField(record));
}

int CompareUp(LPARAM first, LPARAM second, LPARAM column)
{
    const auto& left = *reinterpret_cast<const LogRec*>(first);
    const auto& right = *reinterpret_cast<const LogRec*>(second);
    const bool byResult =
        column == ResultColumn && left.strData.size() > ResultColumn && right.strData.size() > ResultColumn;
    return byResult ? ResultText(left).compare(ResultText(right)) : ColumnOrder<Columns>::Up(first, second, column);
}

// Whether both records are compared by the field of the column's own number, the one case whose end is traced.
bool IsPlainColumn(LPARAM first, LPARAM second, LPARAM column)
{
    const auto hasField = [column](LPARAM record)
    { return static_cast<std::size_t>(column) < reinterpret_cast<const LogRec*>(record)->strData.size(); };
    return column != ResultColumn && column != ThreatColumn && hasField(first) && hasField(second);
}

} // namespace

std::uint32_t CZPTLogVir::s_nSource = 0;
std::wstring CZPTLogVir::s_strName;
std::wstring CZPTLogVir::s_strText2;
std::wstring CZPTLogVir::s_strText3;

CZPTLogVir::CZPTLogVir(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &CZPTLogVir::CompareFuncUp;
    m_pfnCompareDn = &CZPTLogVir::CompareFuncDn;
}

void CZPTLogVir::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 0:
    case 3:
        return;
    case 1:
        record.Append(ClockText(token));
        return;
    case 2:
        m_nSource = s_nSource = CodeOf(token);
        record.AppendLasting(ThreatSources::SourceText(s_nSource));
        return;
    default:
        return ThreatSources::IsProxy(s_nSource) ? MakeRecodeProxy(index, token, record)
                                                 : MakeRecodeScan(index, token, record);
    }
}

void CZPTLogVir::MakeRecodeProxy(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 4:
        m_nToken4 = CodeOf(token);
        s_strName = token;
        return;
    case 5:
        m_nToken5 = CodeOf(token);
        Unescape(token, s_strText2);
        record.AppendLasting(ThreatSources::TypeText(s_nSource, m_nToken5));
        return;
    case 6:
        Unescape(token, s_strText3);
        record.Append(s_strName);
        record.Append(s_strText3.append(L" \"").append(s_strText2).append(L"\""));
        return;
    case 7:
        return SetAction1(token);
    case 8:
        m_nResult1 = CodeOf(token);
        return;
    case 9:
        m_nAction2 = CodeOf(token);
        return;
    case 10:
        return SetResult2(token);
    case 11:
        return SetDetail(token);
    default:
        return;
    }
}

void CZPTLogVir::MakeRecodeScan(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 4:
        m_nToken4 = CodeOf(token);
        return;
    case 5:
        m_nToken5 = CodeOf(token);
        record.AppendLasting(ThreatSources::TypeText(s_nSource, m_nToken5));
        return;
    case 6:
    case 7:
        record.Append(token);
        return;
    case 8:
        return SetAction1(token);
    case 9:
        m_nResult1 = CodeOf(token);
        return;
    case 10:
        m_nAction2 = CodeOf(token);
        return;
    case 11:
        return SetResult2(token);
    case 12:
        return SetDetail(token);
    default:
        return;
    }
}

void CZPTLogVir::SetAction1(std::wstring_view token)
{
    m_nAction1 = CodeOf(token);
    m_nResult1 = m_nAction2 = m_nResult2 = 0;
}

void CZPTLogVir::SetResult2(std::wstring_view token)
{
    m_nResult2 = CodeOf(token);
    if (!m_bUseDBMgr)
    {
        m_bRecordDone = true;
    }
}

void CZPTLogVir::SetDetail(std::wstring_view token)
{
    m_strDetail = token;
    m_bRecordDone = true;
}

void CZPTLogVir::MakeRecodeEOL(LogRec& record)
{
    VD_TRACE(Flow, L"[Enter]CZPTLogVir::MakeRecodeEOL()...");

    const VirusCodes::Event event{m_nSource, m_nToken5};
    VirusCodes::Outcome outcome = VirusCodes::FirstOutcome(event, m_nAction1, m_nResult1);
    record.AppendLasting(outcome.text);
    if (VirusCodes::SecondActionCounts(m_nAction1, m_nResult1))
    {
        outcome = VirusCodes::SecondOutcome(event, m_nAction2, m_nResult2);
        record.AppendLasting(outcome.text);
    }
    else
    {
        record.AppendLasting({});
    }
    record.nImage = outcome.image;
    if (!m_strDetail.empty())
    {
        record.Append(m_strDetail);
    }

    // Readers of the trace know this end by the text of the beginning.
    VD_TRACE(Flow, L"[Enter]CZPTLogVir::MakeRecodeEOL()...");
}

bool CZPTLogVir::SetListLog()
{
    VD_TRACE(Flow, L"[Enter]CZPTLogVir::SetListLog()...");
    if (!CZPTLogBase::SetListLog())
    {
        return false;
    }
    VD_TRACE(Flow, L"[Enter]CZPTLogVir::SetListLog()...");
    return true;
}

std::size_t CZPTLogVir::ColumnField(const LogRec& record, std::size_t column) const
{
    return column == ResultColumn ? ResultField(record) : CZPTLogBase::ColumnField(record, column);
}

int CALLBACK CZPTLogVir::CompareFuncUp(LPARAM first, LPARAM second, LPARAM column)
{
    VD_TRACE(Flow, L"[Enter]CALLBACK CZPTLogVir::CompareFuncUp()...");
    const int order = CompareUp(first, second, column);
    if (IsPlainColumn(first, second, column))
    {
        VD_TRACE(Flow, L"[Leave]CALLBACK CZPTLogVir::CompareFuncUp()...");
    }
    return order;
}

int CALLBACK CZPTLogVir::CompareFuncDn(LPARAM first, LPARAM second, LPARAM column)
{
    VD_TRACE(Flow, L"[Enter]CALLBACK CZPTLogVir::CompareFuncDn()...");
    const int order = CompareUp(second, first, column);
    if (IsPlainColumn(first, second, column))
    {
        VD_TRACE(Flow, L"[Leave]CALLBACK CZPTLogVir::CompareFuncDn()...");
    }
    return order;
}
