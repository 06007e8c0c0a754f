#include "framework/ui/kestrix/app/page/RecordFinder.h"

#include "framework/ui/kestrix/app/page/RecordList.h"
#include "framework/ui/kestrix/app/page/RecordSearch.h"
#include "framework/ui/kestrix/app/page/ShownLog.h"
#include "resource/DialogTexts.h"

namespace
{

constexpr UINT NoNote = 0;

// What is said of a search from this row, which may be none.
UINT NoteOf(const FoundRow& found, int from, bool down)
{
    if (found.row == FoundRow::None)
    {
        return IDS_SEARCH_NOTHING;
    }
    if (found.row == from)
    {
        return IDS_SEARCH_NO_OTHER;
    }
    return !found.wentRound ? NoNote : down ? IDS_SEARCH_FROM_TOP : IDS_SEARCH_FROM_BOTTOM;
}

} // namespace

void CRecordFinder::Ask()
{
    const bool isThere = m_dialog.GetSafeHwnd() != nullptr;
    if (m_dialog.Open(m_list.GetParent()) && !isThere)
    {
        PlaceDialog();
    }
}

// Above the heading of the list, so that it covers nothing that is found or said, and on the screen in any case.
void CRecordFinder::PlaceDialog()
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(m_list, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT dialog = m_dialog.GetWindowRect();
    const LONG height = dialog.bottom - dialog.top;
    const LONG top = std::max(m_note.GetWindowRect().top - height, monitor.rcWork.top);
    m_dialog.SetWindowPos(nullptr, {dialog.left, top, dialog.right, top + height},
                          SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CRecordFinder::GoOn(bool back)
{
    if (m_dialog.Request().text.empty())
    {
        Ask();
        return;
    }
    Find(m_dialog.Request().down != back);
    m_list.SetFocus();
}

// A button that is pressed while the form waits for another dialog does nothing.
bool CRecordFinder::Take(UINT message, LPARAM lParam)
{
    switch (m_dialog.Take(message, lParam))
    {
    case CFindTextDialog::Event::None:
        return false;
    case CFindTextDialog::Event::FindNext:
        if (CWindow(::GetAncestor(m_list, GA_ROOT)).IsWindowEnabled())
        {
            Find(m_dialog.Request().down);
        }
        return true;
    case CFindTextDialog::Event::Closes:
        m_list.SetFocus();
        return true;
    }
    return false;
}

void CRecordFinder::NotePageShown(bool isShown)
{
    if (!isShown)
    {
        m_dialog.Close();
    }
}

void CRecordFinder::Find(bool down)
{
    const CWaitCursor wait;
    const int from = m_list.GetNextItem(-1, LVNI_SELECTED);
    FoundRow found;
    if (m_log.Log() != nullptr)
    {
        CRecordSearch search(*m_log.Log(), m_dialog.Request());
        found = FindRow(m_list.GetItemCount(), from, down, [&](int row) { return search.IsIn(m_list.RecordAt(row)); });
    }
    if (found.row != FoundRow::None)
    {
        Show(found.row);
    }
    if (const UINT note = NoteOf(found, from, down); note != NoNote)
    {
        m_note.Tell(LoadText(note));
    }
    else
    {
        m_note.Clear();
    }
}

void CRecordFinder::Show(int row)
{
    m_list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    m_list.EnsureVisible(row);
    m_log.ShowSelectedRecord();
}
