#include "framework/ui/kestrix/controls/SortListCtrl.h"

#include <algorithm>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace
{

constexpr UINT SubstringSearch = 0x0004; // what newer headers call LVFI_SUBSTRING: by itself the same as LVFI_PARTIAL

} // namespace

// Keeps selection, focus and the number of the row at the top while rows are moved. The list view knows rows by their
// numbers alone, so the first two are noted in the rows meanwhile.
class CSortListCtrl::KeptPlaces
{
public:
    explicit KeptPlaces(CSortListCtrl& list) : m_list(list), m_nTop(TopRow())
    {
        Take(LVNI_SELECTED, LVIS_SELECTED, &ListRow::isSelected);
        Take(LVNI_FOCUSED, LVIS_FOCUSED, &ListRow::hasFocus);
    }

    ~KeptPlaces()
    {
        m_list.Announce();
        for (std::size_t row = 0; m_nTaken > 0 && row < m_list.m_arrRow.size(); ++row)
        {
            Put(row, LVIS_SELECTED, &ListRow::isSelected);
            Put(row, LVIS_FOCUSED, &ListRow::hasFocus);
        }
        PutTop();
        m_list.Invalidate();
    }

    KeptPlaces(const KeptPlaces&) = delete;
    KeptPlaces& operator=(const KeptPlaces&) = delete;

private:
    void Take(UINT which, UINT state, bool ListRow::*mark)
    {
        for (auto row = NextRow(-1, which); row != -1; row = NextRow(row, which), ++m_nTaken)
        {
            m_list.m_arrRow[static_cast<std::size_t>(row)].*mark = true;
            SetState(static_cast<WPARAM>(row), 0, state);
        }
    }

    void Put(std::size_t row, UINT state, bool ListRow::*mark)
    {
        if (std::exchange(m_list.m_arrRow[row].*mark, false))
        {
            SetState(row, state, state);
            --m_nTaken;
        }
    }

    // Wine's list view scrolls to a row that gets the focus.
    void PutTop()
    {
        const LRESULT scrolled = TopRow() - m_nTop;
        RECT row{};
        row.left = LVIR_BOUNDS;
        if (scrolled != 0 && m_list.AskView(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row)))
        {
            m_list.AskView(LVM_SCROLL, 0, -scrolled * (row.bottom - row.top));
        }
    }

    LRESULT TopRow() const { return m_list.AskView(LVM_GETTOPINDEX); }

    LRESULT NextRow(LRESULT from, UINT which) const
    {
        return m_list.AskView(LVM_GETNEXTITEM, static_cast<WPARAM>(from), static_cast<LPARAM>(which));
    }

    void SetState(std::size_t row, UINT state, UINT mask)
    {
        LVITEMW item{};
        item.state = state;
        item.stateMask = mask;
        m_list.AskView(LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    }

    CSortListCtrl& m_list;
    const LRESULT m_nTop;
    std::size_t m_nTaken = 0;
};

const MessageMap& CSortListCtrl::Map()
{
    static constexpr auto rows = MessageRows(
        On::Message<LVM_INSERTITEMW, &CSortListCtrl::OnInsertItem>,
        On::Message<LVM_DELETEITEM, &CSortListCtrl::OnDeleteItem>,
        On::Message<LVM_DELETEALLITEMS, &CSortListCtrl::OnDeleteAllItems>,
        On::Message<LVM_GETITEMW, &CSortListCtrl::OnGetItem>, On::Message<LVM_SETITEMW, &CSortListCtrl::OnSetItem>,
        On::Message<LVM_SETITEMCOUNT, &CSortListCtrl::OnSetItemCount>,
        On::Message<LVM_SORTITEMS, &CSortListCtrl::OnSortItems>, On::Message<LVM_FINDITEMW, &CSortListCtrl::OnFindItem>,
        On::ReflectedNotify<LVN_GETDISPINFOW, &CSortListCtrl::OnGetDispInfo>,
        On::ReflectedNotify<LVN_ODFINDITEMW, &CSortListCtrl::OnOwnerDataFindItem>);
    static constexpr MessageMap map{rows, &CListCtrl::Map};
    return map;
}

void CSortListCtrl::PreSubclassWindow()
{
    CListCtrl::PreSubclassWindow();
    m_arrRow.clear();
    m_nAnnounced = 0;
    m_Header.SubclassWindow(GetHeaderCtrl());
}

// Rows that were added are announced all at once, before the first message that may be about them.
LRESULT CSortListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != LVM_INSERTITEMW && message != LVM_SORTITEMS)
    {
        Announce();
    }
    return CListCtrl::WindowProc(message, wParam, lParam);
}

void CSortListCtrl::Announce()
{
    if (m_nAnnounced != m_arrRow.size())
    {
        m_nAnnounced = m_arrRow.size(); // first, since the list view sends itself messages meanwhile
        AskView(LVM_SETITEMCOUNT, m_nAnnounced, LVSICF_NOSCROLL);
    }
}

int CSortListCtrl::InsertItem(const LVITEMW& item)
{
    if (m_hWnd == nullptr || item.iItem < 0 || item.iSubItem != 0)
    {
        return -1;
    }
    const ListRow row{.data = (item.mask & LVIF_PARAM) != 0 ? item.lParam : 0,
                      .image = (item.mask & LVIF_IMAGE) != 0 ? item.iImage : 0};
    const std::size_t place = std::min(static_cast<std::size_t>(item.iItem), m_arrRow.size());
    try
    {
        if (place != m_arrRow.size())
        {
            const KeptPlaces kept(*this);
            m_arrRow.insert(m_arrRow.begin() + static_cast<std::ptrdiff_t>(place), row);
        }
        else
        {
            m_arrRow.push_back(row);
        }
    }
    catch (const std::bad_alloc&)
    {
        return -1;
    }
    if (m_nAnnounced + 1 == m_arrRow.size())
    {
        Invalidate(); // so that a message comes
    }
    return static_cast<int>(place);
}

LRESULT CSortListCtrl::OnDeleteItem(WPARAM row, LPARAM)
{
    if (!HasRow(static_cast<int>(row)))
    {
        return FALSE;
    }
    m_arrRow.erase(m_arrRow.begin() + static_cast<std::ptrdiff_t>(row));
    m_nAnnounced = m_arrRow.size();
    Default(); // moves selection and focus up
    m_nAnnounced = static_cast<std::size_t>(AskView(LVM_GETITEMCOUNT));
    Announce();
    return TRUE;
}

LRESULT CSortListCtrl::OnDeleteAllItems(WPARAM, LPARAM)
{
    std::vector<ListRow>().swap(m_arrRow);
    Announce(); // a list view that still has rows may take them away one by one
    return Default();
}

LRESULT CSortListCtrl::OnGetItem(WPARAM, LPARAM lParam)
{
    auto& item = *reinterpret_cast<LVITEMW*>(lParam);
    if (!HasRow(item.iItem))
    {
        return FALSE;
    }
    const UINT mask = std::exchange(item.mask, item.mask & ~(LVIF_PARAM | LVIF_IMAGE));
    const bool isDone = item.mask == 0 || Default();
    item.mask = mask;
    const ListRow& row = m_arrRow[static_cast<std::size_t>(item.iItem)];
    if ((mask & LVIF_PARAM) != 0)
    {
        item.lParam = row.data;
    }
    if ((mask & LVIF_IMAGE) != 0)
    {
        item.iImage = item.iSubItem == 0 ? row.image : I_IMAGENONE;
    }
    return isDone;
}

LRESULT CSortListCtrl::OnSetItem(WPARAM, LPARAM lParam)
{
    const auto& item = *reinterpret_cast<const LVITEMW*>(lParam);
    const bool hasText = (item.mask & LVIF_TEXT) != 0 && item.pszText != LPSTR_TEXTCALLBACKW;
    if (!HasRow(item.iItem) || item.iSubItem != 0 || hasText)
    {
        return FALSE;
    }
    ListRow& row = m_arrRow[static_cast<std::size_t>(item.iItem)];
    if ((item.mask & LVIF_PARAM) != 0)
    {
        row.data = item.lParam;
    }
    if ((item.mask & LVIF_IMAGE) != 0)
    {
        row.image = item.iImage;
    }
    SendMessage(LVM_REDRAWITEMS, item.iItem, item.iItem);
    return (item.mask & LVIF_STATE) == 0 || SetItemState(item.iItem, item.state, item.stateMask);
}

// To a list view with rows of its own this message means room for them.
LRESULT CSortListCtrl::OnSetItemCount(WPARAM count, LPARAM)
{
    m_arrRow.reserve(count);
    return TRUE;
}

LRESULT CSortListCtrl::OnSortItems(WPARAM context, LPARAM compare)
{
    if (compare == 0)
    {
        return FALSE;
    }
    const KeptPlaces kept(*this);
    SortRows(m_arrRow, reinterpret_cast<PFNLVCOMPARE>(compare), static_cast<LPARAM>(context));
    return TRUE;
}

LRESULT CSortListCtrl::OnFindItem(WPARAM before, LPARAM what)
{
    return FindRow(static_cast<int>(before) + 1, *reinterpret_cast<const LVFINDINFOW*>(what));
}

// The window that is asked for a text finds the row's item data in the question.
void CSortListCtrl::OnGetDispInfo(NMLVDISPINFOW& info)
{
    if (HasRow(info.item.iItem))
    {
        const ListRow& row = m_arrRow[static_cast<std::size_t>(info.item.iItem)];
        info.item.lParam = row.data;
        if ((info.item.mask & LVIF_IMAGE) != 0)
        {
            info.item.iImage = info.item.iSubItem == 0 ? row.image : I_IMAGENONE;
        }
    }
    Default();
}

int CSortListCtrl::FindRow(int start, const LVFINDINFOW& what) const
{
    const CWaitCursor wait;
    const int count = static_cast<int>(m_arrRow.size());
    const int first = std::clamp(start, 0, count);
    const int end = (what.flags & LVFI_WRAP) != 0 ? first + count : count;
    for (int row = first; row < end; ++row)
    {
        if (IsWanted(row % count, what))
        {
            return row % count;
        }
    }
    return -1;
}

// A text is looked for at the beginning of the first column, as a user types it.
bool CSortListCtrl::IsWanted(int row, const LVFINDINFOW& what) const
{
    if ((what.flags & LVFI_PARAM) != 0)
    {
        return m_arrRow[static_cast<std::size_t>(row)].data == what.lParam;
    }
    const std::wstring_view wanted(what.psz != nullptr ? what.psz : L"");
    const std::wstring text = GetItemText(row, 0);
    const bool isPartial = (what.flags & (LVFI_PARTIAL | SubstringSearch)) != 0;
    const int length = static_cast<int>(wanted.size());
    return (isPartial ? text.size() >= wanted.size() : text.size() == wanted.size()) &&
           CompareStringOrdinal(text.data(), length, wanted.data(), length, TRUE) == CSTR_EQUAL;
}
