// The viewer on the event-log database: what a user sees and does.

#include "resource/resource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Tracing.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"

#include <algorithm>
#include <ranges>

namespace
{

using Texts = std::vector<std::wstring>;

struct Shown
{
    std::wstring time;
    std::wstring threat;

    auto operator<=>(const Shown&) const = default;
};

// What the list shows of a virus record; the three sources of mail and web have the threat elsewhere.
Shown ShownOf(const std::wstring& line)
{
    Texts tokens;
    for (const auto token : line | std::views::split(L'|'))
    {
        tokens.emplace_back(token.begin(), token.end());
    }
    const std::size_t threat = std::stoul(tokens.at(2)) <= 3 ? 4 : 6;
    return {tokens.at(1).substr(0, 2) + L":" + tokens.at(1).substr(2, 2), tokens.at(threat)};
}

std::vector<Shown> RowsOf(const Viewer& viewer)
{
    std::vector<Shown> rows;
    for (int row = 0; row < viewer.RowCount(); ++row)
    {
        rows.push_back({viewer.Cell(row, 0), viewer.Cell(row, 2)});
    }
    return rows;
}

class DatabaseViewTest : public ServiceFixture
{
protected:
    // Three days; the newest has four records, the oldest one.
    void FillThreeDays() const
    {
        m_logs.Append(VirusSubType, 20261118, {VirusLine(L"0700", L"oldest")});
        m_logs.Append(VirusSubType, 20261119, {VirusLine(L"0800", L"first"), VirusLine(L"0801", L"second")});
        m_logs.Append(VirusSubType, 20261120,
                      {VirusLine(L"0900", L"beta"), VirusLine(L"1030", L"delta"), VirusLine(L"0915", L"alpha"),
                       VirusLine(L"0930", L"gamma")});
    }

    // Nothing is listed, nothing can be done, and no box has come up.
    static void ExpectAnEmptyPage(const Viewer& viewer)
    {
        ASSERT_NE(viewer.Form(), nullptr);
        EXPECT_EQ(viewer.Dates(), Texts());
        EXPECT_EQ(viewer.RowCount(), 0);
        EXPECT_FALSE(viewer.IsEnabled(IDC_FORM_EXPORT));
        EXPECT_FALSE(viewer.IsEnabled(IDC_FORM_DELETE));
        EXPECT_EQ(viewer.Program().Windows(), std::vector<HWND>{viewer.Form()});
        EXPECT_EQ(viewer.Close(), 0u);
    }

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
};

} // namespace

TEST_F(DatabaseViewTest, ShowsTheDaysOfTheDatabaseNewestFirstAndAllRecordsOfEach)
{
    m_logs.FillWithSamples(5, 20261120);
    const std::vector<EventLog::Day> days = m_logs.VirusDays();
    ASSERT_GE(days.size(), 3u);
    ASSERT_TRUE(std::ranges::is_sorted(days, std::ranges::greater()));
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.Dates(), m_logs.VirusDates());
    EXPECT_EQ(viewer.SelectedDate(), 0);
    EXPECT_TRUE(viewer.IsEnabled(IDC_FORM_EXPORT));
    EXPECT_TRUE(viewer.IsEnabled(IDC_FORM_DELETE));

    for (int i = 0; i < static_cast<int>(days.size()); ++i)
    {
        std::vector<Shown> expected;
        std::ranges::transform(m_logs.VirusLines(days[i]), std::back_inserter(expected), &ShownOf);
        std::ranges::sort(expected);
        ASSERT_FALSE(expected.empty());
        std::vector<Shown> rows;
        viewer.ClickDate(i);
        EXPECT_TRUE(WaitUntil(
            [&]
            {
                rows = RowsOf(viewer);
                std::vector<Shown> sorted = rows;
                std::ranges::sort(sorted);
                return viewer.SelectedDate() == i && sorted == expected;
            }));
        EXPECT_TRUE(std::ranges::is_sorted(rows, std::ranges::greater(), &Shown::time));
    }
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DatabaseViewTest, AClickOnAHeaderSortsAndASecondTurnsTheOrder)
{
    FillThreeDays();
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.Column(2), (Texts{L"delta", L"gamma", L"alpha", L"beta"}));
    const auto expectOrder = [&](int click, const Texts& threats)
    {
        viewer.ClickHeader(click);
        EXPECT_TRUE(WaitUntil([&] { return viewer.Column(2) == threats; }));
    };
    expectOrder(2, {L"alpha", L"beta", L"delta", L"gamma"});
    expectOrder(2, {L"gamma", L"delta", L"beta", L"alpha"});
    expectOrder(0, {L"beta", L"alpha", L"gamma", L"delta"});
    expectOrder(0, {L"delta", L"gamma", L"alpha", L"beta"});
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DatabaseViewTest, TheDetailsFollowTheClickAndTheArrowKeys)
{
    FillThreeDays();
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    ASSERT_NE(viewer.Form(), nullptr);
    const auto expectThreat = [&](const std::wstring& threat)
    {
        EXPECT_TRUE(WaitUntil([&] { return viewer.TextOf(IDC_INFO_VALUE_0_LINK) == threat; }));
        EXPECT_EQ(viewer.TextOf(IDC_INFO_VALUE_2), L"C:\\" + threat + L".exe");
    };
    viewer.ClickRow(1);
    expectThreat(L"gamma");
    viewer.PressKey(VK_DOWN);
    expectThreat(L"alpha");
    viewer.PressKey(VK_DOWN);
    expectThreat(L"beta");
    viewer.PressKey(VK_UP);
    expectThreat(L"alpha");
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DatabaseViewTest, SwitchingThroughAllOtherLogsAndBackShowsTheirRecordsAndNothingBreaks)
{
    FillThreeDays();
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.SelectedLog(), 0);
    ASSERT_GE(viewer.LogCount(), 12);
    for (int log = 1; log < viewer.LogCount(); ++log)
    {
        viewer.SwitchToLog(log);
        EXPECT_EQ(viewer.RowCount(), 0) << log; // the database has none of theirs
        viewer.ChooseDate();
        EXPECT_EQ(viewer.RowCount(), 0) << log;
    }
    viewer.SwitchToLog(0);
    EXPECT_EQ(viewer.Dates(), m_logs.VirusDates());
    EXPECT_EQ(viewer.SelectedDate(), 0);
    EXPECT_EQ(viewer.Column(2), (Texts{L"delta", L"gamma", L"alpha", L"beta"}));
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DatabaseViewTest, ALogWithoutDatesIsAnEmptyPageWithoutAMessage)
{
    m_logs.Append(SpywareSubType, 20261120, {VirusLine(L"0900", L"of another log")});
    ExpectAnEmptyPage(Viewer(DatabaseCommandLine(VirusLog)));
}

TEST_F(DatabaseViewTest, AMissingDatabaseIsAnEmptyPageWithoutAMessage)
{
    ExpectAnEmptyPage(Viewer(DatabaseCommandLine(VirusLog)));
}

TEST_F(DatabaseViewTest, ADayThatFailsToLoadIsAnEmptyListAndLoadsWhenTheDatabaseIsMended)
{
    FillThreeDays();
    const Tracing tracing(m_service.Installed().Path());
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    ASSERT_NE(viewer.Form(), nullptr);
    m_logs.Damage();
    viewer.ClickDate(1);
    EXPECT_TRUE(WaitUntil([&] { return viewer.SelectedDate() == 1 && viewer.RowCount() == 0; }));
    EXPECT_TRUE(tracing.Has("*** CKestrixDlg::OnSelchangeLogDate() - m_pLogData->ReadLogDBMgr() failed."));
    EXPECT_EQ(viewer.Dates(), (Texts{DateText(20261120), DateText(20261119), DateText(20261118)}));

    m_logs.Mend();
    viewer.ClickDate(2);
    EXPECT_TRUE(WaitUntil([&] { return viewer.Column(2) == Texts{L"oldest"}; }));
    viewer.ClickDate(1);
    EXPECT_TRUE(WaitUntil([&] { return viewer.Column(2) == (Texts{L"second", L"first"}); }));
    EXPECT_EQ(viewer.Close(), 0u);
}

// No service is registered here: the viewer works without events, and says so in its trace.
class ViewerWithoutServiceTest : public ::testing::Test
{
protected:
    ViewerWithoutServiceTest() { Service::Run(L"/UnregServer"); }

    void ExpectNoEvents() const
    {
        EXPECT_TRUE(m_tracing.Has("*** CKestrixApp::InitInstance() - this->InitializeEventObject() failed."));
        EXPECT_TRUE(Service::Processes().empty());
    }

    const LanguageFile m_language;
    const InstalledFolder m_installed;
    const EventLogs m_logs{m_installed.Folder()};
    const Tracing m_tracing{m_installed.Folder().Path()};
};

TEST_F(ViewerWithoutServiceTest, WorksOnTheDatabase)
{
    m_logs.Append(VirusSubType, 20261120, {VirusLine(L"0900", L"beta"), VirusLine(L"0930", L"gamma")});
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.Dates(), Texts{DateText(20261120)});
    EXPECT_EQ(viewer.Column(2), (Texts{L"gamma", L"beta"}));
    EXPECT_EQ(viewer.Close(), 0u);
    ExpectNoEvents();
}

TEST_F(ViewerWithoutServiceTest, WorksOnADayFile)
{
    const std::wstring path = m_installed.Folder().File(L"20261120.VLG");
    WriteUtf16(path, VirusLine(L"0900", L"beta") + L"\r\n");
    const Viewer viewer(FileCommandLine(VirusLog, path));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.Column(2), Texts{L"beta"});
    EXPECT_EQ(viewer.Close(), 0u);
    ExpectNoEvents();
}
