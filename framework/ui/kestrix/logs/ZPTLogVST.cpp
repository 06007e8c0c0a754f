#include "framework/ui/kestrix/logs/ZPTLogVST.h"

#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/BehaviorRecord.h"
#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/KeptTokens.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

namespace
{

// The fields of a record.
enum Field : std::size_t
{
    FieldTime,
    FieldSource,
    FieldName,
    FieldItem,
    FieldProgram,
    FieldResult,
    FieldDetection, // the name again
    FieldKind,
    FieldDetector,
};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_COLUMN_RESULT, 100, FieldResult, FieldResult},
    {IDS_VST_PROGRAM, 175, FieldProgram, FieldProgram},
};

constexpr LogInfoRow InfoRows[] = {
    {IDS_VST_LABEL_KIND, true, FieldKind, InfoText::Whole, IDS_VST_NOT_AVAILABLE},
    {IDS_VST_LABEL_ITEM, true, FieldItem, InfoText::Cut, IDS_VST_NOT_AVAILABLE},
    {IDS_VST_LABEL_PROGRAM, true, FieldProgram, InfoText::Cut},
    {IDS_VST_LABEL_DETECTOR, true, FieldDetector, InfoText::Cut},
    {IDS_VST_LABEL_RESULT, true, FieldResult},
    {IDS_VST_LABEL_RESULT, false},
    {0, false},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_EXPORT_TIME},          {IDS_EXPORT_EVENT},    {IDS_VST_EXPORT_NAME},
    {IDS_VST_EXPORT_ITEM},      {IDS_VST_PROGRAM},     {IDS_VST_EXPORT_RESULT},
    {IDS_VST_EXPORT_DETECTION}, {IDS_VST_EXPORT_KIND}, {IDS_VST_EXPORT_DETECTOR},
};

constexpr LogLayout Layout = {
    .type = LogTypeVst,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr CodeText Results[] = {
    {0, IDS_BEHAVIOR_ALLOWED},
    {1, IDS_BEHAVIOR_LOGGED},
    {2, IDS_BEHAVIOR_BLOCKED},
    {3, IDS_VST_STOPPED},
};
static_assert(IsSorted(Results));

constexpr CodeText Kinds[] = {
    {1, IDS_SUSPICIOUS_BEHAVIOR},  {2, IDS_VST_KIND_STARTUP},  {4, IDS_VST_KIND_HOSTS},
    {8, IDS_VST_KIND_SYSTEM_FILE}, {16, IDS_VST_KIND_BROWSER}, {32, IDS_VST_KIND_SECURITY},
    {64, IDS_VST_KIND_LIBRARY},
};
static_assert(IsSorted(Kinds));

// What stands in place of a detector's name where the product itself caused the event.
struct Marker
{
    std::wstring_view token;
    UINT text;
};

constexpr Marker Markers[] = {
    {L"__ZPT_SELF_PROTECT__", IDS_VST_SELF_PROTECTION},
    {L"__ZPT_USER_DEFINED__", IDS_VST_USER_DEFINED},
};

constexpr std::size_t TextLimit = 260;
constexpr std::size_t ItemLimit = 388;

} // namespace

CZPTLogVST::CZPTLogVST(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &ColumnOrder<Columns>::Up;
    m_pfnCompareDn = &ColumnOrder<Columns>::Down;
}

void CZPTLogVST::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    static constexpr KeptToken<CZPTLogVST> kept[] = {
        {3, &CZPTLogVST::m_nToken3},
        {4, &CZPTLogVST::m_szToken4, TextLimit},
        {5, &CZPTLogVST::m_szToken5, TextLimit},
        {6, &CZPTLogVST::m_nKind},
        {7, &CZPTLogVST::m_szToken7, ItemLimit},
        {9, &CZPTLogVST::m_szToken9, TextLimit},
        {10, &CZPTLogVST::m_szToken10, TextLimit},
        {11, &CZPTLogVST::m_nToken11},
    };
    switch (index)
    {
    case 1:
        record.Append(ClockText(token));
        return;
    case 2:
        return TakeSource(token, record, m_nSource, m_nSourceCode);
    case 8:
        Unescape(token, m_szToken8, TextLimit);
        return;
    case 12:
        return SetResult(token, record);
    case 13:
        return SetDetector(token, record);
    default:
        return KeepToken(*this, kept, index, token);
    }
}

void CZPTLogVST::SetResult(std::wstring_view token, LogRec& record)
{
    const std::uint32_t result = VdCommon::WideToUnsigned(token, 10);
    record.Append(m_szToken10);
    record.Append(m_szToken7);
    record.Append(m_szToken5);
    record.AppendLasting(TextOfCode(Results, result, IDS_BEHAVIOR_UNKNOWN));
    record.Append(m_szToken10);
}

void CZPTLogVST::SetDetector(std::wstring_view token, LogRec& record)
{
    m_szToken13 = Bounded(token, TextLimit);
    record.AppendLasting(TextOfCode(Kinds, m_nKind));
    const auto marker = std::ranges::find(Markers, token, &Marker::token);
    if (marker == std::end(Markers))
    {
        record.Append(m_szToken13);
    }
    else
    {
        record.AppendLasting(LoadText(marker->text));
    }
    m_nSource = 0;
    m_bRecordDone = true;
}

void CZPTLogVST::MakeRecodeMBD(std::size_t index, std::wstring_view token, LogRec& record)
{
    if (AppendBehaviorToken(index, token, record) && !m_bUseDBMgr)
    {
        m_bRecordDone = true;
    }
    if (index == 14)
    {
        m_nSource = 0;
    }
}
