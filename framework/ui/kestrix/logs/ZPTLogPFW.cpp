#include "framework/ui/kestrix/logs/ZPTLogPFW.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/FirewallAddress.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <cwchar>

namespace
{

// The fields of a record.
enum Field : std::size_t
{
    FieldOutcome,
    FieldTime,
    FieldProtocol,
    FieldDirection,
    FieldLocal,
    FieldLocalPort,
    FieldRemote,
    FieldRemotePort,
    FieldProgram,
    FieldRule,
    FieldDescription,
};

enum Column : LPARAM
{
    ColumnTime,
    ColumnProtocol,
    ColumnLocal,
    ColumnLocalPort,
    ColumnRemote,
    ColumnRemotePort,
};

constexpr UINT Titles[] = {IDS_TITLE_FIREWALL, IDS_PFW_TITLE_2, IDS_PFW_TITLE_3};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 50, FieldTime, FieldTime},    {IDS_PFW_COLUMN_PROTOCOL, 45, FieldProtocol, FieldProtocol},
    {IDS_PFW_LOCAL, 90, FieldLocal, FieldLocal},    {IDS_PFW_LOCAL_PORT, 50, FieldLocalPort, FieldLocalPort},
    {IDS_PFW_REMOTE, 90, FieldRemote, FieldRemote}, {IDS_PFW_REMOTE_PORT, 50, FieldRemotePort, FieldRemotePort},
};

constexpr LogInfoRow InfoRows[] = {
    {IDS_PFW_LABEL_RESULT, true, FieldOutcome},
    {IDS_PFW_LABEL_PROGRAM, true, FieldProgram, InfoText::Cut},
    {IDS_PFW_LABEL_RULE, true, FieldRule, InfoText::Cut},
    {IDS_PFW_LABEL_DESCRIPTION, true, FieldDescription, InfoText::Cut},
    {0, false},
    {0, false},
    {0, false},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_EXPORT_EVENT},        {IDS_PFW_EXPORT_TIME},
    {IDS_PFW_EXPORT_PROTOCOL}, {IDS_PFW_LOCAL},
    {IDS_PFW_LOCAL_PORT},      {IDS_PFW_REMOTE},
    {IDS_PFW_REMOTE_PORT},     {IDS_PFW_EXPORT_PROGRAM},
    {IDS_PFW_EXPORT_RULE},     {IDS_PFW_EXPORT_DESCRIPTION},
};

constexpr LogLayout Layout = {
    .type = LogTypeFirewall,
    .iconBitmap = IDB_FIREWALL_ICONS,
    .titles = Titles,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr std::wstring_view NoTime = L"00:00:00";
constexpr std::wstring_view LocalAddressMarker = L"LIP";
constexpr wchar_t SystemProgram[] = L"SYSTEM"; // no rule can be made for it

// A record of this log, with what its addresses are sorted by.
struct FirewallRec : LogRec
{
    using LogRec::LogRec;

    std::uint64_t nLocalOrder = 0;
    std::uint64_t nRemoteOrder = 0;
};

void AppendOr(std::wstring_view text, UINT whenEmpty, LogRec& record)
{
    if (text.empty())
    {
        record.AppendLasting(LoadText(whenEmpty));
    }
    else
    {
        record.Append(text);
    }
}

int ComparePorts(const LogRec& first, const LogRec& second, Field field)
{
    const std::int32_t left = VdCommon::WideToInteger(first.Field(field));
    const std::int32_t right = VdCommon::WideToInteger(second.Field(field));
    return left == right ? 0 : left < right ? -1 : 1;
}

// Asks for the texts only where the numbers do not tell: they lie elsewhere in memory.
int CompareAddresses(const FirewallRec& first, const FirewallRec& second, std::uint64_t FirewallRec::*order,
                     Field field)
{
    if (first.*order != second.*order)
    {
        return first.*order < second.*order ? -1 : 1;
    }
    return first.*order == ColonOrder ? first.Field(field).compare(second.Field(field)) : 0;
}

int CompareUp(LPARAM first, LPARAM second, LPARAM column)
{
    const auto& left = *reinterpret_cast<const FirewallRec*>(first);
    const auto& right = *reinterpret_cast<const FirewallRec*>(second);
    switch (column)
    {
    case ColumnTime:
    case ColumnProtocol:
        return ColumnOrder<Columns>::Up(first, second, column);
    case ColumnLocal:
        return CompareAddresses(left, right, &FirewallRec::nLocalOrder, FieldLocal);
    case ColumnRemote:
        return CompareAddresses(left, right, &FirewallRec::nRemoteOrder, FieldRemote);
    case ColumnLocalPort:
        return ComparePorts(left, right, FieldLocalPort);
    case ColumnRemotePort:
        return ComparePorts(left, right, FieldRemotePort);
    default:
        return 0;
    }
}

} // namespace

CZPTLogPFW::CZPTLogPFW(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &CZPTLogPFW::CompareFuncUp;
    m_pfnCompareDn = &CZPTLogPFW::CompareFuncDn;
}

int CALLBACK CZPTLogPFW::CompareFuncUp(LPARAM first, LPARAM second, LPARAM column)
{
    return CompareUp(first, second, column);
}

int CALLBACK CZPTLogPFW::CompareFuncDn(LPARAM first, LPARAM second, LPARAM column)
{
    return CompareUp(second, first, column);
}

LogRec* CZPTLogPFW::NewRecord(RecordMemory& memory) const
{
    return MakeRecord<FirewallRec>(memory);
}

void CZPTLogPFW::SetLocalAddress(std::wstring address)
{
    m_strLocalAddress = std::move(address);
}

void CZPTLogPFW::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 0:
        m_pOutput.emplace(token);
        return;
    case 1:
        m_pOutput->nEvent = CodeOf(token);
        return;
    case 2:
        m_pOutput->nReason = CodeOf(token);
        return;
    case 3:
        m_pOutput->nDirection = CodeOf(token);
        return;
    case 5:
        m_pOutput->nProtocol = CodeOf(token);
        return;
    case 6:
        return SetDirectionKind(token, record);
    case 7:
        return SetLocal(token, record);
    case 8:
    case 10:
        return SetPort(token, record);
    case 9:
        return SetRemote(token, record);
    case 11:
        m_pOutput->nIcmpType = token.empty() ? m_pOutput->nIcmpType : VdCommon::WideToInteger(token);
        return;
    case 12:
        m_pOutput->strEventText = token;
        return;
    case 13:
        return AppendOr(token, IDS_PFW_NO_PROGRAM, record);
    case 14:
        return AppendOr(token, IDS_PFW_NO_RULE, record);
    case 15:
        return SetMessage(token, record);
    default:
        return;
    }
}

void CZPTLogPFW::SetDirectionKind(std::wstring_view token, LogRec& record)
{
    m_pOutput->nDirectionKind = CodeOf(token);
    m_pOutput->AppendOutcome(record);
    const std::wstring_view time = m_pOutput->szTime.data();
    record.Append(time.empty() ? NoTime : time);
    m_pOutput->AppendProtocol(record);
    record.Append(DecimalText(m_pOutput->nDirection));
}

void CZPTLogPFW::SetLocal(std::wstring_view token, LogRec& record)
{
    const bool isMarker = token == LocalAddressMarker && !m_strLocalAddress.empty();
    AppendOr(isMarker ? std::wstring_view(m_strLocalAddress) : token, IDS_PFW_NO_ADDRESS, record);
    static_cast<FirewallRec&>(record).nLocalOrder = AddressOrder(record.LastField());
}

void CZPTLogPFW::SetRemote(std::wstring_view token, LogRec& record)
{
    AppendOr(token, IDS_PFW_NO_ADDRESS, record);
    static_cast<FirewallRec&>(record).nRemoteOrder = AddressOrder(record.LastField());
}

void CZPTLogPFW::SetPort(std::wstring_view token, LogRec& record)
{
    AppendOr(m_pOutput->HasPorts() ? token : std::wstring_view(), IDS_PFW_NO_PORT, record);
}

void CZPTLogPFW::SetMessage(std::wstring_view token, LogRec& record)
{
    m_pOutput->strMessage = token;
    m_pOutput->AppendDescription(record);
    m_pOutput.reset();
    m_bRecordDone = true;
}

void CZPTLogPFW::SetLogInfo(LogRec* record)
{
    if (record == nullptr || m_pInfoDlg == nullptr)
    {
        return;
    }
    CZPTLogBase::SetLogInfo(record);
    Select(*record);
    m_pInfoDlg->ShowAllowRule(CanAllow(*record));
}

void CZPTLogPFW::Select(const LogRec& record)
{
    m_Selection = {};
    m_Selection.nProtocol = ProtocolFromText(record.Field(FieldProtocol));
    m_Selection.nDirection = CodeOf(record.Field(FieldDirection));
    const std::wstring program(record.Field(FieldProgram));
    if (_wcsnicmp(program.c_str(), LoadText(IDS_PFW_NO_PROGRAM).c_str(), FirewallSelection::LongestPath + 1) != 0)
    {
        m_Selection.szAppPath = Bounded(program.c_str(), FirewallSelection::LongestPath);
    }
    VD_TRACE(Info, L"CZPTLogPFW::SetLogInfo Protocol[%d], Direction[%d], AppPath[%s]", m_Selection.nProtocol,
             m_Selection.nDirection, m_Selection.szAppPath);
}

bool CZPTLogPFW::CanAllow(const LogRec& record) const
{
    return !m_Selection.szAppPath.empty() && _wcsicmp(m_Selection.szAppPath.c_str(), SystemProgram) != 0 &&
           !record.Field(FieldOutcome).starts_with(LoadText(IDS_PFW_ALLOWED));
}
