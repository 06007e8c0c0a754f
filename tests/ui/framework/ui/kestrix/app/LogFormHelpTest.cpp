// The form's help: which topic, of which file, and what becomes of the help window.

#include "framework/ui/kestrix/app/Help.h"
#include "resource/resource.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/ProcedureDouble.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <algorithm>

extern "C" decltype(&::LoadLibraryExW) __imp_LoadLibraryExW;

namespace
{

constexpr wchar_t HelpSuiteKey[] = L"Software\\Veldrane\\Zeptara";
constexpr wchar_t HelpKey[] = L"Software\\Veldrane\\Zeptara\\17\\UIFramework\\OLH";
constexpr UINT LanguageCommand = 61439;

struct HelpCall
{
    HWND owner;
    std::wstring file;
    UINT command;
    DWORD_PTR data;

    friend bool operator==(const HelpCall&, const HelpCall&) = default;
};

// Stands in for the platform's help library, which is asked for in the system's folder and nowhere else.
class HelpDouble
{
public:
    HelpDouble() : m_load(__imp_LoadLibraryExW, &Load)
    {
        s_calls.clear();
        s_window = nullptr;
        s_installed = true;
        s_load = m_load.Original();
    }

    static inline std::vector<HelpCall> s_calls;
    static inline HWND s_window = nullptr; // what a call answers
    static inline bool s_installed = true;

private:
    static inline const HMODULE Module = reinterpret_cast<HMODULE>(0x4711);

    static std::wstring LibraryPath()
    {
        wchar_t folder[MAX_PATH] = {};
        GetSystemDirectoryW(folder, MAX_PATH);
        return std::wstring(folder) + L"\\hhctrl.ocx";
    }

    static HMODULE WINAPI Load(const wchar_t* path, HANDLE file, DWORD flags)
    {
        if (path == LibraryPath())
        {
            return s_installed ? Module : nullptr;
        }
        return s_load(path, file, flags);
    }

    static HWND WINAPI Help(HWND owner, const wchar_t* file, UINT command, DWORD_PTR data)
    {
        s_calls.push_back({owner, file, command, data});
        return s_window;
    }

    static inline decltype(&::LoadLibraryExW) s_load = nullptr;

    const ImportPatch<decltype(&::LoadLibraryExW)> m_load;
    const ProcedureDouble m_find{"HtmlHelpW", &Help};
};

class LogFormHelpTest : public FormTest
{
protected:
    LogFormHelpTest() { m_registry.SetText(HelpSuiteKey, L"InstalledFolder", L"C:\\Suite"); }

    static HelpCall Topic(UINT number, const std::wstring& file = L"C:\\Suite\\vdhelp.chm")
    {
        return {GetDesktopWindow(), file, number != 0 ? 15u : 0u, number};
    }

    void Press(int button) { m_form.SendMessage(WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0); }

    const RegistrySandbox m_registry;
    const TraceRecorder m_trace;
    const HelpDouble m_help;
};

struct Numbers
{
    std::uint32_t type;
    UINT logOnly;
    UINT besideReport;
};

// The numbers that the suite's help knows these logs by; they stay as they are.
constexpr Numbers AllNumbers[] = {
    {0, 211, 316}, {1, 210, 315}, {2, 212, 308}, {3, 213, 309},  {5, 230, 313}, {6, 231, 307},
    {7, 232, 310}, {8, 237, 317}, {9, 265, 312}, {11, 217, 314}, {12, 272, 0},  {13, 299, 0},
    {14, 311, 0},  {4, 0, 0},     {10, 0, 0},    {15, 0, 0},     {99, 0, 0},
};

} // namespace

TEST(HelpNumber, EveryLogHasItsNumbersAndAnyOtherTypeHasNone)
{
    for (const Numbers& row : AllNumbers)
    {
        EXPECT_EQ(HelpNumberOfLog(row.type, true), row.logOnly) << row.type;
        EXPECT_EQ(HelpNumberOfLog(row.type, false), row.besideReport) << row.type;
    }
}

TEST_F(LogFormHelpTest, TheButtonShowsTheTopicOfTheLog)
{
    m_form.Run({[&] { Press(IDC_FORM_HELP); }});
    EXPECT_EQ(HelpDouble::s_calls, std::vector<HelpCall>{Topic(211)});
    const auto texts = m_trace.Texts();
    EXPECT_EQ(std::ranges::count(texts, L"CLogFormDlg::OnBnClickedBtnHelp()  nHelpID[211]"), 1);
    EXPECT_EQ(std::ranges::count(texts, L"[Enter] CLogFormDlg::extHtmlHelp()..."), 1);
    EXPECT_EQ(std::ranges::count(texts, L"[Leave] CLogFormDlg::extHtmlHelp()..."), 1);
}

TEST_F(LogFormHelpTest, TheNumberFollowsTheLogThatThePageShowsAndNotTheCommandLine)
{
    m_form.Run({[&]
                {
                    m_form.Page()->m_nLogType = LogTypeSystemTuner;
                    Press(IDC_FORM_HELP);
                }});
    EXPECT_EQ(m_form.m_nLogType, static_cast<std::uint32_t>(LogTypeVirus));
    EXPECT_EQ(HelpDouble::s_calls, std::vector<HelpCall>{Topic(272)});
}

TEST_F(LogFormHelpTest, F1ShowsTheFirstTopicWhateverControlHasTheFocus)
{
    HELPINFO key{};
    key.cbSize = sizeof key;
    key.iContextType = HELPINFO_WINDOW;
    m_form.Run(
        {[&]
         {
             for (const HWND control : {m_form.Page()->GetDlgItem(IDC_RECORD_LIST), m_form.GetDlgItem(IDC_FORM_CLOSE)})
             {
                 ::SendMessageW(control, WM_HELP, 0, reinterpret_cast<LPARAM>(&key));
             }
         }});
    EXPECT_EQ(HelpDouble::s_calls, (std::vector<HelpCall>{Topic(0), Topic(0)}));
}

TEST_F(LogFormHelpTest, BesideAReportTheTabDecides)
{
    m_form.m_bLogOnly = false;
    m_form.m_nReportSpan = 10'000; // days; the file's date is one of them
    m_form.Run({[&] { Press(IDC_FORM_HELP); },
                [&]
                {
                    m_form.Item(IDC_FORM_TAB).SendMessage(TCM_SETCURFOCUS, 1);
                    Press(IDC_FORM_HELP);
                }});
    EXPECT_EQ(HelpDouble::s_calls, (std::vector<HelpCall>{Topic(241), Topic(316)}));
}

// It showed the topic of the log, as if its tab were selected.
TEST_F(LogFormHelpTest, BesideAReportNoSelectedTabShowsTheFirstTopic)
{
    m_form.m_bLogOnly = false;
    m_form.m_nReportSpan = 10'000;
    m_form.Run({[&]
                {
                    m_form.Item(IDC_FORM_TAB).SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(-1));
                    Press(IDC_FORM_HELP);
                }});
    EXPECT_EQ(HelpDouble::s_calls, std::vector<HelpCall>{Topic(0)});
}

TEST_F(LogFormHelpTest, WithoutAReportTheTabIsNotLookedAt)
{
    m_form.Run({[&]
                {
                    m_form.Item(IDC_FORM_TAB).SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(-1));
                    Press(IDC_FORM_HELP);
                }});
    EXPECT_EQ(HelpDouble::s_calls, std::vector<HelpCall>{Topic(211)});
}

TEST_F(LogFormHelpTest, TheHelpCommandOfFormAndApplicationShowsTheFirstTopic)
{
    m_form.Run({[&] { Press(ID_HELP); }});
    EXPECT_TRUE(m_app.OnCommand(ID_HELP));
    EXPECT_FALSE(m_app.OnCommand(ID_HELP + 1));
    EXPECT_EQ(HelpDouble::s_calls, (std::vector<HelpCall>{Topic(0), Topic(0)}));
}

TEST_F(LogFormHelpTest, AValueOfFilesReplacesTheNameAfterTheInstalledFolder)
{
    m_registry.SetText(HelpKey, L"Files", L"other.chm");
    CLogFormDlg::extHtmlHelp(211);
    m_registry.SetText(HelpSuiteKey, L"InstalledFolder", L"D:\\Suite\\");
    CLogFormDlg::extHtmlHelp(211);
    EXPECT_EQ(HelpDouble::s_calls,
              (std::vector<HelpCall>{Topic(211, L"C:\\Suite\\other.chm"), Topic(211, L"D:\\Suite\\other.chm")}));
}

TEST_F(LogFormHelpTest, WhereThereIsNoHelpNothingHappens)
{
    HelpDouble::s_installed = false;
    CLogFormDlg::extHtmlHelp(211);
    EXPECT_TRUE(HelpDouble::s_calls.empty());
}

TEST_F(LogFormHelpTest, TheHelpWindowLosesOneEntryOfItsSystemMenu)
{
    CWnd window;
    window.Create(L"STATIC", L"help", WS_OVERLAPPEDWINDOW, {0, 0, 300, 200}, nullptr, 0);
    const HMENU menu = GetSystemMenu(window, FALSE);
    AppendMenuW(menu, MF_STRING, LanguageCommand, L"Language");
    const int entries = GetMenuItemCount(menu);
    HelpDouble::s_window = window;
    CLogFormDlg::extHtmlHelp(211);
    EXPECT_EQ(GetMenuItemCount(GetSystemMenu(window, FALSE)), entries - 1);
    EXPECT_EQ(GetMenuState(GetSystemMenu(window, FALSE), LanguageCommand, MF_BYCOMMAND), 0xFFFFFFFFu);
}
