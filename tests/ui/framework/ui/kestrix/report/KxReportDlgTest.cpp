#include "tests/ui/framework/ui/kestrix/report/KxReportDlgTest.h"

#include "tests/support/Picture.h"
#include "tests/support/TraceRecorder.h"

namespace
{

constexpr wchar_t EventLogKey[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

constexpr UINT LineControls[] = {IDC_REPORT_VIRUS, IDC_REPORT_SUSPICIOUS, IDC_REPORT_SPYWARE, IDC_REPORT_WEB,
                                 IDC_REPORT_DATA_PREVENTION};

} // namespace

TEST_F(KxReportDlgTest, EachLineTellsItsTotals)
{
    AddEvents();
    Open();
    EXPECT_EQ(TextOf(IDC_REPORT_VIRUS), L"Viruses: 3");
    EXPECT_EQ(TextOf(IDC_REPORT_SUSPICIOUS), L"Suspicious changes: 2 blocked, 1 allowed");
    EXPECT_EQ(TextOf(IDC_REPORT_SPYWARE), L"Spyware: 1 detected, 2 other");
    EXPECT_EQ(TextOf(IDC_REPORT_WEB), L"Web pages filtered: 4");
    EXPECT_EQ(TextOf(IDC_REPORT_DATA_PREVENTION), L"Data prevention events: 1");
    EXPECT_EQ(TextOf(IDC_REPORT_PAGE_TITLE), L"Report of Zeptara");
    EXPECT_EQ(m_page.TotalCount(), 14u);
    EXPECT_FALSE(IsShown(IDC_REPORT_NO_DATA));
}

TEST_F(KxReportDlgTest, WithoutEventsThereAreFiveDotsAndTheNoticeAndNoAxes)
{
    Open();
    EXPECT_EQ(m_page.TotalCount(), 0u);
    EXPECT_EQ(TextOf(IDC_REPORT_VIRUS), L"Viruses: 0");
    EXPECT_TRUE(IsShown(IDC_REPORT_NO_DATA));
    EXPECT_EQ(TextOf(IDC_REPORT_NO_DATA), L"Zeptara recorded no events in this period.");
    EXPECT_PICTURE(PictureOf(m_page), "no-data");
}

TEST_F(KxReportDlgTest, NoIntervalsAreNoData)
{
    AddEvents();
    m_registry.SetNumber(EventLogKey, L"AxisXNumber", 0);
    Open();
    EXPECT_EQ(m_page.TotalCount(), 0u);
    EXPECT_TRUE(IsShown(IDC_REPORT_NO_DATA));
}

TEST_F(KxReportDlgTest, TheDotsTheLinesAndTheChartStandWhereTheTemplateHasThem)
{
    AddEvents();
    Open();
    const Picture picture = PictureOf(m_page);
    EXPECT_PICTURE(picture, "all-lines");
    EXPECT_EQ(PictureOf(m_page), picture) << "no painting changes the next one";
}

TEST_F(KxReportDlgTest, AClickOnALineLeadsToItsLogAndIsTraced)
{
    struct Case
    {
        UINT control;
        std::uint32_t type;
        std::wstring trace;
    };

    AddEvents();
    Open();
    for (const Case& one : {Case{IDC_REPORT_VIRUS, LogTypeVirus, L"Click Virus Spyware Report Line"},
                            {IDC_REPORT_SUSPICIOUS, LogTypeVst, L"Click Suspicious Change Report Line"},
                            {IDC_REPORT_WEB, LogTypeUrlFilter, L"Click Web Report Line"},
                            {IDC_REPORT_DATA_PREVENTION, LogTypePrivacy, L"Click Data Prevention Line"},
                            {IDC_REPORT_SPYWARE, LogTypeSpyware, L"Click Spyware Report Line"}})
    {
        const TraceRecorder trace;
        m_host.m_arrType.clear();
        Item(one.control).SendMessage(WM_LBUTTONDOWN);
        EXPECT_EQ(m_host.m_arrType, std::vector{one.type});
        EXPECT_EQ(trace.Texts(VdCommon::TraceLevel::Flow), std::vector{one.trace});
    }
}

TEST_F(KxReportDlgTest, TheSpaceBarOnALineLeadsToItsLog)
{
    Open();
    for (const UINT control : LineControls)
    {
        m_host.m_arrType.clear();
        Item(control).SendMessage(WM_KEYUP, VK_SPACE);
        HandlePostedMessages();
        EXPECT_EQ(m_host.m_arrType.size(), 1u) << control;
    }
}

TEST_F(KxReportDlgTest, ThePointerIsAHandOverTheLinesAndTheUsualOneOverAllElse)
{
    Open();
    for (const UINT control : LineControls)
    {
        EXPECT_TRUE(ShowsHandOver(control)) << control;
    }
    for (const UINT control : {IDC_REPORT_RULE, IDC_REPORT_FRAME, IDC_REPORT_NO_DATA, IDC_REPORT_PAGE_TITLE})
    {
        EXPECT_FALSE(ShowsHandOver(control)) << control;
    }
}

TEST_F(KxReportDlgTest, WithoutAFormThePageStaysEmptyAndAClickLeadsNowhere)
{
    AddEvents();
    m_page.m_pParentForm = nullptr;
    const TraceRecorder trace;
    Open();
    EXPECT_EQ(m_page.TotalCount(), 0u);
    EXPECT_EQ(TextOf(IDC_REPORT_VIRUS), L"");
    EXPECT_EQ(TextOf(IDC_REPORT_PAGE_TITLE), L"");
    EXPECT_FALSE(IsShown(IDC_REPORT_NO_DATA));
    Item(IDC_REPORT_WEB).SendMessage(WM_LBUTTONDOWN);
    EXPECT_EQ(trace.Texts(), std::vector<std::wstring>{L"Click Web Report Line"});
}

TEST_F(KxReportDlgTest, AFileOfADayThatCannotBeCountedBackIsToldAndThereIsNoPage)
{
    AddFile(L"18991231.PPG", L"1\r\n");
    EXPECT_FALSE(m_page.Create(IDD_REPORT_PAGE, &m_parent));
    EXPECT_EQ(m_boxes.Boxes().size(), 1u);
}

TEST_F(KxReportDlgTest, TheMonthThatIsShownIsThatOfTheMomentWhenThePageWasMade)
{
    Open();
    AddEvents();
    m_page.RedrawWindow();
    EXPECT_EQ(TextOf(IDC_REPORT_VIRUS), L"Viruses: 0");
    EXPECT_EQ(m_page.TotalCount(), 0u);
}
