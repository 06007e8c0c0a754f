#pragma once

#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/app/KestrixDlg.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/MessageBoxRecorder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/framework/ui/kestrix/app/DatabaseDouble.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

using Texts = std::vector<std::wstring>;

// The lines as they stand in a daily file.
std::wstring Lines(std::initializer_list<std::wstring> lines);

// A day as the lists show it.
std::wstring DateText(WORD year, WORD month, WORD day);

// The place and weight of a control's font.
LOGFONTW FontOf(const CWindow& control);

// A page that stands on the screen from the start, so that one that cancels itself is seen to go.
class TestPage : public CKestrixDlg
{
public:
    BOOL OnInitDialog() override
    {
        ShowWindow(SW_SHOW);
        return m_nInitResult = CKestrixDlg::OnInitDialog();
    }

    using CBitmapDialog::m_ToolTip;

    BOOL m_nInitResult = -1; // what OnInitDialog gave
};

// The viewer page as the child of a plain window, with its message boxes answered.
class PageTest : public ::testing::Test
{
protected:
    PageTest();

    // Sets the path and makes the page of the virus log in file mode, unless the test has set something else before.
    void Open(const std::wstring& path);

    // Writes the lines to a daily file of 20 November 2026 and opens it.
    void OpenDay(std::initializer_list<std::wstring> lines);

    CWindow Item(UINT control) const { return CWindow(m_page.GetDlgItem(static_cast<int>(control))); }

    std::wstring TextOf(UINT control) const { return Item(control).GetWindowText(); }

    bool IsShown(UINT control) const { return (Item(control).GetStyle() & WS_VISIBLE) != 0; }

    // The tool tip of a control; empty when it has none.
    std::wstring TipOf(UINT control) const { return m_page.m_ToolTip.GetText(Item(control)); }

    Texts Dates() const;
    Texts Cells(int row) const;
    Texts Column(int column) const;

    // A notification as the control sends it, with this structure after the header.
    template <class Notification>
    void Notify(UINT control, UINT code, Notification& notification)
    {
        auto& header = reinterpret_cast<NMHDR&>(notification);
        header = {Item(control), control, code};
        m_page.SendMessage(WM_NOTIFY, control, reinterpret_cast<LPARAM>(&notification));
    }

    void SelectRow(int row);
    void ClickRow(int row);       // the row is selected and the list tells of the click
    void ClickHeader(int column); // as the header tells the list
    void SelectDate(int index);   // as the user does

    void ClickControl(UINT control) { Item(control).SendMessage(WM_LBUTTONDOWN); }

    void ReleaseKey(HWND target, WPARAM key);

    // The arrow of a column: 0 up, 1 down, -1 none.
    int Arrow(int column) const;

    const LanguageFile m_language;
    DatabaseDouble m_database;
    CKestrixApp m_app; // lends the page the database
    const MessageBoxRecorder m_boxes;
    const TemporaryFolder m_folder;
    CWnd m_parent;
    TestPage m_page;
    CListCtrl m_list; // the page's list by another name
};
