// What a user can start in the page of the viewer, with calls failing that it makes.

#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "resource/resource.h"
#include "suite/OrlDbMg/Provider.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/SafeArray.h"
#include "tests/faults/Sweep.h"
#include "tests/faults/ViewerFaults.h"
#include "tests/support/FirewallService.h"
#include "tests/support/OleApartment.h"
#include "tests/support/OnTheLoop.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <algorithm>

namespace
{

using enum FaultKind;

constexpr ULONG RulesType = 48;

// Before the page, which asks for it.
class WithFirewallService
{
protected:
    WithFirewallService()
    {
        auto& controller = m_service.Controller();
        controller.m_onSend = [keep = controller.m_onSend](ULONG type, LPSAFEARRAY array)
        {
            if (type != RulesType)
            {
                return S_OK;
            }
            const auto list = Framework::ReadArray(array); // as the service, which takes no half of a rule
            return list && Framework::AreFirewallRules(*list) ? keep(type, array) : E_INVALIDARG;
        };
    }

    const OleApartment m_apartment;
    FirewallService m_service;
};

// The page on the database, with a service.
class PageFaultsTest : protected WithFirewallService, public PageTest
{
protected:
    PageFaultsTest()
    {
        m_registry.SetText(SuiteKey, L"InstalledFolder", m_folder.Path().wstring());
        FillDatabase(m_folder);
        m_app.m_pIDBManagerProvider = &m_provider;
        m_page.m_bIsLocal = true;
        m_page.m_pParentForm = &m_form;
        Open({});
    }

    ~PageFaultsTest() override { m_page.DestroyWindow(); }

    std::wstring Rows() const
    {
        std::wstring rows = m_page.SelectedDate();
        for (int row = 0; row < m_list.GetItemCount(); ++row)
        {
            for (const std::wstring& cell : Cells(row))
            {
                rows += L"|" + cell;
            }
        }
        return rows;
    }

    // The calls that the service got, of those that begin so.
    std::wstring CallsOf(const std::wstring& name)
    {
        std::wstring calls;
        for (const std::wstring& call : m_service.Controller().m_calls)
        {
            calls += call.starts_with(name) ? call + L"\n" : L"";
        }
        return calls;
    }

    // Presses a button of a dialog as soon as it stands, and then Cancel, so that none stays.
    static bool EndDialog()
    {
        const FaultPoints::Pause pause;
        const HWND dialog = ::GetActiveWindow();
        for (const UINT button : {IDC_SETTINGS_CLOSE_BOX, IDC_DELETE_CLOSE_BOX})
        {
            if (::GetDlgItem(dialog, static_cast<int>(button)) != nullptr && ::IsWindowVisible(dialog))
            {
                ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
                ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            }
        }
        return false;
    }

    // Has the operation tried while the page is hidden, and then painted for the calls that draw: to paint takes many
    // times as long.
    void Try(Operation operation, std::initializer_list<FaultKind> kinds)
    {
        m_parent.ShowWindow(SW_HIDE);
        m_sweep.Try(operation, kinds);
        m_parent.ShowWindow(SW_SHOW);
        operation.run = [this, run = operation.run]
        {
            run();
            m_parent.RedrawWindow(RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        };
        m_sweep.Try(operation, {Gdi});
    }

    const RegistrySandbox m_registry;
    OrlDbMg::Provider m_provider{std::chrono::milliseconds(50)};
    CLogFormDlg m_form;
    Sweep m_sweep;
};

} // namespace

TEST_F(PageFaultsTest, LoadingADayOfTheDatabase)
{
    m_parent.ShowWindow(SW_HIDE);
    m_sweep.Try({.name = "load from the database",
                 .prepare =
                     [&]
                 {
                     m_provider.Uninitialize(0, 0);
                     SelectDate(1);
                     m_provider.Uninitialize(0, 0);
                 },
                 .run = [&] { SelectDate(0); },
                 .outcome = [&] { return Rows(); }},
                {Allocation, File, Registry, Sqlite});
}

TEST_F(PageFaultsTest, SortingAndTellingARecord)
{
    Try({.name = "sort",
         .prepare = [&] { SelectDate(0); },
         .run = [&] { ClickHeader(2); },
         .outcome = [&] { return Rows(); }},
        {Allocation});
    Try({.name = "show a record",
         .prepare = [&] { ClickRow(0); },
         .run = [&] { ClickRow(1); },
         .outcome = [&] { return TextOf(IDC_INFO_VALUE_0_LINK) + TextOf(IDC_INFO_VALUE_2); }},
        {Allocation});
}

TEST_F(PageFaultsTest, SwitchingToAnotherLog)
{
    Try({.name = "switch",
         .prepare = [&] { m_page.ShowLog(LogTypeVirus); },
         .run = [&] { Handle([&] { m_page.ShowLog(LogTypeFirewall); }); },
         .outcome = [&] { return Rows(); }},
        {Allocation, File, Sqlite});
}

// What cannot be read of the answer is missing in the list that is sent back, and so are the rules after it.
TEST_F(PageFaultsTest, AllowingTheProgramOfAnEvent)
{
    FirewallService::Rules others(2);
    others.front().strAppPath = L"C:\\other.exe";
    m_page.ShowLog(LogTypeFirewall);
    m_parent.ShowWindow(SW_HIDE);
    m_sweep.Try({.name = "allow a program",
                 .prepare =
                     [&]
                 {
                     m_service.m_rules = others;
                     ClickRow(0);
                 },
                 .run = [&] { m_page.SendMessage(WM_COMMAND, IDC_ALLOW, 0); },
                 .outcome =
                     [&]
                 {
                     std::wstring programs;
                     for (const auto& rule : m_service.m_rules)
                     {
                         programs += rule.strAppPath + L"|" + rule.strName + L"\n";
                     }
                     return programs;
                 },
                 .isWhole =
                     [&]
                 {
                     const auto& rules = m_service.m_rules;
                     const bool isNew = !rules.empty() && rules.front().strAppPath == L"C:\\a.exe";
                     return rules == others ||
                            (isNew && std::equal(std::next(rules.begin()), rules.end(), others.begin()));
                 }},
                {Allocation, Com});
}

TEST_F(PageFaultsTest, OrderingADeletionAndChangingTheSettings)
{
    const OnTheLoop press(&EndDialog);
    m_sweep.Try({.name = "order a deletion",
                 .prepare =
                     [&]
                 {
                     SelectDate(0);
                     m_service.Controller().m_calls.clear();
                 },
                 .run = [&] { Handle([&] { m_page.OnBnClickedBtnDelete(); }); },
                 .outcome = [&] { return CallsOf(L"DoCommand"); }},
                {Allocation, Registry, Gdi, Com});
    m_sweep.Try({.name = "change the settings",
                 .prepare = [&] { m_service.Controller().m_calls.clear(); },
                 .run = [&] { m_page.SendMessage(WM_COMMAND, IDC_SETTING, 0); },
                 .outcome = [&] { return CallsOf(L"SetValue"); }},
                {Allocation, Registry, Gdi, Com});
}
