#pragma once

#include "framework/ui/kestrix/controls/CuteTabCtrl.h"

#include <list>

struct TabPage
{
    UINT title;    // text of the tab
    CDialog* page; // not owned
    UINT dialogTemplate;
};

// A strip of tabs with a page for each tab: a dialog beside the strip, in the parent. The page of the selected tab is
// shown, the others are hidden and keep their state.
class CTabCtrlEx : public CCuteTabCtrl
{
public:
    // Adds a page after the others, before CreatePages. The page must outlive the strip's window.
    void AddPage(UINT title, CDialog& page, UINT dialogTemplate);

    // Makes the tabs, then the pages below them, topOffset pixels (at 96 dots an inch) lower than the strip would have
    // them, and shows the first. False when a tab or a page could not be made; the others stand and work.
    bool CreatePages(int topOffset);

    // Takes what the pages cover of the line below the tabs off their tops. For tabs that have become higher since the
    // pages were made.
    void KeepPagesBelowTabs();

    // Shows the page of the selected tab and hides the other one, as when the tab is selected. With no selected tab,
    // or one without a page, nothing changes.
    void ShowSelectedPage();

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    void OnSelChange(NMHDR&) { ShowSelectedPage(); }

    bool CreatePage(const TabPage& page, int index, int topOffset);
    void ShowPage(const TabPage& page);

    std::list<TabPage> m_arrPage;
    const TabPage* m_pCurrent = nullptr; // one of the list
};
