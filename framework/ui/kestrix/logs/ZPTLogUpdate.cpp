#include "framework/ui/kestrix/logs/ZPTLogUpdate.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/CodeOutcomes.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "framework/ui/kestrix/logs/ZPTLogUpdateCodes.h"
#include "resource/UpdateTexts.h"
#include "resource/resource.h"

namespace
{

// The fields of a record.
enum Field : std::size_t
{
    FieldTime,
    FieldEvent,
    FieldResult,
    FieldBefore,
    FieldAfter,
};

constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 80, FieldTime, FieldTime},
    {IDS_COLUMN_RESULT, 120, FieldResult, FieldResult},
    {IDS_UPDATE_COLUMN_EVENT, 1280, FieldEvent, FieldEvent},
};

constexpr LogInfoRow InfoRows[CLogInfoPage::InfoRows] = {
    {IDS_UPDATE_LABEL_BEFORE, true, FieldBefore},
    {IDS_UPDATE_LABEL_AFTER, true, FieldAfter},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_UPDATE_EXPORT_TIME},   {IDS_UPDATE_EXPORT_EVENT}, {IDS_UPDATE_EXPORT_RESULT},
    {IDS_UPDATE_EXPORT_BEFORE}, {IDS_UPDATE_EXPORT_AFTER},
};

constexpr LogLayout Layout = {
    .type = LogTypeUpdate,
    .iconBitmap = IDB_LOG_ICONS,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

enum ResultKind : std::uint32_t
{
    ResultEngineError = 11,  // the error takes the place of the event
    ResultProductError = 13, // the error is the result
};

constexpr std::uint32_t FailedImage = 2;

constexpr CodeOutcome Results[] = {
    {1, {IDS_UPDATE_SUCCESSFUL, 0}},
    {2, {IDS_UPDATE_UP_TO_DATE, 0}},
    {3, {IDS_UPDATE_UNSUCCESSFUL, FailedImage}},
    {ResultEngineError, {IDS_UPDATE_ERROR, FailedImage}},
};
constexpr Outcome OtherResult = {0, 1};

// What the parser keeps from one token to the next, once for the whole process.
std::wstring_view g_strUpdateEvent; // a text of the language file
std::uint32_t g_nUpdateResultKind = 0;
std::int32_t g_nUpdateResultCode = 0;

} // namespace

CZPTLogUpdate::CZPTLogUpdate(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &ColumnOrder<Columns>::Up;
    m_pfnCompareDn = &ColumnOrder<Columns>::Down;
}

void CZPTLogUpdate::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 1:
        return record.Append(ClockText(token));
    case 2:
        m_nUpdateGroup = VdCommon::WideToInteger(token);
        return;
    case 3:
        g_strUpdateEvent = UpdateCodes::EventText(m_nUpdateGroup, CodeOf(token));
        return;
    case 4:
        g_nUpdateResultKind = CodeOf(token);
        return;
    case 5:
        g_nUpdateResultCode = VdCommon::WideToInteger(token);
        return SetResult(record);
    case 6:
        return record.Append(token);
    case 7:
        record.Append(token);
        m_bRecordDone = true;
        return;
    default:
        return;
    }
}

void CZPTLogUpdate::SetResult(LogRec& record)
{
    if (g_nUpdateResultKind == ResultProductError)
    {
        record.AppendLasting(g_strUpdateEvent);
        record.AppendLasting(LoadProductErrorMessage());
        record.nImage = FailedImage;
        return;
    }
    if (g_nUpdateResultKind == ResultEngineError)
    {
        g_strUpdateEvent = LoadAuErrorMessage();
    }
    record.AppendLasting(g_strUpdateEvent);
    AppendOutcome(OutcomeOfCode(Results, g_nUpdateResultKind, OtherResult), record);
}

std::wstring_view CZPTLogUpdate::LoadAuErrorMessage() const
{
    VD_TRACE(Flow, L"[Enter] CZPTLogUpdate::LoadAuErrorMessage()...");
    const std::wstring_view text = UpdateCodes::EngineErrorText(static_cast<std::uint32_t>(g_nUpdateResultCode));
    VD_TRACE(Info, L"ErrorMessage: %s (%d)", text, g_nUpdateResultCode);
    VD_TRACE(Flow, L"[Leave] CZPTLogUpdate::LoadAuErrorMessage()...");
    return text;
}

std::wstring_view CZPTLogUpdate::LoadProductErrorMessage() const
{
    VD_TRACE(Flow, L"[Enter] CZPTLogUpdate::LoadProductErrorMessage()...");
    const std::wstring_view text = UpdateCodes::ProductErrorText(static_cast<std::uint32_t>(g_nUpdateResultCode));
    VD_TRACE(Info, L"ErrorMessage: %s (%d)", text, g_nUpdateResultCode);
    VD_TRACE(Flow, L"[Leave] CZPTLogUpdate::LoadProductErrorMessage()...");
    return text;
}
