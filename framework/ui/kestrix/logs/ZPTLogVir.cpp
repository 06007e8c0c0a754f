#include "framework/ui/kestrix/logs/ZPTLogVir.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_DelimiterChanger.h"
#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/ExportStream.h"
#include "framework/ui/kestrix/logs/LogFields.h"
#include "framework/ui/kestrix/logs/ZPTLogVirCodes.h"
#include "platform/dialog/ModuleState.h"
#include "resource/resource.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr UINT Titles[] = {IDS_TITLE_VIRUS, IDS_VIRUS_TITLE_2, IDS_VIRUS_TITLE_3};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100},
    {IDS_COLUMN_RESULT, 150},
    {IDS_COLUMN_THREAT, 125},
};

constexpr LogInfoRow InfoRows[] = {
    {IDS_LABEL_THREAT, true}, {IDS_LABEL_TYPE, true},         {IDS_LABEL_LOCATION, true},
    {IDS_LABEL_SOURCE, true}, {IDS_LABEL_FIRST_ACTION, true}, {IDS_LABEL_SECOND_ACTION, true},
    {IDS_LABEL_DETAIL, true},
};

constexpr LogLayout Layout = {LogTypeVirus, Titles, Columns, InfoRows, IDB_LOG_ICONS};

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

constexpr UINT ExportLabels[] = {IDS_EXPORT_TIME,         IDS_EXPORT_SOURCE,   IDS_EXPORT_TYPE,
                                 IDS_COLUMN_THREAT,       IDS_EXPORT_LOCATION, IDS_EXPORT_FIRST_ACTION,
                                 IDS_EXPORT_SECOND_ACTION};

std::uint32_t ToNumber(std::wstring_view token)
{
    return static_cast<std::uint32_t>(VdCommon::WideToInteger(token));
}

void Decode(std::wstring& text, std::wstring_view token)
{
    text.clear();
    VdCommon::DelimiterChanger().Decode(text, token);
}

// The text that column 1 shows: what was done last.
std::wstring_view ResultText(const LogRec& record)
{
    const std::wstring_view second = record.Field(FieldAction2);
    return second.empty() ? record.Field(FieldAction1) : second;
}

std::wstring_view ColumnText(const LogRec& record, std::size_t column)
{
    return column == 1 ? ResultText(record) : record.Field(column == 2 ? std::size_t{FieldThreat} : column);
}

// Compares the texts that the two records show in the column; records too short for the column count as equal.
int CompareColumn(const LogRec& left, const LogRec& right, std::size_t column)
{
    return column >= left.strData.size() || column >= right.strData.size()
               ? 0
               : ColumnText(left, column).compare(ColumnText(right, column));
}

// Whether the column is compared by its own number, the one case whose end the compare callbacks trace.
bool IsPlainColumn(const LogRec& left, const LogRec& right, std::size_t column)
{
    return column != 1 && column != 2 && column < left.strData.size() && column < right.strData.size();
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
        m_nSource = s_nSource = ToNumber(token);
        record.AppendLasting(VirusCodes::SourceText(s_nSource));
        return;
    default:
        return VirusCodes::IsProxySource(s_nSource) ? MakeRecodeProxy(index, token, record)
                                                    : MakeRecodeScan(index, token, record);
    }
}

void CZPTLogVir::MakeRecodeProxy(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 4:
        m_nToken4 = ToNumber(token);
        s_strName = token;
        return;
    case 5:
        m_nToken5 = ToNumber(token);
        Decode(s_strText2, token);
        record.AppendLasting(VirusCodes::TypeText({s_nSource, m_nToken5}));
        return;
    case 6:
        Decode(s_strText3, token);
        record.Append(s_strName);
        record.Append(s_strText3 + L" \"" + s_strText2 + L"\"");
        return;
    case 7:
        return SetAction1(token);
    case 8:
        m_nResult1 = ToNumber(token);
        return;
    case 9:
        m_nAction2 = ToNumber(token);
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
        m_nToken4 = ToNumber(token);
        return;
    case 5:
        m_nToken5 = ToNumber(token);
        record.AppendLasting(VirusCodes::TypeText({s_nSource, m_nToken5}));
        return;
    case 6:
    case 7:
        record.Append(token);
        return;
    case 8:
        return SetAction1(token);
    case 9:
        m_nResult1 = ToNumber(token);
        return;
    case 10:
        m_nAction2 = ToNumber(token);
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
    m_nAction1 = ToNumber(token);
    m_nResult1 = m_nAction2 = m_nResult2 = 0;
}

void CZPTLogVir::SetResult2(std::wstring_view token)
{
    m_nResult2 = ToNumber(token);
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
    if (!SetListLogWithIcons())
    {
        return false;
    }
    VD_TRACE(Flow, L"[Enter]CZPTLogVir::SetListLog()...");
    return true;
}

void CZPTLogVir::GetColumnText(const LogRec* record, std::wstring& text, int column) const
{
    if (column >= 0 && column < static_cast<int>(std::size(Columns)))
    {
        text = ColumnText(*record, static_cast<std::size_t>(column));
    }
}

void CZPTLogVir::SetLogInfo(LogRec* record)
{
    if (record == nullptr || m_pInfoDlg == nullptr)
    {
        return;
    }
    const std::wstring threat(record->Field(FieldThreat));
    const bool known = threat != LoadText(IDS_UNKNOWN_THREAT_NAME);
    if (known)
    {
        m_pInfoDlg->SetInfoText(IDC_INFO_VALUE_0_LINK, threat);
        m_pInfoDlg->SetInfoToolTip(IDC_INFO_VALUE_0_LINK, threat);
    }
    else
    {
        m_pInfoDlg->SetInfoText(IDC_INFO_VALUE_0_TEXT, LoadText(IDS_UNKNOWN_THREAT));
    }
    m_pInfoDlg->ShowInfo(IDC_INFO_VALUE_0_TEXT, !known);
    m_pInfoDlg->ShowInfo(IDC_INFO_VALUE_0_LINK, known);

    m_strInfoText = record->Field(FieldLocation);
    m_pInfoDlg->SetInfoText(IDC_INFO_VALUE_1, std::wstring(record->Field(FieldType)));
    m_pInfoDlg->SetInfoText(IDC_INFO_VALUE_2, TruncateText(m_strInfoText));
    m_pInfoDlg->SetInfoToolTip(IDC_INFO_VALUE_2, m_strInfoText);
    m_pInfoDlg->SetInfoText(IDC_INFO_VALUE_3, std::wstring(record->Field(FieldSource)));
    m_pInfoDlg->SetInfoText(IDC_INFO_VALUE_4, std::wstring(record->Field(FieldAction1)));
    m_pInfoDlg->SetInfoText(IDC_INFO_VALUE_5, std::wstring(record->Field(FieldAction2)));
    m_pInfoDlg->SetInfoText(IDC_INFO_VALUE_6, std::wstring(record->strData.back()));
}

bool CZPTLogVir::WriteExportHeader(ExportStream& stream)
{
    for (const UINT label : ExportLabels)
    {
        if (!stream.WriteLabel(LoadText(label), L'\t'))
        {
            return false;
        }
    }
    std::wstring detail = LoadText(IDS_LABEL_DETAIL);
    std::erase(detail, L':');
    return stream.WriteLabel(detail, L'\n');
}

int CALLBACK CZPTLogVir::CompareFuncUp(LPARAM first, LPARAM second, LPARAM column)
{
    VD_TRACE(Flow, L"[Enter]CALLBACK CZPTLogVir::CompareFuncUp()...");
    const auto& left = *reinterpret_cast<const LogRec*>(first);
    const auto& right = *reinterpret_cast<const LogRec*>(second);
    const int order = CompareColumn(left, right, static_cast<std::size_t>(column));
    if (IsPlainColumn(left, right, static_cast<std::size_t>(column)))
    {
        VD_TRACE(Flow, L"[Leave]CALLBACK CZPTLogVir::CompareFuncUp()...");
    }
    return order;
}

int CALLBACK CZPTLogVir::CompareFuncDn(LPARAM first, LPARAM second, LPARAM column)
{
    VD_TRACE(Flow, L"[Enter]CALLBACK CZPTLogVir::CompareFuncDn()...");
    const auto& left = *reinterpret_cast<const LogRec*>(first);
    const auto& right = *reinterpret_cast<const LogRec*>(second);
    const int order = CompareColumn(right, left, static_cast<std::size_t>(column));
    if (IsPlainColumn(left, right, static_cast<std::size_t>(column)))
    {
        VD_TRACE(Flow, L"[Leave]CALLBACK CZPTLogVir::CompareFuncDn()...");
    }
    return order;
}
