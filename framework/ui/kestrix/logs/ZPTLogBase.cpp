#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/controls/RichColorImageList.h"
#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SortListCtrl.h"
#include "framework/ui/kestrix/logs/ShownTexts.h"
#include "platform/dialog/DialogFramework.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <algorithm>

namespace
{

constexpr std::int32_t DefaultInfoTextLimit = 24;
constexpr std::size_t WholeInfoRow = 2;         // whose whole text the page may ask for
constexpr std::size_t LongestColumnTitle = 254; // with its terminator a title fits 255 characters
constexpr int IconWidth = 16;
constexpr COLORREF IconMask = RGB(255, 255, 255);

int ComparePlain(LPARAM first, LPARAM second, LPARAM column)
{
    const auto& left = reinterpret_cast<const LogRec*>(first)->strData;
    const auto& right = reinterpret_cast<const LogRec*>(second)->strData;
    const auto field = static_cast<std::size_t>(column);
    return field >= left.size() || field >= right.size() ? 0 : left[field].compare(right[field]);
}

std::size_t FieldsNeeded(const LogInfoRow& row)
{
    switch (row.field)
    {
    case NoField:
        return 0;
    case LastField:
        return 1;
    default:
        return row.field + 1;
    }
}

// What stands in the row; throws std::out_of_range when the record is too short.
std::wstring_view RowText(const LogRec& record, const LogInfoRow& row)
{
    const std::wstring_view text = row.field == LastField ? record.LastField() : record.Field(row.field);
    return text.empty() && row.whenEmpty != 0 ? std::wstring_view(LoadText(row.whenEmpty)) : text;
}

bool IsUnknownThreat(std::wstring_view name)
{
    return name == LoadText(IDS_UNKNOWN_THREAT_NAME);
}

} // namespace

CZPTLogBase::CZPTLogBase(std::pmr::memory_resource* upstream)
    : m_Memory(upstream),
      m_arrRecord(upstream),
      m_nInfoTextLimit(static_cast<std::uint32_t>(LoadNumber(IDS_INFO_TEXT_LIMIT, DefaultInfoTextLimit)))
{
}

CZPTLogBase::~CZPTLogBase() = default;

void CZPTLogBase::Setup(const LogLayout& layout)
{
    m_pLayout = &layout;
    m_nLogType = layout.type;
    if (const LogKind* const kind = FindLogKind(layout.type))
    {
        m_strExt = L"." + std::wstring(kind->extension);
    }
    for (const UINT title : layout.titles)
    {
        m_arrTitle.push_back(LoadText(title));
    }
    for (const LogColumn& column : layout.columns)
    {
        m_arrColumn.push_back(LoadText(column.title));
        m_arrColumnWidth.push_back(column.width);
    }
    for (const LogInfoRow& row : layout.infoRows)
    {
        m_arrInfoLabel.push_back(row.caption == 0 ? std::wstring() : LoadText(row.caption));
        m_arrInfoVisible.push_back(row.visible ? 1 : 0);
        m_nInfoFields = std::max(m_nInfoFields, FieldsNeeded(row));
    }
    if (layout.iconBitmap != 0)
    {
        m_pImageList = std::make_unique<CRichColorImageList>();
        m_pImageList->CreateFromBitmap(layout.iconBitmap, IconWidth, IconMask);
    }
}

std::size_t CZPTLogBase::GetLogCount() const
{
    return m_arrRecord.size();
}

std::wstring_view CZPTLogBase::GetLogText(std::size_t record, std::size_t field) const
{
    const LogRec* const found = GetLogRecord(record);
    return found == nullptr ? std::wstring_view() : found->FieldOrEmpty(field);
}

LogRec* CZPTLogBase::GetLogRecord(std::size_t index) const
{
    return index < GetLogCount() ? m_arrRecord[index] : nullptr;
}

void CZPTLogBase::SetListCtrl(CListCtrl* list)
{
    m_pListCtrl = dynamic_cast<CSortListCtrl*>(list);
    if (m_pListCtrl != nullptr && m_pImageList != nullptr)
    {
        m_pListCtrl->SetImageList(m_pImageList->GetSafeHandle(), LVSIL_SMALL);
    }
}

void CZPTLogBase::SetListColumn()
{
    if (m_pListCtrl == nullptr)
    {
        return;
    }
    // The time of some logs does not fit its column: the pointer on it shows it whole.
    m_pListCtrl->SetExtendedStyle(m_pListCtrl->GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    for (std::size_t i = 0; i < m_arrColumn.size(); ++i)
    {
        m_pListCtrl->InsertColumn(static_cast<int>(i), m_arrColumn[i].substr(0, LongestColumnTitle), LVCFMT_LEFT,
                                  Scaled(static_cast<int>(m_arrColumnWidth[i])));
    }
    m_pListCtrl->SortHeader().SetArrowImages();
}

void CZPTLogBase::SetInfoLabel()
{
    if (m_pInfoDlg == nullptr)
    {
        return;
    }
    for (std::size_t row = 0; row < m_arrInfoLabel.size(); ++row)
    {
        m_pInfoDlg->SetInfoRow(row, m_arrInfoLabel[row], m_arrInfoVisible[row] == 1);
    }
}

void CZPTLogBase::ClearLog()
{
    // The rows point to the records, so they go first: a row that is still there may be painted.
    if (m_pListCtrl != nullptr)
    {
        m_pListCtrl->DeleteAllItems();
    }
    FreeRecords();
}

void CZPTLogBase::FreeRecords()
{
    decltype(m_arrRecord)(m_arrRecord.get_allocator()).swap(m_arrRecord);
    m_Memory.Release();
}

bool CZPTLogBase::SetListLog()
{
    if (m_pListCtrl == nullptr)
    {
        return false;
    }
    const bool withIcons = m_pLayout != nullptr && m_pLayout->iconBitmap != 0;
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM | (withIcons ? LVIF_IMAGE : 0);
    item.pszText = LPSTR_TEXTCALLBACKW;
    m_pListCtrl->SetItemCount(static_cast<int>(m_arrRecord.size()));
    for (auto record = m_arrRecord.rbegin(); record != m_arrRecord.rend(); ++record, ++item.iItem)
    {
        if (withIcons) // without, the record need not be fetched into the processor's cache
        {
            item.iImage = static_cast<int>((*record)->nImage);
        }
        item.lParam = reinterpret_cast<LPARAM>(*record);
        if (m_pListCtrl->InsertItem(item) == -1)
        {
            return false;
        }
    }
    return true;
}

std::uint32_t CZPTLogBase::GetReadLimit() const
{
    return 0;
}

void CZPTLogBase::SetLocalAddress(std::wstring) {}

void CZPTLogBase::GetColumnText(const LogRec* record, std::wstring& text, int column) const
{
    if (m_pLayout == nullptr || m_pLayout->columns.empty())
    {
        text.clear();
    }
    else if (const auto number = static_cast<std::size_t>(column); number < m_pLayout->columns.size())
    {
        text = record->Field(ColumnField(*record, number));
    }
}

std::size_t CZPTLogBase::ColumnField(const LogRec&, std::size_t column) const
{
    return m_pLayout->columns[column].field;
}

void CZPTLogBase::GetShownTexts(const LogRec& record, ShownTexts& texts) const
{
    texts.Clear();
    if (m_pLayout != nullptr)
    {
        AddColumnTexts(record, texts);
        AddInfoTexts(record, texts);
    }
}

void CZPTLogBase::AddColumnTexts(const LogRec& record, ShownTexts& texts) const
{
    for (std::size_t column = 0; column < m_pLayout->columns.size(); ++column)
    {
        texts.Add(record.FieldOrEmpty(ColumnField(record, column)));
    }
}

void CZPTLogBase::AddInfoTexts(const LogRec& record, ShownTexts& texts) const
{
    if (record.strData.size() < m_nInfoFields)
    {
        return;
    }
    for (const LogInfoRow& row : m_pLayout->infoRows)
    {
        if (row.field != NoField)
        {
            const std::wstring_view text = RowText(record, row);
            const bool isUnknown = row.how == InfoText::Threat && IsUnknownThreat(text);
            texts.Add(isUnknown ? std::wstring_view(LoadText(IDS_UNKNOWN_THREAT)) : text);
        }
    }
}

void CZPTLogBase::SetLogInfo(LogRec* record)
{
    if (record == nullptr || m_pInfoDlg == nullptr || m_pLayout == nullptr)
    {
        return;
    }
    for (std::size_t row = 0; row < m_pLayout->infoRows.size(); ++row)
    {
        if (m_pLayout->infoRows[row].field != NoField)
        {
            ShowInfoRow(*record, row);
        }
    }
}

void CZPTLogBase::ShowInfoRow(const LogRec& record, std::size_t row)
{
    const LogInfoRow& layout = m_pLayout->infoRows[row];
    const std::wstring text(RowText(record, layout));
    if (row == WholeInfoRow)
    {
        m_strInfoText = text;
    }
    switch (layout.how)
    {
    case InfoText::Whole:
        m_pInfoDlg->SetInfoText(row, text, {});
        return;
    case InfoText::Cut:
        m_pInfoDlg->SetInfoText(row, TruncateText(text), text);
        return;
    case InfoText::Threat:
        ShowThreat(text);
        return;
    case InfoText::Link:
        m_pInfoDlg->SetInfoLink(text, {});
        return;
    }
}

void CZPTLogBase::ShowThreat(const std::wstring& name)
{
    if (IsUnknownThreat(name))
    {
        m_pInfoDlg->SetInfoText(0, LoadText(IDS_UNKNOWN_THREAT), {});
    }
    else
    {
        m_pInfoDlg->SetInfoLink(name, name);
    }
}

void CZPTLogBase::SetInfoDialog(CLogInfoPage* page)
{
    m_pInfoDlg = page;
}

void CZPTLogBase::AddAllowRule() {}

bool CZPTLogBase::IsBlockRuleActive() const
{
    return false;
}

std::wstring CZPTLogBase::TruncateText(std::wstring_view text) const
{
    constexpr std::wstring_view ellipsis = L"...";
    if (m_nInfoTextLimit == 0 || text.size() <= m_nInfoTextLimit + ellipsis.size())
    {
        return std::wstring(text);
    }
    return std::wstring(text.substr(0, m_nInfoTextLimit)).append(ellipsis);
}

int CALLBACK CZPTLogBase::CompareFuncUp(LPARAM first, LPARAM second, LPARAM column)
{
    return ComparePlain(first, second, column);
}

int CALLBACK CZPTLogBase::CompareFuncDn(LPARAM first, LPARAM second, LPARAM column)
{
    return ComparePlain(second, first, column);
}
