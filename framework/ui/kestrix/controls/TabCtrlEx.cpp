#include "framework/ui/kestrix/controls/TabCtrlEx.h"

#include "framework/ui/kestrix/controls/Scale.h"

#include <algorithm>
#include <iterator>
#include <utility>

const MessageMap& CTabCtrlEx::Map()
{
    static constexpr auto rows = MessageRows(On::ReflectedNotify<TCN_SELCHANGE, &CTabCtrlEx::OnSelChange>);
    static constexpr MessageMap map{rows, &CCuteTabCtrl::Map};
    return map;
}

void CTabCtrlEx::AddPage(UINT title, CDialog& page, UINT dialogTemplate)
{
    m_arrPage.push_back({title, &page, dialogTemplate});
}

bool CTabCtrlEx::CreatePages(int topOffset)
{
    bool isComplete = true;
    for (int index = 0; const TabPage& page : m_arrPage)
    {
        isComplete = CreatePage(page, index, topOffset) && isComplete;
        ++index;
    }
    if (!m_arrPage.empty())
    {
        ShowPage(m_arrPage.front());
    }
    return isComplete;
}

bool CTabCtrlEx::CreatePage(const TabPage& page, int index, int topOffset)
{
    const bool hasTab = InsertItem(index, LoadText(page.title)) == index;
    CWnd parent;
    parent.Attach(GetParent());
    if (!page.page->Create(page.dialogTemplate, &parent))
    {
        return false;
    }
    RECT area = GetClientRect();
    AdjustRect(false, area);
    ClientToScreen(area);
    parent.ScreenToClient(area);
    area.top +=
        std::min<LONG>(Scaled(topOffset), area.bottom - area.top); // an offset beyond the area leaves no page to see
    return page.page->SetWindowPos(m_hWnd, area, SWP_HIDEWINDOW) && hasTab;
}

void CTabCtrlEx::KeepPagesBelowTabs()
{
    if (GetItemCount() == 0)
    {
        return;
    }
    RECT tab = GetItemRect(0);
    ClientToScreen(tab);
    for (const TabPage& page : m_arrPage)
    {
        RECT area = page.page->GetWindowRect();
        if (area.top <= tab.bottom)
        {
            area.top = std::min(tab.bottom + 1, area.bottom);
            CWindow(GetParent()).ScreenToClient(area);
            page.page->MoveWindow(area);
        }
    }
}

void CTabCtrlEx::ShowPage(const TabPage& page)
{
    const TabPage* const before = std::exchange(m_pCurrent, &page);
    page.page->ShowWindow(SW_SHOW);
    if (before != nullptr && before != &page)
    {
        before->page->ShowWindow(SW_HIDE);
    }
}

void CTabCtrlEx::ShowSelectedPage()
{
    const int index = GetCurSel();
    if (index >= 0 && index < static_cast<int>(m_arrPage.size()))
    {
        ShowPage(*std::next(m_arrPage.begin(), index));
    }
}
