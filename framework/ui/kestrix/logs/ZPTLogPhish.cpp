#include "framework/ui/kestrix/logs/ZPTLogPhish.h"

#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "framework/ui/kestrix/logs/ShownTexts.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/ResourceText.h"
#include "resource/WebAndTaskTexts.h"
#include "resource/resource.h"

#include <algorithm>
#include <cwchar>
#include <span>

namespace
{

// The fields of a record. Of dangerous content the address that is shown is the related one.
enum Field : std::size_t
{
    FieldTime,
    FieldKind,
    FieldAddress,
    FieldRelated,
    FieldCategory,
    FieldRisk,
};

constexpr int AddressColumn = 1;

// Sorted by the address, also where the related one is shown.
constexpr LogColumn Columns[] = {
    {IDS_COLUMN_TIME, 100, FieldTime, FieldTime},
    {IDS_COLUMN_ADDRESS, 275, FieldAddress, FieldAddress},
};

constexpr std::size_t RiskRow = 3;

constexpr LogInfoRow InfoRows[CLogInfoPage::InfoRows] = {
    {IDS_PHISHING_LABEL_CATEGORY, true},
    {},
    {},
    {IDS_PHISHING_LABEL_RISK, true},
};

constexpr ExportLabel ExportLabels[] = {
    {IDS_EXPORT_EVENT_TIME},
    {IDS_COLUMN_ADDRESS},
    {IDS_PHISHING_EXPORT_RELATED},
    {IDS_PHISHING_LABEL_CATEGORY, Colons::LastRemoved},
    {IDS_PHISHING_LABEL_RISK, Colons::LastRemoved},
};

constexpr LogLayout Layout = {
    .type = LogTypePhishing,
    .columns = Columns,
    .infoRows = InfoRows,
    .exportLabels = ExportLabels,
};

constexpr std::uint32_t KindDangerous = 0x80;

// A code that is a text of its own, and what it means.
struct NamedText
{
    std::wstring_view code;
    UINT text;
};

constexpr NamedText Categories[] = {
    {L"01", IDS_PHISHING_CATEGORY_PHISHING},
    {L"97", IDS_PHISHING_CATEGORY_DANGEROUS},
    {L"99", IDS_PHISHING_CATEGORY_UNTESTED},
};

constexpr NamedText Risks[] = {
    {L"L1", IDS_PHISHING_RISK_LOW},
    {L"L2", IDS_PHISHING_RISK_HIGH},
    {L"WR", IDS_PHISHING_RISK_HIGH},
};

constexpr std::int32_t DefaultTallPixels = 220;

// The kind of the record being parsed, once for the whole process.
std::uint32_t g_nPhishKind = 0;

std::wstring_view TextOf(std::span<const NamedText> table, std::wstring_view code, UINT other)
{
    const auto row = std::ranges::find(table, code, &NamedText::code);
    return LoadText(row == table.end() ? other : row->text);
}

// The kind is hexadecimal, and read by the C library, which wants a terminator.
std::uint32_t KindOf(std::wstring_view token)
{
    return std::wcstoul(std::wstring(token).c_str(), nullptr, 16);
}

// By how many pixels the first value is drawn higher than its control: the number in its text, 0 too.
std::int32_t TallPixels()
{
    const std::wstring& text = LoadText(IDS_PHISHING_TALL_PIXELS);
    return text.empty() ? DefaultTallPixels : VdCommon::WideToInteger(text);
}

bool IsDangerous(const LogRec& record)
{
    return KindOf(record.Field(FieldKind)) == KindDangerous;
}

} // namespace

CZPTLogPhish::CZPTLogPhish(std::pmr::memory_resource* upstream) : CZPTLogBase(upstream)
{
    Setup(Layout);
    m_pfnCompareUp = &ColumnOrder<Columns>::Up;
    m_pfnCompareDn = &ColumnOrder<Columns>::Down;
}

void CZPTLogPhish::MakeRecode(std::size_t index, std::wstring_view token, LogRec& record)
{
    const bool isDangerous = g_nPhishKind == KindDangerous;
    switch (index)
    {
    case 1:
        return record.Append(ClockText(token));
    case 3:
        g_nPhishKind = KindOf(token);
        return record.Append(token);
    case 4:
        if (isDangerous)
        {
            record.Append(token);
        }
        return;
    case 5:
        record.Append(token);
        if (!isDangerous)
        {
            record.AppendLasting({});
        }
        return;
    case 6:
        record.AppendLasting(isDangerous ? std::wstring_view() : token); // until the next line
        record.strData.back() = CategoryText(record);
        return;
    case 7:
        record.AppendLasting(TextOf(Risks, token, IDS_PHISHING_RISK_NOT_RATED));
        m_bRecordDone = true;
        return;
    default:
        return;
    }
}

void CZPTLogPhish::GetPhishCategoryText(const LogRec* record, std::wstring& text) const
{
    text = record == nullptr ? std::wstring_view() : CategoryText(*record);
}

std::wstring_view CZPTLogPhish::CategoryText(const LogRec& record) const
{
    if (m_pInfoDlg == nullptr)
    {
        return {};
    }
    return IsDangerous(record) ? std::wstring_view(LoadText(IDS_PHISHING_CATEGORY_DANGEROUS))
                               : TextOf(Categories, record.Field(FieldCategory), IDS_PHISHING_CATEGORY_OTHER);
}

std::size_t CZPTLogPhish::ColumnField(const LogRec& record, std::size_t column) const
{
    return column == AddressColumn && IsDangerous(record) ? FieldRelated : CZPTLogBase::ColumnField(record, column);
}

void CZPTLogPhish::AddInfoTexts(const LogRec& record, ShownTexts& texts) const
{
    texts.Add(record.FieldOrEmpty(FieldCategory));
    texts.Add(record.FieldOrEmpty(FieldRisk));
}

void CZPTLogPhish::SetLogInfo(LogRec* record)
{
    if (record == nullptr || m_pInfoDlg == nullptr)
    {
        return;
    }
    if (record->strData.size() > FieldRisk)
    {
        m_pInfoDlg->SetInfoText(RiskRow, std::wstring(record->Field(FieldRisk)), {});
    }
    m_pInfoDlg->DrawTallInfo(std::wstring(record->FieldOrEmpty(FieldCategory)), TallPixels());
}
