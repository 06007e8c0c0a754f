// What a user can start in the viewer, with calls failing that it makes: in its page, in an export, in a report, and
// from its start to its end.

#include "platform/dialog/Exceptions.h"
#include "resource/resource.h"
#include "suite/OrlDbMg/Provider.h"
#include "suite/database/EventDatabase.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/SafeArray.h"
#include "tests/faults/Sweep.h"
#include "tests/support/FirewallService.h"
#include "tests/support/OleApartment.h"
#include "tests/support/OnTheLoop.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/ui/framework/ui/kestrix/app/ExportFormTest.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"
#include "tests/ui/framework/ui/kestrix/report/KxReportDlgTest.h"

#include <algorithm>

namespace
{

using enum FaultKind;

constexpr wchar_t SuiteKey[] = L"Software\\Veldrane\\Zeptara";

std::wstring VirusLine(const wchar_t* time, const wchar_t* threat)
{
    return std::wstring(L"x|") + time + L"|1048576|x|0|0|" + threat + L"|C:\\a|4|1|0|0|x";
}

// A database with two days of viruses and one of the firewall, as the folder of the suite has it.
void FillDatabase(const TemporaryFolder& folder)
{
    auto database = EventLog::EventDatabase::Create(folder.File(EventLog::DatabaseFileName));
    database.Append(2, 20261119, Texts{VirusLine(L"0800", L"older")});
    database.Append(2, 20261120,
                    Texts{VirusLine(L"0900", L"beta"), VirusLine(L"1030", L"alpha"), VirusLine(L"0930", L"gamma")});
    database.Append(6, 20261120,
                    Texts{L"090000|4|0|2||6|2|192.0.2.10|49152|192.0.2.20|443|||C:\\b.exe|rule|message",
                          L"100000|4|0|2||6|2|192.0.2.10|49152|192.0.2.20|443|||C:\\a.exe|rule|message"});
}

// Does what a handler of a window would do, which lets no exception out.
void Handle(const std::function<void()>& work)
{
    try
    {
        work();
    }
    catch (...)
    {
        ReportHandlerException(std::current_exception());
    }
}

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
        auto& controller = m_service.Controller();
        controller.m_onSend = [keep = controller.m_onSend](ULONG type, LPSAFEARRAY array)
        {
            const auto list = Framework::ReadArray(array); // as the service, which takes no half of a rule
            return type != Framework::FirewallRules.type        ? S_OK
                   : list && Framework::AreFirewallRules(*list) ? keep(type, array)
                                                                : E_INVALIDARG;
        };
    }

    ~PageFaultsTest() override { m_page.DestroyWindow(); }

    // The date, and the cells.
    std::vector<Texts> Rows() const { return {{m_page.SelectedDate()}, Column(0), Column(1), Column(2)}; }

    // The calls that the service got, of those that begin so.
    Texts CallsOf(const wchar_t* name)
    {
        Texts calls = m_service.Controller().m_calls;
        std::erase_if(calls, [=](const std::wstring& call) { return !call.starts_with(name); });
        return calls;
    }

    // Presses a button of a dialog as soon as it stands, and then Cancel, so that none stays.
    static bool EndDialog()
    {
        const FaultPoints::Pause pause;
        const HWND dialog = ::GetActiveWindow();
        const auto has = [=](int control) { return ::GetDlgItem(dialog, control) != nullptr; };
        if (::IsWindowVisible(dialog) && (has(IDC_SETTINGS_CLOSE_BOX) || has(IDC_DELETE_CLOSE_BOX)))
        {
            ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
            ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }
        return false;
    }

    // Has the operation tried while the page is hidden, and then painted for the calls that draw: to paint takes many
    // times as long.
    void Try(Operation operation, std::initializer_list<FaultKind> kinds)
    {
        TryHidden(operation, kinds);
        m_parent.ShowWindow(SW_SHOW);
        operation.run = [this, run = operation.run]
        {
            run();
            m_parent.RedrawWindow(RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        };
        m_sweep.Try(operation, {Gdi});
    }

    void TryHidden(const Operation& operation, std::initializer_list<FaultKind> kinds)
    {
        m_parent.ShowWindow(SW_HIDE);
        m_sweep.Try(operation, kinds);
    }

    const RegistrySandbox m_registry;
    OrlDbMg::Provider m_provider{std::chrono::milliseconds(50)};
    CLogFormDlg m_form;
    Sweep m_sweep;
};

} // namespace

TEST_F(PageFaultsTest, LoadingADayOfTheDatabase)
{
    const auto prepare = [&]
    {
        m_provider.Uninitialize(0, 0);
        SelectDate(1);
        m_provider.Uninitialize(0, 0);
    };
    TryHidden({"load from the database", prepare, [&] { SelectDate(0); }, [&] { return Rows(); }},
              {Allocation, File, Registry, Sqlite});
}

TEST_F(PageFaultsTest, SortingAndTellingARecord)
{
    const auto details = [&] { return TextOf(IDC_INFO_VALUE_0_LINK) + TextOf(IDC_INFO_VALUE_2); };
    Try({"sort", [&] { SelectDate(0); }, [&] { ClickHeader(2); }, [&] { return Rows(); }}, {Allocation});
    Try({"show a record", [&] { ClickRow(0); }, [&] { ClickRow(1); }, details}, {Allocation});
}

TEST_F(PageFaultsTest, SwitchingToAnotherLog)
{
    const auto prepare = [&] { m_page.ShowLog(LogTypeVirus); };
    const auto run = [&] { Handle([&] { m_page.ShowLog(LogTypeFirewall); }); };
    Try({"switch", prepare, run, [&] { return Rows(); }}, {Allocation, File, Sqlite});
}

// What cannot be read of the answer is missing in the list that is sent back, and so are the rules after it.
TEST_F(PageFaultsTest, AllowingTheProgramOfAnEvent)
{
    FirewallService::Rules others(2);
    others.front().strAppPath = L"C:\\other.exe";
    const auto& rules = m_service.m_rules;
    const auto prepare = [&]
    {
        m_service.m_rules = others;
        ClickRow(0);
    };
    const auto run = [&] { m_page.SendMessage(WM_COMMAND, IDC_ALLOW, 0); };
    const auto isWhole = [&]
    {
        const bool isNew = !rules.empty() && rules.front().strAppPath == L"C:\\a.exe";
        return rules == others || (isNew && std::equal(std::next(rules.begin()), rules.end(), others.begin()));
    };
    m_page.ShowLog(LogTypeFirewall);
    TryHidden({"allow a program", prepare, run, [&] { return rules; }, isWhole}, {Allocation, Com});
}

TEST_F(PageFaultsTest, OrderingADeletionAndChangingTheSettings)
{
    const OnTheLoop press(&EndDialog);
    const auto prepare = [&]
    {
        SelectDate(0);
        m_service.Controller().m_calls.clear();
    };
    const auto order = [&] { Handle([&] { m_page.OnBnClickedBtnDelete(); }); };
    const auto change = [&] { m_page.SendMessage(WM_COMMAND, IDC_SETTING, 0); };
    const auto kinds = {Allocation, Registry, Gdi, Com};
    m_sweep.Try({"order a deletion", prepare, order, [&] { return CallsOf(L"DoCommand"); }}, kinds);
    m_sweep.Try({"change the settings", prepare, change, [&] { return CallsOf(L"SetValue"); }}, kinds);
}

TEST_F(PageTest, LoadingADayFile)
{
    OpenDay({VirusLine(L"0900", L"beta"), VirusLine(L"1030", L"alpha")});
    m_parent.ShowWindow(SW_HIDE);
    Sweep().Try({"load from a file", [] {}, [&] { SelectDate(0); }, [&] { return Column(0); }}, {Allocation, File});
}

TEST_F(ExportFormTest, Exporting)
{
    const auto prepare = [&]
    {
        WriteBytes(m_path, "precious");
        m_dialog.AnswerWith(m_path);
    };
    Operation operation{"export", prepare, [&] { Press(); }, [&] { return ReadBytes(m_path); }};
    operation.isOldOrNew = true;
    m_form.Run({[&] { Sweep().Try(operation, {Allocation, File}); }});
}

TEST_F(KxReportDlgTest, Reporting)
{
    AddFile(L"20261121.VLG", L"1\r\n2\r\n");
    AddFile(L"20261121.UFG", L"1\r\n2\r\n3\r\n4\r\n");
    std::unique_ptr<CKxReportDlg> page;
    const auto prepare = [&]
    {
        page = std::make_unique<CKxReportDlg>();
        page->m_nReportSpan = 7;
        page->m_pParentForm = &m_host;
    };
    const auto run = [&]
    {
        Handle([&] { page->Create(IDD_REPORT_PAGE, &m_parent); });
        m_parent.RedrawWindow(RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    };
    const auto textOf = [&](int control) { return CWindow(page->GetDlgItem(control)).GetWindowText(); };
    const auto lines = [&] { return textOf(IDC_REPORT_VIRUS) + textOf(IDC_REPORT_WEB); };
    Sweep().Try({"report", prepare, run, lines}, {Allocation, File, Registry, Gdi});
}

namespace
{

// The application from its start to its end, on the database.
class ApplicationFaultsTest : public ::testing::Test
{
protected:
    ApplicationFaultsTest()
    {
        m_registry.SetText(SuiteKey, L"InstalledFolder", std::filesystem::current_path().wstring());
        m_registry.SetText(SuiteKey, L"DataFolder", m_folder.Path().wstring());
        for (const wchar_t* const session : {L"InteractiveSession", L"ServiceSession"})
        {
            const std::wstring key = std::wstring(SuiteKey) + L"\\17\\DebugLog\\" + session;
            m_registry.SetNumber(key, L"Enable", 1);
            m_registry.SetNumber(key, L"Level", 0x111);
        }
        FillDatabase(m_folder);
    }

    // From the command line to the end, with the form closed as soon as it stands and the step done before that.
    void Run(const std::function<void()>& step)
    {
        m_seen.clear();
        const OnTheLoop close(
            [&]
            {
                const CWnd* const form = m_pApp->m_pMainWnd;
                if (form == nullptr || !::IsWindowVisible(form->GetSafeHwnd()))
                {
                    return false;
                }
                step();
                const FaultPoints::Pause pause;
                m_seen = m_pApp->m_pLogDlg == nullptr ? L"no page" : m_pApp->m_pLogDlg->SelectedDate();
                ::PostMessageW(form->GetSafeHwnd(), WM_COMMAND, IDC_FORM_CLOSE, 0);
                return true;
            });
        const int code = AfxWinMain(AfxGetInstanceHandle(), L"LocalLog%|1%|%|%|%|0", SW_SHOW);
        const FaultPoints::Pause pause;
        m_seen += L" " + std::to_wstring(code);
        m_pApp.reset();
    }

    const RegistrySandbox m_registry;
    const TemporaryFolder m_folder;
    const OleApartment m_apartment;
    ControllerDouble m_controller;
    std::unique_ptr<CKestrixApp> m_pApp;
    std::wstring m_seen;
    Sweep m_sweep;
};

} // namespace

TEST_F(ApplicationFaultsTest, StartingAndClosing)
{
    const auto prepare = [&] { m_pApp = std::make_unique<CKestrixApp>(); };
    const auto start = [&] { Run([&] { m_sweep.Hold(); }); };
    const auto close = [&]
    {
        m_sweep.Hold();
        Run([&] { m_sweep.GoOn(); });
    };
    const auto outcome = [&] { return m_seen; };
    m_sweep.Try({"start", prepare, start, outcome}, {Allocation, File, Registry, Gdi, Com});
    m_sweep.Try({"close", prepare, close, outcome}, {Allocation, Com});
}
