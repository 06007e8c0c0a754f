#pragma once

#include "framework/ui/kestrix/controls/RowSort.h"
#include "framework/ui/kestrix/controls/SortHeaderCtrl.h"
#include "platform/dialog/DialogFramework.h"

#include <vector>

// A report list whose header shows by which column and in which direction it is sorted.
//
// Its window has the style LVS_OWNERDATA: the list view knows how many rows there are and asks for the rest. Towards
// everybody else the list is one with rows of its own, by operations and by messages alike: a row is inserted with item
// data and image, has them in each request for its texts, and keeps selection and focus wherever it is moved. It holds
// no text; each is asked for. Rows tell of their coming and going by no notification.
class CSortListCtrl : public CListCtrl
{
public:
    // Takes the header over, so that a list from a dialog template shows the arrows with no further call.
    void PreSubclassWindow() override;

    CSortHeaderCtrl& SortHeader() { return m_Header; }

    int InsertItem(const LVITEMW& item) override;

    // What GetItemData returns, without a message for it: a search asks for the data of a million rows.
    LPARAM RowData(int row) const { return HasRow(row) ? m_arrRow[static_cast<std::size_t>(row)].data : 0; }

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    class KeptPlaces;

    LRESULT OnInsertItem(WPARAM, LPARAM item) { return InsertItem(*reinterpret_cast<const LVITEMW*>(item)); }

    LRESULT OnDeleteItem(WPARAM row, LPARAM);
    LRESULT OnDeleteAllItems(WPARAM, LPARAM);
    LRESULT OnGetItem(WPARAM, LPARAM item);
    LRESULT OnSetItem(WPARAM, LPARAM item);
    LRESULT OnSetItemCount(WPARAM count, LPARAM);
    LRESULT OnSortItems(WPARAM context, LPARAM compare);
    LRESULT OnFindItem(WPARAM before, LPARAM what);
    void OnGetDispInfo(NMLVDISPINFOW& info);

    LRESULT OnOwnerDataFindItem(NMLVFINDITEMW& find) { return FindRow(find.iStart, find.lvfi); }

    bool HasRow(int row) const { return row >= 0 && static_cast<std::size_t>(row) < m_arrRow.size(); }

    // The list view's own answer, of the rows that were announced to it.
    LRESULT AskView(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return WindowSubclass::CallOriginal(m_hWnd, message, wParam, lParam);
    }

    void Announce();
    int FindRow(int start, const LVFINDINFOW& what) const;
    bool IsWanted(int row, const LVFINDINFOW& what) const;

    CSortHeaderCtrl m_Header;
    std::vector<ListRow> m_arrRow;
    std::size_t m_nAnnounced = 0; // rows that the list view knows of
};
