#pragma once

#include "framework/ui/kestrix/report/KxReportDlg.h"
#include "framework/ui/kestrix/report/ReportHost.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/MessageBoxRecorder.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/StandingClock.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

// A form that keeps what it is asked.
struct ReportHostDouble : CReportHost
{
    void ShowLog(std::uint32_t logType) override { m_arrType.push_back(logType); }

    std::vector<std::uint32_t> m_arrType; // the logs that were to be shown
};

// The report of a week up to 21 November 2026, as the child of a window that stands at the origin of the screen.
class KxReportDlgTest : public ::testing::Test
{
protected:
    KxReportDlgTest()
    {
        std::filesystem::create_directory(m_folder.File(L"Log"));
        m_registry.SetText(L"Software\\Veldrane\\Zeptara", L"InstalledFolder", m_folder.Path().wstring());
        m_parent.Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE, {0, 0, 800, 600}, nullptr, 0);
        m_page.m_nReportSpan = 7;
        m_page.m_strProductName = L"Zeptara";
        m_page.m_pParentForm = &m_host;
    }

    void AddFile(const wchar_t* name, const wchar_t* text) const
    {
        WriteUtf16(m_folder.File(std::wstring(L"Log\\") + name), text);
    }

    // A few events of each line.
    void AddEvents() const
    {
        AddFile(L"20261121.VLG", L"1\r\n2\r\n");
        AddFile(L"20261119.VLG", L"1\r\n");
        AddFile(L"20261120.SCG", L"||||||||||||2\r\n||||||||||||2\r\n||||||||||||0\r\n");
        AddFile(L"20261116.SPG", L"||1||||||||||1\r\n||9||||||||||0\r\n");
        AddFile(L"20261121.UFG", L"1\r\n2\r\n3\r\n4\r\n");
        AddFile(L"20261121.PPG", L"1\r\n");
    }

    void Open() { ASSERT_TRUE(m_page.Create(IDD_REPORT_PAGE, &m_parent)); }

    CWindow Item(UINT control) const { return CWindow(m_page.GetDlgItem(static_cast<int>(control))); }

    std::wstring TextOf(UINT control) const { return Item(control).GetWindowText(); }

    bool IsShown(UINT control) const { return (Item(control).GetStyle() & WS_VISIBLE) != 0; }

    // The cursor after the page was asked for one over this control.
    bool ShowsHandOver(UINT control)
    {
        const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
        ::SetCursor(arrow);
        const LRESULT handled = m_page.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(Item(control).GetSafeHwnd()),
                                                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        EXPECT_EQ(handled != 0, ::GetCursor() != arrow) << control;
        return ::GetCursor() != arrow;
    }

    static void HandlePostedMessages()
    {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        {
            DispatchMessageW(&message);
        }
    }

    const LanguageFile m_language;
    const StandingClock m_clock;
    const RegistrySandbox m_registry;
    const TemporaryFolder m_folder;
    const MessageBoxRecorder m_boxes;
    ReportHostDouble m_host;
    CWnd m_parent;
    CKxReportDlg m_page;
};
