// The report as a user sees it, in the program of a product that shows it.

#include "resource/resource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"

#include <commctrl.h>

#include <filesystem>

namespace
{

constexpr int LogsTab = 1;

// A month up to 21 November 2026, at which the program's clock stands.
class ReportTest : public ServiceFixture
{
protected:
    ReportTest()
    {
        SetEnvironmentVariableW(L"KESTRIX_STANDING_CLOCK", L"1");
        std::filesystem::create_directories(m_service.Installed().File(L"Log"));
        m_logs.Append(VirusSubType, 20261120, {VirusLine(L"0900", L"beta")});
    }

    ~ReportTest() override { SetEnvironmentVariableW(L"KESTRIX_STANDING_CLOCK", nullptr); }

    std::wstring LogFile(const wchar_t* name) const
    {
        return m_service.Installed().File(std::wstring(L"Log\\") + name);
    }

    // An item of the report page or the form.
    static std::wstring TextOf(HWND form, int control)
    {
        wchar_t text[256]{};
        SendMessageW(FormItem(form, control), WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
        return text;
    }

    static LRESULT Tab(HWND form) { return SendMessageW(FormItem(form, IDC_FORM_TAB), TCM_GETCURSEL, 0, 0); }

    static void Press(HWND line, bool byKeyboard)
    {
        PostMessageW(line, byKeyboard ? WM_KEYDOWN : WM_LBUTTONDOWN, byKeyboard ? VK_SPACE : MK_LBUTTON, 1);
        PostMessageW(line, byKeyboard ? WM_KEYUP : WM_LBUTTONUP, byKeyboard ? VK_SPACE : 0, 1);
    }

    // Waits until the tab of the logs is in front with this log chosen.
    static bool ShowsLog(HWND form, int choice)
    {
        return WaitUntil([&] { return Tab(form) == LogsTab && TextOf(form, IDC_LOG_TYPE) == Text(choice); });
    }

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
};

} // namespace

TEST_F(ReportTest, AMonthWithALockedFileADirectoryAndAnImpossibleDateLeadsFromEachLineToItsLog)
{
    WriteUtf16(LogFile(L"20261121.VLG"), L"1\r\n2\r\n");
    WriteUtf16(LogFile(L"20261120.UFG"), L"1\r\n");
    WriteUtf16(LogFile(L"20261119.UFG"), L"1\r\n2\r\n3\r\n");
    WriteUtf16(LogFile(L"20261131.UFG"), L"1\r\n");
    std::filesystem::create_directory(LogFile(L"20261118.UFG"));
    const UniqueFile lock(
        CreateFileW(LogFile(L"20261119.UFG").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(lock);
    const Process viewer(ProgramFolder() + L"ReportViewer.exe", DatabaseCommandLine(VirusLog));
    const HWND form = viewer.Window(Text(IDS_FORM_TITLE_WITH_REPORT));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(TextOf(form, IDC_REPORT_VIRUS), L"Viruses: 2");
    EXPECT_EQ(TextOf(form, IDC_REPORT_WEB), L"Web pages filtered: 1");
    EXPECT_EQ(TextOf(form, IDC_FORM_REPORT_TOTAL).substr(0, 8), L"3 events");

    struct Line
    {
        int control;
        int choice;
        bool byKeyboard;
    };

    for (const Line& line : {Line{IDC_REPORT_WEB, IDS_TITLE_URL_FILTER, false},
                             {IDC_REPORT_WEB, IDS_TITLE_URL_FILTER, false},
                             {IDC_REPORT_SUSPICIOUS, IDS_TITLE_VST, false},
                             {IDC_REPORT_SPYWARE, IDS_CHOICE_SPYWARE, false},
                             {IDC_REPORT_DATA_PREVENTION, IDS_TITLE_PRIVACY, false},
                             {IDC_REPORT_VIRUS, IDS_CHOICE_VIRUS, false},
                             {IDC_REPORT_WEB, IDS_TITLE_URL_FILTER, true},
                             {IDC_REPORT_SUSPICIOUS, IDS_TITLE_VST, true},
                             {IDC_REPORT_SPYWARE, IDS_CHOICE_SPYWARE, true},
                             {IDC_REPORT_DATA_PREVENTION, IDS_TITLE_PRIVACY, true},
                             {IDC_REPORT_VIRUS, IDS_CHOICE_VIRUS, true}})
    {
        SendMessageW(FormItem(form, IDC_FORM_TAB), TCM_SETCURFOCUS, 0, 0);
        ASSERT_EQ(Tab(form), 0);
        Press(FormItem(form, line.control), line.byKeyboard);
        EXPECT_TRUE(ShowsLog(form, line.choice)) << line.control;
    }
    EXPECT_EQ(CloseForm(viewer, form), 0u);
}
