// The form with a report: its two tabs, and the way from a line of the report to its log.

#include "framework/ui/kestrix/report/ReportChart.h"
#include "tests/support/Picture.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/StandingClock.h"
#include "tests/ui/framework/ui/kestrix/app/KeysFormTest.h"

namespace
{

struct LineOfReport
{
    UINT control;
    std::uint32_t type;
};

constexpr LineOfReport TabLines[] = {
    {IDC_REPORT_VIRUS, LogTypeVirus},
    {IDC_REPORT_SUSPICIOUS, LogTypeVst},
    {IDC_REPORT_SPYWARE, LogTypeSpyware},
    {IDC_REPORT_WEB, LogTypeUrlFilter},
    {IDC_REPORT_DATA_PREVENTION, LogTypePrivacy},
};

// A report of two web events on 21 November 2026, beside the logs of the database.
class LogFormTabsTest : public KeysFormTest
{
protected:
    LogFormTabsTest()
    {
        m_registry.SetText(L"Software\\Veldrane\\Zeptara", L"InstalledFolder", m_folder.Path().wstring());
        std::filesystem::create_directory(m_folder.File(L"Log"));
        WriteUtf16(m_folder.File(L"Log\\20261121.UFG"), L"1\r\n2\r\n");
        m_form.m_bLogOnly = false;
        m_form.m_bIsLocal = true;
        m_form.m_nReportSpan = 7;
        m_form.m_nLogType = LogTypeUpdate;
    }

    // The report page; null when there is none.
    CWindow ReportPage() const
    {
        for (HWND child = ::GetWindow(m_form, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
        {
            if (::GetDlgItem(child, IDC_REPORT_FRAME) != nullptr)
            {
                return CWindow(child);
            }
        }
        return CWindow();
    }

    CWindow LineOf(UINT control) const { return CWindow(ReportPage().GetDlgItem(static_cast<int>(control))); }

    void SelectTab(int tab) const { m_form.Item(IDC_FORM_TAB).SendMessage(TCM_SETCURFOCUS, static_cast<WPARAM>(tab)); }

    int Tab() const { return static_cast<int>(m_form.Item(IDC_FORM_TAB).SendMessage(TCM_GETCURSEL)); }

    void ExpectChartInItsFrame() const
    {
        RECT frame = LineOf(IDC_REPORT_FRAME).GetWindowRect();
        ReportPage().ScreenToClient(frame);
        ReportChart chart;
        chart.m_settings = ReadReportSettings();
        SetChartArea(chart, frame);
        const Picture picture = PictureOf(ReportPage());
        for (const POINT point : {chart.m_ptOrigin, chart.m_ptTopLeft, chart.m_ptBottomRight})
        {
            EXPECT_TRUE(::PtInRect(&frame, point));
        }
        for (LONG y = chart.m_ptTopLeft.y; y <= chart.m_ptOrigin.y; ++y)
        {
            EXPECT_EQ(picture.At(chart.m_ptOrigin.x, y), RGB(0, 0, 0)) << y;
            EXPECT_NE(picture.At(chart.m_ptOrigin.x - 10, y), RGB(0, 0, 0)) << y;
        }
    }

    std::wstring ChosenLog() const
    {
        const CWindow combo(PageItem(IDC_LOG_TYPE));
        return combo.GetWindowText();
    }

    // The viewer's tab stands in front, with this log in the page and in its choice.
    void ExpectLog(std::uint32_t type) const
    {
        EXPECT_EQ(m_form.Page()->m_nLogType, type);
        EXPECT_EQ(ChosenLog(), LoadText(FindLogKind(type)->choice));
        EXPECT_EQ(Tab(), 1) << type;
        EXPECT_TRUE(m_form.Page()->IsWindowVisible());
        EXPECT_FALSE(ReportPage().IsWindowVisible());
    }

    const RegistrySandbox m_registry;
    const StandingClock m_clock;
};

// Has the dialogs of this thread stand at a place before they do anything, as if the screen were such that the system
// put them there, while the object lives.
class StandsAt
{
public:
    explicit StandsAt(POINT place)
    {
        s_place = place;
        m_hook = ::SetWindowsHookExW(WH_CALLWNDPROC, &Place, nullptr, ::GetCurrentThreadId());
    }

    ~StandsAt() { ::UnhookWindowsHookEx(m_hook); }

    StandsAt(const StandsAt&) = delete;
    StandsAt& operator=(const StandsAt&) = delete;

private:
    static LRESULT CALLBACK Place(int code, WPARAM sender, LPARAM data)
    {
        const auto& call = *reinterpret_cast<const CWPSTRUCT*>(data);
        if (code == HC_ACTION && call.message == WM_INITDIALOG && (CWindow(call.hwnd).GetStyle() & WS_CHILD) == 0)
        {
            ::SetWindowPos(call.hwnd, nullptr, s_place.x, s_place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        }
        return ::CallNextHookEx(nullptr, code, sender, data);
    }

    static inline POINT s_place{};
    HHOOK m_hook = nullptr;
};

struct PlaceOfForm
{
    const char* name;
    POINT place;
};

constexpr PlaceOfForm Places[] = {
    {"in the middle of a screen of 1024 by 768", {127, 48}},
    {"in the middle of one of 2560 by 1440", {895, 384}},
    {"on a screen to the left", {-1025, 48}},
    {"on a screen above to the left", {-1025, -1000}},
    {"beside a task bar at the left", {190, 48}},
    {"below a task bar at the top", {127, 80}},
    {"at the origin", {0, 0}},
};

} // namespace

TEST_F(LogFormTabsTest, TheReportStandsInFrontAndTellsItsTotalBelow)
{
    m_form.Run({[&]
                {
                    EXPECT_EQ(Tab(), 0);
                    EXPECT_TRUE(ReportPage().IsWindowVisible());
                    EXPECT_FALSE(m_form.Page()->IsWindowVisible());
                    EXPECT_EQ(LineOf(IDC_REPORT_WEB).GetWindowText(), L"Web pages filtered: 2");
                    EXPECT_EQ(m_form.Item(IDC_FORM_REPORT_TOTAL).GetWindowText().substr(0, 8), L"2 events");
                    EXPECT_EQ(m_form.GetWindowText(), LoadText(IDS_FORM_TITLE_WITH_REPORT));
                }});
}

TEST_F(LogFormTabsTest, AClickOnEachLineLeadsToItsLogWithTheChoiceOnIt)
{
    std::vector<ScriptedForm::Step> steps;
    for (const LineOfReport& line : TabLines)
    {
        steps.push_back(
            [this, line]
            {
                SelectTab(0);
                LineOf(line.control).SendMessage(WM_LBUTTONDOWN);
                ExpectLog(line.type);
            });
    }
    EXPECT_EQ(m_form.Run(steps), ScriptedForm::EndedByTest);
}

TEST_F(LogFormTabsTest, TheSpaceBarOnEachLineLeadsToItsLogAndTheKeyboardGoesThere)
{
    std::vector<ScriptedForm::Step> steps;
    for (const LineOfReport& line : TabLines)
    {
        steps.push_back(
            [this, line]
            {
                SelectTab(0);
                LineOf(line.control).SetFocus();
                PressKey(LineOf(line.control), VK_SPACE);
            });
        steps.push_back([] {});
        steps.push_back(
            [this, line]
            {
                ExpectLog(line.type);
                EXPECT_EQ(::GetFocus(), PageItem(IDC_RECORD_LIST));
            });
    }
    EXPECT_EQ(m_form.Run(steps), ScriptedForm::EndedByTest);
}

TEST_F(LogFormTabsTest, TheSecondClickOnALineOnlyTakesTheViewersTabToTheFront)
{
    m_form.Run({[&]
                {
                    LineOf(IDC_REPORT_WEB).SendMessage(WM_LBUTTONDOWN);
                    ExpectLog(LogTypeUrlFilter);
                    const std::size_t queries = m_database.m_arrQuery.size();
                    SelectTab(0);
                    EXPECT_TRUE(ReportPage().IsWindowVisible());
                    LineOf(IDC_REPORT_WEB).SendMessage(WM_LBUTTONDOWN);
                    ExpectLog(LogTypeUrlFilter);
                    EXPECT_EQ(m_database.m_arrQuery.size(), queries);
                }});
}

TEST_F(LogFormTabsTest, ALineLeadsFromAnyLogWithoutAnythingOfIt)
{
    m_form.Run({[&]
                {
                    const CWindow value(PageItem(IDC_INFO_VALUE_1));
                    CWindow(value).SetWindowText(L"of another log");
                    LineOf(IDC_REPORT_VIRUS).SendMessage(WM_LBUTTONDOWN);
                    ExpectLog(LogTypeVirus);
                    EXPECT_EQ(value.GetWindowText(), L"");
                }});
}

TEST_F(LogFormTabsTest, TheTabKeyGoesFromTheTabsThroughTheLinesToTheButtons)
{
    m_form.Run({[&]
                {
                    const std::vector<int> lines{IDC_REPORT_VIRUS, IDC_REPORT_SUSPICIOUS, IDC_REPORT_SPYWARE,
                                                 IDC_REPORT_WEB, IDC_REPORT_DATA_PREVENTION};
                    const std::vector<int> way = WalkTabs();
                    EXPECT_NE(std::ranges::search(way, lines).size(), 0u) << testing::PrintToString(way);
                }});
}

// The chart is placed by where its frame stands on the screen when the page is made. Made where it is shown, in the
// middle of the screen, the chart would lie outside of its frame.
TEST_F(LogFormTabsTest, TheChartLiesInItsFrameWhereverTheFormStands)
{
    for (const PlaceOfForm& one : Places)
    {
        SCOPED_TRACE(one.name);
        const StandsAt place(one.place);
        m_form.Run({[&]
                    {
                        const RECT form = CWindow(m_form.GetSafeHwnd()).GetWindowRect();
                        EXPECT_EQ(form.left, one.place.x);
                        EXPECT_EQ(form.top, one.place.y);
                        // Only what is on a screen can be photographed, and the chart goes with the page.
                        m_form.SetWindowPos(nullptr, {}, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
                        ExpectChartInItsFrame();
                    }});
    }
}

TEST_F(LogFormTabsTest, ADayThatCannotBeCountedBackIsToldAndTheLogsCanBeSeen)
{
    WriteUtf16(m_folder.File(L"Log\\18991231.VLG"), L"1\r\n");
    m_form.Run({[&] { EXPECT_EQ(ReportPage().GetSafeHwnd(), nullptr); },
                [&]
                {
                    SelectTab(1);
                    EXPECT_TRUE(m_form.Page()->IsWindowVisible());
                }});
    EXPECT_EQ(m_boxes.Boxes().size(), 1u);
}
