// The viewer's start and end, its report, a day file and an export, with calls failing that they make.

#include "tests/faults/ViewerFaults.h"
#include "framework/ui/kestrix/report/KxReportDlg.h"
#include "framework/ui/kestrix/report/ReportHost.h"
#include "resource/resource.h"
#include "tests/faults/Sweep.h"
#include "tests/support/ControllerDouble.h"
#include "tests/support/OleApartment.h"
#include "tests/support/OnTheLoop.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/StandingClock.h"
#include "tests/ui/framework/ui/kestrix/app/ExportFormTest.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

using enum FaultKind;

TEST_F(PageTest, LoadingADayFile)
{
    OpenDay({VirusLine(L"0900", L"beta"), VirusLine(L"1030", L"alpha")});
    m_parent.ShowWindow(SW_HIDE);
    Sweep().Try({.name = "load from a file",
                 .run = [&] { SelectDate(0); },
                 .outcome =
                     [&]
                 {
                     std::wstring times;
                     for (const std::wstring& time : Column(0))
                     {
                         times += time + L"|";
                     }
                     return times;
                 }},
                {Allocation, File});
}

TEST_F(ExportFormTest, Exporting)
{
    std::string whole;
    m_form.Run({[&]
                {
                    Sweep().Try({.name = "export",
                                 .prepare =
                                     [&]
                                 {
                                     WriteBytes(m_path, "precious");
                                     m_dialog.AnswerWith(m_path);
                                 },
                                 .run = [&] { Press(); },
                                 .outcome =
                                     [&]
                                 {
                                     const std::string bytes = ReadBytes(m_path);
                                     whole = whole.empty() ? bytes : whole;
                                     return std::wstring(bytes.begin(), bytes.end());
                                 },
                                 .isWhole =
                                     [&]
                                 {
                                     const std::string bytes = ReadBytes(m_path);
                                     return bytes == "precious" || bytes == whole;
                                 }},
                                {Allocation, File});
                }});
}

namespace
{

struct Host : CReportHost
{
    void ShowLog(std::uint32_t) override {}
};

} // namespace

TEST(ReportFaultsTest, Reporting)
{
    const LanguageFile language;
    const StandingClock clock;
    const RegistrySandbox registry;
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.File(L"Log"));
    WriteUtf16(folder.File(L"Log\\20261121.VLG"), L"1\r\n2\r\n");
    WriteUtf16(folder.File(L"Log\\20261121.UFG"), L"1\r\n2\r\n3\r\n4\r\n");
    registry.SetText(SuiteKey, L"InstalledFolder", folder.Path().wstring());
    Host host;
    CWnd parent;
    parent.Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE, {0, 0, 800, 600}, nullptr, 0);
    std::unique_ptr<CKxReportDlg> page;
    Sweep sweep;
    sweep.Try({.name = "report",
               .prepare =
                   [&]
               {
                   page = std::make_unique<CKxReportDlg>();
                   page->m_nReportSpan = 7;
                   page->m_pParentForm = &host;
               },
               .run =
                   [&]
               {
                   Handle([&] { page->Create(IDD_REPORT_PAGE, &parent); });
                   parent.RedrawWindow(RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
               },
               .outcome =
                   [&]
               {
                   std::wstring texts;
                   for (const UINT control : {IDC_REPORT_VIRUS, IDC_REPORT_WEB})
                   {
                       texts += CWindow(page->GetDlgItem(static_cast<int>(control))).GetWindowText();
                   }
                   return texts;
               }},
              {Allocation, File, Registry, Gdi});
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

    void Prepare()
    {
        m_sweep.TraceAnew();
        m_pApp = std::make_unique<CKestrixApp>();
    }

    // Stays loaded: in each that is loaded and used, the run-time library takes one of the process's 1,088 slots for
    // threads' data, and never gives it back.
    const UniqueModule m_library{LoadLibraryW(L"OrlDbMg.dll")};
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
    const auto prepare = [&] { Prepare(); };
    const auto outcome = [&] { return m_seen; };
    m_sweep.Try({"start", prepare, [&] { Run([&] { m_sweep.Hold(); }); }, outcome},
                {Allocation, File, Registry, Gdi, Com});
    const auto close = [&]
    {
        m_sweep.Hold();
        Run([&] { m_sweep.GoOn(); });
    };
    m_sweep.Try({"close", prepare, close, outcome}, {Allocation, Com});
}
