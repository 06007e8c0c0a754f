#include "framework/ui/kestrix/logs/ZPTLogSpyware.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/BehaviorRecord.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/KeptTokens.h"
#include "framework/ui/kestrix/logs/ShownTexts.h"
#include "framework/ui/kestrix/logs/ThreatSources.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <algorithm>

namespace
{

// The fields of a record. One of the behavior monitor ends with its outcome, the result, and perhaps a detail.
enum Field : std::size_t
{
    FieldTime,
    FieldEvent,
    FieldName,
    FieldFolder, // or what the proxies name
    FieldObject,
    FieldResult,
    FieldThreat,
    FieldSource,
    FieldType,
    FieldDetail,
};

constexpr std::size_t ShownFields = 9; // a record with fewer has no details to show
constexpr std::size_t TypeRow = 1;
constexpr std::size_t PathRow = 2;

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_COLUMN_RESULT, 150, FieldResult, FieldResult},
    {IDS_COLUMN_THREAT, 125, FieldThreat, FieldThreat},
};

constexpr LogInfoRow InfoRows[] = {
    {IDS_LABEL_THREAT, true, FieldThreat, InfoText::Threat},
    {IDS_LABEL_TYPE, true},     // ShowType
    {IDS_LABEL_LOCATION, true}, // ShowPath
    {IDS_LABEL_SOURCE, true, FieldSource},
    {IDS_SPYWARE_LABEL_RESULT, true, FieldResult},
    {IDS_LABEL_DETAIL, true, LastField},
    {IDS_LABEL_SECOND_ACTION, false},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_SPYWARE_EXPORT_TIME},   {IDS_EXPORT_EVENT},
    {IDS_COLUMN_THREAT},         {IDS_EXPORT_LOCATION},
    {IDS_SPYWARE_EXPORT_OBJECT}, {IDS_SPYWARE_EXPORT_RESULT},
    {IDS_COLUMN_THREAT},         {IDS_EXPORT_SOURCE},
    {IDS_EXPORT_TYPE},           {IDS_LABEL_DETAIL, Colons::AllRemoved},
};

constexpr LogLayout Layout = {
    .type = LogTypeSpyware,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

// What came of a find of the scanners.
struct ScanResult
{
    std::uint32_t code;
    UINT text;
    std::uint32_t image;
};

constexpr ScanResult ScanResults[] = {
    {1, IDS_SPYWARE_DETECTED, 4},
    {2, IDS_SPYWARE_REMOVED, 1},
    {3, IDS_SPYWARE_NOT_REMOVED, 3},
};

constexpr std::uint32_t UnknownResultImage = 3;

// What the proxies did about a find.
struct ProxyAction
{
    std::uint32_t code;
    UINT done;
    UINT failed;
};

constexpr ProxyAction ProxyActions[] = {
    {0, IDS_ACTION_NONE, IDS_ACTION_NONE},
    {3, IDS_ACTION_CLEANED, IDS_ACTION_NOT_CLEANED},
    {4, IDS_ACTION_DELETED, IDS_ACTION_NOT_DELETED},
    {101, IDS_ACTION_BLOCKED, IDS_ACTION_NOT_BLOCKED},
    {201, IDS_ACTION_DOWNLOAD_STOPPED, IDS_ACTION_DOWNLOAD_NOT_STOPPED},
};

constexpr std::uint32_t StopDownload = 201;
constexpr std::uint32_t ResultDone = 1;

constexpr std::size_t TextLimit = 260;
constexpr std::size_t FolderLimit = 388;
constexpr std::size_t ProxyNameLimit = 127;
constexpr std::size_t ProxyTextLimit = 511;
constexpr std::size_t Proxy3TextLimit = 512;

std::wstring_view ProxyActionText(std::uint32_t action, std::uint32_t result)
{
    const auto row = std::ranges::find(ProxyActions, action, &ProxyAction::code);
    return row == std::end(ProxyActions) ? std::wstring_view()
                                         : std::wstring_view(LoadText(result == ResultDone ? row->done : row->failed));
}

// The two questions are about records that are as long as the detail pane needs.

bool HasUnknownType(const LogRec& record)
{
    return record.Field(FieldType).empty() && record.Field(FieldThreat) == LoadText(IDS_UNKNOWN_THREAT_NAME);
}

// Whether the folder names the object as well.
bool HoldsItsObject(const LogRec& record)
{
    return record.Field(FieldFolder).find(record.Field(FieldObject)) != std::wstring_view::npos;
}

} // namespace

CZPTLogSpyware::CZPTLogSpyware(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &ColumnOrder<Columns>::Up;
    m_pfnCompareDn = &ColumnOrder<Columns>::Down;
}

void CZPTLogSpyware::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    if (m_nSource == BehaviorSource)
    {
        MakeRecodeMBD(index, token, record);
    }
    else if (ThreatSources::IsProxy(m_nSource))
    {
        MakeRecodeVdProxy(index, token, record);
    }
    else if (m_nSource != 0)
    {
        MakeRecodeVST(index, token, record);
    }
    else if (index == 1)
    {
        record.Append(ClockText(token));
    }
    else if (index == 2)
    {
        TakeSource(token, record, m_nSource, m_nSourceCode);
    }
}

void CZPTLogSpyware::EndFileRecord()
{
    if (!m_bUseDBMgr)
    {
        m_bRecordDone = true;
    }
}

void CZPTLogSpyware::EndRecord()
{
    m_nSource = 0;
    m_bRecordDone = true;
}

void CZPTLogSpyware::MakeRecodeMBD(std::size_t index, std::wstring_view token, LogRec& record)
{
    if (AppendBehaviorToken(index, token, record))
    {
        EndFileRecord();
    }
    if (index == 15)
    {
        m_strDetail = token;
        record.Append(m_strDetail);
        EndRecord();
    }
}

void CZPTLogSpyware::MakeRecodeVST(std::size_t index, std::wstring_view token, LogRec& record)
{
    static constexpr KeptToken<CZPTLogSpyware> kept[] = {
        {3, &CZPTLogSpyware::m_nToken3},
        {4, &CZPTLogSpyware::m_szToken4, TextLimit},
        {5, &CZPTLogSpyware::m_szToken5, TextLimit},
        {6, &CZPTLogSpyware::m_szToken6, FolderLimit},
        {8, &CZPTLogSpyware::m_szToken8, TextLimit},
        {9, &CZPTLogSpyware::m_nToken9},
        {10, &CZPTLogSpyware::m_szToken10, TextLimit},
        {11, &CZPTLogSpyware::m_nToken11},
    };
    switch (index)
    {
    case 7:
        Unescape(token, m_szToken7, TextLimit);
        return;
    case 12:
        return SetScanResult(token, record);
    case 13:
        m_szToken13 = Bounded(token, TextLimit);
        record.Append(m_szToken13);
        return EndFileRecord();
    case 14:
        m_strDetail = token;
        record.Append(m_strDetail);
        return EndRecord();
    default:
        return KeepToken(*this, kept, index, token);
    }
}

void CZPTLogSpyware::SetScanResult(std::wstring_view token, LogRec& record)
{
    const std::uint32_t code = VdCommon::WideToUnsigned(token, 10);
    const auto result = std::ranges::find(ScanResults, code, &ScanResult::code);
    const bool isKnown = result != std::end(ScanResults);
    record.Append(m_szToken10);
    const std::wstring_view threat = record.LastField();
    record.Append(m_szToken6);
    record.Append(m_szToken5);
    record.AppendLasting(isKnown ? std::wstring_view(LoadText(result->text)) : std::wstring_view());
    record.AppendLasting(threat); // kept already
    record.AppendLasting(ThreatSources::SourceText(m_nSource));
    record.nImage = isKnown ? result->image : UnknownResultImage;
}

void CZPTLogSpyware::MakeRecodeVdProxy(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 3:
        m_nToken3 = CodeOf(token);
        return;
    case 4:
        (IsWeb() ? m_szProxy3Name : m_szProxyName) = Bounded(token, ProxyNameLimit);
        return;
    case 5:
        (IsWeb() ? m_szProxy3Text : m_szProxyText) = Bounded(token, IsWeb() ? Proxy3TextLimit : ProxyTextLimit);
        return;
    case 6:
        return SetProxyItem(token);
    case 7:
        (IsWeb() ? m_nProxy3Action : m_nProxyAction) = CodeOf(token);
        return;
    case 8:
        return SetProxyResult(token, record);
    case 9:
        m_strDetail = token;
        m_bRecordDone = true;
        return;
    default:
        return;
    }
}

bool CZPTLogSpyware::IsWeb() const
{
    return m_nSource == ThreatSources::Web;
}

void CZPTLogSpyware::SetProxyItem(std::wstring_view token)
{
    if (m_nSource == ThreatSources::MailIn)
    {
        m_szProxyItem1 = Bounded(token, ProxyNameLimit);
    }
    else if (m_nSource == ThreatSources::MailOut)
    {
        m_szProxyItem2 = Bounded(token, ProxyTextLimit);
    }
}

void CZPTLogSpyware::SetProxyResult(std::wstring_view token, LogRec& record)
{
    (IsWeb() ? m_nProxy3Result : m_nProxyResult) = CodeOf(token);
    record.Append(IsWeb() ? m_szProxy3Name : m_szProxyName);
    record.Append(IsWeb() ? std::wstring_view() : m_nSource == ThreatSources::MailIn ? m_szProxyItem1 : m_szProxyItem2);
    record.Append(IsWeb() ? m_szProxy3Text : m_szProxyText);
    EndFileRecord();
}

void CZPTLogSpyware::MakeRecodeEOL(LogRec& record)
{
    if (!ThreatSources::IsProxy(m_nSource))
    {
        return;
    }
    const std::uint32_t action = IsWeb() ? m_nProxy3Action : m_nProxyAction;
    // Whether a download from the web was stopped is told by the result of the last mail.
    const bool byWebResult = IsWeb() && action != StopDownload;
    record.AppendLasting(ProxyActionText(action, byWebResult ? m_nProxy3Result : m_nProxyResult));
    record.Append(IsWeb() ? m_szProxy3Name : m_szProxyName);
    record.AppendLasting(ThreatSources::SourceText(m_nSource));
    record.AppendLasting(ThreatSources::TypeText(m_nSource, 0));
    record.Append(m_strDetail);
    m_nSource = 0;
}

void CZPTLogSpyware::SetLogInfo(LogRec* record)
{
    if (record == nullptr)
    {
        return;
    }
    if (record->strData.size() < ShownFields)
    {
        VD_TRACE(Error, L"CZPTLogSpyware::SetLogInfo() - pLogRec->strData is invalid. size = [%d]",
                 record->strData.size());
        ShowNothing();
        return;
    }
    if (m_pInfoDlg == nullptr)
    {
        return;
    }
    CZPTLogBase::SetLogInfo(record);
    ShowType(*record);
    ShowPath(*record);
}

// Nor what stands there of the record before.
void CZPTLogSpyware::ShowNothing()
{
    m_strInfoText.clear();
    if (m_pInfoDlg != nullptr)
    {
        m_pInfoDlg->ClearValues();
    }
}

void CZPTLogSpyware::AddInfoTexts(const LogRec& record, ShownTexts& texts) const
{
    if (record.strData.size() < ShownFields)
    {
        return;
    }
    CZPTLogBase::AddInfoTexts(record, texts);
    texts.Add(HasUnknownType(record) ? std::wstring_view(LoadText(IDS_SPYWARE_UNKNOWN_TYPE)) : record.Field(FieldType));
    const std::wstring_view folder = record.Field(FieldFolder);
    if (HoldsItsObject(record))
    {
        texts.Add(folder);
    }
    else
    {
        const bool isParted = folder.empty() || folder.back() == L'\\';
        texts.AddMade(folder, isParted ? L"" : L"\\", record.Field(FieldObject));
    }
}

void CZPTLogSpyware::ShowType(const LogRec& record)
{
    std::wstring type(record.Field(FieldType));
    if (HasUnknownType(record))
    {
        type = LoadText(IDS_SPYWARE_UNKNOWN_TYPE);
        m_pInfoDlg->DrawInfoText(TypeRow, TruncateText(type), type);
    }
    else
    {
        m_pInfoDlg->DrawInfoText(TypeRow, type, type);
    }
}

void CZPTLogSpyware::ShowPath(LogRec& record)
{
    std::wstring path(record.Field(FieldFolder));
    if (!HoldsItsObject(record))
    {
        if (!path.empty() && path.back() != L'\\')
        {
            path += L'\\';
            record.strData[FieldFolder] = record.Keep(path); // an export and the next click find it there
        }
        path += record.Field(FieldObject);
    }
    m_pInfoDlg->SetInfoText(PathRow, TruncateText(path), path);
    m_strInfoText = path;
}
